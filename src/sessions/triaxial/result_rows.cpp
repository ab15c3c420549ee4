#include "sessions/triaxial/result_rows.h"

#include <array>
#include <cmath>
#include <limits>

#include "common/text_number.h"

namespace triaxlab {
namespace {

constexpr std::size_t kCoefficientWidth = 10;  // bytes that Text2 takes over a number

template <std::size_t N>
std::string textOf(const FixedText<N>& field) {
  return std::string(field.trimmed());
}
std::string textOf(const Little<float>& coefficient) {
  return FormatNumber(static_cast<float>(coefficient), NumberFormat::Hundredths);
}

EditableField editable(Little<float>& coefficient) {
  return {kCoefficientWidth, textOf(coefficient), [&coefficient](std::string_view gbk) {
            const double number = ParseNumber(gbk);
            if (std::fabs(number) <= std::numeric_limits<float>::max()) coefficient = static_cast<float>(number);
          }};
}
using triaxlab::editable;

struct ResultRow {
  const char* label;
  std::string (*text)(const TriaxialSampleRecord& record, std::size_t stage);
  EditableField (*field)(TriaxialSampleRecord& record, std::size_t stage);  // null: not typed here
};

template <auto Member>
std::string textAt(const TriaxialSampleRecord& record, std::size_t stage) {
  return textOf((record.*Member).at(stage));
}
template <auto Member>
EditableField fieldAt(TriaxialSampleRecord& record, std::size_t stage) {
  return editable((record.*Member).at(stage));
}
template <auto Member>
constexpr ResultRow typed(const char* label) {
  return {label, textAt<Member>, fieldAt<Member>};
}
template <auto Member>
constexpr ResultRow found(const char* label) {
  return {label, textAt<Member>, nullptr};
}

using Record = TriaxialSampleRecord;
constexpr std::array<ResultRow, kResultRows> kRows{{
    typed<&Record::cellPressure>("σ3"),
    typed<&Record::sigma1Failure>("σ1f"),
    typed<&Record::sigma3FailureEff>("σ3f′"),
    typed<&Record::sigma1FailureEff>("σ1f′"),
    found<&Record::failureCentre>("⊙"),
    found<&Record::failureRadius>("R"),
    found<&Record::failureCentreEff>("⊙′"),
    found<&Record::failureRadiusEff>("R′"),
    typed<&Record::initialHeight>("h0"),
    typed<&Record::consolidatedHeight>("h1"),
    typed<&Record::initialArea>("A0"),
    typed<&Record::consolidatedArea>("Ac"),
    typed<&Record::consolidationDrainage>("ΔV"),
    typed<&Record::coefficientB>("B"),
    typed<&Record::coefficientAf>("Af"),
}};

}  // namespace

const char* resultLabel(std::size_t row) { return kRows.at(row).label; }

bool isTyped(std::size_t row) { return kRows.at(row).field != nullptr; }

std::string resultText(const TriaxialSampleRecord& record, ResultCell cell) {
  return kRows.at(cell.row).text(record, cell.stage);
}

std::optional<EditableField> resultField(TriaxialSampleRecord& record, ResultCell cell) {
  if (!isTyped(cell.row)) return std::nullopt;
  return kRows[cell.row].field(record, cell.stage);
}

}  // namespace triaxlab
