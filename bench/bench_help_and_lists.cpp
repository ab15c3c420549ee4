// What a technician waits for who presses F1, and who types into the filter of the project list, until it is seen. On
// the platform without a display.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPixmap>
#include <array>
#include <filesystem>
#include <string>

#include "platform/files.h"
#include "sessions/dialogs/browser_session.h"
#include "store/project/project_frame.h"
#include "support/fake_dialogs.h"
#include "support/temporary_folder.h"
#include "windows/dialogs/project_browser_window.h"
#include "windows/help/manual_window.h"
#include "windows/lone_application.h"

namespace triaxlab {
namespace {

/// The first window of the manual that a run makes; later ones find the fonts loaded.
void OpenTheManual(benchmark::State& state) {
  makeApplication();
  for (auto _ : state) {
    ManualWindow window;
    window.showTopic(nullptr);
    benchmark::DoNotOptimize(window.grab().toImage().constBits());
  }
}
BENCHMARK(OpenTheManual)->Unit(benchmark::kMillisecond);

/// So many projects that no laboratory has in one folder, each of a header alone.
void fillWithProjects(const std::filesystem::path& folder, int count) {
  std::filesystem::create_directories(folder / "HSZS");
  ProjectHeader header;
  SetText(header.sampleCount, "0");
  SetText(header.versionTag, "V2.0");
  for (int i = 0; i < count; ++i) {
    const std::string number = "TJ" + std::to_string(2000 + i % 25) + "-" + std::to_string(i);
    SetText(header.projectNo, number);
    File(folder / "HSZS" / ("WKSZ" + number + ".txt"), File::Mode::Create).writeAt(0, bytesOf(header));
  }
}

/// A letter of a number typed and taken back by turns, over 10,000 projects.
void LetterInTheFilter(benchmark::State& state) {
  makeApplication();
  const testing::TemporaryFolder folder;
  fillWithProjects(folder.path(), 10'000);
  Workspace workspace;
  workspace.applicationFolder = workspace.dataFolder = folder.path();
  workspace.openDialogKind = static_cast<std::int16_t>(ProjectKind::Triaxial);
  testing::FakeDialogs dialogs;
  BrowserSession session(workspace, dialogs, [](ProjectKind, std::string_view) { return Remarks{}; });
  OPENFORM window(nullptr, session);
  window.show();
  auto* const filter = window.findChild<QLineEdit*>("Filter");
  constexpr std::array kKeys{std::pair{Qt::Key_2, "2"}, std::pair{Qt::Key_0, "0"}, std::pair{Qt::Key_Backspace, ""},
                             std::pair{Qt::Key_Backspace, ""}};
  std::size_t next = 0;
  for (auto _ : state) {
    const auto& [key, text] = kKeys.at(next++ % kKeys.size());
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(filter, &press);
    benchmark::DoNotOptimize(window.grab().toImage().constBits());
  }
}
BENCHMARK(LetterInTheFilter)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
