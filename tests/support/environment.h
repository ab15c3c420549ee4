#pragma once

#include <cstdlib>

namespace triaxlab::testing {

/// Sets a variable of this program's environment; an empty value takes it away on Windows, which has none of those.
inline void setVariable(const char* name, const char* value) {
#ifdef _WIN32
  _putenv_s(name, value);
#else
  setenv(name, value, 1);
#endif
}

inline void unsetVariable(const char* name) {
#ifdef _WIN32
  _putenv_s(name, "");
#else
  unsetenv(name);
#endif
}

}  // namespace triaxlab::testing
