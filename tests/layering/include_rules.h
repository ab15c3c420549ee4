#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace triaxlab::layering {

/// A file of src/, its path told from there with "/".
struct SourceFile {
  std::string path;
  std::string text;
};

/// What an #include names, in the order of the file.
std::vector<std::string> includesOf(std::string_view text);

/// One sentence for each #include of the file that a floor or a door forbids; empty when all is well.
std::vector<std::string> violationsOf(const SourceFile& file);

/// One sentence for each line of the file that calls a function whose result depends on a locale. All numbers go
/// through FormatNumber and ParseNumber, so that a comma never gets into a file or onto paper.
std::vector<std::string> localeDependenceOf(const SourceFile& file);

/// The types that a header defines in its namespaces, with these in front of the name; specialisations apart. Reads the
/// form that clang-format gives: what stands in a namespace isn't indented.
std::vector<std::string> typesOf(std::string_view header);

}  // namespace triaxlab::layering
