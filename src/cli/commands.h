#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/project_files.h"
#include "exports/columns.h"
#include "exports/table_formats.h"
#include "shell/start_options.h"
#include "store/project/project_kinds.h"
#include "store/settings/page_setup.h"
#include "triaxial/curve_page.h"

namespace triaxlab::cli {

/// Names that the command line takes. A name that this version has nothing behind is known all the same: it ends in a
/// sentence that says so, not in the usage.
inline constexpr std::array<std::string_view, 10> kLayouts{
    "three-in-one",     "chart", "single", "triaxial-table", "consolidation", "unconfined-table",
    "unconfined-curve", "k0",    "tk0",    "tk0-curve"};

/// Stands in the place where pages go for the name of the project file that they tell of.
inline constexpr std::string_view kNamePlace = "{}";

/// Two numbers of which either may be the larger.
struct Span {
  int from = 1, to = 1;
};

// One struct for each command, with its arguments as they were given.

struct Init {};

struct Import {
  std::string source;
  std::filesystem::path file;
  std::vector<std::size_t> rows;  // as the grid numbers them, from 1
  bool allRows = true;
  bool keepExisting = false;
  bool save = true;
  std::optional<CurvePage> page;  // shown of every sample before the save
};

struct Open {
  ProjectFiles files;
  std::optional<int> first, last;
  std::optional<CurvePage> page;
  bool save = false;
};

struct List {
  ProjectKind kind;
};

struct Samples {
  ProjectKind kind;
  std::string name;
};

struct Rewrite {
  ProjectKind kind;
  std::string name;
  std::vector<std::size_t> order;
};

struct Show {
  ProjectKind kind;
  std::string name;
  std::optional<int> sample;  // from 1
};

struct Results {
  ProjectFiles files;
};

struct Export {
  ProjectFiles files;
  const TableFormat* format = nullptr;
  TableContent content = TableContent::Results;
  std::filesystem::path out;
};

struct Print {
  ProjectFiles files;
  std::string layout;
  std::optional<Span> samples;  // none: all
  std::optional<Span> pages;    // none: all
  std::vector<CurvePage> curves{CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope};
  int rows = 1, columns = 1;
  bool dataSheet = false;
  std::optional<SheetPaper> paper;  // none: as stored for the layout
  bool landscape = false;
  int copies = 1;
  std::string printer;        // empty: none
  std::filesystem::path out;  // empty: none; one of the two is named. "{}" in it stands for the file's name
};

struct WriteWorkbook {
  ProjectKind kind = ProjectKind::Triaxial;
  std::string name;
  std::optional<int> first, last;
  std::filesystem::path out;  // the name of a workbook
};

struct WriteRawWorkbook {
  std::string source;
  std::filesystem::path file;
  std::filesystem::path out;  // the name of a workbook
};

using Command = std::variant<Init, Import, Open, List, Samples, Rewrite, Show, Results, Export, Print, WriteWorkbook,
                             WriteRawWorkbook>;

struct CommandLine {
  StartOptions start;
  Command command;
};

}  // namespace triaxlab::cli
