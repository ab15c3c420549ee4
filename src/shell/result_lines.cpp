#include "shell/result_lines.h"

#include "common/gbk.h"
#include "triaxial/method_names.h"

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
  std::vector<std::string> line{gbkToUtf8(record.sampleNo.trimmed()), std::string(methodNames(record).abbreviation),
                                pressuresOf(record)};
  const auto addPair = [&line](const FixedText<9>& cohesion, float angle, bool exists) {
    line.push_back(exists ? std::string(cohesion.trimmed()) : "");
    line.push_back(exists ? FormatNumber(angle, NumberFormat::Tenths) : "");
  };
  addPair(record.cohesionText, record.frictionAngle, record.frictionAngle != 0 || record.cohesionTenths != 0);
  addPair(record.cohesionEffText, record.frictionAngleEff,
          record.testMethod == kCU && (record.frictionAngleEff != 0 || record.cohesionEffTenths != 0));
  return line;
}

}  // namespace

ResultLines triaxialResultLines(const Workspace& workspace) {
  ResultLines lines{{workspace.settings.habits.sampleNoLabel, "方法", "围压 kPa", "C kPa", "φ °", "C′ kPa", "φ′ °"}};
  for (const TriaxialSampleRecord& record : workspace.TriaxialSampleTable.used())
    if (isLive(record)) lines.push_back(resultLine(record));
  return lines;
}

}  // namespace triaxlab
