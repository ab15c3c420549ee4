#include "sessions/triaxial/sample_fields.h"

#include <stdexcept>

#include "common/gbk.h"
#include "common/text_number.h"
#include "store/test_date.h"

namespace triaxlab {
namespace {

constexpr std::size_t kDateTextWidth = 60;  // of the settings file, which remembers it

/// Only typing sets a part of the date, and one that reads as 0 leaves it blank: the save then dates by today, and the
/// text is the name that signs the report.
template <std::size_t N>
EditableField datePart(Workspace& workspace, std::size_t box, FixedText<N>& part) {
  return {kDateTextWidth, workspace.dateText(box), [&workspace, box, &part](std::string_view gbk) {
            workspace.typedDateTexts.at(box) = std::string(gbk);
            SetText(part, ParseNumber(gbk) == 0 ? std::string_view{} : gbk);
          }};
}

EditableField titleText(TitleText& title, std::size_t width) {
  return {width, std::string(Trim(title.text)), [&title](std::string_view gbk) {
            title.text = gbk;
            title.typed = true;
          }};
}

constexpr std::size_t kProjectNameWidth = 120;  // of the summary file's header
constexpr std::size_t kSecondTitleLineWidth = 60;

EditableField pressureOrLocation(Workspace& workspace, std::size_t row, int index) {
  SampleLocation& location = workspace.SampleDisplayTable.at(row);
  switch (index) {
    case 5:
      return editable(location.boreholeNo);
    case 6:
      return editable(location.samplingDepth);
    case 7:
      return editable(location.samplingSpot);
    default:
      return editable(workspace.TriaxialSampleTable.at(row).cellPressure.at(static_cast<std::size_t>(index)));
  }
}

EditableField footField(Workspace& workspace, int index) {
  switch (index) {
    case 0:
      return datePart(workspace, 0, workspace.processingDate.year);
    case 1:
      return datePart(workspace, 1, workspace.processingDate.month);
    case 2:
      return datePart(workspace, 2, workspace.processingDate.day);
    case 3:
      return titleText(workspace.secondTitleLine, kSecondTitleLineWidth);
    default:
      throw std::out_of_range("TextW");
  }
}

}  // namespace

EditableField sampleField(Workspace& workspace, std::size_t row, Box box) {
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable.at(row);
  switch (box.name) {
    case BoxName::Text3:
      return editable(record.soilName);
    case BoxName::Text4:
      return editable(record.density);
    case BoxName::Text5:
      return titleText(workspace.projectName, kProjectNameWidth);
    case BoxName::Text7:
      return pressureOrLocation(workspace, row, box.index);
    case BoxName::Text9:
      return editable(workspace.controlledDocNo);
    case BoxName::TextW:
      return footField(workspace, box.index);
    default:
      throw std::out_of_range("a box over no field of a sample");
  }
}

EditableField listField(Workspace& workspace, std::size_t row, bool onProject) {
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable.at(row);
  EditableField field = onProject ? editable(record.projectNo) : editable(record.sampleNo);
  // Numbers of project and sample are compared and made into file names without blanks around them.
  field.store = [store = std::move(field.store)](std::string_view gbk) { store(Trim(gbk)); };
  return field;
}

std::string projectPanel(const Workspace& workspace, std::size_t row) {
  return workspace.settings.habits.projectNoLabel + ":" +
         gbkToUtf8(workspace.TriaxialSampleTable.at(row).projectNo.trimmed());
}

std::string datePanel(const Workspace& workspace, std::size_t row) {
  const TriaxialSampleRecord& record = workspace.TriaxialSampleTable.at(row);
  return "试验日期:" + gbkToUtf8(shownTestDate(workspace, record.projectNo.trimmed(), record.testDate.trimmed()));
}

std::array<std::string, 3> locationLabels(const LaboratoryHabits& habits) {
  constexpr const char* kIndent = "  ";
  const bool own = !habits.boreholeLabel.empty();
  std::string borehole = habits.printBoreholeNumber ? "" : kIndent;
  borehole += own ? habits.boreholeLabel : habits.printBoreholeNumber ? "钻孔编号" : "钻孔号";
  return {borehole, "取样深度", habits.trialPitNumber ? "  探井号" : "取样地点"};
}

}  // namespace triaxlab
