#include "charts/column_title.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <vector>

#include "charts/axes.h"

namespace triaxlab {
namespace {

enum class PieceKind : std::uint8_t { Plain, Subscript, Prime };
/// A part of a symbol that is set in one go.
struct Piece {
  std::string_view text;
  PieceKind kind;
};

constexpr std::string_view kPrime = "′";

std::vector<Piece> piecesOf(std::string_view symbol) {
  std::vector<Piece> pieces;
  while (!symbol.empty()) {
    Piece piece{symbol.substr(0, std::min(symbol.find('_'), symbol.find(kPrime))), PieceKind::Plain};
    if (symbol.front() == '_') {
      symbol.remove_prefix(1);
      piece = {symbol.substr(0, 1), PieceKind::Subscript};
    } else if (symbol.starts_with(kPrime)) {
      piece = {symbol.substr(0, kPrime.size()), PieceKind::Prime};
    }
    pieces.push_back(piece);
    symbol.remove_prefix(piece.text.size());
  }
  return pieces;
}

/// A piece in its place; x from the left edge of the symbol, y from its upper edge.
struct PlacedPiece {
  std::string_view text;
  Point place;
  Font font;
};
struct SetSymbol {
  std::vector<PlacedPiece> pieces;
  double width = 0;
};

/// A prime stands over the subscript in front of it, as σ1′ is written. It needs half the room of its character.
SetSymbol setSymbol(std::string_view symbol, const Font& font) {
  SetSymbol set;
  double subscriptX = 0;
  for (const Piece& piece : piecesOf(symbol)) {
    const bool subscript = piece.kind == PieceKind::Subscript, prime = piece.kind == PieceKind::Prime;
    const Font& pieceFont = subscript ? smallFont(font) : font;
    const double width = textWidth(piece.text, pieceFont);
    const Point place{prime ? subscriptX : set.width, subscript ? subscriptDrop(font) : 0};
    set.pieces.push_back({piece.text, place, pieceFont});
    subscriptX = set.width;
    set.width = std::max(set.width, place.x + (prime ? width / 2 : width));
  }
  return set;
}

}  // namespace

void drawColumnTitle(DrawingSurface& surface, const ColumnTitle& title, double centreX, double width, double symbolY,
                     double unitY, const Font& font) {
  constexpr double kRoom = 0.9, kTenth = 10;
  SetSymbol symbol = setSymbol(title.symbol, font);
  Point corner{0, symbolY};
  if (const double room = kRoom * width; symbol.width > room) {
    Font smaller = font;
    smaller.size = std::floor(font.size * room / symbol.width * kTenth) / kTenth;
    symbol = setSymbol(title.symbol, smaller);
    corner.y += textHeight(font) - textHeight(smaller);  // on the line of the others
  }
  corner.x = centreX - symbol.width / 2;
  for (const PlacedPiece& piece : symbol.pieces)
    surface.text({corner.x + piece.place.x, corner.y + piece.place.y}, piece.text, piece.font, Colour::Black);
  if (*title.unit != '\0') surface.textCentred(centreX, unitY, title.unit, font, Colour::Black);
}

}  // namespace triaxlab
