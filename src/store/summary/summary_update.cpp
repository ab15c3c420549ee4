#include "store/summary/summary_update.h"

#include <algorithm>

#include "common/in_memory.h"
#include "store/summary/summary_file.h"
#include "store/summary/summary_parts.h"
#include "store/summary/summary_sections.h"
#include "store/summary/trial_pit.h"

namespace triaxlab {
namespace {

ReadAt readerOf(const FileUpdate& update, const std::filesystem::path& path) {
  return
      [&update, &path](std::uint64_t offset, std::span<std::byte> into) { return update.readAt(path, offset, into); };
}

constexpr std::size_t kBoreholeWidth = 8;  // behind the number of a trial pit

std::string placesOf(std::string_view text, std::size_t width) {
  std::string places(cutWhole(text, width));
  places.resize(width, ' ');
  return places;
}

/// The borehole as it stands in the summary file. With trial pits its first places repeat those of the sampling spot; a
/// borehole that was read from the file has them already.
FixedText<15> boreholeOnFile(const SampleLocation& location, bool trialPitNumber) {
  const std::string_view borehole = location.boreholeNo.view();
  const std::string pit = placesOf(location.samplingSpot.view(), kTrialPitWidth);
  if (!trialPitNumber || borehole.starts_with(pit)) return location.boreholeNo;
  FixedText<15> field;
  SetText(field, pit + placesOf(borehole, kBoreholeWidth));
  return field;
}

/// A typed title goes to every project, another only to the one that it belongs to, and there only when it differs.
template <std::size_t N>
void setTitle(FixedText<N>& field, const TitleText& title, std::string_view projectNo) {
  const std::string_view text = Trim(title.text);
  if (title.typed || (title.projectNo == projectNo && field.trimmed() != text)) SetText(field, text);
}

/// Writes some parts of an object that begins at a place of the file.
void writeParts(FileUpdate& update, const std::filesystem::path& path, std::uint64_t begin,
                std::span<const std::byte> object, std::span<const SummaryPart> parts) {
  for (const SummaryPart& part : parts) update.writeAt(path, begin + part.begin, partOf(object, part));
}

}  // namespace

SummaryUpdate::SummaryUpdate(FileUpdate& update, const Workspace& workspace, ProjectKind kind,
                             std::string_view projectNo)
    : m_update(update),
      m_workspace(workspace),
      m_kind(kind),
      m_projectNo(projectNo),
      m_path(summaryPath(workspace, projectNo)) {
  m_isNew = !m_update.exists(m_path);
  if (!m_isNew)
    loadFile();
  else
    m_head.header = newSummaryHeader(m_projectNo, m_workspace.today());
}

void SummaryUpdate::loadFile() {
  const ReadAt readAt = readerOf(m_update, m_path);
  m_head = readSummaryHead(readAt, m_path);
  m_found = m_head.header;
  FixedText<15> sampleNo;
  for (std::size_t k = 0; k < static_cast<std::size_t>(m_head.sampleCount); ++k) {
    const std::uint64_t place = summaryPosition(k) + offsetof(SummaryRecord, sampleNo);
    if (readAt(place, writableBytesOf(sampleNo)) < sizeof sampleNo) break;
    m_positions.emplace(sampleNo.trimmed(), k);
  }
  const std::uint64_t size = m_update.size(m_path);
  const std::uint64_t whole = (size - sizeof(SummaryHeader)) / sizeof(SummaryRecord);
  if (std::cmp_greater_equal(whole, m_head.sampleCount) || size == summaryPosition(whole)) return;
  m_cut.emplace(inMemory(whole), newSummaryRecord(m_workspace.today()));
  readAt(summaryPosition(whole), writableBytesOf(m_cut->second));
}

SummaryRecord SummaryUpdate::stored(std::size_t k) {
  if (m_cut && m_cut->first == k) return std::exchange(m_cut, std::nullopt)->second;
  SummaryRecord record;
  m_update.readAt(m_path, summaryPosition(k), writableBytesOf(record));
  return record;
}

void SummaryUpdate::completeShortFile() {
  if (m_written || !m_update.exists(m_path)) return;
  const std::uint64_t size = m_update.size(m_path);
  const std::uint64_t claimed = summaryPosition(static_cast<std::size_t>(m_head.sampleCount));
  if (size < claimed) m_update.writeAt(m_path, size, Bytes(inMemory(claimed - size), std::byte{' '}));
}

bool SummaryUpdate::put(const SampleRows& rows, std::size_t row) {
  const std::string sampleNo(rows.sampleNo(row));
  const auto known = m_positions.find(sampleNo);
  if (known == m_positions.end() && std::cmp_greater_equal(m_head.sampleCount, kMostSummaryRecords)) return false;

  completeShortFile();
  const bool isKnown = known != m_positions.end();
  const std::size_t k = isKnown ? known->second : static_cast<std::size_t>(m_head.sampleCount);
  const bool isWhole = isKnown && !(m_cut && m_cut->first == k);
  SummaryRecord summary = isKnown ? stored(k) : newSummaryRecord(m_workspace.today());
  if (!isKnown) {
    m_positions.emplace(sampleNo, k);
    SetText(m_head.header.sampleCount, FormatPadded(++m_head.sampleCount, 4));
  }
  const SampleLocation& location = m_workspace.dataOf(m_kind).SampleDisplayTable[row];
  SetText(summary.sequenceNo, FormatPadded(static_cast<std::int64_t>(k) + 1, 4));
  SetText(summary.sampleNo, sampleNo);
  summary.boreholeNo = boreholeOnFile(location, m_workspace.settings.habits.trialPitNumber);
  summary.samplingDepth = location.samplingDepth;
  SetText(summary.samplingSpot, location.samplingSpot.trimmed());
  putResults(summary, m_workspace, m_kind, row);
  if (isWhole)
    writeParts(m_update, m_path, summaryPosition(k), bytesOf(summary), kOwnRecordParts);
  else
    m_update.writeAt(m_path, summaryPosition(k), bytesOf(summary));
  SetText(m_head.header.toolDates[0], testDateOf(m_workspace, m_kind, row));
  m_written = true;
  return true;
}

void SummaryUpdate::finish() {
  if (!m_written) return;
  const DocumentData& data = m_workspace.dataOf(m_kind);
  setTitle(m_head.header.projectName, data.projectName, m_projectNo);
  if (!data.projectName.typed && m_head.header.projectName.isBlank())
    SetText(m_head.header.projectName, data.importedProjectName(m_projectNo));
  setTitle(m_head.header.secondTitleLine, data.secondTitleLine, m_projectNo);
  writeHeader();
}

/// A title that was not set here is what a sibling tool makes of it.
void SummaryUpdate::writeHeader() {
  const SummaryHeader& header = m_head.header;
  if (m_isNew) return m_update.writeAt(m_path, 0, bytesOf(header));
  writeParts(m_update, m_path, 0, bytesOf(header), std::array{kSampleCountPart, kProjectNoPart, kOwnDatePart});
  for (const SummaryPart& title : {kProjectNamePart, kSecondTitlePart})
    if (!std::ranges::equal(partOf(bytesOf(header), title), partOf(bytesOf(m_found), title)))
      writeParts(m_update, m_path, 0, bytesOf(header), std::array{title});
}

void blankDeletedSamples(FileUpdate& update, const Workspace& workspace, ProjectKind kind, std::string_view projectNo,
                         const std::unordered_set<std::string>& sampleNumbers) {
  const std::filesystem::path path = summaryPath(workspace, projectNo);
  if (path.empty() || !update.exists(path)) return;
  update.lock().take(path);
  const ReadAt readAt = readerOf(update, path);
  const SummaryHead head = readSummaryHead(readAt, path);
  const auto blank = [&](std::size_t k, const SummaryRecord& stored) {
    if (sampleNumbers.contains(std::string(stored.sampleNo.trimmed()))) return;
    SummaryRecord summary = stored;
    blankResults(summary, kind);
    if (std::ranges::equal(bytesOf(summary), bytesOf(stored))) return;
    writeParts(update, path, 0, bytesOf(head.header), std::array{kProjectNoPart});
    writeParts(update, path, summaryPosition(k), bytesOf(summary), kBlankedParts);
  };
  visitSummaryRecords(readAt, head.sampleCount, blank);
}

}  // namespace triaxlab
