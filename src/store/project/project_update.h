#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "common/fixed_text.h"
#include "common/user_error.h"
#include "store/project/project_frame.h"
#include "store/safety/file_update.h"

namespace triaxlab {

/// One project file during a save: knows which samples the file holds and writes records through the FileUpdate. The
/// header and the end text are kept back until `finish`, since only their last state reaches the disk. Records are not
/// copied: they stay where and as they are until the update is committed.
class ProjectUpdate {
 public:
  /// Loads head and sample index when the file exists. UserError as readProjectHead.
  ProjectUpdate(FileUpdate& update, const ProjectKindInfo& info, std::filesystem::path path);

  bool exists() const { return m_exists; }
  /// A record was written.
  bool isWritten() const { return m_written; }
  /// A record that stood in the file before was written over.
  bool replacesStored() const { return m_replacesStored; }
  /// What the file lacked and the save has filled with blank records, if a record was written.
  Remarks remarks() const;
  /// Of a file that exists.
  ProjectHeader& header() { return m_head.header; }
  /// The save makes the file, with this header.
  void create(const ProjectHeader& header);

  /// Position of the first stored record with this number and method; the method counts in triaxial files alone.
  std::optional<std::uint32_t> find(std::string_view sampleNo, std::uint8_t testMethod) const;
  /// Reads a stored record over what `record` holds; a file that ends early leaves the rest.
  void read(std::uint32_t position, std::span<std::byte> record) const;
  void overwrite(std::uint32_t position, std::span<const std::byte> record);
  /// For a record that won't stay.
  void overwriteWithCopy(std::uint32_t position, std::span<const std::byte> record);
  /// The four places of the count end at 9999 samples.
  bool isFull() const;
  void append(std::span<const std::byte> record, std::string_view sampleNo, std::uint8_t testMethod);

  /// Writes header and end text, if a record was written.
  void finish(const FixedText<kEndTextWidth>& endText);

 private:
  /// Before the first record is written: what the file doesn't hold whole of the records that its header claims becomes
  /// blank, as it reads, and not a gap of zero bytes.
  void completeShortFile();
  void noteWrite(std::uint32_t position);
  std::string keyOf(std::string_view sampleNo, std::uint8_t testMethod) const;

  FileUpdate& m_update;
  const ProjectKindInfo& m_info;
  std::filesystem::path m_path;
  bool m_exists;
  std::optional<std::string> m_shortage;  // of a file that holds fewer samples than its header claims
  bool m_written = false;
  bool m_replacesStored = false;
  int m_storedCount = 0;  // of the file as it was found
  ProjectHead m_head;
  std::unordered_map<std::string, std::uint32_t> m_sampleIndex;  // number and method to the first such record
};

}  // namespace triaxlab
