// What reaches the window in other ways than by plain keys and clicks: wheels, drags, pastes, composed letters, clicks
// of the other buttons, the Tab key, other windows coming and going.
#include "qt/ShownStation.h"

#include "nesting/Korvanta_CutTecnology.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>

#include <cstdint>

namespace
{
class WindowInput : public ShownStation
{
protected:
    static void Wheel(QWidget* control, int notches)
    {
        const QPointF at = control->rect().center();
        QWheelEvent event(at, control->mapToGlobal(at), QPoint(), QPoint(0, notches * 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(control, &event);
    }

    static void Commit(QWidget* control, const QString& text)
    {
        QInputMethodEvent composing(text, {});
        QApplication::sendEvent(control, &composing);
        QInputMethodEvent done;
        done.setCommitString(text);
        QApplication::sendEvent(control, &done);
    }

    /// A key with its text as the keyboard sends it.
    static void Strike(int key, Qt::KeyboardModifiers held, const QString& text = QString())
    {
        QWidget* target = Window.Main->focusWidget();
        QKeyEvent event(QEvent::KeyPress, key, held, text);
        QApplication::sendEvent(target != nullptr ? target : Window.Main, &event);
    }

    static void Activate()
    {
        QEvent event(QEvent::WindowActivate);
        QApplication::sendEvent(Window.Main, &event);
    }

    void OpenJobs(const std::string& resolution = "800x600")
    {
        Open(resolution);
        Press(Qt::Key_F2);
        ASSERT_EQ(AppState.InputTab, TabPrograms);
    }
};

TEST_F(WindowInput, TheWheelTurnsNoTabs)
{
    Open();
    Wheel(Window.InputTabs, -1);
    EXPECT_EQ(AppState.InputTab, TabRect);
    EXPECT_EQ(Window.InputTabs->currentIndex(), TabRect);
    OpenPart(TabNesting);
    Wheel(Window.CamTabs, 1);
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    EXPECT_EQ(Window.CamTabs->currentIndex(), TabNesting);
}

TEST_F(WindowInput, TheWheelScrollsAListAndSelectsNothing)
{
    Open("640x480");
    QListWidget* list = Window.Lists[TabRect];
    Wheel(list->viewport(), -3);
    EXPECT_EQ(AppState.Lists[TabRect].Selected, 0);
    EXPECT_EQ(list->currentRow(), 0);
}

TEST_F(WindowInput, ComposedLettersAreAFilterAndAName)
{
    Folder.Write("NEST/\xE6\x9D\xBF\x31.nst", "[0000]\n"); // a Chinese letter and a digit
    Folder.Write("NEST/OTHER.nst", "[0000]\n");
    OpenJobs();
    QTest::mouseClick(Window.TextFileName, Qt::LeftButton);
    Commit(Window.TextFileName, QString::fromUtf8("\xE6\x9D\xBF"));
    EXPECT_EQ(AppState.TextFileName.Text, "\xE6\x9D\xBF");
    ASSERT_EQ(Window.Lists[TabPrograms]->count(), 1);
    EXPECT_EQ(Window.Lists[TabPrograms]->item(0)->text(), QString::fromUtf8("\xE6\x9D\xBF\x31"));
}

TEST_F(WindowInput, LettersBeyondTheFirstPlaneAreSelectedWhole)
{
    OpenJobs();
    const std::string plate = "\xF0\xA0\x80\x80\xF0\xA0\x80\x81"; // two letters, four units of UTF-16
    SetText(AppState.TextFileName, plate);
    QTest::mouseClick(Window.TextFileName, Qt::LeftButton);
    EXPECT_EQ(ToText(Window.TextFileName->selectedText()), plate);
}

TEST_F(WindowInput, PastedAndUndoneTextsReachTheField)
{
    Open();
    OpenPart(TabCutting);
    QApplication::clipboard()->setText("45");
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "45");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, ToText(Window.Cutting[FieldAngle].Edit->text()));
}

TEST_F(WindowInput, NothingIsDroppedIntoFields)
{
    Open();
    OpenPart(TabCutting);
    for (const FieldRow& row : Window.Cutting) {
        EXPECT_FALSE(row.Edit->acceptDrops());
        EXPECT_FALSE(row.Edit->dragEnabled());
    }
    EXPECT_FALSE(Window.TextFileName->acceptDrops());
}

TEST_F(WindowInput, AClickIntoAFieldSelectsItsWholeText)
{
    Open();
    OpenPart(TabCutting);
    QLineEdit* step = Window.Cutting[FieldMoveStep].Edit;
    QTest::mouseClick(step, Qt::LeftButton);
    EXPECT_EQ(AppState.CurrentField, FieldMoveStep);
    EXPECT_EQ(step->selectedText(), step->text());
    QTest::mouseClick(step, Qt::LeftButton); // the second one sets the cursor
    EXPECT_EQ(step->selectedText(), "");
}

TEST_F(WindowInput, AClickOutOfAFieldBeyondItsLimitsComesBackToIt)
{
    Open();
    OpenPart(TabCutting);
    QTest::mouseClick(Window.Cutting[FieldMoveStep].Edit, Qt::LeftButton);
    Window.Cutting[FieldMoveStep].Edit->selectAll();
    Type("0");
    QTest::mouseClick(Window.Cutting[FieldAngle].Edit, Qt::LeftButton);
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldMoveStep].Edit);
    EXPECT_EQ(Window.Cutting[FieldMoveStep].Edit->text(),
              "0.1"); // the limit, as the profile's values are shown
    EXPECT_EQ(Window.Cutting[FieldMoveStep].Edit->selectedText(), "0.1");
    EXPECT_EQ(AppState.CurrentField, FieldMoveStep);
    EXPECT_EQ(AppState.FieldMode, 5);
}

