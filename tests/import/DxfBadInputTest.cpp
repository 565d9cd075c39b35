// Broken drawings: whatever is left of them is read, and nothing that isn't a number gets through.
#include "DxfHelp.h"

#include "import/Korvanta_DxfIn.h"
#include "platform/TextFile.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace
{

std::string SamplerBytes(const std::string& version)
{
    std::string bytes;
    EXPECT_TRUE(ReadWholeFile(
        std::string(KORVANTA_SOURCE_DIR) + "/tests/data/dxf/sampler_" + version + ".dxf", bytes));
    return bytes;
}

void ExpectFinite(const DxfResult& result)
{
    for (const DxfRecord& record : result.Records) {
        for (const DxfPoint3* p :
             {&record.Entity.P1, &record.Entity.P2, &record.Entity.P3, &record.Entity.P4}) {
            ASSERT_TRUE(std::isfinite((*p)[0]) && std::isfinite((*p)[1]) && std::isfinite((*p)[2]));
        }
        for (const auto& v : record.Vertices) {
            ASSERT_TRUE(std::isfinite(v[0]) && std::isfinite(v[1]));
        }
    }
}

} // namespace

class DxfBroken : public testing::TestWithParam<const char*>
{
};

TEST_P(DxfBroken, CutShortGivesWhatStandsBeforeTheCut)
{
    const std::string bytes = SamplerBytes(GetParam());
    const std::size_t whole = ReadDxf(bytes).Records.size();
    std::size_t most = 0;
    for (std::size_t length = 0; length < bytes.size(); length += 7) {
        const DxfResult result = ReadDxf(std::string_view(bytes).substr(0, length));
        ExpectFinite(result);
        EXPECT_LE(result.Records.size(), whole + 1)
            << "a paper-space line cut ahead of its mark looks like any other";
        EXPECT_GE(result.Records.size() + 1, most)
            << "at " << length; // a spline cut between its lists may fall away
        most = std::max(most, result.Records.size());
    }
    EXPECT_GT(most, 20U);
}

TEST_P(DxfBroken, WithWrongBytesGivesFiniteNumbers)
{
    const std::string bytes = SamplerBytes(GetParam());
    std::mt19937 random(3);
    for (int round = 0; round < 400; ++round) {
        std::string broken = bytes;
        for (int i = 0; i < 12; ++i) {
            broken[random() % broken.size()] = static_cast<char>(random() % 256);
        }
        ExpectFinite(ReadDxf(broken));
    }
}

INSTANTIATE_TEST_SUITE_P(Versions, DxfBroken, testing::Values("R12", "R12_binary", "R2000", "R2018_binary"));

TEST(DxfAbsurd, NumbersLeaveTheirEntityOut)
{
    const DxfResult r = ReadEntities(
        "0 LINE|10 nan|20 0|11 1|21 1|0 LINE|10 0|20 0|11 1e300|21 1|0 LINE|10 0|20 0|11 inf|21 1|"
        "0 CIRCLE|10 0|20 0|40 1e39|0 ARC|10 0|20 0|40 5|50 nan|51 90|0 POINT|10 -1e11|20 0|"
        "0 LWPOLYLINE|70 0|10 0|20 0|10 1|20 nan|10 2|20 2|"
        "0 LWPOLYLINE|70 0|10 0|20 0|42 inf|10 1|20 1|0 LINE|10 0|20 0|11 7|21 8");
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_EQ(r.Records[0].Entity.P2, (DxfPoint3{7, 8, 0}));
    EXPECT_EQ(r.Account.LeftOut,
              (std::map<std::string, std::int64_t>{
                  {"LINE", 3}, {"CIRCLE", 1}, {"ARC", 1}, {"POINT", 1}, {"LWPOLYLINE", 2}}));
}

TEST(DxfAbsurd, InsertsLeaveTheirContentsOut)
{
    const std::string_view block = "0 BLOCK|2 B|0 LINE|10 1|20 1|11 2|21 2|0 CIRCLE|10 0|20 0|40 1|0 ENDBLK";
    const DxfResult r = ReadEntities(
        "0 INSERT|2 B|41 1e300|42 1e300|0 INSERT|2 B|10 nan|0 INSERT|2 B|50 inf|0 INSERT|2 B|41 0|42 0",
        block);
    ExpectFinite(r);
    EXPECT_TRUE(r.Complete);
    EXPECT_EQ(r.Account.LeftOut.at("INSERT"), 3);
    EXPECT_EQ(r.Account.Read.at("INSERT"), 1) << "shrunk to a point, still finite";
}

TEST(DxfAbsurd, TypeNamesStayPrintable)
{
    const DxfResult r = ReadEntities("0 LINE|0 \xC3\x28\x01"
                                     "BAD|0 " +
                                     std::string(500, 'X'));
    for (const auto& [name, count] : r.Account.LeftOut) {
        EXPECT_LE(name.size(), 40U);
        for (const char c : name) {
            EXPECT_TRUE(c >= ' ' && c <= '~');
        }
    }
    EXPECT_EQ(r.Account.LeftOut.at("?(?BAD"), 1);
}

TEST(DxfAbsurd, ImportsLeaveNoNumberThatIsNone)
{
    StartCase();
    const TempFolder folder;
    const std::string bytes = SamplerBytes("R2000");
    std::mt19937 random(5);
    for (int round = 0; round < 60; ++round) {
        std::string broken = bytes;
        for (int i = 0; i < 40; ++i) {
            broken[random() % broken.size()] = "0123456789.-e\n"[random() % 14];
        }
        std::string name = folder.Write("broken.dxf", broken);
        ImportDxf(name);
        for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
            const ProfileElement& e = AppState.ElementTable[static_cast<std::size_t>(i)];
            for (const double value :
                 {e.GeoA, e.GeoB, e.GeoC, e.StartX, e.StartY, e.EndX, e.EndY, e.Length}) {
                ASSERT_TRUE(std::isfinite(value));
            }
        }
    }
}
