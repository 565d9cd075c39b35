// A job that is loaded and saved again: the same files, byte for byte, over random parts, fields, leads and nests.
#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "jobfiles/JobFiles.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/InputLists.h"
#include "shell/InputScreen.h"
#include "shell/ValueFields.h"
#include "support/PartTables.h"
#include "support/RecordingSurface.h"
#include "support/Station.h"

#include <filesystem>
#include <random>

namespace
{
namespace fs = std::filesystem;

/// The files of a job.
struct SavedJob {
    std::string Text;
    std::string Drawing;
    std::string Program;

    bool operator==(const SavedJob&) const = default;
};

/// The values of a job text as numbers, whatever form they have; other texts as they stand.
std::string InPlainForm(const std::string& text)
{
    std::string plain;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text.find("\r\n", at);
        const std::string line = text.substr(at, end - at);
        const std::size_t equals = line.find('=');
        const bool isNumber = equals != std::string::npos && (line[0] == 'V' || line[0] == 'P') &&
                              line.find_first_not_of("0123456789.-", equals + 1) == std::string::npos;
        plain +=
            isNumber ? line.substr(0, equals + 1) + PlainNumber(TextToNumber(line.substr(equals + 1))) : line;
        plain += '\n';
        at = end + 2;
    }
    return plain;
}

class RoundTrip : public StationCase
{
protected:
    std::mt19937 Random{5};

    void SetUp() override
    {
        StationCase::SetUp();
        AppState.ExitAfterSave = FlagOff;
        Station.Write("PPR.ini", "[PartProgram_CONFIG]\nFILE_EXTENSION=nc\nFLYOFFDIM=1\n"
                                 "[PartProgram_StartCUT]\nLINE1=_*RAPID_MOVE\nLINE2=_M07 (*profile_nr)\n");
        fs::copy(KORVANTA_SOURCE_DIR "/station/DXF", Station.Path + "/DXF");
    }

    double Between(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(Random);
    }

    int OneOf(int count)
    {
        return static_cast<int>(Random() % static_cast<unsigned>(count));
    }

    /// A shape with its parameters a little beside their defaults, a drawing, or a program.
    void OpenSomePart()
    {
        const int kind = OneOf(4);
        if (kind == 0) {
            const char* drawings[] = {"BRACKET.dxf", "FLANGE.dxf", "GASKET.dxf", "PANEL.dxf"};
            ASSERT_TRUE(OpenImport(ImportKind::Drawing, drawings[OneOf(4)]));
        } else if (kind == 1) {
            ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
        } else {
            const auto shapes = ShapeCatalogue();
            OpenShape(shapes[Random() % shapes.size()].ShapeId);
            for (ValueField& field : AppState.ParamText) {
                if (field.Visible != FlagOff) {
                    SetText(field, PlainNumber(FieldNumber(field) * Between(0.98, 1.0)));
                }
            }
        }
    }

    void TypeCutting(std::int16_t field, double value)
    {
        CuttingFieldEntered(field);
        SetText(AppState.TextCutting[static_cast<std::size_t>(field)], FormatNumber(value));
        CuttingFieldLeft(field);
        EndCuttingEntry(field);
    }

    void TypeNesting(std::int16_t field, const std::string& text)
    {
        NestingFieldEntered(field);
        SetText(AppState.TextNesting[static_cast<std::size_t>(field)], text);
        NestingFieldLeft(field);
        EndNestingEntry(field);
    }

    void EditSomeLeads()
    {
        TypeCutting(FieldMoveStep, std::round(Between(1, 120)) / 10); // the field shows one place
        for (int edit = OneOf(6); edit > 0; --edit) {
            TypeCutting(FieldProfileNumber, 1 + OneOf(AppState.ProfileCount));
            TypeCutting(static_cast<std::int16_t>(FieldLeadInA + OneOf(4)), Between(-1, 6));
            switch (OneOf(4)) {
            case 0:
                MoveLead(1);
                break;
            case 1:
                MoveLeadNextElement();
                break;
            case 2:
                CopyLeadsToAll();
                break;
            default:
                break;
            }
        }
    }

    void EditSomeFields()
    {
        const double angles[] = {0, 90, -33.25, 360, 12.5};
        const double scales[] = {1, 1, 0.5, 2.25, 0.2};
        TypeCutting(FieldAngle, angles[OneOf(5)]);
        TypeCutting(FieldMirror, OneOf(5));
        TypeCutting(FieldScale, scales[OneOf(5)]);
        EditSomeLeads();
    }

