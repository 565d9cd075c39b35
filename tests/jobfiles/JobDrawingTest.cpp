// The geometry of a job: which records are written and read, and which files are none.
#include "jobfiles/DrawingRecord.h"
#include "jobfiles/JobFiles.h"
#include "platform/Fault.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"
#include "support/PartTables.h"
#include "support/Station.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <limits>

using testing::Contains;
using testing::Not;

namespace
{
namespace fs = std::filesystem;

class JobDrawing : public StationCase
{
protected:
    const std::string Text = "[0000]\r\nVL=3.00\r\n[0002]\r\nV0=0\r\nV1=0\r\nV2=1\r\nV4=10\r\n";

    /// A hole of one arc and its mark, then a square of four lines and its mark: 7 elements, 2 profiles.
    static void MakePart()
    {
        ClearPart();
        AddArc({30, 20}, {30, 20}, {20, 20}, 10);
        AddEnd(KindEnd, Pi * 100);
        AddLines({{0, 0}, {0, 100}, {100, 100}, {100, 0}, {0, 0}});
        AddEnd(KindOuterEnd, -10000);
        MeasureProfiles(FlagOn);
        InitLeadData();
    }

    static void WriteDrawing(const std::string& file)
    {
        WriteDrawingElements(file);
        WriteDrawingProfiles(file);
    }

    std::string Bytes(const std::string& name = "A") const
    {
        return Station.Read("NEST/DATA/" + name + ".drw");
    }

    std::string_view Record(const std::string& bytes, std::size_t number) const
    {
        return std::string_view(bytes).substr((number - 1) * DrawingRecordSize, DrawingRecordSize);
    }

