// What the page of the leads says about shapes as a whole.
#include "manual/ManualPages.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Develop.h"
#include "shapes/Korvanta_Parameters.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <string>

namespace
{
/// The names that the page lists behind "Outlines that never jump:", "C-01 to C-03" being three.
std::set<std::string> OutlinesThatNeverJump()
{
    std::set<std::string> names;
    std::ifstream page(ManualFolder() + "/05-leads.md");
    const std::string head = "Outlines that never jump: ";
    for (std::string line; std::getline(page, line);) {
        if (!line.starts_with(head)) {
            continue;
        }
        const std::string list = line.substr(head.size(), line.find('.') - head.size());
        const std::regex entry("([RCH])-([0-9]{2})(?: to [RCH]-([0-9]{2}))?");
        for (std::sregex_iterator at(list.begin(), list.end(), entry), end; at != end; ++at) {
            const int first = std::stoi((*at)[2]);
            const int last = (*at)[3].matched ? std::stoi((*at)[3]) : first;
            for (int number = first; number <= last; ++number) {
                names.insert((*at)[1].str() + (number < 10 ? "-0" : "-") + std::to_string(number));
            }
        }
    }
    return names;
}

void Develop(const ShapeRow& row)
{
    StartCase();
    AppState.ShapeId = row.ShapeId;
    ShowShapeParameters(row.ShapeId, FlagOn);
    std::int16_t err = 0;
    DevelopShape(err);
    ASSERT_EQ(err, 0) << row.Name;
}

bool Jumps(std::int32_t profile)
{
    return AppState.ProfileTable.at(static_cast<std::size_t>(profile)).CornerSnap != FlagOff;
}
} // namespace

TEST(LeadsPage, ListsTheOutlinesThatNeverJump)
{
    const std::set<std::string> listed = OutlinesThatNeverJump();
    EXPECT_EQ(listed.size(), 23U);
    for (const ShapeRow& row : ShapeCatalogue()) {
        Develop(row);
        EXPECT_EQ(listed.count(row.Name) == 1, !Jumps(AppState.ProfileCount)) << row.Name;
    }
}

/// All inner contours of the shapes never jump, but the slot with a square end.
TEST(LeadsPage, HolesOfShapesNeverJumpButOne)
{
    for (const ShapeRow& row : ShapeCatalogue()) {
        Develop(row);
        for (std::int32_t profile = 1; profile < AppState.ProfileCount; ++profile) {
            const bool open = AppState.ElementTable[static_cast<std::size_t>(EndMarkOf(profile))].GeoB == 0.0;
            EXPECT_EQ(Jumps(profile), open || std::string(row.Name) == "C-10") << row.Name << " " << profile;
        }
    }
}
