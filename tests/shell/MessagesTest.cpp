#include "platform/Fault.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace
{
using namespace std::string_literals;

const std::string Mark = "\xEF\xBB\xBF";
const std::string PlainHeader = ">>0\r\nA\r\nA\r\nA\r\nA\r\nA\r\nA\r\n";

/// Column 6 holds double-byte text, as a catalogue without a byte-order mark has it for Chinese.
const std::string DoubleHeader = ">>0\r\nA\r\nA\r\nA\r\nA\r\nA\r\nU\r\n";

struct Catalogue : testing::Test {
    TempFolder Station;

    void SetUp() override
    {
        StartCase();
        AppState.AppPath = Station.Path;
    }

    void Load(std::string_view content)
    {
        Station.Write("Korvanta_MSG.TXT", content);
        LoadMessages();
    }

    static std::string Text(int number, std::int16_t language)
    {
        AppState.Language = language;
        return MessageText(number);
    }
};
} // namespace

TEST_F(Catalogue, GivesTheTextOfEachLanguage)
{
    Load("a comment\r\n" + PlainHeader +
         "; another\r\n>>7\r\none\r\ntwo\r\nthree\r\nfour\r\nfive\r\nsix\r\n");
    const char* const texts[] = {"one", "two", "three", "four", "five", "six"};
    for (std::int16_t language = 1; language <= 6; ++language) {
        EXPECT_EQ(Text(7, language), texts[language - 1]);
    }
    EXPECT_EQ(Text(8, 1), "");
    EXPECT_EQ(Text(0, 1), "A");
}

TEST_F(Catalogue, MarksAreTrimmedAndRaised)
{
    Load(">>0\r\n a \r\nA\r\nA\r\nA\r\nA\r\n u\r\n");
    EXPECT_EQ(Text(0, 1), "A");
    EXPECT_EQ(Text(0, 6), "U");
    EXPECT_TRUE(IsUnicodeLanguage());
    AppState.Language = 1;
    EXPECT_FALSE(IsUnicodeLanguage());
}

TEST_F(Catalogue, PlainTextKeepsItsCaseAndBarAndLosesItsBlanks)
{
    Load(PlainHeader + ">>5\n  Cut | Paste  \nb\nc\nd\ne\nf\n");
    EXPECT_EQ(Text(5, 1), "Cut | Paste");
}

TEST_F(Catalogue, HeaderIsTheThreeCharactersTogetherAnywhere)
{
    Load("languages: >>0 follow\r\nA\r\nA\r\nA\r\nA\r\nA\r\nA\r\n>>10\r\nten\r\nb\r\nc\r\nd\r\ne\r\nf\r\n");
    EXPECT_EQ(Text(10, 1), "ten");
    EXPECT_EQ(Text(0, 1), "A");
}

TEST_F(Catalogue, NumberWithALeadingZeroOpensTheHeader)
{
    Load(PlainHeader + ">>07\r\nx\r\nb\r\nc\r\nd\r\ne\r\nf\r\n");
    EXPECT_EQ(Text(7, 1), "");
    EXPECT_EQ(Text(0, 1), "X");
}

TEST_F(Catalogue, SignMustBeginTheLine)
{
    Load(PlainHeader + " >>7\r\nx\r\n");
    EXPECT_EQ(Text(7, 1), "");
}

TEST_F(Catalogue, SignWithoutANumberIsMessageZero)
{
    // The marks are overwritten, so that column 1 is double-byte from here on: "H" and NUL form one character.
    Load(PlainHeader + ">>\r\nPlain\r\nA\r\nA\r\nA\r\nA\r\nA\r\n" +
         ">>3\r\nH\0i\0\r\nHi\r\nc\r\nd\r\ne\r\nf\r\n"s);
    EXPECT_EQ(Text(0, 1), "Plain");
    EXPECT_EQ(Text(3, 1), "Hi");
    EXPECT_EQ(Text(3, 2), "Hi");
}

