#pragma once

#include <optional>

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "sessions/dialogs/import_selection.h"
#include "windows/dialogs/session_dialog.h"

class QLabel;
class QPushButton;

namespace triaxlab {

class GridView;
class WarningBar;

/// The selection window of a raw database: what it holds, which rows are to be read. One window serves all sources; it
/// carries the name of the source's own (OPENFORM0 and its kin). A selection with nothing open is loaded.
class ImporterWindow : public SessionDialog {
  Q_OBJECT

 public:
  ImporterWindow(QWidget* parent, ImportSelection& selection, Dialogs& dialogs, Progress progress);

  /// What the import has to say; nothing when the window was left without reading.
  const std::optional<Remarks>& remarks() const { return m_remarks; }

 private:
  void makeButtons();
  void makeSorts();
  void load();
  void sort(std::size_t button);
  void toggleMark(int row);
  void read();
  void run(const std::function<void()>& operation) override;
  void showState() override;

  ImportSelection& m_selection;
  Dialogs& m_dialogs;
  Progress m_progress;
  GridView* m_grid;
  WarningBar* m_warnings;
  QLabel *m_fileCount, *m_markCount;
  QLabel* m_sorting = nullptr;
  QPushButton *m_read = nullptr, *m_third = nullptr;
  std::optional<Remarks> m_remarks;
};

}  // namespace triaxlab
