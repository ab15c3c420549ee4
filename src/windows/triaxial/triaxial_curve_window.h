#pragma once

#include <optional>
#include <string>

#include "sessions/triaxial/curve_session.h"
#include "shell/shell_windows.h"
#include "windows/document_widget.h"
#include "windows/triaxial/triaxial_curve_layout.h"

class QKeyEvent;

namespace triaxlab {

/// The triaxial curve window: list of samples, curves, results and fields of the sample on display.
class Form1 : public DocumentWidget, public CurveDocument {
  Q_OBJECT

 public:
  /// All three outlive the window.
  Form1(Workspace& workspace, Dialogs& dialogs, ShellSession& shell);
  ~Form1() override;

  /// Shows the table of the workspace as a window that was just opened.
  void load();
  std::size_t sampleRow() const override { return m_session.sampleRow(); }
  // CurveDocument
  bool isChanged() const override { return m_session.isChanged(); }
  void markSaved() override;
  void markChanged() override;
  std::array<std::string, 2> statusPanels() const override;
  InterventionEntry interventionEntry() const override;
  void enterIntervention() override;
  void leaveIntervention(Dialogs& dialogs) override;
  void showPage(CurvePage page) override;
  EnvelopeEntries envelopeEntries() const override;
  void reprocess() override;

  std::vector<KeyGroup> keyHelp() const override;

 signals:
  /// The values under the mouse; empty when it isn't on a plot that has some.
  void readoutChanged(const QString& text);

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void connectList();
  void connectPages();
  void connectEdits();
  void connectMethodKeys();
  void connectIntervention();
  void connectCanvas();
  bool keyInCell(RecordEdit* box, const QKeyEvent& event, bool (CurveSession::*keyIn)(CellKey, CursorPlace));
  /// True when the phase that runs takes the key.
  bool keyInPhase(const QKeyEvent& event);

  static void startTyping(RecordEdit* overlay);
  /// Lays a box over a cell and begins to type there.
  void openCell(RecordEdit* overlay, void (CurveSession::*select)(int), int label);
  void tellMouse(std::optional<Point> place);
  bool isOnTable(QPoint place) const;
  void copyResults() const;

  void showState() override;
  void showList(const CurveState& now);
  void showFields(const CurveState& now);
  void showStages(const CurveState& now);
  void showTable(const CurveState& now) const;
  void showIntervention(const CurveState& now);

  Dialogs& m_dialogs;
  CurveSession m_session;
  CurveControls m_controls;
  CurveState m_shown;  // what the widgets show
  std::size_t m_rowShown = 0;
  std::uint64_t m_pictureShown = 0;
  std::string m_readout;
};

}  // namespace triaxlab
