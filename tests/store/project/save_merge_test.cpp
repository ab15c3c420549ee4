// A save with the toggle for merging: specimens of one sample at other pressures come together in its record.

#include <array>

#include "store/project/save_project.h"
#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

/// The fields with a stage index: offset, width of an element, rows, and how many of the rows a merge takes.
struct StageField {
  std::size_t offset, width, rows, merged;
};
constexpr std::array kStageFields{
    StageField{34, 2, 1, 1},         // shearRate
    StageField{56, 6, 1, 1},         // cellPressure
    StageField{86, 6, 1, 1},         // initialHeight
    StageField{116, 6, 1, 1},        // consolidatedHeight
    StageField{146, 6, 1, 1},        // initialArea
    StageField{176, 6, 1, 1},        // consolidatedArea
    StageField{206, 5, 1, 1},        // failureRadius
    StageField{236, 4, 1, 1},        // failureRadiusEff
    StageField{256, 5, 1, 1},        // failureCentre
    StageField{281, 5, 1, 1},        // failureCentreEff
    StageField{321, 1, 1, 1},        // failureStrainLimit
    StageField{326, 6, 1, 1},        // consolidationDrainage
    StageField{356, 6, 1, 1},        // ringCoefficient
    StageField{386, 6, 1, 1},        // sigma1Failure
    StageField{416, 6, 1, 1},        // sigma1FailureEff
    StageField{446, 6, 1, 1},        // sigma3FailureEff
    StageField{476, 6, 212, 212},    // deviatorStress
    StageField{6836, 6, 212, 212},   // sigma1Eff
    StageField{13196, 6, 212, 212},  // sigma3Eff
    StageField{19556, 6, 212, 212},  // porePressure
    StageField{25916, 4, 151, 0},    // consolidationTime
    StageField{28936, 2, 151, 151},  // consolidationPorePressure
    StageField{30446, 2, 151, 151},  // consolidationVolume
    StageField{31956, 2, 212, 151},  // volumeChange
    StageField{34076, 4, 212, 212},  // axialStrain
    StageField{38326, 4, 1, 0},      // coefficientB
    StageField{38346, 4, 1, 0},      // coefficientAf
};

std::size_t placeOf(const StageField& f, std::size_t row, std::size_t stage) {
  return f.offset + (row * 5 + stage) * f.width;
}

/// Fills every place of a stage with a mark of the specimen, and its pressure with the number.
void putSpecimen(std::string& record, std::size_t stage, std::string_view pressure, char mark) {
  for (const StageField& f : kStageFields)
    for (std::size_t row = 0; row < f.rows; ++row) put(record, placeOf(f, row, stage), std::string(f.width, mark));
  put(record, 56 + 6 * stage, field(pressure, 6));
}

void copySpecimen(std::string& to, std::size_t toStage, const std::string& from, std::size_t fromStage) {
  for (const StageField& f : kStageFields)
    for (std::size_t row = 0; row < f.merged; ++row)
      put(to, placeOf(f, row, toStage), from.substr(placeOf(f, row, fromStage), f.width));
}

void exchangeSpecimens(std::string& record, std::size_t a, std::size_t b) {
  for (const StageField& f : kStageFields)
    for (std::size_t row = 0; row < f.rows; ++row)
      for (std::size_t i = 0; i < f.width; ++i)
        std::swap(record[placeOf(f, row, a) + i], record[placeOf(f, row, b) + i]);
}

/// The bytes of the sample itself, as [begin, end): projectNo to shearMode, the results, density, soilName, the flags
/// and path line, the texts of the cohesions.
constexpr std::array<std::array<std::size_t, 2>, 6> kSampleBytes{
    {{0, 34}, {44, 56}, {231, 236}, {306, 321}, {38316, 38326}, {38376, 38394}}};

/// A sample of the project M1 whose own fields hold a mark.
std::string markedSample(char mark) {
  std::string record = emptyTriaxial();
  for (const auto& [begin, end] : kSampleBytes) put(record, begin, std::string(end - begin, mark));
  put(record, 0, field("M1", 15) + field("S1", 14));
  record[32] = 2;                             // CU
  put(record, 38366, std::string(28, mark));  // testDate and the two texts; a merge leaves the date
  put(record, 38394, std::string(182, mark));
  return record;
}

void copySampleBytes(std::string& to, const std::string& from) {
  for (const auto& [begin, end] : kSampleBytes) put(to, begin, from.substr(begin, end - begin));
}

class SaveMerge : public StoreTest {
 protected:
  SaveMerge() { workspace.settings.toggles.mergePressures = true; }
  /// Saves `record` over `stored` and returns the record on file.
  std::string merge(const std::string& stored, const std::string& record) {
    write("HSZS/WKSZM1.txt", headerBytes({"0001", "M1"}) + stored + field("", kEndTextSize));
    setRow(0, record);
    EXPECT_TRUE(saveProject(workspace, ProjectKind::Triaxial, nullptr).errors.empty());
    const std::string file = read("HSZS/WKSZM1.txt");
    EXPECT_EQ(file.size(), kHeaderSize + kTriaxialSize + kEndTextSize);
    return file.substr(kHeaderSize, kTriaxialSize);
  }
};

