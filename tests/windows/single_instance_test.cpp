#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "lone_application.h"
#include "played_program.h"
#include "windows/instance_lock.h"

namespace triaxlab::testing {
namespace {

/// The lock lies in the runtime folder, which is that of the started program here.
class SingleInstance : public ::testing::Test {
 protected:
  SingleInstance() { setenv("XDG_RUNTIME_DIR", m_program.folder().path().c_str(), 1); }

  PlayedProgram m_program;
};

TEST_F(SingleInstance, ASecondStartEndsInSilenceAndShowsNothing) {
  InstanceLock running(m_program.folder().path());
  ASSERT_TRUE(running.take());
  const PlayResult second = m_program.play("get MDIForm1.StatusBar1(1)\n");
  EXPECT_EQ(second.status, 0);
  EXPECT_EQ(second.out, "");
  EXPECT_EQ(second.errors, "");
  // The steps in front of the check have run, those behind it have not.
  EXPECT_TRUE(std::filesystem::is_directory(m_program.folder().path() / "PTU"));
  EXPECT_FALSE(std::filesystem::exists(m_program.folder().path() / "HSZS"));
}

TEST_F(SingleInstance, ASecondStartCallsTheRunningProgram) {
  makeApplication();
  InstanceLock running(m_program.folder().path());
  ASSERT_TRUE(running.take());
  int calls = 0;
  running.setCalled([&calls] { ++calls; });
  const auto wait = [&calls] {
    for (const QDeadlineTimer end(2000); calls == 0 && !end.hasExpired();)
      QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    return calls;
  };
  EXPECT_EQ(m_program.start("").status, 0);
  EXPECT_GT(wait(), 0);
}

TEST_F(SingleInstance, AnotherApplicationFolderIsAnotherInstance) {
  const TemporaryFolder other;
  InstanceLock running(other.path());
  ASSERT_TRUE(running.take());
  EXPECT_EQ(m_program.play("get MDIForm1.StatusBar1(1)\n").out, "MDIForm1.StatusBar1(1)=就绪\n");
}

TEST_F(SingleInstance, WhatADeadProgramLeftInTheLockFileKeepsNobodyOut) {
  EXPECT_EQ(m_program.play("").status, 0);
  std::filesystem::path file;
  for (const auto& entry : std::filesystem::directory_iterator(m_program.folder().path()))
    if (entry.path().extension() == ".lock") file = entry.path();
  ASSERT_FALSE(file.empty());
  // Nothing, half of a process number, a process that may live, of a machine that has another name by now.
  for (const char* const content : {"", "1", "1\ntriaxlab\nold-name\n"}) {
    std::ofstream(file, std::ios::binary) << content;
    EXPECT_EQ(m_program.play("get MDIForm1.StatusBar1(1)\n").out, "MDIForm1.StatusBar1(1)=就绪\n") << content;
  }
}

TEST_F(SingleInstance, ALockIsFreeAgainWhenItsProgramHasEnded) {
  EXPECT_EQ(m_program.play("").status, 0);
  EXPECT_EQ(m_program.play("get MDIForm1.StatusBar1(1)\n").out, "MDIForm1.StatusBar1(1)=就绪\n");
}

}  // namespace
}  // namespace triaxlab::testing
