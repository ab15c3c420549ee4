#include "windows/controls/key_help.h"

#include <QKeySequence>
#include <array>
#include <utility>

namespace triaxlab {
namespace {

constexpr std::array<std::pair<Qt::Key, const char*>, 9> kNames{{
    {Qt::Key_Left, "←"},
    {Qt::Key_Right, "→"},
    {Qt::Key_Up, "↑"},
    {Qt::Key_Down, "↓"},
    {Qt::Key_Return, "回车"},
    {Qt::Key_Enter, "回车"},
    {Qt::Key_PageUp, "PageUp"},
    {Qt::Key_PageDown, "PageDown"},
    {Qt::Key_Escape, "Esc"},
}};

}  // namespace

QString keyName(int toolkitKey) {
  const QKeyCombination combination = QKeyCombination::fromCombined(toolkitKey);
  const auto* const named = std::ranges::find(kNames, combination.key(), [](const auto& row) { return row.first; });
  if (named == kNames.end()) return QKeySequence(toolkitKey).toString(QKeySequence::PortableText);
  // What stands in front of the key.
  const int modifiers = toolkitKey & int(Qt::KeyboardModifierMask);
  return QKeySequence(modifiers).toString(QKeySequence::PortableText) + named->second;
}

}  // namespace triaxlab
