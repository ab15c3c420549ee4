#include "windows/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace triaxlab {
namespace {

std::optional<WindowOptions> read(const std::vector<std::string>& arguments) {
  std::vector<const char*> pointers{"triaxlab"};
  for (const std::string& argument : arguments) pointers.push_back(argument.c_str());
  const ParsedWindowOptions parsed = readCommandLine(static_cast<int>(pointers.size()), pointers.data());
  EXPECT_EQ(parsed.status, parsed.options ? 0 : 2);
  return parsed.options;
}

TEST(CommandLine, AllThreeInAnyOrder) {
  const auto options = read({"--play", "a.play", "--app", "/data", "--today", "2024-02-29"});
  ASSERT_TRUE(options);
  EXPECT_EQ(options->script, "a.play");
  EXPECT_EQ(options->applicationFolder, "/data");
  EXPECT_EQ(options->today, (Date{2024, 2, 29}));
}

TEST(CommandLine, NothingIsRequired) {
  const auto options = read({});
  ASSERT_TRUE(options);
  EXPECT_FALSE(options->script || options->applicationFolder || options->today);
}

TEST(CommandLine, WhatIsWrongIsRefused) {
  EXPECT_FALSE(read({"--play"}));
  EXPECT_FALSE(read({"a.play"}));
  EXPECT_FALSE(read({"--today", "2023-02-29"}));
  EXPECT_FALSE(read({"--today", "yesterday"}));
}

}  // namespace
}  // namespace triaxlab
