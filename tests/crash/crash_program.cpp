// The program that dies: `crash_program FOLDER DEED PROJECT...` saves thirty samples into the projects in turn, puts
// their sample lists in another order, deletes all their samples, opens them, which upgrades old files, adds samples
// beside other programs (share PROJECT LETTER), or only does
// what the next start and each open do first (recover). It ends with 0 when that went well, 2 when it is told that
// nothing was changed, 3 when the save is to be finished later, 1 otherwise.

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "common/user_error.h"
#include "crash/crash_samples.h"
#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/save_project.h"
#include "store/safety/file_update.h"

namespace triaxlab {
namespace {

using Projects = std::vector<std::string>;

constexpr int kSamples = 30;
constexpr int kNewReading = 777;

std::string fileOf(const std::string& projectNo) { return "WKSZ" + projectNo + ".txt"; }

void save(Workspace& workspace, const Projects& projects) {
  const int each = kSamples / static_cast<int>(projects.size());
  for (std::size_t i = 0; i < projects.size(); ++i)
    crash::fill(workspace, projects[i], static_cast<int>(i) * each, each, kNewReading);
  SetText(workspace.processingDate.year, "2024");
  SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "NEW");
  // A project that can't be read is named and the others are saved.
  for (const std::string& error : saveProject(workspace, ProjectKind::Triaxial, nullptr).errors) throw UserError(error);
}

void rewrite(Workspace& workspace, const Projects& projects) {
  constexpr std::array<std::uint32_t, 4> kOrder{8, 2, 3, 0};
  for (const std::string& project : projects) rewriteProject(workspace, ProjectKind::Triaxial, fileOf(project), kOrder);
}

void deleteAll(Workspace& workspace, const Projects& projects) {
  for (const std::string& project : projects) rewriteProject(workspace, ProjectKind::Triaxial, fileOf(project), {});
}

void open(Workspace& workspace, const Projects& projects) {
  for (const std::string& project : projects) openProject(workspace, ProjectKind::Triaxial, fileOf(project), nullptr);
}

/// Puts the sample list of a project in the reverse order, which another program may change meanwhile.
void turnRound(Workspace& workspace, const std::string& file) {
  bool isChanged = true;
  const auto keepChange = [&isChanged](std::string_view, std::string_view) {
    isChanged = true;
    return false;
  };
  while (std::exchange(isChanged, false)) {
    std::vector<std::uint32_t> order;
    for (const SampleListRow& row : listSamples(workspace, ProjectKind::Triaxial, file))
      order.insert(order.begin(), static_cast<std::uint32_t>(row.recordIndex));
    try {
      rewriteProject(workspace, ProjectKind::Triaxial, file, order, keepChange);
    } catch (const UserError&) {
      if (!isChanged) throw;
    }
  }
}

/// Works on one project beside other programs: adds samples of its own, one by one, and turns the list round now and
/// then.
void share(Workspace& workspace, const Projects& projectAndLetter) {
  const std::string& project = projectAndLetter[0];
  for (int number = 1; number <= crash::kSamplesOfASharer; ++number) {
    TriaxialSampleRecord record = crash::sample(project, number, number);
    SetText(record.sampleNo, projectAndLetter[1] + std::to_string(number));
    workspace.TriaxialSampleTable[0] = record;
    for (const std::string& error : saveProject(workspace, ProjectKind::Triaxial, nullptr).errors)
      throw UserError(error);
    if (number % 3 == 0) turnRound(workspace, fileOf(project));
  }
}

void recover(Workspace& workspace, const Projects&) { FileUpdate::recover(workspace.dataFolder); }

struct Deed {
  const char* name;
  void (*perform)(Workspace&, const Projects&);
};
constexpr std::array kDeeds{Deed{"save", save},        Deed{"share", share}, Deed{"rewrite", rewrite},
                            Deed{"delete", deleteAll}, Deed{"open", open},   Deed{"recover", recover}};

int run(const std::vector<std::string>& arguments) {
  Workspace workspace;
  workspace.applicationFolder = workspace.dataFolder = arguments[0];
  workspace.fixedToday = Date{2024, 5, 6};
  try {
    for (const Deed& deed : kDeeds)
      if (arguments[1] == deed.name) deed.perform(workspace, {arguments.begin() + 2, arguments.end()});
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
