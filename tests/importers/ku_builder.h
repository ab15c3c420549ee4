#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace triaxlab::testing {

// Raw databases of the automatic apparatus written out byte by byte, apart from the structs that read them.

inline std::string text(std::string_view content, std::size_t width) {
  std::string places(content.substr(0, width));
  places.resize(width, ' ');
  return places;
}

inline std::string word(int value) {
  const auto bits = static_cast<std::uint16_t>(value);
  return {static_cast<char>(bits & 0xFF), static_cast<char>(bits >> 8)};
}

inline std::string byte(int value) { return std::string(1, static_cast<char>(value)); }

/// `count` words of which those that aren't given are 0. Readings are given by their index.
inline std::string words(const std::map<int, int>& readings, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += readings.count(i) != 0 ? word(readings.at(i)) : word(0);
  return bytes;
}

/// One specimen of 460 bytes. Readings are given by their index, 1 to 51 in the shear phase, 0 to 24 in consolidation.
struct Specimen {
  std::string sampleNo = "S-1";
  std::string projectNo = "P1";
  int validMark = 255, recordCodeA = 0, recordCodeB = 0;
  int testMethod = 1, shearMode = 0, stageFlag = 0;
  int cellPressure = 1000;  // 0.1 kPa
  int initialHeight = 0, consolidatedHeight = 0, initialArea = 0, consolidatedArea = 0, drainage = 0, shearRate = 0;
  std::map<int, int> consolidationPore = {}, consolidationVolume = {};
  std::map<int, int> stress = {}, pore = {}, volume = {};

  std::string bytes() const {
    return byte(validMark) + byte(recordCodeA) + byte(recordCodeB) + byte(testMethod) + byte(shearMode) +
           text(projectNo, 10) + text(sampleNo, 10) + word(cellPressure) + word(initialHeight) +
           word(consolidatedHeight) + word(initialArea) + word(consolidatedArea) + word(drainage) + word(shearRate) +
           byte(stageFlag) + words(consolidationPore, 25) + words(consolidationVolume, 25) + words(stress, 52) +
           words(pore, 52) + words(volume, 52) + std::string(8, ' ');
  }
};

/// A slot of a group in which the apparatus stored nothing.
inline Specimen noSpecimen() {
  return {.sampleNo = "", .projectNo = "", .validMark = 0, .testMethod = 0, .cellPressure = 0};
}

/// One row of the grid with its block.
struct Entry {
  std::string projectNo = "P1";  // six places
  std::string date = "20240412";
  int groupCount = 0;
  int method = 1;
  std::string projectTail = "";  // four places
  int format = 0;
  std::string projectTail2 = "";  // two places
  std::string block;
};

/// Groups of five specimens behind their count; a group that is given fewer is filled up with empty slots.
inline Entry olderEntry(std::vector<std::vector<Specimen>> groups) {
  Entry entry;
  entry.groupCount = static_cast<int>(groups.size());
  entry.block = byte(entry.groupCount);
  for (std::vector<Specimen>& group : groups) {
    group.resize(5, noSpecimen());
    for (const Specimen& specimen : group) entry.block += specimen.bytes();
  }
  return entry;
}

/// Specimens one by one behind a byte that says nothing. The format byte is the blank of a short project number.
inline Entry newerEntry(const std::vector<Specimen>& specimens) {
  Entry entry;
  entry.groupCount = static_cast<int>(specimens.size());
  entry.format = ' ';
  entry.block = byte(0);
  for (const Specimen& specimen : specimens) entry.block += specimen.bytes();
  return entry;
}

/// The 30 bytes of an index entry. The data offset has its high word first.
inline std::string indexEntry(const Entry& entry, std::size_t offset) {
  return byte(1) + text(entry.projectNo, 6) + text(entry.date, 8) + byte(entry.groupCount) +
         word(static_cast<int>(offset >> 16)) + word(static_cast<int>(offset & 0xFFFF)) + word(0) + byte(entry.method) +
         text(entry.projectTail, 4) + byte(entry.format) + text(entry.projectTail2, 2);
}

/// A whole database: count, index, then the blocks one behind the other.
inline std::string kuFile(const std::vector<Entry>& entries) {
  std::string index = word(static_cast<int>(entries.size())), blocks;
  for (const Entry& entry : entries) {
    index += indexEntry(entry, 2 + 30 * entries.size() + blocks.size());
    blocks += entry.block;
  }
  return index + blocks;
}

}  // namespace triaxlab::testing
