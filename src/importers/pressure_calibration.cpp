#include "importers/pressure_calibration.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>

#include "common/conversions.h"
#include "common/fixed_text.h"
#include "common/text_number.h"
#include "platform/files.h"

namespace triaxlab {
namespace {

constexpr int kTables = 7;
constexpr std::uint64_t kLargestTable = 1'000'000;
constexpr std::string_view kHeadingMark = "123456";
constexpr std::size_t kFirstColumn = 4, kColumnWidth = 7;
constexpr char kEndOfText = '\x1A';  // of files from the days of DOS

/// The lines of a text, without their ends. Behind the last line end stands no line.
std::vector<std::string_view> linesOf(std::string_view text) {
  text = text.substr(0, text.find(kEndOfText));
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace

PressureCalibration::PressureCalibration(const std::filesystem::path& folder) {
  for (int number = 1; number <= kTables; ++number) {
    const auto file = findFile(folder, fmt::format("KGJYBXL{}.TB", number));
    if (!file) continue;
    const Bytes bytes = readWholeFile(*file, kLargestTable);
    add({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  }
}

PressureCalibration::Points PressureCalibration::pointsOf(std::string_view line) {
  Points points{};
  for (std::size_t j = 0; j < points.size(); ++j) {
    const std::size_t place = kFirstColumn + j * kColumnWidth;
    if (place < line.size()) points[j] = ParseNumber(line.substr(place, kColumnWidth));
  }
  return points;
}

void PressureCalibration::add(std::string_view table) {
  std::vector<std::string_view> lines = linesOf(table);
  // A blank line between two channels is one of zeros; behind the last it is none.
  while (!lines.empty() && Trim(lines.back()).empty()) lines.pop_back();
  auto line = std::ranges::find_if(
      lines, [](std::string_view text) { return text.find(kHeadingMark) != std::string_view::npos; });
  if (line == lines.end()) return;
  ++line;
  if (line != lines.end()) {
    if (!m_isFound) m_raw = pointsOf(*line);
    ++line;
  }
  m_isFound = true;
  for (; line != lines.end() && m_channels.size() < kMostChannels; ++line) m_channels.push_back(pointsOf(*line));
}

bool PressureCalibration::pointsAscend() const {
  return std::ranges::adjacent_find(m_raw, std::greater_equal<>()) == m_raw.end();
}

double PressureCalibration::pressureAt(std::int16_t raw, std::size_t channel) const {
  if (channel >= m_channels.size()) return 0;
  const Points& pressure = m_channels[channel];
  for (std::size_t j = 0; j + 1 < m_raw.size(); ++j) {
    if (!(m_raw[j] <= raw && raw <= m_raw[j + 1])) continue;
    const auto slope = quotient(pressure[j + 1] - pressure[j], m_raw[j + 1] - m_raw[j]);
    const double value = slope ? *slope * (raw - m_raw[j]) + pressure[j] : 0;
    return std::isfinite(value) ? value : 0;
  }
  return 0;
}

}  // namespace triaxlab
