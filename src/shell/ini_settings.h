#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "common/settings.h"
#include "common/user_error.h"
#include "store/settings/chart_layout.h"
#include "store/workspace.h"

namespace triaxlab {

// The laboratory's hand-edited text files lie in the application folder, all of them optional. They are GBK, or UTF-8
// when they begin with its mark or when a key is found in them only so. Lines end with CR LF or LF; byte 26 ends the
// file; a line that begins with ";" behind its blanks is a comment. A key counts wherever it stands in a line, and one
// line may hold several; a key spelled differently is ignored in silence.
//
// A missing file leaves the defaults and is nothing to tell. A file that can't be read, or one above kLargestTextFile,
// leaves them as well and is named in a remark.

inline constexpr std::uint64_t kLargestTextFile = 1'000'000;  // bytes

/// Resets the habits and reads zmqvb.ini and sz.ini: at start, again at each print command, and when an unconfined
/// document is loaded, so that an edit of either file takes effect there.
Remarks ReadIniSettings(Workspace& workspace);

/// Resets the English report labels and reads esz.ini: whenever a triaxial document is loaded.
Remarks ReadEnglishLabels(Workspace& workspace);

/// Resets texts and margins of the result chart and reads szshezhi.txt. The label of the
/// project number and that of the sample number in its defaults are those of ReadIniSettings.
Remarks ReadChartLayout(Workspace& workspace);

/// Both that act on pages, before each print.
Remarks ReadPageSettings(Workspace& workspace);

// The same over the bytes of one file, for what has no folder. Each changes what the file names and nothing else.

void applyHabits(std::span<const std::byte> zmqvb, LaboratoryHabits& habits);
/// Of a label that stands twice the first counts here, since reading ends when both are found.
void applyListLabels(std::span<const std::byte> sz, LaboratoryHabits& habits);
void applyEnglishLabels(std::span<const std::byte> esz, EnglishLabels& labels);
void applyChartLayout(std::span<const std::byte> szshezhi, ChartLayout& layout);

}  // namespace triaxlab
