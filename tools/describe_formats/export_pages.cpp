#include <fmt/format.h>

#include <array>
#include <map>

#include "exports/columns.h"
#include "format_pages.h"
#include "page.h"

namespace triaxlab::formats {
namespace {

/// Of columns that stand side by side the first and the last.
std::string namesText(const TableColumn& column) {
  const std::vector<std::string> names = namesOf(column);
  return names.size() == 1 ? fmt::format("`{}`", names.front())
                           : fmt::format("`{}` … `{}`", names.front(), names.back());
}

void addTable(Page& page, TableColumns columns) {
  std::vector<std::vector<std::string>> rows;
  for (const TableColumn& column : columns) rows.push_back({namesText(column), std::string(column.content)});
  page.table(std::array<std::string_view, 2>{"column", "what it holds"}, rows);
}

struct Subject {
  std::string_view tests, reading;
};
const std::map<ProjectKind, Subject> kSubjects{
    {ProjectKind::Triaxial, {"Triaxial tests", "a reading of the consolidation or the shear of a stage"}},
    {ProjectKind::Unconfined, {"Unconfined compression tests", "a reading of a specimen"}},
    {ProjectKind::K0, {"K0 tests", "a load stage"}},
    {ProjectKind::TK0, {"TK0 tests", "a time of a load stage"}},
};

}  // namespace

std::string exportTablesPage() {
  Page page("Tables for other programs");
  page.text(R"(
`triaxlab-cli export KIND NAME... --format csv|jsonl [--readings] --out FILE`, and the two entries of the file menu, write
the samples of project files as a table: the results, a line a sample, or with `--readings` the readings, a line each.
Names of columns are the same in both formats and are never changed; new columns go behind the others. A name ends with its
unit, if it has one; of columns that stand side by side it holds the number, from 1.
)");
  page.heading("Values");
  page.text(R"(
- A value is the text of the record, in UTF-8, without the blanks at its ends: it is not read as a number and written
  again, so `007`, `1E5` and `=1+1` stay what they are. Numbers that the record doesn't hold as texts are written with a
  point for the decimals: those that count tenths, hundredths or thousandths with so many decimals, single-precision
  numbers with the seven digits that they hold.
- An empty value is one that the record doesn't have.
- Control characters (below 32, and 127) are left out, so a line of the file is always a line of the table.
- Only samples with a project number and a sample number have lines.
)");
  page.heading("csv");
  page.text(R"(
As RFC 4180 has it: the first line holds the names, values are parted by commas, lines end with CR LF. A value with a comma
or a quotation mark, or a blank at an end, stands in quotation marks, its own doubled. There is no byte order mark. A
spreadsheet program that opens the file by a double click makes numbers of `007` and `1E5`, and may take `=1+1` for a
formula: there, import the columns as texts, or use the workbook.
)");
  page.heading("jsonl");
  page.text(R"(
A JSON object a line, ended by LF, with all columns in their order. A value is a string; an empty one is null.
)");
  for (const ExportTables* const tables : exportTables()) {
    const Subject& subject = kSubjects.at(tables->tests);
    page.heading(subject.tests);
    page.text(fmt::format("`export {}`:", infoOf(tables->tests).id));
    addTable(page, tables->results);
    page.text(fmt::format("With `--readings`, a line is {}:", subject.reading));
    addTable(page, tables->readings);
  }
  return page.markdown();
}

}  // namespace triaxlab::formats
