#pragma once

#include <array>
#include <concepts>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/little.h"
#include "common/text_number.h"
#include "exports/columns.h"

namespace triaxlab {

// How columns get their texts out of a record.

template <class Record>
const Record& recordOf(const TableLine& line) {
  return *reinterpret_cast<const Record*>(line.record.data());
}

// ---- The text of a value

/// As it stands: a text of the record is the value.
struct AsItStands {
  template <std::size_t N>
  std::string operator()(const FixedText<N>& text) const {
    return gbkToUtf8(text.trimmed());
  }
  template <std::integral T>
  std::string operator()(T number) const {
    return std::to_string(number);
  }
  template <class T>
  std::string operator()(const Little<T>& number) const {
    if constexpr (std::is_same_v<T, float>)
      return PlainNumber(ThroughSevenDigits(number));
    else
      return std::to_string(T{number});
  }
};

/// A whole number that counts tenths, hundredths or thousandths.
template <NumberFormat format>
struct Counting {
  std::string operator()(double count) const {
    constexpr std::array kParts{1.0, 10.0, 100.0, 1000.0};
    return FormatNumber(count / kParts[static_cast<std::size_t>(format)], format);
  }
};

/// The text, but none for a 0, which says that the value isn't known.
template <class Text>
struct UnlessZero {
  template <class Number>
  std::string operator()(const Number& number) const {
    return number != 0 ? Text()(number) : std::string();
  }
};

/// Fixed decimals, as the windows show the number.
template <NumberFormat format>
struct Rounded {
  std::string operator()(float number) const { return FormatNumber(number, format); }
};

// ---- The columns of a member

namespace detail {

template <class Record, class Value>
Record recordOfMember(Value Record::*);

template <auto Member>
const auto& fieldOf(const TableLine& line) {
  return recordOf<decltype(recordOfMember(Member))>(line).*Member;
}

template <class T>
inline constexpr std::size_t kElements = 0;
template <class T, std::size_t N>
inline constexpr std::size_t kElements<std::array<T, N>> = N;
template <auto Member>
inline constexpr std::size_t kElementsOf =
    kElements<std::decay_t<decltype(fieldOf<Member>(std::declval<const TableLine&>()))>>;

}  // namespace detail

/// A column, or one for each element of a member that has several.
template <auto Member, class Text = AsItStands>
constexpr TableColumn column(std::string_view name, std::string_view unit, std::string_view content) {
  return {name, unit, content,
          [](const TableLine& line, [[maybe_unused]] std::size_t number) {
            if constexpr (detail::kElementsOf<Member> == 0)
              return Text()(detail::fieldOf<Member>(line));
            else
              return Text()(detail::fieldOf<Member>(line)[number]);
          },
          detail::kElementsOf<Member>};
}

/// The element of a member that belongs to the reading: of rows of stages the one of both.
template <auto Member, class Text = AsItStands>
std::string ofReading(const TableLine& line, std::size_t /*number*/) {
  const auto& field = detail::fieldOf<Member>(line);
  if constexpr (detail::kElements<std::decay_t<decltype(field[0])>> == 0)
    return Text()(field[line.reading.stage]);
  else
    return Text()(field[line.reading.row][line.reading.stage]);
}

// ---- What all kinds of test have

std::string projectNoText(const TableLine& line, std::size_t number);
std::string sampleText(const TableLine& line, std::size_t number);
std::string sampleNoText(const TableLine& line, std::size_t number);
std::string testDateText(const TableLine& line, std::size_t number);
std::string boreholeNoText(const TableLine& line, std::size_t number);
std::string samplingDepthText(const TableLine& line, std::size_t number);
std::string samplingSpotText(const TableLine& line, std::size_t number);
std::string stageText(const TableLine& line, std::size_t number);
std::string readingText(const TableLine& line, std::size_t number);

inline constexpr TableColumn kProjectNo{"projectNo", "", "工程编号, project number", projectNoText};
inline constexpr TableColumn kSample{"sample", "", "place of the sample in its file or window, from 1", sampleText};
inline constexpr TableColumn kSampleNo{"sampleNo", "", "土样编号, sample number", sampleNoText};
inline constexpr TableColumn kTestDate{"testDate", "", "试验日期, of the sample or else of its project", testDateText};
inline constexpr TableColumn kBoreholeNo{"boreholeNo", "", "钻孔号 or 探井号", boreholeNoText};
inline constexpr TableColumn kSamplingDepth{"samplingDepth", "", "取样深度", samplingDepthText};
inline constexpr TableColumn kSamplingSpot{"samplingSpot", "", "取样地点", samplingSpotText};
inline constexpr TableColumn kStage{"stage", "", "number of the stage, from 1", stageText};
inline constexpr TableColumn kReading{"reading", "", "number of the row among those of the stage, from 1", readingText};

/// Adds the reading of a row and stage.
inline void addReading(std::vector<Reading>& readings, std::size_t row, std::size_t stage, std::uint8_t phase = 0) {
  readings.push_back({phase, static_cast<std::uint16_t>(stage), static_cast<std::uint16_t>(row)});
}

}  // namespace triaxlab
