// The cases of the window run in this process, on no display. Those that want one end the application in a process of
// their own, and make it anew there. Called with "--station" the program plays another
// station for them.
#include "qt/StationProcess.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <string_view>

int main(int argc, char** argv)
{
    if (argc > 1 && std::string_view(argv[1]) == StationSwitch) {
        return RunAsStation(argc, argv);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    new QApplication(argc, argv);
    const int status = RUN_ALL_TESTS();
    delete qApp;
    return status;
}
