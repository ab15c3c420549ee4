#include "triaxial/result_values.h"

#include "common/text_number.h"

namespace triaxlab {
namespace {

template <std::size_t N>
std::string textOf(const FixedText<N>& field) {
  return std::string(field.trimmed());
}
std::string textOf(const Little<float>& coefficient) {
  return FormatNumber(static_cast<float>(coefficient), NumberFormat::Hundredths);
}

template <auto Member>
std::string text(const TriaxialSampleRecord& record, std::size_t stage) {
  return textOf((record.*Member).at(stage));
}
template <auto Member>
constexpr ResultValue total(const char* label) {
  return {label, false, text<Member>};
}
template <auto Member>
constexpr ResultValue effective(const char* label) {
  return {label, true, text<Member>};
}

using Record = TriaxialSampleRecord;

}  // namespace

const std::array<ResultValue, 15> kResultValues{{
    total<&Record::cellPressure>("σ3"),
    total<&Record::sigma1Failure>("σ1f"),
    effective<&Record::sigma3FailureEff>("σ3f′"),
    effective<&Record::sigma1FailureEff>("σ1f′"),
    total<&Record::failureCentre>("⊙"),
    total<&Record::failureRadius>("R"),
    effective<&Record::failureCentreEff>("⊙′"),
    effective<&Record::failureRadiusEff>("R′"),
    total<&Record::initialHeight>("h0"),
    total<&Record::consolidatedHeight>("h1"),
    total<&Record::initialArea>("A0"),
    total<&Record::consolidatedArea>("Ac"),
    total<&Record::consolidationDrainage>("ΔV"),
    total<&Record::coefficientB>("B"),
    total<&Record::coefficientAf>("Af"),
}};

}  // namespace triaxlab
