#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace triaxlab {

/// Twentieths of a point, y downward; 15 make one logical pixel. Coordinates are rounded to whole twips by the surface.
struct Point {
  double x = 0, y = 0;
  bool operator==(const Point&) const = default;
};

/// The sixteen colours of QBColor.
enum class Colour : std::uint8_t {
  Black = 0,
  Blue = 1,
  Magenta = 5,
  Grey = 8,
  LightBlue = 9,
  LightGreen = 10,
  LightCyan = 11,
  LightRed = 12,
  White = 15,
};

struct Rgb {
  std::uint8_t red = 0, green = 0, blue = 0;
};
Rgb rgbOf(Colour colour);

/// Line width: logical pixels on a screen, 1/600 inch on paper.
struct Stroke {
  Colour colour = Colour::Black;
  int width = 1;
  bool operator==(const Stroke&) const = default;
};

/// Of a line width of 1 on paper.
inline constexpr double kTwipsPerPaperWidth = 1440.0 / 600;

inline constexpr const char* kSong = "宋体";
inline constexpr const char* kSongRotated = "@宋体";
inline constexpr const char* kArialNarrow = "Arial Narrow";

struct Font {
  std::string name = kSong;  // the font asked for, never its substitute
  double size = 10.5;        // point
  bool bold = false;
  double stretch = 1;  // of the widths; below 1 is narrower
  bool operator==(const Font&) const = default;
};

/// Width of a UTF-8 text by rule, never by the fonts installed: ten twips a GBK byte and point (eight for
/// "Arial Narrow"), a character outside GBK as two bytes; all of it times the font's stretch.
double textWidth(std::string_view utf8, const Font& font);
/// 20 twips a point.
inline double textHeight(const Font& font) { return 20 * font.size; }

/// Where charts and pages are drawn, ignorant of what is behind it: a screen, a printer, a file, a recording.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;
  virtual void line(Point from, Point to, Stroke stroke) = 0;
  virtual void box(Point corner, Point opposite, Stroke stroke, std::optional<Colour> fill) = 0;
  virtual void circle(Point centre, double radius, Stroke stroke, std::optional<Colour> fill) = 0;
  virtual void polyline(std::span<const Point> points, Stroke stroke) = 0;
  /// `upperLeft` is the text's upper left corner before rotation; a rotated text is turned 90 degrees counter-clockwise
  /// about it, so it runs upward from y.
  virtual void text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated = false) = 0;

  void textCentred(double centreX, double y, std::string_view utf8, const Font& font, Colour colour) {
    text({centreX - textWidth(utf8, font) / 2, y}, utf8, font, colour);
  }
  void textRightAligned(double right, double y, std::string_view utf8, const Font& font, Colour colour) {
    text({right - textWidth(utf8, font), y}, utf8, font, colour);
  }
};

}  // namespace triaxlab
