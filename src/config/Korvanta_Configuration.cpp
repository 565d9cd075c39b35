#include "config/Korvanta_Configuration.h"

#include "config/Korvanta_Utility.h"
#include "platform/KeyText.h"
#include "platform/ProfileStrings.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"

namespace
{
constexpr std::size_t LongestValue = 49; // characters: a folder's name isn't cut within a letter
constexpr std::size_t BufferSize = BufferFor(LongestValue);

std::string ConfigPath()
{
    return AppState.AppPath + "\\" + AppState.ProgramName + ".ini";
}

std::string HeldName(const std::string& section, const std::string& key)
{
    return UpperCase(Trim(section)) + "]" + UpperCase(Trim(key));
}

std::string ReadFolder(const std::string& key, const std::string& name)
{
    return WithBackslash(ReadConfig("CONFIG", key, "C:\\" + AppState.ProgramName + "\\" + name));
}

std::int16_t ReadNumber(const std::string& section, const std::string& key, const std::string& defaultValue)
{
    return RoundAndClampToInt16(TextToNumber(ReadConfig(section, key, defaultValue)));
}

std::int16_t ReadHostMode()
{
    const std::string value = ReadConfig("SETUP", "VELCOM", "NO");
    if (Contains(value, "\\YES")) {
        return HostBarOnly;
    }
    return Contains(value, "YES") ? Hosted : NoHost;
}
} // namespace

std::string ReadConfig(const std::string& section, const std::string& key, const std::string& defaultValue)
{
    const auto held = AppState.HeldConfig.find(HeldName(section, key));
    const std::string value =
        held != AppState.HeldConfig.end()
            ? std::string(DeliveredValue(held->second, BufferSize))
            : ReadProfileString(ConfigPath(), section, Trim(key), defaultValue, BufferSize);
    return ZeroTerminated(FirstCharacters(value, LongestValue));
}

void WriteConfig(const std::string& section, const std::string& key, const std::string& value)
{
    if (AppState.ConfigHeld) {
        AppState.HeldConfig[HeldName(section, key)] = Trim(value);
        return;
    }
    static_cast<void>(WriteProfileString(ConfigPath(), section, Trim(key), Trim(value)));
}

void HoldConfigWrites()
{
    AppState.ConfigHeld = FlagOn;
}

void LoadConfiguration()
{
    AppState.NestingPath = ReadFolder("NESTING_PATH", "NEST");
    AppState.NcPath = ReadFolder("NC_PATH", "PROGRAM");
    AppState.DxfPath = ReadFolder("DXF_PATH", "DXF");
    AppState.TextFileLostFocus = ToFlag(ReadConfig("SETUP", "TEXTFILELOSTFOCUS", "NO") == "YES");
    AppState.ExitConfirm = ToFlag(Contains(ReadConfig("SETUP", "EXIT_CONFIRM", "YES"), "YES"));
    AppState.ExitAfterSave = ToFlag(Contains(ReadConfig("SETUP", "EXIT_PROGRAM", "YES"), "YES"));
    AppState.PprIniName = ReadConfig("CONFIG", "PPR_INI", "PPR.ini");
    AppState.HostMode = ReadHostMode();
    AppState.SwapRipXY = ToFlag(Contains(ReadConfig("NESTING", "SWAPRIPXY", "NO"), "Y"));
    AppState.EscAlias = ReadNumber("CONFIG", "ESCALIAS", "27");
    AppState.ExternalPathSense = ReadNumber("CUT", "EXTERNALPATH", "-1");
    AppState.InternalPathSense = ReadNumber("CUT", "INTERNALPATH", "1");
    LoadMessages();
}

std::string WithBackslash(const std::string& folder)
{
    return folder.ends_with('\\') ? folder : folder + "\\";
}
