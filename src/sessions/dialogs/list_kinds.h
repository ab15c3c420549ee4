#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "common/settings.h"
#include "sessions/sample_texts.h"
#include "store/project/project_kinds.h"
#include "store/project/sample_list_order.h"

namespace triaxlab {

enum class ListAction : std::uint8_t { Sort, Move, Delete, Save, Return };

/// A button of a sample list; the rows of the tables stand as a person sees them from top to bottom.
struct ListButton {
  std::string_view control;  // Command1 ...
  std::string_view caption;
  ListAction action;
  SampleListKey key = nullptr;  // of a sort
  SortDirection direction = SortDirection::Ascending;
};

/// A column of a sample list and what the laboratory calls it, UTF-8.
struct ListedText {
  SampleListKey text;
  std::string (*heading)(const LaboratoryHabits&);
};

/// The window of a file's samples.
struct SampleListForm {
  std::string_view name;
  std::span<const ListedText> columns;  // behind 序号, which every list has
  std::span<const ListButton> buttons;
};

/// One row for each kind of project file: what its lists show.
struct ListKind {
  ProjectKind kind;
  std::string_view caption;            // of the browser
  std::string_view heading;            // its Labelname
  std::string_view messageTitle;       // of the browser's messages
  std::string_view sampleListCaption;  // of the window with a file's samples
  const SampleListForm& sampleListForm;
  std::span<const SampleText> (*sampleTexts)();  // what is filled in of its samples
};

/// std::out_of_range for a number that is none of the kinds.
const ListKind& listKindOf(ProjectKind kind);

}  // namespace triaxlab
