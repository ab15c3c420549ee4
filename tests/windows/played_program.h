#pragma once

#include <fmt/core.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "support/temporary_folder.h"

namespace triaxlab::testing {

struct PlayResult {
  int status = -1;
  std::string out, errors;
};

/// The program in a workspace of its own, with the demonstration databases beside it; scripts are played one after the
/// other and find what the ones before have left.
class PlayedProgram {
 public:
  PlayedProgram() {
    std::filesystem::copy(TRIAXLAB_SAMPLES, m_folder.path(), std::filesystem::copy_options::recursive);
  }

  const TemporaryFolder& folder() const { return m_folder; }
  /// What the environment says of the screen: by itself there is none.
  std::string screen = "QT_QPA_PLATFORM=offscreen";

  PlayResult play(std::string_view script) const {
    m_folder.write("script.play", script);
    return start("--play '" + (m_folder.path() / "script.play").string() + "'");
  }

  /// Whose printers there are; none is one of this machine.
  std::string printServer = "/nowhere";

  /// Starts the program with further arguments and waits for its end.
  PlayResult start(const std::string& arguments) const {
    const std::string folder = m_folder.path().string();
    const std::string command = fmt::format(
        "{3} CUPS_SERVER='{4}' XDG_RUNTIME_DIR='{0}' HOME='{0}' '{1}' --app '{0}' --today 2024-05-06 "
        "{2} >'{0}/out.txt' 2>'{0}/errors.txt' </dev/null",
        folder, TRIAXLAB_PROGRAM, arguments, screen, printServer);
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, m_folder.read("out.txt"), m_folder.read("errors.txt")};
  }

 private:
  TemporaryFolder m_folder;
};

}  // namespace triaxlab::testing