TEST_F(Catalogue, SixLinesAreTakenWhateverTheyHold)
{
    Load(PlainHeader + ">>1\r\na\r\nb\r\n>>2\r\nd\r\ne\r\nf\r\n>>3\r\nx\r\n");
    EXPECT_EQ(Text(1, 3), ">>2");
    EXPECT_EQ(Text(2, 1), "");
    EXPECT_EQ(Text(3, 1), "x");
}

TEST_F(Catalogue, TruncatedFileHasEmptyTexts)
{
    Load(PlainHeader + ">>1\r\na\r\nb");
    EXPECT_EQ(Text(1, 2), "b");
    EXPECT_EQ(Text(1, 3), "");
    Load(">>0\r\nA");
    EXPECT_EQ(Text(0, 1), "A");
    EXPECT_EQ(Text(0, 2), "");
    EXPECT_EQ(Text(1, 1), ""); // nothing is left of the catalogue before
    Load("");
    EXPECT_EQ(Text(0, 1), "");
    EXPECT_FALSE(IsUnicodeLanguage());
}

TEST_F(Catalogue, LaterMessageOfANumberWins)
{
    Load(PlainHeader + ">>1\na\nb\nc\nd\ne\nf\n>>1\nA\nB\nC\nD\nE\n\n");
    EXPECT_EQ(Text(1, 1), "A");
    EXPECT_EQ(Text(1, 6), "");
}

TEST_F(Catalogue, NumbersBeyondTheTableAreFaults)
{
    Load(PlainHeader + ">>50\na\nb\nc\nd\ne\nf\n");
    EXPECT_EQ(Text(50, 1), "a");
    EXPECT_THROW(Load(PlainHeader + ">>51\na\nb\nc\nd\ne\nf\n"), RunTimeFault);
    EXPECT_THROW(Load(PlainHeader + ">>-1\na\nb\nc\nd\ne\nf\n"), RunTimeFault);
    EXPECT_THROW(Load(PlainHeader + ">>1e300\na\nb\nc\nd\ne\nf\n"), RunTimeFault);
}

TEST_F(Catalogue, LookingUpBeyondTheTableIsAFault)
{
    Load(PlainHeader);
    EXPECT_THROW(Text(51, 1), RunTimeFault);
    EXPECT_THROW(Text(-1, 1), RunTimeFault);
    EXPECT_THROW(Text(1, 0), RunTimeFault);
    EXPECT_THROW(Text(1, 7), RunTimeFault);
    EXPECT_THROW(IsUnicodeLanguage(), RunTimeFault);
}

TEST_F(Catalogue, PlainBytesAreWesternText)
{
    Load(PlainHeader + ">>1\r\nL\xE4nge \x80\r\n\xC0\x9F\r\n\x81\r\n\r\n\r\n\r\n");
    EXPECT_EQ(Text(1, 1), "L\u00E4nge \u20AC");
    EXPECT_EQ(Text(1, 2), "\u00C0\u0178");
    EXPECT_EQ(Text(1, 3), "\xC2\x81");
}

TEST_F(Catalogue, DoubleBytesAreLowByteFirst)
{
    // 53D6 6D88 (cancel), with a blank (20 00) at each end that goes.
    Load(DoubleHeader + ">>2\r\n\r\n\r\n\r\n\r\n\r\n\x20\0\xD6\x53\x88\x6D\x20\0\r\n"s);
    EXPECT_EQ(Text(2, 6), "\u53D6\u6D88");
    EXPECT_TRUE(IsUnicodeLanguage());
}

TEST_F(Catalogue, CharacterBehindTheBarIsPlain)
{
    // 89D2 "|" "/" 5EA6, no blank lost.
    Load(DoubleHeader + ">>14\r\n\r\n\r\n\r\n\r\n\r\n\xD2\x89\x20\0|/\x20\0\xA6\x5E\r\n"s);
    EXPECT_EQ(AppState.MessageTable[14][5], (MessageParts{"\u89D2 ", "/", " \u5EA6"}));
    EXPECT_EQ(Text(14, 6), "\u89D2 / \u5EA6");
}

