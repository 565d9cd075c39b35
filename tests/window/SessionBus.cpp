#include "SessionBus.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;

constexpr double StartSeconds = 20;

/// Nothing of this machine's own services is on it.
std::string Settings(const std::string& folder)
{
    return R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=)" +
           folder + R"(/bus</listen>
  <auth>EXTERNAL</auth>
  <servicedir>)" +
           folder + R"(/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";
}

/// True when the socket takes a connection: it is there a moment before the daemon listens.
bool Listens(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int attempt = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool taken = connect(attempt, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    close(attempt);
    return taken;
}

const std::string& HostProgram()
{
    static const std::string program = KORVANTA_BINARY_DIR "/bin/korvanta-host";
    return program;
}
} // namespace

SessionBus::SessionBus() : Variable("DBUS_SESSION_BUS_ADDRESS=unix:path=" + Folder.Path + "/bus")
{
    fs::create_directory(Folder.Path + "/services");
    Folder.Write("host.log", "");
    const std::string settings = Folder.Write("bus.conf", Settings(Folder.Path));
    Daemon.Start(
        {{"dbus-daemon", "--nofork", "--config-file=" + settings}, {}, Folder.Path + "/bus.log", -1});
    if (!WaitFor(StartSeconds, [this] { return Listens(Folder.Path + "/bus"); })) {
        throw std::runtime_error("no bus: " + Folder.Read("bus.log"));
    }
}

void SessionBus::StartHost(Process& host, std::vector<std::string> arguments,
                           const std::vector<std::string>& environment) const
{
    arguments.insert(arguments.begin(), HostProgram());
    std::vector<std::string> variables = environment;
    variables.push_back(Variable);
    const int before = HostLinesWith("ready");
    host.Start({arguments, variables, Folder.Path + "/host.log", -1});
    if (!WaitFor(StartSeconds, [&] { return HostLinesWith("ready") > before || !host.Runs(); }) ||
        !host.Runs()) {
        throw std::runtime_error("no host: " + Folder.Read("host.log"));
    }
}

void SessionBus::OfferHost(const std::string& arguments) const
{
    const std::string program = Folder.Write("host.sh", "#!/bin/sh\nexec " + HostProgram() + " " + arguments +
                                                            " >>" + Folder.Path + "/host.log 2>&1\n");
    fs::permissions(program, fs::perms::owner_all);
    Folder.Write("services/org.korvanta.Host.service",
                 "[D-BUS Service]\nName=org.korvanta.Host\nExec=" + program + "\n");
}

std::vector<std::string> SessionBus::HostLines() const
{
    std::vector<std::string> lines;
    std::istringstream text(Folder.Read("host.log"));
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

int SessionBus::HostLinesWith(const std::string& beginning) const
{
    const std::vector<std::string> lines = HostLines();
    return static_cast<int>(std::count_if(
        lines.begin(), lines.end(), [&](const std::string& line) { return line.starts_with(beginning); }));
}

Finished SessionBus::Send(std::vector<std::string> words) const
{
    const std::vector<std::string> head = {"dbus-send", "--session", "--print-reply=literal",
                                           "--dest=org.korvanta.Host"};
    words.insert(words.begin(), head.begin(), head.end());
    return RunToEnd(words, {Variable});
}

void SessionBus::Watch(Process& watcher, const std::string& log) const
{
    watcher.Start({{"dbus-monitor", "--session"}, {Variable}, log, -1});
    if (!WaitFor(StartSeconds, [&] { return fs::exists(log) && fs::file_size(log) > 0; })) {
        throw std::runtime_error("nobody watches the bus");
    }
}
