#pragma once

#include <QKeyEvent>
#include <array>
#include <cstdint>
#include <optional>

#include "sessions/cell_keys.h"
#include "sessions/line_keys.h"
#include "windows/controls/record_edit.h"

namespace triaxlab {

/// What a key of the toolkit is to a session, and to the person.
template <class Key>
struct KeyRow {
  int toolkitKey;  // with its modifiers
  Key key;
  const char* effect;
};
// Some compilers don't derive it from an aggregate.
template <class Key>
KeyRow(int, Key, const char*) -> KeyRow<Key>;

/// Keys in a cell of a list or table that may leave it.
inline constexpr std::array kCellKeys{
    KeyRow{Qt::Key_Up, CellKey::Up, "上一行；在第一行时表向下滚"},
    KeyRow{Qt::Key_Down, CellKey::Down, "下一行；在最后一行时表向上滚"},
    KeyRow{Qt::Key_Return, CellKey::Enter, "下一行；在最后一行时表向上滚"},
    KeyRow{Qt::Key_Enter, CellKey::Enter, "下一行；在最后一行时表向上滚"},
    KeyRow{Qt::Key_Left, CellKey::Left, "前一格，光标已在文字的头时"},
    KeyRow{Qt::Key_Right, CellKey::Right, "后一格，光标已在文字的尾时"},
    KeyRow{Qt::Key_PageUp, CellKey::PageUp, "试样表向前滚 3 行"},
    KeyRow{Qt::Key_PageDown, CellKey::PageDown, "试样表向后滚 3 行"},
};

/// Keys that move a line by hand.
inline constexpr std::array kArrowKeys{KeyRow{Qt::Key_Left, ArrowKey::Left, "移动曲线、包线或直线"},
                                       KeyRow{Qt::Key_Right, ArrowKey::Right, "移动曲线、包线或直线"},
                                       KeyRow{Qt::Key_Up, ArrowKey::Up, "移动曲线、包线或直线"},
                                       KeyRow{Qt::Key_Down, ArrowKey::Down, "移动曲线、包线或直线"}};

/// What was moved goes back a step, and forth again.
enum class StepKey : std::uint8_t { Undo, Redo };
inline constexpr std::array kStepKeys{KeyRow{int(Qt::CTRL) | int(Qt::Key_Z), StepKey::Undo, "撤销一步"},
                                      KeyRow{int(Qt::CTRL) | int(Qt::Key_Y), StepKey::Redo, "重做一步"}};

template <class Key, std::size_t N>
std::optional<Key> keyOf(const QKeyEvent& event, const std::array<KeyRow<Key>, N>& table) {
  for (const KeyRow<Key>& row : table)
    if (row.toolkitKey == event.key()) return row.key;
  return std::nullopt;
}

/// As `keyOf`, and no modifier may be held but those of the row.
template <class Key, std::size_t N>
std::optional<Key> exactKeyOf(const QKeyEvent& event, const std::array<KeyRow<Key>, N>& table) {
  for (const KeyRow<Key>& row : table)
    if (row.toolkitKey == event.keyCombination().toCombined()) return row.key;
  return std::nullopt;
}

/// Nothing for a key that marks text.
inline std::optional<CellKey> cellKeyOf(const QKeyEvent& event) {
  return event.modifiers().testFlag(Qt::ShiftModifier) ? std::nullopt : keyOf(event, kCellKeys);
}

inline CursorPlace cursorOf(const QLineEdit& edit) {
  return {.atStart = edit.cursorPosition() == 0, .atEnd = edit.cursorPosition() == edit.text().size()};
}

}  // namespace triaxlab
