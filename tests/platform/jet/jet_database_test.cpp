#include "platform/jet_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/user_error.h"
#include "support/jet_builder.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::vector<std::string> textsOf(const JetRows& rows, std::string_view column) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < rows.count(); ++i) texts.push_back(rows.at(i, column).text());
  return texts;
}

/// The sentence with which opening is refused.
template <class Open>
std::string refusal(const Open& open) {
  try {
    open();
  } catch (const UserError& error) {
    return error.what();
  }
  return "not refused";
}

constexpr std::array<std::string_view, 3> kColumns{"ID", "GCBH", "V"};
constexpr std::array kTables{JetTable{"T", kColumns}};
constexpr std::array<std::string_view, 2> kOrder{"ID", "V"};
constexpr std::array kOrderedTables{JetTable{"T", kColumns, kOrder}};

/// A table T of a number, a text and a value of a kind to be chosen.
JetBuilder builderOf(Jet version, const std::vector<JetRow>& rows, JetKind kind = JetKind::Double) {
  return JetBuilder(version).table("T", {{"ID", JetKind::Long}, {"GCBH", JetKind::Text}, {"V", kind}}, rows);
}

class Formats : public ::testing::TestWithParam<Jet> {
 protected:
  JetDatabase open(const std::vector<JetRow>& rows, JetKind kind = JetKind::Double,
                   std::span<const JetTable> tables = kTables) {
    return {folder.write("T.dat", builderOf(GetParam(), rows, kind).bytes()), tables};
  }
  /// The value of the only row.
  JetValue only(JetKind kind, const JetCell& cell) {
    return open({{1.0, "A", cell}}, kind).run("select  * from T").at(0, "V");
  }
  TemporaryFolder folder;
};

INSTANTIATE_TEST_SUITE_P(Jet, Formats, ::testing::Values(Jet::Three, Jet::Four),
                         [](const auto& version) { return version.param == Jet::Three ? "Three" : "Four"; });

TEST_P(Formats, RowsComeInStoredOrder) {
  const JetDatabase database = open({{3.0, "C", 0.5}, {1.0, "A", 1.5}, {2.0, "B", 2.5}});
  const JetRows rows = database.run("select  * from T");
  EXPECT_EQ(rows.count(), 3U);
  EXPECT_THAT(textsOf(rows, "ID"), ElementsAre("3", "1", "2"));
  EXPECT_THAT(textsOf(rows, "V"), ElementsAre("0.5", "1.5", "2.5"));
  EXPECT_EQ(rows.at(1, "V").number(), 1.5);
  EXPECT_EQ(rows.column("gcbh"), 1U) << "names in any case";
}

TEST_P(Formats, MoreRowsThanAPageHolds) {
  std::vector<JetRow> many;
  for (int i = 0; i < 1000; ++i) many.push_back({double(i), "行" + std::to_string(i), i / 4.0});
  const JetRows rows = open(many).run("select  * from T");
  ASSERT_EQ(rows.count(), 1000U);
  for (std::size_t i = 0; i < 1000; ++i) {
    EXPECT_EQ(rows.at(i, "ID").number(), static_cast<double>(i));
    EXPECT_EQ(rows.at(i, "GCBH").text(), "行" + std::to_string(i));
    EXPECT_EQ(rows.at(i, "V").number(), static_cast<double>(i) / 4);
  }
}

TEST_P(Formats, ChineseAndEmptyTexts) {
  const JetRows rows = open({{1.0, "滨江路 A", 0.0}, {2.0, "", 0.0}, {3.0, {}, 0.0}}).run("select  * from T");
  EXPECT_THAT(textsOf(rows, "GCBH"), ElementsAre("滨江路 A", "", ""));
  EXPECT_FALSE(rows.at(0, "GCBH").isNull());
  EXPECT_TRUE(rows.at(2, "GCBH").isNull());
}

TEST_P(Formats, NumbersOfEveryKind) {
  EXPECT_EQ(only(JetKind::Byte, 200.0).number(), 200);
  EXPECT_EQ(only(JetKind::Short, -30000.0).number(), -30000);
  EXPECT_EQ(only(JetKind::Long, -2000000000.0).number(), -2e9);
  EXPECT_EQ(only(JetKind::Money, -12.3456).number(), -12.3456);
  EXPECT_EQ(only(JetKind::YesNo, 1.0).number(), -1);
  EXPECT_EQ(only(JetKind::YesNo, 0.0).number(), 0);
  // To the last bit, which the text of 15 digits doesn't tell.
  EXPECT_EQ(only(JetKind::Double, 90.04).number(), 90.04);
  EXPECT_EQ(only(JetKind::Double, 0.1 + 0.2).number(), 0.1 + 0.2);
}

