// Every question about many windows is sent for all of them before the first answer is read: a thousand windows cost
// a few round trips. A window that vanishes in between leaves an empty answer.
#include "qt/XWindows.h"

#include <QByteArray>
#include <QString>
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace
{
struct FreeReply {
    void operator()(void* reply) const
    {
        std::free(reply);
    }
};
template <class T> using Reply = std::unique_ptr<T, FreeReply>;

struct CloseConnection {
    void operator()(xcb_connection_t* connection) const
    {
        xcb_disconnect(connection);
    }
};

enum AtomIndex : std::size_t {
    NetSupported,
    NetSupportingWmCheck,
    NetClientList,
    NetActiveWindow,
    NetWmName,
    Utf8String,
    WmState,
    AtomCount
};
constexpr std::array<std::string_view, AtomCount> AtomNames = {
    "_NET_SUPPORTED",   "_NET_SUPPORTING_WM_CHECK",
    "_NET_CLIENT_LIST", "_NET_ACTIVE_WINDOW",
    "_NET_WM_NAME",     "UTF8_STRING",
    "WM_STATE",
};

struct XDisplay {
    std::unique_ptr<xcb_connection_t, CloseConnection> Connection; ///< null when there is no display
    std::array<xcb_atom_t, AtomCount> Atoms = {};
};

xcb_connection_t* Wire(const XDisplay& display)
{
    return display.Connection.get();
}

XDisplay OpenDisplay()
{
    XDisplay display;
    display.Connection.reset(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(Wire(display)) != 0) {
        display.Connection.reset();
        return display;
    }
    std::array<xcb_intern_atom_cookie_t, AtomCount> cookies = {};
    for (std::size_t i = 0; i < AtomCount; ++i) {
        const std::string_view name = AtomNames[i];
        cookies[i] = xcb_intern_atom(Wire(display), 0, static_cast<std::uint16_t>(name.size()), name.data());
    }
    for (std::size_t i = 0; i < AtomCount; ++i) {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(Wire(display), cookies[i], nullptr));
        display.Atoms[i] = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }
    return display;
}

std::vector<xcb_window_t> Roots(const XDisplay& display)
{
    std::vector<xcb_window_t> roots;
    for (auto screens = xcb_setup_roots_iterator(xcb_get_setup(Wire(display))); screens.rem > 0;
         xcb_screen_next(&screens)) {
        roots.push_back(screens.data->root);
    }
    return roots;
}

xcb_get_property_cookie_t AskProperty(const XDisplay& display, xcb_window_t window, xcb_atom_t property,
                                      std::uint32_t words)
{
    return xcb_get_property(Wire(display), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, words);
}

Reply<xcb_get_property_reply_t> ReadProperty(const XDisplay& display, xcb_get_property_cookie_t cookie)
{
    return Reply<xcb_get_property_reply_t>(xcb_get_property_reply(Wire(display), cookie, nullptr));
}

/// A property of 32-bit numbers: windows, atoms, states. Anything else is empty.
std::vector<std::uint32_t> ReadNumbers(const XDisplay& display, xcb_get_property_cookie_t cookie)
{
    constexpr int NumberBits = 32;
    const auto reply = ReadProperty(display, cookie);
    if (!reply || reply->format != NumberBits) {
        return {};
    }
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::vector<std::uint32_t> Numbers(const XDisplay& display, xcb_window_t window, AtomIndex property)
{
    constexpr std::uint32_t MostNumbers = 1U << 20U;
    return ReadNumbers(display, AskProperty(display, window, display.Atoms[property], MostNumbers));
}

struct NameCookies {
    xcb_get_property_cookie_t Utf8;
    xcb_get_property_cookie_t Plain;
};

NameCookies AskName(const XDisplay& display, xcb_window_t window)
{
    constexpr std::uint32_t TitleWords =
        1024; // 4 bytes each: far beyond the characters of a title that count
    return {AskProperty(display, window, display.Atoms[NetWmName], TitleWords),
            AskProperty(display, window, XCB_ATOM_WM_NAME, TitleWords)};
}

/// The text of a name up to its first NUL, as UTF-8. Older types than UTF8_STRING are read as Latin-1: a compound text
/// is the same as long as it stays in it.
std::string NameText(const XDisplay& display, const xcb_get_property_reply_t* reply)
{
    constexpr int ByteBits = 8;
    if (reply == nullptr || reply->format != ByteBits) {
        return {};
    }
    QByteArray bytes(static_cast<const char*>(xcb_get_property_value(reply)),
                     xcb_get_property_value_length(reply));
    if (const qsizetype end = bytes.indexOf('\0'); end >= 0) {
        bytes.truncate(end);
    }
    const bool isUtf8 = reply->type == display.Atoms[Utf8String];
    return (isUtf8 ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes)).toStdString();
}

