#include "sessions/triaxial/sample_fields.h"

#include <stdexcept>

namespace triaxlab {

EditableField sampleField(Workspace& workspace, const DocumentFields& document, std::size_t row, Input input) {
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable.at(row);
  DocumentData& data = workspace.dataOf(ProjectKind::Triaxial);
  SampleLocation& location = data.SampleDisplayTable.at(row);
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
      return document.projectName();
    case InputName::DatePart:
      return document.dateText(input.index);
    case InputName::SecondTitleLine:
      return document.secondTitleLine();
    case InputName::ControlledDocNo:
      return editable(data.controlledDocNo);
    default:
      throw std::out_of_range("an input over no field of a sample");
  }
}

EditableField listField(Workspace& workspace, std::size_t row, bool onProject) {
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable.at(row);
  return onProject ? numberField(record.projectNo) : numberField(record.sampleNo);
}

}  // namespace triaxlab