TEST_F(WindowInput, TabGoesFromFieldToField)
{
    Open();
    OpenPart(TabNesting);
    for (std::int16_t i = 1; i < NestingFieldCount; ++i) {
        Press(Qt::Key_Tab);
        EXPECT_EQ(Window.Main->focusWidget(), Window.Nesting[static_cast<std::size_t>(i)].Edit);
        EXPECT_EQ(AppState.CurrentField, i);
    }
    EXPECT_EQ(AppState.FieldMode, 3);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Window.Main->focusWidget(), Window.Nesting[0].Edit);
    EXPECT_EQ(AppState.CurrentField, 0);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(AppState.CurrentField, FieldNestingZoom);
}

TEST_F(WindowInput, TabGoesBetweenTheJobsAndTheName)
{
    OpenJobs();
    Press(Qt::Key_Tab);
    EXPECT_EQ(Window.Main->focusWidget(), Window.TextFileName);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::FileName);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Window.Main->focusWidget(), Window.Lists[TabPrograms]);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::None);
}

TEST_F(WindowInput, ADragOverAListSelectsNothingElse)
{
    Open();
    QListWidget* list = Window.Lists[TabRect];
    const auto centre = [list](int row) { return list->visualItemRect(list->item(row)).center(); };
    QTest::mousePress(list->viewport(), Qt::LeftButton, Qt::NoModifier, centre(1));
    QMouseEvent move(QEvent::MouseMove, QPointF(centre(3)), list->viewport()->mapToGlobal(QPointF(centre(3))),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list->viewport(), &move);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, Qt::NoModifier, centre(3));
    EXPECT_EQ(AppState.Lists[TabRect].Selected, 1);
    EXPECT_EQ(list->currentRow(), 1);
    ASSERT_EQ(list->selectedItems().size(), 1);
    EXPECT_EQ(list->row(list->selectedItems().front()), 1);
}

