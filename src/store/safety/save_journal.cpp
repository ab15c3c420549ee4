#include "store/safety/save_journal.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <iterator>
#include <limits>
#include <utility>

#include "common/in_memory.h"
#include "common/little.h"
#include "common/small_letters.h"
#include "common/user_error.h"
#include "store/project/project_number.h"
#include "store/safety/save_journal_format.h"

namespace triaxlab {
namespace {

/// Unit of reading.
constexpr std::size_t kBlock = std::size_t{1} << 20;
/// No project or summary file comes near these; a journal that goes beyond them is not one of ours.
constexpr std::uint64_t kLargestFile = std::numeric_limits<std::int32_t>::max();
constexpr std::uint64_t kLargestIndex = std::uint64_t{16} << 20;
/// All that a save writes is in memory before; this many bytes are read in a second or two.
constexpr std::uint64_t kLargestData = kLargestFile;

/// Tells a journal that was cut or torn by a crash from a whole one. Bytes are taken in groups of four words, each word
/// into a lane of its own, which a processor works on side by side; in how many spans they come makes no difference.
class Checksum {
 public:
  void add(std::span<const std::byte> bytes) {
    while (m_pending > 0 && !bytes.empty()) {
      addByte(bytes.front());
      bytes = bytes.subspan(1);
    }
    for (; bytes.size() >= sizeof(Group); bytes = bytes.subspan(sizeof(Group))) {
      Group group;
      std::memcpy(&group, bytes.data(), sizeof group);
      mixGroup(group);
    }
    for (const std::byte byte : bytes) addByte(byte);
  }

  /// Of all that was added; nothing is added afterwards.
  std::uint64_t value() {
    std::uint64_t result = m_pending;
    for (const std::uint64_t lane : m_lanes) result = mixed(result, lane);
    for (std::size_t i = 0; i < m_pending; ++i) result = mixed(result, std::to_integer<std::uint64_t>(m_started[i]));
    return result;
  }

 private:
  using Group = std::array<Little<std::uint64_t>, 4>;

  static std::uint64_t mixed(std::uint64_t value, std::uint64_t word) {
    value = (value ^ word) * 0x9E3779B97F4A7C15;
    return value ^ (value >> 29);
  }
  void mixGroup(const Group& group) {
    for (std::size_t lane = 0; lane < m_lanes.size(); ++lane) m_lanes[lane] = mixed(m_lanes[lane], group[lane]);
  }
  void addByte(std::byte byte) {
    m_started[m_pending++] = byte;
    if (m_pending < m_started.size()) return;
    mixGroup(std::bit_cast<Group>(m_started));
    m_pending = 0;
  }

  std::array<std::uint64_t, 4> m_lanes{1, 2, 3, 4};
  std::array<std::byte, sizeof(Group)> m_started{};  // the first m_pending of them wait for the rest of their group
  std::size_t m_pending = 0;
};

void append(Bytes& to, std::span<const std::byte> bytes) { to.insert(to.end(), bytes.begin(), bytes.end()); }

Bytes indexOf(const std::vector<SaveJournalFile>& files) {
  Bytes index;
  for (const SaveJournalFile& file : files) {
    const SaveJournalIndexFile head{static_cast<std::uint16_t>(file.path.size()), static_cast<std::uint8_t>(file.deed),
                                    static_cast<std::uint32_t>(file.pieces.size())};
    append(index, bytesOf(head));
    append(index, std::as_bytes(std::span(file.path)));
    for (const SaveJournalPiece& piece : file.pieces) {
      const SaveJournalIndexPiece entry{piece.offset, piece.size};
      append(index, bytesOf(entry));
    }
  }
  return index;
}

/// Takes a T off the front of `bytes`; false when there is none.
template <class T>
bool take(std::span<const std::byte>& bytes, T& value) {
  if (bytes.size() < sizeof value) return false;
  std::memcpy(&value, bytes.data(), sizeof value);
  bytes = bytes.subspan(sizeof value);
  return true;
}

/// Reads an index, with every number in it checked. The pieces are exactly as large as the data, so an index can't ask
/// for more disk than its journal takes.
class IndexParser {
 public:
  IndexParser(std::span<const std::byte> index, std::uint64_t dataSize) : m_rest(index), m_dataSize(dataSize) {}

  std::optional<std::vector<SaveJournalFile>> files() {
    std::vector<SaveJournalFile> files;
    while (!m_rest.empty())
      if (!takeFile(files.emplace_back())) return std::nullopt;
    if (m_dataTaken != m_dataSize) return std::nullopt;
    return files;
  }

