#include "BatchRun.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace
{
std::string Quoted(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + "'";
}

std::string Joined(const std::vector<std::string>& arguments)
{
    std::string line;
    for (const std::string& argument : arguments) {
        line += " " + Quoted(argument);
    }
    return line;
}

BatchResult Shell(const TempFolder& scratch, const std::string& command)
{
    const std::string line = command + " 2>" + Quoted(scratch.Path + "/errors.txt");
    const int status = std::system(("( " + line + " ) >" + Quoted(scratch.Path + "/output.txt")).c_str());
    BatchResult result;
    result.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.Output = scratch.Read("output.txt");
    result.Errors = scratch.Read("errors.txt");
    return result;
}

std::string Program()
{
    return Quoted(std::string(KORVANTA_BINARY_DIR) + "/bin/korvanta-batch");
}

/// Six columns: English, Italian, and four fillers.
std::string Message(int number, const std::string& english, const std::string& italian)
{
    return ">>" + std::to_string(number) + "\n" + english + "\n" + italian + "\n-\n-\n-\n-\n";
}
} // namespace

BatchStation::BatchStation()
{
    Folder.Write("Korvanta_MSG.TXT", ">>0\nA\nA\nA\nA\nA\nA\n" + Message(34, "No part.", "Nessun pezzo.") +
                                         Message(38, "The import failed.", "Importazione fallita."));
    Folder.Write("Korvanta.ini", "[CONFIG]\r\nNC_PATH=" + Folder.Path + "\\NC\r\nDXF_PATH=" + Folder.Path +
                                     "\\DXF\r\nNESTING_PATH=" + Folder.Path + "\\NEST\r\n");
    const std::string box = "G0 X0 Y0\nG1 X100\nY50\nX0\nY0\n";
    Folder.Write("NC/box.iso", box);
    Folder.Write("NC/plate.iso", "G0 X40 Y20\nG1 X60\nY30\nX40\nY20\n" + box);
}

BatchResult BatchStation::Run(const std::vector<std::string>& arguments, const std::string& prefix,
                              const std::string& workFolder) const
{
    const TempFolder scratch;
    return Shell(scratch, "cd " + Quoted(Folder.Path + "/" + workFolder) + " && " + prefix + " " + Program() +
                              " --station " + Quoted(Folder.Path) + Joined(arguments));
}

BatchResult BatchStation::RunBare(const std::vector<std::string>& arguments,
                                  const std::string& redirect) const
{
    const TempFolder scratch;
    return Shell(scratch, Program() + Joined(arguments) + " " + redirect);
}

nlohmann::json BatchStation::State(std::vector<std::string> arguments) const
{
    arguments.insert(arguments.end(), {"--json", "-"});
    const BatchResult result = Run(arguments);
    EXPECT_EQ(result.Status, 0) << result.Errors;
    return nlohmann::json::parse(result.Output, nullptr, false);
}
