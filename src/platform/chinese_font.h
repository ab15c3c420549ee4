#pragma once

namespace triaxlab {

/// UserError when no font of this machine has Chinese: pages would be full of boxes.
void requireChineseFont();

}  // namespace triaxlab
