#include "windows/listed_window.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWheelEvent>
#include <utility>

#include "windows/controls/cell_block.h"
#include "windows/controls/cell_keys.h"
#include "windows/controls/click_label.h"
#include "windows/controls/copied_table.h"
#include "windows/controls/record_edit.h"
#include "windows/controls/scroll_bars.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips throughout.
constexpr int kBoxHeight = 300;
// List and readings, from the upper edge of both.
constexpr Place kTables{0, 5250, 11400, 1750};
constexpr int kHeadsY = 0, kLinesTop = 350, kLinePitch = 350, kScrollHeight = 1700;
// The list.
constexpr int kNumbersX = 1300, kNumberPitch = 1600, kNumberWidth = 1550;
constexpr int kListRuleX = 800, kListRuleEnd = 4450, kListBarX = 4500;
// The readings.
constexpr int kLineNumberX = 4800, kLineNumberWidth = 280, kReadingsX = 5100;
constexpr int kReadingsRuleX = 5050, kReadingsRuleEnd = 11050, kReadingsBarX = 11100;
// The texts of the document.
constexpr int kNameY = 7100, kTextsY = 7440;

constexpr int lineY(int line) { return kLinesTop + kLinePitch * line; }

/// A text of the document behind its caption.
struct DocumentBox {
  const char* name;
  ListedInput input;
  const char* caption;
  int captionX, boxX, y, width;
};
constexpr std::array kDocumentBoxes{
    DocumentBox{"Text5", {ListedInputName::ProjectName}, document_captions::kProjectName, 800, 1750, kNameY, 9300},
    DocumentBox{"TextW(0)", {ListedInputName::DateText, 0}, "试验：", 800, 1400, kTextsY, 1900},
    DocumentBox{"TextW(1)", {ListedInputName::DateText, 1}, "检查：", 3450, 4050, kTextsY, 1900},
    DocumentBox{"TextW(2)", {ListedInputName::DateText, 2}, "", 6000, 6100, kTextsY, 1500},
    DocumentBox{
        "TextW(3)", {ListedInputName::SecondTitleLine}, document_captions::kArchiveNo, 7750, 8550, kTextsY, 2500},
};

/// The line under a line of cells.
void rule(QWidget* window, int x, int end, int line) {
  constexpr int kBelow = kBoxHeight + (kLinePitch - kBoxHeight) / 2, kThickness = 15;
  auto* const made = new QWidget(window);
  made->setAutoFillBackground(true);
  made->setBackgroundRole(QPalette::Mid);
  setPlace(made, {x, lineY(line) + kBelow, end - x, kThickness});
}

std::vector<Place> cellPlaces(int columns, int x, int pitch, int width) {
  std::vector<Place> places;
  for (int line = 0; line < kListedLines; ++line)
    for (int column = 0; column < columns; ++column)
      places.push_back({x + pitch * column, lineY(line), width, kBoxHeight});
  return places;
}

}  // namespace

ListedWindow::ListedWindow(ShellSession& shell, ActiveDocument document, std::unique_ptr<ListedSession> session)
    : DocumentWidget(shell, document), m_session(std::move(session)), m_tables(new QWidget(this)) {
  setPlace(m_tables, kTables);
}

ListedWindow::~ListedWindow() {
  // A box that loses the focus while the window goes down has nobody to tell any more.
  for (const auto& [box, input] : m_edits) box->disconnect(this);
  for (CellBlock* const block : {m_list, m_readings})
    if (block != nullptr) block->fallSilent();
}

// ---- what stands in the window

CanvasWidget* ListedWindow::addChart(const char* name, Place place, CanvasWidget::Drawing drawing,
                                     CanvasWidget::Edges edges, std::function<std::string(Point)> readout) {
  auto* const chart = put(new CanvasWidget(this, place.width, place.height, std::move(drawing)), name, place);
  chart->setZoomable(true);
  chart->setEdges(std::move(edges));
  connect(chart, &CanvasWidget::mouseAt, this,
          [this, readout = std::move(readout)](Point at) { tellMouse(readout(at)); });
  connect(chart, &CanvasWidget::mouseLeft, this, [this] { tellMouse({}); });
  m_charts.push_back(chart);
  return chart;
}

ClickLabel* ListedWindow::caption(QWidget* parent, const QString& text, Place place) {
  auto* const label = new ClickLabel(parent, text);
  setPlace(label, place);
  return label;
}

