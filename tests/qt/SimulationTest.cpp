// The simulation in the window: the head on the painted picture, and keys, clicks and sizes that arrive while it runs.
#include "post/Simulation.h"

#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Screen.h"
#include "qt/PaintSurface.h"
#include "qt/ShownStation.h"
#include "qt/WindowEvents.h"

#include <QTimer>

#include <cmath>
#include <random>

namespace
{
constexpr QRgb Green = 0xFF00FF00;
constexpr int Soon = 60; ///< milliseconds: some frames of a run

class Simulation : public ShownStation
{
protected:
    void OpenNest(const std::string& settings)
    {
        Configure(settings);
        Open();
        OpenPart(TabNesting);
    }

    static QImage Image()
    {
        return SurfaceImage(Picture::Nesting).copy();
    }

    /// F8, with `play` a little later. Returns when all has come to rest.
    static void RunWith(const std::function<void()>& play)
    {
        bool played = false;
        QTimer::singleShot(Soon, Window.Main, [&] {
            EXPECT_NE(AppState.SimRunning, FlagOff);
            play();
            played = true;
        });
        Press(Qt::Key_F8);
        EXPECT_TRUE(played);
        EXPECT_EQ(AppState.SimWalking, FlagOff);
        for (int turn = 0; turn < 20; ++turn) {
            QApplication::processEvents();
        }
        EXPECT_TRUE(Window.LateKeys.empty());
    }