TEST_F(WindowInput, OtherButtonsOfTheMouseDoNothingInLists)
{
    Open();
    QListWidget* list = Window.Lists[TabRect];
    const QPoint second = list->visualItemRect(list->item(1)).center();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        QTest::mouseClick(list->viewport(), button, Qt::NoModifier, second);
        QTest::mouseDClick(list->viewport(), button, Qt::NoModifier, second);
        EXPECT_EQ(AppState.Lists[TabRect].Selected, 0);
        EXPECT_EQ(AppState.ScreenState, ScreenInput);
    }
    QTest::mouseClick(Window.CamTabs, Qt::RightButton);
    QTest::mouseClick(Window.Keys[8], Qt::RightButton);
    EXPECT_FALSE(Window.Modal);
}

TEST_F(WindowInput, TheSelectionOnTheScreenIsTheOneOfTheRecord)
{
    Open();
    const QListWidget* list = Window.Lists[TabRect];
    for (const Qt::KeyboardModifiers held :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier),
          Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::ControlModifier | Qt::ShiftModifier,
          Qt::KeyboardModifiers(Qt::AltModifier)}) {
        for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_End, Qt::Key_Home, Qt::Key_PageDown,
                              Qt::Key_Left, Qt::Key_Space, Qt::Key_A}) {
            Press(key, held);
            const std::int32_t selected = AppState.Lists[TabRect].Selected;
            EXPECT_EQ(list->currentRow(), selected) << key << " " << held;
            ASSERT_EQ(list->selectedItems().size(), 1) << key << " " << held;
            EXPECT_EQ(list->row(list->selectedItems().front()), selected) << key << " " << held;
        }
    }
}

TEST_F(WindowInput, EnterOnAnEmptyListDoesNothing)
{
    Folder.Write("Korvanta.ini", "[CONFIG]\nNESTING_PATH=C:\\NOWHERE\nDXF_PATH=C:\\NOWHERE\n");
    OpenJobs();
    ASSERT_EQ(Window.Lists[TabPrograms]->count(), 0);
    for (const int key : {Qt::Key_Return, Qt::Key_F10, Qt::Key_Space, Qt::Key_Down, Qt::Key_F8, Qt::Key_D}) {
        Press(key);
        EXPECT_EQ(AppState.ScreenState, ScreenInput);
        EXPECT_EQ(Window.Main->focusWidget(), Window.Lists[TabPrograms]);
        EXPECT_FALSE(Window.Modal);
    }
    QTest::mouseClick(Window.Lists[TabPrograms]->viewport(), Qt::LeftButton);
    EXPECT_EQ(Window.Main->focusWidget(), Window.TextFileName);
}

TEST_F(WindowInput, SpaceCopiesTheNameOfTheJob)
{
    Folder.Write("NEST/DOOR.nst", "[0000]\n");
    OpenJobs();
    Press(Qt::Key_Space);
    EXPECT_EQ(Window.TextFileName->text(), "DOOR");
    Press(Qt::Key_Down); // the arrows go on choosing
    EXPECT_EQ(Window.Main->focusWidget(), Window.Lists[TabPrograms]);
}

TEST_F(WindowInput, ANameThatIsLeftTurnsYellowOnBlackWhenSoConfigured)
{
    Configure("TEXTFILELOSTFOCUS=YES");
    OpenJobs();
    QTest::mouseClick(Window.TextFileName, Qt::LeftButton);
    EXPECT_EQ(AppState.FileNameColor, ColorBlue);
    Press(Qt::Key_PageDown, Qt::KeypadModifier); // the next tab hides the name
    Press(Qt::Key_PageUp, Qt::KeypadModifier);
    ASSERT_EQ(AppState.InputTab, TabPrograms);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::None);
    EXPECT_EQ(AppState.FileNameColor, ColorYellow);
    EXPECT_EQ(AppState.FileNameBackColor, ColorBlack);
}

