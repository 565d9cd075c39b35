// The window: what it shows of the records, and what it tells the shell.
#include "qt/ShownStation.h"

#include "nesting/Korvanta_CutTecnology.h"
#include "qt/PaintSurface.h"
#include "shell/MsgBox_Unicode.h"

#include <QTimer>

#include <array>

namespace
{
constexpr int Yellow = ColorYellow;

int Ground(const QWidget* control, QPalette::ColorRole role)
{
    return static_cast<int>(control->palette().color(role).rgb() & 0xFFFFFFU);
}

/// Visible labels, fields, tabs and keys below a panel.
QList<QWidget*> ShownControls(const QWidget* panel)
{
    QList<QWidget*> shown;
    for (QWidget* child : panel->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisibleTo(panel)) {
            shown.push_back(child);
        }
    }
    return shown;
}

/// No control of a panel lies on another or beyond the panel, and no caption is cut.
void ExpectTidy(const QWidget* panel, const std::string& where)
{
    const QList<QWidget*> controls = ShownControls(panel);
    for (const QWidget* control : controls) {
        const std::string name = where + ": " + control->objectName().toStdString();
        EXPECT_TRUE(panel->rect().contains(control->geometry())) << name;
        EXPECT_GT(control->width(), 0) << name;
        EXPECT_GT(control->height(), 0) << name;
        if (const auto* label = qobject_cast<const QLabel*>(control);
            label != nullptr && !label->text().isEmpty()) {
            EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width()) << name;
            EXPECT_LE(label->fontMetrics().height(), label->height() + 1) << name;
        }
        for (const QWidget* other : controls) {
            const bool apart = control == other || !control->geometry().intersects(other->geometry());
            EXPECT_TRUE(apart) << name << " and " << other->objectName().toStdString();
        }
    }
}

void ExpectTabsWhole(const QTabBar* tabs, const std::string& where)
{
    EXPECT_LE(tabs->sizeHint().width(), tabs->width()) << where;
}

class StationWindow : public ShownStation
{
};

TEST_F(StationWindow, StartsOnTheRectangularShapes)
{
    Open();
    EXPECT_EQ(Window.Main->windowTitle(), "Korvanta V2.28");
    EXPECT_TRUE(Window.InputPanel->isVisible());
    EXPECT_FALSE(Window.CamPanel->isVisible());
    EXPECT_EQ(Window.InputTabs->currentIndex(), 1);
    EXPECT_EQ(Window.Lists[TabRect]->count(), 41);
    EXPECT_EQ(Window.Lists[TabRect]->item(40)->text(), "R-41");
    EXPECT_TRUE(Window.Lists[TabRect]->isVisible());
    EXPECT_FALSE(Window.FrameFileNesting->isVisible());
    EXPECT_EQ(Window.Main->focusWidget(), Window.Lists[TabRect]);
}

TEST_F(StationWindow, HasTheSizesOfItsResolution)
{
    struct Row {
        const char* Text;
        QSize Size;
        int Button;
    };
    for (const Row& row :
         {Row{"640x480", {640, 480}, 40}, Row{"800x600", {800, 600}, 50}, Row{"1024x768", {1024, 768}, 60}}) {
        Open(row.Text);
        EXPECT_EQ(Window.Main->frameGeometry().size(), row.Size) << row.Text; // with the frame around it
        const QSize inside = Window.Main->size();
        for (int i = 0; i < 10; ++i) {
            const QRect key = Window.Keys[static_cast<std::size_t>(i)]->geometry();
            EXPECT_EQ(key.width(), inside.width() / 11) << row.Text;
            EXPECT_EQ(key.height(), row.Button) << row.Text;
            EXPECT_EQ(key.bottom() + 1, inside.height()) << row.Text;
            EXPECT_NEAR(key.center().x(), inside.width() * (2 * i + 1) / 20.0, 2.0)
                << row.Text << " key " << i;
        }
        TearDown();
    }
}

