#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "platform/files.h"
#include "store/safety/file_memory.h"

namespace triaxlab {

/// Asks whether to write over what another program has changed. True goes on.
using ChangeQuestion = std::function<bool(std::string_view title, std::string_view question)>;

/// The project files of one save or rewrite that another program has changed since they were read, and what the person
/// says to that. It outlives the locks of the operation, under which files are looked at again after each question.
class ChangedFiles {
 public:
  /// `title` heads the question. The memory outlives this.
  ChangedFiles(const FileMemory& memory, FileUse use, std::string_view title)
      : m_memory(memory), m_use(use), m_title(title) {}

  /// Looks at a file that is about to be written.
  void look(const std::filesystem::path& file);
  /// True when a file was found changed into a state that nobody has agreed to write over.
  bool hasQuestion() const { return !m_open.empty(); }
  /// Asks about the files found. Where there is nobody to ask, the answer is yes, and a remark. UserError that says
  /// that nothing was saved when the answer is no.
  Remarks ask(const ChangeQuestion& question);

 private:
  struct Found {
    std::filesystem::path file;
    std::optional<FileStamp> now;  // nothing: it is gone
  };
  static std::string sentence(const Found& found);

  const FileMemory& m_memory;
  FileUse m_use;
  std::string m_title;
  std::vector<Found> m_open;
  std::map<std::filesystem::path, std::optional<FileStamp>> m_agreed;
};

}  // namespace triaxlab
