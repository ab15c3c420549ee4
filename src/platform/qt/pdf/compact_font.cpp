#include "platform/qt/pdf/compact_font.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace triaxlab {
namespace {

// Operators of shapes and of dictionaries; those behind an escape have 12 in front.
constexpr char kLineTo = 5, kCurveTo = 8, kEndShape = 14, kMoveTo = 21;
constexpr std::string_view kFontBox("\5"), kCharset("\17"), kShapes("\21"), kPrivate("\22"), kRegistry("\14\36"),
    kShapeCount("\14\42"), kFontArray("\14\44"), kFontOfShape("\14\45");
/// The first of a font's own strings, behind 391 that every reader has.
constexpr int kFirstString = 391;

void putBytes(std::string& to, std::size_t number, int width) {
  for (int shift = 8 * (width - 1); shift >= 0; shift -= 8) to += static_cast<char>(number >> shift & 0xFF);
}

/// A number of a shape.
void putNumber(std::string& to, int number) {
  if (-107 <= number && number <= 107) {
    to += static_cast<char>(number + 139);
  } else if (108 <= std::abs(number) && std::abs(number) <= 1131) {
    const int first = number > 0 ? 247 : 251, beyond = std::abs(number) - 108;
    to += static_cast<char>(first + (beyond >> 8));
    to += static_cast<char>(beyond & 0xFF);
  } else {
    to += '\34';
    putBytes(to, static_cast<std::uint16_t>(number), 2);
  }
}

/// A number of a dictionary, always of the same size, so that what stands where can be told beforehand.
std::string dictionaryNumber(int number) {
  std::string bytes = "\35";
  putBytes(bytes, static_cast<std::uint32_t>(number), 4);
  return bytes;
}

std::string entry(std::initializer_list<int> numbers, std::string_view name) {
  std::string bytes;
  for (const int number : numbers) bytes += dictionaryNumber(number);
  return bytes.append(name);
}

std::string indexOf(const std::vector<std::string>& items) {
  std::string bytes;
  putBytes(bytes, items.size(), 2);
  if (items.empty()) return bytes;
  constexpr int kOffsetWidth = 4;
  putBytes(bytes, kOffsetWidth, 1);
  std::size_t offset = 1;
  putBytes(bytes, offset, kOffsetWidth);
  for (const std::string& item : items) putBytes(bytes, offset += item.size(), kOffsetWidth);
  for (const std::string& item : items) bytes += item;
  return bytes;
}

/// Writes a shape; places are whole units, told as steps from the one before.
class ShapeWriter {
 public:
  explicit ShapeWriter(int advance) { putNumber(m_bytes, advance); }

  void moveTo(QPointF to) { m_start = to, put({to}, kMoveTo); }
  void lineTo(QPointF to) {
    // A shape closes by itself.
    if (to != m_start) put({to}, kLineTo);
  }
  void curveTo(QPointF one, QPointF two, QPointF to) { put({one, two, to}, kCurveTo); }
  std::string end() { return m_bytes + kEndShape; }

 private:
  void put(std::initializer_list<QPointF> places, char operation) {
    for (const QPointF place : places) {
      const int x = static_cast<int>(std::lround(place.x())), y = -static_cast<int>(std::lround(place.y()));
      putNumber(m_bytes, x - m_x);
      putNumber(m_bytes, y - m_y);
      m_x = x;
      m_y = y;
    }
    m_bytes += operation;
  }

  std::string m_bytes;
  QPointF m_start;
  int m_x = 0, m_y = 0;
};

std::string written(const FontShape& shape) {
  ShapeWriter writer(shape.advance);
  for (int i = 0; i < shape.outline.elementCount(); ++i) {
    const QPainterPath::Element element = shape.outline.elementAt(i);
    if (element.isMoveTo()) writer.moveTo(element);
    if (element.isLineTo()) writer.lineTo(element);
    if (element.type != QPainterPath::CurveToElement) continue;
    writer.curveTo(element, shape.outline.elementAt(i + 1), shape.outline.elementAt(i + 2));
    i += 2;
  }
  return writer.end();
}

/// The parts that the dictionary of the whole font tells the places of, in their order.
struct Parts {
  std::string charset, fontOfShape, shapes, fontArray, privateOfFont;
};

std::string dictionary(const Parts& parts, std::size_t begin, std::size_t shapeCount, const FontBox& box) {
  auto place = [at = begin](const std::string& part) mutable {
    const auto here = static_cast<int>(at);
    at += part.size();
    return here;
  };
  std::string bytes = entry({kFirstString, kFirstString + 1, 0}, kRegistry);
  bytes += entry({box.left, box.bottom, box.right, box.top}, kFontBox);
  bytes += entry({static_cast<int>(shapeCount)}, kShapeCount);
  bytes += entry({place(parts.charset)}, kCharset);
  bytes += entry({place(parts.fontOfShape)}, kFontOfShape);
  bytes += entry({place(parts.shapes)}, kShapes);
  return bytes + entry({place(parts.fontArray)}, kFontArray);
}

/// Every identifier is the number of its shape.
std::string charsetOf(std::size_t shapeCount) {
  if (shapeCount == 1) return {'\0'};
  std::string bytes = "\2";
  putBytes(bytes, 1, 2);
  putBytes(bytes, shapeCount - 2, 2);
  return bytes;
}

/// All shapes are of the one font.
std::string fontOfShapes(std::size_t shapeCount) {
  std::string bytes = "\3";
  for (const std::size_t number : {std::size_t{1}, std::size_t{0}}) putBytes(bytes, number, 2);
  putBytes(bytes, 0, 1);
  putBytes(bytes, shapeCount, 2);
  return bytes;
}

}  // namespace

FontBox boxOf(std::span<const FontShape> shapes) {
  QRectF box;
  for (const FontShape& shape : shapes) box |= shape.outline.boundingRect();
  return {static_cast<int>(std::floor(box.left())), static_cast<int>(std::floor(-box.bottom())),
          static_cast<int>(std::ceil(box.right())), static_cast<int>(std::ceil(-box.top()))};
}

std::string compactFont(std::string_view name, std::span<const FontShape> shapes) {
  std::vector<std::string> allShapes;
  for (const FontShape& shape : shapes) allShapes.push_back(written(shape));
  Parts parts{.charset = charsetOf(shapes.size()),
              .fontOfShape = fontOfShapes(shapes.size()),
              .shapes = indexOf(allShapes),
              .fontArray = {},
              .privateOfFont = std::string("\213\25")};  // widths are told whole
  const FontBox box = boxOf(shapes);

  const std::string head = std::string("\1\0\4\4", 4) + indexOf({std::string(name)});
  const std::string behind = indexOf({"Adobe", "Identity"}) + indexOf({});
  // The numbers of a dictionary are all of one size, so it is as long before its places are known as after.
  const auto frame = [&](std::size_t begin) {
    return head + indexOf({dictionary(parts, begin, shapes.size(), box)}) + behind;
  };
  const std::size_t begin = frame(0).size();
  const auto fontArray = [&](std::size_t privatePlace) {
    return indexOf({entry({static_cast<int>(parts.privateOfFont.size()), static_cast<int>(privatePlace)}, kPrivate)});
  };
  const std::size_t beforeArray = begin + parts.charset.size() + parts.fontOfShape.size() + parts.shapes.size();
  parts.fontArray = fontArray(beforeArray + fontArray(0).size());
  return frame(begin) + parts.charset + parts.fontOfShape + parts.shapes + parts.fontArray + parts.privateOfFont;
}

}  // namespace triaxlab