TEST_F(StationWindow, KeepsTheHostsBarFree)
{
    Configure("VELCOM=\\YES");
    Open("640x480");
    ASSERT_EQ(AppState.HostBarHeight, 72);
    EXPECT_EQ(Window.InputPanel->geometry(),
              QRect(0, 72, Window.Main->width(), Window.Main->height() - 40 - 72));
    EXPECT_EQ(Window.CamPanel->geometry(), Window.InputPanel->geometry());
}

TEST_F(StationWindow, CutsNoTextInAnyLanguageAtAnySize)
{
    for (const char* resolution : {"640x480", "800x600", "1024x768"}) {
        for (int language = 1; language <= LanguageColumns; ++language) {
            Open(resolution, std::to_string(language));
            const std::string where = std::string(resolution) + " language " + std::to_string(language);
            ExpectTabsWhole(Window.InputTabs, where);
            OpenPart(TabParameters);
            ExpectTabsWhole(Window.CamTabs, where);
            ExpectTidy(Window.FrameValue, where);
            Press(Qt::Key_F10);
            ExpectTidy(Window.FrameCutting, where);
            Press(Qt::Key_F10);
            ExpectTidy(Window.FrameNesting, where);
            Press(Qt::Key_F10);
            ExpectTidy(Window.FrameFileNesting, where);
            TearDown();
        }
    }
}

TEST_F(StationWindow, AllFifteenParametersFit)
{
    Open("640x480");
    OpenPart(TabParameters);
    for (ValueField& field : AppState.ParamText) {
        field.Visible = FlagOn;
    }
    MirrorRecords();
    ExpectTidy(Window.FrameValue, "15 parameters");
    EXPECT_GE(Window.Params[14].Edit->height(), Window.Main->fontMetrics().height());
}

TEST_F(StationWindow, FocusedFieldIsYellowWithItsTextSelected)
{
    Open();
    OpenPart(TabCutting);
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldAngle].Edit);
    EXPECT_EQ(Ground(Window.Cutting[FieldAngle].Edit, QPalette::Base), Yellow);
    Press(Qt::Key_Down);
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldMirror].Edit);
    EXPECT_EQ(Ground(Window.Cutting[FieldMirror].Edit, QPalette::Base), Yellow);
    EXPECT_EQ(Ground(Window.Cutting[FieldMirror].Label, QPalette::Window), Yellow);
    EXPECT_EQ(Ground(Window.Cutting[FieldAngle].Edit, QPalette::Base), ColorWhite);
    EXPECT_EQ(Ground(Window.Cutting[FieldAngle].Label, QPalette::Window), DesignBackColor);
    EXPECT_EQ(Window.Cutting[FieldMirror].Edit->selectedText(), "0");
}

TEST_F(StationWindow, TypedTextReachesTheFieldAndItsChangeRoutine)
{
    Open();
    OpenPart(TabCutting);
    Type("90");
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "90");
    // 200 wide and 300 high, turned by a quarter
    EXPECT_NEAR(AppState.MaxX - AppState.MinX, 300.0, 1e-6);
    EXPECT_NEAR(AppState.MaxY - AppState.MinY, 200.0, 1e-6);
}

TEST_F(StationWindow, ALimitReplacesTheTextAndIsSelected)
{
    Open();
    OpenPart(TabCutting);
    Type("400");
    Press(Qt::Key_Return);
    EXPECT_EQ(Window.Cutting[FieldAngle].Edit->text(), "360");
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldAngle].Edit);
    EXPECT_EQ(Window.Cutting[FieldAngle].Edit->selectedText(), "360");
}

TEST_F(StationWindow, ADigitReplacesTheNestType)
{
    Open();
    OpenPart(TabNesting);
    for (int row = 0; row < FieldNestType; ++row) {
        Press(Qt::Key_Down);
    }
    ASSERT_EQ(Window.Main->focusWidget(), Window.Nesting[FieldNestType].Edit);
    Window.Nesting[FieldNestType].Edit->deselect();
    Type("2");
    EXPECT_EQ(Window.Nesting[FieldNestType].Edit->text(), "2");
    EXPECT_EQ(AppState.TextNesting[FieldNestType].Text, "2");
}

