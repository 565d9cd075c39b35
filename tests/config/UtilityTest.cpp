#include "config/Korvanta_Utility.h"

#include "platform/Fault.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

namespace
{
constexpr double Largest = std::numeric_limits<double>::max();

struct NumberCase {
    const char* Text;
    double Value;
};

constexpr NumberCase NumberCases[] = {
    {"", 0.0},
    {"12", 12.0},
    {"12.5", 12.5},
    {"-12.5", -12.5},
    {"+12.5", 12.5},
    {" \t 12.5", 12.5},
    {"1.", 1.0},
    {".5", 0.5},
    {"-.5", -0.5},
    {".", 0.0},
    {"-", 0.0},
    {"--5", 0.0},
    {"- 5", 0.0},
    {"+-5", 0.0},
    {"12abc", 12.0},
    {"12 34", 12.0},
    {"1.5.3", 1.5},
    {"1,5", 1.0},
    {"abc", 0.0},
    {"1e3", 1000.0},
    {"1E3", 1000.0},
    {"1e-3", 0.001},
    {"1e+3", 1000.0},
    {"2e", 2.0},
    {"2e+", 2.0},
    {"2e-x", 2.0},
    {"2 e3", 2.0},
    {"1d3", 1.0},
    {"e3", 0.0},
    {"0x10", 0.0},
    {"inf", 0.0},
    {"-inf", 0.0},
    {"nan", 0.0},
    {"\n5", 0.0},
    {"007", 7.0},
    {"1e308", 1e308},
    {"1e309", Largest},
    {"-1e309", -Largest},
    {"1e999999999999999999999", Largest},
    {"1e-999999999999999999999", 0.0},
    {"-1e-400", 0.0},
    {"0e999999999", 0.0},
    {"0.0000e999999999", 0.0},
    {"4.9406564584124654e-324", 5e-324},
};
} // namespace

TEST(TextToNumber, ReadsTheLeadingNumber)
{
    StartCase();
    for (const NumberCase& c : NumberCases) {
        EXPECT_EQ(TextToNumber(c.Text), c.Value) << '"' << c.Text << '"';
    }
    EXPECT_FALSE(std::signbit(TextToNumber("-0")));
    EXPECT_EQ(TextToNumber(std::string_view("1\0002", 3)), 1.0);
}

