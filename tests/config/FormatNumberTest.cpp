// Number text: values worked out by hand, then the fast routine against the plain one.
#include "config/Korvanta_Utility.h"
#include "config/PlainFormatNumber.h"
#include "platform/Fault.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace
{
struct FormatCase {
    const char* Name;
    double Value;
    std::int16_t Width;
    std::int16_t Decimals;
    const char* Text;
};

constexpr FormatCase FormatCases[] = {
    // name                             value       width decimals text
    {"whole", 10.0, 0, 2, "10"},
    {"one place", 10.5, 0, 2, "10.5"},
    {"zero", 0.0, 0, 2, "0"},
    {"minus zero", -0.0, 0, 2, "0"},
    {"minus zero, fixed", -0.0, 1, -3, "0.000"},
    {"half below zero", -0.5, 0, 2, "-0.5"},
    {"fixed places", 1.5, 0, -3, "1.500"},
    {"zeros ahead", 7.0, -4, 2, "0007"},
    {"blanks ahead", 7.0, 4, 2, "   7"},
    {"wide enough", 12345.0, 4, 2, "12345"},
    {"zeros ahead of a minus sign", -5.0, -4, 2, "00-5"},
    {"blanks ahead of a minus sign", -5.5, 4, 2, "  -5.5"},
    {"below the last place", 0.001, 0, 2, "0"},
    {"below the last place, negative", -0.004, 0, 2, "-0"},
    {"cut", 1.234, 0, 2, "1.23"},
    {"cut, not rounded", 1.235, 0, 2, "1.23"},
    {"cut, not rounded to nearest", 1.238, 0, 2, "1.23"},
    {"a nine carries", 1.239, 0, 2, "1.24"},
    {"a nine carries far", 9.999, 0, 2, "10"},
    {"a nine carries below zero", -1.239, 0, 2, "-1.24"},
    {"a nine carries to one", 0.999, 0, 2, "1"},
    {"a nine carries to minus one", -0.999, 0, 2, "-1"},
    {"a nine after the next place only", 1.2389, 0, 2, "1.23"},
    {"trailing zeros go one by one", 2.5, 0, 3, "2.5"},
    {"trailing zero after the cut", 1.2031, 0, 2, "1.2"},
    {"one place at most", 3.14, 1, 1, "3.1"},
    {"one place at most, carried", 3.19, 1, 1, "3.2"},
    {"one place at most, whole", 3.0, 1, 1, "3"},
    {"one place exactly", 3.0, 1, -1, "3.0"},
    {"one place exactly, cut", 3.18, 1, -1, "3.1"},
    {"no decimals", 3.85, 1, 0, "3"},
    {"no decimals, a nine carries", 3.95, 1, 0, "4"},
    {"no decimals, negative", -3.85, 1, 0, "-3"},
    {"no decimals, below one", 0.5, 1, 0, "0"},
    {"no decimals, below minus zero", -0.5, 1, 0, "-0"},
    {"no decimals, nearly one", 0.9, 1, 0, "1"},
    {"program number", 123.4567, 1, -3, "123.456"},
    {"program number, a nine carries", 123.4569, 1, -3, "123.457"},
    {"program number, whole", 100.0, 1, -3, "100.000"},
    {"program number, tiny", 1e-12, 1, -3, "0.000"},
    {"program number, tiny negative", -1e-12, 1, -3, "-0.000"},
    {"noise of a sum", 0.1 + 0.2, 1, -3, "0.300"},
    {"noise below a whole", 2.9999999999, 1, -3, "3.000"},
    {"fifteen digits round up", 0.9999999999999999, 0, 2, "1"},
    {"small, spelled out", 1.5e-5, 0, 6, "0.000015"},
    {"small, spelled out, negative", -1.5e-5, 0, 6, "-0.000015"},
    {"small, one digit", 2e-5, 0, 6, "0.00002"},
    {"small, one digit, fixed", 2e-5, 0, -7, "0.0000200"},
    {"small, cut", 1.5e-5, 0, 2, "0"},
    {"four zeros are no exponent yet", 0.0001, 0, 4, "0.0001"},
    {"a large whole", 123456789012.0, 0, 2, "123456789012"},
    {"a large number", 123456789.129, 0, 2, "123456789.13"},
    {"fifteen digits", 999999999999999.0, 0, 2, "999999999999999"},
    {"large exponent stays", 1e20, 0, 2, "1E+20"},
    {"large exponent, cut after two characters", 1.25e20, 0, 2, "1.25"},
    {"large exponent, letter kept", 1.5e20, 0, 2, "1.5E"},
    {"wide", 1.5, -6, -2, "000001.50"},
};
} // namespace

TEST(FormatNumber, GivesTheTextsWorkedOutByHand)
{
    StartCase();
    for (const FormatCase& c : FormatCases) {
        EXPECT_EQ(FormatNumber(c.Value, c.Width, c.Decimals), c.Text) << c.Name;
        EXPECT_EQ(PlainFormatNumber(c.Value, c.Width, c.Decimals), c.Text) << c.Name << " (plain)";
        std::string line = "X";
        AppendNumber(line, c.Value, c.Width, c.Decimals);
        EXPECT_EQ(line, std::string("X") + c.Text) << c.Name;
    }
}

TEST(FormatNumber, WithoutArgumentsGivesTwoPlacesAtMost)
{
    StartCase();
    EXPECT_EQ(FormatNumber(12.345), "12.34");
    EXPECT_EQ(FormatNumber(12.0), "12");
}

TEST(FormatNumber, WidestArgumentsArePadded)
{
    StartCase();
    EXPECT_EQ(FormatNumber(1.0, -32768, 0), std::string(32767, '0') + "1");
    EXPECT_EQ(FormatNumber(0.5, 0, -32768), "0.5" + std::string(32767, '0'));
}

