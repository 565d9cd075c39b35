// The settings file: how a value is read, each flag its own way, and the table read at start-up.
#include "config/Korvanta_Configuration.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace
{
/// The least catalogue that a start finds: marks and one message.
constexpr const char* Catalogue = ">>0\nA\nA\nA\nA\nA\nA\n>>1\nOK\nOK\nOK\nOK\nOK\nOK\n";

/// A station of its own, with these settings.
struct Station {
    TempFolder Folder;

    explicit Station(const std::string& settings)
    {
        StartCase();
        AppState.AppPath = Folder.Path;
        Folder.Write("Korvanta_MSG.TXT", Catalogue);
        Folder.Write("Korvanta.ini", settings);
    }
};

TEST(Configuration, DefaultsWithoutAFile)
{
    StartCase();
    const TempFolder folder;
    AppState.AppPath = folder.Path;
    folder.Write("Korvanta_MSG.TXT", Catalogue);
    LoadConfiguration();
    EXPECT_EQ(AppState.NestingPath, "C:\\Korvanta\\NEST\\");
    EXPECT_EQ(AppState.NcPath, "C:\\Korvanta\\PROGRAM\\");
    EXPECT_EQ(AppState.DxfPath, "C:\\Korvanta\\DXF\\");
    EXPECT_EQ(AppState.PprIniName, "PPR.ini");
    EXPECT_EQ(AppState.TextFileLostFocus, FlagOff);
    EXPECT_EQ(AppState.ExitConfirm, FlagOn);
    EXPECT_EQ(AppState.ExitAfterSave, FlagOn);
    EXPECT_EQ(AppState.HostMode, 0);
    EXPECT_EQ(AppState.SwapRipXY, FlagOff);
    EXPECT_EQ(AppState.EscAlias, 27);
    EXPECT_EQ(AppState.ExternalPathSense, -1);
    EXPECT_EQ(AppState.InternalPathSense, 1);
    EXPECT_FALSE(folder.Holds("Korvanta.ini")) << "reading makes no file";
    EXPECT_TRUE(Screen.Calls.empty());
    EXPECT_EQ(AppState.MessageTable[1][0][0], "OK") << "the catalogue is read last";
}

TEST(Configuration, WithoutACatalogueEndsTheProcessWithTheSettingsRead)
{
    StartCase();
    const TempFolder folder;
    AppState.AppPath = folder.Path;
    folder.Write("Korvanta.ini", "[CUT]\r\nINTERNALPATH=-1\r\n");
    EXPECT_THROW(LoadConfiguration(), ProcessEnded);
    EXPECT_EQ(AppState.InternalPathSense, -1);
}

TEST(Configuration, FileAndDefaultsAreNamedForTheProgram)
{
    StartCase();
    const TempFolder folder;
    AppState.AppPath = folder.Path;
    AppState.ProgramName = "Other";
    folder.Write("Other_MSG.TXT", Catalogue);
    folder.Write("other.INI", "[config]\r\nnc_path=E:\\NC\r\n");
    LoadConfiguration();
    EXPECT_EQ(AppState.NcPath, "E:\\NC\\");
    EXPECT_EQ(AppState.DxfPath, "C:\\Other\\DXF\\");
}

TEST(Configuration, EverySettingGoesToItsMember)
{
    const Station station("[CONFIG]\nNESTING_PATH=N:\\1\nNC_PATH=N:\\2\nDXF_PATH=N:\\3\nPPR_INI=Mill.ini\n"
                          "ESCALIAS=113\n[SETUP]\nTEXTFILELOSTFOCUS=YES\nEXIT_CONFIRM=NO\nEXIT_PROGRAM=NO\n"
                          "VELCOM=YES\n[NESTING]\nSWAPRIPXY=Y\n[CUT]\nEXTERNALPATH=1\nINTERNALPATH=-1\n");
    LoadConfiguration();
    EXPECT_EQ(AppState.NestingPath, "N:\\1\\");
    EXPECT_EQ(AppState.NcPath, "N:\\2\\");
    EXPECT_EQ(AppState.DxfPath, "N:\\3\\");
    EXPECT_EQ(AppState.PprIniName, "Mill.ini");
    EXPECT_EQ(AppState.EscAlias, 113);
    EXPECT_EQ(AppState.TextFileLostFocus, FlagOn);
    EXPECT_EQ(AppState.ExitConfirm, FlagOff);
    EXPECT_EQ(AppState.ExitAfterSave, FlagOff);
    EXPECT_EQ(AppState.HostMode, 1);
    EXPECT_EQ(AppState.SwapRipXY, FlagOn);
    EXPECT_EQ(AppState.ExternalPathSense, 1);
    EXPECT_EQ(AppState.InternalPathSense, -1);
}

TEST(Configuration, FoldersEndInABackslash)
{
    const Station station("[CONFIG]\nNC_PATH=D:\\CNC\nDXF_PATH=D:\\CNC\\\nNESTING_PATH=\n");
    LoadConfiguration();
    EXPECT_EQ(AppState.NcPath, "D:\\CNC\\");
    EXPECT_EQ(AppState.DxfPath, "D:\\CNC\\");
    EXPECT_EQ(AppState.NestingPath, "\\");
    EXPECT_EQ(WithBackslash("a/"), "a/\\");
}

struct SettingCase {
    const char* Section;
    const char* Key;
    const char* Value;
    std::int32_t Expected;
    std::int16_t AppStateRecord::*Member;
};

TEST(Configuration, FlagsAndNumbers)
{
    const SettingCase cases[] = {
        // section    key                  value        expected member
        {"SETUP", "TEXTFILELOSTFOCUS", "YES", FlagOn, &AppStateRecord::TextFileLostFocus},
        {"SETUP", "TEXTFILELOSTFOCUS", "yes", FlagOff, &AppStateRecord::TextFileLostFocus},
        {"SETUP", "TEXTFILELOSTFOCUS", "YES!", FlagOff, &AppStateRecord::TextFileLostFocus},
        {"SETUP", "TEXTFILELOSTFOCUS", "\"YES\"", FlagOn, &AppStateRecord::TextFileLostFocus},
        {"SETUP", "EXIT_CONFIRM", "yes", FlagOff, &AppStateRecord::ExitConfirm},
        {"SETUP", "EXIT_CONFIRM", "OH YES", FlagOn, &AppStateRecord::ExitConfirm},
        {"SETUP", "EXIT_CONFIRM", "", FlagOff, &AppStateRecord::ExitConfirm},
        {"SETUP", "EXIT_PROGRAM", "NOYES", FlagOn, &AppStateRecord::ExitAfterSave},
        {"SETUP", "EXIT_PROGRAM", "NO", FlagOff, &AppStateRecord::ExitAfterSave},
        {"SETUP", "VELCOM", "C:\\YES", 2, &AppStateRecord::HostMode},
        {"SETUP", "VELCOM", "YES\\YES", 2, &AppStateRecord::HostMode},
        {"SETUP", "VELCOM", "YES", 1, &AppStateRecord::HostMode},
        {"SETUP", "VELCOM", "\\yes", 0, &AppStateRecord::HostMode},
        {"NESTING", "SWAPRIPXY", "Y", FlagOn, &AppStateRecord::SwapRipXY},
        {"NESTING", "SWAPRIPXY", "ANY", FlagOn, &AppStateRecord::SwapRipXY},
        {"NESTING", "SWAPRIPXY", "y", FlagOff, &AppStateRecord::SwapRipXY},
        {"CONFIG", "ESCALIAS", "112 ;F1", 112, &AppStateRecord::EscAlias},
        {"CONFIG", "ESCALIAS", "none", 0, &AppStateRecord::EscAlias},
        {"CONFIG", "ESCALIAS", "99999", 32767, &AppStateRecord::EscAlias},
        {"CONFIG", "ESCALIAS", "-1e99", -32768, &AppStateRecord::EscAlias},
        {"CUT", "EXTERNALPATH", "x", 0, &AppStateRecord::ExternalPathSense},
        {"CUT", "EXTERNALPATH", "+1", 1, &AppStateRecord::ExternalPathSense},
        {"CUT", "INTERNALPATH", "-1.0", -1, &AppStateRecord::InternalPathSense},
        {"CUT", "INTERNALPATH", "", 0, &AppStateRecord::InternalPathSense},
    };
    for (const SettingCase& c : cases) {
        const Station station(std::string("[") + c.Section + "]\r\n" + c.Key + "=" + c.Value + "\r\n");
        LoadConfiguration();
        EXPECT_EQ(AppState.*c.Member, c.Expected) << c.Key << "=" << c.Value;
    }
}

TEST(Configuration, AnEmptyTableNameStaysEmpty)
{
    const Station station("[CONFIG]\nPPR_INI=\n");
    LoadConfiguration();
    EXPECT_EQ(AppState.PprIniName, ""); // the reader of the table falls back to its own name
}

TEST(Configuration, ValuesAreCutAndTrimmed)
{
    const std::string digits = "012345678901234567890123456789012345678901234567890123456789"; // 60
    std::string settings = "[S]\r\nLONG=" + digits + "\r\nBLANK=\" x \"\r\nNUL=ab";
    settings += '\0';
    settings += "c\r\nCUT=0123456789012345678901234567890123456789 12345678 x\r\n";
    const Station station(settings);
    EXPECT_EQ(ReadConfig("S", "LONG", ""), digits.substr(0, 49));
    EXPECT_EQ(ReadConfig("S", " long ", ""), digits.substr(0, 49)) << "the key is trimmed";
    EXPECT_EQ(ReadConfig("S", "BLANK", ""), "x");
    EXPECT_EQ(ReadConfig("S", "NUL", ""), "ab");
    EXPECT_EQ(ReadConfig("S", "CUT", ""), "0123456789012345678901234567890123456789 12345678"); // 49
    EXPECT_EQ(ReadConfig("S", "NONE", "  " + digits), digits.substr(0, 47)) << "the default is cut alike";
    EXPECT_EQ(ReadConfig("S", "NONE", " x "), "x");
}

/// "Ä" takes two bytes and the euro sign three: what is cut lies behind a whole character, and a name of 49 comes whole.
TEST(Configuration, ValuesAreCutBetweenCharacters)
{
    std::string letters;
    for (int i = 0; i < 49; ++i) {
        letters += "\xC3\x84";
    }
    const std::string euro = "\xE2\x82\xAC";
    const Station station("[S]\r\nFULL=" + letters + "\r\nLONG=" + letters + euro + "\r\n");
    EXPECT_EQ(ReadConfig("S", "FULL", ""), letters);
    EXPECT_EQ(ReadConfig("S", "LONG", ""), letters);
    EXPECT_EQ(ReadConfig("S", "NONE", euro + letters), euro + letters.substr(0, 96));
    HoldConfigWrites();
    WriteConfig("S", "LONG", euro + letters);
    EXPECT_EQ(ReadConfig("S", "LONG", ""), euro + letters.substr(0, 96));
}

TEST(Configuration, ReadsGoToTheFileEachTime)
{
    const Station station("[SETUP]\nSIMSPEED=15\n");
    EXPECT_EQ(ReadConfig("SETUP", "SIMSPEED", "3"), "15");
    station.Folder.Write("Korvanta.ini", "[SETUP]\nSIMSPEED=16\n");
    EXPECT_EQ(ReadConfig("SETUP", "SIMSPEED", "3"), "16");
}

TEST(Configuration, WritesTrimKeyAndValue)
{
    const Station station("; mine\r\n[Lead_CONFIG]\r\nL_In=10\r\n");
    WriteConfig("Lead_CONFIG", " L_In ", " 12.5 ");
    WriteConfig("Lead_CONFIG", "L_Out", "3");
    EXPECT_EQ(station.Folder.Read("Korvanta.ini"), "; mine\r\n[Lead_CONFIG]\r\nL_In=12.5\r\nL_Out=3\r\n");
    AppState.AppPath = station.Folder.Path + "/none";
    WriteConfig("Lead_CONFIG", "L_In", "1"); // no error
    EXPECT_FALSE(station.Folder.Holds("none"));
}

TEST(Configuration, HeldWritesLeaveTheFileAlone)
{
    const std::string settings = "[Lead_CONFIG]\r\nL_In=10\r\nL_Out=4\r\n";
    const Station station(settings);
    HoldConfigWrites();
    WriteConfig("Lead_CONFIG", " L_In ", " 12.5 ");
    WriteConfig("LEAD_config", "l_inrd", "\"7\"");
    EXPECT_EQ(station.Folder.Read("Korvanta.ini"), settings);
    EXPECT_EQ(ReadConfig("lead_CONFIG", "L_IN", "1"), "12.5");
    EXPECT_EQ(ReadConfig("Lead_CONFIG", " L_InRd ", "1"), "7") << "as the file would give it back";
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_Out", "1"), "4") << "not held: the file's";
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_OutRd", "1"), "1");
    WriteConfig("Lead_CONFIG", "L_Out", std::string(60, '9'));
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_Out", "1"), std::string(49, '9'));
    WriteConfig("Lead_CONFIG", "L_Out", "");
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_Out", "1"), "");
}
} // namespace