RecordEdit* ListedWindow::edit(const QString& name, ListedInput input, Place place) {
  auto* const box = put(new RecordEdit(this), name, place);
  box->fieldWidth = [this, input] { return m_session->width(input); };
  connect(box, &QLineEdit::textEdited, this,
          [this, input](const QString& text) { act([&] { m_session->edit(input, utf8(text)); }); });
  connect(box, &RecordEdit::focusLeft, this, [this] { act([&] { m_session->finishTyping(); }); });
  m_edits.emplace_back(box, input);
  return box;
}

void ListedWindow::makeLowerHalf(ReadingColumns columns) {
  makeList();
  makeReadings(columns);
  makeDocumentData();
}

void ListedWindow::makeList() {
  for (int column = 0; column < static_cast<int>(m_listHeads.size()); ++column)
    m_listHeads.at(static_cast<std::size_t>(column)) =
        caption(m_tables, {}, {kNumbersX + kNumberPitch * column, kHeadsY, kNumberWidth, kBoxHeight});
  m_list = new CellBlock(m_tables, {"Text1", "Label3"}, cellPlaces(2, kNumbersX, kNumberPitch, kNumberWidth));
  for (int line = 0; line < kListedLines; ++line) rule(m_tables, kListRuleX, kListRuleEnd, line);
  m_listBar =
      uprightScrollBar(m_tables, "VScroll1", {kListBarX, kHeadsY, kScrollBarWidth, kScrollHeight}, kListedLines);
  connect(m_listBar, &QScrollBar::valueChanged, this, [this](int top) { act([&] { m_session->scrollList(top); }); });
  connectBlock(*m_list, ListedInputName::Number, &ListedSession::selectNumber, &ListedSession::keyInList,
               &ListedState::list);
}

void ListedWindow::makeReadings(ReadingColumns columns) {
  const std::span<const char* const> heads = m_session->form().readingHeads;
  for (std::size_t column = 0; column < heads.size(); ++column)
    caption(m_tables, heads[column],
            {kReadingsX + columns.pitch * static_cast<int>(column), kHeadsY, columns.width, kBoxHeight})
        ->setAlignment(kNumberAlignment);
  for (int line = 0; line < kListedLines; ++line) {
    ClickLabel*& number = m_lineNumbers.at(static_cast<std::size_t>(line));
    number = caption(m_tables, {}, {kLineNumberX, lineY(line), kLineNumberWidth, kBoxHeight});
    number->setObjectName(arrayName("Label1", line));
    number->setAlignment(Qt::AlignCenter);
    rule(m_tables, kReadingsRuleX, kReadingsRuleEnd, line);
  }
  m_readings = new CellBlock(m_tables, {"Text2", "Label2"},
                             cellPlaces(static_cast<int>(heads.size()), kReadingsX, columns.pitch, columns.width));
  m_readings->alignNumbers();
  m_readingsBar =
      uprightScrollBar(m_tables, "VScroll2", {kReadingsBarX, kHeadsY, kScrollBarWidth, kScrollHeight}, kListedLines);
  connect(m_readingsBar, &QScrollBar::valueChanged, this,
          [this](int top) { act([&] { m_session->scrollReadings(top); }); });
  connectBlock(*m_readings, ListedInputName::Reading, &ListedSession::selectReading, &ListedSession::keyInReadings,
               &ListedState::readings);
}

void ListedWindow::makeDocumentData() {
  for (const DocumentBox& row : kDocumentBoxes) {
    caption(row.caption, {row.captionX, row.y, row.boxX - row.captionX, kBoxHeight});
    edit(row.name, row.input, {row.boxX, row.y, row.width, kBoxHeight})->setAccessibleName(row.caption);
  }
}

void ListedWindow::showTables(bool visible) {
  // A box that goes leaves the focus to the chart, not to whatever comes next.
  if (!visible && m_tables->isAncestorOf(focusWidget())) m_charts.front()->setFocus();
  m_tables->setVisible(visible);
}

// ---- what a person does

