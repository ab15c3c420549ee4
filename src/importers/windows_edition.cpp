#include "importers/windows_edition.h"

#include <algorithm>

#include "common/gbk.h"

namespace triaxlab {

std::vector<SourceRow> projectRows(const JetDatabase& database, std::string_view projectNumbers,
                                   std::string_view rowsOfProject, std::string (*describe)(const JetRows& rows)) {
  std::vector<SourceRow> rows;
  const JetRows projects = database.run(projectNumbers);
  for (std::size_t i = 0; i < projects.count(); ++i) {
    const std::string number = projects.at(i, "GCBH").text();
    const JetRows found = database.run(std::string(rowsOfProject) + JetDatabase::quoted(number) + "'");
    const std::string date = found.count() == 0 ? "" : dateOf(found.at(0, "BCSJ"));
    rows.push_back(
        {{number, describe(found), date}, std::string(Trim(utf8ToGbk(number))), std::string(Trim(utf8ToGbk(date)))});
  }
  return rows;
}

std::string projectNameOf(const JetRows& rows) { return rows.count() == 0 ? "" : rows.at(0, "GCMC").text(); }

Recognition recogniseJet(const FileHead& head, std::string_view table) {
  constexpr std::string_view kSignature = "Standard Jet DB", kLaterSignature = "Standard ACE DB";
  constexpr std::size_t kSignaturePlace = 4;
  const std::string_view bytes = head.text().substr(std::min(kSignaturePlace, head.text().size()));
  if (!bytes.starts_with(kSignature) && !bytes.starts_with(kLaterSignature)) return Recognition::NotMine;
  std::string wide;
  for (const char letter : table) wide.append({letter, '\0'});
  const bool hasTable = bytes.find(table) != std::string_view::npos || bytes.find(wide) != std::string_view::npos;
  return hasTable ? Recognition::Mine : Recognition::Damaged;
}

std::string dateOf(const JetValue& timeOfSaving) {
  const std::string text = timeOfSaving.text();
  return text.substr(0, text.find(' '));
}

}  // namespace triaxlab
