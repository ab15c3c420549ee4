#include "store/test_date.h"

namespace triaxlab {

std::string_view shownTestDate(const DocumentData& document, std::string_view projectNo, std::string_view ownDate,
                               DateFirst first) {
  if (first == DateFirst::OfSample && !ownDate.empty()) return ownDate;
  const std::string_view ofProject = document.projectTestDate(projectNo).value_or("");
  return ofProject.empty() ? ownDate : ofProject;
}

}  // namespace triaxlab
