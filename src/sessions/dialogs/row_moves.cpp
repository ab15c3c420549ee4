#include "sessions/dialogs/row_moves.h"

#include <utility>

#include "sessions/dialogs/sequence_number.h"

namespace triaxlab {

RowMoves::RowMoves(std::string caption, SampleListTable& rows, std::function<void()> moved)
    : m_caption(std::move(caption)), m_rows(rows), m_moved(std::move(moved)) {}

int RowMoves::number(std::size_t box) const { return sequenceNumber(numbers.at(box)); }

void RowMoves::moveRow() {
  moveSample(m_rows, number(0), number(1));
  m_moved();
}

void RowMoves::moveBlock() {
  moveSampleBlock(m_rows, number(2), number(3), number(4));
  m_moved();
}

}  // namespace triaxlab
