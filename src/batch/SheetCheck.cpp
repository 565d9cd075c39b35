#include "batch/SheetCheck.h"

#include "config/Korvanta_Utility.h"
#include "config/PprValues.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "post/Korvanta_PostProcessor.h"
#include "shell/ValueFields.h"

namespace
{
/// The nest of a program with sub-programs stands further in by what the leads reach below the part's low corner. Where no
/// program was written these are 0.
void MoveByLeads(NestBox& box)
{
    if (ReadPprValue("PartProgram_CONFIG", "SUBPROGRAMS", "NO") == "YES") {
        box.Left -= AppState.ProgramMinX;
        box.Right -= AppState.ProgramMinX;
        box.Bottom -= AppState.ProgramMinY;
        box.Top -= AppState.ProgramMinY;
    }
}
} // namespace

std::vector<std::string> EdgesOverrun()
{
    std::vector<std::string> found;
    if (AppState.PathOriginSet != FlagOff) {
        return found;
    }
    double originX = 0.0;
    double originY = 0.0;
    ProgramOrigin(originX, originY);
    NestBox box;
    if (!FindNestBox(originX, originY, box)) {
        return found;
    }
    MoveByLeads(box);
    const struct {
        const char* Edge;
        double Over;
    } edges[] = {
        {"left", -box.Left},
        {"lower", -box.Bottom},
        {"right", box.Right - FieldNumber(AppState.TextNesting[FieldSheetX])},
        {"upper", box.Top - FieldNumber(AppState.TextNesting[FieldSheetY])},
    };
    for (const auto& [edge, over] : edges) {
        if (over >= Tolerance) { // less is what the text of the sheet's size has cut off
            found.push_back("the nest reaches over the " + std::string(edge) + " edge of the sheet by " +
                            FormatNumber(over));
        }
    }
    return found;
}
