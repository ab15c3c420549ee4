#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace triaxlab {

// A project number is part of the names of its project file and its summary file. It is typed by people or comes out of
// raw databases, so it may hold anything; the same set of numbers is refused on all systems, so that files can travel.

/// Why the number (GBK, trimmed) can't be part of a file name, as the middle of a sentence; nothing when it can.
std::optional<std::string> whyNoFileName(std::string_view projectNo);

/// prefix + number + extension in UTF-8. Pre: the number can be part of a file name.
std::string projectFileName(std::string_view prefix, std::string_view projectNo, std::string_view extension = ".txt");

/// GBK text of a record as a sentence can show it: UTF-8, control characters as "?".
std::string printableText(std::string_view gbk);

}  // namespace triaxlab
