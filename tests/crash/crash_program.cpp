// The program that dies: `crash_program FOLDER save PROJECT...` saves thirty samples into the projects in turn,
// `crash_program FOLDER recover` does what the next start and each open do first. It ends with 0 when that went well, 2
// when it is told that nothing was changed, 3 when the save is to be finished later, 1 otherwise.

#include <filesystem>
#include <string>
#include <vector>

#include "common/user_error.h"
#include "crash/crash_samples.h"
#include "store/file_update.h"
#include "store/save_project.h"

namespace triaxlab {
namespace {

constexpr int kSamples = 30;
constexpr int kNewReading = 777;

void save(const std::filesystem::path& folder, const std::vector<std::string>& projects) {
  Workspace workspace;
  workspace.applicationFolder = workspace.dataFolder = folder;
  workspace.fixedToday = Date{2024, 5, 6};
  const int each = kSamples / static_cast<int>(projects.size());
  for (std::size_t i = 0; i < projects.size(); ++i)
    crash::fill(workspace, projects[i], static_cast<int>(i) * each, each, kNewReading);
  SetText(workspace.processingDate.year, "2024");
  SetText(workspace.controlledDocNo, "NEW");
  saveTriaxial(workspace, nullptr);
}

int run(const std::vector<std::string>& arguments) {
  try {
    if (arguments[1] == "save")
      save(arguments[0], {arguments.begin() + 2, arguments.end()});
    else
      FileUpdate::recover(arguments[0]);
  } catch (const UserError& error) {
    const std::string sentence = error.what();
    if (sentence.find("没有改动") != std::string::npos) return 2;
    return sentence.find("自动写完") != std::string::npos ? 3 : 1;
  }
  return 0;
}

}  // namespace
}  // namespace triaxlab

int main(int count, char** values) {
  if (count < 3) return 1;
  return triaxlab::run({values + 1, values + count});
}
