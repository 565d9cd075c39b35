// The reader of the pages itself, on a page that the case writes.
#include "ManualPages.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{
TEST(ManualReader, ReadsBlocksLinksAndPictures)
{
    const TempFolder folder;
    const ManualPage page = ReadPage(folder.Write("page.md", "# A page: one\n"
                                                             "See [keys](02-keys.md#zoom) and `[no](link)`.\n"
                                                             "\n"
                                                             "[![the window](images/a.png)](b.md)\n"
                                                             "```sh\n"
                                                             "echo [no](link)\n"
                                                             "# no heading\n"
                                                             "```\n"
                                                             "```nc PROGRAM/A 1.nc\r\n"
                                                             "G0\r\n"
                                                             "```\r\n"));
    EXPECT_EQ(page.Name, "page.md");
    ASSERT_EQ(page.Headings.size(), 1U);
    EXPECT_EQ(page.Headings[0], "A page: one");
    ASSERT_EQ(page.Links.size(), 3U);
    EXPECT_EQ(page.Links[0].Target, "02-keys.md#zoom");
    EXPECT_FALSE(page.Links[0].Picture);
    EXPECT_EQ(page.Links[1].Target, "images/a.png");
    EXPECT_TRUE(page.Links[1].Picture);
    EXPECT_EQ(page.Links[2].Target, "b.md");
    EXPECT_EQ(page.Links[2].Line, 4);
    ASSERT_EQ(page.Blocks.size(), 2U);
    EXPECT_EQ(page.Blocks[0].Kind, "sh");
    EXPECT_EQ(page.Blocks[0].Name, "");
    EXPECT_EQ(page.Blocks[0].Text, "echo [no](link)\n# no heading\n");
    EXPECT_EQ(page.Blocks[0].Line, 5);
    EXPECT_EQ(page.Blocks[1].Kind, "nc");
    EXPECT_EQ(page.Blocks[1].Name, "PROGRAM/A 1.nc");
    EXPECT_EQ(page.Blocks[1].Text, "G0\n");
}

TEST(ManualReader, MarksHeadings)
{
    EXPECT_EQ(HeadingMark("Lead-in: A, B"), "lead-in-a-b");
    EXPECT_EQ(HeadingMark("`F10` goes on"), "f10-goes-on");
}

TEST(ManualReader, MatchesLinesWithGaps)
{
    EXPECT_TRUE(MatchesLines("a\nb\n", "a\r\nb\r\n"));
    EXPECT_TRUE(MatchesLines("a\n...\nd\n", "a\nb\nc\nd\n"));
    EXPECT_TRUE(MatchesLines("a\n...\n", "a\n"));
    EXPECT_TRUE(MatchesLines("...\nc\n", "b\nc\nc\n"));
    EXPECT_FALSE(MatchesLines("a\n...\nd\n", "a\nd\ne\n"));
    EXPECT_FALSE(MatchesLines("a\n", "a\nb\n"));
    EXPECT_FALSE(MatchesLines("a\nb\n", "a\n"));
    EXPECT_FALSE(MatchesLines("", "a\n"));
}
} // namespace
