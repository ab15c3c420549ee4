#include <fmt/core.h>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/user_error.h"
#include "platform/chinese_font.h"
#include "platform/files.h"
#include "platform/qt/application.h"
#include "platform/qt/painter_surface.h"
#include "platform/qt/picture_device.h"
#include "platform/replaced_file.h"

namespace triaxlab {
namespace {

constexpr int kPixelsPerInch = 200;
constexpr double kTwipsPerPixel = 1440.0 / kPixelsPerInch;
constexpr int kPixelsPerMetre = 7874;

class PictureDevice : public PageDevice {
 public:
  PictureDevice(std::filesystem::path folder, std::string_view prefix) : m_folder(std::move(folder)), m_prefix(prefix) {
    requireChineseFont();
    if (!folderExists(m_folder) && !makeFolder(m_folder))
      throw UserError(fmt::format("不能建立图片文件夹“{}”。", textOfPath(m_folder)));
  }

  DrawingSurface& beginPage(PageSize size) override {
    m_image = QImage(pixels(size.width), pixels(size.height), QImage::Format_RGB32);
    m_image.fill(Qt::white);
    m_image.setDotsPerMeterX(kPixelsPerMetre);
    m_image.setDotsPerMeterY(kPixelsPerMetre);
    m_painter.begin(&m_image);
    m_painter.scale(1 / kTwipsPerPixel, 1 / kTwipsPerPixel);
    return m_surface.emplace(m_painter, PainterSurface::Medium::Picture);
  }

  void endPage() override {
    m_surface.reset();
    m_painter.end();
    QBuffer content;
    const std::filesystem::path file = fileOrNew(m_folder, fmt::format("{}{}.BMP", m_prefix, m_pictures.size() + 1));
    if (!m_image.save(&content, "BMP")) throw UserError(fmt::format("无法生成图片文件“{}”。", textOfPath(file)));
    const QByteArray& bytes = content.data();
    // A link that has the picture's name goes; what it led to stays.
    ReplacedFile& picture = *m_pictures.emplace_back(std::make_unique<ReplacedFile>(file));
    picture.write(std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    picture.close();
  }

  void finish() override {
    for (const auto& picture : m_pictures) picture->finish();
  }

 private:
  static int pixels(int twips) { return static_cast<int>(std::lround(twips / kTwipsPerPixel)); }

  PaintingApplication m_application;  // first: all that follows paints
  std::filesystem::path m_folder;
  std::string m_prefix;
  std::vector<std::unique_ptr<ReplacedFile>> m_pictures;  // that wait for the last one
  QImage m_image;
  QPainter m_painter;
  std::optional<PainterSurface> m_surface;
};

}  // namespace

std::unique_ptr<PageDevice> makePictureDevice(const std::filesystem::path& folder, std::string_view prefix) {
  return std::make_unique<PictureDevice>(folder, prefix);
}

}  // namespace triaxlab
