#include <gtest/gtest.h>

#include <clocale>
#include <iomanip>
#include <locale>
#include <sstream>
#include <string>

#include "common/date.h"
#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/text_number.h"

namespace triaxlab {
namespace {

class CommaNumbers : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

/// As on a machine where numbers are written 1.234,5: the C++ library in any case, the C library if the machine has
/// such a locale.
class CommaLocale : public testing::Test {
 protected:
  CommaLocale() {
    std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
    for (const char* const name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8", "ru_RU.utf8", "de_DE"})
      if (std::setlocale(LC_ALL, name) != nullptr) break;
  }
  ~CommaLocale() override {
    std::setlocale(LC_ALL, "C");
    std::locale::global(std::locale::classic());
  }
};

TEST_F(CommaLocale, IsInForce) {
  std::ostringstream stream;
  stream << std::fixed << std::setprecision(1) << 1234.5;
  EXPECT_EQ(stream.str(), "1.234,5");
}

TEST_F(CommaLocale, NumbersKeepTheirPoint) {
  EXPECT_EQ(FormatNumber(1234.5, NumberFormat::Hundredths), "1234.50");
  EXPECT_EQ(FormatNumber(1e12 + 0.25, NumberFormat::Tenths), "1000000000000.3");  // the slow road
  EXPECT_EQ(FormatNumber(0.125, NumberFormat::Hundredths), "0.13");
  EXPECT_EQ(FormatNumber(1234.5F, NumberFormat::Tenths), "1234.5");
  EXPECT_EQ(PlainNumber(1234.5), "1234.5");
  EXPECT_EQ(FormatPadded(1234, 6), "001234");
  EXPECT_EQ(ParseNumber("1234.5"), 1234.5);
  EXPECT_EQ(ParseNumber("1234,5"), 1234);
  EXPECT_EQ(ParseNumber("1234567890.1234567890123"), 1234567890.1234567890123);  // the slow road
  EXPECT_EQ(ThroughSevenDigits(0.2F), 0.2);
}

TEST_F(CommaLocale, TextsAndDatesAsWell) {
  FixedText<6> field;
  SetNumber(field, 12.345, NumberFormat::Hundredths);
  EXPECT_EQ(field.view(), "12.35 ");
  EXPECT_EQ(slashed({2024, 6, 1}), "2024/06/01");
  EXPECT_EQ(gbkToUtf8("\xB0\xA1"), "啊");
  EXPECT_EQ(utf8ToGbk("啊"), "\xB0\xA1");
}

}  // namespace
}  // namespace triaxlab
