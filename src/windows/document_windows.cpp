#include "windows/document_windows.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "windows/k0/k0_window.h"
#include "windows/k0/tk0_window.h"
#include "windows/triaxial/consolidation_table_window.h"
#include "windows/triaxial/data_table_window.h"
#include "windows/triaxial/triaxial_curve_window.h"
#include "windows/unconfined/stress_window.h"

namespace triaxlab {
namespace {

/// How failure rows are looked for besides on the envelope pages: the entry that is checked, 应力差 without a curve
/// window.
FailureMode checkedFailureMode(ShellWindows& windows) {
  const CurveDocument* const curves = windows.curveDocument();
  return curves != nullptr ? curves->envelopeEntries().checkedMode() : FailureMode::PeakStress;
}

/// What a window of samples with charts tells the main window.
template <class Form>
LoadedDocument connectCharts(Form* form, ActiveDocument document, const DocumentHost& host) {
  QObject::connect(form, &Form::closed, form, [closed = host.closed, document] { closed(document); });
  QObject::connect(form, &Form::refreshed, form, [&windows = host.windows] { windows.refresh(); });
  QObject::connect(form, &Form::readoutChanged, form, host.showHelp);
  return {form, form, [form] { form->load(); }, [] {}, [] {}};
}

LoadedDocument makeCurves(const DocumentHost& host) {
  return connectCharts(new Form1(host.workspace, host.dialogs, host.shell), kForm1, host);
}

/// Form2 and Form7 open for the sample that Form1 has on display and stay with its row, which may hold another sample
/// when the table was filled anew.
LoadedDocument makeDataTable(const DocumentHost& host) {
  ShellWindows& windows = host.windows;
  auto* const form = new Form2(host.workspace, host.shell, windows.curveDocument()->sampleRow());
  QObject::connect(form, &Form2::closed, form, [closed = host.closed] { closed(kForm2); });
  return {form, form, [form, &windows] { form->load(windows.curveDocument()->sampleRow()); },
          [form] { form->load(form->sampleRow()); },
          [form, &windows] { form->followRecord(checkedFailureMode(windows)); }};
}

LoadedDocument makeConsolidationTable(const DocumentHost& host) {
  ShellWindows& windows = host.windows;
  auto* const form = new Form7(host.workspace, host.shell, windows.curveDocument()->sampleRow());
  QObject::connect(form, &Form7::closed, form, [closed = host.closed] { closed(kForm7); });
  QObject::connect(form, &Form7::sampleChanged, form, [&windows] {
    if (CurveDocument* const curves = windows.curveDocument()) curves->markChanged();
  });
  // Without the curve window nobody would ask about the changes.
  return {form, form, [form, &windows] { form->load(windows.curveDocument()->sampleRow()); },
          [form] { form->load(form->sampleRow()); },
          [form, &windows] { form->followRecord(checkedFailureMode(windows), windows.curveDocument() != nullptr); }};
}

/// A window over a list of samples of its own.
template <class Form, ActiveDocument document>
LoadedDocument makeListed(const DocumentHost& host) {
  return connectCharts(new Form(host.workspace, host.shell), document, host);
}

struct WindowOfDocument {
  ActiveDocument document;
  LoadedDocument (*make)(const DocumentHost& host);
};
constexpr std::array kWindows{
    WindowOfDocument{kForm1, makeCurves},
    WindowOfDocument{kForm2, makeDataTable},
    WindowOfDocument{kForm7, makeConsolidationTable},
    WindowOfDocument{kForm4, makeListed<Form4, kForm4>},
    WindowOfDocument{kForm6, makeListed<Form6, kForm6>},
    WindowOfDocument{kForm9, makeListed<Form9, kForm9>},
};

}  // namespace

LoadedDocument makeDocumentWindow(ActiveDocument document, const DocumentHost& host) {
  const auto* const row = std::ranges::find(kWindows, document, &WindowOfDocument::document);
  if (row == kWindows.end()) throw std::out_of_range("no window for this document");
  return row->make(host);
}

}  // namespace triaxlab