    void EditSomeNest(bool fixedCounts)
    {
        TypeNesting(FieldKerf, FormatNumber(Between(0, 3)));
        TypeNesting(FieldGapX, FormatNumber(Between(1, 20)));
        TypeNesting(FieldGapY, FormatNumber(Between(1, 20)));
        TypeNesting(FieldNestType, std::to_string(1 + OneOf(4)));
        TypeNesting(FieldSimulation, std::to_string(1 + OneOf(25)));
        if (fixedCounts) {
            TypeNesting(FieldSheetX, "*" + std::to_string(1 + OneOf(4)));
            TypeNesting(FieldSheetY, "*" + std::to_string(1 + OneOf(3)));
        } else {
            TypeNesting(FieldSheetX, FormatNumber(AppState.PartSizeX * Between(1, 4)));
            TypeNesting(FieldSheetY, FormatNumber(AppState.PartSizeY * Between(1, 4)));
        }
    }

    /// From the Parameters screen to a saved job. False when the part can't be built or nested.
    bool GoOnAndSave(const char* name, bool edit, bool fixedCounts = false)
    {
        NextCamTab();
        if (AppState.ScreenState != ScreenCutting) {
            return false;
        }
        if (edit) {
            EditSomeFields();
        }
        NextCamTab();
        if (edit) {
            EditSomeNest(fixedCounts);
        }
        EnterSaveMode();
        SetText(AppState.TextFileName, name);
        SaveCurrentJob();
        return true;
    }

    /// All that an operator can do to a part and not save; then F1.
    void WorkOnIt()
    {
        NextCamTab();
        if (AppState.ScreenState == ScreenCutting) {
            EditSomeFields();
            ChangeProfilePath();
            MovePathCursor(OneOf(2) == 0 ? 1 : -1, 0);
            CuttingFieldEntered(FieldCuttingZoom);
            SetText(AppState.TextCutting[FieldCuttingZoom], std::to_string(1 + OneOf(9)));
            CuttingFieldLeft(FieldCuttingZoom);
        }
        if (AppState.ScreenState == ScreenCutting && OneOf(2) == 0) {
            NextCamTab();
            EditSomeNest(OneOf(2) == 0);
        }
        EnterInputScreen();
    }

    void Open(const char* name)
    {
        SelectInputTab(TabPrograms);
        SetText(AppState.TextFileName, name);
        OpenJob();
    }

    SavedJob Files(const std::string& name) const
    {
        return {Station.Read("NEST/" + name + ".nst"), Station.Read("NEST/DATA/" + name + ".drw"),
                Station.Read("NC/" + name + ".nc")};
    }

    /// A new process: nothing is left but the disk.
    void StartAgain()
    {
        StartCase();
        StartStation(Station.Path, 1);
        AppState.ExitAfterSave = FlagOff;
    }
};

TEST_F(RoundTrip, OfTheTablesAloneChangesNothing)
{
    for (int round = 0; round < 60; ++round) {
        OpenSomePart();
        if (!GoOnAndSave("JOB", true)) {
            continue;
        }
        const SavedJob first = Files("JOB");
        StartAgain();
        LoadJob("JOB");
        SaveJob("JOB");
        const SavedJob second = Files("JOB");
        EXPECT_EQ(second.Drawing, first.Drawing) << round;
        EXPECT_EQ(InPlainForm(second.Text), InPlainForm(first.Text)) << round;
        StartAgain();
        LoadJob("job.NST");
        SaveJob("JOB");
        EXPECT_EQ(Files("JOB"), second) << round;
        StartAgain();
        ASSERT_FALSE(HasFailure()) << round;
    }
}

TEST_F(RoundTrip, ThroughAllScreensChangesNothing)
{
    for (int round = 0; round < 80; ++round) {
        OpenSomePart();
        const bool fixedCounts = OneOf(2) == 0;
        if (!GoOnAndSave("JOB", true, fixedCounts)) {
            continue;
        }
        const bool staggered = FieldNumber(AppState.TextNesting[FieldNestType]) > 2;
        const SavedJob first = Files("JOB");
        StartAgain();
        Open("JOB");
        ASSERT_TRUE(GoOnAndSave("JOB", false)) << round;
        const SavedJob second = Files("JOB");
        EXPECT_EQ(second.Drawing, first.Drawing) << round;
        if (fixedCounts || !staggered) {
            // Loaded counts are fixed ones, whose sheet is made for them: a staggered nest may hold another copy then.
            EXPECT_EQ(second.Program, first.Program) << round;
        }
        StartAgain();
        Open("JOB");
        ASSERT_TRUE(GoOnAndSave("JOB", false)) << round;
        EXPECT_EQ(Files("JOB"), second) << round;
        ASSERT_FALSE(HasFailure()) << round;
    }
}