std::string ReadName(const XDisplay& display, const NameCookies& cookies)
{
    const auto utf8 = ReadProperty(display, cookies.Utf8);
    const auto plain = ReadProperty(display, cookies.Plain);
    const std::string name = NameText(display, utf8.get());
    return name.empty() ? NameText(display, plain.get()) : name;
}

/// Whether a window manager is at work that says it supports `what`. One that died leaves its properties on the root,
/// but not the window that vouches for them.
bool ManagerSupports(const XDisplay& display, xcb_window_t root, AtomIndex what)
{
    const auto check = Numbers(display, root, NetSupportingWmCheck);
    if (check.empty() || Numbers(display, check.front(), NetSupportingWmCheck) != check) {
        return false;
    }
    const auto supported = Numbers(display, root, NetSupported);
    return std::find(supported.begin(), supported.end(), display.Atoms[what]) != supported.end();
}

void AddClients(const XDisplay& display, xcb_window_t root, std::vector<TopWindow>& windows)
{
    const auto clients = Numbers(display, root, NetClientList);
    std::vector<NameCookies> cookies;
    cookies.reserve(clients.size());
    for (const xcb_window_t client : clients) {
        cookies.push_back(AskName(display, client));
    }
    for (std::size_t i = 0; i < clients.size(); ++i) {
        windows.push_back({static_cast<std::intptr_t>(clients[i]), ReadName(display, cookies[i])});
    }
}

/// A window below the root, at any depth.
struct TreeWindow {
    xcb_window_t Window = XCB_WINDOW_NONE;
    std::size_t Family = 0; ///< the child of the root that it is or belongs to
    bool IsManaged = false; ///< a window manager has given it a state
    bool IsThere = false;   ///< on the screen or iconified
    std::string Name;
};

struct TreeCookies {
    xcb_get_window_attributes_cookie_t Attributes;
    xcb_get_property_cookie_t State;
    NameCookies Name;
    xcb_query_tree_cookie_t Tree;
};

TreeCookies AskTreeWindow(const XDisplay& display, xcb_window_t window)
{
    constexpr std::uint32_t StateWords = 2;
    return {xcb_get_window_attributes(Wire(display), window),
            AskProperty(display, window, display.Atoms[WmState], StateWords), AskName(display, window),
            xcb_query_tree(Wire(display), window)};
}

void AddChildren(const xcb_query_tree_reply_t* tree, std::size_t family, std::vector<TreeWindow>& children)
{
    if (tree == nullptr) {
        return;
    }
    const xcb_window_t* const first = xcb_query_tree_children(tree);
    for (const xcb_window_t* child = first; child != first + tree->children_len; ++child) {
        children.push_back({*child, family, false, false, {}});
    }
}

/// Fills the windows of one level. The result is the next one: the children of those without a state.
std::vector<TreeWindow> ReadLevel(const XDisplay& display, std::vector<TreeWindow>& level)
{
    constexpr std::uint32_t IconicState = 3;
    std::vector<TreeCookies> cookies;
    cookies.reserve(level.size());
    for (const TreeWindow& window : level) {
        cookies.push_back(AskTreeWindow(display, window.Window));
    }
    std::vector<TreeWindow> next;
    for (std::size_t i = 0; i < level.size(); ++i) {
        TreeWindow& window = level[i];
        const Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(Wire(display), cookies[i].Attributes, nullptr));
        const auto state = ReadNumbers(display, cookies[i].State);
        window.Name = ReadName(display, cookies[i].Name);
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(Wire(display), cookies[i].Tree, nullptr));
        window.IsManaged = !state.empty();
        window.IsThere = (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE) ||
                         (!state.empty() && state.front() == IconicState);
        if (!window.IsManaged) {
            AddChildren(tree.get(), window.Family, next);
        }
    }
    return next;
}

