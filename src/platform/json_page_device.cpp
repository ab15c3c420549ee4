#include "platform/json_page_device.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/recording_surface.h"

namespace triaxlab {
namespace {

class JsonDevice : public PageDevice {
 public:
  explicit JsonDevice(const std::filesystem::path& file) : m_place(behindLinks(file)), m_beside(m_place) {
    m_beside += ".new";
  }

  ~JsonDevice() override {
    if (!m_file) return;
    m_file.reset();
    std::error_code keptForNothing;
    std::filesystem::remove(m_beside, keptForNothing);
  }

  DrawingSurface& beginPage(PageSize size) override {
    if (!m_file) {
      m_file.emplace(m_beside, File::Mode::Create);
      write(fmt::format(R"({{"width": {}, "height": {}, "pages": [)", size.width, size.height));
    } else {
      write(",\n  ");
    }
    m_page.clear();
    return m_page;
  }

  void endPage() override {
    std::string text = "[";
    for (const DrawnOperation& operation : m_page.operations())
      text.append(text.size() == 1 ? "\n" : ",\n").append("  ").append(jsonOf(operation));
    write(text + ']');
  }

  void finish() override {
    if (!m_file) return;
    write("]}\n");
    m_file->sync();
    renameFile(m_beside, m_place);
    m_file.reset();
    syncFolder(m_place.parent_path());
  }

 private:
  void write(std::string_view text) {
    m_file->writeAt(m_written, std::as_bytes(std::span(text)));
    m_written += text.size();
  }

  std::filesystem::path m_place, m_beside;
  std::optional<File> m_file;  // from the first page to the end
  std::uint64_t m_written = 0;
  RecordingSurface m_page;
};

}  // namespace

std::unique_ptr<PageDevice> makeJsonDevice(const std::filesystem::path& file) {
  return std::make_unique<JsonDevice>(file);
}

}  // namespace triaxlab
