#pragma once

#include <QDialog>

#include "store/workspace.h"

namespace triaxlab {

/// 关于: version, folders in use, licences.
class AboutWindow : public QDialog {
  Q_OBJECT

 public:
  AboutWindow(QWidget* parent, const Workspace& workspace);
};

}  // namespace triaxlab