    /// Loads job A with these bytes as its geometry; true when there is a part then.
    bool Loads(const std::string& bytes) const
    {
        Station.Write("NEST/A.nst", Text);
        Station.Write("NEST/DATA/A.drw", bytes);
        LoadJob("A");
        return AppState.ElementCount > 0 || AppState.ProfileCount > 0;
    }
};

TEST_F(JobDrawing, HoldsTheUntransformedElementsAndTheProfiles)
{
    MakePart();
    AppState.ElementTable[1].StartX = 999.0; // of the working table, which is not saved
    WriteDrawing("A.nst");
    const std::string bytes = Bytes();
    ASSERT_EQ(bytes.size(), 7 * DrawingRecordSize);
    for (std::size_t k = 1; k <= 7; ++k) {
        EXPECT_EQ(UnpackCount(Record(bytes, k), ElementCountAt), 7);
        EXPECT_TRUE(SameElement(UnpackElement(Record(bytes, k)), AppState.ShadowElements[k])) << k;
        EXPECT_EQ(UnpackCount(Record(bytes, k), ProfileCountAt), k <= 3 ? 2 : 0);
    }
    EXPECT_EQ(UnpackProfile(Record(bytes, 1)).LeadElement, 2) << "record 1 tells the count of the profiles";
    EXPECT_EQ(UnpackProfile(Record(bytes, 1)).Status, LeadUnset);
    EXPECT_EQ(UnpackProfile(Record(bytes, 2)).RecordNumber, 1);
    EXPECT_EQ(UnpackProfile(Record(bytes, 3)).RecordNumber, 2);
    EXPECT_EQ(UnpackProfile(Record(bytes, 3)).LeadPosition, 10.0);
    EXPECT_FALSE(Station.Holds("NEST/DATA/A.drw.part"));
}

TEST_F(JobDrawing, ComesBack)
{
    MakePart();
    AppState.ProfileTable[2].LeadInAngle = 0.25;
    WriteDrawing("A.nst");
    const std::vector<ProfileElement> elements = AppState.ShadowElements;
    ClearPart();
    AppState.MarkPoints.resize(3);
    AppState.MarkPointCount = 2;
    ASSERT_TRUE(Loads(Bytes()));
    EXPECT_EQ(AppState.ElementCount, 7);
    EXPECT_EQ(AppState.ProfileCount, 2);
    EXPECT_EQ(AppState.CurrentProfile, 1);
    EXPECT_EQ(AppState.MarkPointCount, 0);
    EXPECT_EQ(FirstDifference(AppState.ShadowElements, elements), 0U);
    EXPECT_EQ(AppState.ProfileTable[2].LeadInAngle, 0.25) << "no field sets it";
    EXPECT_NEAR(AppState.TotalCutLength, 2 * Pi * 10 + 400, 1e-9);
    EXPECT_EQ(AppState.WorkExternalSense, -1);
    EXPECT_EQ(AppState.KeepLeadData, FlagOn);
}

TEST_F(JobDrawing, IsTurnedAsTheFieldsSay)
{
    MakePart();
    WriteDrawing("A.nst");
    Station.Write("NEST/A.nst", "[0000]\nVL=3.00\n[0001]\nS=3001\n[0002]\nV0=90\nV1=0\nV2=2\nV4=0\n");
    LoadJob("A");
    EXPECT_NEAR(AppState.MaxX, 200.0, 1e-9);
    // The centre (20, 20) stands at (-20, 20) behind the turn, at (80, 20) on the shifted part, and doubled there.
    EXPECT_NEAR(AppState.ElementTable[1].GeoA, 160.0, 1e-9);
    EXPECT_NEAR(AppState.ElementTable[1].GeoB, 40.0, 1e-9);
    EXPECT_EQ(AppState.ShadowElements[1].GeoA, 20.0);
    EXPECT_EQ(AppState.WorkExternalSense, 1) << "a part that is a hole";
    EXPECT_EQ(AppState.MoveStep, 10.0) << "0 is no step";
}

TEST_F(JobDrawing, IsCutAsItsShapeIs)
{
    MakePart();
    WriteDrawing("A.nst");
    for (const bool stroke : {true, false}) {
        Station.Write("NEST/A.nst",
                      std::string("[0000]\nVL=3.00\n[0001]\nS=") + (stroke ? "1039" : "1005") + "\n");
        LoadJob("A");
        EXPECT_EQ(AppState.OpenShapePart, ToFlag(stroke)) << "ahead of its development, too";
        EXPECT_EQ(AppState.NoKerfCodes, ToFlag(stroke));
    }
}

TEST_F(JobDrawing, KeepsStaleRecordsThatNobodyReads)
{
    MakePart();
    WriteDrawing("A.nst");
    const std::string before = Bytes();
    ClearPart();
    MakeSquare(ImportedClass); // 5 elements
    WriteDrawing("A.nst");
    const std::string after = Bytes();
    ASSERT_EQ(after.size(), before.size());
    EXPECT_EQ(Record(after, 6), Record(before, 6));
    EXPECT_EQ(Record(after, 7), Record(before, 7));
    ClearPart();
    ASSERT_TRUE(Loads(after));
    EXPECT_EQ(AppState.ElementCount, 5);
    EXPECT_EQ(AppState.ProfileCount, 1);
    EXPECT_EQ(AppState.ShadowElements.size(), 6U);
    EXPECT_EQ(AppState.ElementTable.size(), 6U);
}

TEST_F(JobDrawing, GrowsByProfilesWithoutElements)
{
    ClearPart();
    AddElement(KindOuterEnd, 1, 2, 0, 0, 0, 0, 0, 0);
    SaveShadow();
    AppState.ProfileTable.resize(4);
    AppState.ProfileTable[3].RecordNumber = 3;
    WriteDrawing("A.nst");
    const std::string bytes = Bytes();
    ASSERT_EQ(bytes.size(), 4 * DrawingRecordSize);
    EXPECT_EQ(UnpackCount(Record(bytes, 1), ElementCountAt), 1);
    for (const std::size_t k : {2, 3, 4}) {
        EXPECT_EQ(UnpackCount(Record(bytes, k), ElementCountAt), 0);
        EXPECT_EQ(UnpackCount(Record(bytes, k), ProfileCountAt), 3);
    }
    ASSERT_TRUE(Loads(bytes));
    EXPECT_EQ(AppState.ProfileCount, 3);
    EXPECT_EQ(AppState.ElementCount, 1);
}

TEST_F(JobDrawing, IsntReplacedByProfilesAlone)
{
    MakePart();
    WriteDrawing("A.nst");
    const std::string before = Bytes();
    WriteDrawingElements("A.nst");
    fs::remove(Station.Path + "/NEST/DATA/A.drw.part");
    EXPECT_THROW(WriteDrawingProfiles("A.nst"), RunTimeFault);
    EXPECT_EQ(Bytes(), before);
}

TEST_F(JobDrawing, OfNothingTellsCountsOfNothing)
{
    MakePart();
    WriteDrawing("A.nst");
    ClearPart();
    WriteDrawing("A.nst");
    const std::string bytes = Bytes();
    EXPECT_EQ(bytes.size(), 7 * DrawingRecordSize);
    EXPECT_EQ(UnpackCount(Record(bytes, 1), ElementCountAt), 0);
    EXPECT_EQ(UnpackProfile(Record(bytes, 1)).LeadElement, 0);
    EXPECT_FALSE(Loads(bytes));
    WriteDrawing("NEW.nst");
    EXPECT_EQ(Bytes("NEW"), std::string(DrawingRecordSize, '\0'));
    EXPECT_FALSE(Loads(Bytes("NEW")));
}

TEST_F(JobDrawing, ThatIsMissingLeavesNoDrawingAndAsksForNoVersion)
{
    for (const char* version : {"VL=3.00", "VL=2.00", ""}) {
        MakePart();
        Station.Write("NEST/B.nst", std::string("[0000]\n") + version + "\n[0002]\nV0=45\n");
        TakeCalls();
        LoadJob("B");
        EXPECT_EQ(AppState.ElementCount, 0);
        EXPECT_EQ(AppState.ProfileCount, 0);
        EXPECT_EQ(AppState.CurrentProfile, 0);
        EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "45");
        EXPECT_THAT(Screen.Calls, Not(Contains("end 1")));
    }
}

