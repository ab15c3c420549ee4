#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace triaxlab {

/// Title of the main window and of the ordinary error display.
inline constexpr const char* kProgramTitle = "QVB三轴试验数据处理";

/// What a person must know and the operation can't get over: one sentence (UTF-8) that names the file and what to do.
/// Thrown once, caught in two places: the shell shows it as a box, the command line prints it and exits 1.
class UserError : public std::runtime_error {
 public:
  explicit UserError(const std::string& sentence) : UserError(kProgramTitle, sentence) {}
  UserError(std::string title, const std::string& sentence) : std::runtime_error(sentence), m_title(std::move(title)) {}
  const std::string& title() const { return m_title; }

 private:
  std::string m_title;
};

/// Sentences that don't stop an operation ("the file is shorter than its header says"): shown in the status bar and on
/// standard error.
using Remarks = std::vector<std::string>;

}  // namespace triaxlab
