#include "platform/xls/records.h"

namespace triaxlab {

bool isWide(std::u16string_view text) {
  constexpr char16_t kMostNarrow = 0xFF;
  return std::ranges::any_of(text, [](char16_t unit) { return unit > kMostNarrow; });
}

void RecordBuffer::add(Record record, std::span<const std::byte> data) {
  put(static_cast<std::uint16_t>(record));
  put(static_cast<std::uint16_t>(data.size()));
  append(data);
}

void RecordBuffer::begin(Record record) {
  m_begun = m_bytes.size();
  add(record);
}

void RecordBuffer::end() {
  putAt(m_begun + sizeof(std::uint16_t), static_cast<std::uint16_t>(m_bytes.size() - m_begun - kRecordHead));
}

void RecordBuffer::putText(std::u16string_view text, bool wide) {
  put(static_cast<std::uint8_t>(wide));
  for (const char16_t unit : text) {
    if (wide)
      put(static_cast<std::uint16_t>(unit));
    else
      put(static_cast<std::uint8_t>(unit));
  }
}

}  // namespace triaxlab
