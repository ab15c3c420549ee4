// A sample list is saved: the project file in its new order, the summary file without the results of what is deleted.

#include "store/project/rewrite_list.h"

#include <numeric>

#include "store/summary/summary_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr std::size_t kUnconfinedSize = 1924, kK0Size = 243, kTK0Size = 4881;

/// A record of a kind whose bytes behind the two names are told by `filler`.
std::string recordBytes(std::string_view sampleNo, std::size_t size, char filler = 'x') {
  return field("P1", 15) + field(sampleNo, 15) + std::string(size - 30, filler);
}

/// What a sample file of the tests looks like.
struct KindOfTest {
  ProjectKind kind;
  std::string fileName, title;
  std::size_t recordSize;
};
const KindOfTest kKinds[] = {
    {ProjectKind::Triaxial, "WKSZP1.txt", "保存三轴文件", kTriaxialSize},
    {ProjectKind::Unconfined, "KWCXP1.txt", "保存无侧限文件", kUnconfinedSize},
    {ProjectKind::K0, "KOP1.txt", "保存K0文件", kK0Size},
    {ProjectKind::TK0, "TKOP1.txt", "保存TK0文件", kTK0Size},
};

class Rewrite : public StoreTest {
 protected:
  RewriteReport rewrite(ProjectKind kind, const std::string& name, std::vector<std::uint32_t> order) {
    return rewriteProject(workspace, kind, name, order);
  }
  void writeTriaxial(std::initializer_list<std::string_view> sampleNumbers) {
    std::string file = headerBytes({FormatPadded(static_cast<int>(sampleNumbers.size()), 4), "P1"});
    for (const std::string_view number : sampleNumbers) file += triaxialBytes("P1", number);
    write("HSZS/WKSZP1.txt", file + field("doc 17", 100));
  }
  void writeSummary(const std::vector<std::string>& records) {
    std::string file = newSummaryHeaderBytes(FormatPadded(static_cast<int>(records.size()), 4), "P1");
    for (const std::string& record : records) file += record;
    write("ZMSJ/KHZP1.txt", file);
  }
  static std::string recordIn(const std::string& summary, std::size_t k) {
    return summary.substr(kSummaryHeaderSize + k * kSummaryRecordSize, kSummaryRecordSize);
  }
  std::string summaryRecord(std::size_t k) const { return recordIn(read("ZMSJ/KHZP1.txt"), k); }
  /// The names of all files but the backups, to see that nothing is left behind.
  std::vector<std::string> everyFile() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder()))
      if (entry.is_regular_file() && entry.path().parent_path().filename() != "backup")
        names.push_back(entry.path().lexically_relative(folder()).generic_string());
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(Rewrite, EveryKindIsPutInOrderAndKeepsItsHead) {
  for (const KindOfTest& test : kKinds) {
    const std::string a = recordBytes("A", test.recordSize, 'a'), b = recordBytes("B", test.recordSize, 'b'),
                      c = recordBytes("C", test.recordSize, 'c');
    write("HSZS/" + test.fileName, headerBytes({"3", "P1"}) + a + b + c);
    const RewriteReport report = rewrite(test.kind, test.fileName, {2, 0});
    EXPECT_EQ(report.title, test.title);
    EXPECT_EQ(report.message, "数据保存完毕!");
    EXPECT_SAME_BYTES(read("HSZS/" + test.fileName), headerBytes({"0002", "P1"}) + c + a);
  }
}

TEST_F(Rewrite, AnUnchangedTriaxialListLosesItsEndText) {
  writeTriaxial({"A-1", "A-2"});
  rewrite(ProjectKind::Triaxial, "wkszp1.TXT", {0, 1});
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"),
                    headerBytes({"0002", "P1"}) + triaxialBytes("P1", "A-1") + triaxialBytes("P1", "A-2"));
  EXPECT_THAT(everyFile(), ElementsAre("data/HSZS/WKSZP1.txt"));
}

TEST_F(Rewrite, WithoutSamplesTheFileGoes) {
  writeTriaxial({"A-1"});
  EXPECT_EQ(rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {}).message, "数据保存完毕!");
  EXPECT_FALSE(has("HSZS/WKSZP1.txt"));
  EXPECT_FALSE(has("ZMSJ/KHZP1.txt"));
}

TEST_F(Rewrite, LongRunsAndSinglesComeAcrossTheBlocks) {
  // 60 records of 38576 bytes are more than two blocks of a megabyte.
  std::string file = headerBytes({"0060", "P1"});
  for (int i = 0; i < 60; ++i) file += recordBytes("S" + std::to_string(i), kTriaxialSize, static_cast<char>('0' + i));
  write("HSZS/WKSZP1.txt", file);
  std::vector<std::uint32_t> order;
  for (const auto& [first, last] : {std::pair{30, 59}, {7, 7}, {0, 6}, {29, 29}, {8, 28}})
    for (int i = first; i <= last; ++i) order.push_back(static_cast<std::uint32_t>(i));
  rewrite(ProjectKind::Triaxial, "WKSZP1.txt", order);
  std::string wanted = headerBytes({"0060", "P1"});
  for (const std::uint32_t i : order)
    wanted += recordBytes("S" + std::to_string(i), kTriaxialSize, static_cast<char>('0' + i));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), wanted);
}

