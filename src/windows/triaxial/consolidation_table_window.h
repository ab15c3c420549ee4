#pragma once

#include <array>

#include "sessions/triaxial/consolidation_table_session.h"
#include "shell/shell_windows.h"
#include "windows/document_widget.h"
#include "windows/triaxial/stage_table_controls.h"

namespace triaxlab {

class ClickLabel;
class RecordEdit;

/// 固结数据表: the consolidation readings of a stage, and the start pore pressure that can be corrected.
class Form7 : public DocumentWidget, public DocumentWindow {
  Q_OBJECT

 public:
  /// Workspace and shell outlive the window, which opens for a row of the sample tables.
  Form7(Workspace& workspace, ShellSession& shell, std::size_t sampleRow);
  ~Form7() override;

  void load(std::size_t sampleRow);
  std::size_t sampleRow() const override { return m_session.sampleRow(); }
  /// Shows what the record holds now. Readings are typed only while the curve window is there.
  void followRecord(FailureMode mode, bool editable);

  // DocumentWindow
  bool isChanged() const override { return false; }
  void markSaved() override {}
  std::array<std::string, 2> statusPanels() const override { return m_session.statusPanels(); }
  void finishTyping() override;

  std::vector<KeyGroup> keyHelp() const override;

 signals:
  /// A reading of the sample is another now.
  void sampleChanged();

 protected:
  void wheelEvent(QWheelEvent* event) override { m_controls.turnWheel(*event); }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void makeCells();
  void makeBoxes();
  bool keyInCell(const QKeyEvent& event);
  void startTyping();

  /// Does what may change the sample, and tells it.
  template <class Operation>
  void change(Operation&& operation);
  void showState() override;

  ConsolidationTableSession m_session;
  ConsolidationTableState m_shown;
  StageTableControls m_controls;
  std::array<ClickLabel*, kConsolidationCells> m_label1{};
  RecordEdit *m_text1 = nullptr, *m_text2 = nullptr;
};

}  // namespace triaxlab
