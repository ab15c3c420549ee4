#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

#include "shell/fakes.h"
#include "shell/lab.h"
#include "shell/shell_session.h"

namespace triaxlab::testing {

inline constexpr const char* kQuestion = "[保存三轴数据]    数据已修改\n保存修改后数据吗？";
inline constexpr const char* kSaved = "[保存数据] 三轴试验数据保存完毕";

/// A laboratory whose program has just started, with nothing open.
class Shell : public ::testing::Test {
 protected:
  bool isOn(std::string_view name) const { return shell.commandState(*findCommand(name)).enabled; }
  /// Form1 with one sample of project P1.
  void openDocument() {
    lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
    windows.form1.emplace();
    shell.documentActivated(kForm1);
  }
  void openChangedDocument() {
    openDocument();
    windows.form1->changed = true;
  }
  /// From now on nothing can be saved.
  void loseDataFolder() { lab.workspace.dataFolder = lab.folder.path() / "gone"; }

  Lab lab;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
};

}  // namespace triaxlab::testing
