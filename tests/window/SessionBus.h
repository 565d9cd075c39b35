// SessionBus.h -- a message bus of its own for a case, and the host program on it.
#pragma once

#include "Process.h"
#include "support/TempFolder.h"

#include <string>
#include <vector>

struct SessionBus {
    SessionBus();

    /// Starts korvanta-host with these arguments and waits until it has its name. `environment` is for its window.
    void StartHost(Process& host, std::vector<std::string> arguments,
                   const std::vector<std::string>& environment = {}) const;

    /// Lets the bus start korvanta-host when somebody asks for its name.
    void OfferHost(const std::string& arguments) const;

    /// The lines that hosts have printed; how many of them begin like this.
    std::vector<std::string> HostLines() const;
    int HostLinesWith(const std::string& beginning) const;

    /// Calls a method of the host from outside: its answer, or what is wrong.
    Finished Send(std::vector<std::string> words) const;

    /// Writes all that is said on the bus into a file from now on.
    void Watch(Process& watcher, const std::string& log) const;

    TempFolder Folder;
    std::string Variable; ///< DBUS_SESSION_BUS_ADDRESS=...

private:
    Process Daemon;
};
