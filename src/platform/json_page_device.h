#pragma once

#include <filesystem>
#include <memory>

#include "platform/page_device.h"

namespace triaxlab {

/// Pages, or the one canvas of a window, as a file of drawing operations:
/// {"width": W, "height": H, "pages": [[OPERATION, ...], ...]}, in twips, width and height those of the first page.
/// Only one page is held in memory. The file is written beside its place and appears, or is replaced, whole when the
/// device is finished; a device that is dropped before leaves nothing. Without a page no file is written.
std::unique_ptr<PageDevice> makeJsonDevice(const std::filesystem::path& file);

}  // namespace triaxlab
