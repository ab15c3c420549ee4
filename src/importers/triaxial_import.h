#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "common/progress.h"
#include "importers/importer.h"
#include "store/workspace.h"
#include "triaxial/record.h"
#include "triaxial/time_axes.h"

namespace triaxlab {

/// The slot of a row with this cell pressure, kPa, else the first free one; nothing when all five are taken by others.
std::optional<std::size_t> slotForPressure(const TriaxialSampleRecord& row, double pressure);

/// What makes two groups of specimens one sample.
struct SampleIdentity {
  FixedText<15> projectNo;
  FixedText<14> sampleNo;
  std::uint8_t testMethod = 0;
  bool operator<(const SampleIdentity& other) const {
    return std::tuple(sampleNo.view(), projectNo.view(), testMethod) <
           std::tuple(other.sampleNo.view(), other.projectNo.view(), other.testMethod);
  }
};

inline void setIdentity(TriaxialSampleRecord& row, const SampleIdentity& identity) {
  row.projectNo = identity.projectNo;
  row.sampleNo = identity.sampleNo;
  row.testMethod = identity.testMethod;
}

/// Which row of the triaxial table each group of specimens goes to, and the dates of the projects: worked out from the
/// plain content of a database before the workspace is touched, so that an import which can't be done changes nothing.
class TriaxialImportPlan {
 public:
  enum class Gathering : std::uint8_t {
    OwnRow,    // a row for each group
    BySample,  // the specimens of a group join the earlier row of their sample, if there is one
    InPlace,   // as BySample, but the group is filled into the row as it stands and finds its slots itself
  };
  /// Fills a row, blank unless it is to be filled in place, from the group with this number, counted from 0 in the
  /// order of addGroup. Doesn't throw. A group that may join a row (BySample) fills what lies in front of
  /// deviatorStress, and of the readings the first kImportedShearRows and kImportedConsolidationRows: what a merge
  /// takes.
  using Fill = std::function<void(std::size_t group, TriaxialSampleRecord& row)>;

  enum class TimeAxes {
    Even,      // the apparatus reads at even strains and at times that everybody knows
    OfSource,  // Fill writes axialStrain and consolidationTime
  };
  explicit TriaxialImportPlan(TimeAxes axes = TimeAxes::Even) : m_axes(axes) {}

  /// The next row of the project date table. UserError when it is full.
  void addProjectDate(const SourceRow& source);
  /// The row of this project takes the date; the next row is its own when there is none yet.
  void setProjectDate(const SourceRow& source);
  /// Row 0 of the project date table, the only one, takes this project and date.
  void setOnlyProjectDate(const SourceRow& source);
  /// What the database calls the project, GBK.
  void setProjectName(std::string_view projectNo, std::string_view name);
  /// UserError when the group needs a row and the table is full.
  void addGroup(const SampleIdentity& identity, Gathering gathering);

  /// Clears the tables of the workspace and fills them. A specimen that joins a row replaces the one of its pressure,
  /// or takes the first free slot. Nothing fails here. The progress counts groups.
  ImportReport carryOut(Workspace& workspace, const Fill& fill, Remarks remarks, const Progress& progress) const;

 private:
  struct Place {
    std::size_t row;
    bool joins;  // an earlier group has this row
    Gathering gathering;
  };
  Place placeOf(const SampleIdentity& identity, Gathering gathering);

  TimeAxes m_axes;
  std::size_t m_rowCount = 0;
  std::map<SampleIdentity, std::size_t> m_rowOfSample;  // the first row of each
  std::vector<Place> m_places;                          // one a group
  std::vector<ProjectDate> m_projectDates;
  std::map<std::string, std::string, std::less<>> m_projectNames;
};

}  // namespace triaxlab
