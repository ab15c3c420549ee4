#pragma once

#include "common/text_number.h"
#include "triaxial/record.h"

namespace triaxlab {

/// One strength envelope in the plane of normal stress and shear stress.
struct Envelope {
  double tanPhi = 0;
  double cohesion = 0;  // kPa
  bool exists = false;  // false: circles only, no line
  bool operator==(const Envelope&) const = default;
};
struct Envelopes {
  Envelope total;
  Envelope effective;  // for CU
  bool operator==(const Envelopes&) const = default;
};

/// The total fit of the opening pass over `failedStages` stages: stores frictionAngle, cohesionTenths and cohesionText.
void fitTotalEnvelope(TriaxialSampleRecord& record, int failedStages, NumberFormat cohesionFormat);

/// The envelopes of the sample on display: fitted and stored, or, once adjusted by hand, read back from the record.
/// When the circles have no such line (one centre, or a radius that grows as fast as the centre) the record keeps the
/// results that it holds, and these are shown.
Envelopes envelopesOfPage(TriaxialSampleRecord& record, NumberFormat cohesionFormat);

/// Keeps envelopes that a person has set: from now on they are read back and no longer fitted. Only CU keeps the
/// effective one.
void storeAdjustedEnvelopes(TriaxialSampleRecord& record, const Envelopes& envelopes, NumberFormat cohesionFormat);

}  // namespace triaxlab
