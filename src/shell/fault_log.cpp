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
#include <utility>

#include "common/user_error.h"
#include "platform/fault_stack.h"
#include "platform/files.h"
#include "shell/about.h"

namespace triaxlab {
namespace {

/// A file that has grown beyond this begins anew: a fault that comes back all day must not fill the disk.
constexpr std::uint64_t kLargestFile = std::uint64_t{256} * 1024;
/// What one report may add to it, and more.
constexpr std::uint64_t kLargestRead = 4 * kLargestFile;
/// Bytes of a single text in it, and how many commands and messages.
constexpr std::size_t kLongestText = 1000, kKept = 20;

/// The beginning of a text; no character of UTF-8 is cut in two.
std::string_view beginningOf(std::string_view text) {
  if (text.size() <= kLongestText) return text;
  std::size_t end = kLongestText;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  return text.substr(0, end);
}

void note(std::deque<std::string>& last, std::string_view text) {
  last.emplace_back(beginningOf(text));
  if (last.size() > kKept) last.pop_front();
}

std::string timeNow() { return fmt::format("{:%Y-%m-%d %H:%M:%S}", fmt::localtime(std::time(nullptr))); }

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

FaultLog::FaultLog(const std::filesystem::path& applicationFolder, std::string program, std::string version)
    : m_program(std::move(program)), m_version(version.empty() ? programVersion({}) : std::move(version)) {
  keepIn(applicationFolder);
}

void FaultLog::keepIn(const std::filesystem::path& applicationFolder) {
  const auto fileNamed = [&](const char* ending) {
    return applicationFolder.empty() ? std::filesystem::path() : applicationFolder / (m_program + ending);
  };
  m_file = fileNamed("-fault.txt");
  m_seenFile = fileNamed("-fault-seen.txt");
}

void FaultLog::noteCommand(std::string_view name) {
  note(m_commands, name);
  ++m_commandCount;
  noteLastDeed(fmt::format("{}", fmt::join(m_commands, " ")));
}

void FaultLog::noteMessage(std::string_view text) { note(m_messages, text); }

bool FaultLog::write(std::string_view thrown) const noexcept try {
  if (m_file.empty()) return false;
  const std::string report =
      fmt::format("{}  {} {}\n{}\n命令: {}\n消息: {}\n位置:\n{}\n", timeNow(), m_program, m_version,
                  beginningOf(thrown), fmt::join(m_commands, " "), fmt::join(m_messages, "\n      "), stackOfFault());
  File file(m_file, File::Mode::Shared);
  if (file.size() > kLargestFile) file.resize(0);
  file.writeAt(file.size(), std::as_bytes(std::span(report)));
  return true;
} catch (...) {
  return false;
}

LastWords FaultLog::lastWords() const {
  return {.file = m_file,
          .largestFile = kLargestFile,
          .head = fmt::format("{} {}，{} 启动，意外中断", m_program, m_version, timeNow())};
}

std::string FaultLog::unseen() const {
  if (m_file.empty()) return {};
  try {
    if (!fileExists(m_file)) return {};
    const Bytes content = readWholeFile(m_file, kLargestRead);
    return {reinterpret_cast<const char*>(content.data()), content.size()};
  } catch (const UserError& error) {
    return error.what();
  }
}

std::filesystem::path FaultLog::setAside() const {
  try {
    moveFile(m_file, m_seenFile);
    return m_seenFile;
  } catch (const UserError&) {
    return m_file;
  }
}

}  // namespace triaxlab
