#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace triaxlab {

/// What a key does, or several that do the same, as a person reads it.
struct KeyHelp {
  QString keys, effect;
};

/// Keys that work in one place of a window.
struct KeyGroup {
  QString where;
  std::vector<KeyHelp> keys;
};

/// A window that can tell its keys. It takes them from the tables by which it binds them.
class KeyedWindow {
 public:
  virtual ~KeyedWindow() = default;
  virtual std::vector<KeyGroup> keyHelp() const = 0;
};

/// A key of the toolkit, with its modifiers, as it is named on the keyboard and in the manual.
QString keyName(int toolkitKey);

/// What a table of rows {toolkitKey, ..., effect} says; keys of one effect stand together.
template <class Rows>
std::vector<KeyHelp> keyHelpOf(const Rows& rows) {
  std::vector<KeyHelp> help;
  for (const auto& row : rows) {
    const QString name = keyName(row.toolkitKey), effect = row.effect;
    const auto same = std::ranges::find(help, effect, &KeyHelp::effect);
    if (same == help.end())
      help.push_back({name, effect});
    else if (!same->keys.split("、").contains(name))
      same->keys += "、" + name;
  }
  return help;
}

/// Tables of one place, one after the other.
template <class... Rows>
KeyGroup keyGroup(const QString& where, const Rows&... tables) {
  KeyGroup group{where, {}};
  const auto add = [&group](std::vector<KeyHelp> rows) {
    group.keys.insert(group.keys.end(), rows.begin(), rows.end());
  };
  (add(keyHelpOf(tables)), ...);
  return group;
}

}  // namespace triaxlab
