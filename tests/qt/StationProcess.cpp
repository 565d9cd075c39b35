#include "qt/StationProcess.h"

#include "config/Korvanta_Utility.h"
#include "platform/Screen.h"
#include "qt/TopWindows.h"
#include "state/AppState.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>

#include <cstdio>

namespace
{
constexpr int LongestWait = 30000; // milliseconds
constexpr int Turn = 10;

void Say(const QByteArray& text)
{
    std::puts(text.constData());
    std::fflush(stdout);
}

/// Lets both processes go on until `done`, or until the wait is over.
template <class Done> bool WaitFor(QProcess& process, QString& said, Done done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < LongestWait) {
        QCoreApplication::processEvents();
        process.waitForFinished(Turn);
        said += QString::fromUtf8(process.readAllStandardOutput());
    }
    return done();
}
} // namespace

int RunAsStation(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const std::intptr_t handle = FindWindowByTitle(AppState.ProgramName);
    if (handle != 0) {
        RaiseTopWindow(handle);
        return 0;
    }
    StationRaised = [] { Say("raised " + qgetenv("XDG_ACTIVATION_TOKEN")); };
    Say("runs");
    const QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    return QCoreApplication::exec();
}

StationProcess::StationProcess()
{
    Process.setProcessChannelMode(QProcess::MergedChannels);
    Process.start(QCoreApplication::applicationFilePath(), {StationSwitch});
}

StationProcess::~StationProcess()
{
    Process.kill();
    Process.waitForFinished();
}

bool StationProcess::Says(const QString& text)
{
    WaitFor(Process, Said, [&] { return Said.contains(text) || Process.state() == QProcess::NotRunning; });
    return Said.contains(text);
}

bool StationProcess::GivesWay()
{
    const bool ended = WaitFor(Process, Said, [&] { return Process.state() == QProcess::NotRunning; });
    return ended && Process.exitStatus() == QProcess::NormalExit && Process.exitCode() == 0 && Said.isEmpty();
}
