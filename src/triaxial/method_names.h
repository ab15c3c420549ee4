#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "triaxial/record.h"

namespace triaxlab {

/// What a test method is called, UTF-8. All are empty for a method that is none of the three.
struct MethodNames {
  std::string_view abbreviation;  // UU
  std::string_view caption;       // 不固结不排水剪(UU), in the curve window
  std::string_view test;          // 不固结不排水试验
  std::string_view brief;         // 不固结不排水UU, in the head of a printed block
};

const MethodNames& methodNames(const TriaxialSampleRecord& record);
/// By this field of a record.
const MethodNames& methodNames(std::uint8_t testMethod);

/// The kind of shear, 多级剪 or 多样剪.
std::string_view shearModeName(const TriaxialSampleRecord& record);

/// The test as tables are headed with it: 多级固结不排水试验.
std::string testName(const TriaxialSampleRecord& record);
/// The head of a printed block: 多级固结不排水CU.
std::string briefTestName(const TriaxialSampleRecord& record);
/// The line under a page's title, left open for the laboratory's suffix and the closing parenthesis:
/// (一个试样多级固结不排水试验
std::string methodLine(const TriaxialSampleRecord& record);
/// The same of these two fields of a record.
std::string methodLine(std::uint8_t testMethod, std::uint8_t shearMode);

}  // namespace triaxlab
