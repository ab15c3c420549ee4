#pragma once

#include "cli/commands.h"
#include "store/workspace.h"

namespace triaxlab::cli {

/// Does what the command says over a workspace whose start-up steps are done. Returns the exit status. UserError when
/// the work can't be done.
int run(Workspace& workspace, const Command& command);

}  // namespace triaxlab::cli
