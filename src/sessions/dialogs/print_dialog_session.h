#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "platform/page_devices.h"
#include "reports/layouts.h"
#include "reports/send_report.h"
#include "sessions/dialogs/print_form.h"
#include "store/workspace.h"
#include "triaxial/failure.h"

namespace triaxlab {

/// What the window that prints has on display.
struct OnDisplay {
  std::size_t row = 0;                                // of the sample in its table
  std::size_t stage = 0;                              // of a TK0 sample
  FailureMode checkedMode = FailureMode::PeakStress;  // the menu's entry for envelopes
};

/// Everything that a print dialog shows. What its form doesn't have means nothing.
struct PrintDialogState {
  ByTick<bool> ticks;
  PrintScope scope = PrintScope::All;
  ByBox<std::string> texts;
  SheetPaper paper = SheetPaper::A4;
  bool portrait = false;

  bool canPreview = true;
  bool canChoosePrinter = true;
  bool canTickPicture = true;
  ByBox<bool> boxesOn;
};

/// The job of a dialog as it stood when 预 览 was pressed, to be shown sheet by sheet.
struct PreviewedJob {
  PreviewedJob(const Layout& layout, PrintJob previewed, const Workspace& workspace);

  PrintJob job;
  std::unique_ptr<Report> report;
  Sheets sheets;  // of the two before it
};

/// What stands behind every print dialog: its form says what there is to choose. Nothing is kept from one opening to
/// the next but the printer, the circles and the page setup of the chart sheets.
class PrintDialogSession {
 public:
  /// Opens with the first values. Form, layout, workspace and dialogs outlive the session.
  PrintDialogSession(const PrintForm& form, const Layout& layout, Workspace& workspace, Dialogs& dialogs,
                     OnDisplay onDisplay);

  const PrintForm& form() const { return m_form; }
  const Layout& layout() const { return m_layout; }
  PrintDialogState state() const;

  /// A click that leaves the box ticked or not.
  void setTicked(PrintTick tick, bool ticked) { m_state.ticks[tick] = ticked; }
  /// A click on an option button. The box to which the focus goes now, where a range is typed.
  std::optional<PrintBox> choose(PrintScope scope);
  /// The box got the focus: with one of a range, a range of samples is chosen unless one of pages is.
  void enterBox(PrintBox box);
  /// The box now holds this text.
  void setText(PrintBox box, std::string_view utf8);
  void setPaper(SheetPaper paper) { m_state.paper = paper; }
  void setPortrait(bool portrait) { m_state.portrait = portrait; }
  /// A printer of the system by its name; empty: a PDF file. Until one is chosen it is the system's usual one, or a PDF
  /// file when there is none.
  void choosePrinter(std::string name) { m_printer = std::move(name); }

  /// The job as the dialog stands, with nothing stored or said. Of a dialog of curves without a curve it has no page.
  PrintJob job() const;
  /// 预 览: the pages that 确 定 would send. Null when there are none or they can't be made; why has been said.
  std::unique_ptr<PreviewedJob> preview() const;
  /// A sheet of a preview into a PDF file that is asked for. What goes wrong is shown.
  void saveSheet(const PreviewedJob& previewed, int sheet, PageDevices& devices) const;

  /// 确 定: stores what is kept for the next time. False when the dialog stays open; why has been said.
  bool accept();
  /// The job goes where it asks to go: into pictures in the project's folder, to the printer, or into a PDF file that
  /// is asked for; a cancelled question drops it. What goes wrong is shown. A job that was stopped leaves on the
  /// printer what it got, of a PDF or pictures nothing.
  void send(PageDevices& devices, const SheetProgress& goesOn = {});

  /// What the status bar is to say of what was sent.
  const Remarks& remarks() const { return m_remarks; }

 private:
  void readSheet();
  void storeSheet() const;
  PageSetup typedSheet() const;
  void takeRange(PrintJob& job) const;
  bool makesPictures(const PrintJob& job) const { return job.printToPicture && !m_layout.picturePrefix.empty(); }
  struct Destination;
  /// Nothing when a question was cancelled.
  std::optional<Destination> destinationOf(Report& report, const PrintJob& job, PageDevices& devices) const;

  const PrintForm& m_form;
  const Layout& m_layout;
  Workspace& m_workspace;
  Dialogs& m_dialogs;
  OnDisplay m_onDisplay;
  PrintDialogState m_state;
  std::optional<std::string> m_printer;
  std::int16_t m_firstPageNumber = 1;
  PageSetup m_storedSheet;
  Remarks m_remarks;
};

}  // namespace triaxlab
