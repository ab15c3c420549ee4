#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace triaxlab {

/// One line of a script: its first word and what follows behind one blank, as written.
struct ScriptLine {
  int number = 0;  // in the file, from 1
  std::string name;
  std::string rest;
};

/// The statements of a script (UTF-8, lines end with LF or CR LF); empty lines and lines that start with "#" are left
/// out. UserError when the file can't be read.
std::vector<ScriptLine> readScript(const std::filesystem::path& file);

/// What a statement fails with; the player adds the line number.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The rest of a statement, taken apart from the left. Words are parted by blanks; a text at the end keeps its own.
class Arguments {
 public:
  explicit Arguments(std::string_view rest) : m_rest(rest) {}
  bool isEmpty() const;
  /// ScriptError when there is none; `what` names it.
  std::string word(std::string_view what);
  /// A whole number.
  int number(std::string_view what);
  /// All that is left behind the one blank of the word before; may be empty.
  std::string text();
  /// ScriptError when something is left.
  void end() const;

 private:
  std::string_view m_rest;
};

/// `WINDOW.CONTROL`; the control is empty for a window alone.
struct Target {
  std::string window;
  std::string control;
  std::string spelled() const { return control.empty() ? window : window + "." + control; }
};
Target targetOf(std::string_view word);

/// A text on one line: line breaks as "\n".
std::string onOneLine(std::string_view text);

}  // namespace triaxlab
