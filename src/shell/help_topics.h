#pragma once

#include <span>
#include <string_view>

namespace triaxlab {

/// Where the manual tells of a window.
struct HelpTopic {
  std::string_view window;   // its name, as play scripts know it
  std::string_view chapter;  // file of the manual
  std::string_view section;  // a heading of it; the chapter's own title for the whole
};

std::span<const HelpTopic> helpTopics();
/// Null for a window of which the manual has no place of its own.
const HelpTopic* helpTopicOf(std::string_view window);

}  // namespace triaxlab
