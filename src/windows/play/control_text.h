#pragma once

#include <QString>

class QWidget;

namespace triaxlab {

/// The text that a person reads on a control: of a button or label its caption, of an edit control or list what it
/// holds, of a scroll or progress bar its value, of a window its title. Nothing is read off anything else: ScriptError.
QString controlText(const QWidget* control);

/// Text of a grid's cell; row 1 is the first data row, row 0 has the headings, column 0 is the first. ScriptError
/// outside the grid.
QString cellText(QWidget* grid, int row, int column);

/// Checked, of a control that can be.
bool isChecked(const QWidget* control);

}  // namespace triaxlab
