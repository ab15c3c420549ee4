#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>

#include "platform/last_words.h"
#include "platform/os/last_words_calls.h"
#include "platform/os/windows_calls.h"

namespace triaxlab {
namespace {

struct FatalException {
  DWORD code;
  const char* name;
};
constexpr std::array kFatalExceptions{
    FatalException{EXCEPTION_ACCESS_VIOLATION, "SIGSEGV"}, FatalException{EXCEPTION_STACK_OVERFLOW, "SIGSEGV"},
    FatalException{EXCEPTION_IN_PAGE_ERROR, "SIGBUS"}, FatalException{EXCEPTION_INT_DIVIDE_BY_ZERO, "SIGFPE"},
    FatalException{EXCEPTION_ILLEGAL_INSTRUCTION, "SIGILL"}};

void put(HANDLE file, const char* text) noexcept {
  DWORD written = 0;
  WriteFile(file, text, static_cast<DWORD>(std::strlen(text)), &written, nullptr);
}

LONG WINAPI sayAtException(EXCEPTION_POINTERS* thrown) {
  const auto* const known =
      std::ranges::find(kFatalExceptions, thrown->ExceptionRecord->ExceptionCode, &FatalException::code);
  sayLastWords(known != kFatalExceptions.end() ? known->name : "未知的错误");
  // The process ends with the number of the exception, as it would have, but without a box that waits for a person.
  return EXCEPTION_EXECUTE_HANDLER;
}

void sayAtAbort(int /*signal*/) { sayLastWords("SIGABRT"); }

}  // namespace

std::wstring nameForSystem(const std::filesystem::path& file) { return systemName(file); }

void addToFile(const wchar_t* file, std::uint64_t largestFile, std::span<const char* const> texts) noexcept {
  HANDLE const handle =
      CreateFileW(file, GENERIC_WRITE, kSharedByAll, nullptr, OPEN_ALWAYS, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return;
  LARGE_INTEGER size{};
  const bool isLarge = GetFileSizeEx(handle, &size) != 0 && static_cast<std::uint64_t>(size.QuadPart) > largestFile;
  SetFilePointer(handle, 0, nullptr, isLarge ? FILE_BEGIN : FILE_END);
  if (isLarge) SetEndOfFile(handle);
  for (const char* const text : texts) put(handle, text);
  CloseHandle(handle);
}

void addToStandardError(std::span<const char* const> texts) noexcept {
  for (const char* const text : texts) put(GetStdHandle(STD_ERROR_HANDLE), text);
}

void listenForTheEnd() {
  SetUnhandledExceptionFilter(sayAtException);
  std::signal(SIGABRT, sayAtAbort);
}

}  // namespace triaxlab
