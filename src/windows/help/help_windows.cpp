#include "windows/help/help_windows.h"

#include <QApplication>
#include <QWidget>

#include "shell/help_topics.h"
#include "windows/controls/words.h"
#include "windows/help/about_window.h"
#include "windows/help/manual_window.h"

namespace triaxlab {
namespace {

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
  groups.insert(groups.end(), common.begin(), common.end());
  manualFor(front).showKeys(front->windowTitle(), groups);
}

void HelpWindows::showAbout(QWidget* front, const Workspace& workspace) { AboutWindow(front, workspace).exec(); }

void HelpWindows::close() { m_manual.reset(); }

}  // namespace triaxlab