TEST_F(Rewrite, WhatAShortFileLacksIsBlank) {
  write("HSZS/WKSZP1.txt", headerBytes({"0003", "P1"}) + triaxialBytes("P1", "A-1"));
  rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1, 0});
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"),
                    headerBytes({"0002", "P1"}) + emptyTriaxial() + triaxialBytes("P1", "A-1"));
}

TEST_F(Rewrite, AnOrderThatNamesAnotherSampleOrOneTwiceIsRefused) {
  writeTriaxial({"A-1", "A-2", "A-3"});
  writeSummary({siblingRecordBytes("A-1"), siblingRecordBytes("A-9")});
  const std::string file = read("HSZS/WKSZP1.txt"), summary = read("ZMSJ/KHZP1.txt");
  EXPECT_THAT(sentenceOf([&] {
                rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {0, 3});
              }),
              AllOf(HasSubstr("WKSZP1.txt"), HasSubstr("没有第 4 个试样")));
  EXPECT_THAT(sentenceOf([&] {
                rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1, 0, 1});
              }),
              AllOf(HasSubstr("WKSZP1.txt"), HasSubstr("第 2 个试样出现了两次")));
  EXPECT_THAT(sentenceOf([&] { rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {0xFFFFFFFF}); }),
              HasSubstr("第 4294967296 个"));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), file);
  EXPECT_SAME_BYTES(read("ZMSJ/KHZP1.txt"), summary);
}

TEST_F(Rewrite, TheOldestTriaxialFilesAreNotWritten) {
  const std::string file = headerBytes({"1", "P1"}) + std::string(5966, ' ');
  write("HSZS/KSZP1.txt", file);
  EXPECT_THAT(sentenceOf([&] { rewrite(ProjectKind::OldTriaxial, "KSZP1.txt", {}); }), HasSubstr("KSZP1.txt"));
  EXPECT_SAME_BYTES(read("HSZS/KSZP1.txt"), file);
}

TEST_F(Rewrite, AnOldFileIsUpgradedFirst) {
  const auto oldRecord = [](std::string_view number) {
    return field("P1", 15) + field(number, 15) + std::string(886, '7');
  };
  write("HSZS/KWCXP1.txt", headerBytes({"0002", "P1", "", "", "", "", ""}) + oldRecord("A") + oldRecord("B"));
  rewrite(ProjectKind::Unconfined, "KWCXP1.txt", {1});
  std::string b = field("P1", 15) + field("B", 15);
  for (int column = 0; column < 6; ++column) b += field(std::string(138, '7'), 306);
  b += std::string(58, '7');
  EXPECT_SAME_BYTES(read("HSZS/KWCXP1.txt"), headerBytes({"0001", "P1", "", "", "", "", "V2.0"}) + b);
}

// ---- The summary file

TEST_F(Rewrite, ADeletedTriaxialSampleKeepsItsSummaryRecordWithoutResults) {
  writeTriaxial({"A-1", "A-2"});
  writeSummary({siblingRecordBytes("A-1"), siblingRecordBytes("A-2"), siblingRecordBytes("never seen")});
  rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1});
  std::string deleted = siblingRecordBytes("A-1");
  put(deleted, 2608, " ");
  put(deleted, 2640, std::string(18, ' '));  // the pairs of the methods, from 2658 on, stay
  EXPECT_SAME_BYTES(summaryRecord(0), deleted);
  EXPECT_SAME_BYTES(summaryRecord(1), siblingRecordBytes("A-2"));
  put(deleted, 7, field("never seen", 15));
  EXPECT_SAME_BYTES(summaryRecord(2), deleted) << "nor has a sample results that the project doesn't hold";
  EXPECT_EQ(read("ZMSJ/KHZP1.txt").substr(0, kSummaryHeaderSize), newSummaryHeaderBytes("0003", "P1"));
}

TEST_F(Rewrite, OfTheOtherKindsTheirOwnFieldsAreBlanked) {
  const struct {
    const KindOfTest& test;
    std::size_t offset, size;
  } cases[] = {{kKinds[1], 2735, 10}, {kKinds[2], 1137, 6}, {kKinds[3], 1137, 6}};
  for (const auto& [test, offset, size] : cases) {
    write("HSZS/" + test.fileName, headerBytes({"0001", "P1"}) + recordBytes("A", test.recordSize));
    writeSummary({siblingRecordBytes("A")});
    rewrite(test.kind, test.fileName, {});
    std::string deleted = siblingRecordBytes("A");
    put(deleted, offset, std::string(size, ' '));
    EXPECT_SAME_BYTES(summaryRecord(0), deleted) << test.fileName;
  }
}

