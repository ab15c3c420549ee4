#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/page_device.h"

namespace triaxlab {

/// It works in a program without windows too and then makes the toolkit's application object for its own life.
/// One 24-bit bitmap of 200 pixels to the inch a page: `prefix` + n + ".BMP" in the folder, n from 1; old files of
/// these names are replaced, all of them when the device is finished. The folder is made when it is missing (its parent
/// isn't). UserError when no font of this machine has Chinese.
std::unique_ptr<PageDevice> makePictureDevice(const std::filesystem::path& folder, std::string_view prefix);

}  // namespace triaxlab
