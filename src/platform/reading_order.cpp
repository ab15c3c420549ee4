#include "platform/reading_order.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

namespace triaxlab {
namespace {

/// Places are rounded to whole twips.
constexpr double kTolerance = 2;

/// The place so far along the text's direction.
Point along(const PlacedText& text, double distance) {
  const auto [x, y] = text.upperLeft;
  return text.rotated ? Point{x, y - distance} : Point{x + distance, y};
}

/// The blank of the text in whose place a mark was drawn.
std::optional<std::size_t> gapFor(const PlacedText& mark, const PlacedText& text) {
  if (mark.font.size >= text.font.size || mark.rotated != text.rotated) return std::nullopt;
  const double dx = mark.upperLeft.x - text.upperLeft.x, dy = mark.upperLeft.y - text.upperLeft.y;
  const double distance = text.rotated ? -dy : dx, aside = text.rotated ? dx : dy;
  if (std::abs(aside) >= textHeight(text.font)) return std::nullopt;
  for (std::size_t gap = text.utf8.find(' '); gap != std::string::npos; gap = text.utf8.find(' ', gap + 1))
    if (std::abs(textWidth(std::string_view(text.utf8).substr(0, gap), text.font) - distance) <= kTolerance) return gap;
  return std::nullopt;
}

}  // namespace

bool ReadingOrder::takeMark(const PlacedText& text) {
  const auto gap = gapFor(text, m_text);
  if (gap) m_marks.push_back({*gap, text});
  return gap.has_value();
}

std::vector<PlacedText> ReadingOrder::hold(PlacedText text) {
  std::vector<PlacedText> before = release();
  m_text = std::move(text);
  return before;
}

std::vector<PlacedText> ReadingOrder::release() {
  std::vector<PlacedText> ordered;
  const auto addPiece = [&](std::size_t begin, std::size_t end) {
    if (begin >= end) return;
    PlacedText piece = m_text;
    piece.upperLeft = along(m_text, textWidth(std::string_view(m_text.utf8).substr(0, begin), m_text.font));
    piece.utf8 = m_text.utf8.substr(begin, end - begin);
    ordered.push_back(std::move(piece));
  };
  std::ranges::sort(m_marks, {}, &Mark::gap);
  std::size_t begin = 0;
  for (Mark& mark : m_marks) {
    addPiece(begin, mark.gap);
    ordered.push_back(std::move(mark.text));
    begin = mark.gap + 1;
  }
  addPiece(begin, m_text.utf8.size());
  m_text = {};
  m_marks.clear();
  return ordered;
}

}  // namespace triaxlab
