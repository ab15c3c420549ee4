#include "store/settings/text_edit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "common/gbk.h"
#include "common/user_error.h"
#include "store/settings/text_settings.h"

namespace triaxlab {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
const std::optional<std::string> kOn = "", kOff, kUsual;

std::string gbk(std::string_view utf8) { return utf8ToGbkExactly(utf8).value(); }

const TextKey& keyOf(const TextFile& file, std::string_view name) {
  const auto key = std::ranges::find(file.keys, name, &TextKey::key);
  if (key == file.keys.end()) throw std::out_of_range(std::string(name));
  return *key;
}

/// The content of a GBK file after a change, as UTF-8.
std::string changed(const TextFile& file, std::string_view utf8, std::string_view key,
                    const std::optional<std::string>& value) {
  return gbkToUtf8(withValue(file, gbk(utf8), keyOf(file, key), value));
}
std::string habits(std::string_view utf8, std::string_view key, const std::optional<std::string>& value) {
  return changed(kHabitsFile, utf8, key, value);
}
std::string labels(std::string_view utf8, std::string_view key, const std::optional<std::string>& value) {
  return changed(kListLabelsFile, utf8, key, value);
}
std::string chart(std::string_view utf8, std::string_view key, const std::optional<std::string>& value) {
  return changed(kChartFile, utf8, key, value);
}

// ---- Where a value goes

TEST(TextEdit, AFileThatIsNotThereBeginsWithTheKey) {
  EXPECT_EQ(habits("", "[三轴打印探井号]", kOn), "[三轴打印探井号]\r\n");
  EXPECT_EQ(habits("", "[无侧限最大应变]", "30"), "[无侧限最大应变]30\r\n");
  EXPECT_EQ(habits("", "[工程编号]", "合同号"), "[工程编号]=[合同号]\r\n");
  EXPECT_EQ(labels("", "[土样编号]=", "室内编号"), "[土样编号]=[室内编号]\r\n");
  EXPECT_EQ(chart("", "[05", "城建土工试验室"), "[05城建土工试验室]\r\n");
  EXPECT_EQ(chart("", "[上边距]", "20"), "[上边距]20\r\n");
}

TEST(TextEdit, ANewKeyComesBehindTheLastLineWithTheFilesLineEnd) {
  EXPECT_EQ(habits("; 习惯\n[三轴C]2\n", "[三轴打印探井号]", kOn), "; 习惯\n[三轴C]2\n[三轴打印探井号]\n");
  EXPECT_EQ(habits("; 习惯\r\n[三轴C]2", "[三轴打印探井号]", kOn), "; 习惯\r\n[三轴C]2\r\n[三轴打印探井号]\r\n");
}

TEST(TextEdit, ANewKeyComesInFrontOfTheByteThatEndsTheFile) {
  EXPECT_EQ(habits("[三轴C]2\r\n\x1A[三轴打印探井号]\r\n", "[三轴打印探井号]", kOn),
            "[三轴C]2\r\n[三轴打印探井号]\r\n\x1A[三轴打印探井号]\r\n");
}

TEST(TextEdit, AValueGoesWhereThePresentOneStands) {
  EXPECT_EQ(habits("a\n  [无侧限最大应变]  22 %  ;旧\nb", "[无侧限最大应变]", "30"),
            "a\n  [无侧限最大应变]  30 %  ;旧\nb");
  EXPECT_EQ(habits("[工程编号] = [  合同号 ] 甲方要求\r\n", "[工程编号]", "委托号"),
            "[工程编号] = [  委托号 ] 甲方要求\r\n");
  EXPECT_EQ(labels("[土样编号]=[甲]\n[钻孔号]=[乙]\n", "[钻孔号]=", "孔号"), "[土样编号]=[甲]\n[钻孔号]=[孔号]\n");
  EXPECT_EQ(chart("[01标题]\n [06 审核:]尾\n", "[06", "批准:"), "[01标题]\n [06批准:]尾\n");
  EXPECT_EQ(chart("[06审核:\n", "[06", "批准: "), "[06批准: ]\n") << "the bracket that was missing keeps the blank";
}

TEST(TextEdit, AnEqualsSignThatSpoilsANumberGoes) {
  EXPECT_EQ(habits("[无侧限最大应变]=30\n", "[无侧限最大应变]", "30"), "[无侧限最大应变]30\n");
}

TEST(TextEdit, ATextWithoutBracketsGetsThem) {
  EXPECT_EQ(habits("[第页] 第一页\n", "[第页]", "页码:"), "[第页]=[页码:] 第一页\n");
}

TEST(TextEdit, OfAKeyWrittenTwiceTheLineThatCountsIsChanged) {
  EXPECT_EQ(habits("[三轴C]1\n[三轴C]3\n", "[三轴C]", "2"), "[三轴C]1\n[三轴C]2\n");
  EXPECT_EQ(labels("[土样编号]=[甲]\n[土样编号]=[乙]\n", "[土样编号]=", "丙"), "[土样编号]=[丙]\n[土样编号]=[乙]\n");
}

TEST(TextEdit, AValueThatHoldsAlreadyChangesNothing) {
  EXPECT_EQ(habits("x [三轴C]2.2 y", "[三轴C]", "2"), "x [三轴C]2.2 y");
  EXPECT_EQ(habits("[三轴打印探井号]=0", "[三轴打印探井号]", kOn), "[三轴打印探井号]=0");
  EXPECT_EQ(habits(";[三轴打印探井号]", "[三轴打印探井号]", kOff), ";[三轴打印探井号]");
}

TEST(TextEdit, AKeyThatWasCommentedOutComesBackInItsLine) {
  EXPECT_EQ(habits("甲\n ;[三轴打印探井号]\n乙\n", "[三轴打印探井号]", kOn), "甲\n [三轴打印探井号]\n乙\n");
  EXPECT_EQ(habits(";[三轴C] 1\n", "[三轴C]", "3"), "[三轴C] 3\n");
  EXPECT_EQ(habits("; [工程编号]=[甲]\n", "[工程编号]", "乙"), " [工程编号]=[乙]\n");
  EXPECT_EQ(chart("'[06甲]\n", "[06", "乙"), "[06乙]\n");
}

TEST(TextEdit, ACommentThatSaysMoreThanTheKeyStays) {
  EXPECT_EQ(habits("; [三轴打印探井号] 打开时印探井\n", "[三轴打印探井号]", kOn),
            "; [三轴打印探井号] 打开时印探井\n[三轴打印探井号]\n");
  EXPECT_EQ(habits("; 例: [三轴C]2\n", "[三轴C]", "3"), "; 例: [三轴C]2\n[三轴C]3\n");
}

// ---- A key goes

TEST(TextEdit, AKeyWithoutValueBecomesAComment) {
  EXPECT_EQ(habits("甲\n[三轴打印探井号] 张工\n乙", "[三轴打印探井号]", kOff), "甲\n;[三轴打印探井号] 张工\n乙");
  EXPECT_EQ(habits("[工程编号]=[合同号]\n", "[工程编号]", kUsual), ";[工程编号]=[合同号]\n");
  EXPECT_EQ(habits("[工程编号]=[合同号]\n", "[工程编号]", "  "), ";[工程编号]=[合同号]\n") << "an empty text is none";
  EXPECT_EQ(chart("[06甲]\n", "[06", kUsual), ";[06甲]\n");
}

TEST(TextEdit, AKeyGoesFromAllLines) {
  EXPECT_EQ(labels("[钻孔号]=[甲]\n[钻孔号]=[乙]\n", "[钻孔号]=", kUsual), ";[钻孔号]=[甲]\n;[钻孔号]=[乙]\n");
}

TEST(TextEdit, OutOfALineOfSeveralKeysOneIsCut) {
  EXPECT_EQ(habits("[三轴打印探井号] [三轴不打印试验日期] [三轴C]3\n", "[三轴不打印试验日期]", kOff),
            "[三轴打印探井号]  [三轴C]3\n");
  EXPECT_EQ(habits("[三轴C]3 [工程编号]=[合同号] [三轴打印探井号]", "[工程编号]", kUsual),
            "[三轴C]3  [三轴打印探井号]");
}

TEST(TextEdit, OnAndOffAgainIsTheFileThatWas) {
  const std::string file = "; 习惯\r\n;[三轴打印探井号]\r\n[三轴C]2\r\n";
  const std::string on = habits(file, "[三轴打印探井号]", kOn);
  EXPECT_EQ(on, "; 习惯\r\n[三轴打印探井号]\r\n[三轴C]2\r\n");
  EXPECT_EQ(habits(on, "[三轴打印探井号]", kOff), file);
}

TEST(TextEdit, AnEmptyNumberedTextIsAText) {
  EXPECT_EQ(chart("[08日期]\n", "[08", ""), "[08]\n");
  EXPECT_EQ(chart("", "[08", ""), "[08]\r\n");
}

// ---- Other keys mean what they meant

TEST(TextEdit, AValueThatIsAnothersKeyIsLeftAlone) {
  EXPECT_EQ(habits("[三轴表格编号] [三轴打印探井号]\n", "[三轴表格编号]", "QR-07"),
            "[三轴表格编号] [三轴打印探井号]\n[三轴表格编号]=[QR-07]\n");
}

TEST(TextEdit, AKeyThatCannotBePartedFromAnotherIsRefused) {
  const auto off = [] { return habits("[三轴表格编号] [三轴打印探井号]\n", "[三轴打印探井号]", kOff); };
  try {
    off();
    FAIL() << off();
  } catch (const UserError& error) {
    EXPECT_STREQ(error.what(), "zmqvb.ini 里 [三轴打印探井号] 和别的关键字写在一起，不能单独去掉，请用文本编辑器改。");
  }
}

TEST(TextEdit, ATextThatWouldBeReadAsAKeyIsRefused) {
  EXPECT_THROW(habits("", "[工程编号]", "[三轴打印探井号]"), UserError);
  EXPECT_THROW(chart("", "[06", "甲]乙"), UserError);
  EXPECT_EQ(chart("", "[06", "甲[乙"), "[06甲[乙]\r\n");
}

TEST(TextEdit, NumbersOutsideTheirLimitsAreRefused) {
  for (const char* const wrong : {"9", "51", "2.5", "=30", "三十", "30 %", "99999"})
    EXPECT_THROW(habits("", "[无侧限最大应变]", wrong), UserError) << wrong;
  for (const char* const right : {"10", "50", " 30 "}) EXPECT_NO_THROW(habits("", "[无侧限最大应变]", right)) << right;
  EXPECT_THROW(chart("", "[上边距]", "4"), UserError);
  EXPECT_NO_THROW(chart("", "[上边距]", "5"));
}

// ---- Encodings, and bytes that are no text

TEST(TextEdit, ItsEncodingStays) {
  const TextKey& key = keyOf(kHabitsFile, "[工程编号]");
  const std::string text = "[工程编号]=[甲]\n; 注\n", wanted = "[工程编号]=[合同号]\n; 注\n";
  EXPECT_EQ(withValue(kHabitsFile, gbk(text), key, "合同号"), gbk(wanted));
  EXPECT_EQ(withValue(kHabitsFile, text, key, "合同号"), wanted) << "UTF-8 without a mark";
  const std::string mark(kUtf8Mark);
  EXPECT_EQ(withValue(kHabitsFile, mark + text, key, "合同号"), mark + wanted);
  EXPECT_EQ(withValue(kHabitsFile, mark, key, "合同号"), mark + "[工程编号]=[合同号]\r\n");
}

TEST(TextEdit, ATextThatGbkLacksIsRefusedInAGbkFileAlone) {
  const TextKey& key = keyOf(kHabitsFile, "[工程编号]");
  EXPECT_THROW(withValue(kHabitsFile, gbk("[工程编号]=[甲]"), key, "\xF0\x9F\x98\x80"), UserError);
  EXPECT_EQ(withValue(kHabitsFile, "[工程编号]=[甲]", key, "\xF0\x9F\x98\x80"), "[工程编号]=[\xF0\x9F\x98\x80]");
}

TEST(TextEdit, BytesThatAreNoTextStayAsTheyAre) {
  const std::string odd = "\xFF\x80 \x81";
  const TextKey& key = keyOf(kHabitsFile, "[三轴C]");
  const std::string in = odd + "\n" + odd + gbk("乕[三轴C]1") + odd + "\r\n" + odd;
  const std::string out = odd + "\n" + odd + gbk("乕[三轴C]4") + odd + "\r\n" + odd;
  EXPECT_EQ(withValue(kHabitsFile, in, key, "4"), out);
}

// ---- Every key

TEST(TextEdit, EveryKeyCanBeSetAndTakenBackInAFileOfAllOthers) {
  for (const TextFile* const file : textFiles()) {
    std::string all = "; all\r\n";
    for (const TextKey& key : file->keys) {
      const auto limits = limitsOf(key);
      const std::string value = limits ? std::to_string(limits->most) : "X";
      const bool isFlag = std::holds_alternative<FlagValue>(key.value);
      all = withValue(*file, all, key, isFlag ? "" : value);
      EXPECT_EQ(textValues(*file, all)[static_cast<std::size_t>(&key - file->keys.data())], isFlag ? "" : value)
          << key.key;
    }
    for (const std::optional<std::string>& value : textValues(*file, all)) EXPECT_TRUE(value.has_value());
    for (const TextKey& key : file->keys) all = withValue(*file, all, key, kUsual);
    EXPECT_EQ(textValues(*file, all), TextValues(file->keys.size()));
  }
}

}  // namespace
}  // namespace triaxlab
