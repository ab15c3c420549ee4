#pragma once

#include <cstdint>

namespace triaxlab {

/// The kinds of project file; the values are those of `openDialogKind` for the browser.
enum class ProjectKind : std::int16_t { Triaxial = 1, Unconfined = 2, K0 = 10, TK0 = 20, OldTriaxial = 101 };

}  // namespace triaxlab
