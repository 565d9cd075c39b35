// Measuring with the mouse: the rubber line, and the line with its lengths.
#include "shell/Measure.h"

#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
TEST(Measure, RubberLineFollowsThePointer)
{
    StartCase();
    PressMeasure(Picture::Tecno, 10, 20);
    EXPECT_THAT(TakeStrokes(), ElementsAre("cross pointer"));
    MoveMeasure(Picture::Tecno, 13, 24);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 10 20 13 24 #00ff00 1 inverting"));
    MoveMeasure(Picture::Tecno, 4, 12);
    EXPECT_THAT(TakeStrokes(),
                ElementsAre("line 10 20 13 24 #00ff00 1 inverting", "line 10 20 4 12 #00ff00 1 inverting"));
    ReleaseMeasure(Picture::Tecno, true);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 10 20 4 12 #0000ff 1",
                                           "text 4 12 'd=10 dx:-6 dy:-8' #0000ff", "normal pointer"));
    MoveMeasure(Picture::Tecno, 0, 0);
    EXPECT_THAT(TakeStrokes(), IsEmpty()) << "the button is up";
}

TEST(Measure, EachStrokeOfTheRubberLineIsDrawnTwice)
{
    StartCase();
    PressMeasure(Picture::Nesting, 0, 0);
    MoveMeasure(Picture::Nesting, 5, 0);
    MoveMeasure(Picture::Nesting, 0, 0); // back on the start
    MoveMeasure(Picture::Nesting, 0, 7);
    EXPECT_EQ(Drawn.Pictures.back(), Picture::Nesting);
    EXPECT_THAT(TakeStrokesLike("line"),
                ElementsAre("line 0 0 5 0 #00ff00 1 inverting", "line 0 0 5 0 #00ff00 1 inverting",
                            "line 0 0 0 7 #00ff00 1 inverting"));
}

TEST(Measure, TwoDecimals)
{
    StartCase();
    PressMeasure(Picture::Tecno, 0, 0);
    MoveMeasure(Picture::Tecno, 1, 1);
    ReleaseMeasure(Picture::Tecno, true);
    EXPECT_THAT(TakeStrokesLike("text"), ElementsAre("text 1 1 'd=1.41 dx:1 dy:1' #0000ff"));
    PressMeasure(Picture::Tecno, 0, 0);
    MoveMeasure(Picture::Tecno, 0.3, -0.4);
    ReleaseMeasure(Picture::Tecno, true);
    EXPECT_THAT(TakeStrokesLike("text"), ElementsAre("text 0.3 -0.4 'd=0.5 dx:0.3 dy:-0.4' #0000ff"));
    PressMeasure(Picture::Tecno, 3, 3);
    ReleaseMeasure(Picture::Tecno, true);
    EXPECT_THAT(TakeStrokesLike("text"), ElementsAre("text 3 3 'd=0 dx:0 dy:0' #0000ff"));
}

// Letters of 10 x 20 units; "d=5 dx:3 dy:4" is 130 wide.
TEST(Measure, LengthsStayInTheView)
{
    const auto textAt = [](double x, double y) {
        PressMeasure(Picture::Tecno, x - 3, y - 4);
        MoveMeasure(Picture::Tecno, x, y);
        ReleaseMeasure(Picture::Tecno, true);
        return TakeStrokesLike("text");
    };
    StartCase();
    AppState.UnitsPerPixelX = 10.0 / RecordedLetterWidth;
    AppState.UnitsPerPixelY = -20.0 / RecordedLetterHeight;
    AppState.ViewLeft = -50.0;
    AppState.ViewTop = 300.0;
    AppState.ViewWidth = 500.0;
    AppState.ViewHeight = -400.0;
    EXPECT_THAT(textAt(100, 200), ElementsAre("text 100 200 'd=5 dx:3 dy:4' #0000ff"));
    EXPECT_THAT(textAt(320, -80), ElementsAre("text 320 -80 'd=5 dx:3 dy:4' #0000ff")) << "just fits";
    EXPECT_THAT(textAt(321, 0), ElementsAre("text 320 0 'd=5 dx:3 dy:4' #0000ff"));
    EXPECT_THAT(textAt(0, -81), ElementsAre("text 0 -80 'd=5 dx:3 dy:4' #0000ff"));
    EXPECT_THAT(textAt(-60, 400), ElementsAre("text -50 300 'd=5 dx:3 dy:4' #0000ff"))
        << "pulled out of the box";
    AppState.ViewWidth = 100.0;
    EXPECT_THAT(textAt(40, 0), ElementsAre("text -50 0 'd=5 dx:3 dy:4' #0000ff")) << "wider than the view";
}

TEST(Measure, OtherButtonsOnlyGiveThePointerBack)
{
    StartCase();
    ReleaseMeasure(Picture::Tecno, true);
    EXPECT_THAT(TakeStrokes(), ElementsAre("normal pointer")) << "nothing was pressed";
    PressMeasure(Picture::Tecno, 0, 0);
    MoveMeasure(Picture::Tecno, 3, 4);
    TakeStrokes();
    ReleaseMeasure(Picture::Tecno, false);
    EXPECT_THAT(TakeStrokes(), ElementsAre("normal pointer"));
    ReleaseMeasure(Picture::Tecno, true);
    EXPECT_THAT(TakeStrokesLike("text"), ElementsAre("text 3 4 'd=5 dx:3 dy:4' #0000ff"));
}

TEST(Measure, SurvivesEveryPosition)
{
    StartCase();
    PressMeasure(Picture::Tecno, std::nan(""), 1e300);
    MoveMeasure(Picture::Tecno, -1e300, std::nan(""));
    EXPECT_NO_THROW(ReleaseMeasure(Picture::Tecno, true));
    EXPECT_EQ(AppState.MeasureOn, FlagOff);
}
} // namespace
