#include "sessions/dialogs/habits_session.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

#include "platform/files.h"
#include "sessions/dialogs/error_display.h"
#include "sessions/dialogs/habit_samples.h"
#include "store/settings/text_edit.h"

namespace triaxlab {
namespace {

/// The content with all changed values; nothing is changed of a value that the file can't take when `refused` says so.
template <class Refused>
std::string withValues(const TextFile& file, std::string content, const TextValues& before, const TextValues& now,
                       Refused refused) {
  for (std::size_t k = 0; k < now.size(); ++k) {
    if (now[k] == before[k]) continue;
    try {
      content = withValue(file, content, file.keys[k], now[k]);
    } catch (const UserError& error) {
      refused(error);
    }
  }
  return content;
}

}  // namespace

HabitsSession::HabitsSession(Workspace& workspace, Dialogs& dialogs, std::function<void()> changeDataFolder)
    : m_workspace(workspace), m_dialogs(dialogs), m_changeDataFolder(std::move(changeDataFolder)) {
  for (const TextFile* const file : textFiles()) m_files.push_back(openFile(workspace, *file));
  foresee();
}

HabitsSession::OpenFile HabitsSession::openFile(const Workspace& workspace, const TextFile& file) {
  OpenFile open{&file, {}, {}, TextValues(file.keys.size()), {}};
  try {
    open.stored.emplace(workspace.applicationFolder, file);
    open.before = textValues(file, open.stored->content());
  } catch (const UserError& error) {
    open.problem = error.what();
  }
  open.now = open.before;
  return open;
}

// ---- files and keys

std::vector<std::string> HabitsSession::files() const {
  std::vector<std::string> names;
  for (const OpenFile& open : m_files) names.push_back(fmt::format("{}：{}", open.file->name, open.file->subject));
  return names;
}

void HabitsSession::chooseFile(std::size_t file) {
  if (file >= m_files.size()) return;
  m_file = file;
  m_key = 0;
}

std::string HabitsSession::fileNote() const {
  const std::string& problem = m_files[m_file].problem;
  return problem.empty() ? fmt::format("{}读，保存后立即生效。", file().isRead) : problem + "这里不能改它。";
}

std::string HabitsSession::valueShown(std::size_t key) const {
  const TextKey& shown = file().keys[key];
  const OpenFile& open = m_files[m_file];
  const std::optional<std::string>& value = open.now[key];
  const std::string mark = value == open.before[key] ? "" : " *";
  if (std::holds_alternative<FlagValue>(shown.value)) return (value ? "开" : "关") + mark;
  if (value) return *value + mark;
  const std::string usual = defaultOf(shown, m_toBe.habits);
  return fmt::format("{}（默认）{}", usual.empty() ? "空" : usual, mark);
}

std::string HabitsSession::cell(int row, int column) const {
  if (row < 1 || row > rowCount()) return {};
  const auto at = static_cast<std::size_t>(row - 1);
  if (column == 0) return std::to_string(row);
  if (column == 2) return valueShown(at);
  const TextKey& shown = file().keys[at];
  const bool isSlot = std::holds_alternative<SlotValue>(shown.value);
  return isSlot ? fmt::format("{}…]  {}", shown.key, shown.meaning) : std::string(shown.key);
}

void HabitsSession::chooseRow(int row) { m_key = static_cast<std::size_t>(std::clamp(row, 1, rowCount()) - 1); }

// ---- the chosen key

bool HabitsSession::isFlag() const { return std::holds_alternative<FlagValue>(key().value); }

std::string HabitsSession::meaning() const {
  std::string text = meaningOf(key()) + "。";
  if (const auto limits = limitsOf(key())) text += fmt::format("{} 至 {} 的整数。", limits->least, limits->most);
  const std::string usual = defaultText();
  if (isFlag()) return text + "默认：关。";
  return text + (usual.empty() ? "默认：空。" : fmt::format("默认：{}。", usual));
}

std::string HabitsSession::sample() const { return sampleOf(key(), m_toBe); }

std::string HabitsSession::defaultText() const { return defaultOf(key(), m_toBe.habits); }

void HabitsSession::setValue(std::optional<std::string> value) {
  if (!canBeChanged()) return;
  m_files[m_file].now[m_key] = std::move(value);
  m_saved.clear();
  foresee();
}

void HabitsSession::setOn(bool on) { setValue(on ? std::optional<std::string>("") : std::nullopt); }

void HabitsSession::setText(std::string_view typed) {
  const bool holdsEmpty = std::holds_alternative<SlotValue>(key().value);
  if (typed.empty() && !holdsEmpty) return useDefault();
  setValue(std::string(typed));
}

void HabitsSession::useDefault() { setValue(std::nullopt); }

void HabitsSession::foresee() {
  m_toBe = {};
  m_toBe.toggles = m_workspace.settings.toggles;
  const auto passOver = [](const UserError&) {};
  for (const OpenFile& open : m_files) {
    if (open.file == &kChartFile) m_toBe.chart = defaultChartLayout(m_toBe.habits);
    if (!open.stored) continue;
    applyTextFile(*open.file, withValues(*open.file, open.stored->content(), open.before, open.now, passOver), m_toBe);
  }
}

// ---- saving

bool HabitsSession::isChanged() const { return std::ranges::any_of(m_files, &OpenFile::isChanged); }

void HabitsSession::saveFile(OpenFile& open) {
  const auto refuse = [](const UserError& error) { throw error; };
  const std::string content = withValues(*open.file, open.stored->content(), open.before, open.now, refuse);
  try {
    open.stored->write(content);
  } catch (const UserError&) {
    // What somebody else has written meanwhile is shown, and over it what is still to be saved.
    const TextValues before = std::exchange(open.before, textValues(*open.file, open.stored->content()));
    for (std::size_t k = 0; k < before.size(); ++k)
      if (open.now[k] == before[k]) open.now[k] = open.before[k];
    throw;
  }
  open.before = open.now = textValues(*open.file, open.stored->content());
}

bool HabitsSession::save() {
  std::vector<std::string> written;
  bool isWhole = true;
  for (OpenFile& open : m_files) {
    if (!open.isChanged()) continue;
    const bool isSaved = runShowingErrors(m_dialogs, [&] { saveFile(open); });
    if (isSaved) written.emplace_back(open.file->name);
    isWhole = isWhole && isSaved;
  }
  foresee();
  m_saved.clear();
  for (const std::string& name : written) m_saved += (m_saved.empty() ? "已写入 " : "、") + name;
  return isWhole;
}

bool HabitsSession::mayClose() {
  if (!isChanged()) return true;
  return !m_dialogs.ask(kCaption, "有的习惯改了还没有保存。\n现在保存吗？", MessageIcon::Exclamation) || save();
}

std::string HabitsSession::dataFolder() const {
  return m_workspace.dataFolderProblem.empty() ? textOfPath(m_workspace.dataFolder) : m_workspace.dataFolderProblem;
}

}  // namespace triaxlab
