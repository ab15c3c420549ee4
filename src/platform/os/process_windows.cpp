#include <fcntl.h>
#include <fmt/core.h>
#include <io.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "common/user_error.h"
#include "platform/os/windows_calls.h"
#include "platform/process.h"

#include <shellapi.h>  // needs the system's other headers in front

namespace triaxlab {
namespace {

[[noreturn]] void failToStart(const std::filesystem::path& program, int error) {
  throw UserError(fmt::format("不能启动“{}”：{}。", textOfPath(program), causeOf(error)));
}

/// A word as programs take a command line apart again: between quotation marks, with those inside and the backslashes
/// in front of any escaped.
std::wstring inQuotes(std::string_view utf8) {
  std::wstring text = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : wideOf(utf8)) {
    if (c == L'"') text.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    text += c;
  }
  return text.append(backslashes, L'\\') + L'"';
}

std::wstring commandLineOf(const std::filesystem::path& program, std::span<const std::string> arguments) {
  std::wstring line = inQuotes(textOfPath(program));
  for (const std::string& argument : arguments) line += L' ' + inQuotes(argument);
  return line;
}

struct Started {
  Handle process;
  int number;
};

Started start(const std::filesystem::path& program, std::span<const std::string> arguments, Showing showing) {
  std::wstring line = commandLineOf(program, arguments);
  STARTUPINFOW wishes{};
  wishes.cb = sizeof wishes;
  wishes.dwFlags = STARTF_USESHOWWINDOW;
  wishes.wShowWindow = showing == Showing::Behind ? SW_SHOWNOACTIVATE : SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(systemName(program).c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &wishes,
                     &process) == 0)
    failToStart(program, lastError());
  CloseHandle(process.hThread);
  return {Handle(process.hProcess), static_cast<int>(process.dwProcessId)};
}

}  // namespace

std::filesystem::path executableFolder() {
  std::wstring name(32768, L'\0');  // the longest that there is
  name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
  return std::filesystem::path(name).parent_path();
}

void takeFailuresAsErrors() {
  // No box of the system that waits for a person in front of an empty drive.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  // What is written comes out as it is, and the console shows it as what it is; later programs find it as it was.
  for (std::FILE* const stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  static const UINT codePage = GetConsoleOutputCP();
  SetConsoleOutputCP(CP_UTF8);
  std::atexit([] { SetConsoleOutputCP(codePage); });
}

CommandWords commandWords(int /*count*/, char** /*words*/) {
  static std::vector<std::string> texts;
  static std::vector<char*> pointers;
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  texts.clear();
  for (int i = 0; i < count; ++i) texts.push_back(utf8Of(wide[i]));
  LocalFree(wide);
  pointers.clear();
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return {count, pointers.data()};
}

int startProgram(const std::filesystem::path& program, std::span<const std::string> arguments, Showing showing) {
  return start(program, arguments, showing).number;
}

void becomeProgram(const std::filesystem::path& program, char* const* arguments) {
  std::fflush(nullptr);
  std::vector<std::string> words;
  for (char* const* word = arguments + 1; *word != nullptr; ++word) words.emplace_back(*word);
  // No program here takes the place of another, so this one waits and then ends as the other did.
  const Started other = start(program, words, Showing::Usual);
  DWORD status = EXIT_FAILURE;
  WaitForSingleObject(other.process.get(), INFINITE);
  GetExitCodeProcess(other.process.get(), &status);
  std::_Exit(static_cast<int>(status));
}

}  // namespace triaxlab
