// Faults behind the window: none crosses the window system's own code, and a ratio of pixels that changes.
#include "qt/ShownStation.h"

#include "platform/Fault.h"
#include "qt/PaintSurface.h"
#include "qt/WindowEvents.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTimer>

#include <functional>
#include <new>

namespace
{
class WindowFaults : public ShownStation
{
protected:
    void SetUp() override
    {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        ShownStation::SetUp();
    }

    /// Answers the box that tells the fault, as soon as there is one; keeps the window painting meanwhile.
    static void AnswerTheBox()
    {
        QTimer::singleShot(50, [] {
            Window.Main->repaint();
            QWidget* box = QApplication::activeModalWidget();
            if (box != nullptr) {
                QTest::keyClick(box, Qt::Key_Return);
            }
        });
    }

    /// Runs `routine` in a loop within a loop.
    static void InNestedLoop(const std::function<void()>& routine)
    {
        QEventLoop loop;
        QTimer::singleShot(0, routine);
        loop.exec();
    }
};

TEST_F(WindowFaults, EndTheProgramFromAnyEvent)
{
    Open();
    OpenPart(TabCutting);
    EXPECT_EXIT(
        {
            AnswerTheBox();
            InNestedLoop([] { RunEvent([] { throw RunTimeFault("the table is empty"); }); });
        },
        testing::ExitedWithCode(1), "korvanta: the table is empty");
    EXPECT_EXIT(
        {
            AnswerTheBox();
            RunGuarded([] { throw std::bad_alloc(); });
        },
        testing::ExitedWithCode(1), "out of memory");
}

TEST_F(WindowFaults, AFaultWhileTheWindowIsSizedEndsIt)
{
    Open();
    OpenPart(TabCutting);
    AppState.Redraw = [](Flag) { throw RunTimeFault("no redraw"); };
    EXPECT_EXIT(
        {
            AnswerTheBox();
            Window.Main->resize(700, 500);
            QApplication::processEvents();
        },
        testing::ExitedWithCode(1), "korvanta: no redraw");
}

TEST_F(WindowFaults, WhileOneIsToldNothingElseRuns)
{
    Open();
    Window.Ending = true;
    bool ran = false;
    RunEvent([&ran] { ran = true; });
    EXPECT_FALSE(ran);
    Press(Qt::Key_F1);
    EXPECT_EQ(AppState.InputTab, TabRect);
}
} // namespace
