// Files of records: whole ones come in order, a torn last one doesn't come.
#include "platform/RecordFile.h"

#include "state/AppState.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;

std::vector<std::string> RecordsOf(const std::string& path, std::size_t length)
{
    std::vector<std::string> records;
    ReadRecords(path, length, [&](std::string_view record) {
        records.emplace_back(record);
        return true;
    });
    return records;
}

TEST(RecordFile, WholeRecordsInOrder)
{
    const TempFolder folder;
    EXPECT_THAT(RecordsOf(folder.Write("a", "abcdefghi"), 3), ElementsAre("abc", "def", "ghi"));
    EXPECT_THAT(RecordsOf(folder.Write("b", "abcdefgh"), 3), ElementsAre("abc", "def")) << "torn";
    EXPECT_THAT(RecordsOf(folder.Write("c", "ab"), 3), ElementsAre());
    EXPECT_THAT(RecordsOf(folder.Write("d", ""), 3), ElementsAre());
}

TEST(RecordFile, WhatCannotBeReadHasNone)
{
    const TempFolder folder;
    EXPECT_THAT(RecordsOf(folder.Path + "/missing", 3), ElementsAre());
    EXPECT_THAT(RecordsOf(folder.Path, 3), ElementsAre()) << "a folder";
    EXPECT_THAT(RecordsOf(folder.Write("a", "abc"), 0), ElementsAre());
}

TEST(RecordFile, ReadsOnlyAsFarAsItIsAsked)
{
    const TempFolder folder;
    int visits = 0;
    ReadRecords(folder.Write("a", "abcdef"), 2, [&](std::string_view) { return ++visits < 2; });
    EXPECT_EQ(visits, 2);
}

TEST(RecordFile, LongFilesComeWhole)
{
    const TempFolder folder;
    std::string content;
    for (int i = 0; i < 5000; ++i) {
        content += std::to_string(10000 + i);
    }
    const std::vector<std::string> records = RecordsOf(folder.Write("a", content + "99"), 5);
    ASSERT_EQ(records.size(), 5000U);
    for (int i = 0; i < 5000; ++i) {
        ASSERT_EQ(records[static_cast<std::size_t>(i)], std::to_string(10000 + i));
    }
}
} // namespace
