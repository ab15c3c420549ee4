#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace triaxlab::testing {

/// A program that runs beside the test until it is let go; it says nothing.
class Companion {
 public:
  explicit Companion(const std::vector<std::string>& words) {
    m_process = fork();
    if (m_process != 0) return;
    const int silence = open("/dev/null", O_RDWR);
    dup2(silence, STDOUT_FILENO);
    dup2(silence, STDERR_FILENO);
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments.front(), arguments.data());
    _exit(127);
  }
  ~Companion() {
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
  }
  Companion(const Companion&) = delete;
  Companion& operator=(const Companion&) = delete;

  /// It has come to an end by itself, or isn't installed.
  bool hasEnded() const {
    siginfo_t state{};
    return waitid(P_PID, static_cast<id_t>(m_process), &state, WEXITED | WNOHANG | WNOWAIT) == 0 && state.si_pid != 0;
  }

 private:
  pid_t m_process = -1;
};

/// A display of its own for the test; DISPLAY names it as long as it lives.
class XServer {
 public:
  explicit XServer(const std::string& screen = "640x480") : XServer(Pipe(), screen) {}
  ~XServer() { unsetenv("DISPLAY"); }
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

  bool runs() const { return m_runs; }

 private:
  struct Pipe {
    Pipe() {
      if (pipe(ends) != 0) std::abort();
    }
    int ends[2] = {-1, -1};
  };

  XServer(Pipe number, const std::string& screen)
      : m_server({"Xvfb", "-displayfd", std::to_string(number.ends[1]), "-screen", "0", screen + "x24", "-nolisten",
                  "tcp"}) {
    close(number.ends[1]);
    std::string display;
    for (char c = 0; read(number.ends[0], &c, 1) == 1 && c != '\n';) display += c;
    close(number.ends[0]);
    m_runs = !display.empty();
    if (m_runs) setenv("DISPLAY", (":" + display).c_str(), 1);
  }

  Companion m_server;
  bool m_runs = false;
};

/// A window manager on the display that DISPLAY names.
class WindowManager {
 public:
  WindowManager() : m_manager({"openbox", "--sm-disable"}) {
    xcb_connection_t* const display = xcb_connect(nullptr, nullptr);
    for (int look = 0; look < 500 && !m_runs && !m_manager.hasEnded(); ++look) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      m_runs = isManaged(display);
    }
    xcb_disconnect(display);
  }

  bool runs() const { return m_runs; }

 private:
  /// A manager that is ready names its own window on the root.
  static bool isManaged(xcb_connection_t* display) {
    constexpr const char* kManager = "_NET_SUPPORTING_WM_CHECK";
    auto* const atom = xcb_intern_atom_reply(
        display, xcb_intern_atom(display, 1, static_cast<std::uint16_t>(std::strlen(kManager)), kManager), nullptr);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
    auto* const manager =
        xcb_get_property_reply(display, xcb_get_property(display, 0, root, atom->atom, XCB_ATOM_WINDOW, 0, 1), nullptr);
    const bool is = manager != nullptr && manager->value_len == 1;
    std::free(atom);
    std::free(manager);
    return is;
  }

  Companion m_manager;
  bool m_runs = false;
};

}  // namespace triaxlab::testing
