// Bytes to groups: line ends, blanks, comments, numbers, the binary forms.
#include "import/DxfScan.h"

#include "DxfHelp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace
{

DxfGroup TextGroup(std::string_view text)
{
    DxfGroup group;
    group.Code = 10;
    group.Text = text;
    return group;
}

constexpr std::string_view OneLine = "0 LINE|8 0|10 1|20 2|11 3|21 4";

void ExpectTheLine(const DxfResult& result)
{
    ASSERT_TRUE(result.Opened);
    ASSERT_EQ(result.Records.size(), 1U);
    const DxfEntity& e = result.Records[0].Entity;
    EXPECT_EQ(e.Kind, DxfLine);
    EXPECT_EQ(e.P1, (DxfPoint3{1, 2, 0}));
    EXPECT_EQ(e.P2, (DxfPoint3{3, 4, 0}));
}

/// A binary drawing, group by group.
struct BinaryText {
    bool Wide = true;
    std::string Bytes = std::string("Foreign Binary DXF\r\n\x1a\0", 22);

    void Code(int code)
    {
        if (!Wide && code >= 255) {
            Bytes += '\xFF';
        }
        Bytes += static_cast<char>(code & 0xFF);
        if (Wide || code >= 255) {
            Bytes += static_cast<char>(code >> 8);
        }
    }
    void Text(int code, std::string_view text)
    {
        Code(code);
        Bytes.append(text);
        Bytes += '\0';
    }
    void Double(int code, double value)
    {
        Code(code);
        char raw[8];
        std::memcpy(raw, &value, sizeof raw);
        Bytes.append(raw, sizeof raw);
    }
    void Integer(int code, int value, int width)
    {
        Code(code);
        for (int i = 0; i < width; ++i) {
            Bytes += static_cast<char>(value >> (8 * i) & 0xFF);
        }
    }
};

void AddBinaryLine(BinaryText& text)
{
    text.Text(0, "SECTION");
    text.Text(2, "ENTITIES");
    text.Text(0, "LINE");
    text.Integer(62, -3, 2);
    text.Double(10, 1.0);
    text.Double(20, 2.0);
    text.Double(11, 3.0);
    text.Double(21, 4.0);
    text.Text(1001, "APP");
    text.Integer(1071, 70000, 4);
    text.Double(1040, 5.0);
    text.Code(1004);
    text.Bytes += std::string("\x03\x00\x0A\x00", 4);
    text.Text(0, "ENDSEC");
    text.Text(0, "EOF");
}

} // namespace

TEST(DxfNumber, TakesTheFormsThatWritersUse)
{
    struct Row {
        const char* Text;
        double Value;
    };
    const Row rows[] = {{"1.", 1.0},
                        {".5", 0.5},
                        {"-.5", -0.5},
                        {"1e-3", 0.001},
                        {"1E+2", 100.0},
                        {" 12 ", 12.0},
                        {"\t7\t", 7.0},
                        {"+1.25", 1.25},
                        {"1,5", 1.0},
                        {"12abc", 12.0},
                        {"", 0.0},
                        {"abc", 0.0},
                        {"-", 0.0},
                        {".", 0.0},
                        {"1e", 1.0},
                        {"123.4567890123456", 123.4567890123456},
                        {"0.1234567890123456789", 0.1234567890123456789},
                        {"123456789012345678901234567890", 123456789012345678901234567890.0},
                        {"-0.30000000000000004", -0.30000000000000004},
                        {"4503599627370497.5", 4503599627370497.5},
                        {"1e-400", 0.0},
                        {"100000000000000000000000.", 1e23}};
    for (const Row& row : rows) {
        EXPECT_EQ(GroupNumber(TextGroup(row.Text)), row.Value) << row.Text;
    }
}

TEST(DxfNumber, KnowsWhatIsNone)
{
    for (const char* text :
         {"nan", "-nan", "NaN", "inf", "-inf", "Infinity", "1.#QNAN", "-1.#IND", "1.#INF", "1e999"}) {
        EXPECT_TRUE(std::isnan(GroupNumber(TextGroup(text)))) << text;
        EXPECT_EQ(GroupInteger(TextGroup(text)), 0) << text;
    }
    EXPECT_EQ(GroupInteger(TextGroup("99999999999")), 2147483647);
    EXPECT_EQ(GroupInteger(TextGroup("-99999999999")), -2147483647 - 1);
}

