#include "layering/include_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <regex>
#include <span>
#include <sstream>

namespace triaxlab::layering {
namespace {

/// A folder of src/ and the floor that it stands on. A file includes from its own folder, from the folders around it
/// (an implementation from its interface), and from lower floors. The store and the windows are one library each, whose
/// rooms are open to each other.
struct Room {
  std::string_view folder;
  int floor;
};

constexpr std::array kRooms{
    Room{"common", 1},
    Room{"platform", 2},
    Room{"platform/jet", 2},
    Room{"platform/os", 2},
    Room{"platform/qt", 2},
    Room{"platform/cairo", 2},
    Room{"platform/xls", 2},
    Room{"charts", 3},
    Room{"k0", 4},
    Room{"k0/charts", 4},
    Room{"triaxial", 4},
    Room{"triaxial/charts", 4},
    Room{"unconfined", 4},
    Room{"unconfined/charts", 4},
    Room{"store", 5},
    Room{"store/project", 5},
    Room{"store/safety", 5},
    Room{"store/settings", 5},
    Room{"store/summary", 5},
    Room{"exports", 6},
    Room{"importers", 6},
    Room{"reports", 6},
    Room{"workbooks", 6},
    Room{"sessions", 7},
    Room{"sessions/dialogs", 7},
    Room{"sessions/k0", 7},
    Room{"sessions/triaxial", 7},
    Room{"sessions/unconfined", 7},
    Room{"shell", 8},
    Room{"cli", 9},
    Room{"windows", 9},
    Room{"windows/controls", 9},
    Room{"windows/dialogs", 9},
    Room{"windows/help", 9},
    Room{"windows/k0", 9},
    Room{"windows/play", 9},
    Room{"windows/triaxial", 9},
    Room{"windows/unconfined", 9},
    Room{"", 10},  // main.cpp, which opens the doors of the house
};

constexpr std::array<std::string_view, 4> kKnowQt{"main.cpp", "windows/", "platform/qt/", "cli/page_devices.cpp"};
constexpr std::array<std::string_view, 2> kKnowTheSystem{"platform/os/", "platform/jet/"};
constexpr std::array<std::string_view, 2> kKnowWindows{"platform/os/", "common/gbk_converter_windows.cpp"};
constexpr std::array<std::string_view, 1> kKnowJet{"platform/jet/"};
constexpr std::array<std::string_view, 1> kKnowWorkbooks{"platform/xls/"};
constexpr std::array<std::string_view, 1> kKnowCairo{"platform/cairo/"};
constexpr std::array<std::string_view, 3> kReadsArguments{"cli/", "shell/start_options.", "windows/command_line."};

/// Headers from outside the house that only some rooms know, each by how its name begins.
struct Door {
  std::string_view header;
  std::span<const std::string_view> rooms;  // beginnings of paths
};

constexpr std::array kDoors{
    Door{"Q", kKnowQt},
    Door{"platform/qt/", kKnowQt},
    Door{"unistd.h", kKnowTheSystem},
    Door{"fcntl.h", kKnowTheSystem},
    Door{"dirent.h", kKnowTheSystem},
    Door{"sys/", kKnowTheSystem},
    Door{"windows.h", kKnowWindows},
    Door{"glib", kKnowJet},
    Door{"mdb", kKnowJet},
    Door{"sqlite3", kKnowJet},
    Door{"xlsxwriter", kKnowWorkbooks},
    Door{"cairo", kKnowCairo},
    Door{"fontconfig/", kKnowCairo},
    Door{"CLI/", kReadsArguments},
};

/// Functions and classes that write or read numbers, or tell letters from digits, as the locale has it.
constexpr std::array<std::string_view, 31> kLocaleWords{
    "atof",      "atoi",    "strtod",  "strtof",        "strtol",        "stod",         "stof",    "stoi",
    "stol",      "printf",  "sprintf", "snprintf",      "scanf",         "sscanf",       "fscanf",  "fprintf",
    "setlocale", "isalpha", "isdigit", "isalnum",       "isspace",       "isupper",      "islower", "tolower",
    "toupper",   "QLocale", "locale",  "ostringstream", "istringstream", "stringstream", "toDouble"};

/// Where Qt's start changes the C locale, it is changed back.
constexpr std::string_view kLocaleIsRestored = "platform/qt/application.cpp";

std::string_view folderOf(std::string_view path) {
  const auto slash = path.rfind('/');
  return slash == std::string_view::npos ? std::string_view{} : path.substr(0, slash);
}

std::optional<int> floorOf(std::string_view folder) {
  const auto* const room =
      std::find_if(kRooms.begin(), kRooms.end(), [&](const Room& r) { return r.folder == folder; });
  if (room == kRooms.end()) return std::nullopt;
  return room->floor;
}

bool isWithin(std::string_view folder, std::string_view around) {
  return folder == around || (folder.starts_with(around) && folder[around.size()] == '/');
}

constexpr std::array<std::string_view, 2> kOpenHouses{"store", "windows"};

bool areOpenToEachOther(std::string_view from, std::string_view to) {
  return std::any_of(kOpenHouses.begin(), kOpenHouses.end(),
                     [&](std::string_view house) { return isWithin(from, house) && isWithin(to, house); });
}

/// Our own headers are told from src/ and have a folder of the house in front.
bool isOurs(std::string_view header) {
  const std::string_view top = header.substr(0, header.find('/'));
  return top != header && std::any_of(kRooms.begin(), kRooms.end(), [&](const Room& r) { return r.folder == top; });
}

std::string floorViolation(const SourceFile& file, std::string_view header) {
  const std::string_view from = folderOf(file.path), to = folderOf(header);
  const std::optional<int> own = floorOf(from), other = floorOf(to);
  if (!own) return {};  // told once for the whole file
  if (!other) return fmt::format("{} includes {}, whose folder stands on no floor", file.path, header);
  if (*other < *own || isWithin(from, to) || areOpenToEachOther(from, to)) return {};
  return fmt::format("{} (floor {}) includes {} (floor {})", file.path, *own, header, *other);
}

std::string doorViolation(const SourceFile& file, std::string_view header) {
  for (const Door& door : kDoors) {
    if (!header.starts_with(door.header)) continue;
    const bool known = std::any_of(door.rooms.begin(), door.rooms.end(),
                                   [&](std::string_view room) { return file.path.starts_with(room); });
    if (!known) return fmt::format("{} includes {}, which only {} may", file.path, header, fmt::join(door.rooms, ", "));
  }
  return {};
}

std::string_view withoutBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

/// What the line includes, between its brackets or quotation marks; empty for any other line.
std::string_view includeOf(std::string_view line) {
  line = withoutBlanks(line);
  if (!line.starts_with('#')) return {};
  line = withoutBlanks(line.substr(1));
  constexpr std::string_view kInclude = "include";
  if (!line.starts_with(kInclude)) return {};
  line = withoutBlanks(line.substr(kInclude.size()));
  if (line.empty() || (line[0] != '<' && line[0] != '"')) return {};
  const auto end = line.find(line[0] == '<' ? '>' : '"', 1);
  return end == std::string_view::npos ? std::string_view{} : line.substr(1, end - 1);
}

bool isNamePart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// The first word of kLocaleWords in the line; comments and texts don't count.
std::string_view localeWordIn(std::string_view line) {
  bool quoted = false;
  for (std::size_t at = 0; at < line.size();) {
    if (quoted && line[at] == '\\') {
      at += 2;
    } else if (line[at] == '"') {
      quoted = !quoted;
      ++at;
    } else if (!quoted && line.substr(at).starts_with("//")) {
      return {};
    } else if (!quoted && isNamePart(line[at])) {
      const std::size_t first = at;
      while (at < line.size() && isNamePart(line[at])) ++at;
      const std::string_view word = line.substr(first, at - first);
      if (std::find(kLocaleWords.begin(), kLocaleWords.end(), word) != kLocaleWords.end()) return word;
    } else {
      ++at;
    }
  }
  return {};
}

/// Calls `take` with each line and its number, from 1.
template <class Take>
void forEachLine(std::string_view text, Take take) {
  for (int number = 1; !text.empty(); ++number) {
    const auto end = std::min(text.find('\n'), text.size());
    take(text.substr(0, end), number);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

}  // namespace

std::vector<std::string> localeDependenceOf(const SourceFile& file) {
  std::vector<std::string> found;
  if (file.path == kLocaleIsRestored) return found;
  forEachLine(file.text, [&](std::string_view line, int number) {
    const std::string_view word = includeOf(line).empty() ? localeWordIn(line) : std::string_view{};
    if (!word.empty()) found.push_back(fmt::format("{}:{}: {} depends on the locale", file.path, number, word));
  });
  return found;
}

std::vector<std::string> includesOf(std::string_view text) {
  std::vector<std::string> includes;
  forEachLine(text, [&includes](std::string_view line, int) {
    if (const std::string_view header = includeOf(line); !header.empty()) includes.emplace_back(header);
  });
  return includes;
}

std::vector<std::string> violationsOf(const SourceFile& file) {
  std::vector<std::string> found;
  const auto add = [&found](std::string sentence) {
    if (!sentence.empty()) found.push_back(std::move(sentence));
  };
  if (!floorOf(folderOf(file.path))) add(fmt::format("{}: the folder stands on no floor", file.path));
  for (const std::string& header : includesOf(file.text)) {
    if (header.find("..") != std::string::npos)
      add(fmt::format("{} includes {}, not told from src", file.path, header));
    if (isOurs(header)) add(floorViolation(file, header));
    add(doorViolation(file, header));
  }
  return found;
}

std::vector<std::string> typesOf(std::string_view header) {
  static const std::regex begin(R"(namespace ([\w:]+) \{)"), end(R"(\}  // namespace.*)"),
      type(R"((?:struct|class|enum|enum class) (\w+)(?: final)?(?: :[^:].*)? \{.*)");
  std::vector<std::string> namespaces, types;
  std::istringstream lines{std::string(header)};
  for (std::string line; std::getline(lines, line);) {
    std::smatch found;
    if (std::regex_match(line, found, begin))
      namespaces.push_back(found[1]);
    else if (std::regex_match(line, end) && !namespaces.empty())
      namespaces.pop_back();
    else if (std::regex_match(line, found, type))
      types.push_back(fmt::format("{}::{}", fmt::join(namespaces, "::"), found[1].str()));
  }
  return types;
}

}  // namespace triaxlab::layering
