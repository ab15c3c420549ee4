#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace triaxlab {

/// Rows of every sample table: the largest number of samples that can be open.
inline constexpr std::size_t kTableRows = 1001;

/// A table of kTableRows samples. A row comes into being when somebody asks for it to write to it; until then it reads
/// as a blank record and takes no memory. A row that exists stays where it is as long as the table isn't cleared.
template <class Record>
class SampleTable {
  static_assert(std::is_trivially_copyable_v<Record> && alignof(Record) == 1);

 public:
  // The room for all rows is set aside at once, so that none ever moves; the system gives memory to what is touched.
  SampleTable() { m_rows.reserve(kTableRows); }
  SampleTable(const SampleTable& other) : SampleTable() { m_rows = other.m_rows; }
  SampleTable& operator=(const SampleTable& other) {
    m_rows = other.m_rows;
    return *this;
  }
  ~SampleTable() = default;

  static constexpr std::size_t size() { return kTableRows; }

  /// Pre: row < size().
  const Record& operator[](std::size_t row) const { return row < m_rows.size() ? m_rows[row] : blank(); }
  /// Makes the row, and those in front of it, when they don't exist yet.
  Record& operator[](std::size_t row) {
    while (m_rows.size() <= row) addRow();
    return m_rows[row];
  }
  /// std::out_of_range outside the table.
  const Record& at(std::size_t row) const { return (*this)[checked(row)]; }
  Record& at(std::size_t row) { return (*this)[checked(row)]; }

  /// The rows that exist, row 0 the first. All behind them are blank.
  std::span<const Record> used() const { return m_rows; }
  std::span<Record> used() { return m_rows; }
  /// A blank row behind the last that exists. Pre: used().size() < size().
  Record& addRow() {
    m_rows.push_back(blank());
    return m_rows.back();
  }
  void addRow(const Record& record) { m_rows.push_back(record); }
  void clear() { m_rows.clear(); }
  void swap(SampleTable& other) noexcept { m_rows.swap(other.m_rows); }

  /// Two tables are equal when all rows are, byte for byte, whether they exist or not.
  bool operator==(const SampleTable& other) const {
    for (std::size_t row = 0; row < std::max(m_rows.size(), other.m_rows.size()); ++row)
      if (std::memcmp(&(*this)[row], &other[row], sizeof(Record)) != 0) return false;
    return true;
  }

  static const Record& blank() {
    static const Record record;
    return record;
  }

 private:
  static std::size_t checked(std::size_t row) {
    if (row >= kTableRows) throw std::out_of_range("no such row of a sample table");
    return row;
  }

  std::vector<Record> m_rows;  // of a capacity of kTableRows
};

}  // namespace triaxlab
