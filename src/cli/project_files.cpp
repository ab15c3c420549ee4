#include "cli/project_files.h"

#include <fmt/core.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <system_error>

#include "cli/console_dialogs.h"
#include "common/user_error.h"
#include "shell/start_options.h"

namespace triaxlab::cli {
namespace {

constexpr std::size_t kLongestName = 4096;  // bytes; what is longer is no list of names

/// The next name of standard input; nothing at its end. Empty ones are passed over.
std::optional<std::string> nextInputName(NameEnd end) {
  const char last = end == NameEnd::Line ? '\n' : '\0';
  std::string name;
  for (;;) {
    const int c = std::getc(stdin);
    if (c != EOF && c != last) {
      name += static_cast<char>(c);
      if (name.size() > kLongestName) throw UserError("标准输入不是文件名的列表：有一个名称太长。");
      continue;
    }
    if (end == NameEnd::Line && name.ends_with('\r')) name.pop_back();
    if (std::ferror(stdin) != 0)
      throw UserError(fmt::format("标准输入不能读：{}。", std::generic_category().message(errno)));
    if (!name.empty()) return name;
    if (c == EOF) return std::nullopt;
  }
}

/// Tells on standard error how far the work has come, at most once a second.
class ProgressLines {
 public:
  ProgressLines(bool isOn, std::optional<std::size_t> total) : m_isOn(isOn), m_total(total) {}

  void fileIsDone(int status) {
    ++m_done;
    if (status != kDone) ++m_failed;
    if (std::chrono::steady_clock::now() - m_told >= std::chrono::seconds(1)) tell();
  }
  void tell() {
    if (!m_isOn) return;
    printError(fmt::format("已处理 {}{} 个文件，其中 {} 个失败。", m_done, m_total ? fmt::format("/{}", *m_total) : "",
                           m_failed));
    m_told = std::chrono::steady_clock::now();
  }

 private:
  bool m_isOn;
  std::optional<std::size_t> m_total;  // nothing: only the end of standard input will tell
  std::size_t m_done = 0, m_failed = 0;
  std::chrono::steady_clock::time_point m_told = std::chrono::steady_clock::now();
};

/// What the work gives for a file; a UserError is told.
int statusOf(const std::function<int()>& work) {
  try {
    return work();
  } catch (const UserError& error) {
    printError(error.what());
    return kFailed;
  }
}

}  // namespace

int eachFile(const ProjectFiles& files, const std::function<int(const std::string&)>& work) {
  const bool readsInput = std::ranges::find(files.names, kStandardInput) != files.names.end();
  ProgressLines progress(files.tellsProgress, readsInput ? std::nullopt : std::optional(files.names.size()));
  int worst = kDone;
  const auto doOne = [&](const std::string& name) {
    const int status = statusOf([&] { return work(name); });
    worst = std::max(worst, status);
    progress.fileIsDone(status);
  };
  for (const std::string& name : files.names) {
    if (name != kStandardInput) {
      doOne(name);
      continue;
    }
    const int status = statusOf([&] {
      while (const auto next = nextInputName(files.inputNamesEnd)) doOne(*next);
      return kDone;
    });
    worst = std::max(worst, status);
  }
  progress.tell();
  return worst;
}

}  // namespace triaxlab::cli
