#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/field_sink.h"
#include "common/user_error.h"
#include "platform/dialogs.h"
#include "shell/shell_windows.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"
#include "triaxial/curve_page.h"

namespace triaxlab {

/// Commands that a window turns on and off; those in neither list stay as they are.
struct CommandSwitches {
  std::span<const std::string_view> on = {}, off = {};
};

/// The question of a document with unsaved changes that is to be closed or replaced.
struct ClosingQuestion {
  std::string_view title, text;
  MessageIcon icon = MessageIcon::Exclamation;
};

/// Lines of cells, the headings first, UTF-8.
using ResultLines = std::vector<std::vector<std::string>>;

/// One row for each document window: what shell, command line and main window do for it.
struct DocumentKind {
  ActiveDocument document;
  ProjectKind tests;              // whose table it shows
  ActiveDocument master;          // itself; of a window beside another, that other, on whose table and changes it acts
  std::string_view savedMessage;  // shown when a save is complete
  ClosingQuestion closing = {};   // a window beside another asks nothing
  CommandSwitches activation, close = {};
  bool leavesNoDocument = false;               // activeDocument becomes 0 when it has closed
  std::optional<ActiveDocument> intervention;  // where 干预 acts while it is in front; none: nowhere

  bool readsHabits = false;  // the laboratory's habits are read anew when the window gets a table
  /// Brings freshly filled tables to what the window shows; null: they are shown as they stand.
  void (*reduce)(Workspace&) = nullptr;
  bool reducesForSave = false;  // a save, too: what was typed since counts
  /// Shows a curve page of every sample, as paging through them would; null: it has none.
  void (*showPage)(Workspace&, CurvePage) = nullptr;
  /// What the tests were made for, a line a sample; null: this version can't tell it.
  ResultLines (*results)(const Workspace&) = nullptr;
  /// What the formulas give for the sample in a row beside what its record holds; null: nothing.
  void (*tellDerived)(const Workspace&, std::size_t row, FieldSink&) = nullptr;
};

std::span<const DocumentKind> documentKinds();
/// The row of the document on which commands act: of `kNoDocument` that of the triaxial window.
const DocumentKind& documentKindOf(std::int16_t document);
/// The row of the window that shows the tests of a kind.
const DocumentKind& documentOfTests(ProjectKind kind);

}  // namespace triaxlab
