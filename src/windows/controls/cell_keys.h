#pragma once

#include <QKeyEvent>
#include <array>
#include <optional>

#include "sessions/cell_keys.h"
#include "sessions/line_keys.h"
#include "windows/controls/record_edit.h"

namespace triaxlab {

/// What a key of the toolkit is to a session.
template <class Key>
struct KeyRow {
  int toolkitKey;
  Key key;
};

/// Keys in a cell of a list or table that may leave it.
inline constexpr std::array kCellKeys{
    KeyRow{Qt::Key_Up, CellKey::Up},         KeyRow{Qt::Key_Down, CellKey::Down},
    KeyRow{Qt::Key_Left, CellKey::Left},     KeyRow{Qt::Key_Right, CellKey::Right},
    KeyRow{Qt::Key_Return, CellKey::Enter},  KeyRow{Qt::Key_Enter, CellKey::Enter},
    KeyRow{Qt::Key_PageUp, CellKey::PageUp}, KeyRow{Qt::Key_PageDown, CellKey::PageDown},
};

/// Keys that move a line by hand.
inline constexpr std::array kArrowKeys{KeyRow{Qt::Key_Left, ArrowKey::Left}, KeyRow{Qt::Key_Right, ArrowKey::Right},
                                       KeyRow{Qt::Key_Up, ArrowKey::Up}, KeyRow{Qt::Key_Down, ArrowKey::Down}};

template <class Key, std::size_t N>
std::optional<Key> keyOf(const QKeyEvent& event, const std::array<KeyRow<Key>, N>& table) {
  for (const KeyRow<Key>& row : table)
    if (row.toolkitKey == event.key()) return row.key;
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
