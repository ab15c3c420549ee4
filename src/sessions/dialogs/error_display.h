#pragma once

#include <utility>

#include "common/user_error.h"
#include "platform/dialogs.h"

namespace triaxlab {

/// The ordinary error display: a box with a stop mark, the error's title and its sentence.
inline void showError(Dialogs& dialogs, const UserError& error) {
  dialogs.message(error.title(), error.what(), MessageIcon::Stop);
}

/// Runs an operation that a person started. A UserError ends it, is shown, and gives false; the program stays.
template <class Operation>
bool runShowingErrors(Dialogs& dialogs, Operation&& operation) {
  try {
    std::forward<Operation>(operation)();
    return true;
  } catch (const UserError& error) {
    showError(dialogs, error);
    return false;
  }
}

}  // namespace triaxlab
