#include "cli/record_json.h"

#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <type_traits>

#include "common/gbk.h"
#include "common/record_fields.h"
#include "k0/record_fields.h"
#include "store/project/header_fields.h"
#include "triaxial/record_fields.h"
#include "unconfined/record_fields.h"

namespace triaxlab::cli {
namespace {

using Json = nlohmann::ordered_json;

template <std::size_t N>
Json valueOf(const FixedText<N>& text) {
  return jsonText(text.view());
}
Json valueOf(std::uint8_t number) { return number; }
Json valueOf(const Little<std::int16_t>& number) { return std::int16_t{number}; }
Json valueOf(const Little<std::int32_t>& number) { return std::int32_t{number}; }

/// The double that the float's shortest digits read as, since JSON knows doubles alone: 0.2 and not 0.20000000298.
Json valueOf(const Little<float>& number) {
  const float value = number;
  if (!std::isfinite(value)) return nullptr;
  std::array<char, 32> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  double shortest = 0;
  std::from_chars(digits.data(), written.ptr, shortest);
  return shortest;
}

Json valueOf(const Little<double>& number) {
  const double value = number;
  return std::isfinite(value) ? Json(value) : Json(nullptr);
}

Json valueOf(const std::array<char, 2>& bytes) { return jsonText({bytes.data(), bytes.size()}); }

template <class T, std::size_t N>
Json valueOf(const std::array<T, N>& elements) {
  Json all = Json::array();
  for (const T& element : elements) all.push_back(valueOf(element));
  return all;
}

/// The members of a record in the order of the file; those of a record in it stand among them.
template <class Record>
void add(Json& object, const Record& record) {
  visitFields<Record>([&](const auto& field) {
    if constexpr (DescribedRecord<typename std::decay_t<decltype(field)>::Value>)
      add(object, record.*field.member);
    else
      object[field.name] = valueOf(record.*field.member);
  });
}

template <auto Table>
void addRow(Json& object, const Workspace& workspace, std::size_t row) {
  add(object, (workspace.*Table)[row]);
}

struct FieldsOfKind {
  ProjectKind kind;
  void (*add)(Json&, const Workspace&, std::size_t row);
};
constexpr std::array kFieldsOfKinds{
    FieldsOfKind{ProjectKind::Triaxial, addRow<&Workspace::TriaxialSampleTable>},
    FieldsOfKind{ProjectKind::Unconfined, addRow<&Workspace::UnconfinedSampleTable>},
    FieldsOfKind{ProjectKind::K0, addRow<&Workspace::K0SampleTable>},
    FieldsOfKind{ProjectKind::TK0, addRow<&Workspace::TK0SampleTable>},
};

}  // namespace

std::string jsonText(std::string_view gbk) {
  const auto last = gbk.find_last_not_of(' ');
  return gbkToUtf8(gbk.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

Json jsonOf(const ProjectHeader& header) {
  Json object;
  add(object, header);
  return object;
}

Json jsonOf(std::size_t fileRow, const Workspace& workspace, ProjectKind kind, std::size_t row) {
  Json object;
  object["row"] = fileRow;
  for (const FieldsOfKind& fields : kFieldsOfKinds)
    if (fields.kind == infoOf(kind).documentKind) fields.add(object, workspace, row);
  const SampleLocation& location = workspace.SampleDisplayTable[row];
  // A K0 record has a depth of its own, which stands already.
  object.emplace("boreholeNo", valueOf(location.boreholeNo));
  object.emplace("samplingDepth", valueOf(location.samplingDepth));
  object.emplace("samplingSpot", valueOf(location.samplingSpot));
  return object;
}

}  // namespace triaxlab::cli
