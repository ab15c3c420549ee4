#pragma once

#include <cstddef>
#include <deque>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/last_words.h"

namespace triaxlab {

/// The exception that is being handled, its type and its words; UTF-8.
std::string thrownText();

/// What was done and said before something went wrong that nobody expected, and the reports of it: a text file in the
/// application folder, to which each fault adds some lines until a person has been shown them. They hold no readings.
class FaultLog {
 public:
  /// Each program has a file of its own; `version` tells its builder which one it is. With an empty folder nothing is
  /// written.
  explicit FaultLog(const std::filesystem::path& applicationFolder, std::string program = "triaxlab",
                    std::string version = {});

  void keepIn(const std::filesystem::path& applicationFolder);
  const std::filesystem::path& file() const { return m_file; }
  /// The last ones of both are kept.
  void noteCommand(std::string_view name);
  std::size_t commandCount() const { return m_commandCount; }
  /// Something that the toolkit had to say.
  void noteMessage(std::string_view text);
  /// Adds a fault to the reports. False when the file can't be written; nothing is thrown.
  bool write(std::string_view thrown) const noexcept;
  /// What a process adds that can't write a report any more.
  LastWords lastWords() const;

  /// The reports that nobody was shown yet, or why they can't be read; empty when there are none.
  std::string unseen() const;
  /// They have been shown: they stand in the place of those that were shown before now, which is given. Where that
  /// can't be done they stay where they are.
  std::filesystem::path setAside() const;

 private:
  std::string m_program, m_version;
  std::filesystem::path m_file, m_seenFile;
  std::deque<std::string> m_commands, m_messages;
  std::size_t m_commandCount = 0;
};

}  // namespace triaxlab
