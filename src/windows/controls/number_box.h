#pragma once

#include <QLineEdit>
#include <string>

#include "windows/controls/layout.h"
#include "windows/controls/words.h"

namespace triaxlab {

/// An edit box for a number of a small dialog, over the text that the dialog's values keep of it.
inline QLineEdit* numberBox(QWidget* parent, const QString& name, Place place, std::string& text) {
  QLineEdit* const box = put(new QLineEdit(words(text), parent), name, place);
  QObject::connect(box, &QLineEdit::textEdited, box, [&text](const QString& typed) { text = utf8(typed); });
  return box;
}

}  // namespace triaxlab
