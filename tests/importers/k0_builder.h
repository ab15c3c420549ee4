#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "importers/ku_builder.h"

namespace triaxlab::testing {

// Raw databases of the K0 apparatus and their calibration, written out byte by byte, apart from the structs that read
// them. Words are given by their stage, from 0.

// ---- KGJSJ.KU

/// One station of 2136 bytes.
struct KgjStation {
  std::string sampleNo = "S-1";
  std::string projectNo = "";
  int stageCount = 2;
  std::map<int, int> load = {{0, 100}, {1, 200}};  // thousandths, as all of them
  std::map<int, int> deformation = {}, pressure = {};

  std::string bytes() const {
    return text(projectNo, 10) + text(sampleNo, 10) + word(stageCount) + std::string(10, '\0') + words(load, 10) +
           words(deformation, 10) + words(pressure, 10) + std::string(2044, '\0');
  }
};

inline Entry kgjEntry(const std::vector<KgjStation>& stations) {
  Entry entry;
  entry.groupCount = static_cast<int>(stations.size());
  for (const KgjStation& station : stations) entry.block += station.bytes();
  return entry;
}

// ---- HGJSJ.KU

struct HgjStation {
  int number = 0;
  std::string sampleNo = "S-1";
  std::string projectNo = "";
  int kind = 4, loadRow = 1, mode = 3;
};

/// A header of 2261 bytes and whatever stands behind it.
struct HgjBlock {
  std::vector<HgjStation> stations = {};
  std::map<int, int> loads = {{0, 100}, {1, 200}};  // by place in the table of ten rows of ten
  int stride = 60;
  std::string readings = "";

  std::string bytes() const {
    std::string projects(640, '\0'), samples(640, '\0'), flags(640, '\0');
    for (const HgjStation& station : stations) {
      const auto at = 10 * static_cast<std::size_t>(station.number);
      projects.replace(at, 10, text(station.projectNo, 10));
      samples.replace(at, 10, text(station.sampleNo, 10));
      flags[at] = static_cast<char>(station.kind);
      flags[at + 2] = static_cast<char>(station.loadRow);
      flags[at + 4] = static_cast<char>(station.mode);
    }
    return std::string(34, '\0') + projects + samples + flags + words(loads, 100) + std::string(20, '\0') +
           word(stride) + std::string(10 + 72 + 3, '\0') + readings;
  }
};

inline Entry hgjEntry(const HgjBlock& block) {
  Entry entry;
  entry.block = block.bytes();
  return entry;
}

/// The readings of one stage in mode 3.
inline std::string stageEnd(int deformation, int pressure) { return word(deformation) + word(777) + word(pressure); }

/// 31 times, and rows for ten stages of 64 stations.
struct HgjSeries {
  std::map<int, int> seconds;                // by row
  std::map<std::vector<int>, int> readings;  // by row, stage, station and 0 for a deformation, 1 for a pressure

  std::string bytes(int rows = 31) const {
    std::string series;
    for (int row = 0; row < 31; ++row) {
      const auto found = seconds.find(row);
      const auto value = static_cast<std::uint32_t>(found == seconds.end() ? 0 : found->second);
      series += word(static_cast<int>(value & 0xFFFF)) + word(static_cast<int>(value >> 16));
    }
    const std::size_t times = series.size();
    series.resize(times + static_cast<std::size_t>(rows) * 2560, '\0');
    for (const auto& [place, value] : readings) {
      const int offset = ((place[0] * 10 + place[1]) * 64 + place[2]) * 4 + place[3] * 2;
      series.replace(times + static_cast<std::size_t>(offset), 2, word(value));
    }
    return series;
  }
};

// ---- KGJYBXL1.TB

/// A line of 22 columns behind a name; columns that aren't given are 0.
inline std::string calibrationLine(const std::vector<std::string>& columns) {
  std::string line = "C   ";
  for (std::size_t j = 0; j < 22; ++j) {
    const std::string column = j < columns.size() ? columns[j] : "0";
    line += std::string(7 - column.size(), ' ') + column;
  }
  return line + "\r\n";
}

/// Raw points 0, 100, 200 ... 2100, and channels that give a pressure of `factors` times the raw word.
inline std::string calibrationTable(const std::vector<int>& factors) {
  const auto line = [](int factor) {
    std::vector<std::string> columns;
    for (int j = 0; j < 22; ++j) columns.push_back(std::to_string(100 * j * factor));
    return calibrationLine(columns);
  };
  std::string table = "two lines\r\nin front of the heading 123456\r\n" + line(1);
  for (const int factor : factors) table += line(factor);
  return table;
}

}  // namespace triaxlab::testing
