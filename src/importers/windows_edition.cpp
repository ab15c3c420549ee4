#include "importers/windows_edition.h"

#include "common/gbk.h"

namespace triaxlab {

std::vector<SourceRow> projectRows(const JetDatabase& database, std::string_view projectNumbers,
                                   std::string_view rowsOfProject) {
  std::vector<SourceRow> rows;
  const JetRows projects = database.run(projectNumbers);
  for (std::size_t i = 0; i < projects.count(); ++i) {
    const std::string number = projects.at(i, "GCBH").text();
    const JetRows found = database.run(std::string(rowsOfProject) + JetDatabase::quoted(number) + "'");
    const std::string date = found.count() == 0 ? "" : dateOf(found.at(0, "BCSJ"));
    rows.push_back({{number, std::to_string(found.count()), date},
                    std::string(Trim(utf8ToGbk(number))),
                    std::string(Trim(utf8ToGbk(date)))});
  }
  return rows;
}

std::string dateOf(const JetValue& timeOfSaving) {
  const std::string text = timeOfSaving.text();
  return text.substr(0, text.find(' '));
}

}  // namespace triaxlab
