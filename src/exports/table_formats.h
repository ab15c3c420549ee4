#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace triaxlab {

using Cells = std::vector<std::string>;

/// A format of tables: how a line becomes bytes. Texts are UTF-8 and hold no control character.
struct TableFormat {
  std::string_view id;         // on the command line
  std::string_view extension;  // of the file, with its point
  /// Adds what stands above the lines.
  void (*addHeading)(std::string& file, const Cells& names);
  void (*addLine)(std::string& file, const Cells& names, const Cells& values);
};

/// csv: RFC 4180. jsonl: an object a line, its values texts, null for an empty one.
std::span<const TableFormat> tableFormats();
/// Null when there is none of that name, or with that extension in any case.
const TableFormat* tableFormatOfId(std::string_view id);
const TableFormat* tableFormatOfExtension(std::string_view extension);

}  // namespace triaxlab
