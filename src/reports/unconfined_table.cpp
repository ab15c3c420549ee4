#include "reports/unconfined_table.h"

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "charts/axes.h"
#include "common/conversions.h"
#include "common/gbk.h"
#include "reports/table_rules.h"
#include "reports/test_pages.h"
#include "unconfined/reduction.h"

namespace triaxlab {
namespace {

// Twips of the page.
constexpr double kLeft = 1200, kRight = 10704, kMiddle = (kLeft + kRight) / 2;
constexpr double kTop = 2600, kHeadsTop = 3100, kRowsTop = 3600, kBottom = 12000;
constexpr double kNameY = 3150, kUnitY = 3370;
constexpr double kResultsY = 12200, kRingsY = 12500;
constexpr BothSpecimens<double> kRingX{1200, 5000};

constexpr std::size_t kShortTable = 23, kLongTable = 50;
constexpr double kLongTableSize = 7.5;  // point

// ---- what stands in the cells

/// A reading of a specimen.
struct Reading {
  const UnconfinedSampleRecord& record;
  Specimen specimen;
  std::size_t row;
  double strain() const { return strainOf(record, specimen)[row].number(); }
  double height() const { return record.sampleHeight[indexOf(specimen)].number(); }
  double area() const { return record.sampleArea[indexOf(specimen)].number(); }
  double divisions() const { return readingOf(record, specimen)[row].number(); }
};

/// Values of this magnitude and below are none.
constexpr double kNothing = 0.1;
bool isNothing(double value) { return std::abs(value) <= kNothing; }

std::string textOf(const FixedText<6>& field) {
  return isNothing(field.number()) ? std::string() : gbkToUtf8(field.trimmed());
}
/// A value that is worked out of the strain stands in rows that have one.
std::string computed(const Reading& reading, const std::optional<double>& value) {
  if (isNothing(reading.strain()) || !value || isNothing(*value)) return {};
  return FormatNumber(*value, NumberFormat::Hundredths);
}

std::string strainText(const Reading& reading) {
  return textOf(strainOf(reading.record, reading.specimen)[reading.row]);
}
/// The area that the specimen has at this strain.
std::string areaText(const Reading& reading) {
  return computed(reading, quotient(reading.area(), 1 - reading.strain() / 100));
}
std::string divisionsText(const Reading& reading) {
  return textOf(readingOf(reading.record, reading.specimen)[reading.row]);
}
std::string stressText(const Reading& reading) {
  return textOf(stressOf(reading.record, reading.specimen)[reading.row]);
}
/// By how much the specimen is shorter, mm: less what the load ring itself gave way.
std::string shorteningText(const Reading& reading) {
  if (isNothing(reading.height())) return {};
  return computed(reading, reading.strain() * reading.height() / 10 - reading.divisions() / 100);
}

struct Column {
  const char *name, *unit;
  std::string (*text)(const Reading& reading);
};
constexpr std::array kColumns{Column{"轴向应变", "%", strainText}, Column{"剪切面积", "( cm  )", areaText},
                              Column{"量表读数", "(0.01mm)", divisionsText}, Column{"轴向应力", "(kPa)", stressText}};
constexpr std::array kColumnsWithShortening{
    Column{"轴向应变", "%", strainText}, Column{"轴向变形", "(mm)", shorteningText},
    Column{"剪切面积", "( cm  )", areaText}, Column{"量表读数", "(0.01mm)", divisionsText},
    Column{"轴向应力", "(kPa)", stressText}};

/// The columns of a specimen; both have the same.
std::span<const Column> columnsOf(const LaboratoryHabits& habits) {
  return habits.unconfinedHeightChange ? std::span<const Column>(kColumnsWithShortening) : kColumns;
}

/// All rows when there is a strain behind the first ones.
std::size_t rowsOf(const UnconfinedSampleRecord& record) {
  for (std::size_t row = kShortTable; row < kLongTable; ++row)
    for (const Specimen specimen : kSpecimens)
      if (strainOf(record, specimen)[row].number() != 0) return kLongTable;
  return kShortTable;
}

// ---- the table

/// A table of these columns and so many rows.
class Table {
 public:
  Table(std::span<const Column> columns, std::size_t rows)
      : m_columns(columns), m_rows(rows), m_font{.size = rows == kLongTable ? kLongTableSize : kTestPageFont.size} {}

  void drawRules(DrawingSurface& surface, Stroke stroke) const;
  void drawHeads(DrawingSurface& surface) const;
  void drawReadings(DrawingSurface& surface, const UnconfinedSampleRecord& record) const;

 private:
  double columnWidth() const { return (kMiddle - kLeft) / static_cast<double>(m_columns.size()); }
  double columnX(Specimen specimen, std::size_t column) const {
    return (specimen == Specimen::Undisturbed ? kLeft : kMiddle) + columnWidth() * static_cast<double>(column);
  }
  double centreX(Specimen specimen, std::size_t column) const { return columnX(specimen, column) + columnWidth() / 2; }
  double rowHeight() const { return (kBottom - kRowsTop) / static_cast<double>(m_rows); }

