// Files of the oldest triaxial kind (KSZ): they are read into today's records and saved as today's files.

#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/save_project.h"
#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::size_t kOldSize = 5966;

/// Texts blank, numbers 0, with its two names.
std::string oldRecord(std::string_view sampleNo) {
  std::string record = emptyTriaxial().substr(0, 476);
  put(record, 0, field("P1", 15) + field(sampleNo, 14));
  record += std::string(std::size_t{4} * 52 * 5 * 4, ' ');            // four tables of 52 rows of five texts of 4
  record += std::string(2 * 25 * 5 * 2 + 52 * 5 * 2 + 52 * 5, '\0');  // two of 25 and one of 52 rows of words, strains
  return record + std::string(50, '\0');
}

// Places in the old record. Row and stage count from 0; the stage varies fastest.
std::size_t textPlace(std::size_t table, std::size_t row, std::size_t stage) {
  return 476 + table * 1040 + (row * 5 + stage) * 4;
}
std::size_t consolidationPlace(std::size_t table, std::size_t row, std::size_t stage) {
  return 4636 + table * 250 + (row * 5 + stage) * 2;
}
std::size_t volumePlace(std::size_t row, std::size_t stage) { return 5136 + (row * 5 + stage) * 2; }
std::size_t strainPlace(std::size_t row, std::size_t stage) { return 5656 + row * 5 + stage; }

std::string int32Bytes(int value) { return int16Bytes(value & 0xFFFF) + int16Bytes(value >> 16); }

class OldTriaxial : public StoreTest {
 protected:
  void writeFile(const std::vector<std::string>& records) {
    std::string file = headerBytes({std::to_string(records.size()), "P1", "1998/01/02", "", "", "Sun", ""});
    for (const std::string& record : records) file += record;
    write("HSZS/KSZP1.TXT", file);
  }
  /// The record of today that an old one becomes.
  std::string opened(const std::string& record) {
    writeFile({record});
    EXPECT_THAT(openProject(workspace, ProjectKind::OldTriaxial, "KSZP1.txt", nullptr), IsEmpty());
    return bytesOfRecord(row(0));
  }
};

TEST_F(OldTriaxial, ABlankRecordIsABlankRecord) {
  ASSERT_EQ(oldRecord("A-1").size(), kOldSize);
  std::string wanted = emptyTriaxial();
  put(wanted, 0, field("P1", 15) + field("A-1", 14));
  EXPECT_SAME_BYTES(opened(oldRecord("A-1")), wanted);
}

TEST_F(OldTriaxial, TheFirstFieldsAndTheLastStandAsTheyWere) {
  std::string old = oldRecord("A-1"), wanted = emptyTriaxial();
  for (std::size_t i = 29; i < 476; ++i) old[i] = static_cast<char>('0' + i % 70);
  for (std::size_t i = 0; i < 50; ++i) old[5916 + i] = static_cast<char>('A' + i);
  put(wanted, 0, old.substr(0, 476));
  put(wanted, 38316, old.substr(5916, 50));
  // A C that is told in tenths only gets its text, in the laboratory's format ("0" without a setting).
  ASSERT_EQ(old.substr(44, 2) + old.substr(50, 2), "\\]bc");
  put(wanted, 38376, field("2390", 9));  // 0x5D5C = 23900 tenths
  put(wanted, 38385, field("2544", 9));  // 0x6362 = 25442 tenths
  EXPECT_SAME_BYTES(opened(old), wanted);
}

TEST_F(OldTriaxial, TheFourCurvesKeepTheirRowsAndStages) {
  std::string old = oldRecord("A-1"), wanted = emptyTriaxial();
  put(wanted, 0, field("P1", 15) + field("A-1", 14));
  const std::size_t places[] = {476, 6836, 13196, 19556};
  for (std::size_t table = 0; table < 4; ++table)
    for (std::size_t row = 0; row < 52; ++row)
      for (std::size_t stage = 0; stage < 5; ++stage) {
        const std::string text = field(std::to_string(1000 * (table + 1) + row * 5 + stage), 4);
        put(old, textPlace(table, row, stage), text);
        put(wanted, places[table] + (row * 5 + stage) * 6, text + "  ");
      }
  EXPECT_SAME_BYTES(opened(old), wanted);
}

TEST_F(OldTriaxial, StrainsAreTenthsOfAPercent) {
  std::string old = oldRecord("A-1"), wanted = emptyTriaxial();
  put(wanted, 0, field("P1", 15) + field("A-1", 14));
  old[strainPlace(0, 0)] = 2;
  old[strainPlace(51, 4)] = static_cast<char>(220);
  old[strainPlace(7, 1)] = 105;
  put(wanted, 34076, floatBytes(0.2F));
  put(wanted, 34076 + (51 * 5 + 4) * 4, floatBytes(22.0F));
  put(wanted, 34076 + (7 * 5 + 1) * 4, floatBytes(10.5F));
  put(old, volumePlace(51, 4), int16Bytes(-1234));
  put(wanted, 31956 + (51 * 5 + 4) * 2, int16Bytes(-1234));
  EXPECT_SAME_BYTES(opened(old), wanted);
}

