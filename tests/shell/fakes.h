#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"
#include "sessions/dialogs/backup_session.h"
#include "sessions/dialogs/browser_session.h"
#include "sessions/dialogs/fill_in_session.h"
#include "sessions/dialogs/habits_session.h"
#include "sessions/dialogs/import_selection.h"
#include "sessions/dialogs/overwrite_session.h"
#include "sessions/dialogs/print_dialog_session.h"
#include "sessions/dialogs/range_dialog.h"
#include "sessions/dialogs/sample_list_session.h"
#include "sessions/dialogs/source_folder_session.h"
#include "sessions/dialogs/template_session.h"
#include "shell/shell_session.h"
#include "shell/shell_windows.h"
#include "support/fake_dialogs.h"

namespace triaxlab::testing {

/// A document window that only knows whether it was changed.
class FakeDocument : public CurveDocument {
 public:
  bool changed = false;
  bool typing = false;  // what is typed is not yet stored
  CurvePage page = CurvePage::StressStrain;
  EnvelopeEntries envelopes;
  InterventionEntry intervention{.possible = true, .running = false};
  int reprocessed = 0;
  std::size_t row = 0;

  bool isChanged() const override { return changed; }
  void markSaved() override { changed = false; }
  void markChanged() override { changed = true; }
  void finishTyping() override { changed = std::exchange(typing, false) || changed; }
  std::array<std::string, 2> statusPanels() const override { return {"工程编号:P1", "试验日期:2024/05/06"}; }
  std::size_t sampleRow() const override { return row; }
  void showPage(CurvePage wanted) override { page = wanted; }
  EnvelopeEntries envelopeEntries() const override { return envelopes; }
  InterventionEntry interventionEntry() const override { return intervention; }
  void enterIntervention() override { intervention.running = true; }
  void leaveIntervention(Dialogs& dialogs) override {
    changed = dialogs.ask("三轴曲线调整", "   曲线已经调整\n保存修改后数据吗？", MessageIcon::Exclamation) || changed;
    intervention.running = false;
  }
  void reprocess() override { ++reprocessed; }
};

/// Notes what is shown. A dialog does what the test has put into its function.
class FakeWindows : public ShellWindows {
 public:
  std::vector<std::string> shown;
  std::function<void(BrowserSession&)> inBrowser = [](BrowserSession&) {};
  std::function<void(BackupSession&)> inBackups = [](BackupSession&) {};
  std::function<void(SampleListSession&)> inSampleList = [](SampleListSession&) {};
  std::function<void(RangeDialog&)> inRangeDialog = [](RangeDialog&) {};
  std::function<void(SourceFolderSession&)> inSourceFolder = [](SourceFolderSession&) {};
  std::function<void(HabitsSession&)> inHabits = [](HabitsSession&) {};
  std::function<void(FillInSession&)> inFillIn = [](FillInSession&) {};
  std::function<void(OverwriteSession&)> inOverwriteDialog = [](OverwriteSession&) {};
  std::function<void(PrintDialogSession&)> inPrintDialog = [](PrintDialogSession&) {};
  std::function<void(TemplateSession&)> inTemplates = [](TemplateSession&) {};
  std::function<std::optional<Remarks>()> inImporter = []() -> std::optional<Remarks> { return std::nullopt; };
  std::optional<FakeDocument> form1;
  std::vector<std::string> raisedTools;
  int refreshes = 0;
  std::vector<std::pair<std::size_t, std::size_t>> progress;

  void showBrowser(BrowserSession& session) override {
    shown.emplace_back("OPENFORM");
    inBrowser(session);
  }
  void showBackups(BackupSession& session) override {
    shown.emplace_back("BACKUPFORM");
    inBackups(session);
  }
  void showSampleList(SampleListSession& session) override {
    shown.emplace_back(session.form());
    inSampleList(session);
  }
  void showRangeDialog(RangeDialog& dialog) override {
    shown.emplace_back("Form21");
    inRangeDialog(dialog);
  }
  void showSourceFolder(SourceFolderSession& session) override {
    shown.emplace_back("Form5");
    inSourceFolder(session);
  }
  void showHabits(HabitsSession& session) override {
    shown.emplace_back("HABITSFORM");
    inHabits(session);
  }
  void showFillIn(FillInSession& session) override {
    shown.emplace_back("FILLFORM");
    inFillIn(session);
  }
  void showOverwriteDialog(OverwriteSession& session) override {
    shown.emplace_back("Form10");
    inOverwriteDialog(session);
  }
  void showPrintDialog(PrintDialogSession& session) override {
    shown.emplace_back(session.form().name);
    inPrintDialog(session);
  }
  void showTemplates(TemplateSession& session) override {
    shown.emplace_back("Form24");
    inTemplates(session);
  }
  std::optional<Remarks> showImporter(ImportSelection& selection) override {
    shown.emplace_back(selection.importer().form);
    return inImporter();
  }
  void showManual() override { shown.emplace_back("manual"); }
  void showKeys() override { shown.emplace_back("keys"); }
  void showAbout() override { shown.emplace_back("about"); }
  void showFaultReport(const std::string& report, const std::filesystem::path& file) override {
    shown.push_back("report in " + file.filename().string() + ": " + report);
  }
  void showDocument(ActiveDocument document) override {
    shown.push_back("load " + std::to_string(document));
    if (document == kForm1) form1.emplace();
  }
  void raiseDocument(ActiveDocument document) override { shown.push_back("raise " + std::to_string(document)); }
  std::vector<ActiveDocument> loadedDocuments() const override {
    return form1 ? std::vector{kForm1} : std::vector<ActiveDocument>{};
  }
  DocumentWindow* document(ActiveDocument document) override { return form1 && document == kForm1 ? &*form1 : nullptr; }
  CurveDocument* curveDocument() override { return form1 ? &*form1 : nullptr; }
  void showProgress(std::size_t done, std::size_t total) override { progress.emplace_back(done, total); }
  void refresh() override { ++refreshes; }
  void raiseTool(std::string_view windowTitle) override { raisedTools.emplace_back(windowTitle); }
  void minimizeTool(int process) override { shown.push_back("minimize " + std::to_string(process)); }
  void fitDocument() override { shown.emplace_back("fit"); }
  void startAgain(const std::filesystem::path& folder) override { shown.push_back("start " + folder.string()); }
  void endProgram() override { shown.emplace_back("end"); }

  std::vector<std::string> take() { return std::exchange(shown, {}); }
};

}  // namespace triaxlab::testing
