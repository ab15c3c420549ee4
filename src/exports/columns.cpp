#include "exports/columns.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "exports/column_texts.h"
#include "store/project/sample_rows.h"
#include "store/test_date.h"

namespace triaxlab {
namespace {

constexpr std::array kTables{&kTriaxialTables, &kUnconfinedTables, &kK0Tables, &kTK0Tables};

std::string nameOf(const TableColumn& column, std::string_view number) {
  return fmt::format("{}{}{}{}", column.name, number, column.unit.empty() ? "" : "_", column.unit);
}

const SampleLocation& locationOf(const TableLine& line) {
  return line.workspace.dataOf(line.tests).SampleDisplayTable[line.row];
}

}  // namespace

std::vector<std::string> namesOf(const TableColumn& column) {
  if (column.count == 0) return {nameOf(column, "")};
  std::vector<std::string> names;
  for (std::size_t number = 1; number <= column.count; ++number)
    names.push_back(nameOf(column, std::to_string(number)));
  return names;
}

std::span<const ExportTables* const> exportTables() { return kTables; }

const ExportTables& exportTablesOf(ProjectKind kind) {
  const ProjectKind shown = infoOf(kind).savedAs;
  return **std::ranges::find_if(kTables, [shown](const ExportTables* tables) { return tables->tests == shown; });
}

std::string projectNoText(const TableLine& line, std::size_t /*number*/) {
  return gbkToUtf8(SampleRows(line.workspace, line.tests).projectNo(line.row));
}

std::string sampleText(const TableLine& line, std::size_t /*number*/) { return std::to_string(line.row + 1); }

std::string sampleNoText(const TableLine& line, std::size_t /*number*/) {
  return gbkToUtf8(SampleRows(line.workspace, line.tests).sampleNo(line.row));
}

std::string testDateText(const TableLine& line, std::size_t /*number*/) {
  const auto testDate = infoOf(line.tests).results.testDate;
  return gbkToUtf8(shownTestDate(line.workspace.dataOf(line.tests),
                                 SampleRows(line.workspace, line.tests).projectNo(line.row),
                                 testDate != nullptr ? testDate(line.record) : std::string_view{}));
}

std::string boreholeNoText(const TableLine& line, std::size_t /*number*/) {
  return AsItStands()(locationOf(line).boreholeNo);
}

std::string samplingDepthText(const TableLine& line, std::size_t /*number*/) {
  return AsItStands()(locationOf(line).samplingDepth);
}

std::string samplingSpotText(const TableLine& line, std::size_t /*number*/) {
  return AsItStands()(locationOf(line).samplingSpot);
}

std::string stageText(const TableLine& line, std::size_t /*number*/) { return std::to_string(line.reading.stage + 1); }

std::string readingText(const TableLine& line, std::size_t /*number*/) { return std::to_string(line.reading.row + 1); }

}  // namespace triaxlab
