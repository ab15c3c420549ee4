#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sessions/listed_session.h"
#include "shell/shell_windows.h"
#include "windows/controls/canvas_widget.h"
#include "windows/controls/layout.h"
#include "windows/document_widget.h"

class QScrollBar;

namespace triaxlab {

class CellBlock;
class ClickLabel;
class RecordEdit;

/// What the windows over a list of samples in four lines do alike: the lower half with list, readings and the texts of
/// the document, the copies, the wheel, the readout. A test's own window puts its charts and fields into the upper
/// half: it makes them first, then calls `makeLowerHalf` and `load`.
class ListedWindow : public DocumentWidget, public DocumentWindow {
  Q_OBJECT

 public:
  ~ListedWindow() override;

  /// Shows the table of the workspace as a window that was just opened.
  void load();
  std::size_t sampleRow() const override { return m_session->sampleRow(); }

  // DocumentWindow
  bool isChanged() const override { return m_session->isChanged(); }
  void markSaved() override;
  void markChanged() override;
  void finishTyping() override;
  std::array<std::string, 2> statusPanels() const override { return m_shown.statusPanels; }

  std::vector<KeyGroup> keyHelp() const override;

 signals:
  /// The values under the mouse; empty when it isn't on a plot that has some.
  void readoutChanged(const QString& text);

 protected:
  /// Twips: the room of a column of readings, and the width of its cells.
  struct ReadingColumns {
    int pitch, width;
  };
  /// The shell outlives the window.
  ListedWindow(ShellSession& shell, ActiveDocument document, std::unique_ptr<ListedSession> session);

  // For the upper half.
  /// A canvas of the session's picture that can be magnified; `readout` tells the values at a place of it.
  CanvasWidget* addChart(const char* name, Place place, CanvasWidget::Drawing drawing, CanvasWidget::Edges edges,
                         std::function<std::string(Point)> readout);
  ClickLabel* caption(const QString& text, Place place) { return caption(this, text, place); }
  /// An edit box for an input of the session.
  RecordEdit* edit(const QString& name, ListedInput input, Place place);
  void makeLowerHalf(ReadingColumns columns);
  /// Shows what the upper half has of its own.
  virtual void showUpperHalf(const ListedState& /*now*/) {}

  const std::vector<CanvasWidget*>& charts() const { return m_charts; }
  ListedSession& session() const { return *m_session; }
  /// List and readings may give way to something else.
  void showTables(bool visible);

  void showState() override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  using KeyInBlock = bool (ListedSession::*)(CellKey, CursorPlace);

  static ClickLabel* caption(QWidget* parent, const QString& text, Place place);
  void makeList();
  void makeReadings(ReadingColumns columns);
  void makeDocumentData();
  void connectBlock(CellBlock& block, ListedInputName input, void (ListedSession::*select)(int), KeyInBlock keyIn,
                    CellBlockState ListedState::*shown);
  void tellMouse(const std::string& readout);
  bool isOnReadings(QPoint place) const;
  void copyReadings() const;

  std::unique_ptr<ListedSession> m_session;
  ListedState m_shown;  // what the widgets show
  std::size_t m_rowShown = 0;
  std::uint64_t m_pictureShown = 0;
  std::string m_readout;

  std::vector<CanvasWidget*> m_charts;
  /// The edit boxes with what each of them stands for; those of list and readings are their blocks' own.
  std::vector<std::pair<RecordEdit*, ListedInput>> m_edits;
  QWidget* m_tables;  // holds list and readings
  CellBlock* m_list = nullptr;
  CellBlock* m_readings = nullptr;
  std::array<ClickLabel*, 2> m_listHeads{};
  std::array<ClickLabel*, kListedLines> m_lineNumbers{};
  QScrollBar *m_listBar = nullptr, *m_readingsBar = nullptr;
};

}  // namespace triaxlab