TEST_F(RoundTrip, PutsFieldsTablesAndLeadsBack)
{
    for (int round = 0; round < 40; ++round) {
        OpenSomePart();
        if (!GoOnAndSave("JOB", true)) {
            continue;
        }
        const AppStateRecord saved = AppState;
        StartAgain();
        Open("JOB");
        NextCamTab();
        EXPECT_EQ(FirstDifference(AppState.ShadowElements, saved.ShadowElements), 0U) << round;
        EXPECT_EQ(FirstDifference(AppState.ElementTable, saved.ElementTable), 0U) << round;
        EXPECT_EQ(AppState.ShapeId, saved.ShapeId);
        EXPECT_EQ(AppState.SourceName, saved.SourceName);
        EXPECT_EQ(AppState.MoveStep, saved.MoveStep);
        EXPECT_EQ(AppState.TotalCutLength, saved.TotalCutLength);
        ASSERT_EQ(AppState.ProfileTable.size(), saved.ProfileTable.size());
        for (std::size_t p = 1; p < saved.ProfileTable.size(); ++p) {
            EXPECT_EQ(AppState.ProfileTable[p].LeadPosition, saved.ProfileTable[p].LeadPosition) << round;
            EXPECT_EQ(AppState.ProfileTable[p].LeadInLength, saved.ProfileTable[p].LeadInLength) << round;
            EXPECT_EQ(AppState.ProfileTable[p].Status, saved.ProfileTable[p].Status) << round;
        }
        for (std::size_t i = 0; i < ParamFieldCount; ++i) {
            EXPECT_EQ(FieldNumber(AppState.ParamText[i]), FieldNumber(saved.ParamText[i])) << round;
            EXPECT_EQ(AppState.ParamText[i].Visible, saved.ParamText[i].Visible) << round;
        }
    }
}

TEST_F(RoundTrip, NothingOfThePartBeforeIsLeft)
{
    for (int round = 0; round < 50; ++round) {
        OpenSomePart();
        if (!GoOnAndSave("JOB", true)) {
            continue;
        }
        StartAgain();
        Open("JOB");
        ASSERT_TRUE(GoOnAndSave("JOB", false)) << round;
        const SavedJob alone = Files("JOB");
        OpenSomePart();
        WorkOnIt();
        SelectInputTab(TabPrograms);
        Open("JOB");
        ASSERT_TRUE(GoOnAndSave("JOB", false)) << round;
        EXPECT_EQ(Files("JOB"), alone) << round;
        StartAgain();
        ASSERT_FALSE(HasFailure()) << round;
    }
}

// --- single steps -------------------------------------------------------------------------------------------

TEST_F(RoundTrip, AShapeKeepsItsLeadsWhenItIsDevelopedAgain)
{
    OpenShape(1004); // a rectangle with a hole
    NextCamTab();
    TypeCutting(FieldProfileNumber, 2);
    TypeCutting(FieldLeadInA, 3.5);
    MoveLead(1);
    ASSERT_EQ(AppState.ProfileTable[2].LeadPosition, 20.0);
    EnterNestingScreen();
    EnterSaveMode();
    SetText(AppState.TextFileName, "S");
    SaveCurrentJob();
    StartAgain();
    Open("S");
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    EXPECT_EQ(AppState.ShapeId, 1004);
    EXPECT_EQ(AppState.ParamText[6].Visible, FlagOn);
    EXPECT_EQ(AppState.ParamText[7].Visible, FlagOff);
    SetText(AppState.ParamText[0], "400"); // instead of 300
    NextCamTab();
    EXPECT_EQ(AppState.MaxY, 400.0);
    EXPECT_EQ(AppState.ProfileTable[2].LeadPosition, 20.0);
    EXPECT_EQ(AppState.ProfileTable[2].LeadInLength, 3.5);
    EXPECT_EQ(AppState.CurrentProfile, 1);
    EXPECT_EQ(AppState.TextCutting[FieldProfileNumber].Text, "1");
}

