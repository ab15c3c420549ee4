#include <fmt/core.h>

#include <array>
#include <cstdint>
#include <filesystem>

#include "platform/fault_stack.h"
#include "platform/files.h"
#include "platform/os/windows_calls.h"

namespace triaxlab {
namespace {

std::string lineOf(void* address) {
  HMODULE module = nullptr;
  std::array<wchar_t, 1024> file{};
  const auto number = reinterpret_cast<std::uintptr_t>(address);
  if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         static_cast<const wchar_t*>(address), &module) == 0 ||
      GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size() - 1)) == 0)
    return fmt::format("{:#x}\n", number);
  return fmt::format("({}+{:#x})\n", textOfPath(std::filesystem::path(file.data()).filename()),
                     number - reinterpret_cast<std::uintptr_t>(module));
}

}  // namespace

// A throw isn't seen here, so the calls are always those that led to whoever asks.
std::string stackOfFault() {
  std::array<void*, 48> addresses{};
  const USHORT count = CaptureStackBackTrace(1, static_cast<DWORD>(addresses.size()), addresses.data(), nullptr);
  std::string lines;
  for (USHORT i = 0; i < count; ++i) lines += lineOf(addresses.at(i));
  return lines;
}

}  // namespace triaxlab
