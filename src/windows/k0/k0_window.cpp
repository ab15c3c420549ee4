#include "windows/k0/k0_window.h"

#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips throughout.
constexpr Place kWindow{0, 0, 11700, 7900};
constexpr int kX = 9200, kTextWidth = 2400, kButtonWidth = 1700, kHeight = 300;
constexpr KoBesideCharts kBeside{.lineNote = {kX, 400, kTextWidth, kHeight},
                                 .samplingDepth = {kX, 800, kTextWidth, kHeight},
                                 .redraw = {kX, 1300, kButtonWidth, kHeight},
                                 .reprocess = {kX, 1800, kButtonWidth, kHeight}};

}  // namespace

Form6::Form6(Workspace& workspace, ShellSession& shell)
    : KoWindow(shell, kForm6, std::make_unique<K0Session>(workspace)) {
  setObjectName("Form6");
  setWindowTitle(words(ko_captions::kK0Title));
  setNaturalSize(kWindow);
  makeKoChart();
  makeRest(kBeside);
  load();
}

}  // namespace triaxlab
