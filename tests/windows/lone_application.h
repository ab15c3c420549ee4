#pragma once

#include <QByteArray>

#include "platform/qt/application.h"
#include "windows/controls/appearance.h"
#include "windows/guarded_application.h"

namespace triaxlab {

/// The application object of the program on the platform without a display, made once and never destroyed: at the end
/// of the process the toolkit's own statics are already gone.
inline GuardedApplication& makeApplication() {
  static char name[] = "triaxlab";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  prepareApplication();
  static auto* const application = new GuardedApplication(count, arguments);
  restoreNumberLocale();
  static const bool looksRight = (setAppearance(*application), true);
  static_cast<void>(looksRight);
  return *application;
}

}  // namespace triaxlab
