#pragma once

#include <cstddef>
#include <type_traits>

#include "common/fixed_text.h"

namespace triaxlab {

/// The head of every project file.
struct ProjectHeader {              // offset
  FixedText<4> sampleCount;         //  0  decimal text, "0000" form once counted
  FixedText<15> projectNo;          //  4
  FixedText<10> createdDate;        // 19  yyyy/mm/dd
  FixedText<10> processedDate;      // 29  yyyy/mm/dd or yyyy-mm-dd
  FixedText<10> testDate;           // 39
  FixedText<10> operatorName;       // 49
  FixedText<20> versionTag;         // 59  "V2.0" on triaxial and unconfined files of this version
  std::array<char, 2> headerEnd{};  // 79  no meaning, carried along
};                                  // 81

}  // namespace triaxlab
