#include "windows/controls/cell_block.h"

#include <QKeyEvent>

#include "windows/controls/click_label.h"
#include "windows/controls/record_edit.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

/// Twips of a box that its label leaves free: the frame at its edges.
constexpr int kFrame = 30;

Place insideOf(Place box) { return {box.x + kFrame, box.y + kFrame, box.width - 2 * kFrame, box.height - 2 * kFrame}; }

}  // namespace

CellBlock::CellBlock(QWidget* window, Names names, const std::vector<Place>& places) : QObject(window) {
  for (const Place& place : places) {
    const int cell = count();
    auto* const box = put(new RecordEdit(window), arrayName(names.boxes, cell), place);
    auto* const label =
        put(new ClickLabel(window, {}, ClickLabel::Look::Layer), arrayName(names.labels, cell), insideOf(place));
    box->setFocusPolicy(Qt::ClickFocus);
    m_cells.push_back({box, label});
    connectCell(cell);
  }
  m_shown.cells.resize(places.size());
  box(m_shown.chosen)->setFocusPolicy(Qt::StrongFocus);
}

void CellBlock::connectCell(int cell) {
  const auto [box, label] = m_cells.at(static_cast<std::size_t>(cell));
  connect(label, &ClickLabel::clicked, this, [this, cell] { enter(cell); });
  connect(box, &RecordEdit::focusEntered, this, [this, cell, label = label] {
    label->lower();
    emit entered(cell);
  });
  connect(box, &RecordEdit::focusLeft, this, [this, label = label] {
    label->raise();
    emit left();
  });
  connect(box, &QLineEdit::textEdited, this, [this, cell](const QString& text) { emit typed(cell, text); });
  box->onKey = [this, cell](const QKeyEvent& event) { return onKey && onKey(cell, event); };
}

void CellBlock::enter(int cell) {
  // Told here as well: without an active window no box learns that it has the focus.
  emit entered(cell);
  box(cell)->setFocus();
  box(cell)->selectAll();
}

void CellBlock::fallSilent() {
  for (const Cell& cell : m_cells) cell.box->disconnect(this);
}

void CellBlock::show(const CellBlockState& now) {
  for (std::size_t i = 0; i < m_cells.size(); ++i) {
    const CellTexts& texts = now.cells.at(i);
    m_cells[i].box->showText(words(texts.box));
    if (texts.label != m_shown.cells[i].label) m_cells[i].label->setText(words(texts.label));
  }
  if (now.chosen != m_shown.chosen) {
    box(m_shown.chosen)->setFocusPolicy(Qt::ClickFocus);
    box(now.chosen)->setFocusPolicy(Qt::StrongFocus);
  }
  m_shown = now;
}

void CellBlock::alignNumbers() {
  for (const Cell& cell : m_cells) {
    cell.box->setAlignment(kNumberAlignment);
    cell.label->setAlignment(kNumberAlignment);
  }
}

void CellBlock::mark(int firstCell, int lastCell) {
  for (int cell = 0; cell < count(); ++cell)
    m_cells[static_cast<std::size_t>(cell)].label->setMarked(cell >= firstCell && cell <= lastCell);
}

void CellBlock::setEnabled(bool enabled) {
  for (const Cell& cell : m_cells) {
    cell.box->setEnabled(enabled);
    cell.label->setEnabled(enabled);
  }
}

}  // namespace triaxlab