TEST_F(JobDrawing, OfAnotherFormatEndsTheProgramBehindItsBox)
{
    MakePart();
    WriteDrawing("A.nst");
    for (const char* version : {"VL=3.01", "VL=2.00", "VL=3.000", "VL=3", "VL=", ""}) {
        Station.Write("NEST/A.nst", std::string("[0000]\n") + version + "\n[0002]\nV0=45\n");
        SetText(AppState.TextCutting[FieldAngle], "0");
        TakeCalls();
        try {
            LoadJob("A");
            ADD_FAILURE() << version;
        } catch (const ProcessEnded& ended) {
            EXPECT_NE(ended.Status, 0);
        }
        EXPECT_EQ(TakeCalls(), (std::vector<std::string>{"box text 34|Old file format!||one", "end 1"}));
        EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "45") << "the fields are filled by then";
    }
    Station.Write("NEST/A.nst", "[0000]\nVL= 3.00 \n");
    EXPECT_NO_THROW(LoadJob("A"));
}

TEST_F(JobDrawing, ThatMakesNoSenseIsRefusedLikeAMissingOne)
{
    MakePart();
    WriteDrawing("A.nst");
    const std::string good = Bytes();
    ASSERT_TRUE(Loads(good));
    const auto with = [&good](std::size_t at, const std::string& bytes) {
        std::string changed = good;
        return changed.replace(at, bytes.size(), bytes);
    };
    const auto withNumber = [&good](std::size_t number, std::size_t offset, double value) {
        std::string changed = good;
        ProfileElement element = UnpackElement(good.substr((number - 1) * DrawingRecordSize));
        ProfileRecord profile = UnpackProfile(good.substr((number - 1) * DrawingRecordSize));
        (offset == 0 ? element.EndY : profile.LeadPosition) = value;
        char* record = changed.data() + (number - 1) * DrawingRecordSize;
        PackElement(record, element);
        PackProfile(record, profile);
        return changed;
    };
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
    const std::string minusOne("\xFF\xFF\xFF\xFF");
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"short by a byte", good.substr(0, good.size() - 1)},
        {"half a record", good.substr(0, 100)},
        {"six of seven", good.substr(0, 6 * DrawingRecordSize)},
        {"elements below 0", with(124, minusOne)},
        {"elements beyond the limit", with(124, std::string("\0\x80\0\0", 4))},
        {"many elements", with(124, "\xFF\xFF\xFF\x7F")},
        {"one element too many", with(124, std::string("\x08\0\0\0", 4))},
        {"profiles below 0", with(80, "\xFF\xFF")},
        {"many profiles", with(80, "\xFF\x7F")},
        {"a kind 0", with(128 + 24, std::string("\0\0", 2))},
        {"a kind 4", with(3 * DrawingRecordSize + 128 + 24, std::string("\4\0", 2))},
        {"a kind 0x0101", with(128 + 24, "\1\1")},
        {"not a number", withNumber(4, 0, NaN)},
        {"infinite", withNumber(7, 0, -Infinity)},
        {"beyond all coordinates", withNumber(7, 0, 1e31)},
        {"a lead nowhere", withNumber(3, 1, NaN)},
        {"a text", std::string(5000, 'x')},
        {"a picture", "BM" + std::string(3000, '\0')},
    };
    for (const auto& [name, bytes] : cases) {
        MakePart();
        SetText(AppState.TextCutting[FieldAngle], "7");
        EXPECT_FALSE(Loads(bytes)) << name;
        EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "0") << name;
    }
    EXPECT_TRUE(Loads(good + "tail")) << "half a record behind the counts is nobody's";
}

