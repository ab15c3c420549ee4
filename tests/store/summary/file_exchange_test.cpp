// Files that a save replaces as a whole or removes, together with its writes to others.

#include "store/safety/file_update.h"
#include "store/safety/save_journal.h"
#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

class FileExchange : public StoreTest {
 protected:
  static std::span<const std::byte> asBytes(std::string_view text) { return std::as_bytes(std::span(text)); }
  /// A save that replaces a, removes b and writes to c.
  void prepare(FileUpdate& update) {
    write(update.newContentPath().filename().string(), "new a");
    update.replace(data("HSZS/a"));
    update.remove(data("HSZS/b"));
    update.writeAt(data("ZMSJ/c"), 4, asBytes("new c"));
  }
  void writeOld() const {
    write("HSZS/a", "old a");
    write("HSZS/b", "old b");
    write("ZMSJ/c", "old c");
  }
  void expectOld() const {
    EXPECT_EQ(read("HSZS/a"), "old a");
    EXPECT_EQ(read("HSZS/b"), "old b");
    EXPECT_EQ(read("ZMSJ/c"), "old c");
    expectNothingElse();
  }
  void expectNew() const {
    EXPECT_EQ(read("HSZS/a"), "new a");
    EXPECT_FALSE(has("HSZS/b"));
    EXPECT_EQ(read("ZMSJ/c"), "old new c");
    expectNothingElse();
  }
  void expectNothingElse() const { EXPECT_THAT(listFiles(workspace.dataFolder, "journal", ""), ::testing::IsEmpty()); }
  /// The journal of that save.
  void writeSavesJournal() const {
    SaveJournalSpans spans;
    const std::string text = "new c";
    writeSaveJournal(data("journal"),
                     {{"HSZS/a", {}, SaveJournalDeed::Replace},
                      {"HSZS/b", {}, SaveJournalDeed::Remove},
                      {"ZMSJ/c", {{4, text.size(), spans.append(asBytes(text))}}}},
                     spans);
  }
};

TEST_F(FileExchange, HappensAtTheCommit) {
  writeOld();
  FileUpdate update(workspace.dataFolder);
  prepare(update);
  EXPECT_EQ(read("HSZS/a"), "old a");
  EXPECT_EQ(update.size(data("HSZS/b")), 5U) << "reads still see the old files";
  update.commit();
  expectNew();
}

TEST_F(FileExchange, IsDroppedWithItsUpdate) {
  writeOld();
  {
    FileUpdate update(workspace.dataFolder);
    prepare(update);
  }
  expectOld();
}

TEST_F(FileExchange, NeedsNoOtherWrite) {
  writeOld();
  FileUpdate update(workspace.dataFolder);
  update.remove(data("HSZS/b"));
  update.commit();
  EXPECT_FALSE(has("HSZS/b"));
  EXPECT_FALSE(has("journal"));
}

TEST_F(FileExchange, IsFinishedFromTheJournal) {
  writeOld();
  write("journal.new", "new a");
  writeSavesJournal();
  FileUpdate::recover(workspace.dataFolder);
  expectNew();
}

TEST_F(FileExchange, IsNotDoneTwice) {
  writeOld();
  write("HSZS/a", "new a");  // these two were done when the power went
  std::filesystem::remove(data("HSZS/b"));
  writeSavesJournal();
  FileUpdate::recover(workspace.dataFolder);
  expectNew();
}

TEST_F(FileExchange, ThatFailsAtTheFirstFileIsTakenBack) {
  writeOld();
  std::filesystem::remove(data("HSZS/a"));
  std::filesystem::create_directories(data("HSZS/a/in its way"));
  FileUpdate update(workspace.dataFolder);
  prepare(update);
  EXPECT_THAT(sentenceOf([&] { update.commit(); }), HasSubstr("没有改动"));
  EXPECT_EQ(read("HSZS/b"), "old b");
  EXPECT_EQ(read("ZMSJ/c"), "old c");
  EXPECT_FALSE(has("journal"));
}

TEST_F(FileExchange, ANewContentWithoutAJournalIsRemoved) {
  writeOld();
  write("journal.new", "new a");
  FileUpdate::recover(workspace.dataFolder);
  expectOld();
  write("journal.new", "new a");
  write("journal", "cut");
  FileUpdate::recover(workspace.dataFolder);
  expectOld();
}

TEST_F(FileExchange, OfAFileElsewhereIsRefused) {
  FileUpdate update(workspace.dataFolder);
  EXPECT_THROW(update.remove(workspace.applicationFolder / "qvb.sys"), UserError);
  EXPECT_THROW(update.replace(workspace.dataFolder / "journal"), UserError);
}

TEST_F(FileExchange, ADeedThatNoSaveDoesMakesTheJournalVoid) {
  writeOld();
  SaveJournalSpans spans;
  for (const auto& file : {SaveJournalFile{"HSZS/b", {}, static_cast<SaveJournalDeed>(3)},
                           SaveJournalFile{"HSZS/b", {{0, 0, 0}}, SaveJournalDeed::Remove},
                           SaveJournalFile{"HSZS/b", {}, SaveJournalDeed::Replace}}) {  // there is one new content only
    write("journal.new", "new a");
    writeSaveJournal(data("journal"), {{"HSZS/a", {}, SaveJournalDeed::Replace}, file}, spans);
    FileUpdate::recover(workspace.dataFolder);
    EXPECT_EQ(read("HSZS/a"), "old a");
    EXPECT_FALSE(has("journal"));
  }
}

}  // namespace
}  // namespace triaxlab::testing
