#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "common/settings.h"
#include "sessions/editable_field.h"
#include "store/project/project_kind.h"

namespace triaxlab {

struct Workspace;

namespace sample_captions {
inline constexpr const char* kSoilName = "土样名称";
inline constexpr const char* kDensity = "密度";
}  // namespace sample_captions

// What a person types of a sample beside its readings, for the sample in a row of the table: wherever it is typed, it
// is the same field.
EditableField soilNameField(Workspace& workspace, std::size_t row);  // of triaxial samples
EditableField densityField(Workspace& workspace, std::size_t row);   // of triaxial samples
EditableField boreholeField(Workspace& workspace, ProjectKind tests, std::size_t row);
EditableField samplingDepthField(Workspace& workspace, ProjectKind tests, std::size_t row);
EditableField samplingSpotField(Workspace& workspace, ProjectKind tests, std::size_t row);

/// One of these fields as the column of a table.
struct SampleText {
  std::string (*heading)(const LaboratoryHabits&);  // UTF-8
  int width = 0;                                    // twips
  EditableField (*field)(Workspace&, ProjectKind tests, std::size_t row);
};

std::span<const SampleText> triaxialSampleTexts();
/// Of the other tests, which know only where a sample was taken.
std::span<const SampleText> locationTexts();

}  // namespace triaxlab
