#include "windows/dialogs/session_dialog.h"

namespace triaxlab {

void SessionDialog::actToEnd(const std::function<bool()>& operation) {
  bool ends = false;
  act([&] { ends = operation(); });
  if (ends) accept();
}

}  // namespace triaxlab
