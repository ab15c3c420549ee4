// Nothing in a window is cut or covered, at any scale; every command's own window is looked at where it is pressed.

#include "window_geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <initializer_list>

#include "desk.h"
#include "lone_application.h"
#include "windows/controls/scaled_window.h"
#include "windows/dialogs/move_rows_window.h"
#include "windows/dialogs/range_window.h"
#include "windows/dialogs/sample_list_window.h"
#include "windows/dialogs/sort_range_window.h"

namespace triaxlab::testing {
namespace {

using ::testing::IsEmpty;

/// A window with nothing wrong but what a test does to it.
class Sheet : public QWidget {
 public:
  Sheet() {
    setObjectName("Sheet");
    resize(200, 100);
    left = put(new ClickLabel(this, "围压"), "Left", {150, 150, 900, 300});
    right = put(new ClickLabel(this, "峰值"), "Right", {1200, 150, 900, 300});
    show();
  }
  std::vector<std::string> faults() const { return WindowGeometry::faultsOf(*this); }

  ClickLabel *left, *right;
};

class LookedAt : public ::testing::Test {
 protected:
  LookedAt() { makeApplication(); }
};

TEST_F(LookedAt, AWindowInWhichAllIsSeenHasNoFaults) { EXPECT_THAT(Sheet().faults(), IsEmpty()); }

TEST_F(LookedAt, ATextThatIsWiderThanItsPlaceIsFound) {
  const Sheet sheet;
  sheet.left->setText("一级一级一级一级");
  EXPECT_EQ(sheet.faults().size(), 1U);
}

TEST_F(LookedAt, AControlThatIsTooLowIsFound) {
  const Sheet sheet;
  setPlace(sheet.left, {150, 150, 900, 90});
  EXPECT_EQ(sheet.faults().size(), 1U);
}

TEST_F(LookedAt, NeighboursThatLieOverEachOtherAreFound) {
  const Sheet sheet;
  setPlace(sheet.right, {600, 150, 900, 300});
  EXPECT_EQ(sheet.faults().size(), 1U);
}

TEST_F(LookedAt, AControlBeyondTheEdgeIsFound) {
  const Sheet sheet;
  setPlace(sheet.right, {2700, 150, 900, 300});
  EXPECT_EQ(sheet.faults().size(), 1U);
}

// ---- the windows of the program

class EveryWindow : public ::testing::TestWithParam<ActiveDocument> {
 protected:
  EveryWindow() { makeApplication(); }
};

ScaledWindow& inFront(const Desk& desk) {
  return dynamic_cast<ScaledWindow&>(*desk.window.findChild<QMdiArea*>()->currentSubWindow()->widget());
}

/// At the bounds and between them.
void lookAtEveryScale(ScaledWindow& window) {
  for (const double scale : {0.8, 0.9, 1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0}) {
    window.resize(window.sizeAt(scale));
    EXPECT_NEAR(window.scale(), scale, 0.005);
    EXPECT_THAT(WindowGeometry::faultsOf(window), IsEmpty()) << scale;
  }
}

TEST_P(EveryWindow, ShowsAllOfItselfAtEveryScale) {
  const Desk desk(GetParam());
  lookAtEveryScale(inFront(desk));
}

INSTANTIATE_TEST_SUITE_P(Documents, EveryWindow, ::testing::Values(kForm1, kForm2, kForm7, kForm4, kForm6, kForm9));

TEST_F(LookedAt, AWindowShowsAllOfItselfWhileALineIsMoved) {
  for (const ActiveDocument document : {kForm1, kForm6, kForm9}) {
    Desk desk(document);
    desk.lab.workspace.settings.toggles.showPhysicalIndices = true;
    pressKey(&inFront(desk), keyStroke("F4"));
    ASSERT_TRUE(inFront(desk).findChild<QWidget*>("Frame1")->isVisible()) << document;
    if (document == kForm1) {
      EXPECT_TRUE(inFront(desk).findChild<QWidget*>("PhysicalFrame")->isVisible());
    }
    lookAtEveryScale(inFront(desk));
  }
}

TEST_F(LookedAt, EveryPageOfTheCurveWindowShowsAllOfItself) {
  Desk desk(kForm1);
  for (const char* const page : {"QUXIAN1", "QUXIAN2", "QUXIAN3", "QUXIAN4", "QUXIAN5", "QUXIAN6"}) {
    SCOPED_TRACE(page);
    desk.press(page);
    lookAtEveryScale(inFront(desk));
  }
}

TEST_F(LookedAt, WindowsAreInASansFaceAndWhatLiesOverACanvasInThatOfTheCanvas) {
  const Desk desk(kForm7);
  const auto familyOf = [&desk](const char* form, const char* control) {
    return desk.window.findChild<QWidget*>(form)->findChild<QWidget*>(control)->font().families().first();
  };
  EXPECT_EQ(familyOf("Form7", "Text2"), "Noto Sans CJK SC");
  EXPECT_EQ(familyOf("Form1", "Text5"), "Noto Sans CJK SC");
  EXPECT_EQ(familyOf("Form1", "Label1(0)"), "Noto Sans CJK SC");
  EXPECT_EQ(familyOf("Form7", "Label1(0)"), words(kSong));
}

/// Whether a label or a box has its text at the right.
bool isAtRight(const Desk& desk, const char* name) {
  const auto* const label = inFront(desk).findChild<QLabel*>(name);
  const auto* const box = inFront(desk).findChild<QLineEdit*>(name);
  return ((label != nullptr ? label->alignment() : box->alignment()) & Qt::AlignRight) != 0;
}

TEST_F(LookedAt, NumbersOfTheCurveWindowStandOneBelowTheOther) {
  const Desk desk(kForm1);
  for (const char* const number : {"Label2(1)", "Label2(15)", "ColumnHead(3)", "Text2", "Text7(0)", "Text8(4)"})
    EXPECT_TRUE(isAtRight(desk, number)) << number;
  for (const char* const text : {"Label2(0)", "Label2(16)", "Label1(2)", "Text7(5)"})
    EXPECT_FALSE(isAtRight(desk, text)) << text;
}

TEST_F(LookedAt, NumbersOfTheListedWindowsStandOneBelowTheOther) {
  const Desk desk(kForm4);
  for (const char* const number : {"Label2(0)", "Text2(5)"}) EXPECT_TRUE(isAtRight(desk, number)) << number;
  EXPECT_FALSE(isAtRight(desk, "Text1(1)"));
}

TEST_F(LookedAt, TheMainWindowShowsAllOfItself) {
  const Desk desk(kNoDocument);
  EXPECT_THAT(WindowGeometry::faultsOf(desk.window), IsEmpty());
}

TEST_F(LookedAt, TheSampleListsShowAllOfThemselves) {
  Lab lab;
  PlayDialogs dialogs;
  for (const ProjectKind kind : {ProjectKind::Triaxial, ProjectKind::Unconfined, ProjectKind::K0, ProjectKind::TK0}) {
    const std::string file = lab.writeSamples(kind, "P1", {"A-1", "A-2"});
    SampleListSession session(lab.workspace, dialogs, kind, file, "P1", [] {});
    SampleListWindow window(nullptr, session);
    window.show();
    EXPECT_THAT(WindowGeometry::faultsOf(window), IsEmpty());
  }
}

TEST_F(LookedAt, TheSmallDialogsShowAllOfThemselves) {
  RangeDialog samples(120);
  ListRangeDialog sorted = ListRangeDialog::forSort("土号升排序", 20), deleted = ListRangeDialog::forDeletion("删 除");
  SampleListTable rows;
  RowMoves moves("人工排序", rows, [] {});
  Form21 form21(nullptr, samples);
  Form16 form16(nullptr, sorted), form16ForDeletion(nullptr, deleted);
  Form17 form17(nullptr, moves);
  for (QDialog* const dialog : std::initializer_list<QDialog*>{&form21, &form16, &form16ForDeletion, &form17}) {
    dialog->show();
    EXPECT_THAT(WindowGeometry::faultsOf(*dialog), IsEmpty());
  }
}

}  // namespace
}  // namespace triaxlab::testing
