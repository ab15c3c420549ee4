#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "store/project/sample_list_order.h"

namespace triaxlab {

/// The values behind Form17, which moves rows of a sample list by hand. Each move is done at once; a move that can't be
/// (a number below 1, a target inside the block) does nothing and says nothing.
class RowMoves {
 public:
  static constexpr std::string_view kMoveRow = "移 动";     // Command1
  static constexpr std::string_view kMoveBlock = "块移动";  // Command2
  static constexpr std::string_view kReturn = "返 回";      // Command3
  static constexpr std::size_t kNumbers = 5;

  /// `moved` is called behind each move. The rows outlive the dialog.
  RowMoves(std::string caption, SampleListTable& rows, std::function<void()> moved);

  const std::string& caption() const { return m_caption; }

  std::array<std::string, kNumbers> numbers;  // Text1 to Text5, UTF-8 as typed

  /// The row Text1 to the place of row Text2.
  void moveRow();
  /// The rows Text3 to Text4 to the place of row Text5.
  void moveBlock();

 private:
  int number(std::size_t box) const;

  std::string m_caption;
  SampleListTable& m_rows;
  std::function<void()> m_moved;
};

}  // namespace triaxlab
