#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

#include "common/fixed_text.h"
#include "common/little.h"

namespace triaxlab {

// Whether a raw file is one of a source, judged by its head and its size before anything is read. A database names no
// apparatus, so a reader goes by whether its own layout makes sense of the bytes: entries that point at blocks inside
// the file, texts without control characters, specimens of a size that an apparatus takes.

enum class Recognition : std::uint8_t {
  NotMine,  // nothing in it can be of this source
  Mine,     // all that the head shows fits the layout
  Damaged,  // may well be of this source, but something is missing or out of its bounds
};

/// How many bytes of a file are looked at.
inline constexpr std::size_t kRecognisedHead = 65536;

/// The first bytes of a raw file.
class FileHead {
 public:
  FileHead(std::span<const std::byte> bytes, std::uint64_t fileSize) : m_bytes(bytes), m_fileSize(fileSize) {}

  std::uint64_t fileSize() const { return m_fileSize; }
  std::string_view text() const { return {reinterpret_cast<const char*>(m_bytes.data()), m_bytes.size()}; }

  /// Nothing when the record doesn't lie in the head as a whole.
  template <class Record>
  std::optional<Record> at(std::uint64_t offset) const {
    static_assert(std::is_trivially_copyable_v<Record>);
    if (offset > m_bytes.size() || m_bytes.size() - offset < sizeof(Record)) return std::nullopt;
    Record record;
    std::memcpy(static_cast<void*>(&record), m_bytes.data() + offset, sizeof record);
    return record;
  }

 private:
  std::span<const std::byte> m_bytes;
  std::uint64_t m_fileSize;
};

/// What a part of a file looks like to a reader.
enum class Likeness : std::uint8_t { Unused, Sure, Possible, Impossible };

/// Collects what the parts of a file look like.
class Evidence {
 public:
  void add(Likeness part) { ++m_counts[static_cast<std::size_t>(part)]; }
  /// A part that the layout calls for and the file can't have.
  void miss() { m_misses = true; }

  Recognition verdict() const {
    if (count(Likeness::Impossible) > 0 && count(Likeness::Sure) + count(Likeness::Possible) == 0)
      return Recognition::NotMine;
    const bool allFits = count(Likeness::Sure) > 0 && count(Likeness::Possible) + count(Likeness::Impossible) == 0;
    return allFits && !m_misses ? Recognition::Mine : Recognition::Damaged;
  }

 private:
  int count(Likeness likeness) const { return m_counts[static_cast<std::size_t>(likeness)]; }

  std::array<int, 4> m_counts{};
  bool m_misses = false;
};

/// No text of a sample or a project has control characters in front of its first zero byte.
bool isPlainText(std::string_view text);

/// Hundredths of cm and cm2; the specimens that apparatus take are 4 to 40 cm high and 5 to 320 cm2 in section.
bool isSizeOfSpecimen(int height, int area);

/// A specimen by its method and its size in hundredths of cm and cm2.
Likeness likenessOfSpecimen(std::uint8_t testMethod, std::int16_t height, std::int16_t area);

/// A specimen that names itself.
Likeness likenessOfSpecimen(std::string_view projectNo, std::string_view sampleNo, std::uint8_t testMethod,
                            std::int16_t height, std::int16_t area);

}  // namespace triaxlab
