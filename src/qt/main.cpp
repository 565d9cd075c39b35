// korvanta: the station in its window.
#include "platform/Fault.h"
#include "platform/StationFolder.h"
#include "qt/PictureBoxes.h"
#include "qt/StationWindow.h"
#include "qt/TopWindows.h"
#include "qt/WindowEvents.h"
#include "shell/Korvanta_Interface.h"

#include <QApplication>
#include <QDir>

#include <csignal>

namespace
{
/// The folder that the program file lies in.
std::string ProgramFolder()
{
    return ToText(QDir::cleanPath(QCoreApplication::applicationDirPath()));
}

/// A later start asks this one to come forward.
void ComeForward()
{
    if (Window.Main != nullptr) {
        Window.Main->setWindowState(Window.Main->windowState() & ~Qt::WindowMinimized);
        Window.Main->show();
        Window.Main->raise();
        Window.Main->activateWindow();
    }
}
} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is a fault with a text, like a full disk
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QCoreApplication::setApplicationName("Korvanta");
    QGuiApplication::setDesktopFileName(
        "korvanta"); // the entry in the menu whose icon and name the desktop shows
    QGuiApplication::setQuitOnLastWindowClosed(false); // the program has its own ways out
    const QStringList arguments = QCoreApplication::arguments();
    const std::string language = arguments.size() > 1 ? ToText(arguments[1]) : std::string();
    StationRaised = ComeForward;
    RunEvent([&] {
        MakeStationWindow();
        ListenToPictures();
        StartWindow(FindStationFolder(ProgramFolder()), language);
        ShowStationWindow();
    });
    return QApplication::exec();
}
