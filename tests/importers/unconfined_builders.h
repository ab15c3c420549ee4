#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "importers/ku_builder.h"

namespace triaxlab::testing {

// Raw databases of the unconfined sources, written out byte by byte, apart from the structs that read them. Readings
// are given by their index, from 0.

// ---- KZJSJ.KU

/// A side of a group, 64 bytes: 8.00 cm high, 12.00 cm2 in section, a ring of 1.25.
struct KzjSide {
  int heightWhole = 8, heightFraction = 0, areaWhole = 12, areaFraction = 0, ring = 1250;
  std::map<int, int> readings = {};  // 0.1 division

  std::string bytes() const {
    return word(heightWhole) + word(heightFraction) + word(areaWhole) + word(areaFraction) + std::string(4, ' ') +
           word(ring) + std::string(2, ' ') + words(readings, 23) + std::string(2, ' ');
  }
};

/// A group of 276 bytes. Packed numbers are given as they stand in the file, the last byte first to be read.
struct KzjGroup {
  int kind = 5;                                                                              // a reading each 1 %
  std::array<int, 3> packedSampleNo{0xFF, 0x1F, 0x10}, packedRemouldedNo{0xFF, 0x1F, 0x10};  // 101
  KzjSide undisturbed = {}, remoulded = {};

  std::string bytes() const {
    std::string head = byte(' ') + byte(kind);
    for (const auto& packed : {packedSampleNo, packedRemouldedNo})
      for (const int places : packed) head += byte(places);
    return head + undisturbed.bytes() + remoulded.bytes() + std::string(140, ' ');
  }
};

/// Groups behind their count, then the long numbers.
inline Entry kzjEntry(const std::vector<KzjGroup>& groups, std::string_view numbers = "") {
  Entry entry;
  entry.groupCount = static_cast<int>(groups.size());
  entry.block = byte(entry.groupCount);
  for (const KzjGroup& group : groups) entry.block += group.bytes();
  entry.block += text(numbers, 644);
  return entry;
}

// ---- HWXSJ.KU

/// A specimen of 120 bytes: 8.00 cm high, 12.00 cm2 in section, a ring of 1.25.
struct HwxSpecimen {
  std::string projectNo = "P1", sampleNo = "S-1";
  int side = 1;
  int height = 800, area = 1200, ring = 1250;
  std::map<int, int> readings = {};  // 0.1 division

  std::string bytes() const {
    return byte(' ') + text(projectNo, 10) + text(sampleNo, 10) + byte(side) + std::string(4, ' ') + word(height) +
           word(area) + word(ring) + std::string(4, ' ') + words(readings, 42);
  }
};

/// Specimens behind their count.
inline Entry hwxEntry(const std::vector<HwxSpecimen>& specimens) {
  Entry entry;
  entry.groupCount = static_cast<int>(specimens.size());
  entry.block = byte(entry.groupCount);
  for (const HwxSpecimen& specimen : specimens) entry.block += specimen.bytes();
  return entry;
}

}  // namespace triaxlab::testing
