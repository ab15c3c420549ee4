#include "charts/axes.h"

#include <string>

namespace triaxlab {
namespace {

constexpr double kUsualSize = 10.5, kLongNumberSize = 8;  // point

int linesOf(int divisions, AxisEnd end) { return end == AxisEnd::Closed ? divisions + 1 : divisions; }

double valueOfRow(const PlotScale& scale, int row) { return row * scale.yStep + scale.yStart; }

/// A number of the y axis with the font that it is set in.
struct RowNumber {
  std::string text;
  Font font;
};

RowNumber rowNumber(const PlotScale& scale, int row, const AxisNumbers& numbers, const Font& font) {
  std::string text = FormatNumber(valueOfRow(scale, row), numbers.format);
  const bool isLong = numbers.smallFrom != 0 && text.size() >= numbers.smallFrom;
  Font set = isLong ? sizedFont(font, kLongNumberSize) : font;
  if (const double width = textWidth(text, set); numbers.room != 0 && width > numbers.room)
    set.stretch = numbers.room / width;
  return {std::move(text), set};
}

}  // namespace

void drawGrid(DrawingSurface& surface, const PlotScale& scale, AxisEnd end) {
  const PlotFrame& frame = scale.frame;
  for (int column = 0; column < linesOf(frame.columns, end); ++column)
    surface.line({frame.columnX(column), frame.top}, {frame.columnX(column), frame.bottom}, {Colour::Grey, 1});
  for (int row = 0; row < linesOf(frame.rows, end); ++row) {
    const bool isZero = row != 0 && valueOfRow(scale, row) == 0;
    surface.line({frame.left, frame.rowY(row)}, {frame.right, frame.rowY(row)},
                 {isZero ? Colour::Black : Colour::Grey, 1});
  }
}

void drawFrame(DrawingSurface& surface, const PlotFrame& frame, int lineWeight) {
  surface.box({frame.left, frame.top}, {frame.right, frame.bottom}, {Colour::Grey, lineWeight}, std::nullopt);
}

void drawNumbersBelow(DrawingSurface& surface, const PlotScale& scale, const AxisNumbers& numbers, const Font& font) {
  for (int column = 0; column < linesOf(scale.frame.columns, numbers.end); column += numbers.every)
    surface.textCentred(scale.frame.columnX(column), numbers.at, FormatNumber(column * scale.xStep, numbers.format),
                        font, Colour::Blue);
}

void drawNumbersLeft(DrawingSurface& surface, const PlotScale& scale, const AxisNumbers& numbers, const Font& font) {
  for (int row = 0; row < linesOf(scale.frame.rows, numbers.end); row += numbers.every) {
    const auto [text, rowFont] = rowNumber(scale, row, numbers, font);
    const double rise = numbers.firstHangs && row == 0 ? 0 : textHeight(rowFont) / 2;
    surface.textRightAligned(numbers.at, scale.frame.rowY(row) - rise, text, rowFont, Colour::Blue);
  }
}

void drawNumbersRight(DrawingSurface& surface, const PlotScale& scale, const AxisNumbers& numbers, const Font& font) {
  for (int row = 0; row < linesOf(scale.frame.rows, numbers.end); row += numbers.every) {
    const auto [text, rowFont] = rowNumber(scale, row, numbers, font);
    surface.text({numbers.at, scale.frame.rowY(row) - textHeight(rowFont) / 2}, text, rowFont, Colour::Blue);
  }
}

namespace {

/// Twips of the picture between the numbers at an edge and the edge, and what numbers beside and
/// below each other need.
constexpr double kEdgeMargin = 30, kRoomBeside = 700, kRoomBelow = 400;

/// On a ground of its own: the drawing goes on below it.
void drawOnGround(DrawingSurface& surface, Point place, const std::string& text, const Font& font) {
  surface.box(place, {place.x + textWidth(text, font), place.y + textHeight(font)}, {Colour::White, 1}, Colour::White);
  surface.text(place, text, font, Colour::Blue);
}

}  // namespace

void drawNumbersAtEdges(DrawingSurface& surface, const PlotScale& scale, const ChartView& view,
                        const AxisNumbers& below, const AxisNumbers& left, const Font& font) {
  const PlotFrame& frame = scale.frame;
  const auto seenX = [&](double x) { return (x - view.corner.x) * view.zoom; };
  const auto seenY = [&](double y) { return (y - view.corner.y) * view.zoom; };
  const double strip = view.height - textHeight(font) - kEdgeMargin;
  if (seenY(below.at + textHeight(font)) > view.height) {
    const int every = frame.width() / frame.columns * view.zoom < kRoomBeside ? below.every : 1;
    for (int column = 0; column <= frame.columns; column += every) {
      const std::string text = FormatNumber(column * scale.xStep, below.format);
      const double x = seenX(frame.columnX(column)) - textWidth(text, font) / 2;
      if (x >= 0 && x + textWidth(text, font) <= view.width) drawOnGround(surface, {x, strip}, text, font);
    }
  }
  if (seenX(left.at) < kRoomBeside) {
    const int every = frame.height() / frame.rows * view.zoom < kRoomBelow ? left.every : 1;
    for (int row = 0; row <= frame.rows; row += every) {
      const double y = seenY(frame.rowY(row)) - textHeight(font) / 2;
      if (y >= 0 && y < strip - textHeight(font))
        drawOnGround(surface, {kEdgeMargin, y}, FormatNumber(valueOfRow(scale, row), left.format), font);
    }
  }
}

std::string readoutOf(Point value, const AxisReading& x, const AxisReading& y) {
  return "x:" + FormatNumber(value.x, x.format).append(x.unit) +
         "   y:" + FormatNumber(value.y, y.format).append(y.unit);
}

Font sizedFont(const Font& font, double size) {
  Font sized = font;
  sized.size = font.size * size / kUsualSize;
  return sized;
}

Font smallFont(const Font& font) {
  Font small = font;
  small.size *= 0.7;
  return small;
}

void drawTurnedTitle(DrawingSurface& surface, double x, double middleY, std::string_view title, const Font& font,
                     std::span<const Subscript> subscripts) {
  Font turned = font;
  turned.name = kSongRotated;
  const Point place{x, middleY + textWidth(title, turned) / 2};
  surface.text(place, title, turned, Colour::Black, true);
  // Below a turned text is to the right.
  for (const auto& [text, before] : subscripts)
    surface.text({place.x + subscriptDrop(font), place.y - textWidth(before, turned)}, text, smallFont(turned),
                 Colour::Black, true);
}

}  // namespace triaxlab
