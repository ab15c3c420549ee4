// A line of the readings is a load stage of a K0 test, a time of a load stage of a TK0 test.
#include "exports/column_texts.h"
#include "k0/record.h"
#include "k0/settlement.h"

namespace triaxlab {
namespace {

/// A TK0 record begins with it.
using Head = K0SampleRecord;
using R = TK0SampleRecord;

// What both have; the depth is the record's own.
constexpr TableColumn kDepth =
    column<&Head::samplingDepth>(kSamplingDepth.name, kSamplingDepth.unit, kSamplingDepth.content);
constexpr TableColumn kKo = column<&Head::koValue>("koValue", "", "Ko");
constexpr TableColumn kIntercept = column<&Head::koIntercept>("koIntercept", "kPa", "intercept of its line");
constexpr TableColumn kAdjusted = column<&Head::koAdjusted>("koAdjusted", "", "not 0: the line was set by hand");
constexpr TableColumn kLoad = column<&Head::axialPressure>("axialPressure", "kPa", "轴向压力; blank or 0: not run");
constexpr TableColumn kDeformation = column<&Head::axialDeformation>("axialDeformation", "mm", "轴向变形量");
constexpr TableColumn kLateral = column<&Head::lateralPressure>("lateralPressure", "kPa", "侧向压力");

/// The same, of the stage of the reading alone.
template <auto Member>
constexpr TableColumn ofStage(const TableColumn& column) {
  return {column.name, column.unit, column.content, ofReading<Member>};
}

// ---- K0

constexpr std::array kK0Results{kProjectNo, kSample,       kSampleNo, kTestDate,  kBoreholeNo,
                                kDepth,     kSamplingSpot, kKo,       kIntercept, kAdjusted};

constexpr std::array kK0Readings{
    kProjectNo,
    kSample,
    kSampleNo,
    kStage,
    ofStage<&Head::axialPressure>(kLoad),
    ofStage<&Head::axialDeformation>(kDeformation),
    ofStage<&Head::lateralPressure>(kLateral),
};

std::vector<Reading> stagesOf(const TableLine& sample) {
  const Head& record = recordOf<Head>(sample);
  std::vector<Reading> readings;
  for (std::size_t stage = 0; stage < kLoadStages; ++stage)
    if (!record.axialPressure[stage].isBlank() || !record.axialDeformation[stage].isBlank() ||
        !record.lateralPressure[stage].isBlank())
      addReading(readings, 0, stage);
  return readings;
}

// ---- TK0

/// The record keeps the lines of the construction, but not where they meet the curve.
std::string t90Text(const TableLine& line, std::size_t number) {
  R record = recordOf<R>(line);
  if (!isLoaded(record.k0, number)) return {};
  return FormatNumber(computeStageResult(record, number).minutes(), NumberFormat::Tenths);
}

std::string secondsText(const TableLine& line, std::size_t /*number*/) {
  return AsItStands()(recordOf<R>(line).elapsedSeconds[line.reading.row]);
}

constexpr std::array kTK0Results{
    kProjectNo,
    kSample,
    kSampleNo,
    kTestDate,
    kBoreholeNo,
    kDepth,
    kSamplingSpot,
    kKo,
    kIntercept,
    kAdjusted,
    kLoad,
    kDeformation,
    kLateral,
    TableColumn{"t90Stage", "min", "T90, as the windows show it", t90Text, kLoadStages},
    column<&R::t90Adjusted>("t90Adjusted", "", "1: its line was set by hand"),
};

constexpr std::array kTK0Readings{
    kProjectNo,
    kSample,
    kSampleNo,
    kStage,
    ofStage<&Head::axialPressure>(kLoad),
    kReading,
    TableColumn{"time", "s", "since the stage began", secondsText},
    TableColumn{"deformation", "mm", "变形量", ofReading<&R::deformationSeries>},
    TableColumn{"pressure", "kPa", "压力, lateral", ofReading<&R::pressureSeries>},
};

std::vector<Reading> timesOf(const TableLine& sample) {
  const R& record = recordOf<R>(sample);
  std::vector<Reading> readings;
  for (std::size_t stage = 0; stage < kLoadStages; ++stage)
    for (std::size_t row = 0; row < kTimeRows; ++row)
      if (!record.deformationSeries[row][stage].isBlank() || !record.pressureSeries[row][stage].isBlank())
        addReading(readings, row, stage);
  return readings;
}

}  // namespace

const ExportTables kK0Tables{ProjectKind::K0, kK0Results, kK0Readings, stagesOf};
const ExportTables kTK0Tables{ProjectKind::TK0, kTK0Results, kTK0Readings, timesOf};

}  // namespace triaxlab
