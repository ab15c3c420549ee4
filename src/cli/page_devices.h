#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "cli/commands.h"
#include "platform/dialogs.h"
#include "platform/page_device.h"
#include "platform/page_devices.h"

namespace triaxlab::cli {

/// True when the name asks for pictures: one of no file format that the program writes, so it is a folder.
bool isPictureFolder(const std::filesystem::path& out);

/// False when all that is asked for is a file which the program writes without the toolkit that prints and draws PDF
/// and pictures.
bool needsToolkit(const Print& print);

/// The device for a file name ending in ".pdf" or ".json", or for a folder of bitmaps whose names begin so. UserError
/// for a PDF or bitmaps in a program that was built without the toolkit that draws them.
std::unique_ptr<PageDevice> makePageDevice(const std::filesystem::path& out, std::string_view picturePrefix,
                                           const DocumentInfo& information);

/// The job's printer. UserError when the system has none of that name, or the program was built without the toolkit.
std::unique_ptr<PageDevice> makePrinter(const PrinterJob& job, Dialogs& dialogs);

}  // namespace triaxlab::cli
