// The bytes of one record of a .drw.
#include "jobfiles/DrawingRecord.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace
{
std::string Empty()
{
    return std::string(DrawingRecordSize, '\0');
}

TEST(DrawingRecord, HasItsProfileAtTheseOffsets)
{
    ProfileRecord r;
    r.Status = 2;
    r.LeadInLength = 1.0; // 3F F0 00 00 00 00 00 00 from its high byte
    r.LeadInLineOn = FlagOn;
    r.LeadInArcOn = FlagOn;
    r.LeadOutLineOn = 3;
    r.LeadOutArcOn = 4;
    r.RecordNumber = 0x0102;
    r.LeadElement = 0x7FFE;
    r.ProfileLength = 2.0;
    r.LeadPosition = -2.0;
    r.Side = 1.0;
    r.CornerSnap = FlagOn;
    r.Spare2 = 0.5;
    std::string expected = Empty();
    const auto put = [&expected](std::size_t at, const std::string& bytes) {
        expected.replace(at, bytes.size(), bytes);
    };
    const std::string one("\0\0\0\0\0\0\xF0\x3F", 8);
    put(0, std::string("\x04\x03\x02\x01", 4));
    put(4, std::string("\2\0", 2));
    put(6, one);                     // lead-in length
    put(22, "\xFF\xFF");             // line of the lead-in: behind length and angle
    put(40, "\xFF\xFF");             // arc of the lead-in
    put(58, std::string("\3\0", 2)); // line of the lead-out
    put(76, std::string("\4\0", 2)); // arc of the lead-out
    put(78, "\2\1");                 // number
    put(80, "\xFE\x7F");             // element of the lead
    put(82, std::string("\0\0\0\0\0\0\0\x40", 8));
    put(90, std::string("\0\0\0\0\0\0\0\xC0", 8));
    put(98, one);
    put(114, "\xFF\xFF");
    put(116, std::string("\0\0\0\0\0\0\xE0\x3F", 8));
    std::string record = Empty();
    PackCount(record.data(), ProfileCountAt, 0x01020304);
    PackProfile(record.data(), r);
    EXPECT_EQ(record, expected);
    EXPECT_EQ(116 + 8, static_cast<int>(ElementCountAt));
}

TEST(DrawingRecord, HasItsElementAtTheseOffsets)
{
    ProfileElement e;
    e.GeoA = 1.0;
    e.GeoB = 2.0;
    e.GeoC = -2.0;
    e.Kind = 9;
    e.StartX = 1.0;
    e.StartY = 2.0;
    e.EndX = -2.0;
    e.EndY = 0.5;
    e.Length = 1.0;
    e.Sense = -1;
    e.Closing = 1;
    const std::string one("\0\0\0\0\0\0\xF0\x3F", 8);
    const std::string two("\0\0\0\0\0\0\0\x40", 8);
    const std::string minusTwo("\0\0\0\0\0\0\0\xC0", 8);
    const std::string half("\0\0\0\0\0\0\xE0\x3F", 8);
    std::string expected = Empty();
    const std::string element = one + two + minusTwo + std::string("\x09\0", 2) + one + two + minusTwo +
                                half + one + "\xFF\xFF" + std::string("\1\0", 2);
    ASSERT_EQ(element.size(), 70U);
    expected.replace(124, 74, std::string("\xFF\0\0\0", 4) + element);
    ASSERT_EQ(expected.size(), 198U);
    std::string record = Empty();
    PackCount(record.data(), ElementCountAt, 255);
    PackElement(record.data(), e);
    EXPECT_EQ(record, expected);
}

TEST(DrawingRecord, ComesBackFromAnyBytes)
{
    std::mt19937 random(20);
    for (int round = 0; round < 500; ++round) {
        std::string bytes = Empty();
        for (char& c : bytes) {
            c = static_cast<char>(random());
        }
        std::string again = Empty();
        PackCount(again.data(), ProfileCountAt, UnpackCount(bytes, ProfileCountAt));
        PackProfile(again.data(), UnpackProfile(bytes));
        PackCount(again.data(), ElementCountAt, UnpackCount(bytes, ElementCountAt));
        PackElement(again.data(), UnpackElement(bytes));
        ASSERT_EQ(again, bytes) << round;
    }
}
} // namespace
