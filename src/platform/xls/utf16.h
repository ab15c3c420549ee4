#pragma once

#include <string>
#include <string_view>

namespace triaxlab {

/// Pre: the text is UTF-8.
std::u16string utf16Of(std::string_view utf8);

}  // namespace triaxlab
