#include "triaxial/method_names.h"

#include <array>

#include "triaxial/measures.h"

namespace triaxlab {
namespace {

constexpr std::array<MethodNames, 4> kMethods{{
    {},
    {"UU", "不固结不排水剪(UU)", "不固结不排水试验", "不固结不排水UU"},
    {"CU", "固结不排水剪(CU)", "固结不排水试验", "固结不排水CU"},
    {"CD", "固结排水剪(CD)", "固结排水试验", "固结排水CD"},
}};

/// Nothing for a method without a name, whatever would stand in front.
std::string named(std::uint8_t shearMode, std::string_view always, std::string_view ifMultiStage,
                  std::string_view name) {
  if (name.empty()) return {};
  std::string text(always);
  if (isMultiStage(shearMode)) text += ifMultiStage;
  return text.append(name);
}

}  // namespace

const MethodNames& methodNames(std::uint8_t testMethod) {
  return kMethods[testMethod < kMethods.size() ? testMethod : 0];
}

const MethodNames& methodNames(const TriaxialSampleRecord& record) { return methodNames(record.testMethod); }

std::string_view shearModeName(const TriaxialSampleRecord& record) {
  return isMultiStage(record) ? "多级剪" : "多样剪";
}

std::string testName(const TriaxialSampleRecord& record) {
  return named(record.shearMode, "", "多级", methodNames(record).test);
}

std::string briefTestName(const TriaxialSampleRecord& record) {
  return named(record.shearMode, "", "多级", methodNames(record).brief);
}

std::string methodLine(const TriaxialSampleRecord& record) { return methodLine(record.testMethod, record.shearMode); }

std::string methodLine(std::uint8_t testMethod, std::uint8_t shearMode) {
  return named(shearMode, "(", "一个试样多级", methodNames(testMethod).test);
}

}  // namespace triaxlab
