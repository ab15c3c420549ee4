#include <fmt/format.h>

#include <array>

#include "format_pages.h"
#include "page.h"
#include "store/summary/physical_record.h"
#include "store/summary/summary_fields.h"
#include "store/summary/summary_frame.h"

namespace triaxlab::formats {
namespace {

std::string textOfRuns(std::span<const TextRun> runs) {
  std::string text;
  for (const TextRun& run : runs) {
    if (!text.empty()) text += ", ";
    text += run.count > 1 ? fmt::format("{} × {}", run.count, run.width) : fmt::format("{}", run.width);
  }
  return text;
}

void addSections(Page& page) {
  std::vector<std::vector<std::string>> rows;
  for (const SummarySection& section : kSummarySections)
    rows.push_back(
        {fmt::format("`{}`", section.tag), fmt::format("{}", section.offset), fmt::format("{}", section.size)});
  page.table(std::array<std::string_view, 3>{"tag", "offset", "size"}, rows);
}

void addCarriedTexts(Page& page) {
  std::vector<std::vector<std::string>> rows;
  for (const CarriedTexts& texts : kCarriedTexts)
    rows.push_back({fmt::format("`{}`", texts.field), texts.tag.empty() ? "" : fmt::format("`{}`", texts.tag),
                    textOfRuns(texts.runs)});
  page.table(std::array<std::string_view, 3>{"field", "tag in front", "widths"}, rows);
}

}  // namespace

std::string summaryFilePage() {
  Page page("Summary file");
  page.text(fmt::format(R"(
`ZMSJ\KHZ<projectNo>.txt` is a table of one project that all tools of the laboratory share: a head and a record for each
sample number. Each tool fills its own section and keeps the others, so that a sample's results from every test meet in
one place. A section begins with its tag and ends with CR LF, and unfilled places are blank, so the file can be looked at
in a text editor. Record k, from 0, lies at {} + k × {}.
)",
                        sizeof(SummaryHeader), sizeof(SummaryRecord)));
  page.heading("Head");
  page.record(fieldRows<SummaryHeader>(), sizeof(SummaryHeader));
  page.text(R"(
A save writes `projectName`, `secondTitleLine` and the first of `toolDates`, the test date of the sample saved last.
)");
  page.heading("Sections of a record");
  addSections(page);
  page.heading("Record");
  page.record(fieldRows<SummaryRecord>(), sizeof(SummaryRecord));
  page.text(R"(
A save of any kind of test writes the section `NO.` and `samplingSpot`; a triaxial one also `testDateSz`, `testMethod`,
the four results `cSz` to `phiEffSz` and, when the first `cellPressure` of the sample isn't 0, the same results in the
place of the sample's method ([0] UU, [1] CU, [2] CD), blanking the other three; an unconfined one `wcTexts`; a K0 or TK0
one `koValue`. A sample that is deleted from its project file keeps its record, in which the results of that kind of test
are blanked; of a triaxial sample those by method stay.
)");
  page.heading("What is carried along");
  page.text(R"(
How the sibling tools divide the bytes that this system keeps as they are. `N × W` is N texts of W places; where a tag is
told, it stands in front, and CR LF behind.
)");
  addCarriedTexts(page);
  return page.markdown();
}

std::string physicalDataPage() {
  Page page("Physical test data");
  page.text(fmt::format(R"(
`ZMSJ\<projectNo>.dat` is kept by the tool for physical tests and only read here: while a curve is corrected by hand, the
block 物理指标 can show what it knows of the sample. A file that is missing, can't be read or ends early leaves the values
blank, which is no error. Record k, from 0, lies at {} + k × {}; of several with one sample number the first counts.
)",
                        sizeof(PhysicalHead), sizeof(PhysicalRecord)));
  page.heading("Head");
  page.record(fieldRows<PhysicalHead>(), sizeof(PhysicalHead));
  page.heading("Record");
  page.record(fieldRows<PhysicalRecord>(), sizeof(PhysicalRecord));
  return page.markdown();
}

}  // namespace triaxlab::formats
