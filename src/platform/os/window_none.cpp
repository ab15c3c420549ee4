#include "platform/process.h"

namespace triaxlab {

WindowWish raiseWindow(std::string_view /*title*/) { return WindowWish::NotPossible; }

WindowWish minimizeWindowsOf(int /*process*/) { return WindowWish::NotPossible; }

}  // namespace triaxlab
