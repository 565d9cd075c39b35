// korvanta-host: a small host for stations with VELCOM=YES. It gives them their language, shows what they tell, and
// opens the programs that they hand over.
#include "HostObjects.h"
#include "HostWindow.h"

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace
{
constexpr int WrongUse = 2;

struct HostOptions {
    bool NoWindow = false;
    int BarHeight = 0;
    QString Trouble; ///< empty: none
};

HostOptions ReadOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("A host for Korvanta stations with VELCOM=YES.");
    parser.addOptions({
        {"language",
         "Language of the stations: 0 English, 1 Italian, 2 German, 3 French, 4 Spanish, 5 Chinese.", "N",
         "0"},
        {"viewer",
         "Command that opens a program; its path comes behind. Default: what the desktop opens it with.",
         "CMD"},
        {"bar", "A bar of that many pixels along the upper edge of the screen instead of a window.", "PIXELS",
         "0"},
        {"no-window",
         "No window, and without --viewer programs aren't opened: only lines on standard output."},
    });
    parser.addHelpOption();
    parser.process(arguments);
    HostOptions options;
    bool isLanguage = false;
    bool isHeight = false;
    Host.Language = parser.value("language").toShort(&isLanguage);
    options.BarHeight = parser.value("bar").toInt(&isHeight);
    options.NoWindow = parser.isSet("no-window");
    Host.Viewer = parser.value("viewer");
    Host.Desktop = !options.NoWindow;
    if (!isLanguage || !isHeight || options.BarHeight < 0 || !parser.positionalArguments().isEmpty()) {
        options.Trouble = "see --help";
    }
    return options;
}

void PrintLine(const QString& line)
{
    std::printf("%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

/// Told before there is an application, since one with a window needs a display.
bool WantsWindow(int argc, char** argv)
{
    const QByteArrayList without = {"--no-window", "--help", "-h"};
    return std::none_of(argv + 1, argv + argc, [&](const char* word) { return without.contains(word); });
}
} // namespace

int main(int argc, char** argv)
{
    const std::unique_ptr<QCoreApplication> application(
        WantsWindow(argc, argv) ? new QApplication(argc, argv) : new QCoreApplication(argc, argv));
    const HostOptions options = ReadOptions(QCoreApplication::arguments());
    if (!options.Trouble.isEmpty()) {
        std::fprintf(stderr, "korvanta-host: %s\n", options.Trouble.toUtf8().constData());
        return WrongUse;
    }
    Host.Tell.emplace_back(PrintLine);
    const std::unique_ptr<QWidget> window = options.NoWindow ? nullptr : ShowHostWindow(options.BarHeight);
    QString reason;
    if (!OfferHost(reason)) {
        std::fprintf(stderr, "korvanta-host: %s\n", reason.toUtf8().constData());
        return 1;
    }
    TellHost("ready");
    return QCoreApplication::exec();
}
