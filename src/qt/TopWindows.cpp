#include "qt/TopWindows.h"

#include "platform/ProcessLock.h"
#include "platform/Screen.h"
#include "qt/XWindows.h"
#include "state/AppState.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>

void (*StationRaised)() = nullptr;

namespace
{
constexpr std::intptr_t OtherStation = -1; // no window has such a number
constexpr const char* TokenVariable = "XDG_ACTIVATION_TOKEN";
constexpr qint64 LongestToken = 1024;

int LockHandle = -1;
QPointer<QLocalServer> LockServer; ///< goes with the application at the latest

/// The display that the station's window will stand on; empty on a machine whose control draws without a server.
QByteArray DisplayName()
{
    const QByteArray wayland = qgetenv("WAYLAND_DISPLAY");
    const QByteArray x = QByteArray::fromStdString(XDisplayName());
    if (QGuiApplication::platformName().startsWith("wayland") || x.isEmpty()) {
        return "wayland " + wayland;
    }
    return "x " + x;
}

/// The lock is tried in the first of these that lets it be made.
QStringList LockFolders()
{
    QStringList folders;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (QDir::isAbsolutePath(runtime)) {
        folders << runtime;
    }
    return folders << QDir::tempPath();
}

/// Display names hold any sign and have any length; a socket's path must stay short.
QString LockPath(const QString& folder)
{
    constexpr qsizetype HashDigits = 16;
    const QByteArray hash = QCryptographicHash::hash(DisplayName(), QCryptographicHash::Sha1).toHex();
    return folder + "/korvanta-" + QString::number(UserNumber()) + "-" + hash.left(HashDigits);
}

QString LockFileName(const QString& path)
{
    return path + ".lock";
}

QString SocketName(const QString& path)
{
    return path + ".socket";
}

/// A call is one line: the token, which is mostly empty.
void ComeForward(QLocalSocket& caller)
{
    if (!caller.canReadLine()) {
        return;
    }
    const QByteArray token = caller.readLine(LongestToken).trimmed();
    caller.disconnect();
    caller.deleteLater();
    if (!token.isEmpty() && !token.contains('\0')) {
        qputenv(TokenVariable, token);
    }
    if (StationRaised != nullptr) {
        StationRaised();
    }
}

void AnswerCallers()
{
    while (QLocalSocket* caller = LockServer->nextPendingConnection()) {
        caller->setReadBufferSize(LongestToken);
        QObject::connect(caller, &QLocalSocket::readyRead, caller, [caller] { ComeForward(*caller); });
        QObject::connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
    }
}

/// Only the holder of the lock listens, so a socket that is there already is a dead station's.
void ListenToLaterStarts(const QString& path)
{
    if (QCoreApplication::instance() == nullptr) {
        return;
    }
    QLocalServer::removeServer(SocketName(path));
    LockServer = new QLocalServer(QCoreApplication::instance());
    LockServer->setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(LockServer, &QLocalServer::newConnection, LockServer, AnswerCallers);
    LockServer->listen(SocketName(path));
}

/// Takes the lock unless this process has it. The path of the lock when another station holds it, otherwise empty.
QString FindOtherStation()
{
    if (LockHandle >= 0) {
        return {};
    }
    for (const QString& folder : LockFolders()) {
        QString path = LockPath(folder);
        switch (TakeProcessLock(QFile::encodeName(LockFileName(path)).toStdString(), LockHandle)) {
        case LockAnswer::Taken:
            ListenToLaterStarts(path);
            return {};
        case LockAnswer::HeldByOther:
            return path;
        case LockAnswer::Unavailable:
            break;
        }
    }
    return {};
}

/// A station that is busy reads the call later; one that isn't listening yet comes to the front by itself.
void CallOtherStation()
{
    constexpr int LongestWait = 1000; // milliseconds
    const QString path = FindOtherStation();
    if (path.isEmpty()) {
        return;
    }
    QLocalSocket socket;
    socket.connectToServer(SocketName(path), QIODevice::WriteOnly);
    if (socket.waitForConnected(LongestWait)) {
        const QByteArray token = qgetenv(TokenVariable);
        socket.write(token.size() < LongestToken - 1 ? token + '\n' : "\n");
        socket.waitForBytesWritten(LongestWait);
    }
}
} // namespace

void ReleaseStationLock()
{
    delete LockServer.data();
    ReleaseProcessLock(LockHandle);
    LockHandle = -1;
}

std::vector<TopWindow> ListTopWindows()
{
    const bool otherStation = !FindOtherStation().isEmpty();
    std::vector<TopWindow> windows = ListXWindows();
    if (otherStation) {
        windows.push_back({OtherStation, AppState.ProgramName});
    }
    return windows;
}

void RaiseTopWindow(std::intptr_t handle)
{
    if (handle == OtherStation) {
        CallOtherStation();
    } else {
        RaiseXWindow(static_cast<std::uint32_t>(handle));
    }
}
