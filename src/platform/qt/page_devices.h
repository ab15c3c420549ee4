#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/page_device.h"

namespace triaxlab {

/// A PDF of vector drawings and selectable text. The file appears, or is replaced, whole when the device is finished.
/// Works in a program without windows too: it then makes the toolkit's application object for its own life.
std::unique_ptr<PageDevice> makePdfDevice(const std::filesystem::path& file);

/// One 24-bit bitmap of 200 pixels to the inch a page: `prefix` + n + ".BMP" in the folder, n from 1; old files of
/// these names are replaced, all of them when the device is finished. The folder is made when it is missing (its parent
/// isn't).
std::unique_ptr<PageDevice> makePictureDevice(const std::filesystem::path& folder, std::string_view prefix);

}  // namespace triaxlab