/// Of a child of the root and what is in it: the windows under a manager when it is their frame, or else the child
/// itself when it has a title, or else what has one inside.
void AddFamily(const std::vector<TreeWindow>& family, std::vector<TopWindow>& windows)
{
    const bool isFrame =
        std::any_of(family.begin(), family.end(), [](const TreeWindow& w) { return w.IsManaged; });
    for (const TreeWindow& window : family) {
        if (window.IsThere && !window.Name.empty() && (window.IsManaged || !isFrame)) {
            windows.push_back({static_cast<std::intptr_t>(window.Window), window.Name});
            if (!isFrame && &window == &family.front()) {
                break;
            }
        }
    }
}

void AddTree(const XDisplay& display, xcb_window_t root, std::vector<TopWindow>& windows)
{
    constexpr int FrameDepth = 2; // a client's window stands in its frame or in a box of the frame
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(Wire(display), xcb_query_tree(Wire(display), root), nullptr));
    std::vector<TreeWindow> level;
    AddChildren(tree.get(), 0, level);
    std::vector<std::vector<TreeWindow>> families(level.size());
    for (std::size_t i = 0; i < level.size(); ++i) {
        level[i].Family = i;
    }
    for (int depth = 0; depth <= FrameDepth && !level.empty(); ++depth) {
        std::vector<TreeWindow> next = ReadLevel(display, level);
        for (TreeWindow& window : level) {
            families[window.Family].push_back(std::move(window));
        }
        level = std::move(next);
    }
    for (const auto& family : families) {
        AddFamily(family, windows);
    }
}

/// Asks the window manager as a pager would: such a request it does not weigh against what the operator did last.
void SendActivation(const XDisplay& display, xcb_window_t root, xcb_window_t window)
{
    constexpr std::uint32_t FromPager = 2;
    constexpr std::uint8_t NumberBits = 32;
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = NumberBits;
    event.window = window;
    event.type = display.Atoms[NetActiveWindow];
    event.data.data32[0] = FromPager;
    event.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(Wire(display), 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
}

/// Returns when the server has done all that was asked; only an answer tells that.
void WaitForServer(const XDisplay& display)
{
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(Wire(display), xcb_get_input_focus(Wire(display)), nullptr));
}

/// Without a manager's help. A plain manager still sees to the map and the stacking; the focus needs a window that is
/// on the screen.
void RaiseByHand(const XDisplay& display, xcb_window_t window)
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_map_window(Wire(display), window);
    xcb_configure_window(Wire(display), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    WaitForServer(display);
    xcb_set_input_focus(Wire(display), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
}
} // namespace

std::vector<TopWindow> ListXWindows()
{
    std::vector<TopWindow> windows;
    const XDisplay display = OpenDisplay();
    if (!display.Connection) {
        return windows;
    }
    for (const xcb_window_t root : Roots(display)) {
        if (ManagerSupports(display, root, NetClientList)) {
            AddClients(display, root, windows);
        } else {
            AddTree(display, root, windows);
        }
    }
    return windows;
}

void RaiseXWindow(std::uint32_t window)
{
    const XDisplay display = OpenDisplay();
    if (!display.Connection) {
        return;
    }
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(Wire(display), xcb_query_tree(Wire(display), window), nullptr));
    if (!tree) {
        return;
    }
    if (ManagerSupports(display, tree->root, NetActiveWindow)) {
        SendActivation(display, tree->root, window);
    } else {
        RaiseByHand(display, window);
    }
    WaitForServer(display);
}

std::string XDisplayName()
{
    char* hostText = nullptr;
    int number = 0;
    if (xcb_parse_display(nullptr, &hostText, &number, nullptr) == 0) {
        return {};
    }
    const std::unique_ptr<char, FreeReply> host(hostText);
    const std::string hostName = host ? host.get() : "";
    return (hostName == "unix" ? "" : hostName) + ":" + std::to_string(number);
}
