#pragma once

#include <string>

#include "common/settings.h"
#include "store/settings/text_keys.h"

namespace triaxlab {

/// What a page or a window has where the key acts, in these settings; lines end with "\n". "（不印）" where nothing is
/// printed. Nothing of a key that changes no page: what it does is then all there is to say.
std::string sampleOf(const TextKey& key, const Settings& settings);

}  // namespace triaxlab
