#include "sessions/document_fields.h"

#include <stdexcept>

#include "common/text_number.h"

namespace triaxlab {
namespace {

constexpr std::size_t kDateTextWidth = 60;  // of the settings file, which remembers it
// Of the summary file's header.
constexpr std::size_t kProjectNameWidth = 120, kSecondTitleLineWidth = 60;

template <std::size_t N>
EditableField datePart(Workspace& workspace, std::size_t at, FixedText<N>& part) {
  return {kDateTextWidth, workspace.dateText(at), [&workspace, at, &part](std::string_view gbk) {
            workspace.typedDateTexts.at(at) = std::string(gbk);
            SetText(part, ParseNumber(gbk) == 0 ? std::string_view{} : gbk);
          }};
}

EditableField titleText(TitleText& title, std::size_t width) {
  return {width, std::string(Trim(title.text)), [&title](std::string_view gbk) {
            title.text = gbk;
            title.typed = true;
          }};
}

}  // namespace

EditableField datePartField(Workspace& workspace, int part) {
  switch (part) {
    case 0:
      return datePart(workspace, 0, workspace.processingDate.year);
    case 1:
      return datePart(workspace, 1, workspace.processingDate.month);
    case 2:
      return datePart(workspace, 2, workspace.processingDate.day);
    default:
      throw std::out_of_range("a date has three parts");
  }
}

EditableField projectNameField(Workspace& workspace) { return titleText(workspace.projectName, kProjectNameWidth); }

EditableField secondTitleLineField(Workspace& workspace) {
  return titleText(workspace.secondTitleLine, kSecondTitleLineWidth);
}

std::array<std::string, 3> locationLabels(const LaboratoryHabits& habits) {
  constexpr const char* kIndent = "  ";
  const bool own = !habits.boreholeLabel.empty();
  std::string borehole = habits.printBoreholeNumber ? "" : kIndent;
  borehole += own ? habits.boreholeLabel : habits.printBoreholeNumber ? "钻孔编号" : "钻孔号";
  return {borehole, "取样深度", habits.trialPitNumber ? "  探井号" : "取样地点"};
}

}  // namespace triaxlab