TEST_F(RoundTrip, AShapeKeepsItsLeadsThroughAFailedDevelopment)
{
    OpenShape(1004);
    NextCamTab();
    TypeCutting(FieldMoveStep, 4);
    TypeCutting(FieldProfileNumber, 2);
    TypeCutting(FieldLeadInA, 3.5);
    MoveLead(1);
    NextCamTab();
    EnterSaveMode();
    SetText(AppState.TextFileName, "S");
    SaveCurrentJob();
    StartAgain();
    WriteConfig("Lead_CONFIG", "L_In", "10");
    Open("S");
    SetText(AppState.ParamText[0], "0"); // instead of 300
    NextCamTab();
    ASSERT_EQ(AppState.ScreenState, ScreenParameters) << "refused";
    SetText(AppState.ParamText[0], "400");
    NextCamTab();
    ASSERT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(AppState.ProfileTable[2].LeadPosition, 14.0);
    EXPECT_EQ(AppState.ProfileTable[2].LeadInLength, 3.5);
    EXPECT_EQ(AppState.MoveStep, 4.0);
}

TEST_F(RoundTrip, AnImportComesBackWithItsFirstProfile)
{
    OpenPlate(1);
    TypeCutting(FieldProfileNumber, 2);
    NextCamTab();
    EnterSaveMode();
    SaveCurrentJob();
    StartAgain();
    Drawn.Shown = true;
    Open("PLATE");
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    EXPECT_EQ(AppState.ProfileCount, 2);
    NextCamTab();
    EXPECT_EQ(AppState.CurrentProfile, 1);
    EXPECT_EQ(AppState.TextCutting[FieldProfileNumber].Text, "1");
}

TEST_F(RoundTrip, ANewPartHasNothingOfTheJobBefore)
{
    OpenShape(1001);
    NextCamTab();
    TypeCutting(FieldMoveStep, 3);
    TypeCutting(FieldLeadInA, 2);
    NextCamTab();
    EnterSaveMode();
    SaveCurrentJob();
    Open("R_01");
    OpenShape(1001);
    NextCamTab();
    EXPECT_EQ(AppState.MoveStep, 10.0);
    EXPECT_EQ(AppState.ProfileTable[1].LeadPosition, 10.0);
}

TEST_F(RoundTrip, OffersTheAnswersOfTheJobAgain)
{
    Station.Write("PPR.ini", "[PartProgram_INPUT]\n#V1=Thickness,D,,10\n#V2=Gas,T,O2|N2,O2\n"
                             "[PartProgram_BEGIN]\nLINE1=(#V1 #V2)\n");
    OpenPlate(2);
    EnterSaveMode();
    SetText(AppState.TextFileName, "JOB");
    Screen.InputDialog = [] {
        EXPECT_EQ(AppState.PprInput[1].Value, "10");
        AppState.PprInput[1].Value = "12.5";
        AppState.PprInput[2].Value = "N2";
    };
    SaveCurrentJob();
    const SavedJob first{Station.Read("NEST/JOB.nst"), Station.Read("NEST/DATA/JOB.drw"),
                         Station.Read("NC/JOB")};
    EXPECT_NE(first.Text.find("[0004]\r\nV1=12.5\r\nV2=N2\r\nV3=\r\n"), std::string::npos);
    EXPECT_EQ(first.Program.substr(0, 9), "(12.5 N2)");
    StartAgain();
    Open("JOB");
    NextCamTab();
    NextCamTab();
    int asked = 0;
    Screen.InputDialog = [&asked] {
        ++asked;
        EXPECT_EQ(AppState.PprInput[1].Value, "12.5");
        EXPECT_EQ(AppState.PprInput[2].Value, "N2");
    };
    EnterSaveMode();
    SaveCurrentJob();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Station.Read("NC/JOB"), first.Program);
    EXPECT_EQ(Station.Read("NEST/DATA/JOB.drw"), first.Drawing);
}

TEST_F(RoundTrip, AFailedProgramStoresNoAnswer)
{
    Station.Write("PPR.ini", "[PartProgram_INPUT]\n#V1=Thickness,D,,10\n");
    OpenPlate(2);
    EnterSaveMode();
    SetText(AppState.TextFileName, "JOB");
    SaveCurrentJob();
    const std::string before = Station.Read("NEST/JOB.nst");
    Station.Write("PPR.ini", "[PartProgram_INPUT]\n#V1=Thickness,D,,10\n#V2=broken\n");
    OpenPlate(2);
    EnterSaveMode();
    SetText(AppState.TextFileName, "JOB");
    Screen.InputDialog = [] { AppState.PprInput[1].Value = "99"; };
    EXPECT_THROW(SaveCurrentJob(), std::runtime_error);
    EXPECT_EQ(Station.Read("NEST/JOB.nst"), before);
}
} // namespace
