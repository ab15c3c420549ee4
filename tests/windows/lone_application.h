#pragma once

#include <QApplication>
#include <QByteArray>

#include "platform/qt/application.h"
#include "windows/controls/appearance.h"

namespace triaxlab {

/// The application object of the program on the platform without a display, made once and never destroyed: at the end
/// of the process the toolkit's own statics are already gone.
inline void makeApplication() {
  static char name[] = "triaxlab";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  prepareApplication();
  static auto* const application = new QApplication(count, arguments);
  restoreNumberLocale();
  static const bool looksRight = (setAppearance(*application), true);
  static_cast<void>(looksRight);
}

}  // namespace triaxlab