TEST_F(Catalogue, BarAtTheEnds)
{
    Load(DoubleHeader + ">>1\n\n\n\n\n\n\xD2\x89|\n>>2\n\n\n\n\n\n|x\n>>3\n\n\n\n\n\n|\x80\xD2\x89|\x20\n");
    EXPECT_EQ(AppState.MessageTable[1][5], (MessageParts{"\u89D2", "", ""}));
    EXPECT_EQ(AppState.MessageTable[2][5], (MessageParts{"", "x", ""}));
    // Only the first bar cuts; behind it 7C and 20 form one character more.
    EXPECT_EQ(AppState.MessageTable[3][5], (MessageParts{"", "\u20AC", "\u89D2\u207C"}));
}

TEST_F(Catalogue, OddAndBrokenDoubleBytes)
{
    // A lone last byte; a pair of surrogates (1F600); a lone one of either sort.
    Load(DoubleHeader +
         ">>1\n\n\n\n\n\n\xD2\x89x\n>>2\n\n\n\n\n\n\x3D\xD8\x01\xDE\n>>3\n\n\n\n\n\n\x3D\xD8x\0\x01\xDE\n"s);
    EXPECT_EQ(Text(1, 6), "\u89D2");
    EXPECT_EQ(Text(2, 6), "\U0001F601");
    EXPECT_EQ(Text(3, 6), "\uFFFDx\uFFFD");
    // The ends of the surrogates, alone; the last character of two bytes in UTF-8 and the first of three.
    Load(DoubleHeader + ">>1\n\n\n\n\n\n\0\xD8x\0\xFF\xDF\0\xE0\n>>2\n\n\n\n\n\n\xFF\x07\0\x08\n"s);
    EXPECT_EQ(Text(1, 6), "\uFFFDx\uFFFD\uE000");
    EXPECT_EQ(Text(2, 6), "\u07FF\u0800");
    // The first character beyond the first plane, and one of the last plane.
    Load(DoubleHeader + ">>1\n\n\n\n\n\n\0\xD8\0\xDC\xC0\xDB\0\xDC\n>>2\n\n\n\n\n\n\x7F\0\x80\0\n"s);
    EXPECT_EQ(Text(1, 6), "\U00010000\U00100000");
    EXPECT_EQ(Text(2, 6), "\x7F\u0080");
}

TEST_F(Catalogue, ColumnsAheadOfAHeaderAreDoubleByte)
{
    Load(">>1\nA\0B\0\nC\0\n\n\n\n\n"s + PlainHeader);
    EXPECT_EQ(Text(1, 1), "AB");
    EXPECT_EQ(Text(1, 2), "C");
}

TEST_F(Catalogue, ByteOrderMarkMakesAllColumnsPlain)
{
    Load(Mark + ">>0\r\nA\r\nA\r\nA\r\nA\r\nA\r\nU\r\n>>2\r\nCancel\r\nAnnulla\r\nZur\u00FCck\r\n\r\n\r\n"
                " \u53D6|\u6D88 \r\n");
    EXPECT_EQ(Text(2, 3), "Zur\u00FCck");
    EXPECT_EQ(Text(2, 6), "\u53D6|\u6D88");
    EXPECT_TRUE(IsUnicodeLanguage());
    AppState.Language = 5;
    EXPECT_FALSE(IsUnicodeLanguage());
}

TEST_F(Catalogue, BrokenUtf8IsReplaced)
{
    struct Case {
        const char* Bytes;
        const char* Text;
    };
    const Case cases[] = {
        {"a\xFFz", "a\uFFFDz"},                           // no lead byte
        {"a\x80z", "a\uFFFDz"},                           // no lead byte ahead
        {"a\xC3", "a\uFFFD"},                             // cut off
        {"\xC0\xAF", "\uFFFD\uFFFD"},                     // overlong
        {"\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},           // overlong
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},           // surrogate
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond the last plane
        {"\xF0\x9F\x98\x80 \xEF\xBF\xBF \xE2\x82\xAC", "\U0001F600 \uFFFF \u20AC"},
    };
    for (const Case& c : cases) {
        Load(Mark + PlainHeader + ">>1\n" + c.Bytes + "\n");
        EXPECT_EQ(Text(1, 1), c.Text);
    }
}

