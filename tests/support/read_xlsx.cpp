// A reader of .xlsx files for tests: the parts of the archive, then the cells by the few tags that stand in them.
#include <zlib.h>

#include <cstdint>
#include <cstring>
#include <regex>
#include <stdexcept>
#include <string_view>

#include "common/text_number.h"
#include "support/file_bytes.h"
#include "support/read_sheets.h"

namespace triaxlab::testing {
namespace {

template <class Number>
Number numberAt(const std::string& bytes, std::size_t at) {
  Number number{};
  if (at + sizeof number > bytes.size()) throw std::runtime_error("a number behind the end");
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}

std::string inflated(std::string_view packed, std::size_t size) {
  std::string content(size, '\0');
  z_stream stream{};
  inflateInit2(&stream, -MAX_WBITS);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  stream.next_out = reinterpret_cast<Bytef*>(content.data());
  stream.avail_out = static_cast<uInt>(content.size());
  const int end = inflate(&stream, Z_FINISH);
  inflateEnd(&stream);
  if (end != Z_STREAM_END || stream.avail_out != 0) throw std::runtime_error("a part that isn't whole");
  return content;
}

std::map<std::string, std::string> partsOf(const std::string& file) {
  const std::size_t end = file.rfind("PK\x05\x06");
  if (end == std::string::npos) throw std::runtime_error("no archive");
  std::map<std::string, std::string> parts;
  std::size_t at = numberAt<std::uint32_t>(file, end + 16);
  for (int i = 0; i < numberAt<std::uint16_t>(file, end + 10); ++i) {
    const auto packed = numberAt<std::uint32_t>(file, at + 20), size = numberAt<std::uint32_t>(file, at + 24);
    const auto name = numberAt<std::uint16_t>(file, at + 28), extra = numberAt<std::uint16_t>(file, at + 30);
    const std::size_t local = numberAt<std::uint32_t>(file, at + 42);
    const std::size_t data =
        local + 30 + numberAt<std::uint16_t>(file, local + 26) + numberAt<std::uint16_t>(file, local + 28);
    parts[file.substr(at + 46, name)] = inflated(std::string_view(file).substr(data, packed), size);
    at += std::size_t{46} + name + extra + numberAt<std::uint16_t>(file, at + 32);
  }
  return parts;
}

/// The text with its entities and escaped underscores as they are meant.
std::string meant(std::string text) {
  for (const auto& [entity, character] :
       {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}, {"_x005F_", "_"}}) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
      const bool found = text.compare(at, std::strlen(entity), entity) == 0;
      result += found ? std::string(character) : text.substr(at, 1);
      at += found ? std::strlen(entity) : 1;
    }
    text = result;
  }
  return text;
}

template <class Take>
void eachMatch(const std::string& text, const char* pattern, Take take) {
  const std::regex expression(pattern);
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) take(*match);
}

/// The display formats of the cell formats.
std::vector<std::string> displaysOf(const std::string& styles) {
  std::map<std::string, std::string> known{{"0", "General"}, {"1", "0"}, {"2", "0.00"}, {"49", "@"}};
  eachMatch(styles, R"re(<numFmt numFmtId="(\d+)" formatCode="([^"]*)")re",
            [&](const std::smatch& match) { known[match[1]] = match[2]; });
  std::vector<std::string> displays;
  const std::size_t begin = styles.find("<cellXfs");
  eachMatch(styles.substr(begin, styles.find("</cellXfs>") - begin), R"re(<xf numFmtId="(\d+)")re",
            [&](const std::smatch& match) { displays.push_back(known.at(match[1])); });
  return displays;
}

std::pair<std::size_t, std::size_t> placeOf(const std::string& letters, const std::string& row) {
  std::size_t column = 0;
  for (const char letter : letters) column = column * 26 + static_cast<std::size_t>(letter - 'A' + 1);
  return {std::stoul(row) - 1, column - 1};
}

/// What stands between the first such mark and the next of the other; empty where it doesn't come.
std::string between(std::string_view text, std::string_view begin, std::string_view end) {
  const std::size_t at = text.find(begin);
  if (at == std::string_view::npos) return {};
  text.remove_prefix(at + begin.size());
  return std::string(text.substr(0, text.find(end)));
}

// Texts of cells may be long, and an expression would go through them by recursion.
FoundSheet sheetOf(const std::string& name, std::string_view part, const std::vector<std::string>& displays) {
  FoundSheet sheet{name};
  constexpr std::string_view kCell = "<c r=\"", kCellEnd = "</c>";
  for (std::size_t at = part.find(kCell); at != std::string_view::npos; at = part.find(kCell, at + 1)) {
    const std::string_view cell = part.substr(at, part.find(kCellEnd, at) - at);
    const std::string place = between(cell, kCell, "\""), style = between(cell, " s=\"", "\"");
    const std::size_t digits = place.find_first_of("0123456789");
    FoundCell& found = sheet.cells[placeOf(place.substr(0, digits), place.substr(digits))];
    found.display = displays.at(style.empty() ? 0 : std::stoul(style));
    if (cell.find("t=\"inlineStr\"") == std::string_view::npos)
      found.value = ParseNumber(between(cell, "<v>", "</v>"));
    else
      found.value = meant(between(cell.substr(cell.find("<t")), ">", "</t>"));
  }
  return sheet;
}

}  // namespace

std::vector<FoundSheet> readXlsx(const std::filesystem::path& file) {
  const std::map<std::string, std::string> parts = partsOf(fileBytes(file));
  const std::vector<std::string> displays = displaysOf(parts.at("xl/styles.xml"));
  std::vector<FoundSheet> sheets;
  eachMatch(parts.at("xl/workbook.xml"), R"re(<sheet name="([^"]*)" sheetId="(\d+)")re", [&](const std::smatch& match) {
    sheets.push_back(sheetOf(match[1], parts.at("xl/worksheets/sheet" + match[2].str() + ".xml"), displays));
  });
  return sheets;
}

}  // namespace triaxlab::testing
