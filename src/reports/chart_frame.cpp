#include "reports/chart_frame.h"

#include <algorithm>

#include "reports/fitted_text.h"

namespace triaxlab {
namespace {

const Font kTitle{.size = 19, .bold = true}, kBody{};
// Twips from the edges of what is inside the margins.
constexpr double kControlNumberLift = 300, kLaboratoryDrop = 350, kProjectDrop = 600, kRuleDrop = 900, kFootDrop = 100;
constexpr double kIndent = 50;

/// Beside the title rather than under it, as far as setting it narrower does it.
void printLaboratory(DrawingSurface& surface, Point place, std::string_view name, double right, double titleX) {
  const double besideTitle = titleX - textWidth(" ", kBody);
  if (besideTitle > place.x && textWidth(name, kBody) <= right - place.x)
    printFitted(surface, place, name, kBody, besideTitle, kBody.size);
  else
    printFitted(surface, place, name, kBody, right);
}

/// The number stands in the middle of the seven blanks of "第       页". Returns where all of it begins.
double printPageNumber(DrawingSurface& surface, double right, double y, const ChartSheetHead& head) {
  if (!head.pageNumber) {
    const double begin = right - textWidth(head.pageLabel, kBody);
    printFitted(surface, {begin, y}, head.pageLabel, kBody, right);
    return begin;
  }
  constexpr std::string_view kBefore = "第", kBlanks = "       ", kBehind = "页";
  const double behindX = right - textWidth(kBehind, kBody), blanks = textWidth(kBlanks, kBody);
  const double begin = behindX - blanks - textWidth(kBefore, kBody);
  surface.text({begin, y}, kBefore, kBody, Colour::Black);
  surface.textCentred(behindX - blanks / 2, y, std::to_string(*head.pageNumber), kBody, Colour::Black);
  surface.text({behindX, y}, kBehind, kBody, Colour::Black);
  return begin;
}

/// The texts at the foot, each ending before the one that stands next on the line.
void printFoot(DrawingSurface& surface, const Rectangle& inside, const ChartSheetHead& head) {
  constexpr double kThirdEnds = 3.0 / 4;  // of the width
  const double y = inside.bottom + kFootDrop, width = inside.right - inside.left;
  const double dateX = inside.right - textWidth("2012年02月30日", kBody),
               labelX = dateX - textWidth(head.dateLabel, kBody);
  const double thirdX = inside.left + kThirdEnds * width - textWidth("审核人 ", kBody);
  const double middle = (inside.left + inside.right) / 2;
  const auto& [first, second, third] = head.signatures;
  const double gap = textWidth(" ", kBody);
  const double secondRoom = (third.empty() ? labelX : std::min(thirdX, labelX)) - gap - middle;
  const double secondWidth = textWidth(second, fittedFont(second, kBody, 2 * secondRoom));
  printFitted(surface, {inside.left + kIndent, y}, first, kBody, middle - secondWidth / 2 - gap);
  printFittedCentred(surface, middle, y, second, kBody, middle + secondRoom);
  printFitted(surface, {thirdX, y}, third, kBody, labelX - gap);
  printFitted(surface, {labelX, y}, head.dateLabel, kBody, dateX);
  printFitted(surface, {dateX, y}, head.date, kBody, inside.right);
}

}  // namespace

void drawChartFrame(DrawingSurface& surface, PageSize paper, const Rectangle& inside, const ChartSheetHead& head,
                    int lineWeight) {
  const auto& [left, top, right, bottom] = inside;
  const double middle = (left + right) / 2, y = top + kProjectDrop, nameX = left + (right - left) / 3;
  // Nothing stands beside the title: it may pass both margins alike, as far as the paper goes.
  printFittedCentred(surface, middle, top, head.title, kTitle, middle + std::min(middle, paper.width - middle));
  printFitted(surface, {left, top - kControlNumberLift}, head.controlNumber, kBody, right);
  printLaboratory(surface, {left + kIndent, top + kLaboratoryDrop}, head.laboratory, right,
                  middle - textWidth(head.title, kTitle) / 2);
  const double pageX = printPageNumber(surface, right, y, head);
  const double gap = textWidth(" ", kBody);
  printFitted(surface, {left + kIndent, y}, head.projectNo, kBody, (head.projectName.empty() ? pageX : nameX) - gap);
  // The longest names must not run into the page number, which stands where other pages have nothing.
  constexpr double kSmallestName = 6;
  printFitted(surface, {nameX, y}, head.projectName, kBody, pageX - gap, kSmallestName);
  surface.line({left, top + kRuleDrop}, {right, top + kRuleDrop}, {Colour::Black, lineWeight});
  printFoot(surface, inside, head);
}

}  // namespace triaxlab