TEST_F(Catalogue, MissingFileEndsTheProcessWithTheSystemsBox)
{
    EXPECT_THROW(LoadMessages(), ProcessEnded);
    ASSERT_EQ(Screen.Calls.size(), 2U);
    EXPECT_EQ(Screen.Calls[0],
              "system box Critical Error|File " + Station.Path + "\\Korvanta_MSG.TXT not found!");
    EXPECT_EQ(Screen.Calls[1], "end 1");
}

TEST_F(Catalogue, NameIsFoundInAnyCase)
{
    Station.Write("korvanta_msg.txt", PlainHeader + ">>1\nOK\n");
    LoadMessages();
    EXPECT_EQ(Text(1, 1), "OK");
}

TEST(MessageBox, HandsItsLinesToTheWindowAndTheAnswerBack)
{
    StartCase();
    Screen.BoxAnswers = {false, true};
    bool result = true;
    ShowBox("a", "b", "c", true, result);
    EXPECT_FALSE(result);
    ShowBox("d", "", "", false, result);
    EXPECT_TRUE(result);
    EXPECT_EQ(Screen.Calls, (std::vector<std::string>{"box a|b|c|two", "box d|||one"}));
}

// --- the catalogue that is shipped ----------------------------------------------------------------------------

namespace
{
const std::set<int>& NumbersInUse()
{
    static const std::set<int> numbers = [] {
        std::set<int> all;
        for (int number = 1; number <= 38; ++number) {
            if (number != 9 && number != 10 && number != 17) {
                all.insert(number);
            }
        }
        return all;
    }();
    return numbers;
}

std::string ShippedBytes()
{
    std::ifstream file(KORVANTA_SOURCE_DIR "/station/Korvanta_MSG.TXT", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

struct Caption {
    int Number;
    const char* Text;
};

constexpr Caption DesignCaptions[] = {
    {5, "Programs"},   {6, "Rectangular"}, {8, "Holes"},       {11, "Parameters"},  {12, "Cutting"},
    {13, "Nesting"},   {14, "Angle"},      {15, "Mirror"},     {16, "Scale"},       {18, "Profile nr."},
    {19, "Move Step"}, {20, "LeadIn"},     {21, "LeadIn"},     {22, "LeadOut"},     {23, "LeadOut"},
    {24, "Zoom"},      {25, "X Sheet"},    {26, "Y Sheet"},    {27, "Kerf"},        {28, "X Gap"},
    {29, "Y Gap"},     {30, "Nesting"},    {31, "Simulation"}, {33, "File Name :"},
};

struct ShippedCatalogue : testing::Test {
    void SetUp() override
    {
        StartCase();
        AppState.AppPath = KORVANTA_SOURCE_DIR "/station";
        LoadMessages();
    }

    static std::string Text(int number, std::int16_t language)
    {
        AppState.Language = language;
        return MessageText(number);
    }
};
} // namespace

TEST_F(ShippedCatalogue, HasEveryMessageInSixLanguages)
{
    for (int number = 1; number < MessageRows; ++number) {
        for (std::int16_t language = 1; language <= LanguageColumns; ++language) {
            EXPECT_EQ(Text(number, language).empty(), NumbersInUse().count(number) == 0)
                << "message " << number << " language " << language;
        }
    }
}

TEST_F(ShippedCatalogue, MarksOnlyChinese)
{
    for (std::int16_t language = 1; language <= LanguageColumns; ++language) {
        EXPECT_EQ(Text(0, language), language == 6 ? "U" : "A");
        EXPECT_EQ(IsUnicodeLanguage(), language == 6);
    }
}

TEST_F(ShippedCatalogue, HasTheCaptionsOfTheDesignInEnglish)
{
    for (const Caption& caption : DesignCaptions) {
        EXPECT_EQ(Text(caption.Number, 1), caption.Text) << caption.Number;
    }
}

TEST_F(ShippedCatalogue, SetsColonsAsEachLanguageDoes)
{
    // Captions go ahead of a field: only the design's English and French keep a blank there.
    EXPECT_EQ(Text(33, 2), "Nome file:");
    EXPECT_EQ(Text(33, 3), "Dateiname:");
    EXPECT_EQ(Text(33, 4), "Nom du fichier\u00A0:");
    EXPECT_EQ(Text(33, 5), "Nombre de archivo:");
    EXPECT_EQ(Text(33, 6), "文件名：");
}

TEST_F(ShippedCatalogue, SetsQuestionsAndCallsAsEachLanguageDoes)
{
    const std::string narrowBlank = "\u202F";
    for (const int number : NumbersInUse()) {
        for (std::int16_t language = 1; language <= 5; ++language) {
            const std::string text = Text(number, language);
            const std::size_t sign = text.find_first_of("?!");
            if (sign == std::string::npos) {
                continue;
            }
            EXPECT_EQ(sign, text.size() - 1) << text;
            const bool apart = text.substr(0, sign).ends_with(narrowBlank);
            EXPECT_EQ(apart, language == 4) << text;
            EXPECT_FALSE(text.substr(0, sign).ends_with(' ')) << text;
            const char* opening = text[sign] == '?' ? "¿" : "¡";
            EXPECT_EQ(text.starts_with(opening), language == 5) << text;
        }
        const std::string chinese = Text(number, 6);
        EXPECT_EQ(chinese.find_first_of("?!:;,."), std::string::npos) << chinese; // only wide ones
    }
}

TEST_F(ShippedCatalogue, AsksTheSameKindOfThingInEachLanguage)
{
    // A question in one language is a question in all, and so is a call.
    for (const int number : NumbersInUse()) {
        const std::string english = Text(number, 1);
        for (std::int16_t language = 2; language <= LanguageColumns; ++language) {
            const std::string text = Text(number, language);
            EXPECT_EQ(text.ends_with("?") || text.ends_with("？"), english.ends_with("?")) << text;
            EXPECT_EQ(text.ends_with("!") || text.ends_with("！"), english.ends_with("!")) << text;
            if (number != 18) { // the short form of a word
                EXPECT_EQ(text.ends_with(".") || text.ends_with("。"), english.ends_with(".")) << text;
            }
        }
    }
}

TEST_F(ShippedCatalogue, LosesNoCharacter)
{
    // Every line behind a message's number comes back whole, byte for byte.
    const std::string bytes = ShippedBytes();
    EXPECT_EQ(bytes.substr(0, 3), Mark);
    EXPECT_EQ(bytes.find("\xEF\xBF\xBD"), std::string::npos);
    std::string_view rest = bytes;
    int seen = 0;
    while (!rest.empty()) {
        const std::size_t end = rest.find("\r\n");
        ASSERT_NE(end, std::string_view::npos) << "a line without CR LF";
        const std::string line(rest.substr(0, end));
        EXPECT_EQ(line.find('\n'), std::string::npos);
        rest.remove_prefix(end + 2);
        if (line.substr(0, 2) != ">>" || line == ">>0") {
            continue;
        }
        const int number = std::stoi(line.substr(2));
        ++seen;
        for (std::int16_t language = 1; language <= LanguageColumns; ++language) {
            const std::size_t textEnd = rest.find("\r\n");
            ASSERT_NE(textEnd, std::string_view::npos);
            EXPECT_EQ(Text(number, language), rest.substr(0, textEnd)) << number;
            rest.remove_prefix(textEnd + 2);
        }
    }
    EXPECT_EQ(seen, static_cast<int>(NumbersInUse().size()));
}

TEST_F(ShippedCatalogue, IsTranslated)
{
    // Whole sentences differ in every pair of languages; Chinese holds Chinese characters.
    for (const int number : {3, 4, 32, 35, 37, 38}) {
        std::set<std::string> texts;
        for (std::int16_t language = 1; language <= LanguageColumns; ++language) {
            texts.insert(Text(number, language));
        }
        EXPECT_EQ(texts.size(), 6U) << number;
    }
    for (const int number : NumbersInUse()) {
        const std::string chinese = Text(number, 6);
        if (number != 1) {
            EXPECT_NE(chinese.find_first_of("\xE4\xE5\xE6\xE7\xE8\xE9"), std::string::npos) << number;
        }
    }
}
