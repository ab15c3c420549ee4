#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "common/fixed_text.h"
#include "importers/importer.h"
#include "platform/jet_database.h"

namespace triaxlab {

// What the databases of the Windows edition have in common, whatever the test.

/// A quantity from here on is the controller's mark for no reading.
inline constexpr double kNoReadingMark = 60000;

/// A number of a reading; a null counts as the mark.
inline double readingOf(const JetValue& value) { return value.number().value_or(kNoReadingMark); }

/// The rows of the grid: each project number that the database has, in ascending order, what `describe` tells of its
/// rows, and the date of the first. `rowsOfProject` is a query up to the apostrophe in front of the number.
std::vector<SourceRow> projectRows(const JetDatabase& database, std::string_view projectNumbers,
                                   std::string_view rowsOfProject, std::string (*describe)(const JetRows& rows));
/// Its columns.
enum ProjectColumn : std::size_t { kProjectColumn, kDescriptionColumn, kTestDateColumn };

/// What the first of the rows calls its project; empty without rows.
std::string projectNameOf(const JetRows& rows);

/// A Jet database by its signature; one with this table if its name stands in the head, where the catalog lies as a
/// rule.
Recognition recogniseJet(const FileHead& head, std::string_view table);

/// The date of a time of saving: what stands before its first blank. UTF-8.
std::string dateOf(const JetValue& timeOfSaving);

/// The value through a number format; a null is blank.
template <std::size_t N>
void setFormatted(FixedText<N>& field, const JetValue& value, NumberFormat format) {
  field.clear();
  if (const auto number = value.decimal()) SetNumber(field, *number, format);
}

}  // namespace triaxlab
