// What a person waits for: a key press until the window is drawn, a document as PDF, the program's start; and how much
// memory a full project takes. Everything runs on the platform without a display.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "full_sample.h"
#include "platform/qt/application.h"
#include "platform/qt/page_devices.h"
#include "reports/three_in_one.h"
#include "store/save_project.h"
#include "triaxial/opening_pass.h"
#include "windows/appearance.h"
#include "windows/play/play_dialogs.h"
#include "windows/triaxial_curve_window.h"

namespace triaxlab {
namespace {

/// The application object of the program, made once and never destroyed: at the end of the process Qt's own statics are
/// already gone.
void makeApplication() {
  static char name[] = "bench_windows";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  prepareApplication();
  static auto* const application = new QApplication(count, arguments);
  restoreNumberLocale();
  setAppearance(*application);
}

Workspace fullWorkspace(std::size_t samples) {
  Workspace workspace;
  for (std::size_t row = 0; row < samples; ++row) workspace.TriaxialSampleTable[row] = fullSample(row);
  runOpeningPass(workspace.TriaxialSampleTable, NumberFormat::Whole);
  return workspace;
}

/// A shell without windows of its own.
class NoWindows : public ShellWindows {
 public:
  void showBrowser(BrowserSession&) override {}
  void showRangeDialog(RangeDialog&) override {}
  void showOverwriteDialog(OverwriteSession&) override {}
  void showPrintDialog(std::string_view) override {}
  std::optional<Remarks> showImporter(std::string_view) override { return std::nullopt; }
  void showDocument(ActiveDocument) override {}
  void raiseDocument(ActiveDocument) override {}
  std::vector<ActiveDocument> loadedDocuments() const override { return {}; }
  DocumentWindow* document(ActiveDocument) override { return nullptr; }
  CurveDocument* curveDocument() override { return nullptr; }
  void refresh() override {}
  void endProgram() override {}
};

/// Down in the list: another sample is computed and shown, and the whole window is drawn.
void KeyPressToPicture(benchmark::State& state) {
  makeApplication();
  Workspace workspace = fullWorkspace(kTableRows);
  PlayDialogs dialogs;
  NoWindows windows;
  ShellSession shell(workspace, dialogs, windows);
  Form1 form(workspace, shell);
  form.show();
  auto* const list = form.findChild<QWidget*>("Text1");
  list->show();
  form.showPage(static_cast<CurvePage>(state.range(0)));
  for (auto _ : state) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(list, &press);
    benchmark::DoNotOptimize(form.grab().toImage().constBits());
  }
}
BENCHMARK(KeyPressToPicture)->ArgName("page")->DenseRange(1, 6)->Unit(benchmark::kMillisecond);

/// A hundred samples of two curves each: a page for each sample.
void HundredPagesToPdf(benchmark::State& state) {
  makeApplication();
  constexpr int kPages = 100;
  const Workspace workspace = fullWorkspace(kPages);
  PrintJob job;
  job.curves = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope};
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "triaxlab-bench-windows.pdf";
  for (auto _ : state)
    if (runThreeInOne(job, workspace, *makePdfDevice(file)) != kPages) throw std::logic_error("not a hundred pages");
  std::filesystem::remove(file);
}
BENCHMARK(HundredPagesToPdf)->Unit(benchmark::kMillisecond);

/// A folder for a run of the program, gone at the end.
class RunFolder {
 public:
  RunFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "triaxlab-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    m_path = name;
  }
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;
  ~RunFolder() { std::filesystem::remove_all(m_path); }

  const std::filesystem::path& path() const { return m_path; }

  /// Plays a script in the program, waits for its end, and returns the peak of its memory, MB.
  double play(const std::string& script) const {
    const std::string file = (m_path / "script.play").string(), folder = m_path.string();
    std::ofstream(file) << script;
    std::vector<std::string> words{TRIAXLAB_PROGRAM, "--app", folder, "--play", file};
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(folder));
    pid_t process = 0;
    int status = 0;
    rusage used{};
    if (posix_spawn(&process, TRIAXLAB_PROGRAM, nullptr, nullptr, arguments.data(), environ) != 0 ||
        wait4(process, &status, 0, &used) != process || status != 0)
      throw std::runtime_error("the program did not play " + script);
    return static_cast<double>(used.ru_maxrss) / 1024;
  }

 private:
  std::filesystem::path m_path;
};

/// From nothing to a shown main window and the end again. The first start in the folder, which makes settings and
/// folders, comes before.
void ColdStart(benchmark::State& state) {
  const RunFolder folder;
  folder.play("");
  for (auto _ : state) folder.play("");
}
BENCHMARK(ColdStart)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A project of 1001 full samples is opened and one of its samples shown on each page; `peakMB` is VmHWM.
void FullProject(benchmark::State& state) {
  const RunFolder folder;
  folder.play("");
  Workspace workspace = fullWorkspace(kTableRows);
  workspace.applicationFolder = workspace.dataFolder = folder.path();
  saveTriaxial(workspace, {});
  double peak = 0;
  for (auto _ : state)
    peak = folder.play(
        "menu ZMOPEN\nclick OPENFORM.Labelcz\nclick Form21.Command1\nscroll Form1.VScroll1 981\n"
        "expect Form1.Label1(41) 1001\nclick Form1.Command4\nclick Form1.Command4\nshot Form1 form1.png\n");
  state.counters["peakMB"] = peak;
}
BENCHMARK(FullProject)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

}  // namespace
}  // namespace triaxlab
