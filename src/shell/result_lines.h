#pragma once

#include "shell/document_kinds.h"

namespace triaxlab {

/// Sample, method, cell pressures, C, φ, C′, φ′ of each live triaxial sample.
ResultLines triaxialResultLines(const Workspace& workspace);

/// Sample, qu, qu′, St of each live unconfined sample, and the strain at which qu stands.
ResultLines unconfinedResultLines(const Workspace& workspace);

/// Sample and Ko of each live K0 sample.
ResultLines k0ResultLines(const Workspace& workspace);

/// Sample, Ko and the T90 of each load stage of each live TK0 sample; blank for a stage without load.
ResultLines tk0ResultLines(const Workspace& workspace);

}  // namespace triaxlab
