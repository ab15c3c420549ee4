// A file of another source is refused by name before anything changes; one that may be damaged is read as far as it
// goes.
#include <array>
#include <span>
#include <utility>

#include "importers/import_fixture.h"
#include "importers/source_builders.h"
#include "importers/unconfined_builders.h"

namespace triaxlab::testing {
namespace {

struct SampleFile {
  std::string_view source;
  std::string_view title;
  std::string bytes;
};

std::string automaticFile() {
  const Specimen specimen{.testMethod = 1, .initialHeight = 800, .initialArea = 1200, .stress = {{1, 110}, {2, 120}}};
  return kuFile({olderEntry({{specimen, specimen}}), newerEntry({specimen})});
}

/// A whole file of each source, with specimens such as an apparatus takes.
std::vector<SampleFile> filesOfAllSources() {
  return {{"auto", "全自动三轴试验原始数据库", automaticFile()},
          {"qvb98", "QVB98三轴试验原始数据库", kuFile({qvbEntry({{QvbSpecimen{.dial = {{0, 100}}}}})})},
          {"new-qvb", "新QVB三轴试验原始数据库", kuFile({newQvbEntry({NewQvbSpecimen{.dial = {{1, 100}}}})})},
          {"manual", "人工三轴试验原始数据库", manualFile({{.count = 1}}, {ManualSpecimen{.stress = {{1, 100}}}})},
          {"nanjing", "南京三轴原始数据文件", NanjingBlock{.readings = {100, 200}}.bytes()},
          {"unconfined-kzj", "无侧限抗压强度试验原始数据库", kuFile({kzjEntry({{}, {}})})},
          {"unconfined-hwx", "新无侧限抗压强度试验原始数据库", kuFile({hwxEntry({{}, {.side = 0}})})}};
}

class Recognising : public ImportTest {
 protected:
  std::string refusalOf(std::string_view bytes, std::string_view source) {
    const ImportedState before(workspace);
    const std::string sentence = refusal(bytes, source);
    EXPECT_TRUE(sentence == "not refused" || ImportedState(workspace) == before);
    return sentence;
  }
};

TEST_F(Recognising, EachReaderTakesItsOwnFileAndNamesTheOwnerOfAnother) {
  for (const SampleFile& file : filesOfAllSources())
    for (const SampleFile& reader : filesOfAllSources()) {
      const std::string sentence = refusalOf(file.bytes, reader.source);
      if (file.source == reader.source)
        EXPECT_EQ(sentence, "not refused") << file.source;
      else
        EXPECT_EQ(sentence, "文件“" + (folder.path() / "HSZSJ.KU").string() + "”不是" + std::string(reader.title) +
                                "，看起来是" + std::string(file.title) + "，数据没有读入。请核对所选的数据来源和文件。")
            << file.source << " read as " << reader.source;
    }
}

TEST_F(Recognising, BothReadersOfAFileTakeIt) { EXPECT_EQ(refusalOf(automaticFile(), "auto-old"), "not refused"); }

TEST_F(Recognising, ADatabaseOfTheWindowsEditionIsKnownByItsHead) {
  const Bytes bytes = readWholeFile(std::filesystem::path(TRIAXLAB_SAMPLES) / "SZData.dat", 10'000'000);
  const std::string_view database(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  for (const std::string_view source : {"auto", "qvb98", "new-qvb", "manual", "nanjing"})
    EXPECT_NE(refusalOf(database, source).find("看起来是WIN版三轴试验原始数据库"), std::string::npos) << source;
  for (const SampleFile& file : filesOfAllSources())
    EXPECT_NE(refusalOf(file.bytes, "win").find("看起来是" + std::string(file.title)), std::string::npos)
        << file.source;
}

TEST_F(Recognising, WhatNoSourceKnowsIsRefusedWithoutAnOwner) {
  const std::string letter = "Dear colleague, the tests of this week are not finished yet; please wait until Monday.\n";
  EXPECT_EQ(refusalOf(letter, "auto"), "文件“" + (folder.path() / "HSZSJ.KU").string() +
                                           "”不是全自动三轴试验原始数据库，数据没有读入。请核对所选的数据来源和文件。");
}

TEST_F(Recognising, AnEmptyIndexIsNobodysAndEverybodys) {
  for (const std::string_view source : {"auto", "auto-old", "qvb98", "new-qvb"})
    for (const std::string& bytes : {std::string(), word(0), word(-5)})
      EXPECT_TRUE(openFile(bytes, source)->rows().empty()) << source;
}

TEST_F(Recognising, ACutFileIsStillReadByItsOwnReader) {
  for (const SampleFile& file : filesOfAllSources())
    for (std::size_t size = 0; size < file.bytes.size(); size += 53)
      EXPECT_EQ(refusalOf(std::string_view(file.bytes).substr(0, size), file.source), "not refused")
          << file.source << " " << size;
}

TEST_F(Recognising, OneWrongByteIsNoOtherSource) {
  for (const SampleFile& file : filesOfAllSources())
    for (std::size_t at = 0; at < std::min<std::size_t>(file.bytes.size(), 90); ++at) {
      std::string bytes = file.bytes;
      bytes[at] = static_cast<char>(~static_cast<unsigned char>(bytes[at]));
      EXPECT_EQ(refusalOf(bytes, file.source), "not refused") << file.source << " " << at;
    }
}

/// A demonstration database of each source of the other tests, and what the source is called.
constexpr std::array kFilesOfOtherTests{std::pair{"KZJSJ.KU", "无侧限抗压强度试验原始数据库"},
                                        std::pair{"HWXSJ.KU", "新无侧限抗压强度试验原始数据库"},
                                        std::pair{"KGJSJ.KU", "KO试验原始数据库"},
                                        std::pair{"HGJSJ.KU", "新KO试验原始数据库"},
                                        std::pair{"WCX.dat", "WIN版无侧限试验原始数据库"},
                                        std::pair{"tk0/HGJSJ.KU", "新KO试验原始数据库"}};

TEST_F(Recognising, ADatabaseOfAnotherTestIsRefusedByName) {
  for (const auto& [file, title] : kFilesOfOtherTests) {
    const Bytes bytes = readWholeFile(std::filesystem::path(TRIAXLAB_SAMPLES) / file, 1'000'000);
    const std::string_view database(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    for (const std::string_view reader : {"auto", "auto-old", "qvb98", "new-qvb", "manual", "nanjing", "win"})
      EXPECT_NE(refusalOf(database, reader).find("，看起来是" + std::string(title) + "，"), std::string::npos)
          << file << " read as " << reader << ": " << refusalOf(database, reader);
  }
}

TEST_F(Recognising, TheK0ReadersTakeTheirOwnDatabases) {
  workspace.sourceFolder = folder.path().string();
  const auto refusalOfSample = [&](const char* file, std::string_view reader) {
    const Bytes bytes = readWholeFile(std::filesystem::path(TRIAXLAB_SAMPLES) / file, 1'000'000);
    return refusal({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, reader);
  };
  for (const char* file : {"HGJSJ.KU", "tk0/HGJSJ.KU"})
    for (const char* reader : {"k0-hgj", "tk0-hgj"}) EXPECT_EQ(refusalOfSample(file, reader), "not refused");
  EXPECT_EQ(refusalOfSample("KGJSJ.KU", "k0-kgj"), "not refused");
  EXPECT_NE(refusalOfSample("HGJSJ.KU", "k0-kgj").find("看起来是新KO试验原始数据库"), std::string::npos);
  EXPECT_NE(refusalOfSample("KGJSJ.KU", "tk0-hgj").find("看起来是KO试验原始数据库"), std::string::npos);
  EXPECT_NE(refusalOfSample("HSZSJ.KU", "k0-hgj").find("看起来是全自动三轴试验原始数据库"), std::string::npos);
}

TEST_F(Recognising, NoSourceClaimsTheFileOfAnother) {
  for (const SampleFile& file : filesOfAllSources()) {
    const FileHead head(std::as_bytes(std::span(file.bytes)), file.bytes.size());
    for (const Importer* importer : importers()) {
      if (importer->title == file.title) continue;
      EXPECT_NE(importer->recognise(head), Recognition::Mine) << file.source << " by " << importer->id;
    }
  }
}

TEST_F(Recognising, EverySourceIsKnownByNameAndLayout) {
  for (const Importer* importer : importers()) {
    EXPECT_FALSE(importer->id.empty() || importer->title.empty());
    EXPECT_NE(importer->recognise, nullptr) << importer->id;
    EXPECT_NE(importer->open, nullptr) << importer->id;
  }
  EXPECT_EQ(importers().size(), 15U);
}

}  // namespace
}  // namespace triaxlab::testing