TEST_P(Formats, ASingleHasTheTextOfSevenDigits) {
  const JetValue value = only(JetKind::Single, 0.2);
  EXPECT_EQ(value.number(), static_cast<double>(0.2F));
  EXPECT_EQ(value.decimal(), 0.2);
  EXPECT_EQ(value.text(), "0.2");
  EXPECT_EQ(only(JetKind::Double, 8.0).text(), "8");
}

TEST_P(Formats, NullsAreNoNumbers) {
  for (const JetKind kind : {JetKind::Long, JetKind::Double, JetKind::Single, JetKind::Date}) {
    const JetValue value = only(kind, {});
    EXPECT_TRUE(value.isNull());
    EXPECT_EQ(value.number(), std::nullopt);
    EXPECT_EQ(value.text(), "");
  }
}

// Day 43954 is 2020-05-03: 43831 is 2020-01-01, and 31 + 29 + 31 + 30 + 2 = 123 days later.
TEST_P(Formats, DatesAreTexts) {
  EXPECT_EQ(only(JetKind::Date, 43954.0).text(), "2020-05-03 00:00:00");
  EXPECT_EQ(only(JetKind::Date, 43954 + 33330 / 86400.0).text(), "2020-05-03 09:15:30");
  EXPECT_EQ(only(JetKind::Date, 43954.9999999).text(), "2020-05-04 00:00:00") << "to the nearest second";
  EXPECT_EQ(only(JetKind::Date, -1.25).text(), "1899-12-29 06:00:00");
}

// ---- queries

TEST_P(Formats, DistinctTextsAscend) {
  const JetDatabase database =
      open({{1.0, "b", 0.0}, {2.0, "a", 0.0}, {3.0, "b", 0.0}, {4.0, "B", 0.0}, {5.0, "A-10", 0.0}, {6.0, "A-9", 0.0}});
  EXPECT_THAT(textsOf(database.run("select distinct GCBH from T"), "GCBH"), ElementsAre("A-10", "A-9", "B", "a", "b"));
}

TEST_P(Formats, AnApostropheIsData) {
  const JetDatabase database = open({{1.0, "O'Neil", 0.0}, {2.0, "x' or '1'='1", 0.0}, {3.0, "ONeil", 0.0}});
  const auto idsOf = [&](std::string_view number) {
    return textsOf(database.run("select  * from T where  GCBH= '" + JetDatabase::quoted(number) + "'"), "ID");
  };
  EXPECT_THAT(idsOf("O'Neil"), ElementsAre("1"));
  EXPECT_THAT(idsOf("x' or '1'='1"), ElementsAre("2"));
  EXPECT_THAT(idsOf("oneil"), ElementsAre()) << "texts compare exactly";
}

TEST_P(Formats, SortsByABracketedNameAndKeepsTheOrderOfEqualRows) {
  const std::vector<JetRow> stored{{2.0, "d", 1.0}, {1.0, "b", 2.0}, {1.0, "c", 1.0}, {1.0, "a", 2.0}, {1.0, "e", {}}};
  for (const auto& tables : {kTables, kOrderedTables})
    EXPECT_THAT(textsOf(open(stored, JetKind::Double, tables).run("select  * from T where ID=1 order by [v]"), "GCBH"),
                ElementsAre("e", "c", "b", "a"));
}

TEST_P(Formats, AKeyMayBeANumberATextOrNothing) {
  const JetDatabase database = open({{12.0, "12", 0.0}, {13.0, "x'y", 0.0}, {{}, {}, 0.0}});
  const JetRows rows = database.run("select  * from T");
  EXPECT_EQ(JetDatabase::literal(rows.at(0, "ID")), "12");
  EXPECT_EQ(JetDatabase::literal(rows.at(1, "GCBH")), "'x''y'");
  EXPECT_EQ(database.run("select  * from T where ID=" + JetDatabase::literal(rows.at(2, "ID"))).count(), 0U);
}

// ---- what can't be read whole

TEST_P(Formats, AMissingTableIsNamed) {
  const auto file = folder.write("T.dat", JetBuilder(GetParam()).table("U", {{"ID", JetKind::Long}}, {}).bytes());
  const std::string sentence = refusal([&] { JetDatabase(file, kTables); });
  EXPECT_THAT(sentence, HasSubstr("T.dat"));
  EXPECT_THAT(sentence, HasSubstr("没有表“T”"));
}

TEST_P(Formats, AMissingColumnIsNamed) {
  const auto file = folder.write(
      "T.dat", JetBuilder(GetParam()).table("T", {{"id", JetKind::Long}, {"GCBH", JetKind::Text}}, {}).bytes());
  EXPECT_THAT(refusal([&] { JetDatabase(file, kTables); }), HasSubstr("没有列“V”")) << "id is there, in its case";
}

