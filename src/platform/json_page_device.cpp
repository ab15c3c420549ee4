#include "platform/json_page_device.h"

#include <fmt/format.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "platform/recording_surface.h"
#include "platform/replaced_file.h"

namespace triaxlab {
namespace {

class JsonDevice : public PageDevice {
 public:
  explicit JsonDevice(std::filesystem::path file) : m_place(std::move(file)) {}

  DrawingSurface& beginPage(PageSize size) override {
    if (!m_file) {
      // A link is left standing: the file that it names is replaced.
      m_file.emplace(behindLinks(m_place));
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
    m_file->finish();
    m_file.reset();
  }

 private:
  void write(std::string_view text) { m_file->write(std::as_bytes(std::span(text))); }

  std::filesystem::path m_place;
  std::optional<ReplacedFile> m_file;  // from the first page to the end
  RecordingSurface m_page;
};

}  // namespace

std::unique_ptr<PageDevice> makeJsonDevice(const std::filesystem::path& file) {
  return std::make_unique<JsonDevice>(file);
}

}  // namespace triaxlab
