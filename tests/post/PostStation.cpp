#include "PostStation.h"

#include "platform/Fault.h"

#include <gtest/gtest.h>

PostStation::PostStation(std::string_view table)
{
    StartCase();
    AppState.AppPath = Folder.Path;
    AppState.PprIniName = "PPR.ini";
    AppState.NcPath = Folder.Path + "\\NC\\";
    AppState.NestingPath = Folder.Path + "\\NST\\";
    AppState.JobName = "JOB";
    AppState.Redraw = nullptr;
    WriteTable(table);
}

void PostStation::WriteTable(std::string_view table) const
{
    Folder.Write("PPR.ini", table);
}

Lines PostStation::Written(const std::function<void()>& write) const
{
    OpenText(ProgramFile, Folder.Path + "\\TRIAL");
    write();
    CloseText(ProgramFile);
    return SplitLines(Folder.Read("TRIAL"));
}

Lines PostStation::Program(const std::string& name) const
{
    return SplitLines(Folder.Read("NC/" + name));
}

Lines SplitLines(const std::string& text)
{
    Lines lines;
    std::size_t from = 0;
    while (from < text.size()) {
        const std::size_t end = text.find("\r\n", from);
        EXPECT_NE(end, std::string::npos) << "a line without CR LF: " << text.substr(from);
        if (end == std::string::npos) {
            break;
        }
        lines.push_back(text.substr(from, end - from));
        from = end + 2;
    }
    return lines;
}

std::string FaultOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RunTimeFault& fault) {
        AbandonText(ProgramFile);
        return fault.what();
    }
    ADD_FAILURE() << "no fault";
    return {};
}
