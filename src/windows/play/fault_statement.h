#pragma once

#include "windows/play/script.h"
#include "windows/play/statements.h"

namespace triaxlab {

/// `fault throw|memory|paint|crash WINDOW[.CONTROL]`: the window or control meets a fault of that kind, as if the
/// program had one. Built for tests alone.
void fault(Arguments& arguments, Stage& stage);

}  // namespace triaxlab
