// HostLink.h -- the two objects of a CNC host on the session bus. docs/host-link.md tells what a host must offer.
#pragma once

#include <QDBusConnection>

#include <optional>

/// An object of the host, by its place on the bus.
struct HostObject {
    QDBusConnection Bus;
    const char* Path;
    const char* Interface;
};

/// Nothing stands in it, and no bus is touched, before the shell makes its first call.
struct HostLinkRecord {
    std::optional<HostObject> Panel;
    std::optional<HostObject> Programs;
};

extern HostLinkRecord HostLink;
