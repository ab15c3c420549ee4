// Tools that are scripts of the shell.
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/process.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

/// A tool that leaves a mark when it ran.
void writeTool(const std::filesystem::path& path, const std::filesystem::path& mark) {
  std::ofstream(path) << "#!/bin/sh\necho done > '" << mark.string() << "'\n";
  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

bool appears(const std::filesystem::path& file) {
  for (int tenths = 0; tenths < 100; ++tenths) {
    if (fileExists(file)) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  return false;
}

TEST(StartProgram, StartsAToolBesideUs) {
  const testing::TemporaryFolder folder;
  writeTool(folder / "SZBB.exe", folder / "mark");
  startProgram(folder / "SZBB.exe");
  EXPECT_TRUE(appears(folder / "mark"));
}

TEST(StartProgram, AToolMayStandWithoutItsExtension) {
  const testing::TemporaryFolder folder;
  writeTool(folder / "SZBB", folder / "mark");
  startProgram(folder / "SZBB.exe");
  EXPECT_TRUE(appears(folder / "mark"));
}

TEST(StartProgram, AToolFindsItsSignalsAsEveryProgramDoes) {
  const testing::TemporaryFolder folder;
  std::ofstream(folder / "SZBB.exe") << "#!/bin/sh\ngrep SigIgn /proc/self/status > '" << (folder / "new").string()
                                     << "' && mv '" << (folder / "new").string() << "' '" << (folder / "mark").string()
                                     << "'\n";
  std::filesystem::permissions(folder / "SZBB.exe", std::filesystem::perms::owner_all);
  const auto pipe = std::signal(SIGPIPE, SIG_IGN), size = std::signal(SIGXFSZ, SIG_IGN);
  startProgram(folder / "SZBB.exe");
  ASSERT_TRUE(appears(folder / "mark"));
  std::signal(SIGPIPE, pipe);
  std::signal(SIGXFSZ, size);
  const std::uint64_t ignored = std::stoull(folder.read("mark").substr(std::string("SigIgn:").size()), nullptr, 16);
  const auto isIgnored = [ignored](int signal) { return (ignored >> (signal - 1) & 1) != 0; };
  EXPECT_FALSE(isIgnored(SIGPIPE));
  EXPECT_FALSE(isIgnored(SIGXFSZ));
}

TEST(StartProgram, ArgumentsArriveAsTheyAre) {
  const testing::TemporaryFolder folder;
  std::ofstream(folder / "SZBB") << "#!/bin/sh\nprintf '<%s>' \"$@\" > '" << (folder / "new").string() << "' && mv '"
                                 << (folder / "new").string() << "' '" << (folder / "mark").string() << "'\n";
  std::filesystem::permissions(folder / "SZBB", std::filesystem::perms::owner_all);
  startProgram(folder / "SZBB.exe", std::array<std::string, 5>{"ONE", "", " ", "two words", "三轴\"'$"});
  ASSERT_TRUE(appears(folder / "mark"));
  EXPECT_EQ(folder.read("mark"), "<ONE><>< ><two words><三轴\"'$>");
}

TEST(StartProgram, AProgramBehindIsToldToLeaveTheFocusWhereItIs) {
  const testing::TemporaryFolder folder;
  std::ofstream(folder / "SZBB") << "#!/bin/sh\necho \"$$ ${DESKTOP_STARTUP_ID##*_}\" > '" << (folder / "new").string()
                                 << "' && mv '" << (folder / "new").string() << "' '" << (folder / "mark").string()
                                 << "'\n";
  std::filesystem::permissions(folder / "SZBB", std::filesystem::perms::owner_all);
  setenv("DESKTOP_STARTUP_ID", "ours_TIME4711", 1);
  const int behind = startProgram(folder / "SZBB", {}, Showing::Behind);
  ASSERT_TRUE(appears(folder / "mark"));
  EXPECT_EQ(folder.read("mark"), std::to_string(behind) + " TIME0\n");
  std::filesystem::remove(folder / "mark");
  const int usual = startProgram(folder / "SZBB");
  ASSERT_TRUE(appears(folder / "mark"));
  EXPECT_EQ(folder.read("mark"), std::to_string(usual) + " \n") << "the time of another start isn't its own";
  unsetenv("DESKTOP_STARTUP_ID");
}

void expectNotStarted(const std::filesystem::path& program, const std::string& cause) {
  std::string sentence;
  try {
    startProgram(program);
  } catch (const UserError& error) {
    sentence = error.what();
  }
  EXPECT_EQ(sentence, "不能启动“" + program.string() + "”：" + cause + "。");
}

constexpr const char* kNoProgram = "它不是能在本机运行的程序";

TEST(StartProgram, WhatCanNotBeStartedIsNamed) {
  const testing::TemporaryFolder folder;
  std::filesystem::create_directory(folder / "folder.exe");
  std::ofstream(folder / "text.exe") << "no program";
  constexpr const char* kMissing = "没有这个文件或文件夹";
  expectNotStarted(folder / "missing.exe", kMissing);
  expectNotStarted(folder / "folder.exe", kMissing);
  expectNotStarted(folder / "folder.exe/inside", kMissing);
  expectNotStarted(folder / "text.exe", kNoProgram);
}

/// Under an emulator of another processor a new process shares no memory with its parent, and so can't tell it in the C
/// library's way that its program doesn't start.
bool failedStartsAreTold() {
  pid_t child = 0;
  const testing::TemporaryFolder folder;
  std::array<char*, 1> noWords{nullptr};
  if (posix_spawn(&child, (folder / "missing").c_str(), nullptr, nullptr, noWords.data(), noWords.data()) != 0)
    return true;
  waitpid(child, nullptr, 0);
  return false;
}

TEST(StartProgram, ABrokenProgramIsNamed) {
  if (!failedStartsAreTold()) GTEST_SKIP() << "the emulator doesn't tell that a program was not started";
  const testing::TemporaryFolder folder;
  std::ofstream(folder / "broken.exe") << "\x7f"
                                          "ELF and nothing more";
  std::filesystem::permissions(folder / "broken.exe", std::filesystem::perms::owner_all);
  expectNotStarted(folder / "broken.exe", kNoProgram);
}

}  // namespace
}  // namespace triaxlab
