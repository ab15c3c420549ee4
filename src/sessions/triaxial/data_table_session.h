#pragma once

#include <optional>

#include "platform/drawing_surface.h"
#include "sessions/triaxial/stage_table_session.h"
#include "triaxial/charts/table_chart.h"

namespace triaxlab {

inline constexpr const char* kDataTableCaption = "三轴试验数据表";

/// Everything that Form2 shows.
struct DataTableState {
  StageTableState stage;
  std::optional<DataTable> table;
  bool operator==(const DataTableState&) const = default;
};

/// Form2: the shear readings of a stage. Nothing is changed here.
class DataTableSession : public StageTableSession {
 public:
  DataTableSession(Workspace& workspace, std::size_t sampleRow);
  void load(std::size_t sampleRow);
  DataTableState state() const;
};

}  // namespace triaxlab
