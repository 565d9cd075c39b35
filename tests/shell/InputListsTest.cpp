// The lists of the Input screen: what they hold, their tabs, and the cursor that the function keys move.
#include "shell/InputLists.h"
#include "shell/Korvanta_Interface.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Lists : public StationCase
{
protected:
    static ListRecord& List(std::int16_t tab)
    {
        return AppState.Lists[static_cast<std::size_t>(tab)];
    }

    /// A current list with `count` items, the one at `selected` chosen.
    static void Prepare(std::int16_t tab, int count, std::int32_t selected, std::int16_t view)
    {
        AppState.InputTab = tab;
        ListRecord& list = List(tab);
        list = ListRecord();
        for (int i = 0; i < count; ++i) {
            list.Items.push_back({"I" + std::to_string(i), {}});
        }
        list.Selected = selected;
        list.View = view;
    }
};

TEST_F(Lists, TheCatalogueHasSeventyShapes)
{
    FillShapeLists();
    EXPECT_EQ(List(TabRect).Items.size(), 41U);
    EXPECT_EQ(List(TabRect).Items.front().Text, "R-01");
    EXPECT_EQ(List(TabRect).Items[9].Text, "R-10");
    EXPECT_EQ(List(TabRect).Items.back().Text, "R-41");
    EXPECT_EQ(List(TabRect).Items.back().Icon, (ImageRef{ImageList::Rect, 41}));
    EXPECT_EQ(List(TabCirc).Items.size(), 26U);
    EXPECT_EQ(List(TabCirc).Items.back().Text, "C-26");
    EXPECT_EQ(List(TabCirc).Items.back().Icon, (ImageRef{ImageList::Circular, 26}));
    EXPECT_THAT(Texts(TabHoles), ElementsAre("H-01", "H-02", "H-03"));
    EXPECT_EQ(List(TabHoles).View, ViewIcons);
    EXPECT_EQ(List(TabHoles).Selected, 0);
}

TEST_F(Lists, JobsAreListedByNameWithoutRegardToCase)
{
    for (const char* name :
         {"zeta.nst", "Alpha.nst", "beta.NST", "A.B.NST", "note.txt", "nst", "x.nst.bak"}) {
        Station.Write(std::string("NEST/") + name, "");
    }
    FillJobList("");
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("A", "ALPHA", "BETA", "ZETA"));
    EXPECT_EQ(List(TabPrograms).TextColor, 0x0000FF);
    EXPECT_EQ(List(TabPrograms).View, ViewList);
    EXPECT_EQ(List(TabPrograms).Selected, 0);
    EXPECT_EQ(List(TabPrograms).Items[0].Icon, (ImageRef{ImageList::FileListNormal, 1}));
    FillJobList("a");
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("A", "ALPHA"));
    FillJobList("Q");
    EXPECT_THAT(Texts(TabPrograms), IsEmpty());
    EXPECT_EQ(List(TabPrograms).Selected, -1);
}

TEST_F(Lists, DrawingsOfBothKindsAreListedWithTheirExtension)
{
    for (const char* name : {"plate.dxf", "plate.dwg", "Arm.DXF", "plate.txt"}) {
        Station.Write(std::string("DXF/") + name, "");
    }
    FillDxfList();
    EXPECT_THAT(Texts(TabDxfIn), ElementsAre("ARM.DXF", "PLATE.DXF", "PLATE.DWG"));
    EXPECT_EQ(List(TabDxfIn).TextColor, 0xFF0000);
    EXPECT_EQ(List(TabDxfIn).Items[1].Icon, (ImageRef{ImageList::FileListNormal, 2}));
    EXPECT_EQ(List(TabDxfIn).Items[2].Icon, (ImageRef{ImageList::FileListNormal, 3}));
    FillDxfList();
    EXPECT_EQ(Texts(TabDxfIn).size(), 3U) << "the first call empties the list";
}

TEST_F(Lists, TheListOfTheTabComesToTheFront)
{
    AppState.InputTab = TabIsoIn;
    AppState.FrontList = TabRect;
    FillDxfList();
    EXPECT_EQ(AppState.FrontList, TabRect) << "another tab's list stays behind";
    FillIsoList();
    EXPECT_EQ(AppState.FrontList, TabIsoIn);
}

