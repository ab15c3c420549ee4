#pragma once

#include <QDialog>
#include <filesystem>
#include <string>

namespace triaxlab {

/// What went wrong in earlier runs, to be read and handed on.
class FaultReportWindow : public QDialog {
  Q_OBJECT

 public:
  FaultReportWindow(QWidget* parent, const std::string& report, const std::filesystem::path& file);
};

}  // namespace triaxlab
