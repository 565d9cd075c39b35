// The box and the input dialog over the window: where their keys and the focus go, whatever happens meanwhile.
#include "qt/ShownStation.h"

#include "platform/Screen.h"
#include "shell/MsgBox_Unicode.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QTimer>

#include <functional>
#include <vector>

namespace
{
class ModalPanels : public ShownStation
{
protected:
    /// Runs steps one after the other while a box or dialog is open; the last one is to close it.
    static void Meanwhile(const std::function<void()>& steps)
    {
        QTimer::singleShot(0, steps);
    }

    static QWidget* Find(const char* name)
    {
        return Window.Main->findChild<QWidget*>(name);
    }

    /// What the keyboard would write into.
    static std::string Focused()
    {
        const QWidget* focused = Window.Main->focusWidget();
        return focused == nullptr ? "" : focused->objectName().toStdString();
    }

    static void SetSlot(std::size_t slot, char kind, const char* value, const char* options = "")
    {
        PprInputValue& input = AppState.PprInput[slot];
        input = PprInputValue();
        input.Kind = kind;
        input.Label = "Row " + std::to_string(slot);
        input.Value = value;
        input.Options = options;
    }

    /// A text, a list and a text; the other slots are unused.
    static void FillSlots()
    {
        for (std::size_t slot = 1; slot <= PprInputSlots; ++slot) {
            SetSlot(slot, 'N', "");
        }
        SetSlot(1, 'D', "10");
        SetSlot(2, 'T', "M08", "M07|M08|M09");
        SetSlot(3, 'D', "ABC");
    }
};

TEST_F(ModalPanels, EnterGoesFromRowToRowAndBackToTheFirst)
{
    Open();
    FillSlots();
    Meanwhile([] {
        EXPECT_EQ(Focused(), "PprParam_Text 0");
        EXPECT_EQ(qobject_cast<QLineEdit*>(Window.Main->focusWidget())->selectedText(), "10");
        Type("25");
        Press(Qt::Key_Return);
        EXPECT_EQ(Focused(), "PprParam_Combo 1");
        Press(Qt::Key_Down);
        Press(Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_EQ(Focused(), "PprParam_Text 2");
        Press(Qt::Key_Return);
        EXPECT_EQ(Focused(), "PprParam_Text 0");
        Press(Qt::Key_Escape); // no way out
        EXPECT_TRUE(Window.Modal);
        Press(Qt::Key_F10);
    });
    RunInputDialog("Input [R_05]");
    EXPECT_FALSE(Window.Modal);
    EXPECT_EQ(AppState.PprInput[1].Value, "25");
    EXPECT_EQ(AppState.PprInput[2].Value, "M09");
    EXPECT_EQ(AppState.PprInput[3].Value, "ABC");
    EXPECT_EQ(Window.Main->focusWidget(), Window.Lists[TabRect]);
}

TEST_F(ModalPanels, TabStaysAmongTheRowsOfTheDialog)
{
    Open();
    OpenPart(TabNesting);
    FillSlots();
    Meanwhile([] {
        for (const char* row :
             {"PprParam_Combo 1", "PprParam_Text 2", "PprParam_Text 0", "PprParam_Combo 1"}) {
            Press(Qt::Key_Tab);
            EXPECT_EQ(Focused(), row);
        }
        for (const char* row : {"PprParam_Text 0", "PprParam_Text 2", "PprParam_Combo 1"}) {
            Press(Qt::Key_Backtab, Qt::ShiftModifier);
            EXPECT_EQ(Focused(), row);
        }
        Press(Qt::Key_F8);
    });
    RunInputDialog("Input");
    EXPECT_EQ(Window.Main->focusWidget(), Window.Nesting[FieldSheetX].Edit);
}

TEST_F(ModalPanels, TheDialogClosesByItsButtonAndOverAnOpenList)
{
    Open();
    FillSlots();
    Meanwhile([] {
        EXPECT_EQ(Find("OKButton")->accessibleName(), "OKButton");
        QTest::mouseClick(Find("OKButton"), Qt::LeftButton);
    });
    RunInputDialog("Input");
    EXPECT_FALSE(Window.Modal);
    QApplication::processEvents();
    Meanwhile([] {
        Press(Qt::Key_Return);
        auto* combo = qobject_cast<QComboBox*>(Window.Main->focusWidget());
        ASSERT_NE(combo, nullptr);
        combo->showPopup();
        QTest::keyClick(combo->view(), Qt::Key_F10);
        EXPECT_FALSE(combo->view()->isVisible());
    });
    QTimer late;
    QObject::connect(&late, &QTimer::timeout, [] {
        ADD_FAILURE() << "the dialog stays";
        Press(Qt::Key_F10);
    });
    late.start(3000);
    RunInputDialog("Input");
    EXPECT_EQ(AppState.PprInput[2].Value, "M08");
}

TEST_F(ModalPanels, AClickIntoARowSelectsItsText)
{
    Open();
    FillSlots();
    Meanwhile([] {
        auto* third = qobject_cast<QLineEdit*>(Find("PprParam_Text 2"));
        QTest::mouseClick(third, Qt::LeftButton);
        EXPECT_EQ(third->selectedText(), "ABC");
        QTest::mouseClick(third, Qt::LeftButton, Qt::NoModifier, QPoint(3, third->height() / 2));
        EXPECT_EQ(third->selectedText(), ""); // a second click sets the cursor
        Press(Qt::Key_F10);
    });
    RunInputDialog("Input");
}

TEST_F(ModalPanels, TheCoverFollowsTheWindow)
{
    Open();
    const auto steps = [] {
        const QWidget* panel = Find("MsgBox_Unicode");
        ASSERT_NE(panel, nullptr);
        const QWidget* cover = panel->parentWidget();
        for (const QSize size : {QSize(1000, 700), QSize(640, 480), QSize(20, 20), QSize(900, 650)}) {
            Window.Main->resize(size);
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            EXPECT_EQ(cover->geometry(), Window.Main->rect());
        }
        EXPECT_NEAR(panel->geometry().center().x(), 450, 1);
        EXPECT_NEAR(panel->geometry().center().y(), 325, 1);
        Press(Qt::Key_F10);
    };
    Meanwhile(steps);
    bool result = false;
    ShowBox("one", "two", "three", true, result);
    EXPECT_TRUE(result);
}

TEST_F(ModalPanels, NothingBehindTheCoverHearsKeysOrClicks)
{
    Open();
    OpenPart(TabCutting);
    Meanwhile([] {
        Press(Qt::Key_Tab);
        Press(Qt::Key_Return);
        EXPECT_EQ(Focused(), "MsgBox_Unicode");
        EXPECT_TRUE(Window.Modal);
        QTest::keyClick(Window.Cutting[FieldScale].Edit, Qt::Key_F10);
        QTest::mouseClick(Window.Keys[0], Qt::LeftButton);
        EXPECT_EQ(AppState.ScreenState, ScreenCutting);
        Window.Cutting[FieldScale].Edit->setFocus(); // a focus that goes astray comes back
        EXPECT_EQ(Focused(), "MsgBox_Unicode");
        Press(Qt::Key_F1);
    });
    bool result = true;
    ShowBox("one", "", "", true, result);
    EXPECT_FALSE(result);
    EXPECT_EQ(Window.Main->focusWidget(), Window.Cutting[FieldAngle].Edit);
    EXPECT_EQ(AppState.CurrentField, FieldAngle);
}

TEST_F(ModalPanels, ABoxOverABoxGivesTheKeysBack)
{
    Open();
    std::vector<int> order;
    Meanwhile([&order] {
        Meanwhile([] { Press(Qt::Key_F1); });
        bool inner = true;
        ShowBox("inner", "", "", true, inner);
        EXPECT_FALSE(inner);
        order.push_back(1);
        EXPECT_TRUE(Window.Modal);
        EXPECT_EQ(Focused(), "MsgBox_Unicode");
        Press(Qt::Key_F10);
    });
    bool outer = false;
    ShowBox("outer", "", "", true, outer);
    order.push_back(2);
    EXPECT_TRUE(outer);
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
    EXPECT_FALSE(Window.Modal);
}

TEST_F(ModalPanels, AKeyThatIsStillHeldAnswersNothing)
{
    Open();
    FillSlots();
    const auto repeat = [](int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(Window.Main->focusWidget(), &event);
    };
    Meanwhile([&repeat] {
        repeat(Qt::Key_F10);
        repeat(Qt::Key_Escape);
        EXPECT_EQ(Focused(), "MsgBox_Unicode");
        Press(Qt::Key_F1);
    });
    bool result = true;
    ShowBox("one", "", "", true, result);
    EXPECT_FALSE(result);
    Meanwhile([&repeat] {
        repeat(Qt::Key_F10);
        repeat(Qt::Key_F8);
        Type("99");
        Press(Qt::Key_F10);
    });
    RunInputDialog("Input");
    EXPECT_EQ(AppState.PprInput[1].Value, "99");
}

TEST_F(ModalPanels, ButtonsAreOfOneWidthAndASingleOneIsWide)
{
    Open();
    Meanwhile([] {
        EXPECT_EQ(Find("OKButton")->width(), Find("CancelButton")->width());
        Press(Qt::Key_F1);
    });
    bool result = true;
    ShowBox("", "Delete?", "DOOR", true, result);
    QApplication::processEvents();
    Meanwhile([] {
        const QWidget* panel = Find("MsgBox_Unicode");
        const QWidget* button = Find("CancelButton");
        EXPECT_EQ(button->width(), panel->width() - 2 * button->x());
        Press(Qt::Key_F10);
    });
    ShowBox("", "Bad", "", false, result);
    EXPECT_TRUE(result);
}
} // namespace
