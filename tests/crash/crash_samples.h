#pragma once

#include <string>

#include "store/workspace.h"

namespace triaxlab::crash {

/// The n-th sample of a series, told apart by its texts and by the kind of its readings.
inline TriaxialSampleRecord sample(const std::string& projectNo, int number, int reading) {
  TriaxialSampleRecord record;
  SetText(record.projectNo, projectNo);
  SetText(record.sampleNo, "S" + std::to_string(number));
  record.testMethod = kCU;
  SetText(record.cellPressure[0], "100");
  SetText(record.cohesionText, std::to_string(reading));
  record.cohesionTenths = static_cast<std::int16_t>(reading * 10);
  record.frictionAngle = 20.5F;
  for (auto& row : record.deviatorStress) row[0] = {};
  for (std::size_t row = 0; row < kShearRows; ++row) SetText(record.deviatorStress[row][0], std::to_string(reading));
  return record;
}

inline constexpr int kSamplesOfASharer = 15;

inline void fill(Workspace& workspace, const std::string& projectNo, int firstRow, int samples, int reading) {
  for (int i = 0; i < samples; ++i)
    workspace.TriaxialSampleTable[static_cast<std::size_t>(firstRow + i)] = sample(projectNo, i + 1, reading);
}

}  // namespace triaxlab::crash
