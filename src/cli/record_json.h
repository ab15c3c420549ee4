#pragma once

#include <nlohmann/json_fwd.hpp>

#include "store/project_header.h"
#include "store/workspace.h"
#include "triaxial/record.h"

namespace triaxlab::cli {

// Records as JSON objects: the fields under their own names in the order of the record, texts as UTF-8 without their
// trailing blanks, numbers as numbers with their shortest digits, two-dimensional fields by row, then stage, all rows.
// A float that is no number is null.

nlohmann::ordered_json jsonOf(const ProjectHeader& header);

/// The record of a table row with the location beside it.
nlohmann::ordered_json jsonOf(std::size_t row, const TriaxialSampleRecord& record, const SampleLocation& location);

/// One text as it stands in the objects.
std::string jsonText(std::string_view gbk);

}  // namespace triaxlab::cli
