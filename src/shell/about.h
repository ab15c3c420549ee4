#pragma once

#include <string>
#include <string_view>

#include "store/workspace.h"

namespace triaxlab {

struct Versions {
  std::string program;  // number and, where it is known, commit
  std::string toolkit;
};

/// What 关于 tells, in Markdown: versions, the folders in use, the licences of the program and of what it stands on.
std::string aboutText(const Workspace& workspace, const Versions& versions);

/// The number of this version, and the commit that it was built from; `commit` is empty where nobody knows it.
std::string programVersion(std::string_view commit);

}  // namespace triaxlab