TEST_F(Lists, EveryFileIsAProgramToImport)
{
    Station.Write("NC/noextension", "");
    FillIsoList();
    EXPECT_THAT(Texts(TabIsoIn), ElementsAre("EMPTY.ISO", "NOEXTENSION", "PLATE.ISO"));
    EXPECT_EQ(List(TabIsoIn).TextColor, 0xFF0000);
    EXPECT_EQ(List(TabIsoIn).Items[1].Icon, (ImageRef{ImageList::FileListNormal, 4}));
}

TEST_F(Lists, AFolderThatIsMissingGivesAnEmptyList)
{
    AppState.DxfPath = Station.Path + "\\NOWHERE\\";
    FillDxfList();
    EXPECT_THAT(Texts(TabDxfIn), IsEmpty());
    FillJobList("");
    EXPECT_THAT(Texts(TabPrograms), IsEmpty());
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(Lists, AFolderThatIsAFileGivesAnEmptyList)
{
    Station.Write("DXF", "not a folder");
    SelectInputTab(TabDxfIn);
    EXPECT_THAT(Texts(TabDxfIn), IsEmpty());
    EXPECT_EQ(List(TabDxfIn).Selected, -1);
    MoveListCursor("Dw");
    EXPECT_EQ(SelectedItem(TabDxfIn), nullptr);
}

TEST_F(Lists, TenThousandFiles)
{
    for (int i = 0; i < 10000; ++i) {
        const std::string number = std::to_string(100000 + i).substr(1);
        Station.Write("NEST/p" + number + ".nst", "");
    }
    FillJobList("");
    ASSERT_EQ(List(TabPrograms).Items.size(), 10000U);
    EXPECT_EQ(List(TabPrograms).Items.front().Text, "P00000");
    EXPECT_EQ(List(TabPrograms).Items.back().Text, "P09999");
    const std::int32_t filled = List(TabPrograms).Filled;
    FillJobList("p0123");
    EXPECT_EQ(List(TabPrograms).Items.size(), 10U);
    EXPECT_EQ(List(TabPrograms).Selected, 0);
    EXPECT_NE(List(TabPrograms).Filled, filled) << "tells the window to show the list anew";
}

TEST_F(Lists, FilesWithAnyName)
{
    const std::string longName(200, 'n');
    for (const std::string& name : {std::string("two words"), longName,
                                    std::string("Gr\xC3\xB6\xC3\x9F"
                                                "e"),
                                    std::string("\xE6\x9D\xBF")}) {
        Station.Write("NEST/" + name + ".nst", "");
    }
    FillJobList("");
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("GR\xC3\xB6\xC3\x9F"
                                                "E",
                                                std::string(200, 'N'), "TWO WORDS", "\xE6\x9D\xBF"));
}

TEST_F(Lists, ATabThatComesUpFillsItsListAnew)
{
    SelectInputTab(TabDxfIn);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus list 4"));
    EXPECT_EQ(AppState.FrontList, TabDxfIn);
    EXPECT_THAT(Texts(TabDxfIn), IsEmpty());
    Station.Write("DXF/late.dxf", "");
    Station.Write("NEST/late.nst", "");
    SelectInputTab(TabPrograms);
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("LATE"));
    SelectInputTab(TabDxfIn);
    EXPECT_THAT(Texts(TabDxfIn), ElementsAre("LATE.DXF"));
    SelectInputTab(TabIsoIn);
    EXPECT_EQ(Texts(TabIsoIn).size(), 2U);
    TakeCalls();
    SelectInputTab(6);
    SelectInputTab(-1);
    EXPECT_EQ(AppState.InputTab, TabIsoIn);
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(Lists, TheCurrentTabIsHighlighted)
{
    AppState.InputTab = TabCirc;
    SetTabIcons();
    const std::int16_t expected[] = {3, 5, 8, 9, 11, 13};
    for (std::size_t i = 0; i < InputTabCount; ++i) {
        EXPECT_EQ(AppState.InputTabIcon[i], (ImageRef{ImageList::Small, expected[i]})) << i;
    }
    SetCamTabIcons();
    EXPECT_EQ(AppState.CamTabIcon[0], (ImageRef{ImageList::Small, 15}));
    EXPECT_EQ(AppState.CamTabIcon[2], (ImageRef{ImageList::Small, 17}));
}

