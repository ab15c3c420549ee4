#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "sessions/document_fields.h"
#include "sessions/editable_field.h"
#include "store/workspace.h"

namespace triaxlab {

/// What a person types in the curve window, in the words of the test.
enum class InputName : std::uint8_t {
  ListCell,         // project or sample number of the chosen cell of the list
  ResultCell,       // value of the chosen cell of the results page
  SoilName,         //
  Density,          //
  CellPressure,     // one a stage
  StrainLimit,      // one a stage, stored by applyStrainLimits() only
  Borehole,         //
  SamplingDepth,    //
  SamplingSpot,     //
  ProjectName,      //
  DatePart,         // year, month, day of processing
  SecondTitleLine,  //
  ControlledDocNo,  //
  Factor,           // of the curve phase
  Summand,          // of the curve phase
};
struct Input {
  InputName name;
  int index = 0;  // of a stage, or of a part of the date
  bool operator==(const Input&) const = default;
};

/// The field of an input that belongs to the sample in a table row or to all samples: every one but the cells, the
/// strain limits and the numbers of the curve phase. An index that the input doesn't have is a std::out_of_range.
EditableField sampleField(Workspace& workspace, const DocumentFields& document, std::size_t row, Input input);
/// The field of the list's cell with the project or sample number of a table row.
EditableField listField(Workspace& workspace, std::size_t row, bool onProject);

}  // namespace triaxlab
