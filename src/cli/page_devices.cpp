#include "cli/page_devices.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "common/small_letters.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "platform/json_page_device.h"
#ifdef TRIAXLAB_HAS_QT
#include "platform/pdf_device.h"
#include "platform/qt/picture_device.h"
#include "platform/qt/printer_device.h"
#endif

namespace triaxlab::cli {
namespace {

using MakeDevice = std::unique_ptr<PageDevice> (*)(const std::filesystem::path&, const DocumentInfo&);

#ifdef TRIAXLAB_HAS_QT
constexpr MakeDevice makePdf = makePdfDevice;
constexpr auto makePictures = makePictureDevice;
#else
std::unique_ptr<PageDevice> refuse(const std::filesystem::path& out) {
  throw UserError(fmt::format("不能写“{}”：本程序编译时没有绘图组件，只能输出 .json 文件。", textOfPath(out)));
}
std::unique_ptr<PageDevice> makePdf(const std::filesystem::path& file, const DocumentInfo&) { return refuse(file); }
std::unique_ptr<PageDevice> makePictures(const std::filesystem::path& folder, std::string_view) {
  return refuse(folder);
}
#endif

std::unique_ptr<PageDevice> makeJson(const std::filesystem::path& file, const DocumentInfo& /*information*/) {
  return makeJsonDevice(file);
}

struct Format {
  std::string_view extension;
  MakeDevice make;
  bool needsToolkit;
};
constexpr std::array kFormats{Format{".pdf", makePdf, true}, Format{".json", makeJson, false}};

const Format* formatOf(const std::filesystem::path& out) {
  const std::string extension = caseless(textOfPath(out.extension()));
  const auto* const found = std::find_if(kFormats.begin(), kFormats.end(),
                                         [&](const Format& format) { return format.extension == extension; });
  return found == kFormats.end() ? nullptr : found;
}

}  // namespace

bool isPictureFolder(const std::filesystem::path& out) { return !out.empty() && formatOf(out) == nullptr; }

bool needsToolkit(const Print& print) {
  const Format* const format = formatOf(print.out);
  return !print.printer.empty() || format == nullptr || format->needsToolkit;
}

std::unique_ptr<PageDevice> makePageDevice(const std::filesystem::path& out, std::string_view picturePrefix,
                                           const DocumentInfo& information) {
  const Format* const format = formatOf(out);
  return format != nullptr ? format->make(out, information) : makePictures(out, picturePrefix);
}

#ifdef TRIAXLAB_HAS_QT
std::unique_ptr<PageDevice> makePrinter(const PrinterJob& job, Dialogs& dialogs) {
  return makePrinterDevice(job, dialogs);
}
#else
std::unique_ptr<PageDevice> makePrinter(const PrinterJob& job, Dialogs& /*dialogs*/) {
  throw UserError(fmt::format("不能打印到打印机“{}”：本程序编译时没有绘图组件。", job.name));
}
#endif

}  // namespace triaxlab::cli
