#include "platform/fault_stack.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <fmt/core.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <span>

#include "platform/os/last_throw.h"

namespace triaxlab {
namespace {

std::uintptr_t numberOf(const void* address) { return reinterpret_cast<std::uintptr_t>(address); }

std::string readableName(const char* symbol) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(symbol, nullptr, nullptr, &status),
                                                         &std::free);
  return status == 0 ? name.get() : symbol;
}

std::string lineOf(void* address) {
  Dl_info place{};
  if (dladdr(address, &place) == 0 || place.dli_fname == nullptr) return fmt::format("{:#x}\n", numberOf(address));
  const std::string file = std::filesystem::path(place.dli_fname).filename().string();
  const std::string name = place.dli_sname != nullptr ? readableName(place.dli_sname) + " " : "";
  return fmt::format("{}({}+{:#x})\n", name, file, numberOf(address) - numberOf(place.dli_fbase));
}

std::string linesOf(std::span<void* const> addresses) {
  std::string lines;
  for (void* const address : addresses) lines += lineOf(address);
  return lines;
}

}  // namespace

std::string stackOfFault() {
  const std::type_info* const handled = abi::__cxa_current_exception_type();
  // Another exception may have come and gone while this one was on its way.
  const LastThrow& last = lastThrow();
  if (handled != nullptr && last.type != nullptr && *handled == *last.type) return linesOf(last.calls.without(1));
  Calls here;
  here.take();
  return linesOf(here.without(1));
}

}  // namespace triaxlab
