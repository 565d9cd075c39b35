// Every screen, box and dialog in each of the six languages: what an operator reads there is what the catalogue has
// for it, letter by letter, and has room.
#include "qt/ShownStation.h"
#include "qt/ShownTexts.h"

#include "platform/Screen.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/MsgBox_Unicode.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTimer>

#include <functional>

namespace
{
/// A caption of the catalogue and what the program sets behind it.
struct Caption {
    const char* Control;
    int Message;
    const char* Behind = "";
};

constexpr Caption Captions[] = {
    {"Tab_Input 0", 5},
    {"Tab_Input 1", 6},
    {"Tab_Input 2", 7},
    {"Tab_Input 3", 8},
    {"Tab_CAM 0", 11},
    {"Tab_CAM 1", 12},
    {"Tab_CAM 2", 13},
    {"LabelCutting 0", 14},
    {"LabelCutting 1", 15},
    {"LabelCutting 2", 16},
    {"LabelCutting 3", 18},
    {"LabelCutting 4", 19},
    {"LabelCutting 5", 20, ": A"},
    {"LabelCutting 6", 21, ": B"},
    {"LabelCutting 7", 22, ": C"},
    {"LabelCutting 8", 23, ": D"},
    {"LabelCutting 9", 24},
    {"LabelNesting 0", 25},
    {"LabelNesting 1", 26},
    {"LabelNesting 2", 27},
    {"LabelNesting 3", 28},
    {"LabelNesting 4", 29},
    {"LabelNesting 5", 30},
    {"LabelNesting 6", 31},
    {"LabelNesting 7", 24},
    {"LabelFileName", 33},
};

/// Texts that are the same in every language.
const QMap<QString, QString> FixedTexts = {
    {"title", "Korvanta V2.28"}, {"Tab_Input 4", " DXF-IN"}, {"Tab_Input 5", " ISO-IN"}};

/// Names, letters and numbers: no words of a language.
const QRegularExpression Number("^[-+*]?[0-9.]+$");
const QRegularExpression Letter("^([A-Z]|R[1-4ie]|D[12fie]|D[12][ie]|N[xyr]|LR|Offset)$");
const QRegularExpression ListName("^([RCH]-[0-9][0-9]|[A-Z0-9_]+(\\.[A-Z]+)?)$");
const QRegularExpression KeyName("^F([1-9]|10)$");

/// The table's own texts: a language of their own.
constexpr const char* TableInput = "\n[PartProgram_INPUT]\n"
                                   "#V1=Thickness of the plate in millimetres,D,,10\n"
                                   "#V2=Gas for piercing and for cutting,T,OXYGEN|NITROGEN|AIR,AIR\n"
                                   "#V3=Remark for the operator of the machine,X,,NONE\n";
const QSet<QString> TableTexts = {"Thickness of the plate in millimetres",
                                  "Gas for piercing and for cutting",
                                  "Remark for the operator of the machine",
                                  "OXYGEN",
                                  "NITROGEN",
                                  "AIR",
                                  "NONE"};

/// The shipped catalogue by number, as its translators see it.
QMap<int, QStringList> ReadShippedCatalogue()
{
    QFile file(QStringLiteral(KORVANTA_SOURCE_DIR "/station/Korvanta_MSG.TXT"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split("\r\n");
    QMap<int, QStringList> messages;
    for (qsizetype i = 0; i + LanguageColumns < lines.size(); ++i) {
        if (lines[i].startsWith(">>")) {
            messages[lines[i].mid(2).toInt()] = lines.mid(i + 1, LanguageColumns);
        }
    }
    return messages;
}

/// Lines and buttons of a box; the dialog has its title for a line.
using BoxTexts = QMap<QString, QString>;

class Languages : public ShownStation, public testing::WithParamInterface<int>
{
protected:
    const QMap<int, QStringList> Messages = ReadShippedCatalogue();
    QSet<QString> Seen; ///< controls whose text has been checked
    int BoxesSeen = 0;

    QString Message(int number) const
    {
        return Messages[number].value(GetParam() - 1);
    }

    /// The caption that a control must have, null when it is none of the catalogue's.
    QString CaptionOf(const QString& control) const
    {
        for (const Caption& caption : Captions) {
            if (control == QLatin1String(caption.Control)) {
                return Message(caption.Message) + caption.Behind;
            }
        }
        return FixedTexts.value(control);
    }

    /// Label of a shape's parameter: its letter, or the message of one without a letter. While an import fails the
    /// labels are still those of the shape before.
    void CheckParameter(const QString& caption, int index, const std::string& where)
    {
        const ShapeRow* shape = FindShape(AppState.ShapeId);
        const QString letter = shape == nullptr ? caption : QString(shape->Parameters[index].Letter);
        if (letter == "Tail" || letter == "Swap") {
            EXPECT_EQ(caption, Message(letter == "Tail" ? 22 : 38)) << where;
        } else {
            EXPECT_EQ(caption, letter) << where;
            EXPECT_TRUE(Letter.match(caption).hasMatch()) << where;
        }
    }

    void CheckText(const ShownText& shown, const BoxTexts& box, const std::string& where)
    {
        const QString& name = shown.Control;
        if (box.contains(name)) {
            EXPECT_EQ(shown.Text, box[name]) << where;
        } else if (name.startsWith("ParamLabel ")) {
            CheckParameter(shown.Text, name.mid(11).toInt(), where);
        } else if (name.startsWith("FunctionButton ") && name.endsWith(" tip")) {
            EXPECT_TRUE(KeyName.match(shown.Text).hasMatch()) << where;
        } else if (name.startsWith("PprParam_")) {
            EXPECT_TRUE(TableTexts.contains(shown.Text) || Number.match(shown.Text).hasMatch()) << where;
        } else if (name.startsWith("ListView") || name == "TextFileName") {
            EXPECT_TRUE(ListName.match(shown.Text).hasMatch()) << where;
        } else if (name.startsWith("Text") || name.startsWith("ParamText") || name.endsWith("Nesting 8") ||
                   name.endsWith("Nesting 9")) {
            EXPECT_TRUE(Number.match(shown.Text).hasMatch()) << where;
        } else {
            EXPECT_EQ(shown.Text, CaptionOf(name)) << where;
        }
    }

    /// All that is in sight, against the catalogue.
    void Check(const char* screen, const BoxTexts& box = {})
    {
        QApplication::processEvents();
        const std::vector<ShownText> texts = TextsInSight();
        QSet<QString> names;
        for (const ShownText& shown : texts) {
            const QString where =
                QString("%1, %2: \"%3\"").arg(QLatin1String(screen), shown.Control, shown.Text);
            CheckText(shown, box, where.toStdString());
            names.insert(shown.Control);
        }
        Seen |= names;
        for (const QString& line : box.keys()) {
            EXPECT_TRUE(names.contains(line) || box[line].isEmpty()) << screen << ' ' << line.toStdString();
        }
        ExpectRoomForTexts(QString("language %1, %2").arg(GetParam()).arg(QLatin1String(screen)));
    }

    /// Answers the box that the next key opens, after a look at it. The program may let the window system catch up
    /// before it opens the box.
    void MeanwhileCheck(const char* screen, const BoxTexts& box, Qt::Key answer)
    {
        QTimer::singleShot(0, Window.Main, [this, screen, box, answer] {
            if (!Window.Modal) {
                MeanwhileCheck(screen, box, answer);
                return;
            }
            Check(screen, box);
            ++BoxesSeen;
            Press(answer);
        });
    }

    BoxTexts Question(const QString& line1, const QString& line2, const QString& line3)
    {
        return {{"Label1 0", line1},
                {"Label1 1", line2},
                {"Label1 2", line3},
                {"OKButton", "F10 : " + Message(1)},
                {"CancelButton", "F1 : " + Message(2)}};
    }

    BoxTexts Notice(const QString& line1, const QString& line2)
    {
        return {{"Label1 0", line1}, {"Label1 1", line2}, {"CancelButton", "F10 : " + Message(36)}};
    }

    void OpenInLanguage()
    {
        Folder.Write("PPR.ini", Folder.Read("PPR.ini") + TableInput);
        Folder.Write("DXF/BROKEN.dxf", "no drawing");
        Open("640x480", std::to_string(GetParam()));
    }

    /// To a tab of the Input screen by F1, the next one.
    static void GoToTab(std::int16_t tab)
    {
        for (int step = 0; step < InputTabCount && AppState.InputTab != tab; ++step) {
            Press(Qt::Key_F1);
        }
        ASSERT_EQ(AppState.InputTab, tab);
    }

    static void PressTimes(Qt::Key key, int times)
    {
        for (int i = 0; i < times; ++i) {
            Press(key);
        }
    }

    /// Each field of the Cutting or Nesting screen in turn, then Zoom.
    void CheckFields(const char* screen, int fields)
    {
        for (int i = 0; i < fields; ++i) {
            Check(screen);
            Press(Qt::Key_Down);
        }
        Press(Qt::Key_F2);
        Check(screen);
        Press(Qt::Key_F2);
    }

    /// From the Nesting screen into a job of this name.
    void SaveAs(const char* name, bool asked)
    {
        Press(Qt::Key_F10);
        ASSERT_NE(AppState.SaveMode, FlagOff);
        Check("name of the job");
        Type(name);
        if (asked) {
            MeanwhileCheck("overwrite", Question(name, Message(3), Message(4)), Qt::Key_F1);
        } else {
            MeanwhileCheck(
                "values of the table",
                {{"Caption", "Korvanta [" + QString(name) + "]"}, {"OKButton", "F10 : " + Message(36)}},
                Qt::Key_F10);
        }
        Press(Qt::Key_Return);
    }
};

TEST_P(Languages, ChineseHasItsOwnLetterForms)
{
    OpenInLanguage();
    for (const QWidget* control : {Window.Main, static_cast<QWidget*>(Window.LabelFileName),
                                   static_cast<QWidget*>(Window.InputTabs)}) {
        EXPECT_EQ(control->font().families().contains("Noto Sans CJK SC"), GetParam() == 6);
    }
}

TEST_P(Languages, InputScreenAndItsTabs)
{
    OpenInLanguage();
    for (int tab = 0; tab < InputTabCount; ++tab) {
        Check("Input");
        Press(Qt::Key_F1);
    }
}

TEST_P(Languages, ParametersOfEveryShape)
{
    OpenInLanguage();
    for (const ShapeRow& row : ShapeCatalogue()) {
        GoToTab(row.ShapeId < FamilyCircular ? TabRect : row.ShapeId < FamilyHoles ? TabCirc : TabHoles);
        Press(Qt::Key_Home);
        PressTimes(Qt::Key_F3, row.ShapeId % 1000 - 1);
        Press(Qt::Key_F10);
        ASSERT_EQ(AppState.ShapeId, row.ShapeId);
        Check(row.Name);
        Press(Qt::Key_F1);
    }
}

TEST_P(Languages, TheLongestLabelsFitAtEverySize)
{
    for (const char* resolution : {"640x480", "800x600", "1024x768"}) {
        Open(resolution, std::to_string(GetParam()));
        Press(Qt::Key_End);
        Press(Qt::Key_F10);
        ASSERT_EQ(AppState.ShapeId, 1041);
        Check(resolution);
        EXPECT_GE(PictureBox(Picture::Param)->width(), Window.Main->width() / 2) << resolution;
        PressTimes(Qt::Key_F10, 3);
        Check(resolution);
        TearDown();
    }
}

TEST_P(Languages, AShortLabelTakesNoMoreRoomAfterALongOne)
{
    Open("640x480", std::to_string(GetParam()));
    Press(Qt::Key_F10);
    const int before = PictureBox(Picture::Param)->width();
    Press(Qt::Key_F1);
    Press(Qt::Key_End);
    Press(Qt::Key_F10);
    Press(Qt::Key_F1);
    Press(Qt::Key_Home);
    Press(Qt::Key_F10);
    EXPECT_EQ(PictureBox(Picture::Param)->width(), before);
}

TEST_P(Languages, TheRoadOfAnImport)
{
    OpenInLanguage();
    GoToTab(TabDxfIn);
    Press(Qt::Key_F10); // BRACKET.DXF
    ASSERT_EQ(AppState.ScreenState, ScreenParameters);
    Check("import");
    Press(Qt::Key_F10);
    CheckFields("Cutting", FieldCuttingZoom);
    Press(Qt::Key_F10);
    CheckFields("Nesting", FieldNestingZoom);
    Type("*3");
    Press(Qt::Key_Down);
    Check("a count that was asked for");
    SaveAs("PLATE", false);
    EXPECT_EQ(AppState.SaveMode, FlagOff);
    Check("saved");
    GoToTab(TabIsoIn);
    Check("programs to import");
    GoToTab(TabDxfIn);
    Press(Qt::Key_F10);
    PressTimes(Qt::Key_F10, 2);
    SaveAs("PLATE", true);
    Check("not overwritten");
    EXPECT_EQ(BoxesSeen, 2);
    for (const Caption& caption : Captions) {
        EXPECT_TRUE(Seen.contains(caption.Control)) << caption.Control;
    }
}

TEST_P(Languages, QuestionsAndFailures)
{
    OpenInLanguage();
    MeanwhileCheck("leave", Question(Message(32), "", ""), Qt::Key_F1);
    Press(Qt::Key_F9);
    OpenPart(TabParameters);
    Type("0"); // no plate is 0 wide
    MeanwhileCheck("bad part", Notice(Message(34), Message(35)), Qt::Key_F10);
    Press(Qt::Key_F10);
    ASSERT_EQ(AppState.ScreenState, ScreenParameters);
    Press(Qt::Key_F1);
    GoToTab(TabDxfIn);
    Press(Qt::Key_F3);
    Press(Qt::Key_F5); // BROKEN.DXF, behind BRACKET.DXF
    MeanwhileCheck("bad drawing", Notice(Message(34), Message(38)), Qt::Key_F10);
    Press(Qt::Key_F10);
    ASSERT_EQ(AppState.ScreenState, ScreenInput);
    Folder.Write("NEST/DOOR.nst", "[0000]\n");
    GoToTab(TabPrograms);
    MeanwhileCheck("delete", Question("", Message(37), "DOOR"), Qt::Key_F1);
    Press(Qt::Key_F8);
    EXPECT_EQ(BoxesSeen, 4);
}

INSTANTIATE_TEST_SUITE_P(All, Languages, testing::Range(1, LanguageColumns + 1));
} // namespace
