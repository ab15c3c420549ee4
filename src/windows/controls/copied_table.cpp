#include "windows/controls/copied_table.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "windows/controls/words.h"

namespace triaxlab {

void copyTable(const std::string& tableText) { QGuiApplication::clipboard()->setText(words(tableText)); }

void popupTableMenu(QWidget* window, QPoint globalPlace, const std::function<void()>& copy) {
  auto* const menu = new QMenu(window);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction("复制数据表\tCtrl+C", window, copy);
  menu->popup(globalPlace);
}

}  // namespace triaxlab
