#include "store/summary_update.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "store/summary_file.h"

namespace triaxlab {
namespace {

constexpr int kLargestCountOnFile = 9999;
constexpr std::size_t kPitWidth = 7;       // of a trial-pit number in front of the borehole
constexpr std::size_t kBoreholeWidth = 8;  // behind it

std::string placesOf(std::string_view text, std::size_t width) {
  std::string places(cutWhole(text, width));
  places.resize(width, ' ');
  return places;
}

/// The borehole as it stands in the summary file. With trial pits its first places repeat those of the sampling spot; a
/// borehole that was read from the file has them already.
FixedText<15> boreholeOnFile(const SampleLocation& location, bool trialPitNumber) {
  const std::string_view borehole = location.boreholeNo.view(), spot = location.samplingSpot.view();
  if (!trialPitNumber || borehole.substr(0, kPitWidth) == spot.substr(0, kPitWidth)) return location.boreholeNo;
  FixedText<15> field;
  SetText(field, placesOf(spot, kPitWidth) + placesOf(borehole, kBoreholeWidth));
  return field;
}

std::string dateOf(const Workspace& workspace, const TriaxialSampleRecord& record) {
  std::string date(record.testDate.trimmed());
  if (date.empty()) date = workspace.projectTestDate(record.projectNo.trimmed()).value_or("");
  if (date.empty()) date = slashed(workspace.today());
  std::replace(date.begin(), date.end(), '-', '/');
  return date;
}

void setAngle(FixedText<4>& field, float degrees) {
  if (std::isfinite(degrees)) SetText(field, FormatNumber(degrees, NumberFormat::Tenths));
}

StrengthPair strengthOf(const TriaxialSampleRecord& record) {
  StrengthPair pair;
  if (record.frictionAngle != 0 || record.cohesionTenths != 0) {
    SetText(pair.cohesion, record.cohesionText.trimmed());
    setAngle(pair.frictionAngle, record.frictionAngle);
  }
  if (record.testMethod == kCU) {  // written as they stand: 0.0 for an angle that was never found
    SetText(pair.cohesionEff, record.cohesionEffText.trimmed());
    setAngle(pair.frictionAngleEff, record.frictionAngleEff);
  }
  return pair;
}

void setStrength(SummaryRecord& summary, const TriaxialSampleRecord& record) {
  const StrengthPair pair = strengthOf(record);
  SetNumber(summary.testMethod, record.testMethod, NumberFormat::Whole);
  summary.cSz = pair.cohesion;
  summary.phiSz = pair.frictionAngle;
  summary.cEffSz = pair.cohesionEff;
  summary.phiEffSz = pair.frictionAngleEff;
  if (record.cellPressure[0].number() == 0) return;
  summary.strengthByMethod.fill({});
  if (record.testMethod >= 1 && record.testMethod <= summary.strengthByMethod.size())
    summary.strengthByMethod[record.testMethod - 1U] = pair;
}

/// A typed title goes to every project, another only to the one that it belongs to, and there only when it differs.
template <std::size_t N>
void setTitle(FixedText<N>& field, const TitleText& title, std::string_view projectNo) {
  const std::string_view text = Trim(title.text);
  if (title.typed || (title.projectNo == projectNo && field.trimmed() != text)) SetText(field, text);
}

}  // namespace

SummaryUpdate::SummaryUpdate(FileUpdate& update, const Workspace& workspace, std::string_view projectNo)
    : m_update(update), m_workspace(workspace), m_projectNo(projectNo), m_path(summaryPath(workspace, projectNo)) {
  if (!m_update.exists(m_path)) {
    m_head.header = newSummaryHeader(m_projectNo, m_workspace.today());
    return;
  }
  const ReadAt readAt = [this](std::uint64_t offset, std::span<std::byte> into) {
    return m_update.readAt(m_path, offset, into);
  };
  m_head = readSummaryHead(readAt, m_path);
  FixedText<15> sampleNo;
  for (std::size_t k = 0; k < static_cast<std::size_t>(m_head.sampleCount); ++k) {
    const std::uint64_t place = summaryPosition(k) + offsetof(SummaryRecord, sampleNo);
    if (readAt(place, writableBytesOf(sampleNo)) < sizeof sampleNo) break;
    m_positions.emplace(sampleNo.trimmed(), k);
  }
}

bool SummaryUpdate::putTriaxial(std::size_t row) {
  const TriaxialSampleRecord& record = m_workspace.TriaxialSampleTable[row];
  const SampleLocation& location = m_workspace.SampleDisplayTable[row];
  const auto known = m_positions.find(std::string(record.sampleNo.trimmed()));
  if (known == m_positions.end() && m_head.sampleCount >= kLargestCountOnFile) return false;

  const std::size_t k = known != m_positions.end() ? known->second : static_cast<std::size_t>(m_head.sampleCount);
  SummaryRecord summary = newSummaryRecord(m_workspace.today());
  if (known != m_positions.end()) {
    m_update.readAt(m_path, summaryPosition(k), writableBytesOf(summary));
  } else {
    m_positions.emplace(record.sampleNo.trimmed(), k);
    SetText(m_head.header.sampleCount, FormatPadded(++m_head.sampleCount, 4));
  }
  const std::string date = dateOf(m_workspace, record);
  SetText(summary.sequenceNo, FormatPadded(static_cast<std::int64_t>(k) + 1, 4));
  SetText(summary.sampleNo, record.sampleNo.trimmed());
  summary.boreholeNo = boreholeOnFile(location, m_workspace.settings.habits.trialPitNumber);
  summary.samplingDepth = location.samplingDepth;
  SetText(summary.samplingSpot, location.samplingSpot.trimmed());
  SetText(summary.testDateSz, date);
  setStrength(summary, record);
  m_update.writeAt(m_path, summaryPosition(k), bytesOf(summary));
  SetText(m_head.header.toolDates[0], date);
  m_written = true;
  return true;
}

void SummaryUpdate::finish() {
  if (!m_written) return;
  setTitle(m_head.header.projectName, m_workspace.projectName, m_projectNo);
  setTitle(m_head.header.secondTitleLine, m_workspace.secondTitleLine, m_projectNo);
  m_update.writeAt(m_path, 0, bytesOf(m_head.header));
}

}  // namespace triaxlab
