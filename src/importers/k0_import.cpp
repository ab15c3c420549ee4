#include "importers/k0_import.h"

#include "common/gbk.h"

namespace triaxlab {

SourceRow k0GridRow(const K0Entry& entry) {
  SourceRow row;
  row.projectNo = shownText(entry.entryProjectNo.view());
  row.testDate = slashedEntryDate(entry.entryDate);
  row.cells = {gbkToUtf8(row.projectNo), gbkToUtf8(row.testDate)};
  return row;
}

Likeness likenessOfStation(std::string_view projectNo, std::string_view sampleNo) {
  if (!isPlainText(projectNo) || !isPlainText(sampleNo)) return Likeness::Impossible;
  return shownText(sampleNo).empty() ? Likeness::Unused : Likeness::Sure;
}

}  // namespace triaxlab
