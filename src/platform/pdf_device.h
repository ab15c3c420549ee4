#pragma once

#include <filesystem>
#include <memory>

#include "platform/page_device.h"

namespace triaxlab {

/// A PDF of vector drawings and text that can be searched and copied, with bookmarks: the same pages of the same day
/// make the same bytes. Each page is written when it ends. The file appears, or is replaced, whole when the device is
/// finished. UserError when no font of this machine has Chinese.
std::unique_ptr<PageDevice> makePdfDevice(const std::filesystem::path& file, const DocumentInfo& information);

}  // namespace triaxlab
