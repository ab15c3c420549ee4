// Project files and summary files that are cut anywhere, as a dying disk leaves them: whatever is done with them, no
// record that is still whole gets lost, one that is cut counts as blank, and a refusal changes nothing.

#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/save_project.h"
#include "store/summary/summary_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

constexpr std::size_t kStep = 97, kK0Size = 243, kOldUnconfinedSize = 916, kUnconfinedSize = 1924;

std::string k0Bytes(int sample) {
  return field("P1", 15) + field("S" + std::to_string(sample), 15) + std::string(kK0Size - 30, 'x');
}

class CutFiles : public StoreTest {
 protected:
  CutFiles() : whole(headerBytes({"0012", "P1"})) {
    for (int i = 0; i < 12; ++i) whole += k0Bytes(i);
  }
  /// Calls `check` with each length to which the file is cut, the file in its place and nothing else.
  template <class Check>
  void atEachCut(const std::string& name, const std::string& content, Check check) {
    for (std::size_t size = 0; size < content.size(); size += kStep) {
      std::filesystem::remove_all(data("HSZS/backup"));
      workspace.fileMemory = {};
      write(name, content.substr(0, size));
      check(size);
      if (::testing::Test::HasFailure()) FAIL() << "cut to " << size;
    }
  }
  template <class Act>
  void expectRefused(const std::string& name, Act act) {
    const auto before = snapshot();
    EXPECT_THAT(sentenceOf(act), HasSubstr(name));
    EXPECT_EQ(snapshot(), before);
  }

  /// The K0 file with its records whole as far as it goes, and blank from there on.
  std::string withBlanks(std::size_t size) const {
    const std::size_t records = (size - kHeaderSize) / kK0Size;
    std::string content = whole.substr(0, kHeaderSize + records * kK0Size);
    while (content.size() < whole.size()) content += bytesOfRecord(K0SampleRecord{});
    return content;
  }

  std::string whole;
};

TEST_F(CutFiles, ASaveKeepsTheRecordsThatAreThere) {
  K0SampleRecord& known = workspace.K0SampleTable[0];
  SetText(known.projectNo, "P1");
  SetText(known.sampleNo, "NEW");
  saveProject(workspace, ProjectKind::K0, nullptr);  // the settings and the summary file are there from now on
  atEachCut("HSZS/KOP1.txt", whole, [&](std::size_t size) {
    const auto save = [&] { saveProject(workspace, ProjectKind::K0, nullptr); };
    if (size < kHeaderSize) return expectRefused("KOP1.txt", save);
    save();
    const std::string saved = read("HSZS/KOP1.txt");
    ASSERT_EQ(saved.size(), kHeaderSize + 13 * kK0Size);
    EXPECT_EQ(saved.substr(0, 4), "0013");
    EXPECT_SAME_BYTES(saved.substr(kHeaderSize, 12 * kK0Size), withBlanks(size).substr(kHeaderSize));
    EXPECT_EQ(saved.substr(kHeaderSize + 12 * kK0Size + 15, 3), "NEW");
    EXPECT_SAME_BYTES(read("HSZS/backup/" + backups().at(0)), whole.substr(0, size));
  });
}

TEST_F(CutFiles, ARewriteKeepsTheRecordsThatAreThere) {
  std::vector<std::uint32_t> order(12);
  for (std::uint32_t i = 0; i < 12; ++i) order[i] = 11 - i;
  atEachCut("HSZS/KOP1.txt", whole, [&](std::size_t size) {
    const auto rewrite = [&] { rewriteProject(workspace, ProjectKind::K0, "KOP1.txt", order); };
    if (size < kHeaderSize) return expectRefused("KOP1.txt", rewrite);
    EXPECT_EQ(listSamples(workspace, ProjectKind::K0, "KOP1.txt").size(), 12U);
    rewrite();
    const std::string written = read("HSZS/KOP1.txt");
    ASSERT_EQ(written.size(), kHeaderSize + 12 * kK0Size);
    for (std::size_t i = 0; i < 12; ++i)
      EXPECT_SAME_BYTES(written.substr(kHeaderSize + (11 - i) * kK0Size, kK0Size),
                        withBlanks(size).substr(kHeaderSize + i * kK0Size, kK0Size));
    EXPECT_SAME_BYTES(read("HSZS/backup/" + backups().at(0)), whole.substr(0, size));
  });
}

