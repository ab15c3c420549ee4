#include "store/project/project_update.h"

#include <algorithm>
#include <utility>

namespace triaxlab {
namespace {

constexpr int kLargestCountOnFile = 9999;

}  // namespace

ProjectUpdate::ProjectUpdate(FileUpdate& update, const ProjectKindInfo& info, std::filesystem::path path)
    : m_update(update), m_info(info), m_path(std::move(path)), m_exists(update.exists(m_path)) {
  if (!m_exists) return;
  const ReadAt readAt = [this](std::uint64_t offset, std::span<std::byte> into) {
    return m_update.readAt(m_path, offset, into);
  };
  m_head = readProjectHead(readAt, m_info, m_path);
  m_storedCount = m_head.sampleCount;
  const std::uint64_t size = m_update.size(m_path);
  m_shortage = shortageOf(m_path, size, m_info.recordSize, m_head.sampleCount);
  std::uint32_t position = 0;
  for (const SampleIndexEntry& entry : loadSampleIndex(readAt, size, m_info, m_head.sampleCount))
    m_sampleIndex.emplace(keyOf(entry.sampleNo.trimmed(), entry.testMethod), position++);
}

void ProjectUpdate::create(const ProjectHeader& header) {
  m_head = {header, 0};
  SetText(m_head.header.sampleCount, "0");
  m_exists = true;
}

std::optional<std::uint32_t> ProjectUpdate::find(std::string_view sampleNo, std::uint8_t testMethod) const {
  const auto found = m_sampleIndex.find(keyOf(sampleNo, testMethod));
  if (found == m_sampleIndex.end()) return std::nullopt;
  return found->second;
}

void ProjectUpdate::read(std::uint32_t position, std::span<std::byte> record) const {
  m_update.readAt(m_path, recordPosition(m_info.recordSize, position), record);
}

void ProjectUpdate::overwrite(std::uint32_t position, std::span<const std::byte> record) {
  completeShortFile();
  m_update.writeInPlace(m_path, recordPosition(m_info.recordSize, position), record);
  noteWrite(position);
}

void ProjectUpdate::overwriteWithCopy(std::uint32_t position, std::span<const std::byte> record) {
  completeShortFile();
  m_update.writeAt(m_path, recordPosition(m_info.recordSize, position), record);
  noteWrite(position);
}

void ProjectUpdate::noteWrite(std::uint32_t position) {
  m_written = true;
  if (std::cmp_less(position, m_storedCount)) m_replacesStored = true;
}

void ProjectUpdate::completeShortFile() {
  if (m_written || !m_update.exists(m_path)) return;
  const HeldRecords held = heldRecords(m_update.size(m_path), m_info.recordSize, m_head.sampleCount);
  for (auto position = static_cast<std::uint32_t>(held.whole); std::cmp_less(position, m_head.sampleCount); ++position)
    m_update.writeInPlace(m_path, recordPosition(m_info.recordSize, position), m_info.blankRecord());
}

Remarks ProjectUpdate::remarks() const {
  if (!m_written || !m_shortage) return {};
  return {*m_shortage};
}

bool ProjectUpdate::isFull() const { return m_head.sampleCount >= kLargestCountOnFile; }

void ProjectUpdate::append(std::span<const std::byte> record, std::string_view sampleNo, std::uint8_t testMethod) {
  const auto position = static_cast<std::uint32_t>(m_head.sampleCount);
  overwrite(position, record);
  m_sampleIndex.emplace(keyOf(sampleNo, testMethod), position);
  ++m_head.sampleCount;
  SetText(m_head.header.sampleCount, FormatPadded(m_head.sampleCount, 4));
}

void ProjectUpdate::finish(const FixedText<kEndTextWidth>& endText) {
  if (!m_written) return;
  m_update.writeAt(m_path, 0, bytesOf(m_head.header));
  if (!m_info.hasEndText) return;
  FixedText<kEndTextWidth> text;
  SetText(text, endText.trimmed());
  const auto count = static_cast<std::uint32_t>(m_head.sampleCount);
  m_update.writeAt(m_path, recordPosition(m_info.recordSize, count), bytesOf(text));
}

std::string ProjectUpdate::keyOf(std::string_view sampleNo, std::uint8_t testMethod) const {
  std::string key(sampleNo);
  if (m_info.identity.testMethodOffset) key += static_cast<char>(testMethod);
  return key;
}

}  // namespace triaxlab
