#pragma once

#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "common/fixed_text.h"
#include "platform/files.h"
#include "sessions/triaxial/curve_session.h"
#include "store/workspace.h"
#include "triaxial/record.h"

namespace triaxlab {

inline TriaxialSampleRecord namedSample(std::string_view project, std::string_view sample, std::uint8_t method) {
  TriaxialSampleRecord record;
  SetText(record.projectNo, project);
  SetText(record.sampleNo, sample);
  record.testMethod = method;
  record.shearMode = 1;
  return record;
}

/// One shear reading: strain in %, stresses in kPa as their texts.
struct Reading {
  float strain;
  const char* q;
  const char* u;
  const char* sigma1Eff;
  const char* sigma3Eff;
};

inline void fillStage(TriaxialSampleRecord& record, std::size_t stage, const char* pressure,
                      std::initializer_list<Reading> readings) {
  SetText(record.cellPressure[stage], pressure);
  std::size_t row = 0;
  for (const Reading& reading : readings) {
    record.axialStrain[row][stage] = reading.strain;
    SetText(record.deviatorStress[row][stage], reading.q);
    SetText(record.porePressure[row][stage], reading.u);
    SetText(record.sigma1Eff[row][stage], reading.sigma1Eff);
    SetText(record.sigma3Eff[row][stage], reading.sigma3Eff);
    ++row;
  }
}

/// Two stages with their effective stresses as the opening pass leaves them: sigma1' = sigma3 + q - u,
/// sigma3' = sigma3 - u. The peak of q is row 1, that of sigma1'/sigma3' row 2 of the first stage (123/65 = 1.892
/// against 130/70 = 1.857).
inline TriaxialSampleRecord cuSample(std::string_view project = "GC1", std::string_view sample = "T1") {
  TriaxialSampleRecord record = namedSample(project, sample, kCU);
  fillStage(record, 0, "100",
            {{0.4F, "30", "10", "120", "90"}, {0.8F, "60", "30", "130", "70"}, {1.2F, "58", "35", "123", "65"}});
  fillStage(record, 1, "200", {{0.4F, "61", "20", "241", "180"}, {0.8F, "120", "60", "260", "140"}});
  return record;
}

inline TriaxialSampleRecord uuSample(std::string_view project = "GC1", std::string_view sample = "T2") {
  TriaxialSampleRecord record = namedSample(project, sample, kUU);
  fillStage(record, 0, "100", {{0.4F, "30", "", "", ""}, {0.8F, "60", "", "", ""}});
  return record;
}

inline TriaxialSampleRecord cdSample(std::string_view project = "GC1", std::string_view sample = "T3") {
  TriaxialSampleRecord record = uuSample(project, sample);
  record.testMethod = kCD;
  return record;
}

/// Label2 index of a line and column.
inline std::size_t cellAt(int line, int column) { return static_cast<std::size_t>(kTableColumns * line + column); }

/// The samples in the first rows of a workspace that lives as long as the sessions on it.
struct SessionFixture {
  Workspace workspace;
  explicit SessionFixture(std::initializer_list<TriaxialSampleRecord> samples) {
    std::size_t row = 0;
    for (const TriaxialSampleRecord& sample : samples) workspace.TriaxialSampleTable[row++] = sample;
  }
  TriaxialSampleRecord& sample(std::size_t row) { return workspace.TriaxialSampleTable[row]; }
};

}  // namespace triaxlab