    static void ExpectCleanNest()
    {
        const QImage shown = Image();
        RedrawScene(FlagOff);
        EXPECT_EQ(shown, Image()) << "the nest without a head or a trail";
    }
};

TEST_F(Simulation, AHeadDrawnTwiceLeavesThePictureAsItWas)
{
    OpenNest("");
    RedrawScene(FlagOn);
    const QImage before = Image();
    std::mt19937 random(9);
    std::uniform_real_distribution<double> x(AppState.ViewLeft, AppState.ViewLeft + AppState.ViewWidth);
    std::uniform_real_distribution<double> y(AppState.ViewTop + AppState.ViewHeight, AppState.ViewTop);
    for (int i = 0; i < 200; ++i) {
        AppState.SimHeadCross = i % 2 == 0 ? FlagOn : FlagOff;
        AppState.SimHeadX = x(random);
        AppState.SimHeadY = y(random);
        DrawSimulationHead(Picture::Nesting);
        ASSERT_NE(before, Image());
        DrawSimulationHead(Picture::Nesting);
        ASSERT_EQ(before, Image()) << AppState.SimHeadX << " " << AppState.SimHeadY;
    }
}

/// Moves a head along a line and takes it off. The picture keeps what it held, but for the trail.
void PassAlong(HeadMode mode, double x1, double y1, double x2, double y2)
{
    BeginHead();
    AppState.SimX = AppState.SimPrevX = x1;
    AppState.SimY = AppState.SimPrevY = y1;
    AppState.SimHeadShown = FlagOff;
    RedrawScene(FlagOn);
    StepTo(mode, x2, y2);
    ASSERT_NE(AppState.SimHeadShown, FlagOff);
    DrawSimulationHead(Picture::Nesting);
    EndHead();
}

TEST_F(Simulation, AHeadThatPassesLeavesItsTrailOnly)
{
    OpenNest("SIMSPEED=25");
    for (const HeadMode mode : {HeadMode::Rapid, HeadMode::Cut}) {
        RedrawScene(FlagOn);
        const QImage before = Image();
        PassAlong(mode, 20, 40, 190, 205);
        const QImage after = Image();
        const double length = std::hypot(170.0, 165.0);
        int changed = 0;
        for (int row = 0; row < before.height(); ++row) {
            for (int column = 0; column < before.width(); ++column) {
                if (before.pixel(column, row) == after.pixel(column, row)) {
                    continue;
                }
                ++changed;
                double x = 0.0;
                double y = 0.0;
                SurfaceWorldOf(Picture::Nesting, QPointF(column + 0.5, row + 0.5), x, y);
                const double aside = std::fabs((x - 20) * 165 - (y - 40) * 170) / length;
                ASSERT_LT(aside, 3 * AppState.UnitsPerPixelX) << column << " " << row;
                if (mode == HeadMode::Rapid) {
                    ASSERT_EQ(after.pixel(column, row), Green);
                }
            }
        }
        EXPECT_GT(changed, mode == HeadMode::Rapid ? 20 : 300);
    }
}

TEST_F(Simulation, StopsByItsKeyAndTheNestIsAsItWas)
{
    OpenNest("SIMSPEED=3");
    RunWith([] {
        EXPECT_EQ(AppState.KeyBar[4].Image, 23);
        Press(Qt::Key_F5);
    });
    EXPECT_EQ(AppState.KeyBar[4].Image, 22);
    ExpectCleanNest();
    RunWith([] { QTest::mouseClick(Window.Keys[4], Qt::LeftButton); });
    ExpectCleanNest();
}

TEST_F(Simulation, KeysBehindTheStopComeInTheirOrder)
{
    OpenNest("SIMSPEED=3");
    RunWith([] {
        for (const int key : {Qt::Key_F9, Qt::Key_F10, Qt::Key_Down, Qt::Key_F8, Qt::Key_F5, Qt::Key_F9}) {
            Press(key);
        }
        EXPECT_EQ(AppState.ScreenState, ScreenNesting) << "the walk is still there";
    });
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
}

TEST_F(Simulation, AnotherPartIsOpenedBehindTheWalk)
{
    OpenNest("SIMSPEED=3");
    RunWith([] {
        Press(Qt::Key_F1);
        Press(Qt::Key_F3);
        Press(Qt::Key_Return);
        Press(Qt::Key_F10);
        Press(Qt::Key_F10);
        EXPECT_EQ(AppState.ShapeId, 1005);
    });
    EXPECT_EQ(AppState.ShapeId, 1006);
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    ExpectCleanNest();
}

TEST_F(Simulation, AClickOnATabLeavesItBehindTheWalk)
{
    OpenNest("SIMSPEED=3");
    RunWith(
        [] { QTest::mouseClick(Window.CamTabs, Qt::LeftButton, {}, Window.CamTabs->tabRect(1).center()); });
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(Window.CamTabs->currentIndex(), 1);
}

TEST_F(Simulation, ATypedSpeedCountsWhileItRuns)
{
    OpenNest("SIMSPEED=3");
    RunWith([] {
        Type("20");
        EXPECT_EQ(AppState.SimSpeed, 20);
        EXPECT_NE(AppState.SimRunning, FlagOff);
        Press(Qt::Key_F2);
        EXPECT_EQ(AppState.SimRunning, FlagOff);
    });
    EXPECT_EQ(AppState.FieldMode, 3);
    EXPECT_NE(Folder.Read("Korvanta.ini").find("SIMSPEED=20"), std::string::npos);
}

TEST_F(Simulation, GoesOnBehindARefusedQuestion)
{
    OpenNest("SIMSPEED=3");
    for (const bool byKey : {true, false}) {
        RunWith([byKey] {
            QTimer::singleShot(0, Window.Main, [] {
                EXPECT_TRUE(Window.Modal);
                Press(Qt::Key_F1);
            });
            if (byKey) {
                Press(Qt::Key_Escape);
            } else {
                Window.Main->close();
            }
            EXPECT_NE(AppState.SimRunning, FlagOff);
            QTimer::singleShot(Soon, Window.Main, [] {
                EXPECT_NE(AppState.SimRunning, FlagOff);
                Press(Qt::Key_F5);
            });
        });
        ExpectCleanNest();
    }
}

TEST_F(Simulation, AResizedWindowShowsTheHeadOnTheNewPicture)
{
    OpenNest("SIMSPEED=3");
    RunWith([] {
        const QSize before = SurfaceImage(Picture::Nesting).size();
        Window.Main->resize(Window.Main->width() + 150, Window.Main->height() + 100);
        QApplication::processEvents();
        EXPECT_NE(SurfaceImage(Picture::Nesting).size(), before);
        const QImage shown = Image();
        DrawSimulationHead(Picture::Nesting);
        EXPECT_NE(shown, Image());
        DrawSimulationHead(Picture::Nesting);
        QTimer::singleShot(Soon, Window.Main, [] {
            EXPECT_NE(AppState.SimRunning, FlagOff);
            Press(Qt::Key_F5);
        });
    });
    ExpectCleanNest();
}

TEST_F(Simulation, RunsToItsEnd)
{
    OpenNest("SIMSPEED=9999\nSIM_DEFRAG=1");
    Press(Qt::Key_F8);
    EXPECT_EQ(AppState.SimRunning, FlagOff);
    EXPECT_NEAR(AppState.SimX, 5.0, 15.0) << "near the corner where the cut of R-05 ends";
    EXPECT_EQ(Window.Main->focusWidget(), Window.Nesting[FieldSimulation].Edit);
}

// --- the progress of a program ------------------------------------------------------------------------------------

/// Counts the times that a control is painted.
class PaintCount : public QObject
{
public:
    int Paints = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        Paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST_F(Simulation, TheProgressOfAProgramIsSeen)
{
    OpenNest("");
    Press(Qt::Key_F10); // where a name is asked for and the program is written
    PaintCount count;
    Window.Progress->installEventFilter(&count);
    ShowProgress(100);
    EXPECT_TRUE(Window.Progress->isVisible());
    EXPECT_GT(count.Paints, 0);
    for (const int value : {30, 60, 100}) {
        count.Paints = 0;
        Window.ProgressSeen = 0.0; // long ago
        SetProgress(value);
        EXPECT_EQ(Window.Progress->value(), value);
        EXPECT_GT(count.Paints, 0) << value;
    }
    SetProgress(101);
    EXPECT_EQ(Window.Progress->value(), 100);
    HideProgress();
    EXPECT_FALSE(Window.Progress->isVisible());
}

TEST_F(Simulation, AWindowClosedWhileAProgramIsWrittenAsksBehindIt)
{
    Open();
    bool written = false;
    bool asked = false;
    RunEvent([&] {
        QTimer::singleShot(0, Window.Main, [] { Window.Main->close(); });
        ShowProgress(10);
        Window.ProgressSeen = 0.0;
        SetProgress(5);
        EXPECT_FALSE(Window.Modal);
        EXPECT_TRUE(Window.CloseLater);
        HideProgress();
        written = true;
    });
    QTimer::singleShot(Soon, Window.Main, [&] {
        asked = Window.Modal;
        Press(Qt::Key_F1);
    });
    QTest::qWait(3 * Soon);
    EXPECT_TRUE(written);
    EXPECT_TRUE(asked);
    EXPECT_FALSE(Window.Modal);
}
} // namespace
