#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/replaced_file.h"

namespace triaxlab {

/// The objects of a PDF file. Each is written when it comes and isn't kept; the file appears, or is replaced, whole at
/// the end, and one that is dropped before leaves nothing.
class PdfFile {
 public:
  explicit PdfFile(const std::filesystem::path& place);

  /// A number for an object that others speak of before it is written.
  int reserve();
  void write(int object, std::string_view value);
  /// Compresses the content. `entries` are those of its dictionary besides length and filter.
  void writeStream(int object, std::string_view entries, std::string_view content);
  void finish(int catalog, int information);

 private:
  void beginObject(int object);
  void put(std::string_view text);

  ReplacedFile m_file;
  std::uint64_t m_size = 0;
  std::vector<std::uint64_t> m_offsets;  // of object 1, 2, ...
};

/// "7 0 R"
std::string pdfReference(int object);
/// A text of the document's own, such as its title.
std::string pdfText(std::string_view utf8);
/// The code units of a text, four digits each.
std::string pdfUtf16(std::string_view utf8);

}  // namespace triaxlab
