// The program on the screens that laboratories have, each with a window manager, at the scales that a desktop sets. The
// pictures stay in the build folder, in `screens`, to be looked at.

#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>
#include <tuple>

#include "played_program.h"
#include "support/x_server.h"
#include "windows/controls/words.h"

namespace triaxlab::testing {
namespace {

struct Screen {
  const char* size;
  int width, height;
};
void PrintTo(const Screen& screen, std::ostream* out) { *out << screen.size; }

class OnScreen : public ::testing::TestWithParam<std::tuple<Screen, double>> {
 protected:
  void SetUp() override {
    if (!display.runs()) GTEST_SKIP() << "Xvfb is not installed: nothing was shown on a screen";
    if (!desktop.runs()) GTEST_SKIP() << "openbox is not installed: nothing was shown on a desktop";
    program.screen = fmt::format("QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR={}", scale);
  }
  QImage picture(const char* name) const {
    const std::filesystem::path file = program.folder() / name;
    const std::string kept = fmt::format("{}/{}_{}_{}", TRIAXLAB_SCREENS, screen.size, scale, name);
    std::filesystem::create_directories(TRIAXLAB_SCREENS);
    std::filesystem::copy_file(file, kept, std::filesystem::copy_options::overwrite_existing);
    return QImage(words(file.string()));
  }

  Screen screen = std::get<0>(GetParam());
  double scale = std::get<1>(GetParam());
  XServer display{screen.size};
  WindowManager desktop;
  PlayedProgram program;
};

TEST_P(OnScreen, TheWindowsTakeTheRoomThatThereIs) {
  const PlayResult result = program.play(R"(
shot MDIForm1 first.png
fill MDIForm1
file HSZSJ.KU
menu NEWSZ
dblcell OPENFORM0.Grid1 2
click OPENFORM0.Command1
fill Form1
shot MDIForm1 main.png
shot Form1 document.png
)");
  ASSERT_EQ(result.errors, "");
  const QImage first = picture("first.png"), main = picture("main.png"), document = picture("document.png");
  // 1120 by 760 pixels with its frame, or the screen when that is smaller.
  EXPECT_LE(first.width(), std::min<double>(screen.width, 1120 * scale));
  EXPECT_LE(first.height(), std::min<double>(screen.height, 760 * scale));
  // A frame has a title of some 30 pixels, and borders.
  EXPECT_LE(main.width(), screen.width);
  EXPECT_GE(main.width(), screen.width - 10 * scale);
  EXPECT_LE(main.height(), screen.height);
  EXPECT_GE(main.height(), screen.height - 40 * scale);
  // Form1 is 1040 by 600 pixels; menu, status bar and its own title take some 90 pixels of the height.
  const double room = std::min(main.width() / 1040.0, (main.height() - 90 * scale) / 600.0);
  EXPECT_NEAR(document.width(), 1040 * std::clamp(room, 0.8 * scale, 3 * scale), 0.06 * 1040 * scale);
  EXPECT_NEAR(document.width() / 1040.0, document.height() / 600.0, 0.01);
}

INSTANTIATE_TEST_SUITE_P(
    Windows, OnScreen,
    ::testing::Combine(::testing::Values(Screen{"1366x768", 1366, 768}, Screen{"1920x1080", 1920, 1080},
                                         Screen{"2560x1440", 2560, 1440}, Screen{"3840x2160", 3840, 2160}),
                       ::testing::Values(1, 1.5, 2)));

}  // namespace
}  // namespace triaxlab::testing
