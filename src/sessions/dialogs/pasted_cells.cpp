#include "sessions/dialogs/pasted_cells.h"

#include <optional>

namespace triaxlab {
namespace {

constexpr char kQuote = '"';

bool endsCell(std::string_view rest) {
  return rest.empty() || rest.front() == '\t' || rest.front() == '\n' || rest.front() == '\r';
}

/// Takes a quoted cell off the front. Nothing when a quotation mark in front is only a part of the text.
std::optional<std::string> takeQuoted(std::string_view& rest) {
  if (!rest.starts_with(kQuote)) return std::nullopt;
  std::string cell;
  for (std::size_t at = 1; at < rest.size(); ++at) {
    if (rest[at] != kQuote) {
      cell += rest[at];
    } else if (rest.substr(at + 1).starts_with(kQuote)) {
      cell += rest[at++];
    } else if (endsCell(rest.substr(at + 1))) {
      rest.remove_prefix(at + 1);
      return cell;
    } else {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

std::string takeCell(std::string_view& rest) {
  if (auto quoted = takeQuoted(rest)) return *std::move(quoted);
  std::size_t end = 0;
  while (!endsCell(rest.substr(end))) ++end;
  std::string cell(rest.substr(0, end));
  rest.remove_prefix(end);
  return cell;
}

void takeLineEnd(std::string_view& rest) {
  if (rest.starts_with('\r')) rest.remove_prefix(1);
  if (rest.starts_with('\n')) rest.remove_prefix(1);
}

}  // namespace

std::vector<std::vector<std::string>> pastedCells(std::string_view text) {
  std::vector<std::vector<std::string>> lines;
  while (!text.empty()) {
    std::vector<std::string>& line = lines.emplace_back();
    line.push_back(takeCell(text));
    while (text.starts_with('\t')) {
      text.remove_prefix(1);
      line.push_back(takeCell(text));
    }
    takeLineEnd(text);
  }
  return lines;
}

}  // namespace triaxlab
