#include "importers/windows_edition_stages.h"

#include <cmath>

#include "common/conversions.h"
#include "common/date.h"
#include "importers/windows_edition.h"

namespace triaxlab {
namespace {

/// kPa that a stage must lie above the one before it.
constexpr double kPressureStep = 0.5;

std::vector<WindowsReading> readingsOf(const JetRows& rows) {
  const std::size_t phase = rows.column("TZ"), seconds = rows.column("CJSJ"), back = rows.column("FY"),
                    stress = rows.column("ZYLC"), pore = rows.column("KY"), drained = rows.column("PS");
  const auto quantity = [](const JetValue& value) {
    return Quantity{readingOf(value), value.decimal().value_or(kNoReadingMark)};
  };
  std::vector<WindowsReading> readings;
  readings.reserve(rows.count());
  for (std::size_t i = 0; i < rows.count(); ++i)
    readings.push_back({readingOf(rows.at(i, phase)), readingOf(rows.at(i, seconds)), readingOf(rows.at(i, back)),
                        quantity(rows.at(i, stress)), quantity(rows.at(i, pore)), quantity(rows.at(i, drained))});
  return readings;
}

/// Follows the readings of a phase through their stages.
class StageWalk {
 public:
  /// The reading that begins a stage doesn't count as the last time yet.
  void take(double seconds) {
    if (seconds >= m_last) {
      m_last = seconds;
      return;
    }
    ++stage;
    m_last = 0;
  }
  std::size_t stage = 0;

 private:
  double m_last = 0;
};

class StageReader {
 public:
  StageReader(const WindowsTables& tables, std::int16_t shearRate, const StageExtent& extent)
      : m_tables(tables), m_shearRate(shearRate), m_extent(extent) {}

  std::vector<TestStage> read() {
    readSizes();
    readConsolidation();
    readShear();
    takeOffBackPressures();
    return std::move(m_stages);
  }

 private:
  void readSizes() {
    const JetRows& rows = m_tables.stages;
    for (std::size_t i = 0; i < rows.count() && m_stages.size() < m_extent.stages; ++i) {
      const JetValue& pressure = rows.at(i, "SDWY");
      if (!m_stages.empty() && !(pressure.number().value_or(0) - m_stages.back().cellPressure.number() > kPressureStep))
        continue;
      TestStage& stage = stageAt(m_stages.size());
      setFormatted(stage.initialHeight, rows.at(i, "SYQSGD"), NumberFormat::Hundredths);
      setFormatted(stage.consolidatedHeight, rows.at(i, "GJSSGD"), NumberFormat::Hundredths);
      setFormatted(stage.initialArea, rows.at(i, "SYQSMJ"), NumberFormat::Hundredths);
      setFormatted(stage.consolidatedArea, rows.at(i, "GJSSMJ"), NumberFormat::Hundredths);
      setFormatted(stage.cellPressure, pressure, NumberFormat::Whole);
    }
  }

  TestStage& stageAt(std::size_t stage) {
    if (stage >= m_stages.size()) {
      m_stages.resize(stage + 1);
      m_backPressures.resize(stage + 1);
    }
    return m_stages[stage];
  }

  void readConsolidation() {
    StageWalk walk;
    for (const WindowsReading& reading : m_tables.readings) {
      if (!m_extent.isConsolidation(reading.phase)) continue;
      walk.take(reading.seconds);
      if (walk.stage >= m_extent.stages) return;
      TestStage& stage = stageAt(walk.stage);
      if (stage.consolidation.size() == m_extent.consolidationRows) continue;
      m_backPressures[walk.stage] = reading.backPressure;
      takeConsolidation(reading, stage);
    }
  }

  static void takeConsolidation(const WindowsReading& reading, TestStage& stage) {
    ConsolidationReading& taken = stage.consolidation.emplace_back();
    if (reading.porePressure.value < kNoReadingMark)
      assignIf(taken.porePressure,
               toInt16(ParseNumber(FormatNumber(reading.porePressure.value * 10, NumberFormat::Whole))));
    // Without a volume the reading keeps its row, but has no time.
    if (!(reading.drained.value * 100 < kNoReadingMark)) return;
    assignIf(taken.volume, toInt16(reading.drained.value * 100));
    SetText(stage.consolidationDrainage, PlainNumber(std::fabs(reading.drained.decimal)));
    assignIf(taken.seconds, toInt32(reading.seconds));
  }

  void readShear() {
    StageWalk walk;
    for (std::size_t p = 0; p < m_tables.readings.size(); ++p) {
      const WindowsReading& reading = m_tables.readings[p];
      if (!m_extent.isShear(reading.phase)) continue;
      walk.take(reading.seconds);
      if (walk.stage >= m_extent.stages) return;
      TestStage& stage = stageAt(walk.stage);
      if (stage.shear.size() == m_extent.shearRows) continue;
      m_backPressures[walk.stage] = reading.backPressure;
      takeShear(reading, stage);
      p += m_extent.passedOver;
    }
  }

  void takeShear(const WindowsReading& reading, TestStage& stage) const {
    ShearReading& taken = stage.shear.emplace_back();
    if (reading.stressDifference.value < kNoReadingMark)
      SetNumber(taken.deviatorStress, reading.stressDifference.decimal, NumberFormat::Tenths);
    if (reading.porePressure.value < kNoReadingMark)
      SetNumber(taken.porePressure, reading.porePressure.decimal, NumberFormat::Tenths);
    if (reading.drained.value * 100 < kNoReadingMark)
      assignIf(taken.volumeChange, toInt16(reading.drained.value * 100));
    assignIf(taken.axialStrain, toSingle(reading.seconds * m_shearRate / 60 / 1000));
  }

  /// A stage has the pressure on the soil, the controller that in the cell.
  void takeOffBackPressures() {
    for (std::size_t s = 0; s < m_stages.size(); ++s) {
      const double back = m_backPressures[s], pressure = m_stages[s].cellPressure.number();
      if (std::fabs(back) > 1 && std::fabs(back) < 1000 && pressure > 1)
        SetNumber(m_stages[s].cellPressure, pressure - back, NumberFormat::Whole);
    }
  }

  const WindowsTables& m_tables;
  std::int16_t m_shearRate;
  const StageExtent& m_extent;
  std::vector<TestStage> m_stages;
  std::vector<double> m_backPressures;  // kPa, of the last reading that was taken; one a stage
};

}  // namespace

WindowsTables tablesOf(const JetDatabase& database, const JetValue& id) {
  const std::string key = JetDatabase::literal(id);
  return {database.run("select  * from Datas_GJ where ID=" + key + " order by [STEPNO]"),
          readingsOf(database.run("select  * from Datas where ID = " + key + " order by [no]"))};
}

std::vector<TestStage> stagesOf(const WindowsTables& tables, std::int16_t shearRate, const StageExtent& extent) {
  return StageReader(tables, shearRate, extent).read();
}

std::int16_t shearRateOf(const JetValue& percentPerMinute) {
  return toInt16(Int(ParseNumber(percentPerMinute.text()) * 1000)).value_or(std::int16_t{0});
}

std::uint8_t byteOf(const JetValue& code) {
  constexpr std::int16_t kLargest = 255;
  const std::int16_t number = toInt16(readingOf(code)).value_or(std::int16_t{0});
  return number >= 0 && number <= kLargest ? static_cast<std::uint8_t>(number) : std::uint8_t{0};
}

std::string slashedDate(const std::string& date) {
  const auto day = parseWrittenDate(date);
  return day ? slashed(*day) : date;
}

}  // namespace triaxlab
