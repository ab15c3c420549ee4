#include "shell/guarded_end.h"

#include <cstdlib>
#include <exception>
#include <string>

namespace triaxlab {
namespace {

// The handler of the language is a plain function, so what it knows can't be handed to it.
FaultLog* lastLog = nullptr;
End lastEnd = nullptr;

[[noreturn]] void tellTheEnd() {
  static constexpr const char* kUnknown = "std::terminate";
  try {
    const std::string thrown = std::current_exception() ? thrownText() : kUnknown;
    if (lastLog->write(thrown))
      withholdLastWords();
    else
      sayLastWords(thrown.c_str());
    lastEnd(thrown.c_str());
  } catch (...) {
    // No memory is left for a report.
    sayLastWords(kUnknown);
    lastEnd(kUnknown);
  }
  std::abort();
}

}  // namespace

void guardTheEnd(FaultLog& log, End end) {
  lastLog = &log;
  lastEnd = end;
  prepareLastWords(log.lastWords());
  std::set_terminate(tellTheEnd);
}

}  // namespace triaxlab
