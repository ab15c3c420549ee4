#pragma once

#include <optional>
#include <string>

namespace triaxlab {

/// Why the system's print service has not taken the job that this thread sent last, in the technician's language.
/// Nothing when it has taken it, or when there is nobody to tell.
std::optional<std::string> whyJobWasRefused();

}  // namespace triaxlab
