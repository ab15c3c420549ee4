// Databases of the Windows edition with bytes that are not what they were: each ends in an import or in a sentence, in
// this process, which goes on. TRIAXLAB_DAMAGED_FILES sets how many are tried.
#include <cstdlib>
#include <ostream>
#include <random>

#include "importers/import_fixture.h"

namespace triaxlab::testing {
namespace {

class Damage {
 public:
  explicit Damage(std::uint32_t seed) : m_random(seed) {}

  /// A few bytes, a run of them or a page, changed, copied from elsewhere or cut off.
  std::string operator()(std::string bytes) {
    constexpr std::size_t kPage = 4096, kRun = 64;
    switch (below(5)) {
      case 0:
        for (std::size_t i = below(8) + 1; i > 0; --i) bytes[below(bytes.size())] = static_cast<char>(below(256));
        break;
      case 1:
        for (std::size_t at = below(bytes.size() - kRun), i = 0; i < kRun; ++i)
          bytes[at + i] = static_cast<char>(below(256));
        break;
      case 2:
        bytes.replace(below(bytes.size() / kPage) * kPage, kPage, kPage, static_cast<char>(below(2) * 0xFF));
        break;
      case 3:
        bytes.replace(below(bytes.size() / kPage) * kPage, kPage,
                      bytes.substr(below(bytes.size() / kPage) * kPage, kPage));
        break;
      default:
        // The heads of pages: kinds, owners, counts and places of rows.
        for (std::size_t i = below(4) + 1; i > 0; --i)
          bytes[below(bytes.size() / kPage) * kPage + below(kRun)] = static_cast<char>(below(256));
    }
    if (below(20) == 0) bytes.resize(below(bytes.size()));
    return bytes;
  }

 private:
  std::size_t below(std::size_t limit) { return m_random() % limit; }
  std::mt19937 m_random;
};

std::string sampleFile(const char* name) {
  const Bytes bytes = readWholeFile(std::filesystem::path(TRIAXLAB_SAMPLES) / name, 10'000'000);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

int filesToTry() {
  const char* const asked = std::getenv("TRIAXLAB_DAMAGED_FILES");
  return asked != nullptr ? std::max(1, static_cast<int>(ParseNumber(asked))) : 200;
}

struct Source {
  const char *id, *text, *date;  // its databases, one with times as texts, one as dates
  int share;                     // of the files to try
};

/// Gives the cases readable names.
void PrintTo(const Source& source, std::ostream* out) { *out << source.id; }

class DamagedJet : public ImportTest, public ::testing::WithParamInterface<Source> {
 protected:
  /// What an import changes at the least; the whole table would be compared longer than the files are read.
  std::string state() const {
    const auto bytesOfRows = [](const auto& table) {
      constexpr std::size_t kRows = 8;
      return std::string(reinterpret_cast<const char*>(table.used().data()), kRows * sizeof(table[0]));
    };
    const std::string dates(reinterpret_cast<const char*>(&workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable),
                            sizeof(ProjectDate));
    return dates + bytesOfRows(workspace.TriaxialSampleTable) + bytesOfRows(workspace.UnconfinedSampleTable) +
           (workspace.dataOf(ProjectKind::Triaxial).rawImportPending ? "pending" : "");
  }
};

TEST_P(DamagedJet, EndsInAnImportOrASentence) {
  const auto& [source, textFile, dateFile, share] = GetParam();
  const std::string text = sampleFile(textFile), date = sampleFile(dateFile);
  int imports = 0, sentences = 0, crashes = 0;
  for (int file = 0; file < filesToTry() / share; ++file) {
    const std::string name = "D" + std::to_string(file) + ".dat";
    const auto path = folder.write(name, Damage(static_cast<std::uint32_t>(file))(file % 2 == 0 ? text : date));
    SetText(workspace.TriaxialSampleTable[7].sampleNo, name);
    SetText(workspace.UnconfinedSampleTable[7].sampleNo, name);
    workspace.dataOf(ProjectKind::Triaxial).rawImportPending = false;
    const std::string before = state();
    try {
      EXPECT_LE(importPath(path, source).sampleRows, kTableRows) << name;
      ++imports;
    } catch (const UserError& error) {
      const std::string sentence = error.what();
      EXPECT_NE(sentence.find(name), std::string::npos) << sentence;
      EXPECT_TRUE(state() == before) << name;
      sentence.find("已损坏，不能读出") == std::string::npos ? ++sentences : ++crashes;
    }
    std::filesystem::remove(path);
  }
  RecordProperty("imports", imports);
  RecordProperty("sentences", sentences);
  RecordProperty("crashes", crashes);
  EXPECT_GT(imports, 0);
  EXPECT_GT(sentences, 0);
}
INSTANTIATE_TEST_SUITE_P(Windows, DamagedJet,
                         ::testing::Values(Source{"win", "SZData.dat", "SZ1.DATX", 1},
                                           Source{"unconfined-win", "WCX.dat", "WCX1.DATX", 4}));

}  // namespace
}  // namespace triaxlab::testing
