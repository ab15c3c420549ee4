#pragma once

#include <cstdint>
#include <string_view>

#include "store/workspace.h"

namespace triaxlab {

enum class DateFirst : std::uint8_t { OfSample, OfProject };

/// The test date that stands for a sample in windows and on pages; GBK, trimmed, empty when nobody knows one. Its own
/// date counts first: the samples of a project are sheared on different days. The tables of readings are headed as
/// sheets of their project and show the project's date first. `document` is that of its kind of test; `projectNo` and
/// `ownDate` are GBK, trimmed.
std::string_view shownTestDate(const DocumentData& document, std::string_view projectNo, std::string_view ownDate,
                               DateFirst first = DateFirst::OfSample);

}  // namespace triaxlab
