#include "windows/triaxial/consolidation_table_window.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QScrollBar>
#include <utility>

#include "windows/controls/cell_keys.h"
#include "windows/controls/click_label.h"
#include "windows/controls/record_edit.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips.
constexpr Place kWindow{0, 0, 7600, 8300};
constexpr Place kStageList{5270, 850, 1980, 290};
constexpr int kBoxHeight = 300, kTextHeight = 210;
constexpr Place kStartPressure{kStartPorePressureX, kTableFootY - (kBoxHeight - kTextHeight) / 2,
                               kStartPorePressureWidth, kBoxHeight};

/// A cell around its text on the canvas.
Place cellPlace(int index) {
  const int row = index / static_cast<int>(kConsolidationColumns);
  const int middle = kConsolidationColumnX.at(static_cast<std::size_t>(index) % kConsolidationColumns);
  const int y = kTableRowsTop + kTableRowPitch * row - (kTableRowPitch - kTextHeight) / 2;
  return {middle - kConsolidationColumnWidth / 2, y, kConsolidationColumnWidth, kTableRowPitch};
}

/// What a key does in a reading that is being typed.
enum class ReadingKey : std::uint8_t { Store, Drop, Up, Down };
constexpr std::array kReadingKeys{
    KeyRow{Qt::Key_Return, ReadingKey::Store, "存入读数"}, KeyRow{Qt::Key_Enter, ReadingKey::Store, "存入读数"},
    KeyRow{Qt::Key_Escape, ReadingKey::Drop, "放弃输入"}, KeyRow{Qt::Key_Up, ReadingKey::Up, "存入，到上一行"},
    KeyRow{Qt::Key_Down, ReadingKey::Down, "存入，到下一行"}};
/// Opens the first pore pressure on display, as F2 opens a cell elsewhere.
constexpr std::array kOpenKeys{KeyRow{Qt::Key_F2, ConsolidationColumn::PorePressure, "打开第一个孔压"}};

}  // namespace

Form7::Form7(Workspace& workspace, ShellSession& shell, std::size_t sampleRow)
    : DocumentWidget(shell, kForm7),
      m_session(workspace, sampleRow),
      m_controls(this, {.canvasWidth = kConsolidationTableWidth, .stages = kStageList},
                 [this](DrawingSurface& surface) {
                   if (m_shown.table) drawConsolidationTable(surface, *m_shown.table);
                 }) {
  setObjectName("Form7");
  setWindowTitle(kConsolidationTableCaption);
  // The cells lie over the rows of the canvas, in letters of the same size.
  setNaturalSize(kWindow, kTextHeight);
  makeCells();
  makeBoxes();
  connect(m_controls.combo1, &QComboBox::activated, this,
          [this](int entry) { change([&] { m_session.chooseStage(entry); }); });
  connect(m_controls.vScroll1, &QScrollBar::valueChanged, this,
          [this](int top) { change([&] { m_session.scroll(top); }); });
  setFocusProxy(m_controls.picture1);
  refresh();
}

Form7::~Form7() {
  // A box that loses the focus while the window goes down has nobody to tell any more.
  for (RecordEdit* const box : {m_text1, m_text2}) box->disconnect(this);
}

void Form7::makeCells() {
  // They lie over a canvas, whose letters they have.
  QFont letters;
  letters.setFamily(words(kSong));
  for (int i = 0; i < kConsolidationCells; ++i) {
    ClickLabel*& cell = m_label1.at(static_cast<std::size_t>(i));
    cell = put(new ClickLabel(this, {}, ClickLabel::Look::Cell), arrayName("Label1", i), cellPlace(i));
    cell->setAlignment(Qt::AlignCenter);
    cell->setFont(letters);
    connect(cell, &ClickLabel::clicked, this, [this, i] {
      change([&] { m_session.selectCell(i); });
      startTyping();
    });
  }
}