TEST_F(JobDrawing, ThatIsNoFileIsRefused)
{
    Station.Write("NEST/A.nst", Text);
    const std::string path = Station.Path + "/NEST/DATA/A.drw";
    fs::create_directories(path);
    LoadJob("A");
    EXPECT_EQ(AppState.ElementCount, 0);
    fs::remove_all(path);
    Station.Write("NEST/DATA/A.drw", "");
    fs::resize_file(path, std::uintmax_t{1} << 40); // a hole of 1 TB
    LoadJob("A");
    EXPECT_EQ(AppState.ElementCount, 0);
    MakePart();
    WriteDrawing("A.nst");
    EXPECT_EQ(fs::file_size(path), 7 * DrawingRecordSize) << "what was no geometry isn't carried along";
}

TEST_F(JobDrawing, OfAnotherJobIsTaken)
{
    MakePart();
    WriteDrawing("A.nst");
    ClearPart();
    MakeSquare(LibraryClass);
    WriteDrawing("B.nst");
    Station.Write("NEST/A.nst", Text);
    fs::copy_file(Station.Path + "/NEST/DATA/B.drw", Station.Path + "/NEST/DATA/A.drw",
                  fs::copy_options::overwrite_existing);
    LoadJob("A");
    EXPECT_EQ(AppState.ElementCount, 5);
    EXPECT_EQ(AppState.ProfileCount, 1);
}

TEST_F(JobDrawing, FitsNoEndMarks)
{
    // Counts that the elements don't bear out: nothing may be read past the tables.
    MakePart();
    WriteDrawing("A.nst");
    std::string bytes = Bytes();
    for (const char profiles : {'\0', '\1', '\3', '\6'}) {
        bytes[80] = profiles;
        Station.Write("NEST/A.nst", Text);
        Station.Write("NEST/DATA/A.drw", bytes);
        OpenSavedJob("A");
        NextCamTab();
        NextCamTab();
        EXPECT_EQ(AppState.ProfileCount, profiles);
        EXPECT_EQ(AppState.ScreenState, ScreenNesting);
        SaveJob("C");
    }
}

TEST_F(JobDrawing, IsNamedUpToTheExtension)
{
    MakePart();
    WriteDrawing("A.nstB");
    EXPECT_TRUE(Station.Holds("NEST/DATA/A.drw"));
    WriteDrawing("c.NST");
    EXPECT_TRUE(Station.Holds("NEST/DATA/c.drw"));
}
} // namespace
