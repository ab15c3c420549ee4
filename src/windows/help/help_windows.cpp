#include "windows/help/help_windows.h"

#include <QApplication>
#include <QWidget>
#include <array>

#include "shell/help_topics.h"
#include "windows/controls/words.h"
#include "windows/help/about_window.h"
#include "windows/help/manual_window.h"

namespace triaxlab {
namespace {

struct DialogKey {
  int toolkitKey;
  const char* effect;
};
/// Of every window that waits for an answer; the toolkit binds them.
constexpr std::array kDialogKeys{
    DialogKey{Qt::Key_Tab, "到后一栏、后一个按钮"},    DialogKey{int(Qt::SHIFT) | Qt::Key_Tab, "到前一栏、前一个按钮"},
    DialogKey{Qt::Key_Return, "按下带边框的按钮"},     DialogKey{Qt::Key_Escape, "离开，等于 取 消 或 返 回"},
    DialogKey{Qt::Key_F1, "手册，翻到这个窗口的一节"},
};

/// That of the window, or, for a box of which the manual has no place, of the window under it.
const HelpTopic* topicFor(const QWidget* window) {
  for (; window != nullptr; window = window->parentWidget())
    if (const HelpTopic* const topic = helpTopicOf(utf8(window->objectName()))) return topic;
  return nullptr;
}

}  // namespace

HelpWindows::HelpWindows() = default;
HelpWindows::~HelpWindows() = default;

ManualWindow& HelpWindows::manualFor(QWidget* front) {
  // Beside a modal window only what belongs to it can be used.
  if (front->isModal()) {
    auto* const own = front->findChild<ManualWindow*>(QString(), Qt::FindDirectChildrenOnly);
    return own != nullptr ? *own : *new ManualWindow(front);
  }
  if (m_manual == nullptr) m_manual = std::make_unique<ManualWindow>();
  return *m_manual;
}

void HelpWindows::showManual(QWidget* front) { manualFor(front).showTopic(topicFor(front)); }

void HelpWindows::showKeys(QWidget* front, const std::vector<KeyGroup>& common) {
  std::vector<KeyGroup> groups;
  if (const auto* const keyed = dynamic_cast<const KeyedWindow*>(front)) groups = keyed->keyHelp();
  // The menu is out of reach beside a modal window.
  if (front->isModal())
    groups.push_back(keyGroup("各种对话框", kDialogKeys));
  else
    groups.insert(groups.end(), common.begin(), common.end());
  manualFor(front).showKeys(front->windowTitle(), groups);
}

void HelpWindows::showAbout(QWidget* front, const Workspace& workspace) { AboutWindow(front, workspace).exec(); }

void HelpWindows::close() { m_manual.reset(); }

}  // namespace triaxlab
