#include "triaxial/method_names.h"

#include <gtest/gtest.h>

#include "triaxial/samples.h"

namespace triaxlab {
namespace {

struct Names {
  TestMethod method;
  const char *abbreviation, *caption, *test, *brief;
};
constexpr Names kExpected[] = {{kUU, "UU", "不固结不排水剪(UU)", "不固结不排水试验", "不固结不排水UU"},
                               {kCU, "CU", "固结不排水剪(CU)", "固结不排水试验", "固结不排水CU"},
                               {kCD, "CD", "固结排水剪(CD)", "固结排水试验", "固结排水CD"}};

TEST(MethodNames, OfTheThreeMethods) {
  for (const Names& names : kExpected) {
    for (const int single : {0, 1, 4}) {
      const TriaxialSampleRecord record = tests::sampleOf(names.method, static_cast<std::uint8_t>(single));
      EXPECT_EQ(methodNames(record).abbreviation, names.abbreviation);
      EXPECT_EQ(methodNames(record).caption, names.caption);
      EXPECT_EQ(shearModeName(record), "多样剪");
      EXPECT_EQ(testName(record), names.test);
      EXPECT_EQ(briefTestName(record), names.brief);
      EXPECT_EQ(methodLine(record), std::string("(") + names.test);
    }
    for (const int multiStage : {2, 3}) {
      const TriaxialSampleRecord record = tests::sampleOf(names.method, static_cast<std::uint8_t>(multiStage));
      EXPECT_EQ(shearModeName(record), "多级剪");
      EXPECT_EQ(testName(record), std::string("多级") + names.test);
      EXPECT_EQ(briefTestName(record), std::string("多级") + names.brief);
      EXPECT_EQ(methodLine(record), std::string("(一个试样多级") + names.test);
    }
  }
}

TEST(MethodNames, OtherMethodsHaveNone) {
  TriaxialSampleRecord record;
  record.shearMode = 2;
  for (const int method : {0, 4, 255}) {
    record.testMethod = static_cast<std::uint8_t>(method);
    EXPECT_EQ(methodNames(record).abbreviation, "");
    EXPECT_EQ(methodNames(record).caption, "");
    EXPECT_EQ(testName(record), "");
    EXPECT_EQ(briefTestName(record), "");
    EXPECT_EQ(methodLine(record), "");
  }
}

}  // namespace
}  // namespace triaxlab