TEST(TextToNumber, TakesDigitsWithoutEnd)
{
    StartCase();
    const std::string zeros(100'000, '0');
    EXPECT_EQ(TextToNumber("1" + zeros), Largest);
    EXPECT_EQ(TextToNumber("-1" + zeros + ".5"), -Largest);
    EXPECT_EQ(TextToNumber("0." + zeros + "1"), 0.0);
    EXPECT_EQ(TextToNumber(zeros + "5"), 5.0);
    EXPECT_EQ(TextToNumber("1" + zeros + "e-100000"), 1.0);
    EXPECT_EQ(TextToNumber("0." + zeros + "1e100001"), 1.0);
    EXPECT_EQ(TextToNumber("0." + zeros + "1e100320"), Largest);
}

TEST(TextToNumber, KeepsThePointInEveryLocale)
{
    StartCase();
    // Machines without the German locale still run the case with the plain one.
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(TextToNumber("1.5"), 1.5);
    EXPECT_EQ(FormatNumber(1.5, 1, -3), "1.500");
    EXPECT_EQ(NumberText(1.5), " 1.5");
    std::setlocale(LC_ALL, "C");
}

TEST(WholeNumbers, RoundTiesAwayFromZero)
{
    StartCase();
    EXPECT_EQ(RoundToInt16(2.5, "x"), 3);
    EXPECT_EQ(RoundToInt16(-2.5, "x"), -3);
    EXPECT_EQ(RoundToInt16(2.4999, "x"), 2);
    EXPECT_EQ(RoundToInt16(0.49999999999999994, "x"), 0);
    EXPECT_EQ(RoundToInt32(-0.5, "x"), -1);
    EXPECT_EQ(RoundToInt32(70000.5, "x"), 70001);
}

TEST(WholeNumbers, CutTowardsZero)
{
    StartCase();
    EXPECT_EQ(CutToInt16(2.99, "x"), 2);
    EXPECT_EQ(CutToInt16(-2.99, "x"), -2);
    EXPECT_EQ(CutToInt32(-70000.9, "x"), -70000);
}

TEST(WholeNumbers, BeyondTheWidthIsAFaultThatNamesTheValue)
{
    StartCase();
    EXPECT_EQ(RoundToInt16(32767.4, "x"), 32767);
    EXPECT_THROW(RoundToInt16(32767.5, "x"), RunTimeFault);
    EXPECT_EQ(CutToInt16(32767.9, "x"), 32767);
    EXPECT_THROW(CutToInt16(32768.0, "x"), RunTimeFault);
    EXPECT_EQ(CutToInt16(-32768.9, "x"), -32768);
    EXPECT_THROW(CutToInt16(-32769.0, "x"), RunTimeFault);
    EXPECT_EQ(CutToInt32(2147483647.9, "x"), 2147483647);
    EXPECT_THROW(CutToInt32(2147483648.0, "x"), RunTimeFault);
    EXPECT_THROW(RoundToInt32(-2147483648.5, "x"), RunTimeFault);
    EXPECT_THROW(RoundToInt32(std::nan(""), "x"), RunTimeFault);
    EXPECT_THROW(CutToInt16(std::numeric_limits<double>::infinity(), "x"), RunTimeFault);
    try {
        RoundToInt16(40000.0, "RAPID step");
        FAIL() << "no fault";
    } catch (const RunTimeFault& fault) {
        EXPECT_STREQ(fault.what(), "RAPID step: 40000 is beyond the range of 16 bits");
    }
}

TEST(WholeNumbers, OfFieldsAreClamped)
{
    StartCase();
    EXPECT_EQ(RoundAndClampToInt16(40000.0), 32767);
    EXPECT_EQ(RoundAndClampToInt16(-1e300), -32768);
    EXPECT_EQ(RoundAndClampToInt16(2.5), 3);
    EXPECT_EQ(RoundAndClampToInt16(std::nan("")), 0);
    EXPECT_EQ(RoundAndClampToInt32(1e10), 2147483647);
    EXPECT_EQ(RoundAndClampToInt32(-2.5), -3);
    EXPECT_EQ(CutAndClampToInt32(-2.9), -2);
    EXPECT_EQ(CutAndClampToInt32(-1e10), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(CutAndClampToInt32(std::nan("")), 0);
}

TEST(Texts, AreTrimmedOfBlanksOnly)
{
    StartCase();
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\t a\t"), "\t a\t");
    EXPECT_EQ(ZeroTerminated(std::string_view("  YES \0 more", 12)), "YES");
    EXPECT_EQ(ZeroTerminated("  YES "), "YES");
    EXPECT_EQ(ZeroTerminated(std::string_view("\0YES", 4)), "");
}

TEST(Texts, ChangeTheCaseOfPlainLettersOnly)
{
    StartCase();
    EXPECT_EQ(UpperCase("azAZ09\xC3\xA4"), "AZAZ09\xC3\xA4");
    EXPECT_EQ(LowerCase("azAZ09\xC3\x84"), "azaz09\xC3\x84");
    EXPECT_TRUE(Contains("NOYES", "YES"));
    EXPECT_FALSE(Contains("NOyes", "YES"));
    EXPECT_FALSE(Contains("", "YES"));
}

TEST(Texts, BaseNameCutsFoldersAndExtension)
{
    StartCase();
    EXPECT_EQ(BaseName("C:\\A\\JOB.NST", "."), "JOB");
    EXPECT_EQ(BaseName("JOB", "."), "JOB");
    EXPECT_EQ(BaseName("C:\\A.B\\JOB", "."), "JOB");
    EXPECT_EQ(BaseName("C:\\A\\Job.Nst", ".nst"), "Job");
    EXPECT_EQ(BaseName("JOB.NST", ".nst"), "JOB");
    EXPECT_EQ(BaseName("JOB.DXF", ".nst"), "JOB.DXF");
    EXPECT_EQ(BaseName("A.B.C", "."), "A");
    EXPECT_EQ(BaseName(".HIDDEN", "."), "");
    EXPECT_EQ(BaseName("C:\\A\\", "."), "");
    EXPECT_EQ(BaseName("", "."), "");
    EXPECT_EQ(BaseName("/home/op/parts/JOB.DXF", "."), "JOB");
    EXPECT_EQ(BaseName("A\\B/C.nst", "."), "C");
}

TEST(Texts, DashesBecomeUnderscores)
{
    StartCase();
    EXPECT_EQ(DashToUnderscore("R-01"), "R_01");
    EXPECT_EQ(DashToUnderscore("--"), "__");
    EXPECT_EQ(DashToUnderscore("R_01"), "R_01");
}

TEST(Numbers, RadiansAndSwap)
{
    StartCase();
    EXPECT_EQ(ToRadians(180.0), 3.14159265358979);
    EXPECT_EQ(ToRadians(-90.0), -3.14159265358979 / 2.0);
    EXPECT_EQ(ToRadians(0.0), 0.0);
    double a = 1.0;
    double b = 2.0;
    SwapValues(a, b);
    EXPECT_EQ(a, 2.0);
    EXPECT_EQ(b, 1.0);
}

TEST(Windows, AreFoundByAPartOfTheirTitle)
{
    StartCase();
    EXPECT_EQ(FindWindowByTitle("Korvanta"), 0) << "an empty desktop";
    Screen.Windows = {
        {11, ""}, {12, "korvanta"}, {13, "Notes on Korvanta.txt - Editor"}, {14, "Korvanta V2.28"}};
    EXPECT_EQ(FindWindowByTitle("Korvanta"), 13) << "anywhere in any title; the first one counts";
    EXPECT_EQ(FindWindowByTitle("  Korvanta V2 "), 14) << "the text is trimmed";
    EXPECT_EQ(FindWindowByTitle("KORVANTA"), 0) << "case counts";
    EXPECT_EQ(FindWindowByTitle(""), 12) << "a window without a title never counts";
}

TEST(Windows, AreReadUpToTheirLongestTitle)
{
    StartCase();
    const std::string blanks(247, ' ');
    Screen.Windows = {{1, blanks + " Korvanta"}, {2, blanks + "Korvanta"}};
    EXPECT_EQ(FindWindowByTitle("Korvanta"), 2) << "247 + 8 = 255 characters, one more is cut";
    std::string wide;
    for (int i = 0; i < 247; ++i) {
        wide += "\u00E9";
    }
    Screen.Windows = {{3, wide + "Korvanta"}};
    EXPECT_EQ(FindWindowByTitle("Korvanta"), 3) << "characters count, not bytes";
}
