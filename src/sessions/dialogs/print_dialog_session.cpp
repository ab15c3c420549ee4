#include "sessions/dialogs/print_dialog_session.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <utility>

#include "common/conversions.h"
#include "common/gbk.h"
#include "common/text_number.h"
#include "platform/files.h"
#include "reports/document_info.h"
#include "sessions/dialogs/error_display.h"
#include "sessions/dialogs/print_choices.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"

namespace triaxlab {
namespace {

constexpr const char* kPdfExtension = ".pdf";
constexpr const char* kNoPage = "没有可打印的页。";
constexpr const char* kNoFile = "打印已停止，没有写出文件。";
constexpr const char* kPreviewTitle = "打印预览";
constexpr const char* kJobTitle = "打印三轴试验成果曲线";
constexpr const char* kNoCurve = "请选择要打印的曲线类型！";
constexpr std::int16_t kMostCopies = 99;
constexpr std::int16_t kMostStored = 255;  // rows or columns in a byte

constexpr std::array kCurveTicks{
    PrintTick::StressStrain, PrintTick::StressRatioEnvelope, PrintTick::StressDifferenceEnvelope,
    PrintTick::StressPath,   PrintTick::PorePressure,        PrintTick::StressRatio};
constexpr std::array kFirstTicks{PrintTick::StressStrain, PrintTick::StressDifferenceEnvelope, PrintTick::PageNumbers};

/// What a tick is to a job that has it.
struct JobTick {
  PrintTick tick;
  bool PrintJob::*field;
};
constexpr std::array kJobTicks{JobTick{PrintTick::PageNumbers, &PrintJob::printPageNumbers},
                               JobTick{PrintTick::Picture, &PrintJob::printToPicture},
                               JobTick{PrintTick::A3, &PrintJob::printToA3},
                               JobTick{PrintTick::DataSheet, &PrintJob::printDataSheet}};

/// The six pages count from 1.
CurvePage curveOf(PrintTick tick) { return static_cast<CurvePage>(static_cast<int>(tick) + 1); }

int liveSamples(const Workspace& workspace, ProjectKind kind) {
  const SampleRows table(workspace, kind);
  int live = 0;
  for (std::size_t row = 0; row < table.size(); ++row) live += table.isLive(row);
  return live;
}

/// The number typed in a range box without its sign, at most `largest`.
std::int16_t typedNumber(const std::string& text, int largest) {
  const double number = std::min(std::abs(ParseNumber(text)), static_cast<double>(largest));
  return toInt16(number).value_or(1);
}

std::int16_t copiesOf(const std::string& text) { return std::max<std::int16_t>(typedNumber(text, kMostCopies), 1); }

/// Without circles an envelope has nothing to lie on.
void dropEnvelopesWithoutCircles(ByTick<bool>& ticks) {
  if (ticks[PrintTick::EffectiveCircles] || ticks[PrintTick::TotalCircles]) return;
  for (const PrintTick envelope : {PrintTick::StressRatioEnvelope, PrintTick::StressDifferenceEnvelope})
    ticks[envelope] = false;
}

CurveOptions curveOptionsOf(ByTick<bool> ticks) {
  dropEnvelopesWithoutCircles(ticks);
  CurveOptions options{.pages = {},
                       .totalCircles = ticks[PrintTick::TotalCircles],
                       .effectiveCircles = ticks[PrintTick::EffectiveCircles]};
  for (const PrintTick curve : kCurveTicks)
    if (ticks[curve]) options.pages.push_back(curveOf(curve));
  return options;
}

bool hasCurves(const PrintForm& form) { return form.has(PrintTick::StressStrain); }
bool hasSheet(const PrintForm& form) { return form.has(PrintBox::Rows); }

/// Its project and the day of printing.
std::string proposedName(std::string_view projectNo, const Date& today) {
  const std::string day = fmt::format("{:04}-{:02}-{:02}", today.year, today.month, today.day);
  return whyNoFileName(projectNo) ? day : projectFileName("", projectNo, "_" + day);
}

std::optional<std::filesystem::path> askForPdf(std::string_view projectNo, const Workspace& workspace,
                                               Dialogs& dialogs) {
  const std::string name = proposedName(projectNo, workspace.today()) + kPdfExtension;
  std::optional<std::filesystem::path> file =
      dialogs.chooseFileToSave({.title = "打印到PDF文件",
                                .filter = "PDF Files (*.pdf)|*.pdf|All  Files (*.*)|*.*",
                                .initial = workspace.dataFolder / pathFromText(name)});
  if (file && !file->has_extension()) *file += kPdfExtension;
  return file;
}

}  // namespace

PreviewedJob::PreviewedJob(const Layout& layout, PrintJob previewed, const Workspace& workspace)
    : job(std::move(previewed)), report(layout.make(job, workspace)), sheets(*report, job) {}

PrintDialogSession::PrintDialogSession(const PrintForm& form, const Layout& layout, Workspace& workspace,
                                       Dialogs& dialogs, OnDisplay onDisplay)
    : m_form(form), m_layout(layout), m_workspace(workspace), m_dialogs(dialogs), m_onDisplay(onDisplay) {
  for (const PrintTick first : kFirstTicks) m_state.ticks[first] = true;
  readKeptTicks(workspace, m_state.ticks);
  m_state.texts.values.fill("1");
  m_state.texts[PrintBox::To] = std::to_string(liveSamples(workspace, layout.kind));
  if (hasSheet(form)) readSheet();
}

void PrintDialogSession::readSheet() {
  runShowingErrors(m_dialogs, [this] { m_storedSheet = readPageSetup(m_workspace); });
  m_state.paper = m_storedSheet.paperOfDialog();
  m_state.portrait = m_storedSheet.portrait;
  m_state.texts[PrintBox::Rows] = std::to_string(m_storedSheet.rows);
  m_state.texts[PrintBox::Columns] = std::to_string(m_storedSheet.columns);
  m_state.texts[PrintBox::LeftMargin] = fmt::format("{}", m_storedSheet.leftMarginCm);
  m_state.texts[PrintBox::RightMargin] = fmt::format("{}", m_storedSheet.rightMarginCm);
}

// ---- What a person does

PrintDialogState PrintDialogSession::state() const {
  PrintDialogState state = m_state;
  state.canPreview = !hasCurves(m_form) || !job().curves.pages.empty();
  state.canChoosePrinter = !makesPictures(job());
  state.canTickPicture = m_form.pagesAsPictures || m_state.scope != PrintScope::Pages;
  state.boxesOn.values.fill(true);
  if (!m_form.boxesFollowScope) return state;
  for (const ScopeOption& option : m_form.scopes)
    if (option.range)
      state.boxesOn[option.range->from] = state.boxesOn[option.range->to] = option.scope == m_state.scope;
  return state;
}

std::optional<PrintBox> PrintDialogSession::choose(PrintScope scope) {
  m_state.scope = scope;
  if (scope == PrintScope::Pages && !m_form.pagesAsPictures) m_state.ticks[PrintTick::Picture] = false;
  const ScopeOption& option = m_form.option(scope);
  return option.range ? std::optional(option.range->from) : std::nullopt;
}

void PrintDialogSession::enterBox(PrintBox box) {
  const bool ofRange = box == PrintBox::From || box == PrintBox::To;
  if (ofRange && m_state.scope != PrintScope::Pages) m_state.scope = PrintScope::Range;
}

void PrintDialogSession::setText(PrintBox box, std::string_view utf8) {
  m_state.texts[box] = utf8;
  // A number that is none keeps the page with which the last one would have begun.
  if (box == PrintBox::FirstPage)
    if (const auto number = toInt16(ParseNumber(utf8))) m_firstPageNumber = std::max<std::int16_t>(*number, 1);
}

// ---- The job

PageSetup PrintDialogSession::typedSheet() const {
  const auto number = [this](PrintBox box) { return ParseNumber(m_state.texts[box]); };
  PageSetup sheet = m_storedSheet;
  sheet.paperCode = static_cast<std::uint8_t>(m_state.paper);
  sheet.portrait = m_state.portrait;
  assignIf(sheet.rows, toInt16(number(PrintBox::Rows)));
  assignIf(sheet.columns, toInt16(number(PrintBox::Columns)));
  assignIf(sheet.leftMarginCm, toSingle(number(PrintBox::LeftMargin)));
  assignIf(sheet.rightMarginCm, toSingle(number(PrintBox::RightMargin)));
  return sheet;
}

void PrintDialogSession::takeRange(PrintJob& job) const {
  job.scope = m_state.scope;
  const std::optional<RangeBoxes>& range = m_form.option(job.scope).range;
  if (!range) return;
  // Samples are counted here, pages when the job is laid out.
  const int largest = job.scope == PrintScope::Pages ? std::numeric_limits<std::int16_t>::max()
                                                     : liveSamples(m_workspace, m_layout.kind);
  job.printRangeFrom = typedNumber(m_state.texts[range->from], largest);
  job.printRangeTo = typedNumber(m_state.texts[range->to], largest);
}

PrintJob PrintDialogSession::job() const {
  PrintJob job = defaultPrintJob(m_workspace.settings);
  takeRange(job);
  job.currentRow = m_onDisplay.row;
  job.currentPart = m_onDisplay.stage;
  if (m_form.choosesPrinter) job.lineWeight = m_state.ticks[PrintTick::DotMatrix] ? 2 : 4;
  for (const auto& [tick, field] : kJobTicks)
    if (m_form.has(tick)) job.*field = m_state.ticks[tick];
  job.firstPageNumber = m_firstPageNumber;
  if (m_form.has(PrintBox::Copies)) job.copies = copiesOf(m_state.texts[PrintBox::Copies]);
  if (hasCurves(m_form)) job.curves = curveOptionsOf(m_state.ticks);
  job.curves.checkedMode = m_onDisplay.checkedMode;
  if (hasSheet(m_form)) {
    job.sheet = typedSheet();
    job.sheet.rows = std::max<std::int16_t>(job.sheet.rows, 1);
    job.sheet.columns = std::max<std::int16_t>(job.sheet.columns, 1);
  }
  return job;
}

void PrintDialogSession::storeSheet() const {
  PageSetup sheet = typedSheet();
  sheet.rows = std::min(sheet.rows, kMostStored);
  sheet.columns = std::min(sheet.columns, kMostStored);
  runShowingErrors(m_dialogs, [&] { writePageSetup(m_workspace, sheet); });
}

bool PrintDialogSession::accept() {
  storeKeptTicks(m_workspace, m_form, m_state.ticks, m_dialogs);
  if (m_form.has(PrintBox::Copies))
    m_state.texts[PrintBox::Copies] = std::to_string(copiesOf(m_state.texts[PrintBox::Copies]));
  if (!hasCurves(m_form)) return true;
  dropEnvelopesWithoutCircles(m_state.ticks);
  if (hasSheet(m_form)) storeSheet();
  if (!job().curves.pages.empty()) return true;
  m_dialogs.message(kJobTitle, kNoCurve, MessageIcon::Stop);
  return false;
}

// ---- Where it goes

std::unique_ptr<PreviewedJob> PrintDialogSession::preview() const {
  std::unique_ptr<PreviewedJob> previewed;
  runShowingErrors(m_dialogs, [&] { previewed = std::make_unique<PreviewedJob>(m_layout, job(), m_workspace); });
  if (!previewed || previewed->sheets.count() > 0) return previewed;
  m_dialogs.message(kPreviewTitle, kNoPage, MessageIcon::None);
  return nullptr;
}

void PrintDialogSession::saveSheet(const PreviewedJob& previewed, int sheet, PageDevices& devices) const {
  runShowingErrors(m_dialogs, [&] {
    const auto file = askForPdf(previewed.sheets.projectNo(sheet), m_workspace, m_dialogs);
    if (!file) return;
    const auto device = devices.pdf(*file, documentInfo(m_layout, *previewed.report, previewed.job, m_workspace));
    previewed.sheets.draw(device->beginPage(previewed.sheets.size()), sheet);
    device->endPage();
    device->finish();
  });
}

/// The device of a job, and what is said when so many of its sheets have come there.
struct PrintDialogSession::Destination {
  std::unique_ptr<PageDevice> device;
  std::function<std::string(int sent, int sheets)> told;
};

void PrintDialogSession::send(PageDevices& devices, const SheetProgress& goesOn) {
  runShowingErrors(m_dialogs, [&] {
    const PrintJob sent = job();
    const auto report = m_layout.make(sent, m_workspace);
    if (report->pagesOf(sent).isEmpty()) {
      m_remarks.emplace_back(kNoPage);
      return;
    }
    const std::optional<Destination> destination = destinationOf(*report, sent, devices);
    if (!destination) return;
    std::string told;
    sendReport(*report, sent, *destination->device, [&](int done, int sheets) {
      told = destination->told(done, sheets);
      return !goesOn || goesOn(done, sheets) || done == sheets;
    });
    if (!told.empty()) m_remarks.push_back(std::move(told));
  });
}

std::optional<PrintDialogSession::Destination> PrintDialogSession::destinationOf(Report& report, const PrintJob& job,
                                                                                 PageDevices& devices) const {
  if (makesPictures(job))
    return Destination{devices.pictures(pictureFolder(report, job, m_workspace), m_layout.picturePrefix),
                       [](int sent, int sheets) { return std::string(sent < sheets ? kNoFile : ""); }};
  if (const std::string printer = m_printer.value_or(devices.printers().usual); !printer.empty()) {
    auto device = devices.printer(
        {.title = m_layout.title, .size = sheetSize(report, job), .copies = job.copies, .name = printer}, m_dialogs);
    if (device == nullptr) return std::nullopt;
    return Destination{std::move(device), [printer](int sent, int sheets) {
                         return sent < sheets ? fmt::format("打印已停止，送出了 {} 张，共 {} 张。", sent, sheets)
                                              : fmt::format("{} 张已送到打印机“{}”。", sheets, printer);
                       }};
  }
  const auto file = askForPdf(Sheets(report, job).projectNo(1), m_workspace, m_dialogs);
  if (!file) return std::nullopt;
  return Destination{devices.pdf(*file, documentInfo(m_layout, report, job, m_workspace)),
                     [file](int sent, int sheets) {
                       return sent < sheets ? kNoFile : fmt::format("{} 页已存为“{}”。", sheets, textOfPath(*file));
                     }};
}

}  // namespace triaxlab
