#include "platform/fault_stack.h"

namespace triaxlab {

std::string stackOfFault() { return {}; }

}  // namespace triaxlab
