#include "sessions/triaxial/sample_fields.h"

#include <stdexcept>

#include "sessions/sample_texts.h"

namespace triaxlab {

EditableField sampleField(Workspace& workspace, const DocumentFields& document, std::size_t row, Input input) {
  constexpr ProjectKind kTests = ProjectKind::Triaxial;
  switch (input.name) {
    case InputName::SoilName:
      return soilNameField(workspace, row);
    case InputName::Density:
      return densityField(workspace, row);
    case InputName::CellPressure:
      return editable(workspace.TriaxialSampleTable.at(row).cellPressure.at(static_cast<std::size_t>(input.index)));
    case InputName::Borehole:
      return boreholeField(workspace, kTests, row);
    case InputName::SamplingDepth:
      return samplingDepthField(workspace, kTests, row);
    case InputName::SamplingSpot:
      return samplingSpotField(workspace, kTests, row);
    case InputName::ProjectName:
      return document.projectName();
    case InputName::DatePart:
      return document.dateText(input.index);
    case InputName::SecondTitleLine:
      return document.secondTitleLine();
    case InputName::ControlledDocNo:
      return editable(workspace.dataOf(kTests).controlledDocNo);
    default:
      throw std::out_of_range("an input over no field of a sample");
  }
}

EditableField listField(Workspace& workspace, std::size_t row, bool onProject) {
  TriaxialSampleRecord& record = workspace.TriaxialSampleTable.at(row);
  return onProject ? numberField(record.projectNo) : numberField(record.sampleNo);
}

}  // namespace triaxlab
