#include "platform/print_answer.h"

namespace triaxlab {

std::optional<std::string> whyJobWasRefused() { return std::nullopt; }

}  // namespace triaxlab
