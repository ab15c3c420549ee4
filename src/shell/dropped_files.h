#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "importers/importer.h"
#include "store/project/project_kind.h"

namespace triaxlab {

/// Something that can be opened in one way: a raw file, a project file, or a data folder.
struct Openable {
  std::filesystem::path path;
  const Importer* source = nullptr;         // that reads the raw file
  std::optional<ProjectKind> project = {};  // of the project file
};

/// What the files and folders are that a person dropped on the main window.
struct DroppedFiles {
  std::vector<Openable> openable;  // a file that several sources may read has a row for each
  Remarks unknown;                 // a sentence for each of the others
};

/// Looks into each of them. A folder stands for the raw files in it, unless it is a data folder. UserError: one can't
/// be read.
DroppedFiles lookAtDropped(const std::vector<std::filesystem::path>& dropped);

/// The question which of them to open, and its choices.
struct OpeningQuestion {
  std::string text;
  std::vector<std::string> choices;
};
OpeningQuestion questionWhichToOpen(const std::vector<Openable>& openable);

}  // namespace triaxlab
