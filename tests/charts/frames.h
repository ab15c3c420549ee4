#pragma once

#include "charts/plot_frame.h"

namespace triaxlab::testing {

// Frames of different tests: axial strain with as many columns as the laboratory draws, a square of pressures, and a
// settlement that grows downward, with a pressure axis upward in the lower part of the same frame.
constexpr PlotFrame strainFrame(int columns) { return {1000, 300, 7000, 4300, columns, 14}; }
inline constexpr PlotFrame kPressureFrame{2500, 300, 8500, 4120, 22, 14};
inline constexpr PlotFrame kSettlementFrame{700, 300, 4700, 3100, 10, 16, YDirection::Down};
inline constexpr PlotFrame kSecondFrame{700, 1350, 4700, 3100, 10, 10};

}  // namespace triaxlab::testing
