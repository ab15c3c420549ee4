#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "common/user_error.h"
#include "platform/files.h"
#include "store/workspace.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {

// Files are made and compared here as plain bytes, by the offsets of the formats and not by the records' members: a
// member that moved would be found out.

/// `text` in a field of `width` places.
inline std::string field(std::string_view text, std::size_t width) {
  std::string places(text.substr(0, width));
  places.resize(width, ' ');
  return places;
}

/// Writes `text` over the bytes from `offset` on.
inline void put(std::string& bytes, std::size_t offset, std::string_view text) {
  bytes.replace(offset, text.size(), text);
}

inline std::string int16Bytes(int value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>((value >> 8) & 0xFF)};
}

inline std::string floatBytes(float value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(bytes.data(), &value, sizeof value);
  if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(bytes);
  return bytes;
}

inline constexpr std::size_t kHeaderSize = 81, kTriaxialSize = 38576, kEndTextSize = 100;

struct HeaderTexts {
  std::string sampleCount, projectNo;
  std::string createdDate = "2024/01/02", processedDate = "2024/03/04", testDate = "2024/02/28", operatorName = "Zhao";
  std::string versionTag = "V2.0";
};

/// The 81 bytes of a project file's head.
inline std::string headerBytes(const HeaderTexts& texts) {
  return field(texts.sampleCount, 4) + field(texts.projectNo, 15) + field(texts.createdDate, 10) +
         field(texts.processedDate, 10) + field(texts.testDate, 10) + field(texts.operatorName, 10) +
         field(texts.versionTag, 20) + std::string(2, '\0');
}

/// A triaxial record without readings: texts blank, numbers 0.
inline std::string emptyTriaxial() {
  std::string record(kTriaxialSize, ' ');
  // The numbers between the texts: flags and rates and results, strain limits, consolidation to Af.
  put(record, 29, std::string(27, '\0'));
  put(record, 321, std::string(5, '\0'));
  put(record, 25916, std::string(38366 - 25916, '\0'));
  return record;
}

/// A sample with one specimen at the given cell pressure.
inline std::string triaxialBytes(std::string_view projectNo, std::string_view sampleNo, int testMethod = 2,
                                 std::string_view cellPressure = "100") {
  std::string record = emptyTriaxial();
  put(record, 0, field(projectNo, 15));
  put(record, 15, field(sampleNo, 14));
  record[32] = static_cast<char>(testMethod);
  put(record, 56, field(cellPressure, 6));
  put(record, 476, field("52", 6));
  return record;
}

template <class Record>
Record recordOf(const std::string& bytes) {
  Record record;
  EXPECT_EQ(bytes.size(), sizeof record);
  std::memcpy(&record, bytes.data(), sizeof record);
  return record;
}

template <class Record>
std::string bytesOfRecord(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// Where two byte strings part, as a short sentence; empty when they are equal. Whole files are too long to print.
inline std::string difference(const std::string& got, const std::string& wanted) {
  if (got == wanted) return {};
  if (got.size() != wanted.size())
    return "size " + std::to_string(got.size()) + " instead of " + std::to_string(wanted.size());
  std::size_t at = 0;
  while (got[at] == wanted[at]) ++at;
  const std::size_t from = at < 8 ? 0 : at - 8;
  return "at " + std::to_string(at) + ": \"" + got.substr(from, 32) + "\" instead of \"" + wanted.substr(from, 32) +
         '"';
}
#define EXPECT_SAME_BYTES(got, wanted) EXPECT_EQ(difference(got, wanted), "")
#define ASSERT_SAME_BYTES(got, wanted) ASSERT_EQ(difference(got, wanted), "")

/// A laboratory with an application folder and a data folder on disk; today is 2024-05-06.
class StoreTest : public ::testing::Test {
 protected:
  StoreTest() {
    for (const char* name : {"app", "data/HSZS", "data/ZMSJ", "data/PTU"})
      std::filesystem::create_directories(m_folder.path() / name);
    workspace.applicationFolder = m_folder.path() / "app";
    workspace.dataFolder = m_folder.path() / "data";
    workspace.fixedToday = Date{2024, 5, 6};
  }

  const std::filesystem::path& folder() const { return m_folder.path(); }
  std::filesystem::path data(const std::string& name) const { return workspace.dataFolder / name; }
  void write(const std::string& name, std::string_view bytes) const { m_folder.write("data/" + name, bytes); }
  std::string read(const std::string& name) const { return m_folder.read("data/" + name); }
  /// The first bytes of a file that may be long.
  std::string readStart(const std::string& name, std::size_t size) const {
    std::string bytes(size, '#');
    bytes.resize(File(data(name), File::Mode::Read).readAt(0, std::as_writable_bytes(std::span(bytes))));
    return bytes;
  }
  /// Content of every file below the test's folder; of folders, that they are there.
  std::map<std::string, std::string> snapshot() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder())) {
      std::string& content = files[entry.path().string()];
      if (!entry.is_regular_file()) continue;
      const Bytes bytes = readWholeFile(entry.path(), std::uint64_t{1} << 30);
      content.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    }
    return files;
  }
  /// Names of the copies that are kept of project files, in ascending order.
  std::vector<std::string> backups() const { return listFiles(data("HSZS/backup"), "", ""); }
  /// Whether there is a file or folder spelled so, also where the system finds it by another spelling.
  bool has(const std::string& name) const {
    const std::filesystem::path path = data(name);
    if (!std::filesystem::exists(path)) return false;
    const std::filesystem::directory_iterator beside(path.parent_path());
    return std::any_of(begin(beside), end(beside),
                       [&path](const auto& entry) { return entry.path().filename() == path.filename(); });
  }

  TriaxialSampleRecord& row(std::size_t index) { return workspace.TriaxialSampleTable[index]; }
  void setRow(std::size_t index, const std::string& record) { row(index) = recordOf<TriaxialSampleRecord>(record); }
  void clearRows() { workspace.TriaxialSampleTable.clear(); }

 private:
  TemporaryFolder m_folder;

 protected:
  Workspace workspace;
};

/// The sentence of the UserError that `act` throws; "nothing thrown" otherwise.
template <class Act>
std::string sentenceOf(Act act) {
  try {
    act();
  } catch (const UserError& error) {
    return error.what();
  }
  return "nothing thrown";
}

}  // namespace triaxlab::testing
