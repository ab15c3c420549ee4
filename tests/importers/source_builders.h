#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "importers/ku_builder.h"

namespace triaxlab::testing {

// Raw databases of the other triaxial sources, written out byte by byte, apart from the structs that read them.
// Readings are given by their index, which begins at 1 where the apparatus leaves the first word unused.

// ---- KSZSJ.KU

/// One specimen of 336 bytes: 12.00 cm2 in section, a ring of 1.25.
struct QvbSpecimen {
  std::array<int, 4> packedSampleNo{0x12, 0xA3, 0xFF, 0xFF};  // 12-3
  int testMethod = 1, shearMode = 0;
  int cellPressure = 100;  // kPa; 0: no specimen
  int initialHeight = 800, consolidatedHeight = 0, initialArea = 1200, drainage = 0, ringCoefficient = 1250;
  std::map<int, int> dial = {};
  int startPore = 0;
  std::map<int, int> pore = {}, volume = {};

  std::string bytes() const {
    std::string number;
    for (const int packed : packedSampleNo) number += byte(packed);
    return number + word(0) + byte(testMethod) + word(0) + byte(shearMode) + word(cellPressure) + word(initialHeight) +
           word(consolidatedHeight) + word(initialArea) + word(drainage) + word(ringCoefficient) +
           std::string(10, '\0') + words(dial, 50) + word(startPore) + words(pore, 50) + words(volume, 50) + word(0);
  }
};

/// A slot in which the apparatus stored nothing.
inline QvbSpecimen noQvbSpecimen() {
  return {.packedSampleNo = {0, 0, 0, 0},
          .testMethod = 0,
          .cellPressure = 0,
          .initialHeight = 0,
          .initialArea = 0,
          .ringCoefficient = 0};
}

/// Groups of four slots behind their count; one that is given fewer is filled up. `numbers` stands behind them.
inline Entry qvbEntry(std::vector<std::vector<QvbSpecimen>> groups, std::string_view numbers = "") {
  Entry entry;
  entry.groupCount = static_cast<int>(groups.size());
  entry.block = byte(entry.groupCount);
  for (std::vector<QvbSpecimen>& group : groups) {
    group.resize(4, noQvbSpecimen());
    entry.block += std::string(20, '\0');
    for (const QvbSpecimen& specimen : group) entry.block += specimen.bytes();
  }
  entry.block += text(numbers, 644);
  return entry;
}

// ---- RSZSJ.KU

/// One specimen of 500 bytes: 8.00 cm high, 12.00 cm2 in section, a ring of 2.
struct NewQvbSpecimen {
  std::string sampleNo = "S-1";
  std::string projectNo = "P1";
  int testMethod = 1, shearMode = 0;
  int cellPressure = 1000;  // 0.1 kPa; 0: no specimen
  int initialHeight = 800, consolidatedHeight = 0, initialArea = 1200, drainage = 0, shearRate = 0;
  int ringCoefficient = 2000;
  std::map<int, int> consolidationPore = {}, consolidationVolume = {};
  std::map<int, int> dial = {}, pore = {}, volume = {};

  std::string bytes() const {
    return byte(0) + text(projectNo, 10) + text(sampleNo, 10) + byte(testMethod) + byte(shearMode) +
           std::string(7, '\0') + word(cellPressure) + word(initialHeight) + word(consolidatedHeight) +
           word(initialArea) + word(drainage) + word(shearRate) + word(ringCoefficient) + std::string(6, '\0') +
           words(consolidationPore, 25) + words(consolidationVolume, 24) + words(dial, 52) + words(pore, 51) +
           words(volume, 51) + std::string(44, ' ');
  }
};

/// Specimens behind two bytes that say nothing. Their count stands in byte 24 of the entry.
inline Entry newQvbEntry(const std::vector<NewQvbSpecimen>& specimens) {
  Entry entry;
  entry.projectTail = " " + byte(static_cast<int>(specimens.size()));
  entry.block = word(0);
  for (const NewQvbSpecimen& specimen : specimens) entry.block += specimen.bytes();
  return entry;
}

// ---- SDSZSJ.KU

/// One record of 511 bytes: 8.00 cm high, 12.00 cm2 in section.
struct ManualSpecimen {
  std::string sampleNo = "S-1";
  std::string projectNo = "P1";
  int testMethod = 1, shearMode = 0, stageFlag = 0;
  int cellPressure = 100;  // kPa
  int initialHeight = 800, consolidatedHeight = 0, initialArea = 1200, drainage = 0, shearRate = 0;
  int ringCoefficient = 0;
  std::map<int, int> consolidationPore = {}, consolidationVolume = {};
  std::map<int, int> stress = {}, pore = {}, volume = {};

  std::string bytes() const {
    return text(projectNo, 15) + text(sampleNo, 15) + byte(testMethod) + byte(shearMode) + byte(stageFlag) +
           word(cellPressure) + word(initialHeight) + word(consolidatedHeight) + word(initialArea) + word(0) +
           word(drainage) + word(shearRate) + word(ringCoefficient) + words(consolidationPore, 25) +
           words(consolidationVolume, 25) + words(stress, 52) + words(pore, 52) + words(volume, 52) +
           std::string(50, ' ');
  }
};

struct ManualEntry {
  std::string projectNo = "P1";
  std::string date = "2016/05/17";
  int count = 0, firstRecord = 0;

  std::string bytes() const {
    return text(projectNo, 15) + text(date, 10) + word(count) + byte(1) + byte(0) + word(firstRecord & 0xFFFF) +
           word(firstRecord >> 16) + word(0);
  }
};

/// An index area of 4000 bytes, whose unused places are blank, and the records behind it.
inline std::string manualFile(const std::vector<ManualEntry>& entries, const std::vector<ManualSpecimen>& specimens) {
  std::string file;
  for (const ManualEntry& entry : entries) file += entry.bytes();
  while (file.size() < 3500) file += ManualEntry{.projectNo = "", .date = ""}.bytes();
  file.resize(4000, '\0');
  for (const ManualSpecimen& specimen : specimens) file += specimen.bytes();
  return file;
}

// ---- *.SZD

/// One block from its marker to the word of the cell pressure.
struct NanjingBlock {
  std::string date = "2011/05/06", projectNo = "NJ1", sampleNo = "J1";
  std::vector<int> readings = {};  // 0.01 kPa; a zero is put behind an odd number of them
  int pressureWord = 0x42C8;       // 100 kPa
  bool hasEndMark = true;

  std::string bytes() const {
    std::string block = "SZ-data\n" + date + "\n" + projectNo + "\n" + sampleNo + "\n";
    for (int line = 4; line <= 12; ++line) block += std::to_string(line) + ".5\n";
    block += std::string(4, '\xEE');
    for (const int reading : readings) block += word(reading);
    if (readings.size() % 2 != 0) block += word(0);
    if (!hasEndMark) return block;
    return block + word(0x7141) + word(0x7A3D) + std::string(3, '\xEE') + word(pressureWord);
  }
};

}  // namespace triaxlab::testing
