#include "exports/table_formats.h"

#include <algorithm>
#include <array>

#include "common/small_letters.h"

namespace triaxlab {
namespace {

// ---- CSV

/// In quotation marks where a reader would otherwise part the text, or take blanks at its ends away.
void addCsvText(std::string& file, std::string_view text) {
  if (text.find_first_of(",\"") == std::string_view::npos && !text.starts_with(' ') && !text.ends_with(' ')) {
    file += text;
    return;
  }
  file += '"';
  for (const char c : text) {
    if (c == '"') file += '"';
    file += c;
  }
  file += '"';
}

void addCsvLine(std::string& file, const Cells& values) {
  const char* separator = "";
  for (const std::string& value : values) {
    file += separator;
    addCsvText(file, value);
    separator = ",";
  }
  file += "\r\n";
}

// ---- JSON lines

void addJsonText(std::string& file, std::string_view text) {
  file += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') file += '\\';
    file += c;
  }
  file += '"';
}

void addJsonLine(std::string& file, const Cells& names, const Cells& values) {
  const char* separator = "{";
  for (std::size_t i = 0; i < names.size(); ++i) {
    file += separator;
    addJsonText(file, names[i]);
    file += ": ";
    if (values[i].empty())
      file += "null";
    else
      addJsonText(file, values[i]);
    separator = ", ";
  }
  file += "}\n";
}

constexpr std::array kFormats{
    TableFormat{"csv", ".csv", addCsvLine,
                [](std::string& file, const Cells& /*names*/, const Cells& values) { addCsvLine(file, values); }},
    TableFormat{"jsonl", ".jsonl", [](std::string& /*file*/, const Cells& /*names*/) {}, addJsonLine},
};

template <class Matches>
const TableFormat* findFormat(Matches matches) {
  const auto* const format = std::ranges::find_if(kFormats, matches);
  return format != kFormats.end() ? format : nullptr;
}

}  // namespace

std::span<const TableFormat> tableFormats() { return kFormats; }

const TableFormat* tableFormatOfId(std::string_view id) {
  return findFormat([id](const TableFormat& format) { return format.id == id; });
}

const TableFormat* tableFormatOfExtension(std::string_view extension) {
  return findFormat([extension](const TableFormat& format) { return isSameName(format.extension, extension); });
}

}  // namespace triaxlab
