#include "triaxial/result_values.h"

#include <type_traits>

#include "common/conversions.h"
#include "common/text_number.h"
#include "triaxial/record_fields.h"

namespace triaxlab {
namespace {

using Record = TriaxialSampleRecord;

constexpr std::size_t kNumberWidth = 10;  // bytes that a box takes over a coefficient

template <std::size_t N>
constexpr std::size_t widthOf(const FixedText<N>& /*field*/) {
  return N;
}
constexpr std::size_t widthOf(const Little<float>& /*field*/) { return kNumberWidth; }

template <std::size_t N>
std::string textOf(const FixedText<N>& field) {
  return std::string(field.trimmed());
}
std::string textOf(const Little<float>& coefficient) {
  return FormatNumber(static_cast<float>(coefficient), NumberFormat::Hundredths);
}

template <std::size_t N>
void storeIn(FixedText<N>& field, std::string_view gbk) {
  SetText(field, gbk);
}
void storeIn(Little<float>& coefficient, std::string_view gbk) { assignIf(coefficient, toSingle(ParseNumber(gbk))); }

template <auto Member>
std::string text(const Record& record, std::size_t stage) {
  return textOf((record.*Member).at(stage));
}
template <auto Member>
void store(Record& record, std::size_t stage, std::string_view gbk) {
  storeIn((record.*Member).at(stage), gbk);
}

template <auto Member>
constexpr std::string_view unitOf() {
  std::string_view unit;
  visitFields<Record>([&unit](const auto& field) {
    if constexpr (std::is_same_v<std::decay_t<decltype(field.member)>, std::decay_t<decltype(Member)>>)
      if (field.member == Member) unit = field.unit;
  });
  return unit;
}

enum class Kind : std::uint8_t { Total, Effective };

template <auto Member>
constexpr ResultValue typed(const char* label, Kind kind = Kind::Total) {
  using Stages = std::decay_t<decltype(std::declval<Record>().*Member)>;
  const std::size_t width = widthOf(typename Stages::value_type{});
  return {label, unitOf<Member>(), kind == Kind::Effective, width, text<Member>, store<Member>};
}
template <auto Member>
constexpr ResultValue found(const char* label, Kind kind = Kind::Total) {
  return {label, unitOf<Member>(), kind == Kind::Effective, 0, text<Member>, store<Member>};
}

}  // namespace

const std::array<ResultValue, 15> kResultValues{{
    typed<&Record::cellPressure>("σ3"),
    typed<&Record::sigma1Failure>("σ1f"),
    typed<&Record::sigma3FailureEff>("σ3f′", Kind::Effective),
    typed<&Record::sigma1FailureEff>("σ1f′", Kind::Effective),
    found<&Record::failureCentre>("⊙"),
    found<&Record::failureRadius>("R"),
    found<&Record::failureCentreEff>("⊙′", Kind::Effective),
    found<&Record::failureRadiusEff>("R′", Kind::Effective),
    typed<&Record::initialHeight>("h0"),
    typed<&Record::consolidatedHeight>("h1"),
    typed<&Record::initialArea>("A0"),
    typed<&Record::consolidatedArea>("Ac"),
    typed<&Record::consolidationDrainage>("ΔV"),
    typed<&Record::coefficientB>("B"),
    typed<&Record::coefficientAf>("Af"),
}};

namespace {

Strength strengthOf(const FixedText<9>& cohesion, float angle, bool isFound) {
  if (!isFound) return {};
  return {std::string(cohesion.trimmed()), FormatNumber(angle, NumberFormat::Tenths)};
}

}  // namespace

Strength totalStrength(const TriaxialSampleRecord& record) {
  return strengthOf(record.cohesionText, record.frictionAngle, record.frictionAngle != 0 || record.cohesionTenths != 0);
}

Strength effectiveStrength(const TriaxialSampleRecord& record) {
  return strengthOf(record.cohesionEffText, record.frictionAngleEff,
                    record.testMethod == kCU && (record.frictionAngleEff != 0 || record.cohesionEffTenths != 0));
}

}  // namespace triaxlab
