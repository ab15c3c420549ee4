#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "shell/kept_file.h"
#include "store/project/project_kinds.h"

namespace triaxlab {

struct Workspace;

/// A project file that was opened or saved.
struct RecentProject {
  ProjectKind kind;
  std::string fileName;
  std::filesystem::path dataFolder;
  bool isAtHand = false;  // lies in the data folder in use

  bool isSameAs(const RecentProject& other) const {
    return kind == other.kind && fileName == other.fileName && dataFolder == other.dataFolder;
  }
};

/// The projects that were worked on last, the newest first, kept from one run to the next.
class RecentProjects {
 public:
  static constexpr std::size_t kMost = 10;

  explicit RecentProjects(const std::filesystem::path& applicationFolder);

  const std::vector<RecentProject>& projects() const { return m_projects; }
  /// Puts the project in front of all others, on the disk as well.
  void note(ProjectKind kind, std::string_view fileName, const std::filesystem::path& dataFolder);
  /// The same for every project of a table that was saved: the first of the table comes to stand in front.
  void noteSaved(const Workspace& workspace, ProjectKind tests);
  /// Looks which of them are there in the data folder in use.
  void look(const Workspace& workspace);

 private:
  void read();
  void write() const;

  KeptFile m_file;
  std::vector<RecentProject> m_projects;
};

}  // namespace triaxlab