TEST(FormatNumber, RefusesWhatIsNoNumber)
{
    StartCase();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {std::nan(""), infinity, -infinity}) {
        std::string line = "X";
        EXPECT_THROW(AppendNumber(line, value, 1, -3), RunTimeFault);
        EXPECT_EQ(line, "X");
        EXPECT_THROW(FormatNumber(value), RunTimeFault);
        EXPECT_THROW(NumberText(value), RunTimeFault);
        EXPECT_THROW(PlainNumber(value), RunTimeFault);
    }
}

TEST(NumberText, GivesFifteenDigitsAndTheExponentForms)
{
    StartCase();
    EXPECT_EQ(NumberText(0.0), " 0");
    EXPECT_EQ(NumberText(-0.0), " 0");
    EXPECT_EQ(NumberText(5.0), " 5");
    EXPECT_EQ(NumberText(-5.25), "-5.25");
    EXPECT_EQ(NumberText(0.5), " .5");
    EXPECT_EQ(NumberText(-0.5), "-.5");
    EXPECT_EQ(NumberText(0.0001), " .0001");
    EXPECT_EQ(NumberText(0.00001), " 1E-05");
    EXPECT_EQ(NumberText(0.000015), " 1.5E-05");
    EXPECT_EQ(NumberText(-1e-100), "-1E-100");
    EXPECT_EQ(NumberText(999999999999999.0), " 999999999999999");
    EXPECT_EQ(NumberText(1e15), " 1E+15");
    EXPECT_EQ(NumberText(999999999999999.5), " 1E+15");
    EXPECT_EQ(NumberText(1234567890123456.0), " 1.23456789012346E+15");
    EXPECT_EQ(NumberText(1.0 / 3.0), " .333333333333333");
    EXPECT_EQ(NumberText(2.0 / 3.0), " .666666666666667");
    EXPECT_EQ(NumberText(0.1 + 0.2), " .3");
    EXPECT_EQ(NumberText(1e300), " 1E+300");
    EXPECT_EQ(PlainNumber(0.5), ".5");
    EXPECT_EQ(PlainNumber(-0.5), "-.5");
    EXPECT_EQ(PlainNumber(99999.0), "99999");
}

namespace
{
struct Places {
    std::int16_t Width;
    std::int16_t Decimals;
};

/// Every pair that the program asks for, and their neighbours.
constexpr Places PlacesInUse[] = {{0, 2},  {1, 2},  {1, 1},  {1, 0},  {1, -1}, {1, -3}, {0, 3},  {4, 2},
                                  {4, -3}, {-4, 0}, {-4, 2}, {0, -2}, {3, 4},  {0, 5},  {0, -6}, {0, 15}};

/// One number of each kind that is likely to stand at the edge of a digit.
double NumberAtRisk(std::mt19937_64& random)
{
    const auto integer = [&random](std::int64_t limit) {
        return static_cast<double>(
            static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(2 * limit + 1)) - limit);
    };
    const auto step = [&random](double value) {
        const auto ulps = static_cast<int>(random() % 9) - 4;
        for (int i = 0; i < std::abs(ulps); ++i) {
            value = std::nextafter(value, ulps > 0 ? 1e308 : -1e308);
        }
        return value;
    };
    switch (random() % 9) {
    case 0:
        return integer(20'000'000) * 0.0005;
    case 1:
        return integer(1'000'000) + integer(100) * 1e-7;
    case 2:
        return step(integer(100'000'000) / 10000.0);
    case 3:
        return step(integer(1'000'000) / 1000.0 - 0.0001);
    case 4:
        return std::ldexp(integer(1'000'000'000), static_cast<int>(random() % 60) - 50);
    case 5:
        return integer(100) * std::pow(10.0, static_cast<double>(random() % 40) - 25.0);
    case 6:
        return step(std::pow(10.0, static_cast<double>(random() % 25) - 8.0));
    case 7:
        return integer(1'000'000'000) / 1e6;
    default: {
        const double any = std::bit_cast<double>(random());
        return std::isfinite(any) ? any : 0.0;
    }
    }
}
} // namespace

TEST(FormatNumber, EqualsThePlainAlgorithmEverywhere)
{
    StartCase();
    std::mt19937_64 random(20260731);
    for (int i = 0; i < 3'000'000; ++i) {
        const double value = NumberAtRisk(random);
        const Places places = PlacesInUse[random() % std::size(PlacesInUse)];
        const std::string plain = PlainFormatNumber(value, places.Width, places.Decimals);
        ASSERT_EQ(FormatNumber(value, places.Width, places.Decimals), plain)
            << "value " << PlainNumberText(value) << " bits " << std::bit_cast<std::uint64_t>(value)
            << " width " << places.Width << " decimals " << places.Decimals;
    }
}

TEST(FormatNumber, AppendsToWhatIsThere)
{
    StartCase();
    std::string line;
    AppendNumber(line, 1.5, 1, -3);
    line += ' ';
    AppendNumber(line, -0.25, 1, -3);
    line += ' ';
    AppendNumber(line, 1e12, 1, -3);
    EXPECT_EQ(line, "1.500 -0.250 1000000000000.000");
}

TEST(NumberText, EqualsThePlainOneAndReadsBack)
{
    StartCase();
    std::mt19937_64 random(4711);
    for (int i = 0; i < 300'000; ++i) {
        const double value = NumberAtRisk(random);
        const std::string text = NumberText(value);
        ASSERT_EQ(text, PlainNumberText(value));
        // Fifteen digits: what is read back is within half a unit of the fifteenth.
        const double back = TextToNumber(text);
        ASSERT_LE(std::fabs(back - value), std::fabs(value) * 5.1e-15 + 5e-324) << text;
    }
}
