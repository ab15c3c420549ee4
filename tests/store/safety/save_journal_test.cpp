// What is done with a journal that is found: a complete one finishes its save, any other is dropped.

#include "store/safety/save_journal.h"

#include <chrono>

#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/save_project.h"
#include "store/safety/file_update.h"
#include "store/store_fixture.h"
#include "support/posix_only.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class SaveJournalTest : public StoreTest {
 protected:
  /// The bytes of a journal that puts `text` at `offset` of each path.
  std::string journalOf(const std::vector<std::string>& paths, std::uint64_t offset, std::string_view text) {
    SaveJournalSpans spans;
    std::vector<SaveJournalFile> files;
    for (const std::string& path : paths)
      files.push_back({path, {{offset, text.size(), spans.append(std::as_bytes(std::span(text)))}}});
    writeSaveJournal(data("journal"), files, spans);
    return read("journal");
  }
  static std::string eightBytes(std::uint64_t value) {
    std::string bytes;
    for (int i = 0; i < 8; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    return bytes;
  }
  void recover() const { FileUpdate::recover(workspace.dataFolder); }
  /// Everything below the test's folder, as one text.
  std::string everything() const {
    std::string all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder())) {
      all += entry.path().string() + "\n";
      if (entry.is_regular_file()) all += readText(entry.path()) + "\n";
    }
    return all;
  }
  static std::string readText(const std::filesystem::path& path) {
    const Bytes bytes = readWholeFile(path, 1'000'000);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }
};

TEST_F(SaveJournalTest, ACompleteOneIsApplied) {
  write("HSZS/a", "0123456789");
  journalOf({"HSZS/a", "ZMSJ/b"}, 3, "xyz");
  recover();
  EXPECT_EQ(read("HSZS/a"), "012xyz6789");
  EXPECT_EQ(read("ZMSJ/b"), std::string("\0\0\0xyz", 6));
  EXPECT_FALSE(has("journal"));
}

TEST_F(SaveJournalTest, ItIsAppliedBeforeAnythingIsListedOrOpened) {
  const std::string file = headerBytes({"0000", "P1"});
  journalOf({"HSZS/WKSZ1.txt"}, 0, file);
  EXPECT_EQ(listProjects(workspace, ProjectKind::Triaxial).size(), 1U);
  journalOf({"HSZS/WKSZ2.txt"}, 0, file);
  EXPECT_TRUE(listSamples(workspace, ProjectKind::Triaxial, "WKSZ2.txt").empty());
  journalOf({"HSZS/KO3.txt"}, 0, file);
  openProject(workspace, ProjectKind::K0, "KO3.txt", nullptr);
  journalOf({"HSZS/KO4.txt"}, 0, file);
  const FileUpdate update(workspace.dataFolder);
  EXPECT_EQ(update.size(data("HSZS/KO4.txt")), kHeaderSize);
}

TEST_F(SaveJournalTest, EveryShorterOneIsDropped) {
  const std::string whole = journalOf({"HSZS/a", "ZMSJ/b"}, 0, "0123456789012345678901234567890123456789");
  std::filesystem::remove(data("journal"));
  const std::string before = everything();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    write("journal", whole.substr(0, size));
    recover();
    ASSERT_EQ(everything(), before) << size;
  }
}

TEST_F(SaveJournalTest, OneWithAnyByteChangedIsDropped) {
  const std::string whole = journalOf({"HSZS/a", "ZMSJ/b"}, 0, "0123456789012345678901234567890123456789");
  std::filesystem::remove(data("journal"));
  const std::string before = everything();
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ (1 << at % 8));
    write("journal", damaged);
    recover();
    ASSERT_EQ(everything(), before) << at;
  }
}

TEST_F(SaveJournalTest, OneWithMoreBehindItsEndIsDropped) {
  write("journal", journalOf({"HSZS/a"}, 0, "x") + "y");
  recover();
  EXPECT_FALSE(has("HSZS/a"));
  EXPECT_FALSE(has("journal"));
}

