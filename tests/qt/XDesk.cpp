#include "qt/XDesk.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QThread>

#include <cstdlib>
#include <cstring>

namespace
{
constexpr int LongestWait = 30000; // milliseconds
constexpr unsigned long Turn = 5;

void Stop(QProcess& process)
{
    process.kill();
    process.waitForFinished();
}

template <class Reply> struct Answer {
    Reply* Is;

    explicit Answer(Reply* reply) : Is(reply) {}
    ~Answer()
    {
        std::free(Is);
    }
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;
};
} // namespace

bool Becomes(const std::function<bool()>& holds)
{
    QElapsedTimer clock;
    clock.start();
    while (!holds()) {
        if (clock.elapsed() > LongestWait) {
            return false;
        }
        QThread::msleep(Turn);
    }
    return true;
}

XClient::XClient()
{
    Wire = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(Wire) != 0) {
        ADD_FAILURE() << "no display " << qgetenv("DISPLAY").constData();
        return;
    }
    Root = xcb_setup_roots_iterator(xcb_get_setup(Wire)).data->root;
}

XClient::~XClient()
{
    xcb_disconnect(Wire);
}

xcb_atom_t XClient::Atom(const char* name) const
{
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const Answer reply(xcb_intern_atom_reply(Wire, xcb_intern_atom(Wire, 0, length, name), nullptr));
    return reply.Is != nullptr ? reply.Is->atom : xcb_atom_t(XCB_ATOM_NONE);
}

xcb_window_t XClient::AddWindow(xcb_window_t parent, bool mapped) const
{
    constexpr std::uint16_t Side = 100;
    const xcb_window_t window = xcb_generate_id(Wire);
    xcb_create_window(Wire, XCB_COPY_FROM_PARENT, window, parent != XCB_WINDOW_NONE ? parent : Root, 0, 0,
                      Side, Side, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    if (mapped) {
        xcb_map_window(Wire, window);
    }
    Sync();
    return window;
}

xcb_window_t XClient::AddTitled(const QByteArray& utf8Title) const
{
    const xcb_window_t window = AddWindow(XCB_WINDOW_NONE, false);
    SetText(window, "_NET_WM_NAME", "UTF8_STRING", utf8Title);
    xcb_map_window(Wire, window);
    Sync();
    return window;
}

void XClient::SetText(xcb_window_t window, const char* property, const char* type,
                      const QByteArray& bytes) const
{
    xcb_change_property(Wire, XCB_PROP_MODE_REPLACE, window, Atom(property), Atom(type), 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.constData());
    Sync();
}

void XClient::SetNumbers(xcb_window_t window, const char* property, const char* type,
                         const std::vector<std::uint32_t>& numbers) const
{
    xcb_change_property(Wire, XCB_PROP_MODE_REPLACE, window, Atom(property), Atom(type), 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
    Sync();
}

std::vector<std::uint32_t> XClient::Numbers(xcb_window_t window, const char* property) const
{
    constexpr std::uint32_t Most = 10000;
    const Answer reply(xcb_get_property_reply(
        Wire, xcb_get_property(Wire, 0, window, Atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, Most),
        nullptr));
    if (reply.Is == nullptr || reply.Is->format != 32) {
        return {};
    }
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.Is));
    return {first, first + reply.Is->value_len};
}

void XClient::Iconify(xcb_window_t window) const
{
    constexpr std::uint32_t IconicState = 3;
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = Atom("WM_CHANGE_STATE");
    event.data.data32[0] = IconicState;
    xcb_send_event(Wire, 0, Root, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    Sync();
}

bool XClient::IsViewable(xcb_window_t window) const
{
    const Answer reply(
        xcb_get_window_attributes_reply(Wire, xcb_get_window_attributes(Wire, window), nullptr));
    return reply.Is != nullptr && reply.Is->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t XClient::Focus() const
{
    const Answer reply(xcb_get_input_focus_reply(Wire, xcb_get_input_focus(Wire), nullptr));
    return reply.Is != nullptr ? reply.Is->focus : xcb_window_t(XCB_WINDOW_NONE);
}

std::vector<xcb_window_t> XClient::Children(xcb_window_t window) const
{
    const Answer reply(xcb_query_tree_reply(Wire, xcb_query_tree(Wire, window), nullptr));
    if (reply.Is == nullptr) {
        return {};
    }
    const xcb_window_t* const first = xcb_query_tree_children(reply.Is);
    return {first, first + reply.Is->children_len};
}

void XClient::Sync() const
{
    static_cast<void>(Focus());
}

XDesk::XDesk()
{
    Server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "800x600x24", "-nolisten", "tcp"});
    QByteArray number;
    while (!number.endsWith('\n') && Server.waitForReadyRead(LongestWait)) {
        number += Server.readAllStandardOutput();
    }
    EXPECT_TRUE(number.endsWith('\n')) << "Xvfb did not start";
    qputenv("DISPLAY", ":" + number.trimmed());
}

XDesk::~XDesk()
{
    Stop(Manager);
    Stop(Server);
}

void XDesk::StartManager(const XClient& client)
{
    Manager.start("openbox", {"--sm-disable"});
    EXPECT_TRUE(Becomes([&] { return !client.Numbers(client.Root, "_NET_CLIENT_LIST").empty(); }))
        << "openbox did not start, or no window stands there for it to list";
}
