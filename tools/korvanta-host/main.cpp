// korvanta-host: a small host for stations with VELCOM=YES. It gives them their language, shows what they tell, and
// opens the programs that they hand over.
#include "HostObjects.h"
#include "HostWindow.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdint>
#include <cstdio>
#include <iterator>
#include <memory>

namespace
{
constexpr int WrongUse = 2;

struct HostOptions {
    std::int16_t Language = 0;
    QString Viewer;
    int BarHeight = 0;
    bool NoWindow = false;
    QString Help;    ///< empty: not asked for
    QString Trouble; ///< empty: none
};

void DeclareOptions(QCommandLineParser& parser)
{
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
    parser.addOption({{"h", "help"}, "Displays help on commandline options."});
}

/// The first thing that is wrong; empty for none.
QString TroubleOf(const QCommandLineParser& parser)
{
    if (!parser.positionalArguments().isEmpty()) {
        return QString("\"%1\" is no option").arg(parser.positionalArguments().constFirst());
    }
    bool isNumber = false;
    const int language = parser.value("language").toInt(&isNumber);
    if (!isNumber || language < 0 || language >= static_cast<int>(std::size(HostLanguages))) {
        return QString("--language: \"%1\" isn't a number from 0 to %2")
            .arg(parser.value("language"))
            .arg(std::size(HostLanguages) - 1);
    }
    const int height = parser.value("bar").toInt(&isNumber);
    if (!isNumber || height < 0) {
        return QString("--bar: \"%1\" isn't a number of pixels").arg(parser.value("bar"));
    }
    return {};
}

/// Without QCommandLineParser::process, which ends with a status of its own.
HostOptions ReadOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    DeclareOptions(parser);
    HostOptions options;
    options.Trouble = parser.parse(arguments) ? TroubleOf(parser) : parser.errorText();
    if (options.Trouble.isEmpty() && parser.isSet("help")) {
        options.Help = parser.helpText();
    }
    options.Language = parser.value("language").toShort();
    options.Viewer = parser.value("viewer");
    options.BarHeight = parser.value("bar").toInt();
    options.NoWindow = parser.isSet("no-window");
    return options;
}

void PrintLine(const QString& line)
{
    std::printf("%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

/// Told before there is an application, since one with a window needs a display. Wrong options need none, unless a word
/// may be one that the application takes for itself, such as -style.
bool WantsWindow(int argc, char** argv)
{
    QStringList arguments;
    bool isForApplication = false;
    for (int i = 0; i < argc; ++i) {
        const QString word = QString::fromLocal8Bit(argv[i]);
        isForApplication = isForApplication || (word.size() > 2 && word[0] == '-' && word[1].isLetter());
        arguments << word;
    }
    const HostOptions options = ReadOptions(arguments);
    return options.Help.isEmpty() && !options.NoWindow && (options.Trouble.isEmpty() || isForApplication);
}
} // namespace

int main(int argc, char** argv)
{
    const std::unique_ptr<QCoreApplication> application(
        WantsWindow(argc, argv) ? new QApplication(argc, argv) : new QCoreApplication(argc, argv));
    const HostOptions options = ReadOptions(QCoreApplication::arguments());
    if (!options.Trouble.isEmpty()) {
        std::fprintf(stderr, "korvanta-host: %s\nTry: korvanta-host --help\n",
                     options.Trouble.toUtf8().constData());
        return WrongUse;
    }
    if (!options.Help.isEmpty()) {
        std::printf("%s", options.Help.toUtf8().constData());
        return 0;
    }
    Host.Language = options.Language;
    Host.Viewer = options.Viewer;
    Host.Desktop = !options.NoWindow;
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
