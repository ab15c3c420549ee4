#include "cli/console_dialogs.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdio>

namespace triaxlab::cli {

void printError(std::string_view sentence) {
  std::string line(sentence);
  std::replace(line.begin(), line.end(), '\n', ' ');
  fmt::print(stderr, "{}\n", line);
}

void printRemarks(const Remarks& remarks) {
  for (const std::string& remark : remarks) printError(remark);
}

void ConsoleDialogs::message(std::string_view title, std::string_view text, MessageIcon) {
  printError(fmt::format("[{}] {}", title, text));
}

bool ConsoleDialogs::ask(std::string_view title, std::string_view text, MessageIcon icon) {
  message(title, text, icon);
  return true;
}

std::optional<std::filesystem::path> ConsoleDialogs::chooseFile(const FileQuestion&) { return std::nullopt; }

std::optional<std::filesystem::path> ConsoleDialogs::chooseFileToSave(const FileQuestion&) { return std::nullopt; }

std::optional<std::string> ConsoleDialogs::input(std::string_view, std::string_view, std::string_view) {
  return std::nullopt;
}

}  // namespace triaxlab::cli
