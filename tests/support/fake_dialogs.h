#pragma once

#include <algorithm>
#include <deque>
#include <filesystem>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/dialogs.h"

namespace triaxlab::testing {

/// Boxes are noted down as "[title] text", those with a mark as "stop [title] text" or "! [title] text", input boxes
/// with the value that they show behind " = ", choices with all of them behind " | ". Questions, input boxes and
/// choices are answered from queues.
class FakeDialogs : public Dialogs {
 public:
  std::vector<std::string> shown;
  std::deque<bool> answers;
  std::vector<FileQuestion> fileQuestions;
  std::optional<std::filesystem::path> file;      // what all of them are answered with; nothing: cancelled
  std::deque<std::optional<std::string>> inputs;  // nothing: the person cancels

  void message(std::string_view title, std::string_view text, MessageIcon icon) override { note(title, text, icon); }
  bool ask(std::string_view title, std::string_view text, MessageIcon icon) override {
    note(title, text, icon);
    return next(answers);
  }
  std::optional<std::filesystem::path> chooseFile(const FileQuestion& question) override {
    fileQuestions.push_back(question);
    return file;
  }
  std::optional<std::filesystem::path> chooseFileToSave(const FileQuestion& question) override {
    fileQuestions.push_back(question);
    return file;
  }
  std::optional<std::string> input(std::string_view title, std::string_view prompt, std::string_view value) override {
    note(title, std::string(prompt) + " = " + std::string(value), MessageIcon::None);
    return next(inputs);
  }
  std::optional<std::size_t> choose(std::string_view title, std::string_view text,
                                    std::span<const std::string> choices) override {
    std::string line(text);
    for (const std::string& choice : choices) line += " | " + choice;
    note(title, line, MessageIcon::None);
    const auto answer = next(inputs);
    if (!answer) return std::nullopt;
    const auto chosen = std::find(choices.begin(), choices.end(), *answer);
    if (chosen == choices.end()) throw std::logic_error("no such choice: " + *answer);
    return static_cast<std::size_t>(chosen - choices.begin());
  }

  std::vector<std::string> take() { return std::exchange(shown, {}); }

 private:
  void note(std::string_view title, std::string_view text, MessageIcon icon) {
    const char* const mark = icon == MessageIcon::Stop ? "stop " : icon == MessageIcon::Exclamation ? "! " : "";
    shown.push_back(mark + ("[" + std::string(title) + "] ") + std::string(text));
  }
  template <class Answers>
  typename Answers::value_type next(Answers& queue) {
    if (queue.empty()) throw std::logic_error("a box without an answer: " + shown.back());
    auto answer = std::move(queue.front());
    queue.pop_front();
    return answer;
  }
};

}  // namespace triaxlab::testing