TEST_F(SaveJournalTest, FoldersMayBeSpelledInSmallLetters) {
  std::filesystem::create_directories(data("hszs"));
  journalOf({"hszs/a", "ZMSJ/b"}, 0, "x");
  recover();
  EXPECT_EQ(read("hszs/a"), "x");
  EXPECT_EQ(read("ZMSJ/b"), "x");
}

TEST_F(SaveJournalTest, OneThatNamesAnythingElseIsDropped) {
  write("a", "data");
  const std::string before = everything();
  for (const char* path :
       {"../app/x", "HSZS/../../x", "HSZS/..", "/etc/x", "a", "", "HSZS", "HSZS/", "/x", "PTU/x", "HSZS2/x", "HSZS/b/c",
        "HSZS/b\\c", "HSZS/c:x", "HSZS/\x01", "journal", "./HSZS/x", "HSZS//x"}) {
    journalOf({"HSZS/good", path}, 0, "x");
    recover();
    ASSERT_EQ(everything(), before) << path;
  }
}

TEST_F(SaveJournalTest, OneThatReachesBeyondAnyFileIsDropped) {
  for (const std::uint64_t offset : {std::uint64_t{1} << 31, std::uint64_t{1} << 62, ~std::uint64_t{0}}) {
    journalOf({"HSZS/a"}, offset, "x");
    recover();
    EXPECT_FALSE(has("HSZS/a"));
    EXPECT_FALSE(has("journal"));
  }
}

TEST_F(SaveJournalTest, AFolderOfThatNameIsNone) {
  std::filesystem::create_directory(data("journal"));
  recover();
  EXPECT_TRUE(has("journal"));
}

TEST_F(SaveJournalTest, ACompleteOneThatCanNotBeAppliedStaysAndIsTold) {
  std::filesystem::create_directory(data("ZMSJ/b"));
  const std::string whole = journalOf({"HSZS/a", "ZMSJ/b"}, 0, "xyz");
  EXPECT_THAT(
      FileUpdate::recover(workspace.dataFolder),
      ::testing::ElementsAre(AllOf(HasSubstr(textOfPath("ZMSJ/b")), HasSubstr("自动写完"), HasSubstr("移到别处"))));
  EXPECT_EQ(read("journal"), whole);
  std::filesystem::remove(data("ZMSJ/b"));
  recover();
  EXPECT_EQ(read("HSZS/a") + read("ZMSJ/b"), "xyzxyz");
}

TEST_F(SaveJournalTest, ASaveThatWaitsKeepsNoOtherProjectFromItsWork) {
  const std::string file = headerBytes({"0000", "P1"});
  write("HSZS/WKSZP1.txt", file);
  write("HSZS/WKSZP2.txt", file);
  std::filesystem::create_directory(data("ZMSJ/KHZP1.txt"));
  const std::string whole = journalOf({"HSZS/WKSZP1.txt", "ZMSJ/KHZP1.txt"}, 0, headerBytes({"0000", "P1", "later"}));
  const auto open = [this](const char* name) { return openProject(workspace, ProjectKind::Triaxial, name, nullptr); };
  EXPECT_THAT(sentenceOf([&] { open("WKSZP1.txt"); }), AllOf(HasSubstr("KHZP1.txt"), HasSubstr("移到别处")));
  EXPECT_THAT(open("WKSZP2.txt"), ::testing::ElementsAre(HasSubstr("KHZP1.txt")));
  EXPECT_EQ(listProjects(workspace, ProjectKind::Triaxial).size(), 2U);

  setRow(0, triaxialBytes("P2", "S1"));
  setRow(1, triaxialBytes("P1", "S1"));
  const SaveReport report = saveProject(workspace, ProjectKind::Triaxial, nullptr);
  EXPECT_THAT(report.errors, ::testing::ElementsAre(AllOf(HasSubstr("工程“P1”"), HasSubstr("没有保存"))));
  EXPECT_EQ(read("HSZS/WKSZP2.txt").substr(0, 4), "0001");
  EXPECT_EQ(read("journal"), whole) << "it waits on";
  EXPECT_FALSE(has("journal.2"));

  std::filesystem::remove(data("ZMSJ/KHZP1.txt"));
  open("WKSZP1.txt");
  EXPECT_EQ(read("HSZS/WKSZP1.txt"), headerBytes({"0000", "P1", "later"}));
  EXPECT_FALSE(has("journal"));
}

