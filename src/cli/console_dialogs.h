#pragma once

#include "common/user_error.h"
#include "platform/dialogs.h"

namespace triaxlab::cli {

/// One line on standard error; line breaks become blanks. Where it can't be written the work goes on all the same.
void printError(std::string_view sentence);
/// Writes on standard output.
void print(std::string_view text);
/// Writes out what waits, and returns false when anything was lost on either stream: a disk is full, a pipe has no
/// reader, the stream was never open.
bool outputIsWhole();
void printRemarks(const Remarks& remarks);

/// The boxes of a program without a screen: a message goes to standard error as "[title] text". Nobody is there to
/// answer, so a question is answered with its default and a choice counts as cancelled.
class ConsoleDialogs : public Dialogs {
 public:
  void message(std::string_view title, std::string_view text, MessageIcon icon) override;
  bool ask(std::string_view title, std::string_view text, MessageIcon icon) override;
  std::optional<std::filesystem::path> chooseFile(const FileQuestion& question) override;
  std::optional<std::filesystem::path> chooseFileToSave(const FileQuestion& question) override;
  std::optional<std::string> input(std::string_view title, std::string_view prompt, std::string_view value) override;
  std::optional<std::size_t> choose(std::string_view title, std::string_view text,
                                    std::span<const std::string> choices) override;
};

}  // namespace triaxlab::cli
