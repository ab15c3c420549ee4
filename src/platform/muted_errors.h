#pragma once

namespace triaxlab {

/// As long as it lives, nothing comes out on standard error: around a library that tells there what it also returns.
class MutedErrors {
 public:
  MutedErrors();
  MutedErrors(const MutedErrors&) = delete;
  MutedErrors& operator=(const MutedErrors&) = delete;
  /// Leaves errno as it is.
  ~MutedErrors();

 private:
  int m_standardError = -1;  // what it was; -1 when it can't be muted
};

}  // namespace triaxlab