TEST_F(SaveJournalTest, ASaveAfterAnotherThatWaitsIsFinishedToo) {
  std::filesystem::create_directory(data("ZMSJ/b"));
  journalOf({"HSZS/a", "ZMSJ/b"}, 0, "xyz");
  SaveJournalSpans spans;
  writeSaveJournal(data("journal.2"), {{"HSZS/c", {{0, 1, spans.append(std::as_bytes(std::span("c", 1)))}}}}, spans);
  EXPECT_EQ(FileUpdate::recover(workspace.dataFolder).size(), 1U);
  EXPECT_EQ(read("HSZS/c"), "c");
  EXPECT_FALSE(has("journal.2"));
  EXPECT_TRUE(has("journal"));
}

TEST_F(SaveJournalTest, OneOfAnotherProgramIsNotWrittenOver) {
  FileUpdate update(workspace.dataFolder);
  update.writeAt(data("HSZS/a"), 0, std::as_bytes(std::span("x", 1)));
  const std::string others = journalOf({"HSZS/b"}, 0, "others");  // where no lock keeps it away
  EXPECT_THAT(sentenceOf([&] { update.commit(); }), HasSubstr("没有改动"));
  EXPECT_EQ(read("journal"), others);
  EXPECT_FALSE(has("HSZS/a"));
}

TEST_F(SaveJournalTest, AnUnfinishedOneHasNoSayAndIsTakenAway) {
  const std::string whole = journalOf({"HSZS/a"}, 0, "x");
  std::filesystem::rename(data("journal"), data("journal.pc-12-0123abcd-3.part"));
  write("journal.pc-12-0123abcd-4.new", "new content");
  write("journal.notes", "a person's");
  recover();
  EXPECT_FALSE(has("HSZS/a"));
  EXPECT_THAT(listFiles(workspace.dataFolder, "", ""), ::testing::ElementsAre("journal.notes"));
}

TEST_F(SaveJournalTest, ASaveDoesNotWriteThroughALink) {
  POSIX_ONLY("links");
  write("precious", "precious");
  std::filesystem::create_symlink(data("precious"), data("journal"));
  FileUpdate update(workspace.dataFolder);
  update.writeAt(data("HSZS/a"), 0, std::as_bytes(std::span("x", 1)));
  std::filesystem::create_symlink(data("nowhere"), data("journal"));
  update.commit();
  EXPECT_EQ(read("precious"), "precious");
  EXPECT_FALSE(has("nowhere"));
  EXPECT_EQ(read("HSZS/a"), "x");
}

TEST_F(SaveJournalTest, OneOfFortyGigabytesIsNotReadThrough) {
  // Head, index and sizes agree; between them lies a hole that takes no space, of twenty pieces as large as a file can
  // be. To read it would take minutes.
  constexpr std::uint64_t kPiece = 0x7FFFFFFF, kPieces = 20;
  std::string index = int16Bytes(6) + std::string(1, '\0') + std::string("\x14\0\0\0", 4) + "HSZS/a";
  for (std::uint64_t i = 0; i < kPieces; ++i) index += std::string(8, '\0') + eightBytes(kPiece);
  const std::string head = "TXJRNL1\n" + eightBytes(index.size()) + eightBytes(kPieces * kPiece);
  write("journal", head + index);
  const std::uint64_t end = head.size() + index.size() + kPieces * kPiece;
  std::filesystem::resize_file(data("journal"), end);
  const std::string foot = std::string(8, '\0') + "ENDTXJ1\n";
  File(data("journal"), File::Mode::Update).writeAt(end, std::as_bytes(std::span(foot)));
  const auto begin = std::chrono::steady_clock::now();
  recover();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_FALSE(has("journal"));
  EXPECT_FALSE(has("HSZS/a"));
}

TEST_F(SaveJournalTest, ADataFolderThatIsGoneHasNone) {
  std::filesystem::remove_all(workspace.dataFolder);
  recover();
  EXPECT_FALSE(std::filesystem::exists(workspace.dataFolder));
}

}  // namespace
}  // namespace triaxlab::testing
