#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "common/fixed_text.h"
#include "common/little.h"
#include "common/record_fields.h"

namespace triaxlab {

/// Takes the fields of a record, for whoever writes them down in a form of its own and knows no record.
class FieldSink {
 public:
  virtual ~FieldSink() = default;
  /// The next value is that of this member.
  virtual void name(std::string_view member) = 0;
  virtual void text(std::string_view gbk) = 0;  // with its trailing blanks
  virtual void number(std::int64_t value) = 0;
  virtual void number(float value) = 0;
  virtual void number(double value) = 0;
  // The elements of an array stand between the two, in their order; an element may be an array.
  virtual void beginArray() = 0;
  virtual void endArray() = 0;
};

namespace detail {

template <std::size_t N>
void tellValue(const FixedText<N>& text, FieldSink& sink) {
  sink.text(text.view());
}
inline void tellValue(std::uint8_t value, FieldSink& sink) { sink.number(std::int64_t{value}); }
template <class T>
void tellValue(const Little<T>& value, FieldSink& sink) {
  if constexpr (std::is_floating_point_v<T>)
    sink.number(T{value});
  else
    sink.number(std::int64_t{T{value}});
}
/// Two letters.
inline void tellValue(const std::array<char, 2>& letters, FieldSink& sink) {
  sink.text({letters.data(), letters.size()});
}
template <class T, std::size_t N>
void tellValue(const std::array<T, N>& elements, FieldSink& sink) {
  sink.beginArray();
  for (const T& element : elements) tellValue(element, sink);
  sink.endArray();
}

}  // namespace detail

/// Tells the members of a record in the order of the file; those of a record in it stand among them.
template <DescribedRecord Record>
void tellFields(const Record& record, FieldSink& sink) {
  visitFields<Record>([&](const auto& field) {
    if constexpr (DescribedRecord<typename std::decay_t<decltype(field)>::Value>) {
      tellFields(record.*field.member, sink);
    } else {
      sink.name(field.name);
      detail::tellValue(record.*field.member, sink);
    }
  });
}

}  // namespace triaxlab
