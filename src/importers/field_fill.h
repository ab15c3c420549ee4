#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <tuple>

#include "common/fixed_text.h"
#include "common/little.h"
#include "importers/ku_file.h"
#include "importers/reading_words.h"
#include "triaxial/record.h"

namespace triaxlab {

// What a source gives of a specimen is told in a table: the member of the raw record, the member of the sample's record
// that it goes to, and how. Who fills a row walks the table:
//
//     constexpr std::tuple kMeasures{
//         Fill{&RawSpecimen::rawCellPressure, &TriaxialSampleRecord::cellPressure, wholeOfTenthsInto},
//         Fill{&RawSpecimen::rawConsolidationPore, &TriaxialSampleRecord::consolidationPorePressure, readingInto},
//     };
//
// A member with a place for each stage takes the value in the slot of the specimen; a member with many rows takes the
// words of an array one by one, as far as the array goes.

template <class Raw, class RawMember, class Record, class Member, class Transform>
struct Fill {
  RawMember Raw::*raw;
  Member Record::*target;
  Transform transform;                                         // transform(field, word)
  std::size_t rows = std::numeric_limits<std::size_t>::max();  // of an array, from the first
};
template <class Raw, class RawMember, class Record, class Member, class Transform>
Fill(RawMember Raw::*, Member Record::*, Transform) -> Fill<Raw, RawMember, Record, Member, Transform>;
template <class Raw, class RawMember, class Record, class Member, class Transform>
Fill(RawMember Raw::*, Member Record::*, Transform, int) -> Fill<Raw, RawMember, Record, Member, Transform>;

namespace detail {

template <class T>
inline constexpr bool kIsArray = false;
template <class T, std::size_t N>
inline constexpr bool kIsArray<std::array<T, N>> = true;

template <class Fill, class Target, class Source>
void fillMember(const Fill& fill, Target& target, const Source& source, std::size_t slot) {
  if constexpr (kIsArray<Source>) {
    for (std::size_t row = 0; row < std::min(fill.rows, source.size()); ++row)
      fill.transform(target[row][slot], source[row]);
  } else if constexpr (kIsArray<Target>) {
    fill.transform(target[slot], source);
  } else {
    fill.transform(target, source);
  }
}

}  // namespace detail

template <class Raw, class Record, class... Fills>
void fillFields(const Raw& raw, Record& record, std::size_t slot, const std::tuple<Fills...>& table) {
  std::apply([&](const auto&... fill) { (detail::fillMember(fill, record.*fill.target, raw.*fill.raw, slot), ...); },
             table);
}

// ---- how a word goes into a field

inline constexpr auto shownTextInto = [](auto& field, const auto& text) { SetText(field, shownText(text.view())); };
inline constexpr auto asItStands = [](auto& field, auto word) { field = word; };
/// A number field; the word is a whole number.
inline constexpr auto wholeInto = [](FixedText<6>& field, std::int16_t word) { SetWhole(field, word); };
inline constexpr auto wholeOfTenthsInto = [](FixedText<6>& field, std::int16_t word) {
  SetWhole(field, wholeOfTenths(word));
};
/// A word of 0 leaves these fields as they are.
inline constexpr auto hundredthsInto = [](FixedText<6>& field, std::int16_t word) {
  if (word != 0) SetNumber(field, word / 100.0, NumberFormat::Hundredths);
};
inline constexpr auto thousandthsInto = [](FixedText<6>& field, std::int16_t word) {
  if (word != 0) SetNumber(field, word / 1000.0, NumberFormat::Thousandths);
};
/// Words that stay words: a reading that was not taken is 0.
inline constexpr auto readingInto = [](Little<std::int16_t>& field, std::int16_t word) { field = readingOrZero(word); };
inline constexpr auto signedReadingInto = [](Little<std::int16_t>& field, std::int16_t word) {
  field = fromSignAndMagnitude(readingOrZero(word));
};

}  // namespace triaxlab
