#include "platform/os/last_throw.h"

#include <dlfcn.h>

#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#define TRIAXLAB_LEAVE_THROW_ALONE
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TRIAXLAB_LEAVE_THROW_ALONE
#endif
#endif

namespace triaxlab {

LastThrow& lastThrow() noexcept {
  thread_local LastThrow last;
  return last;
}

}  // namespace triaxlab

#ifndef TRIAXLAB_LEAVE_THROW_ALONE
// Every throw, of the libraries too, comes through here on its way to the language's own function, for the calls that
// led to it are nowhere else to be had. The parameters are those that the compiler gives it unseen.
// NOLINTNEXTLINE(bugprone-reserved-identifier): it is the language's own
extern "C" __attribute__((noreturn, used, visibility("default"))) void __cxa_throw(void* thrown, void* type,
                                                                                   void (*destroy)(void*)) {
  using Throw = void (*)(void*, void*, void (*)(void*));
  static const auto usualThrow = reinterpret_cast<Throw>(dlsym(RTLD_NEXT, "__cxa_throw"));
  triaxlab::LastThrow& last = triaxlab::lastThrow();
  last.type = static_cast<const std::type_info*>(type);
  last.calls.take();
  if (usualThrow != nullptr) usualThrow(thrown, type, destroy);
  std::abort();
}
#endif
