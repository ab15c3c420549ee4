// A save is finished after a sibling tool has written into the summary file: its work stays, and so does the save's.

#include "store/safety/file_update.h"
#include "store/safety/save_journal.h"
#include "store/summary/summary_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kSummary = "ZMSJ/KHZP1.txt";

std::size_t place(std::size_t k) { return kSummaryHeaderSize + k * kSummaryRecordSize; }

/// A record that this system has put: its sequence number and sample number, and c in the section "SZ:".
std::string filled(std::string record, const std::string& sequenceNo, const std::string& sampleNo,
                   const std::string& c) {
  put(record, 3, sequenceNo + field(sampleNo, 15));
  put(record, 2640, field(c, 5));
  return record;
}

class SummaryMerge : public StoreTest {
 protected:
  /// Leaves a journal with these texts for the summary file, and lets the next start find it.
  Remarks finishSave(const std::map<std::uint64_t, std::string>& texts) const {
    SaveJournalSpans spans;
    SaveJournalFile file{kSummary, {}};
    for (const auto& [at, text] : texts)
      file.pieces.push_back({at, text.size(), spans.append(std::as_bytes(std::span(text)))});
    writeSaveJournal(data("journal"), {file}, spans);
    const Remarks remarks = FileUpdate::recover(workspace.dataFolder);
    EXPECT_FALSE(has("journal"));
    return remarks;
  }
  /// The parts of a save of one known sample, with c = 33.3.
  static std::map<std::uint64_t, std::string> partsOf(std::size_t k, const std::string& sequenceNo,
                                                      const std::string& sampleNo) {
    return {
        {0, "0002" + field("P1", 15)}, {place(k) + 3, sequenceNo + field(sampleNo, 15)}, {place(k) + 2640, "33.3 "}};
  }
  static std::string header(const std::string& count) { return newSummaryHeaderBytes(count, "P1"); }
};

TEST_F(SummaryMerge, ARecordIsFoundAgainByItsNumber) {
  const std::string s1 = siblingRecordBytes("S1"), s2 = siblingRecordBytes("S2"), s3 = siblingRecordBytes("S3");
  write(kSummary, header("0003") + s3 + s2 + s1);
  EXPECT_THAT(finishSave(partsOf(0, "0001", "S1")), IsEmpty());
  EXPECT_SAME_BYTES(read(kSummary), header("0003") + s3 + s2 + filled(s1, "0003", "S1", "33.3"));
}

TEST_F(SummaryMerge, ASampleThatWasNewIsAddedBehindThoseOfOthers) {
  const std::string s1 = siblingRecordBytes("S1"), others = siblingRecordBytes("X1");
  write(kSummary, header("0002") + s1 + others);
  const std::string added = filled(newSummaryRecordBytes(), "0002", "S2", "33.3");
  EXPECT_THAT(finishSave({{0, "0002" + field("P1", 15)}, {place(1), added}}), IsEmpty());
  EXPECT_SAME_BYTES(read(kSummary), header("0003") + s1 + others + filled(added, "0003", "S2", "33.3"));
}

TEST_F(SummaryMerge, ASampleThatASiblingToolHasAddedTooKeepsItsFields) {
  const std::string s1 = siblingRecordBytes("S1"), s2 = siblingRecordBytes("S2");
  write(kSummary, header("0002") + s1 + s2);
  std::string whole = newSummaryRecordBytes();
  whole = filled(whole, "0002", "S2", "33.3");
  EXPECT_THAT(finishSave({{0, "0002" + field("P1", 15)}, {place(1), whole}}), IsEmpty());
  std::string wanted = s2;
  for (const auto& [begin, end] : std::vector<std::pair<std::size_t, std::size_t>>{
           {3, 52}, {1107, 1143}, {2598, 2609}, {2640, 2730}, {2735, 2745}})
    wanted.replace(begin, end - begin, whole.substr(begin, end - begin));
  EXPECT_SAME_BYTES(read(kSummary), header("0002") + s1 + wanted);
}

TEST_F(SummaryMerge, ASampleThatIsGoneIsAddedAnew) {
  const std::string others = siblingRecordBytes("X1");
  write(kSummary, header("0001") + others);
  EXPECT_THAT(finishSave(partsOf(0, "0001", "S1")), IsEmpty());
  const std::string summary = read(kSummary);
  EXPECT_SAME_BYTES(summary.substr(0, place(1)), header("0002") + others);
  EXPECT_SAME_BYTES(summary.substr(place(1) + 3, 19), "0002" + field("S1", 15));
  EXPECT_SAME_BYTES(summary.substr(place(1) + 2585, 3) + summary.substr(place(1) + 2640, 5), "SZ:33.3 ");
  EXPECT_EQ(summary.size(), place(2));
}

TEST_F(SummaryMerge, ResultsThatAreBlankedMakeNoSample) {
  const std::string s2 = siblingRecordBytes("S2");
  write(kSummary, header("0001") + s2);
  EXPECT_THAT(finishSave({{4, field("P1", 15)},
                          {place(0) + 7, field("S1", 15)},
                          {place(0) + 2640, "     "},
                          {place(1) + 7, field("S2", 15)},
                          {place(1) + 2640, "     "}}),
              IsEmpty());
  std::string wanted = s2;
  put(wanted, 2640, "     ");
  EXPECT_SAME_BYTES(read(kSummary), header("0001") + wanted);
}

TEST_F(SummaryMerge, AFileThatIsGoneIsMadeAnew) {
  EXPECT_THAT(finishSave(partsOf(0, "0001", "S1")), IsEmpty());
  const std::string summary = read(kSummary);
  EXPECT_EQ(summary.substr(0, 6), "0001P1");
  EXPECT_EQ(summary.size(), place(1));
  EXPECT_EQ(summary.substr(place(0), 9), "NO.0001S1");
}

TEST_F(SummaryMerge, WhatACrashLeftOfANewFileIsFilled) {
  const std::string whole = header("0001") + filled(newSummaryRecordBytes(), "0001", "S1", "33.3");
  for (const std::size_t held : {0U, 2U, 300U, 600U, 605U, 620U, 3000U, 3347U})
    for (const char fill : {'\0', 'x'}) {
      std::string torn = whole.substr(0, held);
      if (fill == '\0') torn.resize(whole.size(), fill);  // a power cut: lengthened, but not written
      write(kSummary, torn);
      EXPECT_THAT(finishSave({{0, whole}}), IsEmpty());
      EXPECT_SAME_BYTES(read(kSummary), whole) << held;
    }
}

TEST_F(SummaryMerge, AFileThatIsDamagedOrAnotherProjectsIsToldAndLeft) {
  const std::string s1 = siblingRecordBytes("S1");
  for (const std::string& standing :
       {header("????") + s1, newSummaryHeaderBytes("0001", "P9") + s1, header("0001").substr(0, 300)}) {
    write(kSummary, standing);
    EXPECT_THAT(finishSave(partsOf(0, "0001", "S1")), ElementsAre(HasSubstr("KHZP1.txt")));
    EXPECT_SAME_BYTES(read(kSummary), standing);
  }
}

TEST_F(SummaryMerge, AFileThatIsFullIsTold) {
  std::string full = header("9999");
  const std::string record = newSummaryRecordBytes();
  for (int k = 0; k < 9999; ++k) full += filled(record, "0000", "X" + std::to_string(k), "1");
  write(kSummary, full);
  EXPECT_THAT(finishSave(partsOf(0, "0001", "S1")), ElementsAre(HasSubstr("9999")));
  EXPECT_EQ(read(kSummary), full);
}

}  // namespace
}  // namespace triaxlab::testing
