#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "common/fixed_text.h"
#include "store/workspace.h"

namespace triaxlab {

/// The edit boxes of the window, each by its own name.
enum class BoxName : std::uint8_t {
  Text1,   // project or sample number of the chosen list cell
  Text2,   // value of the chosen cell of the results page
  Text3,   // soil name
  Text4,   // density
  Text5,   // project name
  Text7,   // 0 to 4 cell pressures, 5 to 7 borehole, depth, place
  Text8,   // 0 to 4 strain limits, stored by Command8 only
  Text9,   // controlledDocNo
  Text10,  // factor of the curve phase
  Text11,  // summand of the curve phase
  TextW,   // 0 to 2 year, month, day of processing; 3 second title line
};
struct Box {
  BoxName name;
  int index = 0;  // in a control array
  bool operator==(const Box&) const = default;
};

/// What an edit box works on. Valid while the record that it was made of stays where it is.
struct EditableField {
  std::size_t width = 0;                                // bytes that the box takes
  std::string text;                                     // GBK, as it stands
  std::function<void(std::string_view gbkText)> store;  // takes at most `width` bytes
};

template <std::size_t N>
EditableField editable(FixedText<N>& field) {
  return {N, std::string(field.trimmed()), [&field](std::string_view gbk) { SetText(field, gbk); }};
}

/// The field of a box that belongs to the sample in a table row or to all samples: every box but Text1, Text2,
/// Text8, Text10 and Text11. An index that the box doesn't have is a std::out_of_range.
EditableField sampleField(Workspace& workspace, std::size_t row, Box box);
/// The field of Text1 over the project or sample number of a table row.
EditableField listField(Workspace& workspace, std::size_t row, bool onProject);

/// The second and third panel of the status bar for the sample on display.
std::string projectPanel(const Workspace& workspace, std::size_t row);
std::string datePanel(const Workspace& workspace, std::size_t row);
/// Captions of Text7(5 to 7), after the laboratory's habits.
std::array<std::string, 3> locationLabels(const LaboratoryHabits& habits);

}  // namespace triaxlab
