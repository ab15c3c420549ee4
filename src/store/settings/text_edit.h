#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/settings/text_keys.h"

namespace triaxlab {

/// The content of a settings file in which one key has another value, as somebody with an editor would have changed it:
/// all other bytes are as they were, and no other key means anything else.
///
/// - A value goes where the key's present one stands, in the line that decides. A key that is commented out, alone in
///   its line, comes back there. Any other gets a line of its own, at the end of the file or, where the first line
///   decides, at its beginning; a file that is empty is begun in GBK.
/// - Without a value ("off" of a flag, the default of every other key) each line of the key alone becomes a comment;
///   from a line of several the key is cut out with its value.
///
/// `value` is UTF-8, "" of a flag that is on; an empty text that its brackets would not hold counts as none. UserError,
/// which names the file, for a number outside the limits, a text that the file can't hold, and a key that can't be
/// parted from others in its line.
std::string withValue(const TextFile& file, std::string_view content, const TextKey& key,
                      const std::optional<std::string>& value);

}  // namespace triaxlab
