// ShownStation.h -- a station in its window, in this process, on no display: with its own folder and its own
// runtime folder, so that stations of other cases are no second start.
#pragma once

#include "qt/Mirror.h"
#include "qt/PaintSurface.h"
#include "qt/PictureBoxes.h"
#include "qt/StationWindow.h"
#include "qt/TopWindows.h"
#include "shell/KeyCodes.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

class ShownStation : public testing::Test
{
protected:
    TempFolder Folder;
    QTemporaryDir Runtime;

    void SetUp() override
    {
        qputenv("XDG_RUNTIME_DIR", Runtime.path().toUtf8());
        const std::filesystem::path source = std::filesystem::path(KORVANTA_SOURCE_DIR) / "station";
        std::filesystem::copy(source, Folder.Path, std::filesystem::copy_options::recursive);
    }

    void TearDown() override
    {
        ReleaseStationLock();
        SurfaceListener = SurfaceListeners(); // strokes of later cases have no box to refresh
        delete Window.Main;
        Window = StationWindowRecord();
    }

    /// A line of Korvanta.ini's SETUP, ahead of the shipped one.
    void Configure(const std::string& lines) const
    {
        std::string text = Folder.Read("Korvanta.ini");
        text.insert(text.find("[SETUP]") + 7, "\n" + lines + "\n");
        Folder.Write("Korvanta.ini", text);
    }

    void Open(const std::string& resolution = "800x600", const std::string& language = "1")
    {
        Configure("SCREEN_RES=" + resolution);
        ResetAppState();
        ResetFields();
        MakeStationWindow();
        ListenToPictures();
        StartWindow(Folder.Path, language);
        ShowStationWindow();
        QApplication::processEvents();
    }

    /// A key pressed and let go on the control that has the focus.
    static void Press(int key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QWidget* target = Window.Main->focusWidget();
        QTest::keyClick(target != nullptr ? target : Window.Main, static_cast<Qt::Key>(key), held);
    }

    static void Type(const char* text)
    {
        QTest::keyClicks(Window.Main->focusWidget(), text);
    }

    /// R-05 on the screen of a CAM tab.
    static void OpenPart(std::int16_t tab)
    {
        for (int step = 0; step < 4; ++step) {
            Press(Qt::Key_F3);
        }
        for (int way = 0; way <= tab; ++way) {
            Press(Qt::Key_F10);
        }
        ASSERT_EQ(AppState.ShapeId, 1005);
        ASSERT_EQ(AppState.ScreenState, tab + 1);
    }
};
