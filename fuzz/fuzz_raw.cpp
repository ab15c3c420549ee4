// Raw databases: whatever the bytes are, the reader of each source refuses them, or lists rows and reads all of them.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <string>

#include "common/user_error.h"
#include "importers/importer.h"
#include "store/workspace.h"

namespace {

using namespace triaxlab;

/// The input as a file, since the readers take files.
class InputFile {
 public:
  InputFile() : m_path(std::filesystem::temp_directory_path() / ("fuzz-raw-" + std::to_string(getpid()))) {}
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
  const auto source = openRawSource(importer, path);
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
  for (const Importer* importer : importers()) {
    if (!importer->isBuilt()) continue;
    try {
      importAll(*importer, path, workspace);
    } catch (const UserError&) {
      // A file of another source, or more samples than the table has rows.
    }
  }
  return 0;
}
