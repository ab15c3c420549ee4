#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/process.h"
#include "support/x_server.h"

namespace triaxlab {
namespace {

/// Windows of another program, on that display.
class OtherProgram {
 public:
  OtherProgram() : m_connection(xcb_connect(nullptr, nullptr)) {
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
  }
  ~OtherProgram() { xcb_disconnect(m_connection); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  xcb_window_t openWindow(std::string_view title) {
    const xcb_window_t window = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    setProperty(window, atom("_NET_WM_NAME"), atom("UTF8_STRING"), 8, title.data(), title.size());
    xcb_map_window(m_connection, window);
    finish();
    return window;
  }

  /// Says whose window it is.
  void tellProcess(xcb_window_t window, std::uint32_t process) {
    setProperty(window, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, &process, 1);
    finish();
  }

  /// The windows from the lowest to the one in front.
  std::vector<xcb_window_t> stack() const {
    auto* const tree = xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr);
    const xcb_window_t* const first = xcb_query_tree_children(tree);
    std::vector<xcb_window_t> windows(first, first + xcb_query_tree_children_length(tree));
    std::free(tree);
    return windows;
  }

  /// From now on this program is the desktop: it lists the windows and is told the wishes.
  void becomeDesktop(const std::vector<xcb_window_t>& windows) {
    const std::uint32_t wishes = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &wishes);
    setProperty(m_root, atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 32, windows.data(), windows.size());
    finish();
  }
  /// The window of which something is wished, by default that it be active as the person's own wish; nothing when
  /// nothing is.
  std::optional<xcb_window_t> wishedWindow(std::string_view wish = "_NET_ACTIVE_WINDOW", std::uint32_t value = 2) {
    finish();
    std::optional<xcb_window_t> wished;
    while (xcb_generic_event_t* const event = xcb_poll_for_event(m_connection)) {
      const auto* const message = reinterpret_cast<const xcb_client_message_event_t*>(event);
      if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE && message->type == atom(wish) &&
          message->data.data32[0] == value)
        wished = message->window;
      std::free(event);
    }
    return wished;
  }

 private:
  xcb_atom_t atom(std::string_view name) const {
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    auto* const reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
    const xcb_atom_t atom = reply->atom;
    std::free(reply);
    return atom;
  }
  void setProperty(xcb_window_t window, xcb_atom_t name, xcb_atom_t type, std::uint8_t bits, const void* data,
                   std::size_t count) {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, name, type, bits,
                        static_cast<std::uint32_t>(count), data);
  }
  /// Returns when the display has done everything so far.
  void finish() const {
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
  }

  xcb_connection_t* m_connection;
  xcb_window_t m_root;
};

constexpr std::string_view kTool = "QVB固结（黄土压缩）试验数据处理";

class RaiseWindow : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!display.runs()) GTEST_SKIP() << "Xvfb is not installed: no window was raised";
  }
  testing::XServer display;
};

TEST_F(RaiseWindow, TheWindowWithTheTitleComesToTheFront) {
  OtherProgram other;
  const xcb_window_t tool = other.openWindow(kTool), above = other.openWindow("文件");
  ASSERT_EQ(other.stack(), (std::vector{tool, above}));
  EXPECT_EQ(raiseWindow(kTool), WindowWish::Done);
  EXPECT_EQ(other.stack(), (std::vector{above, tool}));
}

TEST_F(RaiseWindow, ATitleThatGoesOnCountsWhenNoneIsTheSame) {
  OtherProgram other;
  const xcb_window_t document = other.openWindow(std::string(kTool) + " - 2024-018");
  const xcb_window_t same = other.openWindow(kTool), above = other.openWindow("文件");
  EXPECT_EQ(raiseWindow(kTool), WindowWish::Done);
  EXPECT_EQ(other.stack(), (std::vector{document, above, same}));
  EXPECT_EQ(raiseWindow("QVB固结（黄土压缩）试验数据处理 -"), WindowWish::Done);
  EXPECT_EQ(other.stack(), (std::vector{above, same, document}));
}

TEST_F(RaiseWindow, AWindowThatIsNotThereYetIsTold) {
  OtherProgram other;
  const xcb_window_t window = other.openWindow("文件"), above = other.openWindow("");
  EXPECT_EQ(raiseWindow(kTool), WindowWish::NoSuchWindow);
  EXPECT_EQ(raiseWindow(""), WindowWish::NoSuchWindow);
  EXPECT_EQ(other.stack(), (std::vector{window, above}));
}

TEST_F(RaiseWindow, ADesktopIsAskedForAWindowOfItsList) {
  OtherProgram other;
  const xcb_window_t tool = other.openWindow(kTool);
  other.openWindow("文件");
  const xcb_window_t unlisted = other.openWindow("menu");
  other.becomeDesktop({tool});
  EXPECT_EQ(raiseWindow("menu"), WindowWish::NoSuchWindow);
  EXPECT_EQ(other.wishedWindow(), std::nullopt);
  EXPECT_EQ(raiseWindow(kTool), WindowWish::Done);
  EXPECT_EQ(other.wishedWindow(), tool);
  EXPECT_NE(unlisted, tool);
}

TEST_F(RaiseWindow, TheWindowOfAProcessIsMinimizedAsTheDesktopIsAsked) {
  constexpr std::uint32_t kIconic = 3;
  OtherProgram other;
  const xcb_window_t tool = other.openWindow("报告.xls"), unknown = other.openWindow("文件");
  other.tellProcess(tool, 4711);
  other.becomeDesktop({unknown, tool});
  EXPECT_EQ(minimizeWindowsOf(4712), WindowWish::NoSuchWindow);
  EXPECT_EQ(other.wishedWindow("WM_CHANGE_STATE", kIconic), std::nullopt);
  EXPECT_EQ(minimizeWindowsOf(4711), WindowWish::Done);
  EXPECT_EQ(other.wishedWindow("WM_CHANGE_STATE", kIconic), tool);
}

TEST(RaiseWindowWithoutADisplay, IsNotPossible) {
  unsetenv("DISPLAY");
  EXPECT_EQ(raiseWindow(kTool), WindowWish::NotPossible);
  setenv("DISPLAY", ":987654", 1);
  EXPECT_EQ(raiseWindow(kTool), WindowWish::NotPossible);
  EXPECT_EQ(minimizeWindowsOf(1), WindowWish::NotPossible);
  unsetenv("DISPLAY");
}

}  // namespace
}  // namespace triaxlab
