#pragma once

#include <cstddef>
#include <string_view>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/settings.h"

namespace triaxlab {

/// Bytes of a trial-pit number. A laboratory that digs pits keeps the number of the pit in front of the borehole's, in
/// the borehole field of the summary file.
inline constexpr std::size_t kTrialPitWidth = 7;

/// What lists and pages show of a borehole field: of a laboratory with trial pits the number of the pit alone. GBK,
/// trimmed.
inline std::string_view shownBorehole(const FixedText<15>& borehole, const LaboratoryHabits& habits) {
  return habits.trialPitNumber ? Trim(cutWhole(borehole.view(), kTrialPitWidth)) : borehole.trimmed();
}

}  // namespace triaxlab
