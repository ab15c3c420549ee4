// Files of the tool for physical tests: whatever the bytes are, values come out that fit their fields, or none. The
// input is taken for a file as it stands, and then for the count (two bytes) and the records of one, since the head is
// long and mostly unread.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz_folders.h"
#include "store/summary/physical_data.h"

namespace {

using namespace triaxlab;

constexpr std::size_t kCount = 49, kRecords = 22699;

void lookUp(const Workspace& workspace) {
  for (const std::string_view sampleNo : {"S1", "", "  x "}) {
    for (const PhysicalValue& value : physicalValues(workspace, "P1", sampleNo)) {
      const bool isTrimmed = value.text.empty() || (value.text.front() != ' ' && value.text.back() != ' ');
      if (value.label.empty() || value.text.size() > 16 || !isTrimmed) std::abort();
      if (value.text.find('\0') != std::string::npos) std::abort();
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Folders folders;
  static Workspace workspace;
  folders.assignTo(workspace);
  folders.clear();
  folders.put("ZMSJ/P1.dat", data, size);
  lookUp(workspace);

  std::string file(kRecords, '\0');
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  file.replace(kCount, 2, input.substr(0, 2));
  file.resize(kRecords);
  file += input.substr(std::min<std::size_t>(size, 2));
  folders.put("ZMSJ/P1.dat", reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
  lookUp(workspace);
  folders.checkNothingStrayed();
  return 0;
}
