#include "platform/fault_stack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <stdexcept>
#include <string>

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(FaultStack, TellsFilesAndPlacesInThem) { EXPECT_THAT(stackOfFault(), HasSubstr("(platform_test+0x")); }

// The sanitizer has a hook of its own where exceptions are thrown.
#ifndef __SANITIZE_ADDRESS__

__attribute__((noinline)) std::string stackOf(void (*failure)()) {
  try {
    failure();
  } catch (...) {
    return stackOfFault();
  }
  return {};
}

__attribute__((noinline)) void throwDeep(int depth) {
  if (depth == 0) throw std::logic_error("deep down");
  throwDeep(depth - 1);
  // Called, and not gone on with.
  std::sort(&depth, &depth);
}

std::ptrdiff_t linesOf(const std::string& stack) { return std::count(stack.begin(), stack.end(), '\n'); }

TEST(FaultStack, IsThatOfTheThrowAndNotOfTheCatch) {
  const std::string shallow = stackOf([] { throwDeep(0); });
  const std::string deep = stackOf([] { throwDeep(7); });
  EXPECT_EQ(linesOf(deep), linesOf(shallow) + 7) << deep;
}

TEST(FaultStack, KnowsTheThrowsOfLibraries) {
  const std::string stack = stackOf([] { static_cast<void>(std::stoi("no number")); });
  EXPECT_THAT(stack, Not(StartsWith("(platform_test+0x")));
  EXPECT_THAT(stack, HasSubstr("(platform_test+0x"));
}

TEST(FaultStack, IsNotThatOfAnotherExceptionWhichCameOnTheWay) {
  const std::string stack = stackOf([] {
    struct Interrupting {
      ~Interrupting() {
        try {
          static_cast<void>(std::stoi("no number"));
        } catch (const std::invalid_argument&) {
          return;
        }
      }
    } const interrupting;
    throw std::bad_alloc();
  });
  EXPECT_THAT(stack, StartsWith("(platform_test+0x"));
}

#endif

}  // namespace
}  // namespace triaxlab::testing
