#pragma once

#include <cstddef>
#include <string_view>

#include "common/field_rows.h"

namespace triaxlab {

/// A record of a raw database, for the page about its file. Each importer keeps its records to itself and tells them
/// here.
struct RawLayout {
  std::string_view title;  // English, the start of a sentence
  std::size_t size;
  FieldRows rows;
};

template <DescribedRecord Record>
RawLayout rawLayout(std::string_view title) {
  return {title, sizeof(Record), fieldRows<Record>()};
}

}  // namespace triaxlab
