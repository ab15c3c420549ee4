#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "store/project/sample_list_order.h"

namespace triaxlab {

/// The values behind Form16: which rows of a sample list a deletion or a sort is for.
class ListRangeDialog {
 public:
  static constexpr std::string_view kNumbers = "序号";                            // Label1
  static constexpr std::string_view kTo = "至";                                   // Label2
  static constexpr std::array<std::string_view, 2> kMethods{"方法一", "方法二"};  // Option1, Option2
  static constexpr std::string_view kAccept = "确 定";                            // Command1
  static constexpr std::string_view kCancel = "取 消";                            // Command2

  /// Both boxes empty: then only the rows that are marked already are removed.
  static ListRangeDialog forDeletion(std::string caption);
  /// The whole list, by text.
  static ListRangeDialog forSort(std::string caption, std::size_t rowCount);

  const std::string& caption() const { return m_caption; }
  bool asksForMethod() const { return m_asksForMethod; }

  std::string first, last;  // Text1, Text2; UTF-8 as typed
  SortMethod method = SortMethod::ByText;

  /// 确 定. Left in any other way, the dialog changes nothing.
  void accept() { m_accepted = true; }
  bool isAccepted() const { return m_accepted; }
  /// What the boxes come to in a list of so many rows, as `limitedListRange` tells.
  ListRange range(std::size_t rowCount) const;

 private:
  ListRangeDialog(std::string caption, bool asksForMethod, std::string firstNumber, std::string lastNumber);

  std::string m_caption;
  bool m_asksForMethod;
  bool m_accepted = false;
};

}  // namespace triaxlab
