#pragma once

#include "triaxial/envelope.h"
#include "triaxial/record.h"

namespace triaxlab {

/// The radius (kPa) of the Mohr circle that begins at sigma3 and touches the envelope.
double touchingRadius(const Envelope& envelope, double sigma3);

/// Scales the stress-strain curve of each stage under pressure so that its largest stress, whatever the strain, is the
/// diameter of the circle that touches the envelope. A curve whose largest stress is its first reading stays, and so
/// does one for which the envelope leaves no circle of a radius above 0. The effective stresses then follow the new
/// curves, as they will when the file is opened again.
void rescaleToEnvelope(TriaxialSampleRecord& record, const Envelope& envelope);

}  // namespace triaxlab
