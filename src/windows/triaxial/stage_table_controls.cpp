#include "windows/triaxial/stage_table_controls.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringList>
#include <QWheelEvent>

#include "triaxial/charts/table_chart.h"
#include "windows/controls/scroll_keys.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips: as high as the rows.
constexpr int kScrollTop = 1850, kScrollHeight = 5710, kScrollWidth = 255;

/// Opened by the mouse, Alt+Down or the space bar. F4, which opens a list elsewhere, is the key of intervention here
/// and goes on to the window.
class StageList : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier) return event->ignore();
    QComboBox::keyPressEvent(event);
  }
};

}  // namespace

StageTableControls::StageTableControls(QWidget* window, const StageTablePlaces& places, CanvasWidget::Drawing drawing)
    : picture1(put(new CanvasWidget(window, places.canvasWidth, kTableHeight, std::move(drawing)), "Picture1",
                   {0, 0, places.canvasWidth, kTableHeight})),
      combo1(put(new StageList(window), "Combo1", places.stages)),
      vScroll1(put(new QScrollBar(Qt::Vertical, window), "VScroll1",
                   {places.canvasWidth, kScrollTop, kScrollWidth, kScrollHeight})) {
  vScroll1->setPageStep(static_cast<int>(kTableRowsShown));
}

void StageTableControls::show(const StageTableState& now) const {
  const QSignalBlocker blockedCombo(combo1), blockedBar(vScroll1);
  QStringList stages, before;
  for (const std::string& stage : now.stages) stages << words(stage);
  for (int i = 0; i < combo1->count(); ++i) before << combo1->itemText(i);
  if (stages != before) {
    combo1->clear();
    combo1->addItems(stages);
  }
  combo1->setCurrentIndex(now.entry ? static_cast<int>(*now.entry) : -1);
  combo1->setEnabled(!stages.isEmpty());
  vScroll1->setRange(0, now.scrollMax);
  vScroll1->setValue(now.top);
}

// Not sent through the application, which would hand what the bar ignores at its end back to the window.
void StageTableControls::turnWheel(QWheelEvent& event) const { vScroll1->event(&event); }

bool StageTableControls::takesKey(const QKeyEvent& event) const {
  return scrollByKey(*vScroll1, event, kLineKeys) || scrollByKey(*vScroll1, event, kScrollKeys);
}

KeyGroup stageTableKeys() { return keyGroup("数据表", kLineKeys, kScrollKeys, kCopyKeys); }

}  // namespace triaxlab
