#include "sessions/sample_texts.h"

#include <array>

#include "common/fixed_text.h"
#include "sessions/document_fields.h"
#include "store/workspace.h"

namespace triaxlab {
namespace {

SampleLocation& locationOf(Workspace& workspace, ProjectKind tests, std::size_t row) {
  return workspace.dataOf(tests).SampleDisplayTable.at(row);
}

/// The labels of the windows are indented.
template <std::size_t label>
std::string locationHeading(const LaboratoryHabits& habits) {
  return std::string(Trim(locationLabels(habits).at(label)));
}

constexpr SampleText kSoilName{
    [](const LaboratoryHabits&) { return std::string(sample_captions::kSoilName); }, 1900,
    [](Workspace& workspace, ProjectKind /*tests*/, std::size_t row) { return soilNameField(workspace, row); }};
constexpr SampleText kDensity{
    [](const LaboratoryHabits&) { return std::string(sample_captions::kDensity); }, 900,
    [](Workspace& workspace, ProjectKind /*tests*/, std::size_t row) { return densityField(workspace, row); }};
constexpr SampleText kBorehole{locationHeading<0>, 1900, boreholeField};
constexpr SampleText kSamplingDepth{locationHeading<1>, 1900, samplingDepthField};
constexpr SampleText kSamplingSpot{locationHeading<2>, 3000, samplingSpotField};

constexpr std::array kTriaxialTexts{kSoilName, kDensity, kBorehole, kSamplingDepth, kSamplingSpot};
constexpr std::array kLocationTexts{kBorehole, kSamplingDepth, kSamplingSpot};

}  // namespace

EditableField soilNameField(Workspace& workspace, std::size_t row) {
  return editable(workspace.TriaxialSampleTable.at(row).soilName);
}

EditableField densityField(Workspace& workspace, std::size_t row) {
  return editable(workspace.TriaxialSampleTable.at(row).density);
}

EditableField boreholeField(Workspace& workspace, ProjectKind tests, std::size_t row) {
  return editable(locationOf(workspace, tests, row).boreholeNo);
}

EditableField samplingDepthField(Workspace& workspace, ProjectKind tests, std::size_t row) {
  return editable(locationOf(workspace, tests, row).samplingDepth);
}

EditableField samplingSpotField(Workspace& workspace, ProjectKind tests, std::size_t row) {
  return editable(locationOf(workspace, tests, row).samplingSpot);
}

std::span<const SampleText> triaxialSampleTexts() { return kTriaxialTexts; }

std::span<const SampleText> locationTexts() { return kLocationTexts; }

}  // namespace triaxlab
