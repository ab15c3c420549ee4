#include "sessions/dialogs/list_range_dialog.h"

#include <utility>

#include "sessions/dialogs/sequence_number.h"

namespace triaxlab {

ListRangeDialog::ListRangeDialog(std::string caption, bool asksForMethod, std::string firstNumber,
                                 std::string lastNumber)
    : first(std::move(firstNumber)),
      last(std::move(lastNumber)),
      m_caption(std::move(caption)),
      m_asksForMethod(asksForMethod) {}

ListRangeDialog ListRangeDialog::forDeletion(std::string caption) { return {std::move(caption), false, {}, {}}; }

ListRangeDialog ListRangeDialog::forSort(std::string caption, std::size_t rowCount) {
  return {std::move(caption), true, std::string(1, '1'), std::to_string(rowCount)};
}

ListRange ListRangeDialog::range(std::size_t rowCount) const {
  return limitedListRange(sequenceNumber(first), sequenceNumber(last), rowCount);
}

}  // namespace triaxlab
