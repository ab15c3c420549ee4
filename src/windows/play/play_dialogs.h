#pragma once

#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/dialogs.h"

namespace triaxlab {

/// The boxes of a played script: each is answered from the queue of its kind and noted down. A box that comes with no
/// answer queued, or with one that it doesn't offer, makes the script fail; the box itself is then answered in the way
/// that changes least (No, cancel), so that the operation behind it comes to its end.
class PlayDialogs : public Dialogs {
 public:
  enum class Reply : std::uint8_t { Yes, No, OK, Cancel };

  void queueReply(Reply reply) { m_replies.push_back(reply); }
  /// Nothing: cancelled.
  void queueFile(std::optional<std::filesystem::path> file) { m_files.push_back(std::move(file)); }
  void queueInput(std::optional<std::string> text) { m_inputs.push_back(std::move(text)); }

  /// "[title] text" of each box since the last call, in their order.
  std::vector<std::string> takeNotes() { return std::exchange(m_notes, {}); }
  /// The first box that couldn't be answered since the last call.
  std::optional<std::string> takeFailure() { return std::exchange(m_failure, std::nullopt); }

  void message(std::string_view title, std::string_view text, MessageIcon icon) override;
  bool ask(std::string_view title, std::string_view text, MessageIcon icon) override;
  std::optional<std::filesystem::path> chooseFile(const FileQuestion& question) override;
  std::optional<std::filesystem::path> chooseFileToSave(const FileQuestion& question) override;
  std::optional<std::string> input(std::string_view title, std::string_view prompt, std::string_view value) override;
  std::optional<std::size_t> choose(std::string_view title, std::string_view text,
                                    std::span<const std::string> choices) override;

 private:
  std::optional<Reply> takeReply(std::string_view note);
  void fail(std::string_view what, std::string_view note);

  std::deque<Reply> m_replies;
  std::deque<std::optional<std::filesystem::path>> m_files;
  std::deque<std::optional<std::string>> m_inputs;
  std::vector<std::string> m_notes;
  std::optional<std::string> m_failure;
};

}  // namespace triaxlab
