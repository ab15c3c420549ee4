#include "store/project/project_kinds.h"

#include <algorithm>

#include "k0/record.h"
#include "platform/files.h"
#include "triaxial/old_record.h"
#include "triaxial/record.h"
#include "unconfined/record.h"

namespace triaxlab {
namespace {

template <class Record>
std::span<const std::byte> blank() {
  static const Record record{};
  return bytesOf(record);
}

}  // namespace

// File names and some titles have the letter O where the menus speak of K0 with the digit.
const std::array<ProjectKindInfo, 5> kProjectKinds{{
    {
        .kind = ProjectKind::Triaxial,
        .documentKind = ProjectKind::Triaxial,
        .id = "triaxial",
        .filePrefix = "WKSZ",
        .recordSize = sizeof(TriaxialSampleRecord),
        .blankRecord = blank<TriaxialSampleRecord>,
        .sampleNoWidth = 14,
        .hasEndText = true,
        .boxesHoldDate = true,
        .versionTag = "V2.0",
        .listCaption = "三轴试验数据文件列表",
        .listHeading = "三轴试验数据表WKSZ(X).TXT ",
        .openTitle = "打开三轴数据文件",
        .saveMessage = "三轴试验数据保存完毕",
        .sampleListCaption = "三轴土样列表",
        .listTitle = "保存三轴文件",
    },
    {
        .kind = ProjectKind::Unconfined,
        .documentKind = ProjectKind::Unconfined,
        .id = "unconfined",
        .filePrefix = "KWCX",
        .recordSize = sizeof(UnconfinedSampleRecord),
        .blankRecord = blank<UnconfinedSampleRecord>,
        .sampleNoWidth = 15,
        .hasEndText = false,
        .boxesHoldDate = false,
        .versionTag = "V2.0",
        .listCaption = "无侧限试验数据文件列表",
        .listHeading = "无侧限试验数据表KWCX(X).TXT ",
        .openTitle = "打开无侧限数据文件",
        .saveMessage = "无侧限试验数据保存完毕",
        .sampleListCaption = "无侧限土样列表",
        .listTitle = "保存无侧限文件",
    },
    {
        .kind = ProjectKind::K0,
        .documentKind = ProjectKind::K0,
        .id = "k0",
        .filePrefix = "KO",
        .recordSize = sizeof(K0SampleRecord),
        .blankRecord = blank<K0SampleRecord>,
        .sampleNoWidth = 15,
        .hasEndText = false,
        .boxesHoldDate = false,
        .versionTag = "",
        .listCaption = "K0试验数据文件列表",
        .listHeading = "K0试验数据表KO(X).TXT ",
        .openTitle = "打开KO数据文件",
        .saveMessage = "K0试验数据保存完毕",
        .sampleListCaption = "K0土样列表",
        .listTitle = "保存K0文件",
    },
    {
        .kind = ProjectKind::TK0,
        .documentKind = ProjectKind::TK0,
        .id = "tk0",
        .filePrefix = "TKO",
        .recordSize = sizeof(TK0SampleRecord),
        .blankRecord = blank<TK0SampleRecord>,
        .sampleNoWidth = 15,
        .hasEndText = false,
        .boxesHoldDate = false,
        .versionTag = "",
        .listCaption = "TK0试验数据文件列表",
        .listHeading = "TK0试验数据表TKO(X).TXT ",
        .openTitle = "打开TKO数据文件",
        .saveMessage = "TK0试验数据保存完毕",
        .sampleListCaption = "TK0土样列表",
        .listTitle = "保存TK0文件",
    },
    {
        .kind = ProjectKind::OldTriaxial,  // never written: what is read from it is saved as a triaxial project
        .documentKind = ProjectKind::Triaxial,
        .id = "old-triaxial",
        .filePrefix = "KSZ",
        .recordSize = sizeof(OldTriaxialRecord),
        .blankRecord = blank<OldTriaxialRecord>,
        .sampleNoWidth = 14,
        .hasEndText = false,
        .boxesHoldDate = true,
        .versionTag = "",
        .listCaption = "三轴试验数据文件列表",
        .listHeading = "三轴试验数据表KSZ(X).TXT ",
        .openTitle = "打开三轴数据文件",
        .saveMessage = "三轴试验数据保存完毕",
        .sampleListCaption = "三轴土样列表",
        .listTitle = "",
    },
}};

const ProjectKindInfo& infoOf(ProjectKind kind) {
  const auto row = std::find_if(kProjectKinds.begin(), kProjectKinds.end(),
                                [kind](const ProjectKindInfo& info) { return info.kind == kind; });
  return row != kProjectKinds.end() ? *row : kProjectKinds.front();
}

std::optional<ProjectKind> projectKindOfId(std::string_view id) {
  const auto row = std::find_if(kProjectKinds.begin(), kProjectKinds.end(),
                                [id](const ProjectKindInfo& info) { return info.id == id; });
  if (row == kProjectKinds.end()) return std::nullopt;
  return row->kind;
}

}  // namespace triaxlab
