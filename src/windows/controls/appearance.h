#pragma once

#include <QStringList>

class QApplication;

namespace triaxlab {

/// The fonts of what stands in windows beside charts and pages: the first that is installed and has a sign shows it.
QStringList windowFonts();

/// Style, font and the language of the toolkit's own buttons, the same on every desktop.
void setAppearance(QApplication& application);

}  // namespace triaxlab
