// The settings file that is shipped: every key says what the program would take without it, but for four.
#include "config/Korvanta_Configuration.h"
#include "platform/Paths.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace
{
constexpr const char* Missing = "<missing>";

struct KeyRow {
    const char* Section;
    const char* Key;
    const char* Value;
};

constexpr KeyRow ShippedKeys[] = {
    // section       key                  value
    {"SETUP", "LANGUAGE", "1"},           {"SETUP", "SCREEN_RES", "0"},
    {"SETUP", "PREVIEWPIC.W", "120"},     {"SETUP", "PREVIEWPIC.H", "155"},
    {"SETUP", "TEXTFILELOSTFOCUS", "NO"}, {"SETUP", "EXIT_CONFIRM", "YES"},
    {"SETUP", "EXIT_PROGRAM", "NO"}, // the station stays open after a save
    {"SETUP", "EXIT_LOG_FILE", ""},       {"SETUP", "VELCOM", "NO"},
    {"SETUP", "SIMSPEED", Missing}, // two defaults, by the place that asks
    {"SETUP", "SIM_DEFRAG", "5"},         {"SETUP", "HEADTYPE", "1"},
    {"CONFIG", "NESTING_PATH", "NEST"}, // beside the program, as the next two
    {"CONFIG", "NC_PATH", "PROGRAM"},     {"CONFIG", "DXF_PATH", "DXF"},
    {"CONFIG", "PPR_INI", "PPR.ini"},     {"CONFIG", "ESCALIAS", "27"},
    {"CONFIG", "FTBLCNC", "NO"},          {"CONFIG", "KERFPOSDRAW", "5"},
    {"CONFIG", "EXTPRF_BOUND", "1"},      {"CUT", "EXTERNALPATH", "-1"},
    {"CUT", "INTERNALPATH", "1"},         {"NESTING", "SWAPRIPXY", "NO"},
    {"Lead_CONFIG", "L_In", "10"},        {"Lead_CONFIG", "L_InRd", "5"},
    {"Lead_CONFIG", "L_Out", "0"},        {"Lead_CONFIG", "L_OutRd", "0"},
};

struct ShippedSettings : testing::Test {
    void SetUp() override
    {
        StartCase();
        AppState.AppPath = KORVANTA_SOURCE_DIR "/station";
    }
};
} // namespace

TEST_F(ShippedSettings, HoldEveryKey)
{
    for (const KeyRow& row : ShippedKeys) {
        EXPECT_EQ(ReadConfig(row.Section, row.Key, Missing), row.Value) << row.Section << ' ' << row.Key;
    }
}

TEST_F(ShippedSettings, NameEveryKeyInTheText)
{
    std::ifstream file(KORVANTA_SOURCE_DIR "/station/Korvanta.ini", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    for (const KeyRow& row : ShippedKeys) {
        EXPECT_NE(text.find(std::string(row.Key) + "="), std::string::npos) << row.Key;
    }
    for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 1)) {
        ASSERT_TRUE(end > 0 && text[end - 1] == '\r') << "a line without CR LF at byte " << end;
    }
}

TEST_F(ShippedSettings, LieBesideTheProgram)
{
    LoadConfiguration();
    EXPECT_EQ(AppState.NestingPath, "NEST\\");
    EXPECT_EQ(NativePath(AppState.NcPath), AppState.AppPath + "/PROGRAM");
    EXPECT_EQ(NativePath(AppState.DxfPath), AppState.AppPath + "/DXF");
    EXPECT_TRUE(FolderExists(AppState.DxfPath));
    EXPECT_TRUE(FileExists(AppState.AppPath + "\\" + AppState.PprIniName));
    EXPECT_EQ(AppState.ExitAfterSave, FlagOff);
    EXPECT_NE(AppState.ExitConfirm, FlagOff);
    EXPECT_EQ(AppState.HostMode, 0);
    EXPECT_EQ(AppState.ExternalPathSense, -1);
    EXPECT_EQ(AppState.InternalPathSense, 1);
}
