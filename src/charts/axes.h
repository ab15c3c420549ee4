#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "charts/plot.h"
#include "common/text_number.h"
#include "platform/drawing_surface.h"

namespace triaxlab {

/// Whether the last line of an axis is among those that are drawn or numbered, or is left to the frame.
enum class AxisEnd : std::uint8_t { Open, Closed };

/// The lines of the divisions. That of y = 0 is black where y doesn't begin there.
void drawGrid(DrawingSurface& surface, const PlotScale& scale, AxisEnd end = AxisEnd::Open);
/// The box around the plot.
void drawFrame(DrawingSurface& surface, const PlotFrame& frame, int lineWeight);

/// The numbers at the lines of an axis.
struct AxisNumbers {
  double at = 0;  // twips of the canvas: their upper edge below a plot, their right or left edge beside it
  int every = 1;  // lines
  NumberFormat format = NumberFormat::Whole;
  AxisEnd end = AxisEnd::Open;
  std::size_t smallFrom = 0;  // characters from which a number is set smaller, 8 point for 10.5; 0: none is
  bool firstHangs = false;    // from its line: the name of the axis stands above
  double room = 0;            // twips into which a number on the left is set narrower; 0: as many as it takes
};
/// Centred under the vertical lines.
void drawNumbersBelow(DrawingSurface& surface, const PlotScale& scale, const AxisNumbers& numbers, const Font& font);
/// Right-aligned, centred on the horizontal lines.
void drawNumbersLeft(DrawingSurface& surface, const PlotScale& scale, const AxisNumbers& numbers, const Font& font);
/// Of a second axis, left-aligned, centred on the horizontal lines.
void drawNumbersRight(DrawingSurface& surface, const PlotScale& scale, const AxisNumbers& numbers, const Font& font);

/// What of a canvas is seen: its part from `corner` on, magnified. Width and height are those of the picture.
struct ChartView {
  Point corner;
  double zoom = 1;
  double width = 0, height = 0;
};
/// The numbers of lines whose own are out of sight, at the left and at the lower edge of a magnified picture. Where
/// there is room every line has one.
void drawNumbersAtEdges(DrawingSurface& surface, const PlotScale& scale, const ChartView& view,
                        const AxisNumbers& below, const AxisNumbers& left, const Font& font);

/// How a readout tells the values of an axis.
struct AxisReading {
  NumberFormat format;
  std::string_view unit;
};
/// The values of a place of a plot with their units, UTF-8.
std::string readoutOf(Point value, const AxisReading& x, const AxisReading& y);

/// A font for a text that has `size` where all others have 10.5 point.
Font sizedFont(const Font& font, double size);

/// A text of less weight beside another: 0.7 of its size.
Font smallFont(const Font& font);
/// How far a subscript stands lower and a raised mark higher than the text that it belongs to, twips.
inline double subscriptDrop(const Font& font) { return 8 * font.size; }
inline double raisedLift(const Font& font) { return 4 * font.size; }

/// A small character in a gap of a title.
struct Subscript {
  std::string_view text;
  std::string_view before;  // what of the title stands in front of it
};
/// A title that runs upward along the y axis, its upper edge at x, its middle at `middleY`.
void drawTurnedTitle(DrawingSurface& surface, double x, double middleY, std::string_view title, const Font& font,
                     std::span<const Subscript> subscripts = {});

}  // namespace triaxlab
