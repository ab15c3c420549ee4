#include "sessions/triaxial/result_rows.h"

namespace triaxlab {

std::optional<EditableField> resultField(TriaxialSampleRecord& record, ResultCell cell) {
  const ResultValue& value = kResultValues.at(cell.row);
  if (!value.isTyped()) return std::nullopt;
  return EditableField{
      value.width, value.text(record, cell.stage),
      [&record, &value, stage = cell.stage](std::string_view gbk) { value.store(record, stage, gbk); }};
}

}  // namespace triaxlab
