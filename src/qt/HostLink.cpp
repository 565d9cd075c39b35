// The body of the seam to a host: two objects of a service on the session bus.
#include "qt/HostLink.h"
#include "platform/Fault.h"
#include "platform/Host.h"
#include "platform/Paths.h"
#include "qt/StationWindow.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDir>

#include <cstdio>

HostLinkRecord HostLink;

namespace
{
constexpr const char* Service = "org.korvanta.Host";
constexpr const char* Properties = "org.freedesktop.DBus.Properties";
constexpr const char* ConnectionName = "korvanta-host";

/// A host that is only slow has answered by then, and nobody stands longer before a window that takes no key.
constexpr int MostMilliseconds = 10'000;

/// The object, made when it is first asked for.
HostObject& Made(std::optional<HostObject>& object, const char* path, const char* interfaceName)
{
    if (!object.has_value()) {
        object = HostObject{QDBusConnection::connectToBus(QDBusConnection::SessionBus, ConnectionName), path,
                            interfaceName};
    }
    return *object;
}

HostObject& HostPanel()
{
    return Made(HostLink.Panel, "/org/korvanta/Host/Panel", "org.korvanta.Host.Panel");
}

HostObject& HostPrograms()
{
    return Made(HostLink.Programs, "/org/korvanta/Host/Programs", "org.korvanta.Host.Programs");
}

/// Keys that are pressed meanwhile wait in the window system.
QDBusMessage Ask(const HostObject& object, const char* interfaceName, const char* member,
                 const QVariantList& arguments)
{
    QDBusMessage question = QDBusMessage::createMethodCall(Service, object.Path, interfaceName, member);
    question.setArguments(arguments);
    return object.Bus.call(question, QDBus::Block, MostMilliseconds);
}

std::string WhyNot(const QDBusMessage& answer)
{
    const QString reason = answer.errorMessage();
    return ToText(reason.isEmpty() ? answer.errorName() : reason);
}

void AskOrFail(const HostObject& object, const char* member, const QVariantList& arguments)
{
    const QDBusMessage answer = Ask(object, object.Interface, member, arguments);
    if (answer.type() != QDBusMessage::ReplyMessage) {
        throw RunTimeFault(std::string("the CNC host doesn't answer to ") + member + ": " + WhyNot(answer));
    }
}
} // namespace

bool ReadHostLanguage(std::int32_t& index)
{
    const HostObject& panel = HostPanel();
    const QDBusMessage answer = Ask(panel, Properties, "Get", {QString(panel.Interface), "Language"});
    const auto value = answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()
                           ? answer.arguments().constFirst().value<QDBusVariant>().variant()
                           : QVariant();
    if (value.typeId() != QMetaType::Short) {
        const std::string reason = answer.type() == QDBusMessage::ErrorMessage
                                       ? WhyNot(answer)
                                       : "its Language isn't a 16-bit integer";
        std::fprintf(stderr, "korvanta: no language from the CNC host: %s\n", reason.c_str());
        return false;
    }
    index = value.value<short>();
    return true;
}

void AnnounceToHost(std::int32_t number)
{
    AskOrFail(HostPanel(), "Announce", {number});
}

/// The host is a program of this machine: it gets the whole native name.
void OpenAtHost(const std::string& path, std::int32_t number)
{
    AskOrFail(HostPrograms(), "Open", {QDir::cleanPath(FromText(NativePath(path))), number});
}
