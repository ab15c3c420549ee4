#include "shell/printing.h"

#include <algorithm>
#include <array>

#include "sessions/dialogs/print_dialog_session.h"

namespace triaxlab {
namespace {

using A = Action;

constexpr std::array kPrintEntries{
    PrintEntry{A::Print, kForm1, &kThreeInOneForm, "three-in-one"},
    PrintEntry{A::Print, kForm2, &kTriaxialTableForm, "triaxial-table"},
    PrintEntry{A::Print, kForm7, &kConsolidationForm, "consolidation"},
    PrintEntry{A::Print, kForm4, &kUnconfinedForm, "unconfined-curve"},
    PrintEntry{A::Print, kForm6, &kK0Form, "k0"},
    PrintEntry{A::Print, kForm9, &kTK0Form, "tk0",
               "TK0试样请用“打印”菜单的“打印”打印成果表，或用“打印TK0曲线”打印曲线。"},
    PrintEntry{A::PrintSheets, kForm1, &kChartSheetForm, "chart"},
    PrintEntry{A::PrintTK0Curves, kForm9, &kTK0CurveForm, "tk0-curve"},
    PrintEntry{A::PrintTable, kForm4, &kUnconfinedForm, "unconfined-table"},
};

OnDisplay onDisplay(const PrintEntry& entry, ShellWindows& windows) {
  OnDisplay shown;
  if (const DocumentWindow* const window = windows.document(entry.document)) {
    shown.row = window->sampleRow();
    shown.stage = window->stageOnDisplay();
  }
  if (const CurveDocument* const curves = windows.curveDocument())
    shown.checkedMode = curves->envelopeEntries().checkedMode();
  return shown;
}

}  // namespace

std::span<const PrintEntry> printEntries() { return kPrintEntries; }

const PrintEntry* printEntryOf(Action action, std::int16_t activeDocument) {
  // 打印 is for the document in front; the others print one kind of pages, from wherever they can be pressed.
  const auto* const entry = std::ranges::find_if(kPrintEntries, [&](const PrintEntry& row) {
    return row.action == action && (action != A::Print || row.document == activeDocument);
  });
  return entry != kPrintEntries.end() && entry->pages() != nullptr ? entry : nullptr;
}

bool isPrintAction(Action action) {
  return std::ranges::find(kPrintEntries, action, &PrintEntry::action) != kPrintEntries.end();
}

Remarks showPrintDialog(const PrintEntry& entry, Workspace& workspace, Dialogs& dialogs, ShellWindows& windows) {
  PrintDialogSession session(*entry.form, *entry.pages(), workspace, dialogs, onDisplay(entry, windows));
  windows.showPrintDialog(session);
  return session.remarks();
}

}  // namespace triaxlab
