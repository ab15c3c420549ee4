#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "sessions/editable_field.h"
#include "store/workspace.h"

namespace triaxlab {

// What the document windows of all tests let a person type beside the fields of their own records.

/// Year, month and day of processing, 0 to 2. Only typing sets a part of the date, and one that reads as 0 leaves it
/// blank: the save then dates by today, and the text is the name that signs the report. Another part is a
/// std::out_of_range.
EditableField datePartField(Workspace& workspace, int part);
EditableField projectNameField(Workspace& workspace);
EditableField secondTitleLineField(Workspace& workspace);

/// Labels of borehole, depth and place of sampling.
std::array<std::string, 3> locationLabels(const LaboratoryHabits& habits);

}  // namespace triaxlab
