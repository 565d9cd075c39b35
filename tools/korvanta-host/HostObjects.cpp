#include "HostObjects.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <QUrl>

HostRecord Host;

namespace
{
constexpr const char* Service = "org.korvanta.Host";
constexpr const char* PanelPath = "/org/korvanta/Host/Panel";
constexpr const char* ProgramsPath = "/org/korvanta/Host/Programs";
constexpr const char* PanelInterface = "org.korvanta.Host.Panel";
constexpr const char* ProgramsInterface = "org.korvanta.Host.Programs";
constexpr const char* PropertiesInterface = "org.freedesktop.DBus.Properties";

constexpr const char* PanelDescription = R"(  <interface name="org.korvanta.Host.Panel">
    <property name="Language" type="n" access="read"/>
    <method name="Announce">
      <arg name="number" type="i" direction="in"/>
    </method>
  </interface>
)";

constexpr const char* ProgramsDescription = R"(  <interface name="org.korvanta.Host.Programs">
    <method name="Open">
      <arg name="path" type="s" direction="in"/>
      <arg name="number" type="i" direction="in"/>
      <arg name="result" type="v" direction="out"/>
    </method>
  </interface>
)";

/// Answers a call; false when it is none of this object's.
using AnswerRoutine = bool (*)(const QDBusMessage& call, const QDBusConnection& bus);

/// Calls arrive here without the code that Qt would have generated for them.
class BusObject : public QDBusVirtualObject
{
public:
    BusObject(const char* description, AnswerRoutine answer) : Description(description), Answer(answer) {}

    QString introspect(const QString&) const override
    {
        return Description;
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        return Answer(message, connection);
    }

private:
    const char* Description;
    AnswerRoutine Answer;
};

/// A call of `member` with arguments of just these types. Callers may leave the interface out.
bool Is(const QDBusMessage& call, const char* interfaceName, const char* member, const char* signature)
{
    return (call.interface().isEmpty() || call.interface() == interfaceName) && call.member() == member &&
           call.signature() == signature;
}

bool AnswerLanguage(const QDBusMessage& call, const QDBusConnection& bus)
{
    const QVariant language = QVariant::fromValue<short>(Host.Language);
    const QString interfaceName = call.arguments().value(0).toString();
    if (interfaceName != PanelInterface && !interfaceName.isEmpty()) {
        return false;
    }
    if (Is(call, PropertiesInterface, "GetAll", "s")) {
        bus.send(call.createReply(QVariantMap{{"Language", language}}));
        return true;
    }
    if (!Is(call, PropertiesInterface, "Get", "ss") || call.arguments().value(1) != QVariant("Language")) {
        return false;
    }
    bus.send(call.createReply(QVariant::fromValue(QDBusVariant(language))));
    TellHost(QString("language asked for: %1").arg(Host.Language));
    return true;
}

bool AnswerPanel(const QDBusMessage& call, const QDBusConnection& bus)
{
    if (call.interface() == PropertiesInterface) {
        return AnswerLanguage(call, bus);
    }
    if (!Is(call, PanelInterface, "Announce", "i")) {
        return false;
    }
    bus.send(call.createReply());
    TellHost(QString("announced: %1").arg(call.arguments().constFirst().toInt()));
    return true;
}

void ShowProgram(const QString& path)
{
    QStringList words = QProcess::splitCommand(Host.Viewer);
    bool shown = true;
    if (!words.isEmpty()) {
        const QString program = words.takeFirst();
        shown = QProcess::startDetached(program, words << path);
    } else if (Host.Desktop) {
        shown = QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    }
    if (!shown) {
        TellHost("no viewer for " + path);
    }
}

/// The station waits for the answer, so that comes first.
bool AnswerPrograms(const QDBusMessage& call, const QDBusConnection& bus)
{
    if (!Is(call, ProgramsInterface, "Open", "si")) {
        return false;
    }
    const QString path = call.arguments().constFirst().toString();
    const bool there = QFileInfo(path).isFile();
    bus.send(call.createReply(QVariant::fromValue(QDBusVariant(there))));
    TellHost(QString("open: %1 (%2)").arg(path).arg(call.arguments().at(1).toInt()));
    if (there) {
        QTimer::singleShot(0, [path] { ShowProgram(path); });
    } else {
        TellHost("no such file: " + path);
    }
    return true;
}
} // namespace

void TellHost(const QString& line)
{
    for (const auto& tell : Host.Tell) {
        tell(line);
    }
}

bool OfferHost(QString& reason)
{
    QCoreApplication* application = QCoreApplication::instance();
    auto* panel = new BusObject(PanelDescription, AnswerPanel);
    auto* programs = new BusObject(ProgramsDescription, AnswerPrograms);
    panel->setParent(application);
    programs->setParent(application);
    QDBusConnection bus = QDBusConnection::sessionBus();
    // The objects first: a station that waits for the name may ask at once.
    if (bus.isConnected() && bus.registerVirtualObject(PanelPath, panel) &&
        bus.registerVirtualObject(ProgramsPath, programs) && bus.registerService(Service)) {
        bus.connect({}, "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected",
                    application, SLOT(quit()));
        return true;
    }
    reason = bus.isConnected() ? "another host has the name " + QString(Service) : "there is no session bus";
    const QString detail = bus.lastError().message();
    reason += detail.isEmpty() ? "" : ": " + detail;
    return false;
}
