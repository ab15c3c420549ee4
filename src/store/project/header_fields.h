#pragma once

#include <tuple>

#include "common/record_fields.h"
#include "store/project/project_header.h"

namespace triaxlab {

constexpr auto fieldsOf(RecordTag<ProjectHeader> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(ProjectHeader, sampleCount, "",
                     "number of samples, decimal text: \"0\" in a new file, then four digits"),
      TRIAXLAB_FIELD(ProjectHeader, projectNo, "", "工程编号, project number"),
      TRIAXLAB_FIELD(ProjectHeader, createdDate, "", "创建日期, yyyy/mm/dd"),
      TRIAXLAB_FIELD(ProjectHeader, processedDate, "", "处理日期, yyyy/mm/dd or yyyy-mm-dd"),
      TRIAXLAB_FIELD(ProjectHeader, testDate, "", "试验日期"),
      TRIAXLAB_FIELD(ProjectHeader, operatorName, "", "操作者; shown, never changed"),
      TRIAXLAB_FIELD(ProjectHeader, versionTag, "",
                     "other first four characters than V2.0 mark an old triaxial or unconfined file"),
      TRIAXLAB_FIELD(ProjectHeader, headerEnd, "", "no meaning; carried along"),
  };
}
static_assert(tiles<ProjectHeader>(81));

}  // namespace triaxlab
