#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace triaxlab::testing {

/// A cell as a reader of the file finds it.
struct FoundCell {
  std::variant<std::string, double> value;
  std::string display = {};  // its display format
  bool operator==(const FoundCell&) const = default;
};

struct FoundSheet {
  std::string name;
  std::map<std::pair<std::size_t, std::size_t>, FoundCell> cells = {};  // by row and column, from 0
  bool operator==(const FoundSheet&) const = default;

  /// The cell as a person sees it, rows from 1: "100" or "σ3"; empty where nothing stands.
  std::string at(std::size_t row, char column) const;
  /// The values of a row, from column A to the last.
  std::vector<std::string> row(std::size_t row) const;
  std::size_t lastRow() const { return cells.empty() ? 0 : cells.rbegin()->first.first + 1; }
};

/// Reads an .xls, and throws std::runtime_error at the first thing that a strict reader could object to: a sector
/// that belongs to nothing, a record too long or out of order, a count, a place or an extent that isn't right.
std::vector<FoundSheet> readXlsStrictly(const std::filesystem::path& file);

/// Reads an .xlsx; std::runtime_error when it isn't a whole one.
std::vector<FoundSheet> readXlsx(const std::filesystem::path& file);

}  // namespace triaxlab::testing
