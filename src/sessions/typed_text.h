#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace triaxlab {

/// The part of a typed or pasted text (UTF-8) that a box takes, as GBK: without the characters that GBK doesn't have
/// and without control characters, cut in front of the character that doesn't fit whole.
std::string takenText(std::string_view utf8, std::size_t width);

/// The part of `inserted` that a box of so many bytes takes beside the rest of its text; all UTF-8. What already
/// stands there gives way to nothing.
std::string takenBeside(std::string_view rest, std::string_view inserted, std::size_t width);

}  // namespace triaxlab