  std::span<const Column> m_columns;
  std::size_t m_rows;
  Font m_font;  // of the readings
};

void Table::drawRules(DrawingSurface& surface, Stroke stroke) const {
  drawTableRules(surface, {{kLeft, kTop}, {kRight, kBottom}, {kHeadsTop, kRowsTop}, {kMiddle}}, stroke);
  for (const Specimen specimen : kSpecimens)
    for (std::size_t column = 1; column < m_columns.size(); ++column) {
      const double x = columnX(specimen, column);
      surface.line({x, kHeadsTop}, {x, kBottom}, stroke);
    }
}

/// "2" into the gap in front of the closing parenthesis.
void raiseTwo(DrawingSurface& surface, double centreX, std::string_view unit) {
  const double gap = centreX - textWidth(unit, kTestPageFont) / 2 + textWidth("( cm", kTestPageFont);
  surface.text({gap, kUnitY - raisedLift(kTestPageFont)}, "2", smallFont(kTestPageFont), Colour::Black);
}

void Table::drawHeads(DrawingSurface& surface) const {
  constexpr BothSpecimens<const char*> kNames{"原  状", "重  塑"};
  for (const Specimen specimen : kSpecimens) {
    const double groupY = (kTop + kHeadsTop - textHeight(kTestPageFont)) / 2;
    surface.textCentred(columnX(specimen, 0) + (kMiddle - kLeft) / 2, groupY, kNames[indexOf(specimen)], kTestPageFont,
                        Colour::Black);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
      const Column& column = m_columns[i];
      surface.textCentred(centreX(specimen, i), kNameY, column.name, kTestPageFont, Colour::Black);
      surface.textCentred(centreX(specimen, i), kUnitY, column.unit, kTestPageFont, Colour::Black);
      if (column.text == areaText) raiseTwo(surface, centreX(specimen, i), column.unit);
    }
  }
}

void Table::drawReadings(DrawingSurface& surface, const UnconfinedSampleRecord& record) const {
  for (std::size_t row = 0; row < m_rows; ++row) {
    const double y = kRowsTop + rowHeight() * static_cast<double>(row) + (rowHeight() - textHeight(m_font)) / 2;
    for (const Specimen specimen : kSpecimens)
      for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (const std::string text = m_columns[i].text({record, specimen, row}); !text.empty())
          surface.textCentred(centreX(specimen, i), y, text, m_font, Colour::Black);
  }
}

// ---- what stands below

void drawResults(DrawingSurface& surface, const UnconfinedSampleRecord& record) {
  struct Result {
    double x;
    const char* name;
    const FixedText<6>& text;
    const char* unit;
  };
  for (const auto& [x, name, text, unit] :
       {Result{1200, "qu = ", record.qu, "kpa"}, Result{4000, "qu' = ", record.quRemoulded, "kpa"},
        Result{6800, " St = ", record.sensitivity, ""}})
    surface.text({x, kResultsY}, name + gbkToUtf8(text.trimmed()) + unit, kTestPageFont, Colour::Black);
}

void drawRings(DrawingSurface& surface, const UnconfinedSampleRecord& record) {
  for (const Specimen specimen : kSpecimens) {
    const double coefficient = record.ringCoefficient[indexOf(specimen)] / 1000.0;
    surface.text({kRingX[indexOf(specimen)], kRingsY},
                 "钢环系数：" + FormatNumber(coefficient, NumberFormat::Thousandths) + "N /0.01mm", kTestPageFont,
                 Colour::Black);
  }
}

void drawSample(DrawingSurface& surface, const Workspace& workspace, TestBlock block, int lineWeight) {
  const LaboratoryHabits& habits = workspace.settings.habits;
  UnconfinedSampleRecord record = workspace.UnconfinedSampleTable[block.row];
  reduceUnconfinedSample(record, habits.sensitivityFormat());

  const Table table(columnsOf(habits), rowsOf(record));
  table.drawRules(surface, {Colour::Black, lineWeight});
  table.drawHeads(surface);
  table.drawReadings(surface, record);
  drawResults(surface, record);
  if (!habits.omitRingCoefficient) drawRings(surface, record);
}

constexpr TestPageForm kForm{.title = "无侧限抗压强度试验(应变式)",
                             .tests = ProjectKind::Unconfined,
                             .omitsTestDate = &LaboratoryHabits::omitUnconfinedTestDate,
                             .frame = testFrame(15000),
                             .headsSample = true,
                             .blocksPerPage = 1,
                             .firstBlockTop = 0,
                             .drawBlock = drawSample};

}  // namespace

constinit const Layout kUnconfinedTable{
    .id = "unconfined-table",
    .title = "无侧限抗压强度试验数据表",
    .kind = ProjectKind::Unconfined,
    .picturePrefix = "WCX",
    .make = [](const PrintJob& job, const Workspace& workspace) { return makeTestPages(kForm, job, workspace); }};

}  // namespace triaxlab
