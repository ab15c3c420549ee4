#include "windows/play/play_dialogs.h"

#include <fmt/ranges.h>

#include <algorithm>

#include "windows/play/script.h"

namespace triaxlab {
namespace {

std::string noteOf(std::string_view title, std::string_view text) {
  return fmt::format("[{}] {}", title, onOneLine(text));
}

/// The front of a queue; nothing when it is empty.
template <class Queue>
std::optional<typename Queue::value_type> take(Queue& queue) {
  if (queue.empty()) return std::nullopt;
  typename Queue::value_type first = std::move(queue.front());
  queue.pop_front();
  return first;
}

}  // namespace

void PlayDialogs::fail(std::string_view what, std::string_view note) {
  if (!m_failure) m_failure = fmt::format("{}: {}", what, note);
}

std::optional<PlayDialogs::Reply> PlayDialogs::takeReply(std::string_view note) {
  m_notes.emplace_back(note);
  const std::optional<Reply> reply = take(m_replies);
  if (!reply) fail("a message box came and no reply is queued", note);
  return reply;
}

void PlayDialogs::message(std::string_view title, std::string_view text, MessageIcon /*icon*/) {
  const std::string note = noteOf(title, text);
  const std::optional<Reply> reply = takeReply(note);
  if (reply && *reply != Reply::OK) fail("the message box has OK alone", note);
}

bool PlayDialogs::ask(std::string_view title, std::string_view text, MessageIcon /*icon*/) {
  const std::string note = noteOf(title, text);
  const std::optional<Reply> reply = takeReply(note);
  if (reply && *reply != Reply::Yes && *reply != Reply::No) fail("the message box has Yes and No alone", note);
  return reply == Reply::Yes;
}

std::optional<std::filesystem::path> PlayDialogs::chooseFile(const FileQuestion& question) {
  const auto answer = take(m_files);
  if (!answer) fail("a file dialog came and no file is queued", noteOf(question.title, question.filter));
  return answer.value_or(std::nullopt);
}

std::optional<std::filesystem::path> PlayDialogs::chooseFileToSave(const FileQuestion& question) {
  return chooseFile(question);
}

std::optional<std::string> PlayDialogs::input(std::string_view title, std::string_view prompt,
                                              std::string_view /*value*/) {
  const auto answer = take(m_inputs);
  if (!answer) fail("an input box came and no input is queued", noteOf(title, prompt));
  return answer.value_or(std::nullopt);
}

std::optional<std::size_t> PlayDialogs::choose(std::string_view title, std::string_view text,
                                               std::span<const std::string> choices) {
  const std::optional<std::string> answer = input(title, text, {});
  if (!answer) return std::nullopt;
  const auto chosen = std::ranges::find(choices, *answer);
  if (chosen != choices.end()) return static_cast<std::size_t>(chosen - choices.begin());
  fail("there is no choice " + *answer, noteOf(title, fmt::format("{}", fmt::join(choices, "|"))));
  return std::nullopt;
}

}  // namespace triaxlab
