#include "windows/dialogs/print_preview_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>

#include "windows/dialogs/print_page_view.h"

namespace triaxlab {
namespace {

constexpr QSize kFirstSize(860, 760);
constexpr double kSmallestZoom = 0.1, kLargestZoom = 8, kZoomOfNotch = 1.25;
constexpr double kWheelNotch = 120;  // eighths of a degree

}  // namespace

PrintPreview::PrintPreview(QWidget* parent, const PreviewedJob& job, SaveSheet save)
    : QDialog(parent),
      m_job(job),
      m_save(std::move(save)),
      m_area(new QScrollArea(this)),
      m_page(new PrintPageView(m_area, job.sheets)) {
  setObjectName("PrintPreview");
  setWindowTitle("打印预览");
  resize(kFirstSize);
  m_page->setObjectName("Picture1");
  m_area->setWidget(m_page);
  m_area->setAlignment(Qt::AlignCenter);
  m_area->setBackgroundRole(QPalette::Dark);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(makeButtons());
  layout->addWidget(m_area, 1);
  m_page->installEventFilter(this);
  m_page->setFocus();
  turnTo(1);
}

QWidget* PrintPreview::makeButtons() {
  auto* const bar = new QWidget(this);
  auto* const line = new QHBoxLayout(bar);
  line->setContentsMargins(0, 0, 0, 0);
  const auto button = [&](const char* name, const char* caption, const char* tip, auto&& action) {
    auto* const made = new QPushButton(caption, bar);
    made->setObjectName(name);
    made->setToolTip(tip);
    made->setAutoDefault(false);
    line->addWidget(made);
    connect(made, &QPushButton::clicked, this, action);
    return made;
  };
  m_previous = button("Command1", "上一页", "PageUp", [this] { turn(-1); });
  m_next = button("Command2", "下一页", "PageDown", [this] { turn(1); });
  button("Command6", "整页", "Ctrl+0", [this] { fit(Fit::Page); });
  button("Command7", "页宽", "", [this] { fit(Fit::Width); });
  button("Command8", "放大", "Ctrl++", [this] { magnify(kZoomOfNotch); });
  button("Command9", "缩小", "Ctrl+-", [this] { magnify(1 / kZoomOfNotch); });
  button("Command4", "复 制", "Ctrl+C", [this] { copy(); });
  button("Command5", "存为PDF", "本页存为PDF文件", [this] { m_save(m_page->sheet()); });
  button("Command3", "返 回", "Esc", [this] { reject(); });
  m_number = new QLabel(bar);
  m_number->setObjectName("Label1");
  line->addStretch();
  line->addWidget(m_number);
  return bar;
}

// ---- Keys and wheel

struct PrintPreview::Key {
  int toolkitKey;
  void (*action)(PrintPreview&);
  const char* effect;
};

std::span<const PrintPreview::Key> PrintPreview::keys() {
  static constexpr int kCtrl = Qt::CTRL;
  static constexpr std::array kKeys{
      Key{Qt::Key_PageUp, [](PrintPreview& own) { own.turn(-1); }, "上一页"},
      Key{Qt::Key_PageDown, [](PrintPreview& own) { own.turn(1); }, "下一页"},
      Key{Qt::Key_Home, [](PrintPreview& own) { own.turnTo(1); }, "第一页"},
      Key{Qt::Key_End, [](PrintPreview& own) { own.turnTo(own.m_job.sheets.count()); }, "最后一页"},
      Key{kCtrl | Qt::Key_Plus, [](PrintPreview& own) { own.magnify(kZoomOfNotch); }, "放大"},
      Key{kCtrl | Qt::Key_Equal, [](PrintPreview& own) { own.magnify(kZoomOfNotch); }, "放大"},
      Key{kCtrl | Qt::Key_Minus, [](PrintPreview& own) { own.magnify(1 / kZoomOfNotch); }, "缩小"},
      Key{kCtrl | Qt::Key_0, [](PrintPreview& own) { own.fit(Fit::Page); }, "整页"},
      Key{kCtrl | Qt::Key_C, [](PrintPreview& own) { own.copy(); }, "复制这一页"},
  };
  return kKeys;
}

void PrintPreview::keyPressEvent(QKeyEvent* event) {
  if (!pressed(*event)) QDialog::keyPressEvent(event);
}

bool PrintPreview::eventFilter(QObject* watched, QEvent* event) {
  // Before the area that scrolls the page takes them.
  if (event->type() == QEvent::KeyPress && pressed(*static_cast<QKeyEvent*>(event))) return true;
  if (event->type() == QEvent::Wheel && turnedWheel(*static_cast<QWheelEvent*>(event))) return true;
  return QDialog::eventFilter(watched, event);
}

bool PrintPreview::pressed(const QKeyEvent& event) {
  // Shift, by which some keyboards reach the plus, and the keypad count for nothing.
  const int pressed = static_cast<int>(event.modifiers() & Qt::ControlModifier) | event.key();
  const auto found = std::ranges::find(keys(), pressed, &Key::toolkitKey);
  if (found == keys().end()) return false;
  found->action(*this);
  return true;
}

std::vector<KeyGroup> PrintPreview::keyHelp() const { return {keyGroup("预览", keys())}; }

bool PrintPreview::turnedWheel(const QWheelEvent& event) {
  const double notches = event.angleDelta().y() / kWheelNotch;
  if (event.modifiers().testFlag(Qt::ControlModifier)) {
    magnify(std::pow(kZoomOfNotch, notches));
    return true;
  }
  // At the edge of a page the wheel goes on to the next one.
  QScrollBar* const bar = m_area->verticalScrollBar();
  const bool atEdge = bar->value() == (notches > 0 ? bar->minimum() : bar->maximum());
  if (!atEdge || notches == 0) return false;
  turn(notches > 0 ? -1 : 1);
  return true;
}

// ---- What they do

void PrintPreview::turnTo(int sheet) {
  const int shown = std::clamp(sheet, 1, m_job.sheets.count());
  if (shown != m_page->sheet()) m_area->verticalScrollBar()->setValue(0);
  m_page->showSheet(shown);
  refresh();
}

void PrintPreview::turn(int sheets) { turnTo(m_page->sheet() + sheets); }

void PrintPreview::fit(Fit fit) {
  m_fit = fit;
  const QSize room = m_area->maximumViewportSize();
  const double forWidth = m_page->zoomForWidth(room.width());
  if (fit == Fit::Page) m_page->setZoom(std::min(forWidth, m_page->zoomForHeight(room.height())));
  // A page as wide as the window has the scroll bar beside it.
  if (fit == Fit::Width)
    m_page->setZoom(m_page->zoomForWidth(room.width() - m_area->verticalScrollBar()->sizeHint().width()));
}

void PrintPreview::magnify(double times) {
  m_fit = Fit::None;
  m_page->setZoom(std::clamp(m_page->zoom() * times, kSmallestZoom, kLargestZoom));
}

void PrintPreview::copy() const { QGuiApplication::clipboard()->setImage(m_page->picture()); }

void PrintPreview::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  // The area gets its size with the window's, but only now.
  layout()->activate();
  fit(m_fit);
}

void PrintPreview::refresh() {
  m_previous->setEnabled(m_page->sheet() > 1);
  m_next->setEnabled(m_page->sheet() < m_job.sheets.count());
  m_number->setText(QString("第 %1 页，共 %2 页").arg(m_page->sheet()).arg(m_job.sheets.count()));
}

}  // namespace triaxlab
