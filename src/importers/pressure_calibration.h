#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "common/user_error.h"

namespace triaxlab {

/// The calibration of the pressure transducers of the K0 stations: for each channel the engineering values at raw
/// points that all channels share. It lies beside the raw database in text files:
///
///     some lines, of which one has 123456 in it: the heading
///     the raw points        22 columns of 7 bytes, the first from the fifth byte of the line on
///     a line a channel      the same columns; what stands in front of them is a name
///
/// Lines end with LF or CR LF. A column that isn't there or is no number reads as 0.
class PressureCalibration {
 public:
  static constexpr std::size_t kMostChannels = 64;

  PressureCalibration() = default;
  /// KGJYBXL1.TB to KGJYBXL7.TB of the folder, as far as they are there. UserError when one can't be read.
  explicit PressureCalibration(const std::filesystem::path& folder);

  /// Adds the channels of a file's text behind those that are there already, 64 at most; the first file gives the raw
  /// points. A text without heading adds nothing.
  void add(std::string_view table);

  bool isFound() const { return m_isFound; }
  std::size_t channelCount() const { return m_channels.size(); }
  /// What follows on a point that isn't above the one in front can't be looked up.
  bool pointsAscend() const;

  /// The pressure at a raw word, kPa, between the first two points about it; 0 outside the points, for a channel that
  /// doesn't exist, and where the two points are one.
  double pressureAt(std::int16_t raw, std::size_t channel) const;

 private:
  using Points = std::array<double, 22>;
  static Points pointsOf(std::string_view line);

  bool m_isFound = false;
  Points m_raw{};
  std::vector<Points> m_channels;
};

}  // namespace triaxlab
