#include "shell/document_kinds.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "k0/opening_pass.h"
#include "k0/settlement.h"
#include "shell/result_lines.h"
#include "triaxial/opening_pass.h"
#include "unconfined/reduction.h"

namespace triaxlab {
namespace {

using Name = std::string_view;

// ---- Form1

// RZMOPEN is off while a document is open, so that a second raw import can't start over it.
// RZMGANYU stands in no list: it follows what the document on which it acts has on display.
constexpr std::array<Name, 12> kForm1Commands{"FILLIN",      "RZMSAVE",   "RZMPRINT",      "PEXCEL",
                                              "QUXIAN",      "RQUXIAN",   "SHUJUBIAO",     "ZMPRINT",
                                              "SAVEASEXCEL", "RZMPRINT1", "SAVEASRESULTS", "SAVEASREADINGS"};
constexpr std::array<Name, 1> kImport{"RZMOPEN"};
constexpr std::array<Name, 1> kTK0Curves{"PTK0"};
constexpr std::array<Name, 2> kImportAndTK0Curves{"RZMOPEN", "PTK0"};

void reduceTriaxial(Workspace& workspace) {
  runOpeningPass(workspace.TriaxialSampleTable.used(), workspace.settings.habits.cohesionFormat());
}

/// The page's failure values and fits go into the records. A sample that doesn't have the page shows the one that takes
/// its place. The entry that is checked is that of the peak.
void showTriaxialPage(Workspace& workspace, CurvePage page) {
  const NumberFormat cohesionFormat = workspace.settings.habits.cohesionFormat();
  for (TriaxialSampleRecord& record : workspace.TriaxialSampleTable.used())
    if (isLive(record)) computePage(record, pageOf(record, page), FailureMode::PeakStress, cohesionFormat);
}

// ---- Form4, Form6, Form9

constexpr std::array<Name, 8> kForm4Commands{"FILLIN", "RZMSAVE",     "RZMPRINT",      "ZMPRINT",
                                             "PEXCEL", "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS"};
constexpr std::array<Name, 7> kForm6Commands{"FILLIN",      "RZMSAVE",       "RZMPRINT",      "ZMPRINT",
                                             "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS"};
constexpr std::array<Name, 8> kForm9Commands{"FILLIN", "RZMSAVE",     "RZMPRINT",      "ZMPRINT",
                                             "PTK0",   "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS"};

void reduceUnconfined(Workspace& workspace) {
  reduceAllUnconfinedSamples(workspace.UnconfinedSampleTable.used(), workspace.settings.habits.sensitivityFormat());
}
void reduceK0(Workspace& workspace) { reduceAllK0Samples(workspace.K0SampleTable.used()); }
void reduceTK0(Workspace& workspace) { reduceAllTK0Samples(workspace.TK0SampleTable.used()); }

/// The record keeps the lines of the construction, but not where they meet the curve.
void tellT90(const Workspace& workspace, std::size_t row, FieldSink& sink) {
  TK0SampleRecord record = workspace.TK0SampleTable[row];
  sink.name("t90Minutes");
  sink.beginArray();
  for (const T90& t90 : computeStageResults(record)) sink.number(t90.minutes());
  sink.endArray();
}

constexpr Name kTriaxialSaved = "三轴试验数据保存完毕";
constexpr Name kChangedFirst = "   数据已修改\n保存修改后数据吗？";
constexpr Name kQuestionFirst = "保存修改后数据吗？\n\n   数据已修改";

// Form1, Form2 and Form7 leave activeDocument as it is when they have closed; Form2 and Form7 reset no command. They
// show what is in the table of Form1, which is saved with it.
constexpr std::array kDocumentKinds{
    DocumentKind{.document = kForm1,
                 .tests = ProjectKind::Triaxial,
                 .master = kForm1,
                 .savedMessage = kTriaxialSaved,
                 .closing = {"保存三轴数据", kChangedFirst, MessageIcon::None},
                 .activation = {kForm1Commands, kImportAndTK0Curves},
                 .close = {kImport, kForm1Commands},
                 .intervention = kForm1,
                 .reduce = reduceTriaxial,
                 .showPage = showTriaxialPage,
                 .results = triaxialResultLines},
    DocumentKind{.document = kForm2,
                 .tests = ProjectKind::Triaxial,
                 .master = kForm1,
                 .savedMessage = kTriaxialSaved,
                 .activation = {{}, kTK0Curves},
                 .intervention = kForm1},
    DocumentKind{.document = kForm7,
                 .tests = ProjectKind::Triaxial,
                 .master = kForm1,
                 .savedMessage = kTriaxialSaved,
                 .activation = {{}, kTK0Curves},
                 .intervention = kForm1},
    DocumentKind{.document = kForm4,
                 .tests = ProjectKind::Unconfined,
                 .master = kForm4,
                 .savedMessage = "无侧限试验数据保存完毕",
                 .closing = {"保存无侧陷抗压强度试验数据", kQuestionFirst},
                 .activation = {kForm4Commands, kImportAndTK0Curves},
                 .close = {kImport, kForm4Commands},
                 .leavesNoDocument = true,
                 .intervention = kForm1,
                 .readsHabits = true,
                 .reduce = reduceUnconfined,
                 .reducesForSave = true,
                 .results = unconfinedResultLines},
    DocumentKind{.document = kForm6,
                 .tests = ProjectKind::K0,
                 .master = kForm6,
                 .savedMessage = "K0试验数据保存完毕",
                 .closing = {"保存Ko试验数据", kQuestionFirst},
                 .activation = {kForm6Commands, kImportAndTK0Curves},
                 .close = {kImport, kForm6Commands},
                 .leavesNoDocument = true,
                 .intervention = kForm6,
                 .reduce = reduceK0,
                 .results = k0ResultLines},
    DocumentKind{.document = kForm9,
                 .tests = ProjectKind::TK0,
                 .master = kForm9,
                 .savedMessage = "TK0试验数据保存完毕",
                 .closing = {"保存TKo试验数据", kQuestionFirst},
                 .activation = {kForm9Commands, kImport},
                 .close = {kImport, kForm9Commands},
                 .leavesNoDocument = true,
                 .intervention = std::nullopt,
                 .reduce = reduceTK0,
                 .results = tk0ResultLines,
                 .tellDerived = tellT90},
};

}  // namespace

std::span<const DocumentKind> documentKinds() { return kDocumentKinds; }

const DocumentKind& documentKindOf(std::int16_t document) {
  const auto wanted = document == kNoDocument ? kForm1 : static_cast<ActiveDocument>(document);
  const auto* const row = std::ranges::find(kDocumentKinds, wanted, &DocumentKind::document);
  if (row == kDocumentKinds.end()) throw std::out_of_range("no such document");
  return *row;
}

const DocumentKind& documentOfTests(ProjectKind kind) {
  const ProjectKind shown = infoOf(kind).savedAs;
  return *std::ranges::find_if(kDocumentKinds, [shown](const DocumentKind& row) { return row.tests == shown; });
}

}  // namespace triaxlab