TEST_F(SaveMerge, AKnownPressureIsReplacedAndANewOneTakesTheFirstFreeSlot) {
  std::string stored = markedSample('o');
  putSpecimen(stored, 0, "100", 'a');
  putSpecimen(stored, 1, "200", 'b');
  std::string record = markedSample('n');
  putSpecimen(record, 0, "200.0", 'c');  // the same pressure in other words
  putSpecimen(record, 1, "300", 'd');

  std::string wanted = stored;
  copySampleBytes(wanted, record);
  copySpecimen(wanted, 1, record, 0);
  copySpecimen(wanted, 2, record, 1);
  EXPECT_SAME_BYTES(merge(stored, record), wanted);
  EXPECT_SAME_BYTES(bytesOfRecord(row(0)), wanted) << "100, 200, 300 are in order already";
}

TEST_F(SaveMerge, TheFileKeepsTheOrderInWhichSpecimensCameAndTheRowIsSorted) {
  std::string stored = markedSample('o');
  putSpecimen(stored, 0, "300", 'a');
  putSpecimen(stored, 2, "400", 'b');  // slots 1, 3, 4 are free
  std::string record = markedSample('n');
  putSpecimen(record, 0, "200", 'c');
  putSpecimen(record, 3, "100", 'd');  // slots 1 and 2 of the row are unused

  std::string wanted = stored;
  copySampleBytes(wanted, record);
  copySpecimen(wanted, 1, record, 0);
  copySpecimen(wanted, 3, record, 3);
  EXPECT_SAME_BYTES(merge(stored, record), wanted);

  // 300 200 400 100 -> 200 300 400 100 -> 100 300 400 200 -> 100 200 400 300 -> 100 200 300 400
  std::string sorted = wanted;
  exchangeSpecimens(sorted, 0, 1);
  exchangeSpecimens(sorted, 0, 3);
  exchangeSpecimens(sorted, 1, 3);
  exchangeSpecimens(sorted, 2, 3);
  EXPECT_SAME_BYTES(bytesOfRecord(row(0)), sorted);
}

TEST_F(SaveMerge, ASixthPressureIsLost) {
  std::string stored = markedSample('o');
  for (std::size_t stage = 0; stage < 5; ++stage)
    putSpecimen(stored, stage, std::to_string(100 * (stage + 1)), static_cast<char>('a' + stage));
  std::string record = markedSample('n');
  putSpecimen(record, 0, "300", 'x');
  putSpecimen(record, 1, "600", 'y');

  std::string wanted = stored;
  copySampleBytes(wanted, record);
  copySpecimen(wanted, 2, record, 0);
  EXPECT_SAME_BYTES(merge(stored, record), wanted);
}

TEST_F(SaveMerge, TwoSpecimensOfOnePressureInARowMeetInOneSlot) {
  const std::string stored = markedSample('o');
  std::string record = markedSample('n');
  putSpecimen(record, 0, "100", 'a');
  putSpecimen(record, 1, "100", 'b');

  std::string wanted = stored;
  copySampleBytes(wanted, record);
  copySpecimen(wanted, 0, record, 0);
  copySpecimen(wanted, 0, record, 1);
  EXPECT_SAME_BYTES(merge(stored, record), wanted);
}

TEST_F(SaveMerge, ANewSampleIsSortedAsWithoutMerging) {
  write("HSZS/WKSZM1.txt", headerBytes({"0000", "M1"}));
  std::string record = markedSample('n');
  putSpecimen(record, 0, "200", 'a');
  putSpecimen(record, 1, "100", 'b');
  setRow(0, record);
  saveProject(workspace, ProjectKind::Triaxial, nullptr);
  exchangeSpecimens(record, 0, 1);
  EXPECT_SAME_BYTES(read("HSZS/WKSZM1.txt").substr(kHeaderSize, kTriaxialSize), record);
}

TEST_F(SaveMerge, TwoRowsOfOneNewSampleMergeWithEachOther) {
  std::string first = markedSample('n'), second = markedSample('n');
  putSpecimen(first, 0, "200", 'a');
  putSpecimen(second, 0, "100", 'b');
  setRow(0, first);
  setRow(1, second);
  saveProject(workspace, ProjectKind::Triaxial, nullptr);
  std::string wanted = first;
  copySpecimen(wanted, 1, second, 0);
  EXPECT_SAME_BYTES(read("HSZS/WKSZM1.txt").substr(kHeaderSize, kTriaxialSize), wanted);
}

TEST_F(SaveMerge, ARecordThatTheFileCutsIsNotMergedWith) {
  std::string stored = markedSample('o');
  putSpecimen(stored, 0, "100", 'a');
  write("HSZS/WKSZM1.txt", headerBytes({"0001", "M1"}) + stored.substr(0, 1000));
  std::string record = markedSample('n');
  putSpecimen(record, 0, "200", 'b');
  setRow(0, record);
  saveProject(workspace, ProjectKind::Triaxial, nullptr);
  EXPECT_SAME_BYTES(read("HSZS/WKSZM1.txt").substr(kHeaderSize, 2 * kTriaxialSize), emptyTriaxial() + record);
}

TEST_F(SaveMerge, AFailedSaveLeavesTheRowUnmerged) {
  std::string stored = markedSample('o');
  putSpecimen(stored, 0, "100", 'a');
  write("HSZS/WKSZM1.txt", headerBytes({"0001", "M1"}) + stored);
  std::string record = markedSample('n');
  putSpecimen(record, 0, "200", 'b');
  setRow(0, record);
  std::filesystem::create_directory(data("journal"));
  EXPECT_THROW(saveProject(workspace, ProjectKind::Triaxial, nullptr), UserError);
  EXPECT_SAME_BYTES(bytesOfRecord(row(0)), record);
}

}  // namespace
}  // namespace triaxlab::testing