TEST_F(Lists, ChineseTabsHaveTheirOwnPictures)
{
    AppState.Language = 6;
    AppState.InputTab = TabRect;
    SetTabIcons();
    EXPECT_EQ(AppState.InputTabIcon[0], (ImageRef{ImageList::China, 4}));
    EXPECT_EQ(AppState.InputTabIcon[1], (ImageRef{ImageList::China, 7}));
    SetCamTabIcons();
    EXPECT_EQ(AppState.CamTabIcon[1], (ImageRef{ImageList::China, 2}));
    AppState.MessageTable[0][5][0] = "A";
    SetTabIcons();
    EXPECT_EQ(AppState.InputTabIcon[1], (ImageRef{ImageList::Small, 6}));
}

struct CursorCase {
    const char* Name;
    std::int16_t Tab;
    std::int16_t View;
    std::int32_t Selected;
    const char* Direction;
    std::int32_t Expected;
};

TEST_F(Lists, TheCursorMovesByTheLayout)
{
    // Items of 50 x 20 in a list of 300 x 100. Icons: 300 / 60 = 5 in a row. Lines: 100 / 22 = 4.5, so 4 in a column,
    // and of jobs 100 / 20.4 = 4.9, so 4.
    Screen.Metrics = {300, 100, 50, 20};
    const CursorCase cases[] = {
        {"icon right", TabRect, ViewIcons, 7, "Dx", 8},
        {"icon left", TabRect, ViewIcons, 7, "Sx", 6},
        {"icon down", TabRect, ViewIcons, 7, "Dw", 12},
        {"icon up", TabRect, ViewIcons, 7, "Up", 2},
        {"line right", TabDxfIn, ViewList, 7, "Dx", 11},
        {"line left", TabDxfIn, ViewList, 7, "Sx", 3},
        {"line down", TabDxfIn, ViewList, 7, "Dw", 8},
        {"line up", TabDxfIn, ViewList, 7, "Up", 6},
        {"job right", TabPrograms, ViewList, 7, "Dx", 11},
        {"past the end", TabRect, ViewIcons, 16, "Dw", 16},
        {"last to next", TabRect, ViewIcons, 19, "Dx", 19},
        {"before the first", TabRect, ViewIcons, 4, "Up", 4},
        {"first to previous", TabRect, ViewIcons, 0, "Sx", 0},
        {"to the very end", TabRect, ViewIcons, 14, "Dw", 19},
    };
    for (const CursorCase& c : cases) {
        Prepare(c.Tab, 20, c.Selected, c.View);
        MoveListCursor(c.Direction);
        EXPECT_EQ(List(c.Tab).Selected, c.Expected) << c.Name;
    }
}

TEST_F(Lists, TheHeightOfALineCountsDifferentlyForJobs)
{
    // 112 / (1.02 * 10) = 10.98 and 112 / (1.1 * 10) = 10.18; 103 parts them: 10.1 against 9.4.
    Screen.Metrics = {300, 103, 50, 10};
    Prepare(TabPrograms, 20, 0, ViewList);
    MoveListCursor("Dx");
    EXPECT_EQ(List(TabPrograms).Selected, 10);
    EXPECT_EQ(AppState.PreviewJob, "I10") << "on the tab of the jobs the preview follows";
    Prepare(TabIsoIn, 20, 0, ViewList);
    MoveListCursor("Dx");
    EXPECT_EQ(List(TabIsoIn).Selected, 9);
}

TEST_F(Lists, TheCursorOfAnEmptyOrUnseenListStays)
{
    Prepare(TabDxfIn, 0, -1, ViewList);
    MoveListCursor("Dw");
    EXPECT_EQ(List(TabDxfIn).Selected, -1);
    Screen.Metrics = {};
    Prepare(TabRect, 3, 1, ViewIcons);
    MoveListCursor("Dw");
    EXPECT_EQ(List(TabRect).Selected, 1);
    Screen.Metrics = {300, 100, 0, 0}; // a list that is there, its items not yet
    MoveListCursor("Dw");
    EXPECT_EQ(List(TabRect).Selected, 1);
}
} // namespace
