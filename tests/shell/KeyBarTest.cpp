// What the ten buttons show, and the yellow of the focused field.
#include "shell/KeyBar.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>
#include <vector>

namespace
{
/// "2:9" is image 9 of the list of screen 2, "c7" image 7 of the common list, "-" no picture.
std::string BarText()
{
    std::string text;
    for (const ImageRef& picture : AppState.KeyBar) {
        text += text.empty() ? "" : " ";
        if (picture.List == ImageList::None) {
            text += "-";
        } else if (picture.List == ImageList::Common) {
            text += "c" + std::to_string(picture.Image);
        } else {
            const int screen = static_cast<int>(picture.List) - static_cast<int>(ImageList::InputState0);
            text += std::to_string(screen) + ":" + std::to_string(picture.Image);
        }
    }
    return text;
}

TEST(KeyBar, ShowsTheKeysOfTheInputScreenByItsTab)
{
    StartCase();
    AppState.InputTab = TabPrograms;
    RefreshKeyBar();
    EXPECT_EQ(BarText(), "0:1 0:2 0:3 0:4 0:5 0:6 0:7 0:8 0:9 0:10");
    for (const std::int16_t tab : {TabRect, TabCirc, TabHoles, TabDxfIn, TabIsoIn}) {
        AppState.InputTab = tab;
        RefreshKeyBar();
        EXPECT_EQ(BarText(), "0:1 0:2 0:3 0:4 0:5 0:6 - - 0:9 0:10") << tab;
    }
}

TEST(KeyBar, OffersTheWayBackWhileANameIsAskedFor)
{
    StartCase();
    AppState.SaveMode = FlagOn;
    RefreshKeyBar();
    EXPECT_EQ(BarText(), "- - 0:3 0:4 0:5 0:6 - - 0:11 0:10");
}

TEST(KeyBar, ShowsWhatTheFocusedFieldCanDo)
{
    // 7 plus, 8 minus, 9 and 10 quarter turns, 1 to 6 zoom, 11 to 14 mirror none, X, Y, both, 16 and 17 lead forward
    // and back, 24 lead into the next element, 18 to 21 nest types, 22 start, 28 star, 29 copy leads, 25 sense, 26 and 27
    // path cursor.
    const std::vector<std::string> keys = {
        "- - - - - -",         "c7 c8 - - - -",        "c7 c8 c9 c10 - -",    "c1 c2 c3 c4 c5 c6",
        "c11 c13 c12 c14 - -", "c7 c8 c16 c17 c24 -",  "c18 c19 c20 c21 - -", "c7 c8 c22 - - -",
        "c7 c8 c28 - - -",     "c7 c8 c29 c25 c26 c27"};
    for (std::size_t mode = 0; mode < keys.size(); ++mode) {
        StartCase();
        AppState.ScreenState = ScreenCutting;
        AppState.FieldMode = static_cast<std::int32_t>(mode);
        RefreshKeyBar();
        EXPECT_EQ(BarText(), "2:1 2:2 " + keys[mode] + " 2:9 2:10") << "kind " << mode;
    }
}

TEST(KeyBar, StopsARunningSimulation)
{
    StartCase();
    AppState.ScreenState = ScreenNesting;
    AppState.FieldMode = 7;
    AppState.SimRunning = FlagOn;
    RefreshKeyBar();
    EXPECT_EQ(BarText(), "3:1 3:2 c7 c8 c23 - - 3:8 3:9 3:10");
}

TEST(KeyBar, F8SimulatesOnTheNestingScreenButForTheZoom)
{
    StartCase();
    AppState.ScreenState = ScreenNesting;
    AppState.FieldMode = 6;
    RefreshKeyBar();
    EXPECT_EQ(BarText(), "3:1 3:2 c18 c19 c20 c21 - 3:8 3:9 3:10");
    AppState.FieldMode = 3;
    RefreshKeyBar();
    EXPECT_EQ(BarText(), "3:1 3:2 c1 c2 c3 c4 c5 c6 3:9 3:10");
}

TEST(KeyBar, LeavesTheParametersScreenWithTwoKeys)
{
    StartCase();
    AppState.ScreenState = ScreenParameters;
    RefreshKeyBar();
    EXPECT_EQ(BarText(), "1:1 - - - - - - - - 1:10");
}

TEST(KeyBar, IsEmptyOnAScreenThatIsNone)
{
    for (const int screen : {-1, 4}) {
        StartCase();
        AppState.ScreenState = static_cast<std::int16_t>(screen);
        RefreshKeyBar();
        EXPECT_EQ(BarText(), "- - - - - - - - - -");
    }
}

TEST(KeyBar, AKindThatIsNoneHasNoFieldKeys)
{
    for (const std::int32_t mode : {-1, 10, 1000}) {
        StartCase();
        AppState.ScreenState = ScreenCutting;
        AppState.FieldMode = mode;
        RefreshKeyBar();
        EXPECT_EQ(BarText(), "2:1 2:2 - - - - - - 2:9 2:10") << mode;
        AppState.ScreenState = ScreenNesting;
        RefreshKeyBar();
        EXPECT_EQ(BarText(), "3:1 3:2 - - - - - 3:8 3:9 3:10") << mode;
    }
}

TEST(Highlight, MarksOneFieldWithItsLabels)
{
    StartCase();
    HighlightField(AppState.TextNesting, AppState.LabelNestingColor, 1, 9);
    HighlightField(AppState.TextNesting, AppState.LabelNestingColor, 0, 8);
    for (std::size_t i = 0; i < NestingFieldCount; ++i) {
        EXPECT_EQ(AppState.TextNesting[i].BackColor, i == 0 ? 0xFFFF00 : 0xFFFFFF) << i;
    }
    for (std::size_t i = 0; i < NestingLabelCount; ++i) {
        EXPECT_EQ(AppState.LabelNestingColor[i], i == 0 || i == 8 ? 0xFFFF00 : 0xECE9D8) << i;
    }
    HighlightField(AppState.TextNesting, AppState.LabelNestingColor, 4, -1);
    EXPECT_EQ(AppState.LabelNestingColor[8], 0xECE9D8);
    EXPECT_EQ(AppState.LabelNestingColor[4], 0xFFFF00);
}

TEST(Highlight, LeavesWhatIsBehindTheLabelsAlone)
{
    StartCase();
    std::array<std::int32_t, 4> labels = {1, 2, 3, 4};
    HighlightField(AppState.TextNesting, std::span(labels).first(3), 3, -1);
    EXPECT_EQ(labels[3], 4);
}
} // namespace
