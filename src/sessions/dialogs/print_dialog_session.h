#pragma once

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "platform/page_devices.h"
#include "reports/layouts.h"
#include "store/workspace.h"

namespace triaxlab {

namespace print_captions {
inline constexpr const char* kTitle = "数据打印";
inline constexpr const char* kAccept = "确 定";
inline constexpr const char* kPreview = "预 览";
inline constexpr const char* kCancel = "取 消";
inline constexpr const char* kSending = "正在将数据送往打印机，请稍候...";  // while a job runs
}  // namespace print_captions

/// What all print dialogs share: the pages of the job that the dialog holds are shown, or sent.
class PrintDialogSession {
 public:
  /// Layout, workspace and dialogs outlive the session.
  PrintDialogSession(const Layout& layout, Workspace& workspace, Dialogs& dialogs)
      : m_layout(layout), m_workspace(workspace), m_dialogs(dialogs) {}
  PrintDialogSession(const PrintDialogSession&) = delete;
  PrintDialogSession& operator=(const PrintDialogSession&) = delete;
  virtual ~PrintDialogSession() = default;

  /// The job as the dialog stands, with nothing stored or said.
  virtual PrintJob job() const = 0;
  /// 预 览 on any device: the pages that 确 定 would send.
  void preview(PageDevice& device) const;

  /// 确 定: stores what is kept for the next time. False when the dialog stays open; why has been said.
  virtual bool accept() = 0;
  /// The job goes where it asks to go: into pictures in the project's folder, to the printer, or, when the system has
  /// none, into a PDF file that is asked for; a cancelled question drops it. What goes wrong is shown.
  void send(PageDevices& devices);

  /// What the status bar is to say of what was sent.
  const Remarks& remarks() const { return m_remarks; }

 protected:
  Workspace& workspace() const { return m_workspace; }
  Dialogs& dialogs() const { return m_dialogs; }

 private:
  /// Nothing when a question was cancelled.
  std::unique_ptr<PageDevice> deviceFor(const Report& report, const PrintJob& job, PageDevices& devices) const;

  const Layout& m_layout;
  Workspace& m_workspace;
  Dialogs& m_dialogs;
  Remarks m_remarks;
};

}  // namespace triaxlab
