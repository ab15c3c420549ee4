// What a person waits for in the windows of unconfined, K0 and TK0 samples: a key press until the window is drawn. On
// the platform without a display.

#include <benchmark/benchmark.h>

#include <QImage>
#include <QKeyEvent>
#include <QPixmap>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "k0/opening_pass.h"
#include "shell/fakes.h"
#include "store/summary/summary_record.h"
#include "support/temporary_folder.h"
#include "unconfined/reduction.h"
#include "windows/k0/k0_window.h"
#include "windows/k0/tk0_window.h"
#include "windows/lone_application.h"
#include "windows/unconfined/stress_window.h"

namespace triaxlab {
namespace {

constexpr const char* kProject = "BENCH";

std::string sampleNo(std::size_t row) { return "ZK" + std::to_string(row + 1); }

/// Two curves of 51 rows.
UnconfinedSampleRecord fullCurves(std::size_t row) {
  UnconfinedSampleRecord record;
  SetText(record.projectNo, kProject);
  SetText(record.sampleNo, sampleNo(row));
  for (const Specimen specimen : kSpecimens) {
    SetText(record.sampleArea[indexOf(specimen)], "12.00");
    record.ringCoefficient[indexOf(specimen)] = 1250;
    for (std::size_t reading = 0; reading < kUnconfinedRows; ++reading) {
      const double strain = 0.4 * static_cast<double>(reading + 1), peak = 8 + static_cast<double>(row % 5);
      SetNumber(strainOf(record, specimen)[reading], strain, NumberFormat::Tenths);
      SetNumber(readingOf(record, specimen)[reading], 90 * strain / peak * std::exp(1 - strain / peak),
                NumberFormat::Tenths);
    }
  }
  return record;
}

/// Ten stages with a settlement of 22 rows.
TK0SampleRecord fullSample(std::size_t row) {
  TK0SampleRecord record;
  SetText(record.k0.projectNo, kProject);
  SetText(record.k0.sampleNo, sampleNo(row));
  record.stageCount = static_cast<std::int16_t>(kLoadStages);
  record.timeRowCount = std::int16_t{22};
  for (int time = 1; time <= 21; ++time) record.elapsedSeconds[static_cast<std::size_t>(time)] = 12 * time * time;
  for (std::size_t stage = 0; stage < kLoadStages; ++stage) {
    const double load = 50.0 * static_cast<double>(stage + 1);
    SetNumber(record.k0.axialPressure[stage], load, NumberFormat::Tenths);
    for (std::size_t time = 0; time <= 21; ++time) {
      const double share = 1 - 1 / (1.0 + static_cast<double>(time * time) / 20);
      SetNumber(record.deformationSeries[time][stage], 0.3 * static_cast<double>(stage) + 0.28 * share,
                NumberFormat::Thousandths);
      SetNumber(record.pressureSeries[time][stage], load * (0.7 - 0.25 * share), NumberFormat::Tenths);
    }
  }
  return record;
}

/// A full project whose summary file has all its samples, of every kind.
struct FullProjects {
  FullProjects() {
    workspace.dataFolder = folder.path();
    std::filesystem::create_directory(folder.path() / "ZMSJ");
    std::ofstream summary(folder.path() / "ZMSJ" / (std::string("KHZ") + kProject + ".txt"), std::ios::binary);
    SummaryHeader header;
    SetText(header.sampleCount, std::to_string(kTableRows));
    summary.write(reinterpret_cast<const char*>(&header), sizeof header);
    for (std::size_t row = 0; row < kTableRows; ++row) {
      SummaryRecord record;
      SetText(record.sampleNo, sampleNo(row));
      summary.write(reinterpret_cast<const char*>(&record), sizeof record);
      workspace.TK0SampleTable[row] = fullSample(row);
      workspace.UnconfinedSampleTable[row] = fullCurves(row);
    }
    summary.close();
    reduceAllTK0Samples(workspace.TK0SampleTable.used());
    reduceAllUnconfinedSamples(workspace.UnconfinedSampleTable.used(), NumberFormat::Hundredths);
    for (std::size_t row = 0; row < kTableRows; ++row) workspace.K0SampleTable[row] = workspace.TK0SampleTable[row].k0;
  }

  testing::TemporaryFolder folder;
  Workspace workspace;
};

/// A window over them.
template <class Form>
struct Window : FullProjects {
  Window() {
    makeApplication();
    form = std::make_unique<Form>(workspace, shell);
    form->show();
    form->grab();
  }

  QWidget* control(const char* name) const { return form->template findChild<QWidget*>(name); }
  void key(QWidget* widget, int key) const {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
  }
  void picture() const { benchmark::DoNotOptimize(form->grab().toImage().constBits()); }

  testing::FakeDialogs dialogs;
  testing::FakeWindows windows;
  ShellSession shell{workspace, dialogs, windows};
  std::unique_ptr<Form> form;
};

/// Down in the list: another sample is fitted and shown.
template <class Form>
void DownInTheList(benchmark::State& state) {
  const Window<Form> window;
  QWidget* const last = window.control("Text1(6)");
  last->setFocus();
  for (auto _ : state) {
    window.key(last, Qt::Key_Down);
    window.picture();
  }
}
BENCHMARK_TEMPLATE(DownInTheList, Form4)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(DownInTheList, Form6)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(DownInTheList, Form9)->Unit(benchmark::kMillisecond);

/// A digit in a reading: the record takes it.
template <class Form>
void KeyInAReading(benchmark::State& state) {
  const Window<Form> window;
  QWidget* const box = window.control("Text2(1)");
  box->setFocus();
  bool types = true;
  for (auto _ : state) {
    QKeyEvent press(QEvent::KeyPress, types ? Qt::Key_1 : Qt::Key_Backspace, Qt::NoModifier, types ? "1" : "");
    QApplication::sendEvent(box, &press);
    window.picture();
    types = !types;
  }
}
BENCHMARK_TEMPLATE(KeyInAReading, Form4)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(KeyInAReading, Form6)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(KeyInAReading, Form9)->Unit(benchmark::kMillisecond);

/// An arrow while a line is moved: it goes to and fro.
template <class Form, int enteringKey>
void ArrowToPicture(benchmark::State& state) {
  Window<Form> window;
  QWidget* const chart = window.control("Picture1");
  if (enteringKey == Qt::Key_F5)
    window.key(window.form.get(), enteringKey);
  else
    window.form->enterIntervention();
  bool up = true;
  for (auto _ : state) {
    window.key(chart, up ? Qt::Key_Up : Qt::Key_Down);
    window.picture();
    up = !up;
  }
  window.dialogs.answers = {false};
  window.form->leaveIntervention(window.dialogs);
}
BENCHMARK_TEMPLATE(ArrowToPicture, Form6, Qt::Key_F4)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(ArrowToPicture, Form9, Qt::Key_F4)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(ArrowToPicture, Form9, Qt::Key_F5)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