 private:
  static std::uint32_t mostPieces(SaveJournalDeed deed) {
    if (deed == SaveJournalDeed::Replace) return 1;
    return deed == SaveJournalDeed::Remove ? 0 : std::numeric_limits<std::uint32_t>::max();
  }

  bool takeFile(SaveJournalFile& file) {
    SaveJournalIndexFile head;
    if (!take(m_rest, head) || m_rest.size() < head.pathLength) return false;
    file.path.assign(reinterpret_cast<const char*>(m_rest.data()), head.pathLength);
    m_rest = m_rest.subspan(head.pathLength);
    file.deed = static_cast<SaveJournalDeed>(head.deed);
    if (file.deed > SaveJournalDeed::Remove || head.pieceCount > mostPieces(file.deed)) return false;
    if (file.deed == SaveJournalDeed::Replace && std::exchange(m_replaces, true)) return false;
    if (!isSaveJournalPath(file.path) || m_rest.size() / sizeof(SaveJournalIndexPiece) < head.pieceCount) return false;
    file.pieces.resize(head.pieceCount);
    return std::all_of(file.pieces.begin(), file.pieces.end(),
                       [this](SaveJournalPiece& piece) { return takePiece(piece); });
  }

  bool takePiece(SaveJournalPiece& piece) {
    SaveJournalIndexPiece entry;
    if (!take(m_rest, entry)) return false;
    piece = {entry.offset, entry.size, m_dataTaken};
    if (piece.size > m_dataSize - m_dataTaken || piece.size > kLargestFile || piece.offset > kLargestFile - piece.size)
      return false;
    m_dataTaken += piece.size;
    return true;
  }

