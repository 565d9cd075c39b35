// Boxes and the dialog with lines that are too long for them: names without a blank, labels and options of a table.
#include "qt/ShownStation.h"
#include "qt/ShownTexts.h"

#include "platform/Screen.h"
#include "shell/MsgBox_Unicode.h"

#include <QComboBox>
#include <QTimer>

#include <functional>

namespace
{
constexpr QChar NoWidthBlank(0x200B);
constexpr std::size_t LongestName = 200;

/// The text of a line, without the places where it may break.
QString LineText(const char* name)
{
    const auto* line = Window.Main->findChild<QLabel*>(name);
    return line == nullptr ? QString() : line->text().remove(NoWidthBlank);
}

class LongTexts : public ShownStation
{
protected:
    void ShowLongBox(const std::string& name, const QString& where)
    {
        bool looked = false;
        QTimer::singleShot(0, [&] {
            QApplication::processEvents();
            EXPECT_EQ(LineText("Label1 0"), QString::fromStdString(name));
            ExpectRoomForTexts(where);
            looked = true;
            Press(Qt::Key_F1);
        });
        bool result = true;
        ShowBox(name, MessageText(3), MessageText(4), true, result);
        EXPECT_TRUE(looked);
        EXPECT_FALSE(result);
    }

    static void FillSlots(const std::string& label, const std::string& option)
    {
        for (std::size_t slot = 1; slot <= PprInputSlots; ++slot) {
            PprInputValue& input = AppState.PprInput[slot];
            input.Kind = slot % 2 == 0 ? 'T' : 'D';
            input.Label = label;
            input.Value = option;
            input.Options = option + "|SHORT";
        }
    }

    static void ShowDialog(const std::string& title, const std::function<void()>& look)
    {
        bool looked = false;
        QTimer::singleShot(0, [&] {
            QApplication::processEvents();
            look();
            looked = true;
            Press(Qt::Key_F10);
        });
        RunInputDialog(title);
        EXPECT_TRUE(looked);
    }
};

TEST_F(LongTexts, ANameWithoutABlankBreaksWhereItMust)
{
    for (const char* resolution : {"640x480", "1024x768"}) {
        for (int language = 1; language <= LanguageColumns; ++language) {
            Open(resolution, std::to_string(language));
            const QString where = QString("%1, language %2").arg(resolution).arg(language);
            ShowLongBox(std::string(LongestName, 'W'), where);
            ShowLongBox("AB " + std::string(LongestName, 'I') + " CD", where);
            TearDown();
        }
    }
}

TEST_F(LongTexts, AShortNameStaysAsItIs)
{
    Open("640x480");
    QTimer::singleShot(0, [] {
        EXPECT_EQ(Window.Main->findChild<QLabel*>("Label1 0")->text(), "PLATE 10");
        Press(Qt::Key_F1);
    });
    bool result = true;
    ShowBox("PLATE 10", "", "", true, result);
}

TEST_F(LongTexts, EightRowsOfTheDialogHaveRoom)
{
    Open("640x480");
    const std::string label =
        "Thickness of the plate as the operator of the machine reads it from the label of the "
        "supplier on the pallet";
    for (const std::string& text : {label, std::string(100, 'W'), std::string("A")}) {
        FillSlots(text, std::string(90, 'W'));
        ShowDialog("Korvanta [" + std::string(LongestName, 'W') + "]", [&] {
            ExpectRoomForTexts(QString::fromStdString(text));
            const auto* panel = Window.Main->findChild<QWidget*>("Korvanta_InputParamPPR");
            ASSERT_NE(panel, nullptr);
            EXPECT_TRUE(Window.Main->rect().contains(panel->geometry()));
            for (const char* name :
                 {"PprParam_Text 0", "PprParam_Combo 1", "PprParam_Text 6", "PprParam_Combo 7"}) {
                const auto* entry = Window.Main->findChild<QWidget*>(name);
                ASSERT_NE(entry, nullptr);
                EXPECT_GE(entry->width(), 100) << name;
                EXPECT_TRUE(panel->rect().contains(QRect(entry->mapTo(panel, QPoint(0, 0)), entry->size())))
                    << name;
            }
        });
        EXPECT_EQ(AppState.PprInput[2].Value, std::string(90, 'W'));
    }
}

TEST_F(LongTexts, ALabelThatFitsIsWhole)
{
    Open("640x480");
    FillSlots("Plate thickness", "10");
    ShowDialog("Korvanta [R_05]", [] {
        const auto* label = Window.Main->findChild<QLabel*>("PprParam_Label 0");
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text(), "Plate thickness");
        EXPECT_LE(label->height(), 2 * label->fontMetrics().height()); // one line
    });
}
} // namespace
