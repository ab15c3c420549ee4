#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/page_device.h"

namespace triaxlab {

// Both work in a program without windows too: they then make the toolkit's application object for their own life.
// UserError when no font of this machine has Chinese.

/// A PDF of vector drawings and text that can be searched and copied, with bookmarks: the same pages of the same day
/// make the same bytes. Each page is written when it ends. The file appears, or is replaced, whole when the device is
/// finished.
std::unique_ptr<PageDevice> makePdfDevice(const std::filesystem::path& file, const DocumentInfo& information);

/// One 24-bit bitmap of 200 pixels to the inch a page: `prefix` + n + ".BMP" in the folder, n from 1; old files of
/// these names are replaced, all of them when the device is finished. The folder is made when it is missing (its parent
/// isn't).
std::unique_ptr<PageDevice> makePictureDevice(const std::filesystem::path& folder, std::string_view prefix);

}  // namespace triaxlab