  std::span<const std::byte> m_rest;
  std::uint64_t m_dataSize, m_dataTaken = 0;
  bool m_replaces = false;
};

template <class T>
bool readObject(const File& file, std::uint64_t offset, T& object) {
  return file.readAt(offset, writableBytesOf(object)) == sizeof object;
}

/// The head of a journal whose sizes agree with that of its file.
std::optional<SaveJournalHead> plausibleHead(const File& file) {
  SaveJournalHead head;
  if (!readObject(file, 0, head) || head.mark != kSaveJournalBeginMark) return std::nullopt;
  const std::uint64_t size = file.size(), frame = sizeof(SaveJournalHead) + sizeof(SaveJournalFoot);
  if (size < frame || head.indexSize > kLargestIndex || head.indexSize > size - frame) return std::nullopt;
  if (head.dataSize > kLargestData) return std::nullopt;
  if (head.dataSize != size - frame - head.indexSize) return std::nullopt;
  return head;
}

/// Adds `size` bytes of the file to the checksum.
bool addData(const File& file, std::uint64_t offset, std::uint64_t size, Checksum& checksum) {
  Bytes block;
  for (std::uint64_t done = 0; done < size; done += block.size()) {
    block.resize(inMemory(std::min<std::uint64_t>(kBlock, size - done)));
    if (file.readAt(offset + done, block) != block.size()) return false;
    checksum.add(block);
  }
  return true;
}

bool isComplete(const std::filesystem::path& journal) {
  return fileExists(journal) && FoundSaveJournal::open(journal).has_value();
}

/// Over a network a rename may be done and yet be reported as failed.
void giveName(const std::filesystem::path& unfinished, const std::filesystem::path& journal) {
  try {
    renameFile(unfinished, journal);
  } catch (const UserError&) {
    if (fileExists(unfinished)) throw;
  }
}

/// In small letters: a data folder that comes from elsewhere may spell them so.
constexpr std::array<std::string_view, 2> kFolders{"hszs", "zmsj"};

bool isFileName(std::string_view name) {
  constexpr std::string_view kNeverInNames = "/\\:";
  return !name.empty() && name != "." && name != ".." && name.find_first_of(kNeverInNames) == std::string_view::npos &&
         std::none_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

}  // namespace

bool isSaveJournalPath(std::string_view path) {
  const std::size_t slash = path.find('/');
  return path.size() <= std::numeric_limits<std::uint16_t>::max() && slash != std::string_view::npos &&
         std::find(kFolders.begin(), kFolders.end(), caseless(path.substr(0, slash))) != kFolders.end() &&
         isFileName(path.substr(slash + 1));
}

std::uint64_t SaveJournalSpans::append(std::span<const std::byte> bytes) {
  const std::uint64_t position = m_size;
  if (!bytes.empty()) m_spans.emplace_hint(m_spans.end(), position, bytes);
  m_size += bytes.size();
  return position;
}

void SaveJournalSpans::read(std::uint64_t position, std::uint64_t size, const Visitor& visit) const {
  if (size == 0) return;
  auto span = std::prev(m_spans.upper_bound(position));
  while (size > 0) {
    const std::span<const std::byte> rest = span->second.subspan(inMemory(position - span->first));
    const auto part = rest.first(inMemory(std::min<std::uint64_t>(size, rest.size())));
    visit(part);
    position += part.size();
    size -= part.size();
    ++span;
  }
}

void writeSaveJournal(const std::filesystem::path& journal, const std::vector<SaveJournalFile>& files,
                      const SaveJournalSpans& data) {
  const Bytes index = indexOf(files);
  SaveJournalHead head;
  head.indexSize = index.size();
  head.dataSize = data.size();
  if (head.indexSize > kLargestIndex || head.dataSize > kLargestData)
    throw UserError(
        fmt::format("一次保存的数据太多：{} 字节，最多 {} 字节。请分几次保存。", head.dataSize, kLargestData));
  PassingFile unfinished(journal.parent_path(), kUnfinishedSaveJournal);
  File file = unfinished.make();
  std::uint64_t end = 0;
  Checksum checksum;
  const auto put = [&](std::span<const std::byte> bytes) {
    file.writeAt(end, bytes);
    end += bytes.size();
  };
  const auto putChecked = [&](std::span<const std::byte> bytes) {
    checksum.add(bytes);
    put(bytes);
  };
  putChecked(bytesOf(head));
  putChecked(index);
  data.read(0, data.size(), putChecked);
  SaveJournalFoot foot;
  foot.checksum = checksum.value();
  put(bytesOf(foot));
  file.sync();
  if (isComplete(journal)) throw UserError("另一个程序正在保存，请稍后再试。");
  giveName(unfinished.path(), journal);
  unfinished.leave();
}

std::optional<FoundSaveJournal> FoundSaveJournal::open(const std::filesystem::path& journal) {
  // A link in its place is none of ours, whatever it leads to. What can't be looked at is no link yet: the open tells.
  std::error_code told;
  if (std::filesystem::is_symlink(journal, told)) return std::nullopt;
  File file = File::below(journal.parent_path(), journal, File::Mode::Read);
  const std::optional<SaveJournalHead> head = plausibleHead(file);
  if (!head) return std::nullopt;
  Bytes index(inMemory(head->indexSize));
  const std::uint64_t dataStart = sizeof(SaveJournalHead) + index.size(), dataEnd = dataStart + head->dataSize;
  SaveJournalFoot foot;
  if (file.readAt(sizeof(SaveJournalHead), index) != index.size() || !readObject(file, dataEnd, foot))
    return std::nullopt;
  Checksum checksum;
  checksum.add(bytesOf(*head));
  checksum.add(index);
  if (foot.mark != kSaveJournalEndMark || !addData(file, dataStart, head->dataSize, checksum)) return std::nullopt;
  if (foot.checksum != checksum.value()) return std::nullopt;
  std::optional<std::vector<SaveJournalFile>> files = IndexParser(index, head->dataSize).files();
  if (!files) return std::nullopt;
  FoundSaveJournal found(std::move(file), dataStart, std::move(*files));
  if (!std::all_of(found.m_files.begin(), found.m_files.end(), [&](SaveJournalFile& f) { return found.readName(f); }))
    return std::nullopt;
  return found;
}

/// The name of a new content that isn't one of ours makes the journal void.
bool FoundSaveJournal::readName(SaveJournalFile& file) const {
  if (file.deed != SaveJournalDeed::Replace || file.pieces.empty()) return true;
  constexpr std::uint64_t kLongestName = 255;
  const SaveJournalPiece name = std::exchange(file.pieces, {}).front();
  if (name.size > kLongestName) return false;
  file.newContent.clear();
  read(name.dataPosition, name.size, [&file](std::span<const std::byte> bytes) {
    file.newContent.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  });
  return isPassing(file.newContent, kNewContent);
}

FoundSaveJournal::FoundSaveJournal(File file, std::uint64_t dataStart, std::vector<SaveJournalFile> files)
    : m_file(std::move(file)), m_dataStart(dataStart), m_files(std::move(files)) {}

void FoundSaveJournal::read(std::uint64_t position, std::uint64_t size, const Visitor& visit) const {
  Bytes block;
  for (std::uint64_t done = 0; done < size; done += block.size()) {
    block.resize(inMemory(std::min<std::uint64_t>(kBlock, size - done)));
    if (m_file.readAt(m_dataStart + position + done, block) != block.size())
      throw UserError(fmt::format("读取文件“{}”失败：它变短了。", textOfPath(m_file.path())));
    visit(block);
  }
}

}  // namespace triaxlab
