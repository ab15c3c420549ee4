#pragma once

#include <QPoint>
#include <functional>
#include <string>

class QWidget;

namespace triaxlab {

/// Puts a table of numbers, lines of cells parted by tabs, where other programs take it from.
void copyTable(const std::string& tableText);
/// The menu of a table under the mouse.
void popupTableMenu(QWidget* window, QPoint globalPlace, const std::function<void()>& copy);

}  // namespace triaxlab
