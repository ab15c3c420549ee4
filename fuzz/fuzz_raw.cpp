// Raw databases: whatever the bytes are, the reader of each source refuses them, or lists rows and reads all of them.
#include <unistd.h>

#include <algorithm>
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

/// The input as a file, since the readers take files, with the calibration of K0 stations beside it.
class InputFile {
 public:
  InputFile() : m_folder(std::filesystem::temp_directory_path() / ("fuzz-raw-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(m_folder);
    std::ofstream(m_folder / "KGJYBXL1.TB") << "123456\n"
                                               "RAW   -3000      0   3000\n"
                                               "C01   -10.0    0.0   60.5\n"
                                               "C02   -10.0    0.0  120.5\n";
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
  }
  const std::filesystem::path& folder() const { return m_folder; }
  std::filesystem::path write(const std::uint8_t* data, std::size_t size) const {
    const std::filesystem::path path = m_folder / "input";
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(data), static_cast<long>(size));
    return path;
  }

 private:
  std::filesystem::path m_folder;
};

void importAll(const Importer& importer, const std::filesystem::path& path, Workspace& workspace) {
  const auto source = openRawSource(importer, path);
  std::vector<std::size_t> rows(source->rows().size());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  if (rows.size() > 100) std::abort();
  const ImportReport report = source->read(rows, workspace, {});
  const std::size_t used =
      std::max({workspace.TriaxialSampleTable.used().size(), workspace.UnconfinedSampleTable.used().size(),
                workspace.K0SampleTable.used().size(), workspace.TK0SampleTable.used().size()});
  if (report.sampleRows > kTableRows || used > kTableRows) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static InputFile file;
  static Workspace workspace;
  workspace.sourceFolder = file.folder().string();
  workspace.settings.toggles.sixteenUnconfined = size % 2 != 0;
  const auto path = file.write(data, size);
  for (const Importer* importer : importers()) {
    try {
      importAll(*importer, path, workspace);
    } catch (const UserError&) {
      // A file of another source, or more samples than the table has rows.
    }
  }
  return 0;
}
