// Nothing that the pages point at is missing, and nothing lies beside them that no page shows.
#include "ManualPages.h"
#include "support/TempFolder.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace
{
namespace fs = std::filesystem;

/// The pages of the manual, those beside it, and the front page.
std::vector<ManualPage> AllPages()
{
    std::vector<ManualPage> pages = ManualPages();
    for (const fs::directory_entry& entry : fs::directory_iterator(KORVANTA_SOURCE_DIR "/docs")) {
        if (entry.path().extension() == ".md") {
            pages.push_back(ReadPage(entry.path().string()));
        }
    }
    pages.push_back(ReadPage(KORVANTA_SOURCE_DIR "/README.md"));
    return pages;
}

bool LeadsElsewhere(const std::string& target)
{
    return target.find("://") != std::string::npos || target.starts_with("mailto:");
}

void CheckLink(const ManualPage& page, const PageLink& link)
{
    const std::string place = PlaceOf(page, link.Line) + ": " + link.Target;
    const std::size_t sign = link.Target.find('#');
    const std::string file = link.Target.substr(0, sign);
    const fs::path path = file.empty() ? fs::path(page.Path) : fs::path(page.Path).parent_path() / file;
    if (!fs::exists(path)) {
        ADD_FAILURE() << place << " is missing";
        return;
    }
    if (sign == std::string::npos) {
        return;
    }
    const std::vector<std::string> headings = ReadPage(path.string()).Headings;
    const std::string mark = link.Target.substr(sign + 1);
    EXPECT_TRUE(std::any_of(headings.begin(), headings.end(),
                            [&mark](const std::string& heading) { return HeadingMark(heading) == mark; }))
        << place << ": no such heading";
}

TEST(ManualLinks, LeadToFilesAndHeadingsThatAreThere)
{
    for (const ManualPage& page : AllPages()) {
        for (const PageLink& link : page.Links) {
            if (!LeadsElsewhere(link.Target)) {
                CheckLink(page, link);
            }
        }
    }
}

TEST(ManualLinks, AMissingTargetIsFound)
{
    const TempFolder folder;
    folder.Write("other.md", "# One\n");
    const ManualPage page = ReadPage(folder.Write("page.md", "# Two\n"));
    CheckLink(page, {"other.md#one", false, 1});
    CheckLink(page, {"#two", false, 1});
    EXPECT_NONFATAL_FAILURE(CheckLink(page, {"other.md#two", false, 1}), "no such heading");
    EXPECT_NONFATAL_FAILURE(CheckLink(page, {"gone.png", true, 1}), "missing");
}

TEST(ManualLinks, TheContentsNameEachChapterInItsOrder)
{
    std::vector<std::string> linked;
    for (const PageLink& link : ManualChapter("README.md").Links) {
        if (!link.Picture && link.Target.ends_with(".md") && link.Target.find('/') == std::string::npos) {
            linked.push_back(link.Target);
        }
    }
    EXPECT_EQ(linked, std::vector<std::string>(std::begin(ManualChapterNames), std::end(ManualChapterNames)));
    for (const ManualPage& page : ManualPages()) {
        EXPECT_TRUE(page.Name == "README.md" ||
                    std::find(linked.begin(), linked.end(), page.Name) != linked.end())
            << page.Name << " isn't in the contents";
    }
}

TEST(ManualLinks, EachPictureIsShown)
{
    std::set<fs::path> shown;
    for (const ManualPage& page : AllPages()) {
        for (const PageLink& link : page.Links) {
            shown.insert((fs::path(page.Path).parent_path() / link.Target).lexically_normal());
        }
    }
    const fs::path images = ManualFolder() + "/images";
    ASSERT_FALSE(shown.empty());
    if (!fs::exists(images)) {
        return;
    }
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(images)) {
        EXPECT_TRUE(entry.is_directory() || shown.count(entry.path().lexically_normal()) == 1)
            << entry.path() << " is on no page";
    }
}
} // namespace
