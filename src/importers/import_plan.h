#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "common/progress.h"
#include "common/user_error.h"
#include "importers/importer.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// What makes two groups of raw data one sample. Sources whose test has no methods leave testMethod at 0.
template <class Record>
struct SampleIdentity {
  decltype(Record::projectNo) projectNo;
  decltype(Record::sampleNo) sampleNo;
  std::uint8_t testMethod = 0;

  bool operator<(const SampleIdentity& other) const {
    return std::tuple(sampleNo.view(), projectNo.view(), testMethod) <
           std::tuple(other.sampleNo.view(), other.projectNo.view(), other.testMethod);
  }
};

/// What imports into the table of a kind of record need of it. A specialisation has
///   static constexpr SampleTable<Record> Workspace::*kTable
/// where its axes are even,
///   static void finish(Record&)                   writes them behind the groups of a row; may be repeated
/// and, when its sources gather specimens (BySample),
///   static void blankAgain(Record&)               blanks what a group that joins a row may have filled
///   static void join(const Record& from, Record& into)   the specimens of one record go into the other
template <class Record>
struct ImportTarget;

/// The dates and names of the projects that an import brings.
class ImportedProjects {
 public:
  /// The next row of the project date table. UserError when it is full.
  void addDate(const SourceRow& source);
  /// The row of this project takes the date; the next row is its own when there is none yet.
  void setDate(const SourceRow& source);
  /// Row 0 of the project date table, the only one, takes this project and date.
  void setOnlyDate(const SourceRow& source);
  /// What the database calls the project, GBK.
  void setName(std::string_view projectNo, std::string_view name);

  void carryOut(DocumentData& document) const;
  /// Which projects were tested on several days, and the one that is printed with all their samples. Pre: carried out.
  Remarks remarks(const DocumentData& document) const;

 private:
  void note(const ProjectDate& date);

  std::vector<ProjectDate> m_dates;
  std::map<std::string, std::vector<std::string>> m_days;  // of each project, as a sentence shows them
  std::map<std::string, std::string, std::less<>> m_names;
};

/// Which row of its table each group of raw data goes to: worked out from the plain content of a database before the
/// workspace is touched, so that an import which can't be done changes nothing.
template <class Record>
class ImportPlan {
 public:
  enum class Gathering : std::uint8_t {
    OwnRow,    // a row for each group
    BySample,  // the specimens of a group join the earlier row of their sample, if there is one
    InPlace,   // as BySample, but the group is filled into the row as it stands and finds its places itself
  };
  /// Fills a row, blank unless it is to be filled in place, from the group with this number, counted from 0 in the
  /// order of addGroup. Doesn't throw. Of a group that may join a row (BySample) it fills what ImportTarget::blankAgain
  /// blanks.
  using Fill = std::function<void(std::size_t group, Record& row)>;

  enum class Axes : std::uint8_t {
    Even,      // the apparatus reads at even steps: ImportTarget::finish writes the axes
    OfSource,  // Fill writes them
  };
  explicit ImportPlan(Axes axes = Axes::Even) : m_axes(axes) {}

  ImportedProjects projects;

  /// The next row stays blank.
  void addBlankRow() { takeRow(); }
  /// UserError when the group needs a row and the table is full.
  void addGroup(const SampleIdentity<Record>& identity, Gathering gathering) {
    m_places.push_back(placeOf(identity, gathering));
  }

  /// Clears the tables of the workspace and fills them. Nothing fails here. The progress counts groups.
  ImportReport carryOut(Workspace& workspace, const Fill& fill, Remarks remarks, const Progress& progress) const {
    using Target = ImportTarget<Record>;
    auto& table = workspace.*Target::kTable;
    table.clear();
    DocumentData& document = workspace.dataOf(kTestsOf<Record>);
    document.clearLocations();
    projects.carryOut(document);

    Record joining;
    // A row is made, filled and finished while it is at hand: the table is far larger than the caches.
    for (std::size_t group = 0; group < m_places.size(); ++group) {
      const std::size_t row = m_places[group].row;
      fillPlace(group, fill, table[row], joining);
      if (group + 1 == m_places.size() || m_places[group + 1].row != row) finish(table[row]);
      tell(progress, group + 1, m_places.size());
    }
    std::ranges::move(projects.remarks(document), std::back_inserter(remarks));
    ImportReport report{.sampleRows = m_rowCount, .remarks = std::move(remarks)};
    report.samples =
        static_cast<std::size_t>(std::ranges::count_if(table.used(), [](const Record& row) { return isLive(row); }));
    return report;
  }

 private:
  struct Place {
    std::size_t row;
    bool joins;  // an earlier group has this row
    Gathering gathering;
  };

  /// Fills the row of the group, or the record that then joins it.
  void fillPlace(std::size_t group, const Fill& fill, Record& row, [[maybe_unused]] Record& joining) const {
    using Target = ImportTarget<Record>;
    if constexpr (requires { Target::join(joining, row); }) {
      if (m_places[group].joins && m_places[group].gathering == Gathering::BySample) {
        Target::blankAgain(joining);
        fill(group, joining);
        Target::join(joining, row);
        return;
      }
    }
    fill(group, row);
  }

  /// A row to which later groups come back is finished again.
  void finish([[maybe_unused]] Record& row) const {
    using Target = ImportTarget<Record>;
    if constexpr (requires { Target::finish(row); })
      if (m_axes == Axes::Even) Target::finish(row);
  }

  Place placeOf(const SampleIdentity<Record>& identity, Gathering gathering) {
    if (gathering != Gathering::OwnRow)
      if (const auto same = m_rowOfSample.find(identity); same != m_rowOfSample.end())
        return {same->second, true, gathering};
    const std::size_t row = takeRow();
    m_rowOfSample.try_emplace(identity, row);
    return {row, false, gathering};
  }

  std::size_t takeRow() {
    if (m_rowCount == kTableRows) throw UserError("选中的试样超过1001个，数据没有读入。请减少选中的行，分几次处理。");
    return m_rowCount++;
  }

  Axes m_axes;
  std::size_t m_rowCount = 0;
  std::map<SampleIdentity<Record>, std::size_t> m_rowOfSample;  // the first row of each
  std::vector<Place> m_places;                                  // one a group
};

}  // namespace triaxlab
