// Journals: whatever the bytes are, the next start gets over them and nothing outside the folders of the project and
// summary files changes. The input is taken for a journal as it stands, and then for what a well-made journal says, so
// that the checksum doesn't keep the fuzzer from the paths and places: for each file a line with its path, behind it a
// byte for the deed, eight for the place, two for the size.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "fuzz_folders.h"
#include "store/safety/file_update.h"
#include "store/safety/save_journal.h"

namespace {

using namespace triaxlab;

void recoverTwice(const fuzz::Folders& folders) {
  for (int time = 0; time < 2; ++time) {
    try {
      FileUpdate::recover(folders.data());
    } catch (const UserError&) {
      // It can't be read.
    }
    // One that is complete, and whose files can't be written, stays for the next time.
    std::filesystem::remove_all(folders.data() / "journal");
  }
  folders.checkNothingStrayed();
}

template <class T>
T take(std::string_view& input) {
  T value{};
  const std::size_t size = std::min(sizeof value, input.size());
  std::memcpy(&value, input.data(), size);
  input.remove_prefix(size);
  return value;
}

/// What the input says, with the input itself as data.
std::vector<SaveJournalFile> filesOf(std::string_view input, SaveJournalSpans& data) {
  const std::string_view whole = input;
  std::vector<SaveJournalFile> files;
  while (!input.empty()) {
    const std::size_t end = std::min(input.find('\n'), input.size());
    SaveJournalFile file;
    file.path = input.substr(0, end);
    input.remove_prefix(std::min(end + 1, input.size()));
    file.deed = static_cast<SaveJournalDeed>(take<std::uint8_t>(input));
    const auto offset = take<std::uint64_t>(input);
    const std::string_view bytes = whole.substr(0, take<std::uint16_t>(input));
    if (file.deed == SaveJournalDeed::Write)
      file.pieces.push_back({offset, bytes.size(), data.append(std::as_bytes(std::span(bytes)))});
    files.push_back(file);
  }
  return files;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Folders folders;
  folders.clear();
  folders.put("HSZS/WKSZ1.txt", data, size / 2);
  folders.put("HSZS/WKSZ1.txt.new", data, size / 3);
  folders.put("journal", data, size);
  recoverTwice(folders);

  SaveJournalSpans spans;
  const std::vector<SaveJournalFile> files = filesOf({reinterpret_cast<const char*>(data), size}, spans);
  writeSaveJournal(folders.data() / "journal", files, spans);
  recoverTwice(folders);
  return 0;
}
