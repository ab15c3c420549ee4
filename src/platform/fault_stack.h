#pragma once

#include <string>

namespace triaxlab {

/// Where the exception that is being handled was thrown, a line for each call, the innermost first; without one, and
/// where that isn't known, where this is called. Function names as far as the program tells them, and places in its
/// files, of which debug information makes lines of code. Empty where the system tells of no calls.
std::string stackOfFault();

}  // namespace triaxlab
