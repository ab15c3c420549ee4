#include "sessions/unconfined/stress_session.h"

#include <cmath>
#include <utility>

#include "common/conversions.h"
#include "common/gbk.h"
#include "common/text_number.h"
#include "sessions/typed_text.h"
#include "unconfined/reduction.h"

namespace triaxlab {
namespace {

constexpr std::size_t kRingWidth = 8;        // bytes that the box takes
constexpr const char* kUsualLimit = "15.0";  // %

constexpr std::array kReadingHeads{"原状R", "原状σ", "原状ε(%)", "重塑R", "重塑σ", "重塑ε(%)"};
constexpr ListedForm kForm{.tests = ProjectKind::Unconfined,
                           .readingHeads = kReadingHeads,
                           .readingRows = static_cast<int>(kUnconfinedRows),
                           .lineNumbers = LineNumbers::OfSamples};

/// A column of the readings, in the order of their heads.
template <class Record>
auto& columnOf(Record& record, std::size_t column) {
  constexpr std::size_t kColumnsOfSpecimen = kReadingHeads.size() / kSpecimens.size();
  const Specimen specimen = kSpecimens.at(column / kColumnsOfSpecimen);
  switch (column % kColumnsOfSpecimen) {
    case 0:
      return readingOf(record, specimen);
    case 1:
      return stressOf(record, specimen);
    default:
      return strainOf(record, specimen);
  }
}

/// A field that is handed on: what is stored in it goes to the next sample without a number, too.
EditableField carried(FixedText<6>& field, std::optional<FixedText<6>>& carried) {
  return {FixedText<6>::kWidth, std::string(field.trimmed()), [&field, &carried](std::string_view gbk) {
            SetText(field, Trim(gbk));
            carried = field;
          }};
}

std::string limitText(std::uint8_t tenths) { return FormatNumber(tenths / 10.0, NumberFormat::Tenths); }

/// In tenths of a percent, as the record holds it; nothing out of bounds.
std::optional<std::uint8_t> limitOf(std::string_view text) {
  constexpr double kSmallest = 35, kLargest = 220;
  const double tenths = ParseNumber(text) * 10;
  if (!(tenths >= kSmallest && tenths <= kLargest)) return std::nullopt;
  return static_cast<std::uint8_t>(*toInt16(tenths));
}

}  // namespace

std::optional<int> constantReachedFrom(int constant, CellKey key, CursorPlace cursor) {
  constexpr int kColumns = static_cast<int>(kSpecimens.size()), kLines = kConstants / kColumns;
  ReadingGrid grid({.lines = kLines, .columns = kColumns, .rows = kLines});
  grid.select(constant);
  return grid.key(key, cursor) ? std::optional(grid.cell()) : std::nullopt;
}

StressSession::StressSession(Workspace& workspace) : ListedSession(workspace, kForm) { load(); }

UnconfinedSampleRecord& StressSession::record() const { return workspace().UnconfinedSampleTable.at(sampleRow()); }

// ---- the sample on display

void StressSession::carryOver(UnconfinedSampleRecord& sample) const {
  for (std::size_t i = 0; i < kSpecimens.size(); ++i) {
    assignIf(sample.sampleHeight[i], m_carried.height[i]);
    assignIf(sample.sampleArea[i], m_carried.area[i]);
    assignIf(sample.ringCoefficient[i], m_carried.ring[i]);
  }
}

void StressSession::takePicture() {
  UnconfinedSampleRecord& sample = record();
  const LaboratoryHabits& habits = workspace().settings.habits;
  // In front of the reduction, which brings the limits of a new sample into their bounds: they show from the next
  // drawing on.
  for (std::size_t i = 0; i < kSpecimens.size(); ++i) m_strainLimitTexts[i] = limitText(sample.strainLimit[i]);
  if (sample.sampleNo.isBlank()) carryOver(sample);
  reduceUnconfinedSample(sample, habits.sensitivityFormat());
  m_drawn = sample;
  m_options = {.largestStrain = habits.unconfinedLargestStrain, .halfPeaks = habits.strainAtHalfPeak};
}

void StressSession::markSaved() {
  ListedSession::markSaved();
  showSample();
}

void StressSession::draw(DrawingSurface& surface) const { drawStressChart(surface, m_drawn, m_options); }

void StressSession::drawFields(DrawingSurface& surface) const { drawConstants(surface, record()); }

void StressSession::drawEdges(DrawingSurface& surface, const ChartView& view) const {
  drawStressChartEdges(surface, m_drawn, m_options, view);
}

std::string StressSession::readout(Point place) const {
  const PlotScale scale = stressChartScale(m_drawn, m_options);
  if (!scale.frame.contains(place)) return {};
  return readoutOf(scale.valueAt(place), kStrainReading, kStressReading);
}

void StressSession::editStrainLimit(Specimen specimen, std::string_view utf8) {
  m_strainLimitTexts[indexOf(specimen)] = gbkToUtf8(takenText(utf8, kLimitWidth));
}

void StressSession::applyStrainLimits() {
  BothSpecimens<bool> isStored{};
  for (std::size_t i = 0; i < kSpecimens.size(); ++i)
    if (const auto limit = limitOf(m_strainLimitTexts[i])) {
      record().strainLimit[i] = *limit;
      isStored[i] = true;
    }
  markChanged();
  showSample();
  for (std::size_t i = 0; i < kSpecimens.size(); ++i)
    if (!isStored[i]) m_strainLimitTexts[i] = kUsualLimit;
}

// ---- what is typed

EditableField StressSession::listField(std::size_t row, bool isProject) const {
  UnconfinedSampleRecord& sample = workspace().UnconfinedSampleTable.at(row);
  return isProject ? numberField(sample.projectNo) : numberField(sample.sampleNo);
}

EditableField StressSession::readingField(std::size_t row, std::size_t column) const {
  EditableField field = editable(columnOf(record(), column)[row]);
  field.store = [store = std::move(field.store)](std::string_view gbk) {
    store(FormatNumber(ParseNumber(gbk), NumberFormat::Tenths));
  };
  return field;
}

std::string StressSession::readingText(std::size_t row, std::size_t column) const {
  constexpr double kNothing = 0.1;
  const double value = columnOf(std::as_const(record()), column)[row].number();
  return std::abs(value) <= kNothing ? std::string() : FormatNumber(value, NumberFormat::Tenths);
}

EditableField StressSession::ownField(int index) const {
  const std::size_t specimen = static_cast<std::size_t>(index) % kSpecimens.size();
  switch (static_cast<std::size_t>(index) / kSpecimens.size()) {
    case 0:
      return carried(record().sampleHeight[specimen], m_carried.height[specimen]);
    case 1:
      return carried(record().sampleArea[specimen], m_carried.area[specimen]);
    default:
      return ringField(kSpecimens.at(specimen));
  }
}

/// Numbers from 32.767 on are out of the record's range, but only those from 327.67 on count as none: what is between
/// them leaves the coefficient as it was.
EditableField StressSession::ringField(Specimen specimen) const {
  Little<std::int16_t>& ring = record().ringCoefficient[indexOf(specimen)];
  std::optional<Little<std::int16_t>>& carriedRing = m_carried.ring[indexOf(specimen)];
  return {kRingWidth, ringCoefficientText(record(), specimen), [&ring, &carriedRing](std::string_view gbk) {
            constexpr double kNone = 32767;
            const double value = ParseNumber(gbk);
            if (value == 0 || !(std::abs(value * 100) < kNone)) {
              ring = 0;
            } else if (const auto thousandths = toInt16(value * 1000)) {
              ring = *thousandths;
              carriedRing = ring;
            }
          }};
}

}  // namespace triaxlab