TEST_F(OldTriaxial, ConsolidationReadingsGetTheirTimes) {
  std::string old = oldRecord("A-1"), wanted = emptyTriaxial();
  put(wanted, 0, field("P1", 15) + field("A-1", 14));
  const auto reading = [&](std::size_t row, std::size_t stage, int porePressure, int volume, int seconds) {
    put(old, consolidationPlace(0, row, stage), int16Bytes(porePressure));
    put(old, consolidationPlace(1, row, stage), int16Bytes(volume));
    put(wanted, 28936 + (row * 5 + stage) * 2, int16Bytes(porePressure));
    put(wanted, 30446 + (row * 5 + stage) * 2, int16Bytes(volume));
    put(wanted, 25916 + (row * 5 + stage) * 4, int32Bytes(seconds));
  };
  reading(3, 0, 985, 12, 3 * 3 * 60);
  reading(3, 1, 0, 12, 3 * 3 * 60);  // a volume alone is a reading
  reading(4, 0, 0, 12, 0);           // but not in the first stage
  reading(23, 4, 10, 0, 23 * 23 * 60);
  reading(24, 4, 10, 0, 86400);  // the last at the end of the day
  EXPECT_SAME_BYTES(opened(old), wanted);
}

TEST_F(OldTriaxial, TheDateOfTheFileIsTheSamples) {
  write("HSZS/KSZP1.txt", headerBytes({"1", "P1", "", "", "1998/03/04"}) + oldRecord("A-1"));
  openProject(workspace, ProjectKind::OldTriaxial, "KSZP1.txt", nullptr);
  EXPECT_EQ(row(0).testDate.view(), "1998/03/04");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate.view(), "1998/03/04");
}

TEST_F(OldTriaxial, SamplesComeInTheirOrder) {
  writeFile({oldRecord("A-1"), oldRecord("A-2"), std::string(kOldSize, '\0'), oldRecord("A-4")});
  EXPECT_THAT(openProject(workspace, ProjectKind::OldTriaxial, "KSZP1.txt", nullptr), IsEmpty());
  EXPECT_EQ(row(1).sampleNo.trimmed(), "A-2");
  EXPECT_SAME_BYTES(bytesOfRecord(row(2)), emptyTriaxial()) << "a hole is a blank record";
  EXPECT_EQ(row(3).sampleNo.trimmed(), "A-4");
  EXPECT_SAME_BYTES(bytesOfRecord(row(4)), emptyTriaxial());
  const SampleListTable rows = listSamples(workspace, ProjectKind::OldTriaxial, "KSZP1.txt");
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[3].sampleNo, "A-4");
}

TEST_F(OldTriaxial, AShortFileHasBlankSamplesAndARemark) {
  const std::string whole = headerBytes({"2", "P1"}) + oldRecord("A-1") + oldRecord("A-2");
  for (std::size_t size = 81; size < whole.size(); size += 97 * 11) {
    write("HSZS/KSZP1.txt", whole.substr(0, size));
    EXPECT_THAT(openProject(workspace, ProjectKind::OldTriaxial, "KSZP1.txt", nullptr), ElementsAre(HasSubstr("缺")))
        << size;
    EXPECT_EQ(row(0).sampleNo.isBlank(), size < 81 + kOldSize) << size;
    EXPECT_TRUE(row(1).sampleNo.isBlank()) << size;
  }
}

TEST_F(OldTriaxial, TheTechnicianSavesItAsAFileOfToday) {
  writeFile({oldRecord("A-1")});
  const std::string before = read("HSZS/KSZP1.TXT");
  openProject(workspace, ProjectKind::OldTriaxial, "KSZP1.txt", nullptr);
  EXPECT_FALSE(has("HSZS/WKSZP1.txt")) << "reading alone saves nothing";
  const SaveReport report = saveProject(workspace, ProjectKind::OldTriaxial, nullptr);
  EXPECT_SAME_BYTES(read("HSZS/KSZP1.TXT"), before);
  const std::string saved = read("HSZS/WKSZP1.txt");
  EXPECT_EQ(saved.size(), 81U + 38576 + 100);
  EXPECT_EQ(saved.substr(59, 4), "V2.0");
  EXPECT_SAME_BYTES(saved.substr(81, 38576), bytesOfRecord(row(0)));
}

}  // namespace
}  // namespace triaxlab::testing
