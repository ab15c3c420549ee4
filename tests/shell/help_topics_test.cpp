// Every window has its place in the manual, and the places exist.

#include "shell/help_topics.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "importers/importer.h"
#include "platform/files.h"
#include "sessions/dialogs/manual.h"
#include "support/manual_files.h"

namespace triaxlab::testing {
namespace {

TEST(HelpTopics, StandInTheManual) {
  const Manual manual = manualOfTheProgram();
  for (const HelpTopic& topic : helpTopics())
    EXPECT_NE(manual.section(topic.chapter, topic.section), nullptr) << topic.window << ": " << topic.section;
}

TEST(HelpTopics, AreThereForTheWindowOfEachImporter) {
  for (const Importer* const importer : importers()) {
    if (importer->form.empty()) continue;  // it has no window
    EXPECT_NE(helpTopicOf(importer->form), nullptr) << importer->form;
  }
}

TEST(HelpTopics, TellOfAWindowOnce) {
  std::set<std::string_view> windows;
  for (const HelpTopic& topic : helpTopics()) EXPECT_TRUE(windows.insert(topic.window).second) << topic.window;
}

TEST(HelpTopics, KnowNothingOfOtherWindows) { EXPECT_EQ(helpTopicOf("Form99"), nullptr); }

}  // namespace
}  // namespace triaxlab::testing
