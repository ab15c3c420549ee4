#pragma once

#include "platform/dialogs.h"

namespace triaxlab {

/// The plain boxes as windows of Qt, over whatever window is active. Neither Esc nor the corner answers a question: an
/// accidental key must not drop data.
class QtDialogs : public Dialogs {
 public:
  void message(std::string_view title, std::string_view text, MessageIcon icon) override;
  bool ask(std::string_view title, std::string_view text, MessageIcon icon) override;
  std::optional<std::filesystem::path> chooseFile(const FileQuestion& question) override;
  std::optional<std::filesystem::path> chooseFileToSave(const FileQuestion& question) override;
  std::optional<std::string> input(std::string_view title, std::string_view prompt, std::string_view value) override;
  std::optional<std::size_t> choose(std::string_view title, std::string_view text,
                                    std::span<const std::string> choices) override;
};

}  // namespace triaxlab
