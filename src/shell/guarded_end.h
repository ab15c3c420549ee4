#pragma once

#include "shell/fault_log.h"

namespace triaxlab {

/// Ends the process, and tells standard error of it; throws nothing. `thrown` is what nobody has caught.
using End = void (*)(const char* thrown);

/// From now on the process doesn't end without a word: an exception that nobody catches, or a signal, adds to the
/// reports first. To be called again when the log is kept in another folder. The log outlives the process's last words.
void guardTheEnd(FaultLog& log, End end);

}  // namespace triaxlab
