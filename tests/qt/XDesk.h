// XDesk.h -- an X display of its own for a case, and other programs' windows on it.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <xcb/xcb.h>

#include <functional>
#include <vector>

/// A connection of its own to the display of the environment: what is made through it goes with it.
struct XClient {
    xcb_connection_t* Wire = nullptr;
    xcb_window_t Root = XCB_WINDOW_NONE;

    XClient();
    ~XClient();
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;

    xcb_atom_t Atom(const char* name) const;

    /// A window below `parent`, or below the root, without a title; on the screen unless told otherwise.
    xcb_window_t AddWindow(xcb_window_t parent = XCB_WINDOW_NONE, bool mapped = true) const;
    xcb_window_t AddTitled(const QByteArray& utf8Title) const;

    void SetText(xcb_window_t window, const char* property, const char* type, const QByteArray& bytes) const;
    void SetNumbers(xcb_window_t window, const char* property, const char* type,
                    const std::vector<std::uint32_t>& numbers) const;
    std::vector<std::uint32_t> Numbers(xcb_window_t window, const char* property) const;

    /// Asks the window manager to iconify a window.
    void Iconify(xcb_window_t window) const;

    bool IsViewable(xcb_window_t window) const;
    xcb_window_t Focus() const;
    std::vector<xcb_window_t> Children(xcb_window_t window) const; ///< lowest first

    /// Returns when the server has done all that was asked.
    void Sync() const;
};

/// A display that nobody else uses. DISPLAY names it from then on.
struct XDesk {
    QProcess Server;
    QProcess Manager;

    XDesk();
    ~XDesk();
    XDesk(const XDesk&) = delete;
    XDesk& operator=(const XDesk&) = delete;

    /// Puts a window manager to work; returns when it is.
    void StartManager(const XClient& client);
};

/// Waits until `holds` does; false when it takes too long.
bool Becomes(const std::function<bool()>& holds);
