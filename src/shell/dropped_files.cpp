#include "shell/dropped_files.h"

#include <fmt/core.h>

#include <algorithm>

#include "common/small_letters.h"
#include "platform/files.h"
#include "store/project/project_frame.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

/// What makes a folder one of data.
constexpr std::string_view kProjectFolder = "HSZS";

constexpr const char* kUnknown = "文件“{}”不是工程文件，也不像任何一种仪器的原始数据，没有打开。";
constexpr const char* kNothingIn = "文件夹“{}”里没有工程，也没有认得出的原始数据，没有打开。";

void addRaw(const fs::path& file, std::vector<Openable>& openable) {
  for (const Importer* source : sourcesOf(file)) openable.push_back({.path = file, .source = source});
}

std::vector<Openable> whatIsIn(const fs::path& folder) {
  std::vector<Openable> found;
  if (isSameName(textOfPath(folder.filename()), kProjectFolder)) return {{.path = folder.parent_path()}};
  if (folderExists(fileOrNew(folder, kProjectFolder))) return {{.path = folder}};
  for (const fs::path& file : namesOfSourcesIn(folder)) addRaw(file, found);
  return found;
}

std::vector<Openable> whatIs(const fs::path& file) {
  if (const auto kind = kindOfProjectFile(file)) return {{.path = file, .project = kind}};
  std::vector<Openable> found;
  addRaw(file, found);
  return found;
}

std::string_view wayToOpen(const Openable& openable) {
  if (openable.project) return "工程文件";
  if (openable.source == nullptr) return "数据文件夹";
  return openable.source->menuCaption.empty() ? openable.source->title : openable.source->menuCaption;
}

}  // namespace

DroppedFiles lookAtDropped(const std::vector<fs::path>& dropped) {
  DroppedFiles files;
  for (const fs::path& path : dropped) {
    const bool isFolder = folderExists(path);
    const std::vector<Openable> found = isFolder ? whatIsIn(path) : whatIs(path);
    files.openable.insert(files.openable.end(), found.begin(), found.end());
    if (found.empty())
      files.unknown.push_back(fmt::format(fmt::runtime(isFolder ? kNothingIn : kUnknown), textOfPath(path)));
  }
  return files;
}

OpeningQuestion questionWhichToOpen(const std::vector<Openable>& openable) {
  const fs::path& first = openable.front().path;
  const bool isOneFile = std::ranges::all_of(openable, [&first](const Openable& row) { return row.path == first; });
  OpeningQuestion question{
      isOneFile ? fmt::format("文件“{}”可以按几种试验读入，请选择：", textOfPath(first)) : "一次打开一个，请选择：",
      {}};
  for (const Openable& row : openable)
    question.choices.push_back(isOneFile ? std::string(wayToOpen(row))
                                         : fmt::format("{}  {}", wayToOpen(row), textOfPath(row.path)));
  return question;
}

}  // namespace triaxlab
