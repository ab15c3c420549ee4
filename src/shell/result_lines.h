#pragma once

#include "shell/document_kinds.h"

namespace triaxlab {

/// Sample, method, cell pressures, C, φ, C′, φ′ of each live triaxial sample.
ResultLines triaxialResultLines(const Workspace& workspace);

}  // namespace triaxlab
