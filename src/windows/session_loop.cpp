#include "windows/session_loop.h"

#include <QScopedValueRollback>
#include <utility>

namespace triaxlab {

void SessionLoop::act(const std::function<void()>& operation) {
  run(operation);
  refresh();
}

void SessionLoop::refresh() {
  // A box that is hidden while it has the focus loses it, which changes the state on the way.
  m_refreshAgain = true;
  if (m_isRefreshing) return;
  {
    const QScopedValueRollback refreshing(m_isRefreshing, true);
    while (std::exchange(m_refreshAgain, false)) showState();
  }
  stateShown();
}

}  // namespace triaxlab
