#include "shell/result_lines.h"

#include <fmt/core.h>

#include "common/gbk.h"
#include "k0/settlement.h"
#include "triaxial/method_names.h"
#include "triaxial/result_values.h"
#include "unconfined/reduction.h"

namespace triaxlab {
namespace {

std::string pressuresOf(const TriaxialSampleRecord& record) {
  std::string pressures;
  for (const FixedText<6>& pressure : record.cellPressure) {
    if (pressure.number() == 0) continue;
    if (!pressures.empty()) pressures += ", ";
    pressures += pressure.trimmed();
  }
  return pressures;
}

std::vector<std::string> resultLine(const TriaxialSampleRecord& record) {
  const Strength total = totalStrength(record), effective = effectiveStrength(record);
  return {gbkToUtf8(record.sampleNo.trimmed()),
          std::string(methodNames(record).abbreviation),
          pressuresOf(record),
          total.cohesion,
          total.angle,
          effective.cohesion,
          effective.angle};
}

std::vector<std::string> resultLine(const UnconfinedSampleRecord& record) {
  const std::optional<double> strain = strainAtPeak(record, Specimen::Undisturbed);
  return {gbkToUtf8(record.sampleNo.trimmed()), std::string(record.qu.trimmed()),
          std::string(record.quRemoulded.trimmed()), std::string(record.sensitivity.trimmed()),
          strain ? FormatNumber(*strain, NumberFormat::Tenths) : ""};
}

std::vector<std::string> koLine(const K0SampleRecord& record) {
  return {gbkToUtf8(record.sampleNo.trimmed()), std::string(record.koValue.trimmed())};
}

std::vector<std::string> t90Line(const TK0SampleRecord& record) {
  std::vector<std::string> line = koLine(record.k0);
  TK0SampleRecord constructed = record;
  const PerLoadStage<T90> results = computeStageResults(constructed);
  for (std::size_t stage = 0; stage < kLoadStages; ++stage)
    line.push_back(isLoaded(record.k0, stage) ? FormatNumber(results[stage].minutes(), NumberFormat::Tenths) : "");
  return line;
}

}  // namespace

ResultLines triaxialResultLines(const Workspace& workspace) {
  ResultLines lines{{workspace.settings.habits.sampleNoLabel, "方法", "围压 kPa", "C kPa", "φ °", "C′ kPa", "φ′ °"}};
  for (const TriaxialSampleRecord& record : workspace.TriaxialSampleTable.used())
    if (isLive(record)) lines.push_back(resultLine(record));
  return lines;
}

ResultLines unconfinedResultLines(const Workspace& workspace) {
  ResultLines lines{{workspace.settings.habits.sampleNoLabel, "qu kPa", "qu′ kPa", "St", "峰值应变 %"}};
  for (const UnconfinedSampleRecord& record : workspace.UnconfinedSampleTable.used())
    if (isLive(record)) lines.push_back(resultLine(record));
  return lines;
}

ResultLines k0ResultLines(const Workspace& workspace) {
  ResultLines lines{{workspace.settings.habits.sampleNoLabel, "Ko"}};
  for (const K0SampleRecord& record : workspace.K0SampleTable.used())
    if (isLive(record)) lines.push_back(koLine(record));
  return lines;
}

ResultLines tk0ResultLines(const Workspace& workspace) {
  ResultLines lines{{workspace.settings.habits.sampleNoLabel, "Ko"}};
  for (std::size_t stage = 1; stage <= kLoadStages; ++stage) lines.front().push_back(fmt::format("T90({}) min", stage));
  for (const TK0SampleRecord& record : workspace.TK0SampleTable.used())
    if (isLive(record)) lines.push_back(t90Line(record));
  return lines;
}

}  // namespace triaxlab