TEST_F(WindowInput, AWindowThatComesBackShowsTheFocusOfItsScreen)
{
    OpenJobs();
    QTest::mouseClick(Window.TextFileName, Qt::LeftButton);
    Activate();
    EXPECT_EQ(Window.Main->focusWidget(), Window.Lists[TabPrograms]);
    Press(Qt::Key_F1);
    OpenPart(TabCutting);
    Press(Qt::Key_Down);
    Activate(); // late, on another screen
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldMirror].Edit);
    Press(Qt::Key_F10);
    Press(Qt::Key_F10);
    ASSERT_EQ(AppState.SaveMode, FlagOn);
    Activate();
    EXPECT_EQ(Window.Main->focusWidget(), Window.TextFileName);
    EXPECT_EQ(Window.TextFileName->selectedText(), "R_05");
    EXPECT_EQ(AppState.FileNameColor, ColorRed);
}

TEST_F(WindowInput, AKeyOfTheBarKeepsTheZoom)
{
    Open();
    OpenPart(TabCutting);
    QTest::mouseClick(Window.Keys[1], Qt::LeftButton);
    ASSERT_EQ(AppState.FieldMode, 3);
    QTest::mouseClick(Window.Keys[2], Qt::LeftButton); // larger
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldCuttingZoom].Edit);
    EXPECT_EQ(Window.Cutting[FieldCuttingZoom].Edit->text(), "2");
    EXPECT_GT(AppState.ZoomFrame, 0.0);
    EXPECT_EQ(AppState.FieldMode, 3);
    const double width = AppState.ViewWidth;
    QTest::mouseClick(Window.Keys[1], Qt::LeftButton); // its value counts
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldAngle].Edit);
    EXPECT_NEAR(AppState.ViewWidth, width / 2, width * 1e-9);
}

TEST_F(WindowInput, AnyKeyCanBeASecondEsc)
{
    struct Row {
        const char* Alias;
        int Key;
        Qt::KeyboardModifiers Held;
    };
    for (const Row& row :
         {Row{"81", Qt::Key_Q, {}}, Row{"81", Qt::Key_Q, Qt::ShiftModifier}, Row{"48", Qt::Key_0, {}},
          Row{"122", Qt::Key_F11, {}}, Row{"123", Qt::Key_F12, {}}, Row{"100", Qt::Key_4, Qt::KeypadModifier},
          Row{"36", Qt::Key_Home, {}}, Row{"39", Qt::Key_Right, {}},
          Row{"107", Qt::Key_Plus, Qt::KeypadModifier}, Row{"110", Qt::Key_Period, Qt::KeypadModifier},
          Row{"111", Qt::Key_Slash, Qt::KeypadModifier}, Row{"187", Qt::Key_Plus, {}},
          Row{"189", Qt::Key_Minus, {}}, Row{"188", Qt::Key_Comma, {}}, Row{"190", Qt::Key_Period, {}},
          Row{"12", Qt::Key_Clear, Qt::KeypadModifier}, Row{"93", Qt::Key_Menu, {}},
          Row{"46", Qt::Key_Delete, {}}, Row{"8", Qt::Key_Backspace, {}}}) {
        Folder.Write("Korvanta.ini",
                     std::string("[CONFIG]\nESCALIAS=") + row.Alias + "\n[SETUP]\nLANGUAGE=1\n");
        Open();
        int boxes = 0;
        const auto stay = [&boxes] {
            ++boxes;
            EXPECT_TRUE(Window.Modal);
            Press(Qt::Key_F1);
        };
        QTimer::singleShot(0, stay);
        Strike(row.Key, row.Held);
        QApplication::processEvents();
        EXPECT_EQ(boxes, 1) << row.Alias;
        EXPECT_FALSE(Window.Modal);
        TearDown();
    }
}

TEST_F(WindowInput, AKeyWithoutACodeIsNoEsc)
{
    Folder.Write("Korvanta.ini", "[CONFIG]\nESCALIAS=0\n[SETUP]\nLANGUAGE=1\n");
    Open();
    for (const int key : {int(Qt::Key_VolumeUp), int(Qt::Key_Adiaeresis), int(Qt::Key_unknown)}) {
        Strike(key, Qt::NoModifier);
        EXPECT_FALSE(Window.Modal) << key;
    }
}
} // namespace
