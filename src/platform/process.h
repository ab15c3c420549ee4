#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace triaxlab {

/// The folder of the running executable.
std::filesystem::path executableFolder();

/// The words of the command line, the name of the program first and a null last, in UTF-8. They last as long as the
/// program. `count` and `words` are what main was given, where that is not always UTF-8.
struct CommandWords {
  int count;
  char** words;
};
CommandWords commandWords(int count, char** words);

/// Called once before anything else: a limit on the size of files and a pipe that nobody reads end no program any more,
/// but are failures of the call that meets them; and no file that is opened later gets the place of a standard stream
/// that the caller left closed.
void takeFailuresAsErrors();

/// A program by its Windows name ("zmgj.exe"), in the first of the folders that has it, with or without ".exe". Nothing
/// when none has.
std::optional<std::filesystem::path> findProgram(std::span<const std::filesystem::path> folders,
                                                 std::string_view windowsName);

enum class Showing : std::uint8_t {
  Usual,
  Behind,  // its window doesn't take the focus where the desktop heeds such a wish
};

/// Starts a program with these arguments, as they are, without waiting for it. Its number among the processes.
/// UserError when it can't be started.
int startProgram(const std::filesystem::path& program, std::span<const std::string> arguments = {},
                 Showing showing = Showing::Usual);

/// Goes on as another program with these arguments, the first of which is a name and the last null; what this one has
/// written is flushed first. Returns only by a UserError, when the program can't be started.
[[noreturn]] void becomeProgram(const std::filesystem::path& program, char* const* arguments);

/// A word for file names that no other program has, on this machine or another, and that is new at each call: the name
/// of the machine, the number of the process, a number drawn by lot, and a count.
std::string ownName();
/// True for a word that ownName may have given to any program.
bool isOwnName(std::string_view text);

/// What became of a wish about a window of another program.
enum class WindowWish : std::uint8_t {
  Done,          // the desktop was told
  NoSuchWindow,  // not yet, perhaps
  NotPossible,   // on this desktop, or without one
};

/// Brings the window with this title (UTF-8) to the front, whatever program it belongs to; without one the first whose
/// title begins so. An empty title names none.
WindowWish raiseWindow(std::string_view title);
/// Lets the desktop put the windows of a process away into its bar.
WindowWish minimizeWindowsOf(int process);

}  // namespace triaxlab
