#include "triaxial/charts/table_chart.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "triaxial/charts/plot.h"

namespace triaxlab {
namespace {

const Font kTableFont{.size = 10.5};

// Twips of the canvas.
constexpr double kFirstLineY = 250, kSecondLineY = 600;
constexpr double kTopRuleY = 1200, kSymbolY = 1260, kUnitY = 1540, kTitleRuleY = 1850, kBottomRuleY = 7560;
constexpr double kDataColumnX = 800, kDataColumnWidth = 1000;
/// Left edges of the texts in the heading's two lines and in the foot, and the ends of the rules.
struct TextColumns {
  std::array<double, 3> heading, foot;
  double left, right;
};
constexpr TextColumns kDataTable{{300, 4200, 7400}, {300, 3300, 6300}, 300, 12300};
/// Narrower: what stands beside each other must not touch in its longest form.
constexpr TextColumns kConsolidation{{300, 2850, 5270}, {300, 3000, 5200}, 50, 6850};

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

void drawHeading(DrawingSurface& surface, const TableHeading& heading, const std::array<double, 3>& x) {
  const auto line = [&](double y, std::array<const std::string*, 3> texts) {
    for (std::size_t i = 0; i < texts.size(); ++i)
      if (!texts[i]->empty()) surface.text({x[i], y}, *texts[i], kTableFont, Colour::Black);
  };
  line(kFirstLineY, {&heading.project, &heading.sample, &heading.pressure});
  line(kSecondLineY, {&heading.date, &heading.test, &heading.rate});
}

void drawRules(DrawingSurface& surface, const TextColumns& table) {
  for (const double y : {kTopRuleY, kTitleRuleY, kBottomRuleY}) surface.line({table.left, y}, {table.right, y}, {});
}

/// 破坏孔压 and σ1 - σ3, the last two of the foot.
void drawFailure(DrawingSurface& surface, const TableFoot& foot, const std::array<double, 3>& x) {
  surface.text({x[1], kTableFootY}, kFailurePorePressure + foot.failurePorePressure + kTableUnit, kTableFont,
               Colour::Black);
  surface.text({x[2], kTableFootY}, kFailureStress + foot.deviatorStress + kTableUnit, kTableFont, Colour::Black);
}

double rowY(std::size_t row) { return kTableRowsTop + kTableRowPitch * static_cast<double>(row); }

void drawCell(DrawingSurface& surface, double centreX, std::size_t row, const std::string& text) {
  if (!text.empty()) surface.textCentred(centreX, rowY(row), text, kTableFont, Colour::Black);
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

void drawDataTable(DrawingSurface& surface, const DataTable& table) {
  const auto columnX = [](std::size_t column) { return kDataColumnX + kDataColumnWidth * static_cast<double>(column); };
  drawHeading(surface, table.heading, kDataTable.heading);
  drawRules(surface, kDataTable);
  for (std::size_t column = 0; column < table.columns.size(); ++column)
    drawColumnTitle(surface, table.columns[column].title, columnX(column), kDataColumnWidth, kSymbolY, kUnitY,
                    kTableFont);
  for (std::size_t row = 0; row < table.rows.size(); ++row)
    for (std::size_t column = 0; column < table.rows[row].size(); ++column)
      drawCell(surface, columnX(column), row, table.rows[row][column]);
  surface.text({kDataTable.foot[0], kTableFootY}, kStartPorePressure + table.foot.startPorePressure + kTableUnit,
               kTableFont, Colour::Black);
  drawFailure(surface, table.foot, kDataTable.foot);
}

void drawConsolidationTable(DrawingSurface& surface, const ConsolidationTable& table) {
  drawHeading(surface, table.heading, kConsolidation.heading);
  drawRules(surface, kConsolidation);
  for (std::size_t column = 0; column < kConsolidationColumns; ++column)
    drawColumnTitle(surface, kConsolidationTitles[column], kConsolidationColumnX[column], kConsolidationColumnWidth,
                    kSymbolY, kUnitY, kTableFont);
  for (std::size_t row = 0; row < table.rows.size(); ++row)
    for (std::size_t column = 0; column < kConsolidationColumns; ++column)
      drawCell(surface, kConsolidationColumnX[column], row, table.rows[row][column]);
  // The value has a place of its own, since it is typed there.
  constexpr double kMargin = 60;
  const Point label{kConsolidation.foot[0], kTableFootY};
  surface.text(label, kStartPorePressure, kTableFont, Colour::Black);
  surface.text({kStartPorePressureX + kMargin, kTableFootY}, table.foot.startPorePressure, kTableFont, Colour::Black);
  surface.text({kStartPorePressureX + kStartPorePressureWidth + kMargin, kTableFootY}, kTableUnit, kTableFont,
               Colour::Black);
  drawFailure(surface, table.foot, kConsolidation.foot);
}

}  // namespace triaxlab
