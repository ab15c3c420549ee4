#include "triaxial/reading_tables.h"

#include <optional>

#include "common/conversions.h"
#include "common/gbk.h"
#include "common/text_number.h"
#include "triaxial/method_names.h"

namespace triaxlab {
namespace {

constexpr double kLeastStrain = 0.0001;  // %
constexpr double kSecondsPerMinute = 60, kTenths = 10, kHundredths = 100;

constexpr std::array<DataTableColumn, 12> kDataTableColumns{{
    {{"ε_i", "(%)"}, DerivedColumn::Strain},
    {{"σ_1-σ_3", "(kPa)"}, DerivedColumn::DeviatorStress},
    {{"σ_1", "(kPa)"}, DerivedColumn::Sigma1},
    {{"(σ_1+σ_3)/2", "(kPa)"}, DerivedColumn::HalfSum},
    {{"(σ_1-σ_3)/2", "(kPa)"}, DerivedColumn::HalfDifference},
    {{"u", "(kPa)"}, DerivedColumn::PorePressure},
    {{"ΔV_i", "(ml)"}, DerivedColumn::VolumeChange},
    {{"σ_1′", "(kPa)"}, DerivedColumn::Sigma1Eff},
    {{"σ_3′", "(kPa)"}, DerivedColumn::Sigma3Eff},
    {{"(σ_1′-σ_3′)/2", "(kPa)"}, DerivedColumn::HalfDifferenceEff},
    {{"(σ_1′+σ_3′)/2", "(kPa)"}, DerivedColumn::HalfSumEff},
    {{"σ_1′/σ_3′", ""}, DerivedColumn::RatioEff},
}};
constexpr std::size_t kTotalColumns = 7;

std::string rateText(std::int16_t thousandths) {
  return thousandths == 0 ? std::string() : FormatNumber(thousandths / 1000.0, NumberFormat::Thousandths);
}

std::string tenths(std::int16_t value) { return FormatNumber(value / kTenths, NumberFormat::Tenths); }

/// Stores a value that exists; true when the reading has become another.
template <class Reading, class Integer>
bool change(Reading& reading, std::optional<Integer> value) {
  const Integer before = reading;
  assignIf(reading, value);
  return reading != before;
}

}  // namespace

TableHeading tableHeading(const TriaxialSampleRecord& record, std::size_t stage, std::string_view projectNoLabel,
                          std::string_view testDate) {
  TableHeading heading;
  heading.project = std::string(projectNoLabel) + ":" + gbkToUtf8(record.projectNo.trimmed());
  heading.sample = "试样编号:" + gbkToUtf8(record.sampleNo.trimmed());
  heading.pressure = "周围压力:" + gbkToUtf8(record.cellPressure.at(stage).trimmed()) + " kPa";
  heading.date = "试验日期:" + std::string(testDate);
  heading.test = testName(record);
  heading.rate = "剪切速率:" + rateText(record.shearRate.at(stage)) + "%/min";
  return heading;
}

TableFoot tableFoot(const TriaxialSampleRecord& record, std::size_t stage, FailureMode mode) {
  constexpr const char* kNotMeasured = "    ";
  TableFoot foot;
  foot.startPorePressure = tenths(record.consolidationPorePressure[0].at(stage));
  TriaxialSampleRecord shown = record;
  const FailureRows failure = applyFailureMode(shown, mode);
  foot.failurePorePressure =
      record.testMethod == kCD ? kNotMeasured : gbkToUtf8(failure.failureStressAtPeak.at(stage).trimmed());
  foot.deviatorStress =
      FormatNumber(shown.sigma1Failure.at(stage).number() - shown.cellPressure.at(stage).number(), NumberFormat::Whole);
  return foot;
}

std::span<const DataTableColumn> dataTableColumns(const TriaxialSampleRecord& record) {
  const std::span<const DataTableColumn> all = kDataTableColumns;
  return record.testMethod == kCU ? all : all.first(kTotalColumns);
}

bool hasReading(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row) {
  return record.axialStrain.at(row).at(stage) > kLeastStrain && record.deviatorStress.at(row).at(stage).number() != 0;
}

std::vector<std::string> dataTableRow(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row) {
  if (!hasReading(record, stage, row)) return {};
  std::vector<std::string> texts;
  for (const DataTableColumn& column : dataTableColumns(record))
    texts.push_back(gbkToUtf8(derivedText(record, stage, row, column.value)));
  return texts;
}

const std::array<ColumnTitle, kConsolidationColumns> kConsolidationTitles{
    {{"序号", ""}, {"时间", "(min)"}, {"孔压", "(kPa)"}, {"排水", "(ml)"}}};

ConsolidationTexts consolidationRow(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row) {
  const std::int32_t seconds = record.consolidationTime.at(row).at(stage);
  const std::int16_t porePressure = record.consolidationPorePressure.at(row).at(stage);
  const std::int16_t volume = record.consolidationVolume.at(row).at(stage);
  ConsolidationTexts texts;
  texts[0] = std::to_string(row + 1);
  if (seconds >= 1) texts[1] = FormatNumber(seconds / kSecondsPerMinute, NumberFormat::Tenths);
  if (porePressure != 0) texts[2] = tenths(porePressure);
  if (porePressure != 0 && volume != 0) texts[3] = FormatNumber(volume / kHundredths, NumberFormat::Hundredths);
  if (row == 0) {
    texts[1] = "0.0";
    texts[3] = "0.00";
  }
  return texts;
}

bool storeConsolidationReading(TriaxialSampleRecord& record, std::size_t stage, std::size_t row,
                               ConsolidationColumn column, std::string_view text) {
  const double number = ParseNumber(text);
  switch (column) {
    case ConsolidationColumn::Time:
      return change(record.consolidationTime.at(row).at(stage), toInt32(number * kSecondsPerMinute));
    case ConsolidationColumn::PorePressure:
      return change(record.consolidationPorePressure.at(row).at(stage), toInt16(number * kTenths));
    case ConsolidationColumn::Volume:
      return change(record.consolidationVolume.at(row).at(stage), toInt16(number * kHundredths));
    case ConsolidationColumn::Number:
      break;
  }
  return false;
}

bool storeStartPorePressure(TriaxialSampleRecord& record, std::size_t stage, std::string_view text) {
  return change(record.consolidationPorePressure[0].at(stage), toInt16(Int(ParseNumber(text) * kTenths)));
}

}  // namespace triaxlab
