#include "shell/fault_log.h"

#include <cxxabi.h>
#include <fmt/chrono.h>
#include <fmt/core.h>
#include <fmt/ranges.h>

#include <cstdlib>
#include <ctime>
#include <exception>
#include <memory>
#include <span>
#include <typeinfo>

#include "platform/files.h"

namespace triaxlab {
namespace {

/// A file that has grown beyond this begins anew: a fault that comes back all day must not fill the disk.
constexpr std::uint64_t kLargestFile = std::uint64_t{256} * 1024;

std::string nameOf(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                         &std::free);
  return status == 0 ? name.get() : type.name();
}

}  // namespace

std::string thrownText() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return "内存不足";
  } catch (const std::exception& exception) {
    return fmt::format("{}: {}", nameOf(typeid(exception)), exception.what());
  } catch (...) {
    const std::type_info* const type = abi::__cxa_current_exception_type();
    return type != nullptr ? nameOf(*type) : "未知的错误";
  }
}

void FaultLog::note(std::deque<std::string>& last, std::string_view text) {
  last.emplace_back(text);
  if (last.size() > kKept) last.pop_front();
}

bool FaultLog::write(std::string_view thrown) const noexcept try {
  const std::string report =
      fmt::format("{:%Y-%m-%d %H:%M:%S}  triaxlab {}\n{}\n命令: {}\n消息: {}\n\n", fmt::localtime(std::time(nullptr)),
                  TRIAXLAB_VERSION, thrown, fmt::join(m_commands, " "), fmt::join(m_messages, "\n      "));
  File file(m_file, File::Mode::Shared);
  if (file.size() > kLargestFile) file.resize(0);
  file.writeAt(file.size(), std::as_bytes(std::span(report)));
  return true;
} catch (...) {
  return false;
}

}  // namespace triaxlab