TEST_P(Formats, FewerRowsThanTheTableSaysAreRefused) {
  const std::vector<JetColumnSpec> columns{{"ID", JetKind::Long}, {"GCBH", JetKind::Text}, {"V", JetKind::Double}};
  const std::vector<JetRow> rows{{1.0, "A", 0.0}, {2.0, "B", 0.0}};
  const auto openClaiming = [&](std::uint32_t claimed) {
    return [&, claimed] {
      const auto file = folder.write("T.dat", JetBuilder(GetParam()).table("T", columns, rows, claimed).bytes());
      EXPECT_EQ(JetDatabase(file, kTables).run("select  * from T").count(), 2U);
    };
  };
  EXPECT_THAT(refusal(openClaiming(3)), HasSubstr("应有3行，只读出2行"));
  EXPECT_EQ(refusal(openClaiming(2)), "not refused");
  EXPECT_EQ(refusal(openClaiming(0)), "not refused") << "the controller was switched off";
}

TEST_P(Formats, EveryShorterFileIsRefused) {
  const std::string whole = builderOf(GetParam(), {{1.0, "A", 0.5}}).bytes();
  for (std::size_t size = 0; size < whole.size(); size += 509) {
    const auto file = folder.write("T.dat", whole.substr(0, size));
    EXPECT_THAT(refusal([&] { JetDatabase(file, kTables); }), HasSubstr("T.dat")) << size;
  }
}

TEST_P(Formats, ADateBeyondTheCalendarIsDamage) {
  EXPECT_THAT(refusal([&] { only(JetKind::Date, 1e300); }), HasSubstr("列“V”中有损坏的内容"));
  EXPECT_THAT(refusal([&] { only(JetKind::Double, std::nan("")); }), HasSubstr("列“V”中有损坏的内容"));
}

TEST(JetDatabase, WhatIsNoDatabaseIsRefused) {
  const TemporaryFolder folder;
  const auto refused = [&](const std::filesystem::path& file) { return refusal([&] { JetDatabase(file, kTables); }); };
  EXPECT_THAT(refused(folder.write("a.dat", "")), HasSubstr("a.dat"));
  EXPECT_THAT(refused(folder.write("b.dat", std::string(5000, 'x'))), HasSubstr("不是这种数据库"));
  EXPECT_THAT(refused(folder / "missing.dat"), HasSubstr("missing.dat"));
  EXPECT_NE(refused(folder.path()), "not refused");
}

// ---- the reading process

class Reader : public ::testing::Test {
 protected:
  /// A reader that does what the shell script says.
  std::string refusalOf(const std::string& script, std::chrono::milliseconds time = std::chrono::seconds(20)) {
    const auto program = folder.write("reader", "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const auto file = folder.write("T.dat", builderOf(Jet::Four, {{1.0, "A", 0.5}}).bytes());
    return refusal([&] { JetDatabase(file, kTables, {program, time, std::size_t{1} << 20}); });
  }
  TemporaryFolder folder;
};

TEST_F(Reader, ACrashIsADamagedFile) { EXPECT_THAT(refusalOf("kill -SEGV $$"), HasSubstr("T.dat”已损坏")); }

TEST_F(Reader, AFailureIsADamagedFile) { EXPECT_THAT(refusalOf("printf E; exit 3"), HasSubstr("T.dat”已损坏")); }

TEST_F(Reader, AnEndlessLoopIsStopped) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT(refusalOf("while :; do :; done", std::chrono::milliseconds(300)), HasSubstr("没有读完"));
  // Also one that has closed its output.
  EXPECT_THAT(refusalOf("exec >&-; while :; do :; done", std::chrono::milliseconds(300)), HasSubstr("没有读完"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_F(Reader, EndlessOutputIsStopped) { EXPECT_THAT(refusalOf("exec cat /dev/zero"), HasSubstr("数据太多")); }

TEST_F(Reader, NonsenseIsRefused) {
  for (const char* const stream :
       {"", "T", "E", "X", "hello", "T\\001\\001\\001R", "T\\001\\001\\001R\\000\\000\\000", "T\\011\\001\\001E",
        "T\\001\\001\\001R\\003\\377\\377\\377\\377", "T\\001\\001\\001EE", "T\\001\\001\\001R\\000\\011\\000E"})
    EXPECT_THAT(refusalOf(std::string("printf '") + stream + "'"), HasSubstr("T.dat")) << stream;
  EXPECT_EQ(refusalOf("printf 'T\\001\\001\\001R\\000\\000\\000E'"), "not refused") << "a table with a row of nulls";
}

TEST_F(Reader, AMissingReaderIsNamed) {
  const auto file = folder.write("T.dat", builderOf(Jet::Four, {}).bytes());
  EXPECT_THAT(refusal([&] { JetDatabase(file, kTables, {folder / "nowhere"}); }), HasSubstr("nowhere"));
}

}  // namespace
}  // namespace triaxlab::testing