TEST_F(Rewrite, ANumberThatAnotherSampleStillHasKeepsItsResults) {
  write("HSZS/WKSZP1.txt",
        headerBytes({"0002", "P1"}) + triaxialBytes("P1", "A-1", 1) + triaxialBytes("P1", " A-1", 2));
  writeSummary({siblingRecordBytes("A-1")});
  rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1});
  EXPECT_SAME_BYTES(summaryRecord(0), siblingRecordBytes("A-1"));
}

TEST_F(Rewrite, ManySummaryRecordsAreAllLookedAt) {
  writeTriaxial({"A-1", "A-600"});
  std::vector<std::string> records;
  for (int i = 0; i < 601; ++i) records.push_back(siblingRecordBytes("A-" + std::to_string(i)));
  writeSummary(records);
  rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1, 0});
  const std::string summary = read("ZMSJ/KHZP1.txt");
  int kept = 0;
  for (std::size_t k = 0; k < 601; ++k) kept += recordIn(summary, k) == records[k] ? 1 : 0;
  EXPECT_EQ(kept, 2);
  EXPECT_SAME_BYTES(summaryRecord(1), records[1]);
  EXPECT_SAME_BYTES(summaryRecord(600), records[600]);
}

TEST_F(Rewrite, ASummaryFileThatIsTooShortIsLookedAtAsFarAsItGoes) {
  writeTriaxial({"A-1"});
  const std::string header = newSummaryHeaderBytes("0003", "P1");
  std::string deleted = siblingRecordBytes("B"), cut = siblingRecordBytes("C").substr(0, 2700);
  write("ZMSJ/KHZP1.txt", header + deleted + cut);
  rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {0});
  put(deleted, 2608, " ");
  put(deleted, 2640, std::string(18, ' '));
  EXPECT_SAME_BYTES(read("ZMSJ/KHZP1.txt"), header + deleted + cut);
}

TEST_F(Rewrite, ADamagedSummaryFileIsNamedAndStaysAsItIs) {
  writeTriaxial({"A-1", "A-2"});
  write("ZMSJ/KHZP1.txt", "short");
  const RewriteReport report = rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1});
  EXPECT_THAT(report.errors, ElementsAre(HasSubstr("KHZP1.txt")));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), headerBytes({"0001", "P1"}) + triaxialBytes("P1", "A-2"));
  EXPECT_EQ(read("ZMSJ/KHZP1.txt"), "short");
}

TEST_F(Rewrite, ASummaryFileThatCanNotBeReadStopsIt) {
  writeTriaxial({"A-1", "A-2"});
  std::filesystem::create_directory(data("ZMSJ/KHZP1.txt"));
  const std::string file = read("HSZS/WKSZP1.txt");
  EXPECT_THAT(sentenceOf([&] { rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1}); }), HasSubstr("KHZP1.txt"));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), file);
  EXPECT_THAT(everyFile(), ElementsAre("data/HSZS/WKSZP1.txt"));
}

// ---- Failures

TEST_F(Rewrite, AFileThatCanNotBeMadeLeavesEverythingAsItWas) {
  writeTriaxial({"A-1", "A-2"});
  writeSummary({siblingRecordBytes("A-1")});
  const std::string file = read("HSZS/WKSZP1.txt"), summary = read("ZMSJ/KHZP1.txt");
  workspace.applicationFolder = folder() / "gone";
  EXPECT_THAT(sentenceOf([&] { rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1}); }),
              AllOf(HasSubstr(textOfPath("HSZS/WKSZP1.txt")), HasSubstr("没有改动"), HasSubstr(textOfPath("gone/a."))));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), file);
  EXPECT_SAME_BYTES(read("ZMSJ/KHZP1.txt"), summary);
}

TEST_F(Rewrite, AJournalThatCanNotBeWrittenLeavesNothingBehind) {
  writeTriaxial({"A-1", "A-2"});
  const std::string file = read("HSZS/WKSZP1.txt");
  std::filesystem::create_directories(data("journal/inside"));  // in the journal's way
  EXPECT_THAT(sentenceOf([&] { rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1}); }), HasSubstr("没有改动"));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), file);
  EXPECT_THAT(everyFile(), ElementsAre("data/HSZS/WKSZP1.txt"));
}

TEST_F(Rewrite, AFileThatIsCutAnywhereIsRewrittenOrRefused) {
  writeTriaxial({"A-1", "A-2"});
  const std::string whole = read("HSZS/WKSZP1.txt");
  for (std::size_t size = 0; size < whole.size(); size += 97 * 64) {
    write("HSZS/WKSZP1.txt", whole.substr(0, size));
    if (size < kHeaderSize) {
      EXPECT_THAT(sentenceOf([&] { rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1}); }), HasSubstr("WKSZP1.txt"));
      continue;
    }
    rewrite(ProjectKind::Triaxial, "WKSZP1.txt", {1});
    const bool secondIsWhole = size >= kHeaderSize + 2 * kTriaxialSize;
    EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"),
                      headerBytes({"0001", "P1"}) +
                          (secondIsWhole ? whole.substr(kHeaderSize + kTriaxialSize, kTriaxialSize) : emptyTriaxial()))
        << size;
  }
}

}  // namespace
}  // namespace triaxlab::testing
