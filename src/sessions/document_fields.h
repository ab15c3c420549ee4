#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "common/fixed_text.h"
#include "sessions/editable_field.h"
#include "store/project/project_kinds.h"
#include "store/test_date.h"
#include "store/workspace.h"

namespace triaxlab {

// What the document windows of all tests show and let a person type beside the readings of their own records.

namespace document_captions {
inline constexpr const char* kProjectName = "工程名称：";
inline constexpr const char* kArchiveNo = "档案号：";
}  // namespace document_captions

/// The boxes of a document that belong to all its samples.
class DocumentFields {
 public:
  /// The workspace outlives this. `tests` is a kind that is saved under its own name.
  DocumentFields(Workspace& workspace, ProjectKind tests) : m_workspace(workspace), m_tests(tests) {}

  /// The window has just been opened: nothing was typed yet, and names that sign the report are read from the settings.
  void load();

  static constexpr int kDateTexts = 3;
  /// TextW(0) to TextW(2): year, month and day of processing, or names that sign the report. Only typing sets a part of
  /// the date, and one that reads as 0 leaves it blank: the save then dates by today, and the text is a name. Another
  /// box is a std::out_of_range.
  EditableField dateText(int box) const;
  EditableField projectName() const;
  EditableField secondTitleLine() const;

 private:
  Workspace& m_workspace;
  ProjectKind m_tests;
  std::array<std::string, kDateTexts> m_remembered;  // the names that the settings know, GBK
};

/// Labels of borehole, depth and place of sampling.
std::array<std::string, 3> locationLabels(const LaboratoryHabits& habits);

/// A number of project or sample. They are compared and made into file names without blanks around them.
template <std::size_t N>
EditableField numberField(FixedText<N>& number) {
  EditableField field = editable(number);
  field.store = [store = std::move(field.store)](std::string_view gbk) { store(Trim(gbk)); };
  return field;
}

/// Second and third panel of the status bar for the sample in a row of the table: its project and its test date, UTF-8.
std::array<std::string, 2> statusPanels(const Workspace& workspace, ProjectKind tests, std::size_t row,
                                        DateFirst first = DateFirst::OfSample);

}  // namespace triaxlab
