#include "platform/process.h"

namespace triaxlab {

Raising raiseWindow(std::string_view /*title*/) { return Raising::NotPossible; }

}  // namespace triaxlab
