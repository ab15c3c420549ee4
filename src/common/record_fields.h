#pragma once

#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace triaxlab {

// What the members of a record on file are called and hold, told in one table beside the record. Whoever needs all of
// them walks the table: the command line's JSON, the pages of docs/formats. Types, offsets and sizes are not in the
// table; the compiler knows them.
//
// The table of a record is a function in the record's namespace:
//
//     constexpr auto fieldsOf(RecordTag<RingCalibration> /*record*/) {
//       return std::tuple{
//           TRIAXLAB_FIELD(RingCalibration, ringNumber, "", "number of the ring"),
//           TRIAXLAB_FIELD(RingCalibration, newtonsPerDivision, "N", "what a division stands for"),
//       };
//     }
//     static_assert(tellsEveryByte<RingCalibration>());

/// A member as its table tells it. `unit` is empty where there is none; `content` is English, the middle of a sentence.
template <class Record, class Member>
struct RecordField {
  using Value = Member;

  Member Record::*member;
  std::string_view name;
  std::string_view unit;
  std::string_view content;
};
// Not every compiler can tell this by itself.
template <class Record, class Member>
RecordField(Member Record::*, std::string_view, std::string_view, std::string_view) -> RecordField<Record, Member>;

#define TRIAXLAB_FIELD(Record, member, unit, content) \
  ::triaxlab::RecordField { &Record::member, #member, unit, content }

/// Stands for a type where no object of it is at hand.
template <class T>
struct RecordTag {};

template <class T>
concept DescribedRecord = requires {
  fieldsOf(RecordTag<T>{});
};

/// Calls `visit` with the RecordField of each member, in the order of the file.
template <DescribedRecord Record, class Visit>
constexpr void visitFields(Visit visit) {
  std::apply([&visit](const auto&... field) { (visit(field), ...); }, fieldsOf(RecordTag<Record>{}));
}

/// True when the members of the table add up to the record. That they stand in its order shows when they are laid out.
template <DescribedRecord Record>
consteval bool tellsEveryByte() {
  std::size_t size = 0;
  visitFields<Record>([&size](const auto& field) { size += sizeof(typename std::decay_t<decltype(field)>::Value); });
  return size == sizeof(Record);
}

}  // namespace triaxlab
