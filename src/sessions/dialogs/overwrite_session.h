#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "store/project/save_project.h"
#include "store/workspace.h"

namespace triaxlab {

/// The session behind Form10, which lists the samples of an import that are already in their project file, and sets
/// `keepExisting` for those that are not to be written over.
class OverwriteSession {
 public:
  static constexpr std::string_view kCaption = "保存三轴数据";
  static constexpr std::string_view kOverwriteAll = "全覆盖";  // Command1
  static constexpr std::string_view kKeepAll = "全不覆盖";     // Command2
  static constexpr std::string_view kAccept = "确定";          // Command3
  static constexpr std::string_view kCancel = "取消";          // Command4
  static constexpr std::string_view kNothingKnown = "没有已保存的土样";
  static constexpr int kVisibleRows = 20;

  OverwriteSession(Workspace& workspace, std::vector<KnownSample> known);

  /// Heads of the columns in the order of a line; the last has none.
  std::vector<std::string> headings() const;
  int rowCount() const { return static_cast<int>(m_known.size()); }

  int scroll() const { return m_scroll; }
  int largestScroll() const;
  void setScroll(int value);  // held inside 0 .. largestScroll

  struct Line {
    std::string number, sampleNo;
    SampleBrief stored{}, coming{};
    std::string answer{};  // "覆盖" or "不覆盖"
    bool operator==(const Line&) const = default;
  };
  /// A line of the page, 0 to 19; blank texts below the end of the list, and a sentence on the first of an empty one.
  Line line(int index) const;
  /// A click on a line; outside the list nothing happens.
  void flip(int index);
  void overwriteAll();
  void keepAll();

  /// 取消: the save is dropped.
  void drop() { m_isDropped = true; }
  bool isDropped() const { return m_isDropped; }

 private:
  /// Null outside the list and the page.
  const KnownSample* sampleAt(int index) const;

  /// Only triaxial samples are asked about.
  auto& keepExisting() const { return m_workspace.dataOf(ProjectKind::Triaxial).keepExisting; }

  Workspace& m_workspace;
  std::vector<KnownSample> m_known;
  int m_scroll = 0;
  bool m_isDropped = false;
};

}  // namespace triaxlab
