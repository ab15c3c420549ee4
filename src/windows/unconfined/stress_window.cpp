#include "windows/unconfined/stress_window.h"

#include <QKeyEvent>
#include <QPushButton>
#include <utility>

#include "windows/controls/cell_keys.h"
#include "windows/controls/click_label.h"
#include "windows/controls/record_edit.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips throughout.
constexpr Place kWindow{0, 0, 11700, 7900}, kChart{0, 0, kStressChartWidth, kStressChartHeight};
constexpr Place kShowCurve{8000, 400, 1400, 400}, kPrintTable{9600, 400, 1400, 400};
constexpr int kChartWidth = 7900;  // of the canvas; then come the fields
constexpr int kBoxHeight = 300;
// In the cells of the constants table.
constexpr int kConstantX = 9450, kConstantY = 1880, kConstantPitch = 800, kConstantWidth = 700;
// Below it.
constexpr BothSpecimens<int> kLimitY{3450, 3800};
constexpr int kLimitCaptionX = 8000, kLimitCaptionWidth = 1300, kLimitX = 9400, kLimitWidth = 900;
constexpr Place kApplyLimits{10400, 3600, 900, 400};

}  // namespace

Form4::Form4(Workspace& workspace, ShellSession& shell) : Form4(std::make_unique<StressSession>(workspace), shell) {}

Form4::Form4(std::unique_ptr<StressSession> session, ShellSession& shell)
    : ListedWindow(shell, kForm4, std::move(session)), m_session(static_cast<StressSession&>(this->session())) {
  setObjectName("Form4");
  setWindowTitle(stress_captions::kTitle);
  setNaturalSize(kWindow);
  CanvasWidget* const chart = addChart(
      "Picture1", kChart, [this](DrawingSurface& surface) { m_session.draw(surface); },
      [this](DrawingSurface& surface, const ChartView& view) { m_session.drawEdges(surface, view); },
      [this](Point place) { return m_session.readout(place); });
  chart->setZoomWidth(kChartWidth);
  chart->setFieldTexts([this](DrawingSurface& surface) { m_session.drawFields(surface); });
  makeButtons();
  makeConstants();
  makeStrainLimits();
  makeLowerHalf({.pitch = 1000, .width = 950});
  load();
}

Form4::~Form4() {
  // A box that loses the focus while the window goes down has nobody to tell any more.
  for (RecordEdit* const box : m_text8) box->disconnect(this);
}

void Form4::makeButtons() {
  auto* const showCurve = put(new QPushButton(stress_captions::kShowCurve, this), "Command1", kShowCurve);
  connect(showCurve, &QPushButton::clicked, this, [this] { act([&] { m_session.showCurve(); }); });
  auto* const printTable = put(new QPushButton(stress_captions::kPrintTable, this), "Command2", kPrintTable);
  connect(printTable, &QPushButton::clicked, this, [this] { shell().printTable(); });
}

void Form4::makeConstants() {
  for (int i = 0; i < kConstants; ++i) {
    RecordEdit*& box = m_text3.at(static_cast<std::size_t>(i));
    box = edit(
        arrayName("Text3", i), {ListedInputName::OwnField, i},
        {kConstantX + kConstantPitch * (i % 2), kConstantY + kConstantsPitch * (i / 2), kConstantWidth, kBoxHeight});
    box->onKey = [this, i](const QKeyEvent& event) { return keyInConstant(i, event); };
  }
}

bool Form4::keyInConstant(int constant, const QKeyEvent& event) {
  const std::optional<CellKey> key = cellKeyOf(event);
  if (!key) return false;
  const auto reached = constantReachedFrom(constant, *key, cursorOf(*m_text3.at(static_cast<std::size_t>(constant))));
  if (!reached) return false;
  RecordEdit* const box = m_text3.at(static_cast<std::size_t>(*reached));
  box->setFocus();
  box->selectAll();
  return true;
}

void Form4::makeStrainLimits() {
  static constexpr BothSpecimens<const char*> kCaptionNames{"Label8", "Label4"};
  for (const Specimen specimen : kSpecimens) {
    const std::size_t at = indexOf(specimen);
    caption(stress_captions::kPeaks.at(at), {kLimitCaptionX, kLimitY.at(at), kLimitCaptionWidth, kBoxHeight})
        ->setObjectName(kCaptionNames.at(at));
    RecordEdit*& box = m_text8.at(at);
    box = put(new RecordEdit(this), arrayName("Text8", static_cast<int>(at)),
              {kLimitX, kLimitY.at(at), kLimitWidth, kBoxHeight});
    box->setAccessibleName(stress_captions::kPeaks.at(at));
    box->fieldWidth = [] { return StressSession::kLimitWidth; };
    connect(box, &QLineEdit::textEdited, this,
            [this, specimen](const QString& text) { act([&] { m_session.editStrainLimit(specimen, utf8(text)); }); });
  }
  auto* const apply = put(new QPushButton(stress_captions::kApplyLimits, this), "Command8", kApplyLimits);
  connect(apply, &QPushButton::clicked, this, [this] { act([&] { m_session.applyStrainLimits(); }); });
}

void Form4::showUpperHalf(const ListedState& /*now*/) {
  for (std::size_t i = 0; i < m_text8.size(); ++i) m_text8[i]->showText(words(m_session.strainLimitTexts()[i]));
}

}  // namespace triaxlab
