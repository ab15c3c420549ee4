// Raw databases of the apparatus with binary files: whatever the bytes are, a reader lists rows and reads all of them.
// One target for each kind of file; TRIAXLAB_FUZZ_SOURCES tells which readers it is for.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <numeric>
#include <string>
#include <string_view>

#include "common/user_error.h"
#include "importers/importer.h"
#include "store/workspace.h"

namespace {

using namespace triaxlab;

/// The input as a file, since the readers take files.
class InputFile {
 public:
  InputFile() : m_path(std::filesystem::temp_directory_path() / ("fuzz-ku-" + std::to_string(getpid()))) {}
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
  }
  const std::filesystem::path& write(const std::uint8_t* data, std::size_t size) {
    std::ofstream(m_path, std::ios::binary).write(reinterpret_cast<const char*>(data), static_cast<long>(size));
    return m_path;
  }

 private:
  std::filesystem::path m_path;
};

void importAll(const Importer& importer, const std::filesystem::path& path, Workspace& workspace) {
  const auto source = importer.open(path);
  std::vector<std::size_t> rows(source->rows().size());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  if (rows.size() > 100) std::abort();
  const ImportReport report = source->read(rows, workspace, {});
  if (report.sampleRows > kTableRows || workspace.TriaxialSampleTable.used().size() > kTableRows) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static InputFile file;
  static Workspace workspace;
  const auto& path = file.write(data, size);
  for (const std::string_view source : std::initializer_list<std::string_view>{TRIAXLAB_FUZZ_SOURCES}) {
    try {
      importAll(*importerOfId(source), path, workspace);
    } catch (const UserError&) {
      // More samples than the table has rows.
    }
  }
  return 0;
}
