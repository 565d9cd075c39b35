#include "support/SoakStation.h"

#include "platform/Paths.h"
#include "state/AppState.h"

#include <filesystem>
#include <fstream>

namespace
{
namespace fs = std::filesystem;

constexpr const char* TableNames[SoakTables] = {"PPR.ini", "PPR_SubPrograms.ini", "PPR_LinuxCNC.ini"};

/// Files that are no drawings, programs or jobs.
void WriteBadFiles(const TempFolder& station)
{
    station.Write("DXF/EMPTY.DXF", "");
    station.Write("DXF/CUT OFF.DXF", "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n0\n20\n");
    station.Write("DXF/NUMBERS.dxf",
                  "0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n10\n1e308\n20\n-1e308\n40\n1e308\n0\nLINE\n10\n"
                  "nan\n20\ninf\n11\n1\n21\n1\n0\nENDSEC\n0\nEOF\n");
    station.Write("DXF/NAME.OF.PARTS.DWG", "AC1015 and no more");
    station.Write("PROGRAM/plate.iso", "G0 X40 Y20\nG1 X60\nY30\nX40\nY20\nG0 X0 Y0\nG1 X100\nY50\nX0\nY0\n");
    station.Write(
        "PROGRAM/ring.iso",
        "G0 X10 Y0\nG2 X-10 Y0 I-10 J0\nG2 X10 Y0 I10 J0\nG0 X30 Y0\nG3 X-30 Y0 I-30 J0\nG3 X30 Y0 I30 J0\n");
    station.Write("PROGRAM/open.iso",
                  "G0 X0 Y0\nG1 X50 Y0\nX50 Y50\nG0 X100 Y100\nG1 X100 Y100\nG2 X100 Y100 I0 J0\n");
    station.Write("PROGRAM/huge.iso", "G0 X1e300 Y0\nG1 X-1e300\nG2 X5 Y5 I1e308 J-1e308\nX\nY\n");
    station.Write("PROGRAM/empty.iso", "");
    station.Write("PROGRAM/text", "nothing of ours: XYXY G G1 X G2 I J");
    station.Write("NEST/EMPTY.nst", "");
    station.Write("NEST/STRANGE.nst", "[0000]\r\nShapeId=4711\r\nF=X\r\n[0001]\r\nAngle=1e300\r\n");
    station.Write("NEST/DATA/EMPTY.drw", std::string(76, '\xFF'));
}

} // namespace

void MakeSoakStation(const TempFolder& station, const SoakSettings& settings)
{
    const fs::path source(KORVANTA_SOURCE_DIR);
    fs::copy(source / "station", station.Path, fs::copy_options::recursive);
    fs::copy_file(source / "tests/data/dxf/sampler_R2000.dxf", fs::path(station.Path) / "DXF/SAMPLER.DXF");
    WriteBadFiles(station);
    const auto yes = [](bool on) { return on ? "YES" : "NO"; };
    station.Write("Korvanta.ini",
                  std::string("[SETUP]\nSCREEN_RES=640x480\nEXIT_CONFIRM=YES\nEXIT_PROGRAM=NO\n") +
                      "SIM_DEFRAG=1\nSIMSPEED=25\nTEXTFILELOSTFOCUS=" + yes(settings.LostFocus) +
                      "\n[CONFIG]\nNESTING_PATH=NEST\nNC_PATH=PROGRAM\nDXF_PATH=DXF\nPPR_INI=" +
                      TableNames[settings.Table] + "\nFTBLCNC=" + yes(settings.HandOver) + "\n");
}

namespace
{
/// The first file of a folder with an extension, empty when there is none.
std::string FileIn(const std::string& folder, std::string_view extension)
{
    for (const std::string& name : ListFiles(folder)) {
        if (name.ends_with(extension)) {
            return NativePath(folder + name);
        }
    }
    return "";
}

void Remove(const std::string& path)
{
    std::error_code ignored;
    if (!path.empty()) {
        fs::remove_all(path, ignored);
    }
}

void CutOff(const std::string& path)
{
    constexpr std::uintmax_t Left = 100;
    std::error_code ignored;
    if (!path.empty()) {
        fs::resize_file(path, Left, ignored);
    }
}
} // namespace

void DisturbFiles(std::int32_t number)
{
    constexpr std::int32_t Changes = 8;
    const std::string data = AppState.NestingPath + "DATA\\";
    switch (number % Changes) {
    case 0:
        Remove(FileIn(AppState.NestingPath, ".nst"));
        break;
    case 1:
        Remove(FileIn(data, ".drw"));
        break;
    case 2:
        CutOff(FileIn(data, ".drw"));
        break;
    case 3:
        CutOff(FileIn(AppState.NestingPath, ".nst"));
        break;
    case 4:
        Remove(FileIn(AppState.NcPath, ".iso"));
        break;
    case 5:
        Remove(FileIn(AppState.DxfPath, ".dxf"));
        break;
    case 6:
        Remove(NativePath(data));
        break;
    default:
        CutOff(FileIn(data, ".bmp"));
        break;
    }
}
