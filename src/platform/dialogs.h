#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace triaxlab {

enum class MessageIcon : std::uint8_t { None, Information, Exclamation, Stop };

/// What a file dialog shows. `filter` is "words|mask|words|mask", all texts UTF-8.
struct FileQuestion {
  std::string title;
  std::string filter;
  std::filesystem::path initial;  // the folder with the default file name
  bool replacesSilently = false;  // of a file to save: nobody is asked about one that exists
};

/// The plain boxes that an operation may ask through. Texts are UTF-8 with "\n" as line break.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  virtual void message(std::string_view title, std::string_view text, MessageIcon icon) = 0;
  /// A box with Yes and No, Yes the default; true for Yes.
  virtual bool ask(std::string_view title, std::string_view text, MessageIcon icon) = 0;
  /// Nothing when the person cancels.
  virtual std::optional<std::filesystem::path> chooseFile(const FileQuestion& question) = 0;
  virtual std::optional<std::filesystem::path> chooseFileToSave(const FileQuestion& question) = 0;
  virtual std::optional<std::string> input(std::string_view title, std::string_view prompt, std::string_view value) = 0;
  /// One of several, the first to begin with; its place, or nothing when the person cancels.
  virtual std::optional<std::size_t> choose(std::string_view title, std::string_view text,
                                            std::span<const std::string> choices) = 0;
};

}  // namespace triaxlab
