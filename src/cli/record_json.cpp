#include "cli/record_json.h"

#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

#include "common/gbk.h"

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

template <class Record>
struct JsonField {
  const char* name;
  Json (*value)(const Record&);
};
template <auto Member, class Record>
Json fieldOf(const Record& record) {
  return valueOf(record.*Member);
}

template <class Record, std::size_t N>
void add(Json& object, const std::array<JsonField<Record>, N>& fields, const Record& record) {
  for (const auto& field : fields) object[field.name] = field.value(record);
}

#define TRIAXLAB_FIELD(Record, field) \
  JsonField<Record> { #field, fieldOf < &Record::field, Record> }

constexpr std::array kHeaderFields{
    TRIAXLAB_FIELD(ProjectHeader, sampleCount), TRIAXLAB_FIELD(ProjectHeader, projectNo),
    TRIAXLAB_FIELD(ProjectHeader, createdDate), TRIAXLAB_FIELD(ProjectHeader, processedDate),
    TRIAXLAB_FIELD(ProjectHeader, testDate),    TRIAXLAB_FIELD(ProjectHeader, operatorName),
    TRIAXLAB_FIELD(ProjectHeader, versionTag),  TRIAXLAB_FIELD(ProjectHeader, headerEnd),
};

constexpr std::array kTriaxialFields{
    TRIAXLAB_FIELD(TriaxialSampleRecord, projectNo),
    TRIAXLAB_FIELD(TriaxialSampleRecord, sampleNo),
    TRIAXLAB_FIELD(TriaxialSampleRecord, uuAdjustFlag),
    TRIAXLAB_FIELD(TriaxialSampleRecord, recordCodeA),
    TRIAXLAB_FIELD(TriaxialSampleRecord, recordCodeB),
    TRIAXLAB_FIELD(TriaxialSampleRecord, testMethod),
    TRIAXLAB_FIELD(TriaxialSampleRecord, shearMode),
    TRIAXLAB_FIELD(TriaxialSampleRecord, shearRate),
    TRIAXLAB_FIELD(TriaxialSampleRecord, cohesionTenths),
    TRIAXLAB_FIELD(TriaxialSampleRecord, frictionAngle),
    TRIAXLAB_FIELD(TriaxialSampleRecord, cohesionEffTenths),
    TRIAXLAB_FIELD(TriaxialSampleRecord, frictionAngleEff),
    TRIAXLAB_FIELD(TriaxialSampleRecord, cellPressure),
    TRIAXLAB_FIELD(TriaxialSampleRecord, initialHeight),
    TRIAXLAB_FIELD(TriaxialSampleRecord, consolidatedHeight),
    TRIAXLAB_FIELD(TriaxialSampleRecord, initialArea),
    TRIAXLAB_FIELD(TriaxialSampleRecord, consolidatedArea),
    TRIAXLAB_FIELD(TriaxialSampleRecord, failureRadius),
    TRIAXLAB_FIELD(TriaxialSampleRecord, density),
    TRIAXLAB_FIELD(TriaxialSampleRecord, failureRadiusEff),
    TRIAXLAB_FIELD(TriaxialSampleRecord, failureCentre),
    TRIAXLAB_FIELD(TriaxialSampleRecord, failureCentreEff),
    TRIAXLAB_FIELD(TriaxialSampleRecord, soilName),
    TRIAXLAB_FIELD(TriaxialSampleRecord, failureStrainLimit),
    TRIAXLAB_FIELD(TriaxialSampleRecord, consolidationDrainage),
    TRIAXLAB_FIELD(TriaxialSampleRecord, ringCoefficient),
    TRIAXLAB_FIELD(TriaxialSampleRecord, sigma1Failure),
    TRIAXLAB_FIELD(TriaxialSampleRecord, sigma1FailureEff),
    TRIAXLAB_FIELD(TriaxialSampleRecord, sigma3FailureEff),
    TRIAXLAB_FIELD(TriaxialSampleRecord, deviatorStress),
    TRIAXLAB_FIELD(TriaxialSampleRecord, sigma1Eff),
    TRIAXLAB_FIELD(TriaxialSampleRecord, sigma3Eff),
    TRIAXLAB_FIELD(TriaxialSampleRecord, porePressure),
    TRIAXLAB_FIELD(TriaxialSampleRecord, consolidationTime),
    TRIAXLAB_FIELD(TriaxialSampleRecord, consolidationPorePressure),
    TRIAXLAB_FIELD(TriaxialSampleRecord, consolidationVolume),
    TRIAXLAB_FIELD(TriaxialSampleRecord, volumeChange),
    TRIAXLAB_FIELD(TriaxialSampleRecord, axialStrain),
    TRIAXLAB_FIELD(TriaxialSampleRecord, adjustedFlag),
    TRIAXLAB_FIELD(TriaxialSampleRecord, pathAdjustedFlag),
    TRIAXLAB_FIELD(TriaxialSampleRecord, pathSlope),
    TRIAXLAB_FIELD(TriaxialSampleRecord, pathIntercept),
    TRIAXLAB_FIELD(TriaxialSampleRecord, coefficientB),
    TRIAXLAB_FIELD(TriaxialSampleRecord, coefficientAf),
    TRIAXLAB_FIELD(TriaxialSampleRecord, testDate),
    TRIAXLAB_FIELD(TriaxialSampleRecord, cohesionText),
    TRIAXLAB_FIELD(TriaxialSampleRecord, cohesionEffText),
    TRIAXLAB_FIELD(TriaxialSampleRecord, reserved),
};

constexpr std::array kUnconfinedFields{
    TRIAXLAB_FIELD(UnconfinedSampleRecord, projectNo),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, sampleNo),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, undisturbedStress),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, remouldedStress),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, undisturbedStrain),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, remouldedStrain),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, undisturbedReading),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, remouldedReading),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, sampleHeight),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, sampleArea),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, ringCoefficient),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, qu),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, quRemoulded),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, sensitivity),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, strainLimit),
    TRIAXLAB_FIELD(UnconfinedSampleRecord, spare),
};

