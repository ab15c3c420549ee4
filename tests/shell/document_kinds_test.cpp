#include "shell/document_kinds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "shell/command_table.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;

TEST(DocumentKinds, EachActiveDocumentHasARow) {
  std::set<int> numbers;
  for (const DocumentKind& kind : documentKinds()) {
    numbers.insert(kind.document);
    EXPECT_EQ(&documentKindOf(kind.document), &kind);
  }
  EXPECT_THAT(numbers, ElementsAre(1, 2, 7, 10, 20, 30));
  EXPECT_THROW(documentKindOf(static_cast<ActiveDocument>(3)), std::out_of_range);
}

TEST(DocumentKinds, WithoutADocumentCommandsActOnTheTriaxialTable) {
  EXPECT_EQ(documentKindOf(kNoDocument).document, kForm1);
}

TEST(DocumentKinds, EachKindOfTestHasItsMessages) {
  EXPECT_EQ(documentOfTests(ProjectKind::Triaxial).savedMessage, "三轴试验数据保存完毕");
  EXPECT_EQ(documentOfTests(ProjectKind::OldTriaxial).savedMessage, "三轴试验数据保存完毕");
  EXPECT_EQ(documentOfTests(ProjectKind::Unconfined).savedMessage, "无侧限试验数据保存完毕");
  EXPECT_EQ(documentOfTests(ProjectKind::K0).savedMessage, "K0试验数据保存完毕");
  EXPECT_EQ(documentOfTests(ProjectKind::TK0).savedMessage, "TK0试验数据保存完毕");

  EXPECT_EQ(documentKindOf(kForm1).closing.title, "保存三轴数据");
  EXPECT_EQ(documentKindOf(kForm1).closing.text, "   数据已修改\n保存修改后数据吗？");
  EXPECT_EQ(documentKindOf(kForm4).closing.title, "保存无侧陷抗压强度试验数据");
  EXPECT_EQ(documentKindOf(kForm6).closing.title, "保存Ko试验数据");
  EXPECT_EQ(documentKindOf(kForm9).closing.title, "保存TKo试验数据");
  EXPECT_EQ(documentKindOf(kForm9).closing.text, "保存修改后数据吗？\n\n   数据已修改");
}

TEST(DocumentKinds, TheTablesBesideTheCurvesAreSavedWithThem) {
  for (const DocumentKind& kind : documentKinds()) {
    const bool isBeside = kind.document == kForm2 || kind.document == kForm7;
    EXPECT_EQ(kind.master, isBeside ? kForm1 : kind.document) << kind.document;
    EXPECT_EQ(kind.tests, documentKindOf(kind.master).tests) << kind.document;
  }
}

TEST(DocumentKinds, EveryCommandThatIsSwitchedExists) {
  for (const DocumentKind& kind : documentKinds())
    for (const CommandSwitches& switches : {kind.activation, kind.close})
      for (const auto& names : {switches.on, switches.off})
        for (const std::string_view name : names) EXPECT_NE(findCommand(name), nullptr) << name;
}

TEST(DocumentKinds, EveryTestHasItsWindow) {
  EXPECT_EQ(documentOfTests(ProjectKind::Triaxial).document, kForm1);
  EXPECT_EQ(documentOfTests(ProjectKind::Unconfined).document, kForm4);
  EXPECT_EQ(documentOfTests(ProjectKind::K0).document, kForm6);
  EXPECT_EQ(documentOfTests(ProjectKind::TK0).document, kForm9);
}

}  // namespace
}  // namespace triaxlab
