// Project files: whatever the bytes are, the file is listed, its samples are listed, and it opens or is refused; a
// refusal leaves the workspace as it was. The last byte of the input chooses the kind of file, and is part of it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "common/user_error.h"
#include "fuzz_folders.h"
#include "store/project/project_file.h"
#include "store/project/project_list.h"

namespace {

using namespace triaxlab;

void listAll(Workspace& workspace, const ProjectKindInfo& info, const std::string& name) {
  if (listProjects(workspace, info.kind).size() != 1) std::abort();
  try {
    if (listSamples(workspace, info.kind, name).size() > 10000) std::abort();
  } catch (const UserError&) {
    // Damaged, and said so.
  }
}

void open(Workspace& workspace, const ProjectKindInfo& info, const std::string& name) {
  workspace.dataOf(info.kind).rawImportPending = true;
  try {
    openProject(workspace, info.kind, name, [](int count) { return limitedRange({count - 3, count + 3}); });
    if (workspace.dataOf(info.kind).rawImportPending) std::abort();
  } catch (const UserError&) {
    if (!workspace.dataOf(info.kind).rawImportPending) std::abort();
  }
  if (workspace.TriaxialSampleTable.used().size() > kTableRows || workspace.K0SampleTable.used().size() > kTableRows)
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Folders folders;
  static Workspace workspace;
  folders.assignTo(workspace);
  const ProjectKindInfo& info = kProjectKinds[size == 0 ? 0 : data[size - 1] % kProjectKinds.size()];
  const std::string name = std::string(info.filePrefix) + "1.txt";
  folders.clear();
  folders.put("HSZS/" + name, data, size);
  listAll(workspace, info, name);
  open(workspace, info, name);
  folders.checkNothingStrayed();
  return 0;
}
