// The toolkit hands a job to the print service by its library and drops the answer. The library keeps it, for each
// thread, until the next request, so it is asked here, in the copy of it that the toolkit has loaded: a program that
// has printed nothing has none, and needs none to be built.
#include <dlfcn.h>
#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "platform/print_answer.h"

namespace triaxlab {
namespace {

/// Null when the library is not loaded.
template <class Function>
Function* ofLibrary(const char* name) {
  void* const library = dlopen("libcups.so.2", RTLD_LAZY | RTLD_NOLOAD);
  if (library == nullptr) return nullptr;
  auto* const function = reinterpret_cast<Function*>(dlsym(library, name));
  dlclose(library);  // gives back this look at it; it stays with the toolkit
  return function;
}

// RFC 8011, appendix B.1.
constexpr int kLastGoodAnswer = 0x00FF;
struct Refusal {
  int answer;
  const char* why;
};
constexpr const char* kNotAllowed = "没有使用这台打印机的权限";
constexpr std::array kRefusals{
    Refusal{0x0401, kNotAllowed},  // forbidden
    Refusal{0x0402, kNotAllowed},  // not authenticated
    Refusal{0x0403, kNotAllowed},  // not authorized
    Refusal{0x1000, kNotAllowed},  // the library's own: nobody gave a name and a password
    Refusal{0x0506, "这台打印机暂不接受打印任务"},
};

}  // namespace

std::optional<std::string> whyJobWasRefused() {
  auto* const lastAnswer = ofLibrary<int()>("cupsLastError");
  if (lastAnswer == nullptr) return std::nullopt;
  const int answer = lastAnswer();
  if (answer <= kLastGoodAnswer) return std::nullopt;
  const auto* const known = std::ranges::find(kRefusals, answer, &Refusal::answer);
  if (known != kRefusals.end()) return known->why;
  auto* const textOfAnswer = ofLibrary<const char*()>("cupsLastErrorString");
  const char* const text = textOfAnswer != nullptr ? textOfAnswer() : nullptr;
  return fmt::format("打印服务回答“{}”", text != nullptr ? text : fmt::format("{:#06x}", answer));
}

}  // namespace triaxlab