void Form7::makeBoxes() {
  m_text2 = put(new RecordEdit(this), "Text2", kStartPressure);
  m_text2->setAccessibleName(words(kStartPorePressure));
  connect(m_text2, &QLineEdit::textEdited, this,
          [this](const QString& text) { change([&] { m_session.typeStartPorePressure(utf8(text)); }); });
  m_text1 = put(new RecordEdit(this), "Text1", cellPlace(1));
  m_text1->setFrame(false);
  m_text1->setAlignment(Qt::AlignCenter);
  m_text1->hide();
  connect(m_text1, &QLineEdit::textEdited, this,
          [this](const QString& text) { change([&] { m_session.typeCell(utf8(text)); }); });
  m_text1->onKey = [this](const QKeyEvent& event) { return keyInCell(event); };
  connect(m_text1, &RecordEdit::focusLeft, this, &Form7::finishTyping);
  for (RecordEdit* const box : {m_text1, m_text2})
    box->fieldWidth = [] { return ConsolidationTableSession::kNumberWidth; };
  // Text1 may be what takes the focus.
  const auto finishStart = [this] { change([&] { m_session.finishStartPorePressure(); }); };
  connect(m_text2, &RecordEdit::focusLeft, this, finishStart);
  connect(m_text2, &QLineEdit::returnPressed, this, finishStart);
}

bool Form7::keyInCell(const QKeyEvent& event) {
  const auto move = [this](int rows) {
    change([&] { m_session.moveCell(rows); });
    startTyping();
  };
  const std::optional<ReadingKey> key = keyOf(event, kReadingKeys);
  if (!key) return false;
  switch (*key) {
    case ReadingKey::Store:
      finishTyping();
      break;
    case ReadingKey::Drop:
      change([&] { m_session.dropTyping(); });
      break;
    case ReadingKey::Up:
      move(-1);
      break;
    case ReadingKey::Down:
      move(1);
      break;
  }
  return true;
}

std::vector<KeyGroup> Form7::keyHelp() const {
  return {keyGroup("正在输入的读数", kReadingKeys), keyGroup("窗口", kOpenKeys), stageTableKeys()};
}

void Form7::startTyping() {
  if (!m_text1->isVisible()) return;
  m_text1->setFocus();
  m_text1->selectAll();
}

template <class Operation>
void Form7::change(Operation&& operation) {
  act(std::forward<Operation>(operation));
  if (m_session.takeChange()) emit sampleChanged();
}

void Form7::load(std::size_t sampleRow) {
  change([&] { m_session.load(sampleRow); });
}

void Form7::finishTyping() {
  change([&] { m_session.finishTyping(); });
}

void Form7::followRecord(FailureMode mode, bool editable) {
  act([&] {
    m_session.followRecord(mode);
    m_session.setEditable(editable);
  });
}

void Form7::showState() {
  ConsolidationTableState now = m_session.state();
  m_controls.show(now.stage);
  for (std::size_t i = 0; i < m_label1.size(); ++i) {
    const std::size_t row = i / kConsolidationColumns, column = i % kConsolidationColumns;
    const QString text = now.table ? words(now.table->rows.at(row).at(column)) : QString();
    ClickLabel* const cell = m_label1.at(i);
    if (cell->text() != text) cell->setText(text);
    cell->setVisible(now.table.has_value());
  }
  m_text2->setVisible(now.table.has_value());
  m_text2->setReadOnly(!now.editable);
  m_text2->showText(words(now.startPorePressure));
  if (!now.openCell && m_text1->hasFocus()) m_controls.picture1->setFocus();
  if (now.openCell) {
    setPlace(m_text1, m_label1.at(static_cast<std::size_t>(*now.openCell))->insideOfLines());
    m_text1->showText(words(now.cellText));
  }
  m_text1->setVisible(now.openCell.has_value());
  const bool sameTable = now.table == m_shown.table;
  m_shown = std::move(now);
  if (!sameTable) m_controls.picture1->redraw();
}

void Form7::keyPressEvent(QKeyEvent* event) {
  if (const auto column = keyOf(*event, kOpenKeys)) {
    change([&] { m_session.selectCell(static_cast<int>(*column)); });
    return startTyping();
  }
  if (!m_controls.takesKey(*event)) DocumentWidget::keyPressEvent(event);
}

}  // namespace triaxlab
