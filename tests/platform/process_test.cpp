#include "platform/process.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "platform/files.h"
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
  const unsigned long ignored = std::stoul(folder.read("mark").substr(std::string("SigIgn:").size()), nullptr, 16);
  const auto isIgnored = [ignored](int signal) { return (ignored >> (signal - 1) & 1) != 0; };
  EXPECT_FALSE(isIgnored(SIGPIPE));
  EXPECT_FALSE(isIgnored(SIGXFSZ));
}

TEST(StartProgram, WhatCanNotBeStartedIsSilent) {
  const testing::TemporaryFolder folder;
  std::filesystem::create_directory(folder / "folder.exe");
  std::ofstream(folder / "text.exe") << "no program";
  std::ofstream(folder / "broken.exe") << "\x7f"
                                          "ELF and nothing more";
  std::filesystem::permissions(folder / "broken.exe", std::filesystem::perms::owner_all);
  for (const char* const name : {"missing.exe", "folder.exe", "text.exe", "broken.exe", "folder.exe/inside"})
    EXPECT_NO_THROW(startProgram(folder / name)) << name;
}

}  // namespace
}  // namespace triaxlab
