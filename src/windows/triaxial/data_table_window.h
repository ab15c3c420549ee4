#pragma once

#include "sessions/triaxial/data_table_session.h"
#include "shell/shell_windows.h"
#include "windows/document_widget.h"
#include "windows/triaxial/stage_table_controls.h"

namespace triaxlab {

/// 三轴试验数据表: the shear readings of a stage.
class Form2 : public DocumentWidget, public DocumentWindow {
  Q_OBJECT

 public:
  /// Workspace and shell outlive the window, which opens for a row of the sample tables.
  Form2(Workspace& workspace, ShellSession& shell, std::size_t sampleRow);

  void load(std::size_t sampleRow);
  std::size_t sampleRow() const override { return m_session.sampleRow(); }
  /// Shows what the record holds now.
  void followRecord(FailureMode mode);

  // DocumentWindow
  bool isChanged() const override { return false; }
  void markSaved() override {}
  std::array<std::string, 2> statusPanels() const override { return m_session.statusPanels(); }

  std::vector<KeyGroup> keyHelp() const override { return {stageTableKeys()}; }

 protected:
  void wheelEvent(QWheelEvent* event) override { m_controls.turnWheel(*event); }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void showState() override;

  DataTableSession m_session;
  DataTableState m_shown;
  StageTableControls m_controls;
};

}  // namespace triaxlab
