#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/process.h"

namespace triaxlab {
namespace {

struct Free {
  void operator()(void* reply) const { std::free(reply); }  // NOLINT(cppcoreguidelines-no-malloc): it is the library's
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

constexpr std::uint32_t kLongestProperty = 1024;  // in words of four bytes
/// The desktop treats the wish of a "pager" as one of the person's own, which it is.
constexpr std::uint32_t kAskedByThePerson = 2;
/// The state of a window that a desktop shows in its bar alone.
constexpr std::uint32_t kIconic = 3;

/// A connection to the display that lasts for one wish. A wish that the display refuses is passed over in silence.
class Display {
 public:
  Display() {
    int number = 0;
    m_connection.reset(xcb_connect(nullptr, &number));
    if (xcb_connection_has_error(m_connection.get()) != 0) return;
    xcb_screen_iterator_t screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
    while (number-- > 0 && screen.rem > 1) xcb_screen_next(&screen);
    if (screen.rem > 0) m_root = screen.data->root;
  }

  bool isThere() const { return m_root != XCB_NONE; }

  /// All windows that a person sees as such: as the desktop lists them, else, where no desktop runs, all on the screen.
  std::vector<xcb_window_t> windows() const {
    const std::string listed = property(m_root, atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW);
    if (!listed.empty()) {
      std::vector<xcb_window_t> windows(listed.size() / sizeof(xcb_window_t));
      listed.copy(reinterpret_cast<char*>(windows.data()), windows.size() * sizeof(xcb_window_t));
      return windows;
    }
    const Owned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_connection.get(), xcb_query_tree(m_connection.get(), m_root), nullptr));
    if (!tree) return {};
    const std::span all(xcb_query_tree_children(tree.get()),
                        static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    std::vector<xcb_window_t> visible;
    std::ranges::copy_if(all, std::back_inserter(visible), [this](xcb_window_t window) { return isVisible(window); });
    return visible;
  }

  /// UTF-8.
  std::string title(xcb_window_t window) const {
    std::string title = property(window, atom("_NET_WM_NAME"), atom("UTF8_STRING"));
    return title.empty() ? property(window, XCB_ATOM_WM_NAME, XCB_ATOM_ANY) : title;
  }

  /// The number of the process that opened it; 0 where nobody says.
  std::uint32_t process(xcb_window_t window) const {
    const std::string number = property(window, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL);
    std::uint32_t process = 0;
    if (number.size() == sizeof process) number.copy(reinterpret_cast<char*>(&process), sizeof process);
    return process;
  }

  void bringToFront(xcb_window_t window) const {
    tellDesktop(window, "_NET_ACTIVE_WINDOW", kAskedByThePerson);
    // Where no desktop runs nobody heeds the wish.
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection.get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    waitUntilDone(window);
  }

  void minimize(xcb_window_t window) const {
    tellDesktop(window, "WM_CHANGE_STATE", kIconic);
    waitUntilDone(window);
  }

 private:
  void tellDesktop(xcb_window_t window, std::string_view wishName, std::uint32_t value) const {
    xcb_client_message_event_t wish{};
    wish.response_type = XCB_CLIENT_MESSAGE;
    wish.format = 32;
    wish.window = window;
    wish.type = atom(wishName);
    wish.data.data32[0] = value;
    xcb_send_event(m_connection.get(), 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&wish));
  }

  /// The answer to any question says that all before it has been done.
  void waitUntilDone(xcb_window_t window) const { property(window, XCB_ATOM_WM_NAME, XCB_ATOM_ANY); }

  xcb_atom_t atom(std::string_view name) const {
    const auto cookie = xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  bool isVisible(xcb_window_t window) const {
    const auto cookie = xcb_get_window_attributes(m_connection.get(), window);
    const Owned<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(m_connection.get(), cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
  }

  std::string property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const {
    const auto cookie =
        // NOLINTNEXTLINE(readability-suspicious-call-argument): a name and a length, in this order
        xcb_get_property(m_connection.get(), 0, window, name, type, 0, kLongestProperty);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
  }

  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };
  std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
  xcb_window_t m_root = XCB_NONE;
};

}  // namespace

WindowWish raiseWindow(std::string_view title) {
  if (title.empty()) return WindowWish::NoSuchWindow;
  const Display display;
  if (!display.isThere()) return WindowWish::NotPossible;
  std::optional<xcb_window_t> begins;  // a tool may add the name of its document behind the title
  for (const xcb_window_t window : display.windows()) {
    const std::string shown = display.title(window);
    if (shown == title) {
      display.bringToFront(window);
      return WindowWish::Done;
    }
    if (!begins && shown.starts_with(title)) begins = window;
  }
  if (!begins) return WindowWish::NoSuchWindow;
  display.bringToFront(*begins);
  return WindowWish::Done;
}

WindowWish minimizeWindowsOf(int process) {
  const Display display;
  if (!display.isThere()) return WindowWish::NotPossible;
  WindowWish wish = WindowWish::NoSuchWindow;
  for (const xcb_window_t window : display.windows()) {
    if (display.process(window) != static_cast<std::uint32_t>(process)) continue;
    display.minimize(window);
    wish = WindowWish::Done;
  }
  return wish;
}

}  // namespace triaxlab
