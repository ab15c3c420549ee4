// A link in the data folder leads out of it. Nothing is read or written through one; the data folder itself may be
// reached through links.

#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/save_project.h"
#include "store/safety/backup.h"
#include "store/safety/file_update.h"
#include "store/safety/save_journal.h"
#include "store/store_fixture.h"
#include "support/posix_only.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class Links : public StoreTest {
 protected:
  Links() { std::filesystem::create_directory(folder() / "elsewhere"); }
  void SetUp() override { POSIX_ONLY("links"); }

  static std::string project() {
    return headerBytes({"0001", "P1"}) + triaxialBytes("P1", "A-1") + field("", kEndTextSize);
  }
  /// Puts a file elsewhere and a link to it into the data folder.
  void link(const std::string& name, std::string_view content) const {
    write("../elsewhere/file", content);
    std::filesystem::create_symlink(folder() / "elsewhere/file", data(name));
  }
  std::string elsewhere() const { return read("../elsewhere/file"); }
};

TEST_F(Links, AProjectFileThatIsOneIsListedByItsNameAndRefused) {
  link("HSZS/WKSZP1.txt", project());
  const auto refusal = AllOf(HasSubstr("HSZS/WKSZP1.txt"), HasSubstr("链接"));
  const std::vector<ProjectListRow> rows = listProjects(workspace, ProjectKind::Triaxial);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].projectNo, "WKSZP1.txt");
  EXPECT_THAT(sentenceOf([&] { openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr); }), refusal);
  EXPECT_THAT(sentenceOf([&] { listSamples(workspace, ProjectKind::Triaxial, "WKSZP1.txt"); }), refusal);
  EXPECT_THAT(sentenceOf([&] { rewriteProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", {}); }), refusal);
  setRow(0, triaxialBytes("P1", "A-2"));
  EXPECT_THAT(sentenceOf([&] { saveProject(workspace, ProjectKind::Triaxial, nullptr); }), refusal);
  EXPECT_SAME_BYTES(elsewhere(), project());
}

TEST_F(Links, NoFileIsMadeWhereOneLeads) {
  std::filesystem::create_symlink(folder() / "elsewhere/new", data("HSZS/WKSZP1.txt"));
  setRow(0, triaxialBytes("P1", "A-1"));
  EXPECT_THAT(sentenceOf([&] { saveProject(workspace, ProjectKind::Triaxial, nullptr); }), HasSubstr("链接"));
  EXPECT_FALSE(std::filesystem::exists(folder() / "elsewhere/new"));
}

TEST_F(Links, ASummaryFileThatIsOneIsNotWritten) {
  link("ZMSJ/KHZP1.txt", "not ours");
  setRow(0, triaxialBytes("P1", "A-1"));
  const std::string told = sentenceOf([&] {
    const SaveReport report = saveProject(workspace, ProjectKind::Triaxial, nullptr);
    for (const std::string& error : report.errors) throw UserError(error);
  });
  EXPECT_THAT(told, HasSubstr("链接"));
  EXPECT_EQ(elsewhere(), "not ours");
}

TEST_F(Links, TheFoldersOfTheDataAreNoneEither) {
  std::filesystem::remove(data("HSZS"));
  std::filesystem::create_directory_symlink(folder() / "elsewhere", data("HSZS"));
  write("../elsewhere/WKSZP1.txt", project());
  EXPECT_THAT(sentenceOf([&] { openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr); }),
              HasSubstr("链接"));
  setRow(0, triaxialBytes("P2", "A-1"));
  EXPECT_THAT(sentenceOf([&] { saveProject(workspace, ProjectKind::Triaxial, nullptr); }), HasSubstr("链接"));
  EXPECT_FALSE(std::filesystem::exists(folder() / "elsewhere/WKSZP2.txt"));
}

TEST_F(Links, TheDataFolderMayBeReachedThroughOne) {
  std::filesystem::create_directory_symlink(workspace.dataFolder, folder() / "through");
  workspace.dataFolder = folder() / "through";
  setRow(0, triaxialBytes("P1", "A-1"));
  EXPECT_TRUE(saveProject(workspace, ProjectKind::Triaxial, nullptr).errors.empty());
  EXPECT_EQ(openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr), Remarks{});
  EXPECT_TRUE(std::filesystem::exists(folder() / "data/HSZS/WKSZP1.txt"));
}

TEST_F(Links, NoCopyGoesThroughOne) {
  std::filesystem::create_directory_symlink(folder() / "elsewhere", data("HSZS/backup"));
  write("HSZS/WKSZP1.txt", project());
  EXPECT_THAT(keepCopy(workspace, data("HSZS/WKSZP1.txt"), 0), ElementsAre(HasSubstr("链接")));
  EXPECT_TRUE(std::filesystem::is_empty(folder() / "elsewhere"));
}

TEST_F(Links, AForgedJournalWritesNowhereElse) {
  link("HSZS/a", "not ours");
  SaveJournalSpans spans;
  const std::uint64_t at = spans.append(std::as_bytes(std::span("forged", 6)));
  writeSaveJournal(data("journal"), {{"HSZS/a", {{0, 6, at}}}}, spans);
  EXPECT_THAT(FileUpdate::recover(workspace.dataFolder), ElementsAre(HasSubstr("链接")));
  EXPECT_EQ(elsewhere(), "not ours");
  std::filesystem::remove(data("journal"));

  writeSaveJournal(data("journal"), {{"HSZS/a", {}, SaveJournalDeed::Remove}}, {});
  EXPECT_THAT(FileUpdate::recover(workspace.dataFolder), ElementsAre(HasSubstr("链接")));
  EXPECT_TRUE(std::filesystem::is_symlink(data("HSZS/a")));
}

}  // namespace
}  // namespace triaxlab::testing
