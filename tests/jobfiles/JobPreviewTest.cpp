// The picture of a job, and the caption on the picture of a part.
#include "jobfiles/JobFiles.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Bitmap.h"
#include "post/Korvanta_PostProcessor.h"
#include "shell/InputLists.h"
#include "shell/InputScreen.h"
#include "shell/ValueFields.h"
#include "support/RecordingSurface.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{
class JobPreview : public StationCase
{
};

TEST_F(JobPreview, IsTheNestOnThePreview)
{
    OpenPlate(2);
    Drawn.Shown = true;
    SetText(AppState.TextNesting[FieldSheetX], "230");
    EnterSaveMode();
    AppState.Window.PreviewWidth = 90;
    AppState.Window.PreviewHeight = 70;
    TakeStrokes();
    WriteJobPreview("JOB");
    EXPECT_THAT(Drawn.Pictures, testing::Each(Picture::Preview));
    const std::vector<std::string> strokes = TakeStrokes();
    EXPECT_EQ(strokes.front(), "clear");
    EXPECT_THAT(strokes, Contains("fill 0 0 230 60 #ffffff")) << "the sheet";
    EXPECT_EQ(strokes.back(), "bitmap 90 70");
    EXPECT_EQ(Station.Read("NEST/DATA/JOB.bmp"), BitmapBytes(1, 1, Drawn.Pixel));
}

TEST_F(JobPreview, LeavesTheViewOfTheNestThatTheProgramTells)
{
    Station.Write("PPR.ini", "[MainProgram_BEGIN]\nLINE1=*SIZ\n");
    Screen.PictureWidth = 1000;
    Screen.PictureHeight = 500;
    OpenPlate(2);
    GenerateProgram("BEFORE");
    EnterSaveMode();
    Screen.PictureWidth = 120; // upright, as the preview is
    Screen.PictureHeight = 155;
    DrawNestPreview();
    WriteJobPreview("JOB");
    GenerateProgram("AFTER");
    EXPECT_THAT(Station.Read("NC/BEFORE"), StartsWith("<SIZ:XYZ;-10;"));
    EXPECT_EQ(Station.Read("NC/AFTER"), Station.Read("NC/BEFORE"));
}

TEST_F(JobPreview, IsShownByItsName)
{
    AppState.PreviewNest = FlagOn;
    ShowJobPreview(Picture::Preview, " PLATE");
    EXPECT_EQ(AppState.PreviewJob, " PLATE") << "a blank belongs to the name";
    ShowJobPreview(Picture::Preview, "PLATE.NST");
    EXPECT_EQ(AppState.PreviewJob, "PLATE");
    EXPECT_EQ(AppState.PreviewNest, FlagOff);
    AppState.PreviewNest = FlagOn;
    ShowJobPreview(Picture::Preview, "  ");
    EXPECT_EQ(AppState.PreviewJob, "PLATE") << "no name changes nothing";
    EXPECT_EQ(AppState.PreviewNest, FlagOn);
}

TEST_F(JobPreview, CaptionNamesTheJobOrItsSource)
{
    Drawn.Shown = true;
    AppState.ViewLeft = -5;
    AppState.ViewTop = 70;
    AppState.JobName = "C:\\NEST\\PLATE.nst";
    AppState.SourceName = "plate.dxf";
    PreviewCaption(Picture::Param, 0);
    EXPECT_THAT(TakeStrokes(), ElementsAre("font 15 bold", "text -5 70 ' PLATE ' #0000ff", "font 15"));
    PreviewCaption(Picture::Param, 1);
    EXPECT_THAT(TakeStrokes(), Contains("text -5 70 ' plate.dxf ' #0000ff"));
    Drawn.Shown = false;
    PreviewCaption(Picture::Param, 1);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
}

TEST_F(JobPreview, CaptionStandsOnThePartThatIsNoShape)
{
    Drawn.Shown = true;
    ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
    EXPECT_THAT(TakeStrokesLike("text"), Contains(testing::HasSubstr("' plate.iso ' #0000ff")));
    OpenShape(1001);
    EXPECT_THAT(TakeStrokesLike("font 15 bold"), IsEmpty());
}

TEST(Bitmap, HasItsHeaderAndRowsFromTheBottom)
{
    const std::uint32_t pixels[] = {0x010203, 0xFFFFFF, 0x0A0B0C, 0x000000, 0x0000FF, 0xFFFF0000};
    const std::string bytes = BitmapBytes(3, 2, pixels);
    // 54 bytes, then two rows of 9 bytes and 3 that fill up.
    ASSERT_EQ(bytes.size(), 54U + 2 * 12);
    EXPECT_EQ(bytes.substr(0, 14), std::string("BM\x4E\0\0\0\0\0\0\0\x36\0\0\0", 14));
    EXPECT_EQ(bytes.substr(14, 16), std::string("\x28\0\0\0\3\0\0\0\2\0\0\0\1\0\x18\0", 16));
    EXPECT_EQ(bytes.substr(54, 12), std::string("\0\0\0\xFF\0\0\0\0\xFF\0\0\0", 12));
    EXPECT_EQ(bytes.substr(66, 12), std::string("\3\2\1\xFF\xFF\xFF\x0C\x0B\x0A\0\0\0", 12));
}
} // namespace
