#include "platform/last_words.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <string>

#include "platform/os/windows_calls.h"

namespace triaxlab {
namespace {

// What ends a process is handed nothing of it, so what it knows stands here, made before anything fails.
std::wstring keptFile;
std::string keptHead;
std::array<char, 2048> keptDeed{};
std::uint64_t largestFile = 0;
volatile std::sig_atomic_t isSaid = 0;

void put(HANDLE file, const char* text) noexcept {
  DWORD written = 0;
  WriteFile(file, text, static_cast<DWORD>(std::strlen(text)), &written, nullptr);
}

void putInFile(const char* reason) noexcept {
  if (keptFile.empty()) return;
  HANDLE const file = CreateFileW(keptFile.c_str(), GENERIC_WRITE, kSharedByAll, nullptr, OPEN_ALWAYS,
                                  FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  LARGE_INTEGER size{};
  const bool isLarge = GetFileSizeEx(file, &size) != 0 && static_cast<std::uint64_t>(size.QuadPart) > largestFile;
  SetFilePointer(file, 0, nullptr, isLarge ? FILE_BEGIN : FILE_END);
  if (isLarge) SetEndOfFile(file);
  const char* const deed = keptDeed.data();
  for (const char* const text : {keptHead.c_str(), "\n", reason, "\n命令: ", deed, "\n\n"}) put(file, text);
  CloseHandle(file);
}

struct FatalException {
  DWORD code;
  const char* name;
};
constexpr std::array kFatalExceptions{
    FatalException{EXCEPTION_ACCESS_VIOLATION, "SIGSEGV"}, FatalException{EXCEPTION_STACK_OVERFLOW, "SIGSEGV"},
    FatalException{EXCEPTION_IN_PAGE_ERROR, "SIGBUS"}, FatalException{EXCEPTION_INT_DIVIDE_BY_ZERO, "SIGFPE"},
    FatalException{EXCEPTION_ILLEGAL_INSTRUCTION, "SIGILL"}};

LONG WINAPI sayAtException(EXCEPTION_POINTERS* thrown) {
  const auto* const known =
      std::ranges::find(kFatalExceptions, thrown->ExceptionRecord->ExceptionCode, &FatalException::code);
  sayLastWords(known != kFatalExceptions.end() ? known->name : "未知的错误");
  return EXCEPTION_CONTINUE_SEARCH;  // the process ends as it would have
}

void sayAtAbort(int /*signal*/) { sayLastWords("SIGABRT"); }

}  // namespace

void prepareLastWords(const LastWords& words) {
  keptFile = words.file.empty() ? std::wstring() : systemName(words.file);
  keptHead = words.head;
  largestFile = words.largestFile;
  SetUnhandledExceptionFilter(sayAtException);
  std::signal(SIGABRT, sayAtAbort);
}

void noteLastDeed(std::string_view deed) noexcept {
  const std::size_t size = std::min(deed.size(), keptDeed.size() - 1);
  std::copy_n(deed.data(), size, keptDeed.data());
  keptDeed[size] = '\0';
}

void sayLastWords(const char* reason) noexcept {
  if (isSaid != 0) return;
  isSaid = 1;
  putInFile(reason);
  for (const char* const text : {"程序意外中断（", reason, "）。\n"}) put(GetStdHandle(STD_ERROR_HANDLE), text);
}

void withholdLastWords() noexcept { isSaid = 1; }

}  // namespace triaxlab
