#pragma once

#include <QObject>
#include <cstddef>
#include <filesystem>
#include <vector>

#include "windows/play/play_dialogs.h"
#include "windows/play/script.h"
#include "windows/play/statements.h"

namespace triaxlab {

/// Plays a script against the open windows, one statement whenever the program is idle; a modal window does not hold it
/// up. The first statement that fails ends the program with status 1, the end of the script ends it with 0.
class Player : public QObject {
  Q_OBJECT

 public:
  Player(std::vector<ScriptLine> lines, PlayDialogs& dialogs, std::filesystem::path folder);

  void start() { schedule(0); }
  /// The exit status, once the event loop has returned. Statements behind one that ended the program find no window any
  /// more, but can still ask for the messages.
  int finish();

 private:
  void schedule(int milliseconds) const;
  void step();
  bool isSettled();
  void run(const ScriptLine& line);
  void checkDialogs();
  void fail(const std::string& reason);
  static void leave(int status);

  std::vector<ScriptLine> m_lines;
  PlayDialogs& m_dialogs;
  Stage m_stage;
  std::size_t m_next = 0;
  int m_currentLine = 0;
  int m_unrest = 0;  // steps since the program was idle
  bool m_failed = false;
};

}  // namespace triaxlab
