#pragma once

#include <nlohmann/json_fwd.hpp>

#include "store/project/project_header.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab::cli {

// Records as JSON objects: the fields under their own names in the order of the record, texts as UTF-8 without their
// trailing blanks, numbers as numbers with their shortest digits, two-dimensional fields by row, then stage, all rows.
// A float that is no number is null.

nlohmann::ordered_json jsonOf(const ProjectHeader& header);

/// The record in a row of the kind's table with what the formulas give besides and the location beside it, under its
/// row in the file. A field that the record has itself, as a K0 record its depth, is the record's.
nlohmann::ordered_json jsonOf(std::size_t fileRow, const Workspace& workspace, ProjectKind kind, std::size_t row);

/// One text as it stands in the objects.
std::string jsonText(std::string_view gbk);

}  // namespace triaxlab::cli
