#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/page_device.h"

namespace triaxlab::cli {

/// True when the name asks for pictures: one of no file format that the program writes, so it is a folder.
bool isPictureFolder(const std::filesystem::path& out);

/// False when the name is that of a file which the program writes without the toolkit that draws PDF and pictures.
bool needsToolkit(const std::filesystem::path& out);

/// The device for a file name ending in ".pdf" or ".json", or for a folder of bitmaps whose names begin so. UserError
/// for a PDF or bitmaps in a program that was built without the toolkit that draws them.
std::unique_ptr<PageDevice> makePageDevice(const std::filesystem::path& out, std::string_view picturePrefix);

}  // namespace triaxlab::cli
