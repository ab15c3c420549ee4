// What a person waits for: a key press or a move of the mouse until the window is drawn, a project until its first
// picture, a document as PDF, the program's start; and how much memory a full project takes. Everything runs on the
// platform without a display.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "full_sample.h"
#include "shell/document_operations.h"
#include "shell/fakes.h"
#include "store/project/save_project.h"
#include "timing.h"
#include "triaxial/opening_pass.h"
#include "windows/controls/click_label.h"
#include "windows/lone_application.h"
#include "windows/play/person.h"
#include "windows/triaxial/triaxial_curve_window.h"

namespace triaxlab {
namespace {

Workspace fullWorkspace(std::size_t samples) {
  Workspace workspace;
  for (std::size_t row = 0; row < samples; ++row) workspace.TriaxialSampleTable[row] = fullSample(row);
  runOpeningPass(workspace.TriaxialSampleTable.used(), NumberFormat::Whole);
  return workspace;
}

/// The curve window over a full project, on the screen.
struct CurveWindow {
  CurveWindow() {
    makeApplication();
    form = std::make_unique<Form1>(workspace, dialogs, shell);
    form->show();
    form->grab();
  }

  void key(QWidget* widget, int key, const QString& text = {}) const {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &press);
  }
  void picture() const { benchmark::DoNotOptimize(form->grab().toImage().constBits()); }
  QWidget* control(const char* name) const {
    auto* const found = form->findChild<QWidget*>(name);
    if (found == nullptr) throw std::logic_error(name);
    return found;
  }

  Workspace workspace = fullWorkspace(kTableRows);
  testing::FakeDialogs dialogs;
  testing::FakeWindows windows;
  ShellSession shell{workspace, dialogs, windows};
  std::unique_ptr<Form1> form;
};

/// Down in the list: another sample is computed and shown, and the whole window is drawn.
void KeyPressToPicture(benchmark::State& state) {
  const CurveWindow window;
  emit static_cast<ClickLabel*>(window.control("Label1(3)"))->clicked();
  window.form->showPage(static_cast<CurvePage>(state.range(0)));
  for (auto _ : state) {
    window.key(window.control("Text1"), Qt::Key_Down);
    window.picture();
  }
}
BENCHMARK(KeyPressToPicture)->ArgName("page")->DenseRange(1, 6)->Unit(benchmark::kMillisecond);

/// The frame is drawn a little larger, then smaller, about a size in tenths of the natural one: all of the window is
/// placed and drawn anew, with letters of another size at some steps.
void ResizeToPicture(benchmark::State& state) {
  const CurveWindow window;
  const QSize about = window.form->sizeAt(static_cast<double>(state.range(0)) / 10);
  int step = 0;
  for (auto _ : state) {
    window.form->resize(about + QSize(16, 9) * (step++ % 8));
    window.picture();
  }
}
BENCHMARK(ResizeToPicture)->ArgName("tenths")->Arg(10)->Arg(15)->Arg(20)->Arg(28)->Unit(benchmark::kMillisecond);

/// An arrow in the phase of a page: the curve, the envelope or the path moves to and fro, and the whole window is
/// drawn.
void PhaseKeyToPicture(benchmark::State& state) {
  CurveWindow window;
  window.form->showPage(static_cast<CurvePage>(state.range(0)));
  window.form->enterIntervention();
  bool left = true;
  for (auto _ : state) {
    window.key(window.control("Picture1"), left ? Qt::Key_Left : Qt::Key_Right);
    window.picture();
    left = !left;
  }
  window.dialogs.answers = {false};
  window.form->leaveIntervention(window.dialogs);
}
BENCHMARK(PhaseKeyToPicture)->ArgName("page")->DenseRange(1, 4)->Unit(benchmark::kMillisecond);

/// The mouse draws a curve: each move sets a reading, and what has changed is drawn, as the screen would have it.
void MouseMoveInCurvePhase(benchmark::State& state) {
  CurveWindow window;
  window.form->enterIntervention();
  QWidget* const canvas = window.control("Picture1");
  int step = 0;
  moveMouse(canvas, {100, 200}, MouseMotion::Press);
  for (auto _ : state) {
    moveMouse(canvas, {100.0 + step % 200, 150.0 + step % 7}, MouseMotion::Drag);
    benchmark::DoNotOptimize(canvas->grab().toImage().constBits());
    ++step;
  }
  moveMouse(canvas, {100, 200}, MouseMotion::Release);
  window.dialogs.answers = {false};
  window.form->leaveIntervention(window.dialogs);
}
BENCHMARK(MouseMoveInCurvePhase)->Unit(benchmark::kMillisecond);

/// A letter in a field: the record takes it, and the window shows what was taken.
void KeyInAField(benchmark::State& state) {
  const CurveWindow window;
  QWidget* const field = window.control("Text5");
  bool types = true;
  for (auto _ : state) {
    window.key(field, types ? Qt::Key_A : Qt::Key_Backspace, types ? "a" : "");
    types = !types;
  }
}
BENCHMARK(KeyInAField)->Unit(benchmark::kMicrosecond);

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
  saveProject(workspace, ProjectKind::Triaxial, {});
  double peak = 0;
  for (auto _ : state)
    peak = folder.play(
        "menu ZMOPEN\nclick OPENFORM.Labelcz\nclick Form21.Command1\nscroll Form1.VScroll1 981\n"
        "expect Form1.Label1(41) 1001\nclick Form1.Command4\nclick Form1.Command4\nshot Form1 form1.png\n");
  state.counters["peakMB"] = peak;
}
BENCHMARK(FullProject)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

/// The same project opened in this process up to the first picture, against reading it and its opening pass alone.
void OpenToPictureAgainstReadAndPass(benchmark::State& state) {
  const RunFolder folder;
  CurveWindow window;
  Workspace& workspace = window.workspace;
  workspace.applicationFolder = workspace.dataFolder = folder.path();
  for (const char* const name : {"HSZS", "ZMSJ"}) std::filesystem::create_directories(folder.path() / name);
  saveProject(workspace, ProjectKind::Triaxial, {});
  const auto all = [](int count) { return SampleRange{1, count}; };
  compare(
      state, Seconds::Elapsed,
      [&] {
        openDocument(workspace, ProjectKind::Triaxial, "WKSZBENCH.txt", all);
        window.form->load();
        window.picture();
      },
      [&] {
        openProject(workspace, ProjectKind::Triaxial, "WKSZBENCH.txt", all);
        runOpeningPass(workspace.TriaxialSampleTable.used(), NumberFormat::Whole);
      });
}
BENCHMARK(OpenToPictureAgainstReadAndPass)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
