#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/settings.h"
#include "common/user_error.h"
#include "store/settings/chart_layout.h"
#include "store/settings/text_keys.h"
#include "store/workspace.h"

namespace triaxlab {

// The laboratory's text files lie in the application folder, all of them optional; text_lines.h tells what a line of
// them is. A line that begins with a comment mark behind its blanks is a comment. A key counts wherever it stands in a
// line, and one line may hold several; a key spelled differently is ignored in silence.
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

/// What a file says of each of its keys, in their order: nothing of one that it doesn't hold or that keeps its default,
/// "" of a flag that is on, a number inside its limits, a text.
using TextValues = std::vector<std::optional<std::string>>;
TextValues textValues(const TextFile& file, std::string_view content);

/// Sets what the values name and nothing else.
void applyTextValues(const TextFile& file, const TextValues& values, Settings& settings);
/// Both for the content of one file.
void applyTextFile(const TextFile& file, std::string_view content, Settings& settings);

}  // namespace triaxlab
