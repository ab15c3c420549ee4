// A line of the readings is one of a specimen: the stages of a Reading are the undisturbed and the remoulded one.
#include "exports/column_texts.h"
#include "unconfined/record.h"
#include "unconfined/reduction.h"

namespace triaxlab {
namespace {

using R = UnconfinedSampleRecord;
using F = NumberFormat;

std::string strainAtPeakText(const TableLine& line, std::size_t number) {
  const std::optional<double> strain = strainAtPeak(recordOf<R>(line), kSpecimens[number]);
  return strain ? FormatNumber(*strain, F::Tenths) : std::string();
}

constexpr std::array kResults{
    kProjectNo,
    kSample,
    kSampleNo,
    kTestDate,
    kBoreholeNo,
    kSamplingDepth,
    kSamplingSpot,
    column<&R::qu>("qu", "kPa", "peak strength of the undisturbed specimen"),
    column<&R::quRemoulded>("quRemoulded", "kPa", "qu′, of the remoulded specimen"),
    column<&R::sensitivity>("sensitivity", "", "St"),
    TableColumn{"strainAtPeak", "percent", "where the strength stands on its curve: 1 undisturbed, 2 remoulded",
                strainAtPeakText, kSpecimens.size()},
    column<&R::sampleHeight>("sampleHeight", "cm", "试样高度"),
    column<&R::sampleArea>("sampleArea", "cm2", "试样面积"),
    column<&R::ringCoefficient, UnlessZero<Counting<F::Thousandths>>>("ringCoefficient", "N_per_hundredth_mm",
                                                                      "钢环系数"),
    column<&R::strainLimit, Counting<F::Tenths>>("strainLimit", "percent", "strain up to which the peak is looked for"),
};

Specimen specimenOf(const TableLine& line) { return kSpecimens[line.reading.stage]; }

std::string specimenText(const TableLine& line, std::size_t /*number*/) {
  return specimenOf(line) == Specimen::Undisturbed ? "undisturbed" : "remoulded";
}
template <auto Undisturbed, auto Remoulded>
std::string ofSpecimen(const TableLine& line, std::size_t /*number*/) {
  const UnconfinedColumn& rows =
      recordOf<R>(line).*(specimenOf(line) == Specimen::Undisturbed ? Undisturbed : Remoulded);
  return AsItStands()(rows[line.reading.row]);
}

constexpr std::array kReadings{
    kProjectNo,
    kSample,
    kSampleNo,
    TableColumn{"specimen", "", "undisturbed or remoulded", specimenText},
    kReading,
    TableColumn{"strain", "percent", "ε", ofSpecimen<&R::undisturbedStrain, &R::remouldedStrain>},
    TableColumn{"dialReading", "hundredths_mm", "R, of the load ring",
                ofSpecimen<&R::undisturbedReading, &R::remouldedReading>},
    TableColumn{"stress", "kPa", "σ", ofSpecimen<&R::undisturbedStress, &R::remouldedStress>},
};

/// A strain alone is no reading: it stands in all rows before the test.
std::vector<Reading> readingsOf(const TableLine& sample) {
  const R& record = recordOf<R>(sample);
  std::vector<Reading> readings;
  for (const Specimen specimen : kSpecimens)
    for (std::size_t row = 0; row < kUnconfinedRows; ++row)
      if (!readingOf(record, specimen)[row].isBlank() || !stressOf(record, specimen)[row].isBlank())
        addReading(readings, row, indexOf(specimen));
  return readings;
}

}  // namespace

const ExportTables kUnconfinedTables{ProjectKind::Unconfined, kResults, kReadings, readingsOf};

}  // namespace triaxlab