void ListedWindow::connectBlock(CellBlock& block, ListedInputName input, void (ListedSession::*select)(int),
                                KeyInBlock keyIn, CellBlockState ListedState::*shown) {
  connect(&block, &CellBlock::entered, this, [this, select](int cell) { act([&] { (*m_session.*select)(cell); }); });
  connect(&block, &CellBlock::left, this, [this] { act([&] { m_session->finishTyping(); }); });
  connect(&block, &CellBlock::typed, this, [this, input, select](int cell, const QString& text) {
    act([&] {
      (*m_session.*select)(cell);
      m_session->edit({input, cell}, utf8(text));
    });
  });
  for (int cell = 0; cell < block.count(); ++cell)
    block.box(cell)->fieldWidth = [this, input, cell] { return m_session->width({input, cell}); };
  block.onKey = [this, &block, keyIn, shown](int cell, const QKeyEvent& event) {
    const std::optional<CellKey> key = cellKeyOf(event);
    bool left = false;
    if (key) act([&] { left = (*m_session.*keyIn)(*key, cursorOf(*block.box(cell))); });
    if (left) block.enter((m_shown.*shown).chosen);
    return left;
  };
}

void ListedWindow::tellMouse(const std::string& readout) {
  if (readout == m_readout) return;
  m_readout = readout;
  emit readoutChanged(words(m_readout));
}

void ListedWindow::wheelEvent(QWheelEvent* event) {
  const QPointF place = m_tables->mapFrom(this, event->position());
  if (m_tables->isHidden() || place.y() < 0) return;
  const bool overList = place.x() <= m_listBar->geometry().right();
  if (!overList || m_listBar->isEnabled()) (overList ? m_listBar : m_readingsBar)->event(event);
}

void ListedWindow::keyPressEvent(QKeyEvent* event) {
  // What has no use of its own for the key: the bar of the readings stands for them, all others for the chart.
  if (!event->matches(QKeySequence::Copy)) return DocumentWidget::keyPressEvent(event);
  if (focusWidget() == m_readingsBar)
    copyReadings();
  else
    m_charts.front()->copyPicture();
}

std::vector<KeyGroup> ListedWindow::keyHelp() const {
  return {keyGroup("试样表、读数表", kCellKeys), keyGroup("曲线、读数表", kCopyKeys)};
}

void ListedWindow::contextMenuEvent(QContextMenuEvent* event) {
  if (!isOnReadings(event->pos())) return event->ignore();
  popupTableMenu(this, event->globalPos(), [this] { copyReadings(); });
}

bool ListedWindow::isOnReadings(QPoint place) const {
  const QRect cells = m_readings->box(0)->geometry().united(m_readings->box(m_readings->count() - 1)->geometry());
  return m_tables->isVisible() && cells.contains(m_tables->mapFrom(this, place));
}

void ListedWindow::copyReadings() const { copyTable(m_session->tableText()); }

// ---- what the shell asks

void ListedWindow::load() {
  act([&] { m_session->load(); });
  // An empty table is typed into from the first key; otherwise there is something to look at.
  m_charts.front()->setFocus();
  if (m_session->isEmpty()) m_list->enter(m_shown.list.chosen);
}

void ListedWindow::markSaved() {
  act([&] { m_session->markSaved(); });
}

void ListedWindow::markChanged() {
  m_session->markChanged();
  refresh();
}

void ListedWindow::finishTyping() {
  act([&] { m_session->finishTyping(); });
}

// ---- what the window shows

void ListedWindow::showState() {
  ListedState now = m_session->listedState();
  m_list->show(now.list);
  m_list->mark(now.list.chosen / 2 * 2, now.list.chosen / 2 * 2 + 1);
  m_list->setEnabled(now.listEnabled);
  m_readings->show(now.readings);
  for (std::size_t i = 0; i < m_listHeads.size(); ++i) m_listHeads.at(i)->setText(words(now.listHeads.at(i)));
  for (std::size_t i = 0; i < m_lineNumbers.size(); ++i) m_lineNumbers.at(i)->setText(words(now.lineNumbers.at(i)));
  showScroll(m_listBar, now.list.top, now.list.scrollMax);
  m_listBar->setEnabled(now.listEnabled);
  showScroll(m_readingsBar, now.readings.top, now.readings.scrollMax);
  for (const auto& [box, input] : m_edits) box->showText(words(now.text(input)));
  showUpperHalf(now);
  // Another sample's chart is seen whole.
  if (m_session->sampleRow() != m_rowShown)
    for (CanvasWidget* const chart : m_charts) chart->showWhole();
  m_rowShown = m_session->sampleRow();
  m_shown = std::move(now);
  if (m_pictureShown == m_session->pictureNumber()) return;
  m_pictureShown = m_session->pictureNumber();
  for (CanvasWidget* const chart : m_charts) chart->redraw();
}

}  // namespace triaxlab