TEST_F(StationWindow, AClickIntoAnotherFieldEndsTheEntry)
{
    Open();
    OpenPart(TabNesting);
    Type("*3");
    QTest::mouseClick(Window.Nesting[FieldKerf].Edit, Qt::LeftButton);
    // three cells of 200 + 10
    EXPECT_EQ(Window.Nesting[FieldSheetX].Edit->text(), "630");
    EXPECT_EQ(Window.Counts[0]->text(), "3");
    EXPECT_TRUE(Window.Counts[0]->font().bold());
    EXPECT_FALSE(Window.Counts[1]->font().bold());
    EXPECT_EQ(AppState.CurrentField, FieldKerf);
    EXPECT_EQ(Ground(Window.Nesting[FieldKerf].Edit, QPalette::Base), Yellow);
}

TEST_F(StationWindow, ZoomTakesTheArrowsOtherFieldsKeepThem)
{
    Open();
    OpenPart(TabCutting);
    Type("12");
    Press(Qt::Key_Left);
    Type("3");
    EXPECT_EQ(Window.Cutting[FieldAngle].Edit->text(), "132");
    Press(Qt::Key_F2);
    ASSERT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldCuttingZoom].Edit);
    Type("2");
    const double before = AppState.ViewCentreX;
    Press(Qt::Key_Right);
    EXPECT_GT(AppState.ViewCentreX, before);
    Press(Qt::Key_Left);
    EXPECT_NEAR(AppState.ViewCentreX, before, 1e-9 * std::abs(before));
}

TEST_F(StationWindow, ANameMayHoldADAndBeCorrected)
{
    Folder.Write("NEST/DOOR.nst", "[0000]\n");
    Folder.Write("NEST/OTHER.nst", "[0000]\n");
    Open();
    Press(Qt::Key_F2); // the tab before: the jobs
    ASSERT_EQ(AppState.InputTab, TabPrograms);
    QTest::mouseClick(Window.TextFileName, Qt::LeftButton);
    Type("dx");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(AppState.TextFileName.Text, "d");
    EXPECT_FALSE(Window.Modal);
    ASSERT_EQ(Window.Lists[TabPrograms]->count(), 1);
    EXPECT_EQ(Window.Lists[TabPrograms]->item(0)->text(), "DOOR");
    Press(Qt::Key_Delete); // nothing behind the cursor: no job is in danger
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(Folder.Path) / "NEST/DOOR.nst"));
}

TEST_F(StationWindow, TypingReplacesASteppedValue)
{
    Open();
    OpenPart(TabCutting);
    Press(Qt::Key_F3);
    ASSERT_EQ(Window.Cutting[FieldAngle].Edit->text(), "1");
    Press(Qt::Key_F5);
    ASSERT_EQ(Window.Cutting[FieldAngle].Edit->text(), "91");
    Type("5");
    EXPECT_EQ(Window.Cutting[FieldAngle].Edit->text(), "5");
}

TEST_F(StationWindow, TheKeypadTurnsTheTabs)
{
    Open();
    Press(Qt::Key_3, Qt::KeypadModifier);
    EXPECT_EQ(AppState.InputTab, TabCirc);
    Press(Qt::Key_9, Qt::KeypadModifier);
    EXPECT_EQ(AppState.InputTab, TabRect);
    Press(Qt::Key_PageDown, Qt::KeypadModifier);
    EXPECT_EQ(Window.InputTabs->currentIndex(), TabCirc);
    Press(Qt::Key_PageUp, Qt::KeypadModifier);
    EXPECT_EQ(Window.InputTabs->currentIndex(), TabRect);
}

TEST_F(StationWindow, ArrowsOfTheListMoveTheSelectionOfTheRecord)
{
    Open();
    Press(Qt::Key_Right);
    EXPECT_EQ(AppState.Lists[TabRect].Selected, 1);
    Press(Qt::Key_End);
    EXPECT_EQ(AppState.Lists[TabRect].Selected, 40);
}