TEST_F(CutFiles, AnUpgradeKeepsTheRecordsThatAreThere) {
  std::string old = headerBytes({"0004", "P1", "", "", "", "", "V1.0"});
  for (int i = 0; i < 4; ++i)
    old += field("P1", 15) + field("S" + std::to_string(i), 15) + std::string(kOldUnconfinedSize - 30, 'o');
  atEachCut("HSZS/KWCXP1.txt", old, [&](std::size_t size) {
    const auto open = [&] { openProject(workspace, ProjectKind::Unconfined, "KWCXP1.txt", nullptr); };
    if (size < kHeaderSize) return expectRefused("KWCXP1.txt", open);
    open();
    const std::string upgraded = read("HSZS/KWCXP1.txt");
    ASSERT_EQ(upgraded.size(), kHeaderSize + 4 * kUnconfinedSize);
    for (std::size_t i = 0; i < 4; ++i) {
      const std::string record = upgraded.substr(kHeaderSize + i * kUnconfinedSize, kUnconfinedSize);
      if (i >= (size - kHeaderSize) / kOldUnconfinedSize) {
        EXPECT_SAME_BYTES(record, bytesOfRecord(UnconfinedSampleRecord{}));
        continue;
      }
      EXPECT_EQ(record.substr(15, 15), field("S" + std::to_string(i), 15));
      EXPECT_EQ(std::count(record.begin(), record.end(), 'o'), kOldUnconfinedSize - 30) << "no byte of it is lost";
    }
    EXPECT_SAME_BYTES(read("HSZS/backup/" + backups().at(0)), old.substr(0, size));
  });
}

TEST_F(CutFiles, ASummaryFileKeepsWhatIsThereThroughSaveAndRewrite) {
  std::string summary = newSummaryHeaderBytes("0003", "P1");
  for (const char* sample : {"S0", "S1", "OTHER"}) summary += siblingRecordBytes(sample);
  write("HSZS/KOP1.txt", whole);
  openProject(workspace, ProjectKind::K0, "KOP1.txt", nullptr);
  for (std::size_t i = 2; i < kTableRows; ++i) workspace.K0SampleTable[i] = {};
  saveProject(workspace, ProjectKind::K0, nullptr);
  const std::string project = read("HSZS/KOP1.txt");
  atEachCut("ZMSJ/KHZP1.txt", summary, [&](std::size_t size) {
    write("HSZS/KOP1.txt", project);
    const auto save = [&] { return saveProject(workspace, ProjectKind::K0, nullptr); };
    const auto rewrite = [&] { return rewriteProject(workspace, ProjectKind::K0, "KOP1.txt", std::array{0U, 1U}); };
    EXPECT_EQ(listSamples(workspace, ProjectKind::K0, "KOP1.txt").size(), 12U);
    const SaveReport report = save();
    const std::vector<std::string> ofRewrite = rewrite().errors;
    const std::string saved = read("ZMSJ/KHZP1.txt");
    if (size < kSummaryHeaderSize) {
      EXPECT_THAT(report.summaryErrors, ::testing::ElementsAre(HasSubstr("KHZP1.txt")));
      EXPECT_THAT(ofRewrite, ::testing::ElementsAre(HasSubstr("KHZP1.txt")));
      EXPECT_SAME_BYTES(saved, summary.substr(0, size));
      EXPECT_EQ(readStart("HSZS/KOP1.txt", 4), "0002") << "the project is saved all the same";
      return;
    }
    EXPECT_THAT(ofRewrite, ::testing::IsEmpty());
    // The sections of the other tools, as far as the file went: from "WS:" at 59 to "GJ:" at 305.
    for (std::size_t k = 0; k < 3; ++k) {
      const std::size_t begin = kSummaryHeaderSize + k * kSummaryRecordSize + 59;
      if (size > begin) {
        const std::size_t length = std::min<std::size_t>(size - begin, 305 - 59);
        EXPECT_SAME_BYTES(saved.substr(begin, length), summary.substr(begin, length));
      }
    }
  });
}

}  // namespace
}  // namespace triaxlab::testing
