#include "windows/play/player.h"

#include <fmt/core.h>

#include <QApplication>
#include <QDialog>
#include <QThread>
#include <QTimer>
#include <cstdio>

namespace triaxlab {
namespace {

constexpr int kPatience = 2000;          // steps that the program may take to come to rest
constexpr int kActivationPatience = 20;  // steps until a window is expected to be active
constexpr int kPause = 5;                // milliseconds between them

int modalWindows() {
  int count = 0;
  for (const QWidget* const window : QApplication::topLevelWidgets()) count += window->isVisible() && window->isModal();
  return count;
}

/// A window that has been closed may still be in its event loop. A list that hangs open is at rest: it waits for a key.
bool loopsFitWindows() { return QThread::currentThread()->loopLevel() <= 1 + modalWindows(); }

/// When a modal window closes, a desktop without a window manager leaves no window active; keys would be lost.
bool hasActiveWindow() {
  QWidget* const modal = QApplication::activeModalWidget();
  QWidget* const active = QApplication::activeWindow();
  if (active != nullptr && (modal == nullptr || modal == active)) return true;
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (window->isVisible() && (modal == nullptr || modal == window)) window->activateWindow();
  return false;
}

}  // namespace

Player::Player(std::vector<ScriptLine> lines, PlayDialogs& dialogs, std::filesystem::path folder)
    : m_lines(std::move(lines)), m_dialogs(dialogs), m_stage{dialogs, std::move(folder)} {}

void Player::schedule(int milliseconds) const { QTimer::singleShot(milliseconds, this, &Player::step); }

bool Player::isSettled() {
  ++m_unrest;
  return loopsFitWindows() && (hasActiveWindow() || m_unrest > kActivationPatience);
}

void Player::step() {
  if (m_failed) return;
  checkDialogs();
  if (m_failed) return;
  if (!isSettled()) {
    if (m_unrest > kPatience) return fail("the program doesn't come to rest");
    return schedule(kPause);
  }
  m_unrest = 0;
  if (m_next == m_lines.size()) return leave(0);
  // A statement that opens a modal window returns only when that has closed, so the next one is on its way before it.
  schedule(0);
  run(m_lines[m_next++]);
}

void Player::run(const ScriptLine& line) {
  m_currentLine = line.number;
  try {
    runStatement(line, m_stage);
    checkDialogs();
  } catch (const ScriptError& error) {
    fail(error.what());
  }
}

void Player::checkDialogs() {
  if (const auto failure = m_dialogs.takeFailure()) fail(*failure);
}

void Player::fail(const std::string& reason) {
  if (m_failed) return;
  m_failed = true;
  fmt::print(stderr, "line {}: {}\n", m_currentLine, reason);
  leave(1);
}

void Player::leave(int status) {
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (auto* const dialog = qobject_cast<QDialog*>(window); dialog != nullptr && dialog->isVisible())
      dialog->QDialog::reject();
  QCoreApplication::exit(status);
}

int Player::finish() {
  checkDialogs();
  while (!m_failed && m_next < m_lines.size()) run(m_lines[m_next++]);
  std::fflush(stdout);
  return m_failed ? 1 : 0;
}

}  // namespace triaxlab
