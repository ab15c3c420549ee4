#pragma once

#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace triaxlab {

// What the members of a record on file are called and hold, told in one table beside the record. Whoever needs all of
// them walks the table: the command line's JSON, the pages of docs/formats, the exchange of specimens. Offsets and
// types come from the struct; one check beside the table holds them to the size on file.
//
// The table of a record is a function in the record's namespace:
//
//     constexpr auto fieldsOf(RecordTag<RingCalibration> /*record*/) {
//       return std::tuple{
//           TRIAXLAB_FIELD(RingCalibration, ringNumber, "", "number of the ring"),
//           TRIAXLAB_FIELD(RingCalibration, newtonsPerDivision, "N", "what a division stands for"),
//       };
//     }
//     static_assert(tiles<RingCalibration>(90));

/// A member as its table tells it. `unit` is empty where there is none; `content` is English, the middle of a sentence.
template <class Record, class Member>
struct RecordField {
  using Value = Member;

  Member Record::*member;
  std::size_t offset;
  std::string_view name;
  std::string_view unit;
  std::string_view content;
};
// Not every compiler can tell this by itself.
template <class Record, class Member>
RecordField(Member Record::*, std::size_t, std::string_view, std::string_view, std::string_view)
    -> RecordField<Record, Member>;

#define TRIAXLAB_FIELD(Record, member, unit, content) \
  ::triaxlab::RecordField { &Record::member, offsetof(Record, member), #member, unit, content }

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

/// True when the members of the table follow each other in the order of the file, from its first byte to `sizeOnFile`,
/// and the struct is those bytes and no others.
template <DescribedRecord Record>
consteval bool tiles(std::size_t sizeOnFile) {
  static_assert(std::is_trivially_copyable_v<Record> && std::is_standard_layout_v<Record> && alignof(Record) == 1);
  std::size_t end = 0;
  bool inOrder = true;
  visitFields<Record>([&](const auto& field) {
    inOrder = inOrder && field.offset == end;
    end += sizeof(typename std::decay_t<decltype(field)>::Value);
  });
  return inOrder && end == sizeOnFile && sizeof(Record) == sizeOnFile;
}

}  // namespace triaxlab
