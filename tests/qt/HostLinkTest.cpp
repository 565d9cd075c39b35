// The seam to a host on a real bus, against hosts that answer whatever a case wants.
#include "qt/HostLink.h"
#include "platform/Fault.h"
#include "platform/Host.h"
#include "state/AppState.h"
#include "support/TempFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <limits>
#include <sys/prctl.h>

namespace
{
constexpr int StartMilliseconds = 20'000;
constexpr int PollMilliseconds = 10;

/// Answers each call by what the case has put in, and keeps the last one.
class OddHost : public QDBusVirtualObject
{
public:
    QString introspect(const QString&) const override
    {
        return {};
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        Call = message;
        connection.send(Error.isEmpty() ? message.createReply(Answer)
                                        : message.createErrorReply(QDBusError::Failed, Error));
        return true;
    }

    QVariantList Answer;
    QString Error;
    QDBusMessage Call;
};

/// The bus of this process: its address is read but once.
struct SharedBusRecord {
    SharedBusRecord() : Address("unix:path=" + QString::fromStdString(Folder.Path) + "/bus")
    {
        Daemon.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); }); // gone with this process
        Daemon.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--address=" + Address});
        QElapsedTimer timer;
        timer.start();
        while (!Answers() && timer.elapsed() < StartMilliseconds) {
            QThread::msleep(PollMilliseconds);
        }
        qputenv("DBUS_SESSION_BUS_ADDRESS", Address.toUtf8());
    }

    ~SharedBusRecord()
    {
        Daemon.kill();
        Daemon.waitForFinished();
    }

    /// Its socket is there a moment before the daemon listens.
    bool Answers() const
    {
        const bool connected = QDBusConnection::connectToBus(Address, "first-try").isConnected();
        QDBusConnection::disconnectFromBus("first-try");
        return connected;
    }

    TempFolder Folder;
    QString Address;
    QProcess Daemon;
};

const QString& SharedBus()
{
    static const SharedBusRecord bus;
    return bus.Address;
}

/// An odd host in a thread of its own: the caller waits in this one.
class HostOnBus : public testing::Test
{
protected:
    void SetUp() override
    {
        ResetAppState();
        QDBusConnection bus = QDBusConnection::connectToBus(SharedBus(), "odd-host");
        ASSERT_TRUE(bus.registerVirtualObject("/org/korvanta/Host", &Host, QDBusConnection::SubPath));
        Host.moveToThread(&Thread);
        Thread.start();
        ASSERT_TRUE(bus.registerService("org.korvanta.Host"));
    }

    void TearDown() override
    {
        HostLink = HostLinkRecord();
        QDBusConnection::disconnectFromBus("korvanta-host");
        QDBusConnection::disconnectFromBus("odd-host");
        Thread.quit();
        Thread.wait();
    }

    TempFolder Folder;
    QThread Thread;
    OddHost Host;
};

QVariantList Variant(const QVariant& value)
{
    return {QVariant::fromValue(QDBusVariant(value))};
}

TEST_F(HostOnBus, TakesAShortIntegerForTheLanguageAndNothingElse)
{
    for (const short value : {short{0}, short{5}, short{-1}, std::numeric_limits<short>::max(),
                              std::numeric_limits<short>::min()}) {
        Host.Answer = Variant(QVariant::fromValue(value));
        std::int32_t index = 99;
        EXPECT_TRUE(ReadHostLanguage(index)) << value;
        EXPECT_EQ(index, value);
    }
    EXPECT_EQ(Host.Call.path(), "/org/korvanta/Host/Panel");
    EXPECT_EQ(Host.Call.interface(), "org.freedesktop.DBus.Properties");
    EXPECT_EQ(Host.Call.member(), "Get");
    EXPECT_EQ(Host.Call.arguments(), (QVariantList{"org.korvanta.Host.Panel", "Language"}));

    const QVariantList odd[] = {
        {},           {QVariant::fromValue(short{2})}, // without the variant around it
        Variant(2),   Variant(QVariant::fromValue(ushort{2})),
        Variant(2.0), Variant(true),
        Variant("2"), Variant(QStringList{"2"}),
    };
    for (const QVariantList& answer : odd) {
        Host.Answer = answer;
        std::int32_t index = 99;
        EXPECT_FALSE(ReadHostLanguage(index)) << &answer - odd;
        EXPECT_EQ(index, 99);
    }
    Host.Error = "not today";
    std::int32_t index = 99;
    EXPECT_FALSE(ReadHostLanguage(index));
    EXPECT_EQ(index, 99);
}