TEST(DxfScan, TakesAnyLineEnd)
{
    const std::string_view drawing = "0 SECTION|2 ENTITIES|0 LINE|10 1|20 2|11 3|21 4|0 ENDSEC|0 EOF";
    for (const char* lineEnd : {"\n", "\r\n", "\r", "\r\r\n"}) {
        ExpectTheLine(ReadDxf(Groups(drawing, lineEnd)));
    }
    ExpectTheLine(ReadDxf("0\nSECTION\r\n2\rENTITIES\n0\r\nLINE\n10\r1\r\n20\r\n2\n11\n3\r21\r4\r\n0\nEOF"));
}

TEST(DxfScan, TakesBlanksMarksAndNoLastLineEnd)
{
    ExpectTheLine(
        ReadDxf("\xEF\xBB\xBF  0\nSECTION\n  2  \nENTITIES\n\t0\n LINE \n 10\n 1 \n 20\n2\n 11\n3\n 21\n4"));
}

TEST(DxfScan, PassesOverCommentsAnywhere)
{
    ExpectTheLine(
        ReadDxf(Groups("999 head|0 SECTION|999 0|2 ENTITIES|999 LINE|0 LINE|10 1|999 between|20 2|11 3|"
                       "999 nearly done|21 4|999 x|0 ENDSEC|999 y|0 EOF|999 z")));
}

TEST(DxfScan, FindsItsStepAgainBehindALineThatIsNoCode)
{
    ExpectTheLine(ReadDxf(
        "junk\n0\nSECTION\n2\nENTITIES\n0\nLINE\nwhat\n8\nlayer\n\n10\n1\n20\n2\n11\n3\n21\n4\n0\nEOF\n"));
}

TEST(DxfScan, ReadsBothBinaryForms)
{
    for (const bool wide : {false, true}) {
        BinaryText text;
        text.Wide = wide;
        AddBinaryLine(text);
        ExpectTheLine(ReadDxf(text.Bytes));
        BinaryText commented;
        commented.Wide = wide;
        commented.Text(999, "a comment first");
        AddBinaryLine(commented);
        ExpectTheLine(ReadDxf(commented.Bytes));
    }
}

TEST(DxfScan, EndsABinaryDrawingAtACodeOfUnknownLength)
{
    BinaryText text;
    text.Text(0, "SECTION");
    text.Text(2, "ENTITIES");
    text.Text(0, "POINT");
    text.Double(10, 1.0);
    text.Double(20, 2.0);
    text.Text(0, "POINT");
    text.Double(10, 3.0);
    text.Integer(88, 1, 2);
    text.Double(20, 4.0);
    const DxfResult result = ReadDxf(text.Bytes);
    ASSERT_EQ(result.Records.size(), 2U);
    EXPECT_EQ(result.Records[1].Entity.P1, (DxfPoint3{3, 0, 0}));
}

TEST(DxfScan, LeavesOutBinaryNumbersThatAreNone)
{
    BinaryText text;
    text.Text(0, "SECTION");
    text.Text(2, "ENTITIES");
    text.Text(0, "POINT");
    text.Double(10, std::nan(""));
    text.Double(20, 2.0);
    text.Text(0, "POINT");
    text.Double(10, 1.0);
    text.Double(20, HUGE_VAL);
    const DxfResult result = ReadDxf(text.Bytes);
    EXPECT_TRUE(result.Opened);
    EXPECT_TRUE(result.Records.empty());
    EXPECT_EQ(result.Account.LeftOut.at("POINT"), 2);
}

TEST(DxfScan, ReadsADrawingThatIsAllEntities)
{
    ExpectTheLine(ReadDxf(Groups(std::string("0 SECTION|2 ENTITIES|") + std::string(OneLine))));
    ExpectTheLine(ReadDxf(Groups(OneLine)));
    ExpectTheLine(
        ReadDxf(Groups(std::string("0 SECTION|2 HEADER|9 $INSUNITS|70 4|0 ENDSEC|0 SECTION|2 ENTITIES|") +
                       std::string(OneLine))));
}

TEST(DxfScan, RefusesWhatIsNoDrawing)
{
    EXPECT_FALSE(ReadDxf("").Opened);
    EXPECT_FALSE(ReadDxf("hello\nworld\n").Opened);
    EXPECT_FALSE(ReadDxf("%\nO1000\nN10 G0 X0 Y0\nM30\n%\n").Opened);
    EXPECT_FALSE(ReadDxf(std::string("AC1015\0\0\0\0\0\0", 12)).Opened);
    EXPECT_FALSE(ReadDxf(std::string(1000, '\0')).Opened);
    EXPECT_FALSE(ReadDxf("0\n12\n0\n13\n").Opened);
    EXPECT_TRUE(ReadDxf("0\nEOF\n").Opened) << "an empty drawing is one";
}
