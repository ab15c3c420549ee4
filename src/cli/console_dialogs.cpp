#include "cli/console_dialogs.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdio>
#include <iostream>

namespace triaxlab::cli {

void printError(std::string_view sentence) {
  // No copy, for the sentence may tell that there is no memory left.
  while (!sentence.empty()) {
    const std::string_view line = sentence.substr(0, sentence.find('\n'));
    sentence.remove_prefix(std::min(line.size() + 1, sentence.size()));
    std::fwrite(line.data(), 1, line.size(), stderr);
    if (!sentence.empty()) std::fputc(' ', stderr);
  }
  std::fputc('\n', stderr);
}

void print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

bool outputIsWhole() {
  const bool isFlushed = std::cout.flush() && std::fflush(stdout) == 0;
  return isFlushed && std::ferror(stdout) == 0 && std::ferror(stderr) == 0;
}

void printRemarks(const Remarks& remarks) {
  for (const std::string& remark : remarks) printError(remark);
}

void ConsoleDialogs::message(std::string_view title, std::string_view text, MessageIcon /*icon*/) {
  printError(fmt::format("[{}] {}", title, text));
}

bool ConsoleDialogs::ask(std::string_view title, std::string_view text, MessageIcon icon) {
  message(title, text, icon);
  return true;
}

std::optional<std::filesystem::path> ConsoleDialogs::chooseFile(const FileQuestion& /*question*/) {
  return std::nullopt;
}

std::optional<std::filesystem::path> ConsoleDialogs::chooseFileToSave(const FileQuestion& /*question*/) {
  return std::nullopt;
}

std::optional<std::string> ConsoleDialogs::input(std::string_view /*title*/, std::string_view /*prompt*/,
                                                 std::string_view /*value*/) {
  return std::nullopt;
}

std::optional<std::size_t> ConsoleDialogs::choose(std::string_view /*title*/, std::string_view /*text*/,
                                                  std::span<const std::string> /*choices*/) {
  return std::nullopt;
}

}  // namespace triaxlab::cli
