#include "platform/xls/shared_texts.h"

#include <algorithm>

#include "platform/xls/utf16.h"

namespace triaxlab {
namespace {

/// Length and flag in front of the characters of a text.
constexpr std::size_t kTextHead = 3;

/// Writes the record of the texts and goes on in CONTINUE where it is full, always in front of a text: readers are
/// known that fail where a text is cut behind its head.
class TextRecords {
 public:
  explicit TextRecords(RecordBuffer& buffer) : m_buffer(buffer) {}

  void begin(std::uint32_t cells, std::uint32_t texts) {
    beginRecord(Record::SharedTexts);
    m_buffer.put(cells);
    m_buffer.put(texts);
  }

  void add(std::u16string_view text) {
    const bool wide = isWide(text);
    const std::size_t unit = wide ? 2 : 1;
    if (room() < std::min(kTextHead + unit * text.size(), kMostRecordData - kRecordHead)) continueRecord();
    m_textAt = m_buffer.size();
    m_textInRecord = m_textAt - m_recordAt;
    m_buffer.put(static_cast<std::uint16_t>(text.size()));
    std::u16string_view part = text.substr(0, (room() - 1) / unit);
    m_buffer.putText(part, wide);
    // A text that no record holds whole: each further part has the flag in front again.
    for (text.remove_prefix(part.size()); !text.empty(); text.remove_prefix(part.size())) {
      continueRecord();
      part = text.substr(0, (room() - 1) / unit);
      m_buffer.putText(part, wide);
    }
  }

  void end() { m_buffer.end(); }

  /// Where the last text begins: in the stream, and in its record.
  std::size_t textAt() const { return m_textAt; }
  std::size_t textAtInRecord() const { return m_textInRecord; }

 private:
  std::size_t room() const { return kMostRecordData - (m_buffer.size() - m_recordAt - kRecordHead); }
  void beginRecord(Record record) {
    m_recordAt = m_buffer.size();
    m_buffer.begin(record);
  }
  void continueRecord() {
    m_buffer.end();
    beginRecord(Record::Continue);
  }
  RecordBuffer& m_buffer;
  std::size_t m_recordAt = 0, m_textAt = 0, m_textInRecord = 0;
};

}  // namespace

std::uint32_t SharedTexts::numberOf(const std::string& text) {
  ++m_cells;
  const auto [place, isNew] = m_numbers.try_emplace(text, static_cast<std::uint32_t>(m_texts.size()));
  if (isNew) m_texts.push_back(&place->first);
  return place->second;
}

void SharedTexts::addTo(RecordBuffer& buffer) const {
  // The index tells where every so many texts begin; it has at most 128 entries.
  const std::size_t step = std::max<std::size_t>(8, m_texts.size() / 128 + 1);
  RecordBuffer index;
  index.begin(Record::SharedTextIndex);
  index.put(static_cast<std::uint16_t>(step));
  TextRecords records(buffer);
  records.begin(m_cells, static_cast<std::uint32_t>(m_texts.size()));
  for (std::size_t i = 0; i < m_texts.size(); ++i) {
    records.add(utf16Of(*m_texts[i]));
    if (i % step != 0) continue;
    index.put(static_cast<std::uint32_t>(records.textAt()));
    index.put(static_cast<std::uint16_t>(records.textAtInRecord()));
    index.put(std::uint16_t{0});
  }
  records.end();
  index.end();
  buffer.append(index.bytes());
}

}  // namespace triaxlab
