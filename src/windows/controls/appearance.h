#pragma once

class QApplication;

namespace triaxlab {

/// Style, font and the language of the toolkit's own buttons, the same on every desktop.
void setAppearance(QApplication& application);

}  // namespace triaxlab
