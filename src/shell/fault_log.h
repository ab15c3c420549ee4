#pragma once

#include <cstddef>
#include <deque>
#include <filesystem>
#include <string>
#include <string_view>

namespace triaxlab {

/// The exception that is being handled, its type and its words; UTF-8.
std::string thrownText();

/// What was done and said before something went wrong that nobody expected, and the report of it: a text file in the
/// application folder, to which each fault adds a few lines. It holds no readings.
class FaultLog {
 public:
  explicit FaultLog(const std::filesystem::path& applicationFolder) : m_file(applicationFolder / kFileName) {}

  const std::filesystem::path& file() const { return m_file; }
  /// The last ones of both are kept.
  void noteCommand(std::string_view name) {
    note(m_commands, name);
    ++m_commandCount;
  }
  std::size_t commandCount() const { return m_commandCount; }
  /// Something that the toolkit had to say.
  void noteMessage(std::string_view text) { note(m_messages, text); }
  /// Adds a fault to the report. False when the file can't be written; nothing is thrown.
  bool write(std::string_view thrown) const noexcept;

 private:
  static constexpr const char* kFileName = "triaxlab-fault.txt";
  static constexpr std::size_t kKept = 20;

  static void note(std::deque<std::string>& last, std::string_view text);

  std::filesystem::path m_file;
  std::deque<std::string> m_commands, m_messages;
  std::size_t m_commandCount = 0;
};

}  // namespace triaxlab