constexpr std::array kK0Fields{
    TRIAXLAB_FIELD(K0SampleRecord, projectNo),     TRIAXLAB_FIELD(K0SampleRecord, sampleNo),
    TRIAXLAB_FIELD(K0SampleRecord, koAdjusted),    TRIAXLAB_FIELD(K0SampleRecord, axialDeformation),
    TRIAXLAB_FIELD(K0SampleRecord, axialPressure), TRIAXLAB_FIELD(K0SampleRecord, lateralPressure),
    TRIAXLAB_FIELD(K0SampleRecord, koValue),       TRIAXLAB_FIELD(K0SampleRecord, koIntercept),
    TRIAXLAB_FIELD(K0SampleRecord, samplingDepth), TRIAXLAB_FIELD(K0SampleRecord, spare),
};

/// Behind the K0 fields.
constexpr std::array kTK0Fields{
    TRIAXLAB_FIELD(TK0SampleRecord, pressureSeries), TRIAXLAB_FIELD(TK0SampleRecord, deformationSeries),
    TRIAXLAB_FIELD(TK0SampleRecord, t90Slope),       TRIAXLAB_FIELD(TK0SampleRecord, t90Intercept),
    TRIAXLAB_FIELD(TK0SampleRecord, t90Adjusted),    TRIAXLAB_FIELD(TK0SampleRecord, stageCount),
    TRIAXLAB_FIELD(TK0SampleRecord, timeRowCount),   TRIAXLAB_FIELD(TK0SampleRecord, elapsedSeconds),
};

constexpr std::array kLocationFields{
    TRIAXLAB_FIELD(SampleLocation, boreholeNo),
    TRIAXLAB_FIELD(SampleLocation, samplingDepth),
    TRIAXLAB_FIELD(SampleLocation, samplingSpot),
};

#undef TRIAXLAB_FIELD

void addTriaxial(Json& object, const Workspace& workspace, std::size_t row) {
  add(object, kTriaxialFields, workspace.TriaxialSampleTable[row]);
}
void addUnconfined(Json& object, const Workspace& workspace, std::size_t row) {
  add(object, kUnconfinedFields, workspace.UnconfinedSampleTable[row]);
}
void addK0(Json& object, const Workspace& workspace, std::size_t row) {
  add(object, kK0Fields, workspace.K0SampleTable[row]);
}
void addTK0(Json& object, const Workspace& workspace, std::size_t row) {
  const TK0SampleRecord& record = workspace.TK0SampleTable[row];
  add(object, kK0Fields, record.k0);
  add(object, kTK0Fields, record);
}

struct FieldsOfKind {
  ProjectKind kind;
  void (*add)(Json&, const Workspace&, std::size_t row);
};
constexpr std::array kFieldsOfKinds{
    FieldsOfKind{ProjectKind::Triaxial, addTriaxial},
    FieldsOfKind{ProjectKind::Unconfined, addUnconfined},
    FieldsOfKind{ProjectKind::K0, addK0},
    FieldsOfKind{ProjectKind::TK0, addTK0},
};

}  // namespace

std::string jsonText(std::string_view gbk) {
  const auto last = gbk.find_last_not_of(' ');
  return gbkToUtf8(gbk.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

Json jsonOf(const ProjectHeader& header) {
  Json object;
  add(object, kHeaderFields, header);
  return object;
}

Json jsonOf(std::size_t fileRow, const Workspace& workspace, ProjectKind kind, std::size_t row) {
  Json object;
  object["row"] = fileRow;
  for (const FieldsOfKind& fields : kFieldsOfKinds)
    if (fields.kind == infoOf(kind).documentKind) fields.add(object, workspace, row);
  Json location;
  add(location, kLocationFields, workspace.SampleDisplayTable[row]);
  for (const auto& [name, value] : location.items())
    if (!object.contains(name)) object[name] = value;
  return object;
}

}  // namespace triaxlab::cli
