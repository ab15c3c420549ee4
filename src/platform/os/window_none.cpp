#include "platform/process.h"

namespace triaxlab {

Raising raiseWindow(std::string_view) { return Raising::NotPossible; }

}  // namespace triaxlab
