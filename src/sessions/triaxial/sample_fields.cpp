#include "sessions/triaxial/sample_fields.h"

#include <stdexcept>

#include "common/gbk.h"
#include "sessions/document_fields.h"
#include "store/test_date.h"

namespace triaxlab {

EditableField sampleField(Workspace& workspace, std::size_t row, Input input) {
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable.at(row);
  SampleLocation& location = workspace.SampleDisplayTable.at(row);
  switch (input.name) {
    case InputName::SoilName:
      return editable(record.soilName);
    case InputName::Density:
      return editable(record.density);
    case InputName::CellPressure:
      return editable(record.cellPressure.at(static_cast<std::size_t>(input.index)));
    case InputName::Borehole:
      return editable(location.boreholeNo);
    case InputName::SamplingDepth:
      return editable(location.samplingDepth);
    case InputName::SamplingSpot:
      return editable(location.samplingSpot);
    case InputName::ProjectName:
      return projectNameField(workspace);
    case InputName::DatePart:
      return datePartField(workspace, input.index);
    case InputName::SecondTitleLine:
      return secondTitleLineField(workspace);
    case InputName::ControlledDocNo:
      return editable(workspace.controlledDocNo);
    default:
      throw std::out_of_range("an input over no field of a sample");
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

}  // namespace triaxlab