TEST_F(StationWindow, AStepDownEndsInTheSameColumn)
{
    for (const char* resolution : {"640x480", "800x600", "1024x768"}) {
        Open(resolution);
        const QListWidget* list = Window.Lists[TabRect];
        Press(Qt::Key_F3);
        const QRect before = list->visualItemRect(list->item(AppState.Lists[TabRect].Selected));
        Press(Qt::Key_F5);
        const QRect after = list->visualItemRect(list->item(AppState.Lists[TabRect].Selected));
        EXPECT_EQ(after.left(), before.left()) << resolution;
        EXPECT_GT(after.top(), before.top()) << resolution;
        Press(Qt::Key_F6);
        EXPECT_EQ(AppState.Lists[TabRect].Selected, 1) << resolution;
        TearDown();
    }
}

TEST_F(StationWindow, AStepRightInAFileListEndsInTheSameRow)
{
    for (int i = 100; i < 300; ++i) {
        Folder.Write("DXF/LONGER NAME " + std::to_string(i) + ".dxf", "0\nEOF\n");
    }
    for (const char* resolution : {"640x480", "1024x768"}) {
        Open(resolution);
        for (int tab = TabRect; tab < TabDxfIn; ++tab) {
            Press(Qt::Key_F1);
        }
        ASSERT_EQ(AppState.InputTab, TabDxfIn);
        const QListWidget* list = Window.Lists[TabDxfIn];
        EXPECT_EQ(list->count(), 204);
        Press(Qt::Key_F5);
        const QRect before = list->visualItemRect(list->item(AppState.Lists[TabDxfIn].Selected));
        Press(Qt::Key_F3);
        const QRect after = list->visualItemRect(list->item(AppState.Lists[TabDxfIn].Selected));
        EXPECT_EQ(after.top(), before.top()) << resolution;
        EXPECT_GT(after.left(), before.left()) << resolution;
        TearDown();
    }
}

TEST_F(StationWindow, AClickSelectsADoubleClickOpens)
{
    Open();
    QListWidget* list = Window.Lists[TabRect];
    const QPoint place = list->visualItemRect(list->item(2)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(AppState.Lists[TabRect].Selected, 2);
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(AppState.ShapeId, 1003);
    EXPECT_TRUE(Window.CamPanel->isVisible());
    EXPECT_EQ(Window.Main->focusWidget(), Window.Params[0].Edit);
}

TEST_F(StationWindow, ClicksOnTabsAndKeysAreTheKeys)
{
    Open();
    QTest::mouseClick(Window.InputTabs, Qt::LeftButton, Qt::NoModifier,
                      Window.InputTabs->tabRect(3).center());
    EXPECT_EQ(AppState.InputTab, TabHoles);
    QTest::mouseClick(Window.Keys[1], Qt::LeftButton);
    EXPECT_EQ(AppState.InputTab, TabCirc);
    QTest::mouseClick(Window.Keys[9], Qt::LeftButton);
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    QTest::mouseClick(Window.CamTabs, Qt::LeftButton, Qt::NoModifier, Window.CamTabs->tabRect(1).center());
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldAngle].Edit);
    QTest::mouseClick(Window.Keys[2], Qt::LeftButton); // plus on Angle
    EXPECT_EQ(Window.Cutting[FieldAngle].Edit->text(), "1");
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldAngle].Edit);
}

TEST_F(StationWindow, TheBoxAnswersByItsKeysAndButtons)
{
    Open();
    struct Row {
        int Key;
        bool Result;
    };
    for (const Row& row : {Row{Qt::Key_F1, false}, Row{Qt::Key_F10, true}, Row{Qt::Key_Escape, true}}) {
        QTimer::singleShot(0, [&row] {
            Press(Qt::Key_F5); // no key of the box
            EXPECT_TRUE(Window.Modal);
            Press(row.Key);
        });
        bool result = !row.Result;
        ShowBox("one", "two", "three", true, result);
        EXPECT_EQ(result, row.Result) << row.Key;
    }
    QTimer::singleShot(0, [] {
        auto* single = Window.Main->findChild<QWidget*>("CancelButton");
        ASSERT_NE(single, nullptr);
        EXPECT_EQ(Window.Main->findChild<QWidget*>("OKButton"), nullptr);
        QTest::mouseClick(single, Qt::LeftButton);
    });
    bool result = true;
    ShowBox("one", "two", "three", false, result);
    EXPECT_FALSE(result);
    EXPECT_FALSE(Window.Modal);
    EXPECT_EQ(Window.Main->focusWidget(), Window.Lists[TabRect]);
}

