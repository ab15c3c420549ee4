#include "platform/qt/pdf/pdf_file.h"

#include <fmt/format.h>

#include <QByteArray>
#include <QString>
#include <iterator>
#include <span>

#include "platform/files.h"

namespace triaxlab {
namespace {

/// Qt's compression writes the length of the content in front of what other programs know.
constexpr qsizetype kLengthInFront = 4;
/// Twice as fast as the usual level, and some hundredths larger.
constexpr int kCompression = 4;

QByteArray compressed(std::string_view content) {
  return qCompress(reinterpret_cast<const uchar*>(content.data()), static_cast<qsizetype>(content.size()), kCompression)
      .mid(kLengthInFront);
}

}  // namespace

PdfFile::PdfFile(const std::filesystem::path& place) : m_file(behindLinks(place)) {
  // Four bytes that aren't ASCII tell programs that send files that this is no text.
  put("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
}

int PdfFile::reserve() {
  m_offsets.push_back(0);
  return static_cast<int>(m_offsets.size());
}

void PdfFile::write(int object, std::string_view value) {
  beginObject(object);
  put(fmt::format("{}\nendobj\n", value));
}

void PdfFile::writeStream(int object, std::string_view entries, std::string_view content) {
  const QByteArray bytes = compressed(content);
  beginObject(object);
  put(fmt::format("<< {}/Length {} /Filter /FlateDecode >>\nstream\n", entries, bytes.size()));
  put({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  put("\nendstream\nendobj\n");
}

void PdfFile::finish(int catalog, int information) {
  const std::uint64_t table = m_size;
  std::string end = fmt::format("xref\n0 {}\n0000000000 65535 f \n", m_offsets.size() + 1);
  for (const std::uint64_t offset : m_offsets) fmt::format_to(std::back_inserter(end), "{:010} 00000 n \n", offset);
  put(end + fmt::format("trailer\n<< /Size {} /Root {} /Info {} >>\nstartxref\n{}\n%%EOF\n", m_offsets.size() + 1,
                        pdfReference(catalog), pdfReference(information), table));
  m_file.finish();
}

void PdfFile::beginObject(int object) {
  m_offsets.at(static_cast<std::size_t>(object) - 1) = m_size;
  put(fmt::format("{} 0 obj\n", object));
}

void PdfFile::put(std::string_view text) {
  m_file.write(std::as_bytes(std::span(text)));
  m_size += text.size();
}

std::string pdfReference(int object) { return fmt::format("{} 0 R", object); }

std::string pdfText(std::string_view utf8) { return "<FEFF" + pdfUtf16(utf8) + ">"; }

std::string pdfUtf16(std::string_view utf8) {
  std::string digits;
  for (const QChar unit : QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())))
    fmt::format_to(std::back_inserter(digits), "{:04X}", std::uint16_t{unit.unicode()});
  return digits;
}

}  // namespace triaxlab
