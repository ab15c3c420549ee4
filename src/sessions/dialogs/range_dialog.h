#pragma once

#include <string>
#include <string_view>

#include "store/project/project_file.h"

namespace triaxlab {

/// The values behind Form21, which asks which samples of a large project to read. There is no way out but 确  定.
class RangeDialog {
 public:
  static constexpr std::string_view kCaption = "读取数据";
  static constexpr std::string_view kAccept = "确  定";

  explicit RangeDialog(int sampleCount);

  std::string first;  // Text1, UTF-8 as typed; 1 to begin with
  std::string last;   // Text2; the sample count to begin with

  /// What the boxes come to: each number cut to 1..10000, exchanged if reversed, at most 2000 samples.
  SampleRange range() const;
};

}  // namespace triaxlab