TEST_F(StationWindow, AWindowSmallerThanItsPanelsStaysWhole)
{
    Open();
    OpenPart(TabNesting);
    for (const QSize size : {QSize(1, 1), QSize(60, 40), QSize(5000, 30), QSize(30, 4000), QSize(800, 600)}) {
        Window.Main->resize(size);
        QApplication::processEvents();
        Window.Main->grab();
    }
    EXPECT_EQ(Window.Main->size(), QSize(800, 600));
    Press(Qt::Key_F9);
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    ExpectTidy(Window.FrameCutting, "after all");
}

TEST_F(StationWindow, TheNestThatIsSavedStandsAloneOnThePreview)
{
    Open();
    OpenPart(TabNesting);
    Type("1500");
    Press(Qt::Key_F10);
    ASSERT_EQ(Window.Main->focusWidget(), Window.TextFileName);
    const QImage shown = SurfaceImage(Picture::Preview).copy();
    DrawNestPreview();
    EXPECT_EQ(SurfaceImage(Picture::Preview), shown);
    QImage blank = shown;
    blank.fill(Qt::white);
    EXPECT_NE(shown, blank);
    EXPECT_GT(AppState.CountX, 1);
}

TEST_F(StationWindow, EveryControlHasAName)
{
    Open();
    OpenPart(TabNesting);
    for (const char* name :
         {"FunctionButton 9", "ListViewRect",      "ListViewPrograms", "TextCutting 3", "LabelCutting 9",
          "TextNesting 7",    "LabelNesting 9",    "ParamText 14",     "ParamLabel 0",  "TextFileName",
          "LabelFileName",    "PictureNestingBmp", "PicParam",         "TecnoPic",      "NestingPic",
          "PicLeadhelp",      "FrameValue",        "FrameCutting",     "FrameNesting",  "FrameFileNesting",
          "Tab_Input",        "Tab_CAM",           "PPR_ProgressBar"}) {
        const QWidget* control = Window.Main->findChild<QWidget*>(name);
        ASSERT_NE(control, nullptr) << name;
        EXPECT_EQ(control->accessibleName(), name);
    }
}

TEST_F(StationWindow, CountsKeepTheSizeOfTheOtherLabels)
{
    Open("1024x768");
    OpenPart(TabNesting);
    Type("*5");
    Press(Qt::Key_Return);
    const QLabel* count = Window.Counts[0];
    ASSERT_EQ(count->text(), "5");
    EXPECT_TRUE(count->font().bold());
    for (const QSize size : {QSize(640, 480), QSize(1024, 768)}) {
        Window.Main->resize(size);
        QApplication::processEvents();
        EXPECT_EQ(count->font().pixelSize(), Window.Nesting[0].Label->font().pixelSize()) << size.width();
    }
    EXPECT_TRUE(count->font().bold());
}

TEST_F(StationWindow, OnlyTheFocusedFieldHasAMark)
{
    Open();
    OpenPart(TabNesting);
    for (int row = 0; row < 5; ++row) {
        Press(Qt::Key_Down);
    }
    Press(Qt::Key_F5);
    ASSERT_EQ(Window.Nesting[5].Edit->text(), "3");
    EXPECT_EQ(Window.Nesting[5].Edit->selectedText(), "3");
    Press(Qt::Key_F1);
    for (int way = 0; way < 3; ++way) { // the part anew: its nest starts with type 1
        Press(Qt::Key_F10);
    }
    ASSERT_EQ(Window.Nesting[5].Edit->text(), "1");
    EXPECT_EQ(Window.Nesting[5].Edit->selectedText(), "");
    EXPECT_EQ(Window.Nesting[0].Edit->selectedText(), Window.Nesting[0].Edit->text());
}
} // namespace