TEST_F(HostOnBus, DropsTheAnswersOfTheOtherCalls)
{
    for (const QVariantList& answer : {QVariantList{}, Variant(1), QVariantList{"text", 2}}) {
        Host.Answer = answer;
        EXPECT_NO_THROW(AnnounceToHost(1));
        EXPECT_EQ(Host.Call.member(), "Announce");
        EXPECT_EQ(Host.Call.arguments(), QVariantList{1});
        EXPECT_NO_THROW(OpenAtHost("/cnc/PLATE.nc", 1));
        EXPECT_EQ(Host.Call.path(), "/org/korvanta/Host/Programs");
        EXPECT_EQ(Host.Call.interface(), "org.korvanta.Host.Programs");
        EXPECT_EQ(Host.Call.member(), "Open");
        EXPECT_EQ(Host.Call.signature(), "si");
        EXPECT_EQ(Host.Call.arguments(), (QVariantList{"/cnc/PLATE.nc", 1}));
    }
}

TEST_F(HostOnBus, TellsWhatTheHostSaysOfAFailure)
{
    Host.Error = "not today";
    try {
        AnnounceToHost(1);
        FAIL() << "no fault";
    } catch (const RunTimeFault& fault) {
        EXPECT_STREQ(fault.what(), "the CNC host doesn't answer to Announce: not today");
    }
    EXPECT_THROW(OpenAtHost("/cnc/PLATE.nc", 1), RunTimeFault);
}

TEST_F(HostOnBus, GivesTheWholeNativeName)
{
    AppState.AppPath = Folder.Path;
    Folder.Write("program/plate.NC", "");
    const std::pair<const char*, const char*> cases[] = {
        {"PROGRAM\\PLATE.nc", "/program/plate.NC"}, // the folder and the file that are there
        {"NC\\TOP.nc", "/NC/TOP.nc"},
        {"C:\\CNC\\NC files\\TOP.nc", "/drive_c/CNC/NC files/TOP.nc"},
        {"NC\\PL\xC3\x84TTE \xE6\x9D\xBF.nc", "/NC/PL\xC3\x84TTE \xE6\x9D\xBF.nc"},
    };
    for (const auto& [path, native] : cases) {
        OpenAtHost(path, 1);
        EXPECT_EQ(Host.Call.arguments().constFirst().toString().toStdString(), Folder.Path + native);
    }
}

/// The objects are made by the first call for each, and then kept.
TEST_F(HostOnBus, MakesItsObjectsWhenTheyAreNeeded)
{
    EXPECT_FALSE(HostLink.Panel.has_value());
    EXPECT_FALSE(HostLink.Programs.has_value());
    Host.Answer = Variant(QVariant::fromValue(short{2}));
    std::int32_t index = 0;
    ASSERT_TRUE(ReadHostLanguage(index));
    EXPECT_TRUE(HostLink.Panel.has_value());
    EXPECT_FALSE(HostLink.Programs.has_value());
    const QString caller = Host.Call.service();
    AnnounceToHost(1);
    OpenAtHost("/cnc/PLATE.nc", 1);
    EXPECT_TRUE(HostLink.Programs.has_value());
    EXPECT_EQ(Host.Call.service(), caller) << "all calls come from one place on the bus";
}
} // namespace
