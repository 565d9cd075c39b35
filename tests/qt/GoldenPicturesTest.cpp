// Whole pictures as they are painted, against tests/golden/pictures. Without texts: fonts differ between machines.
// KORVANTA_REWRITE_GOLDEN=1 in the environment paints them anew; look at them before you commit them.
#include "config/Korvanta_Configuration.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "profile/Drawing.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "qt/PaintSurface.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"

#include <QString>

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace
{
constexpr int Tolerance8Bit = 8; ///< of a colour: sines differ in their last digit
constexpr std::int16_t LeadWidth = 2;

/// A plate with round corners, a circle, a slot that leans, and a star of short chords.
void MakePlate()
{
    AddLines({{20, 0}, {280, 0}});
    AddArc({280, 0}, {300, 20}, {280, 20}, 20);
    AddLines({{300, 20}, {300, 140}, {240, 180}, {20, 180}});
    AddArc({20, 180}, {0, 160}, {20, 160}, 20);
    AddLines({{0, 160}, {0, 20}});
    AddArc({0, 20}, {20, 0}, {20, 20}, 20);
    AddEnd(KindOuterEnd, 52000);
    AddArc({120, 100}, {120, 100}, {90, 100}, -30);
    AddEnd(KindEnd, -2827);
    const auto along = [](double x, double y) -> PlanePoint {
        const double turn = 0.4;
        return {200 + x * std::cos(turn) - y * std::sin(turn), 60 + x * std::sin(turn) + y * std::cos(turn)};
    };
    AddLines({along(-40, 12), along(40, 12)});
    AddArc(along(40, 12), along(40, -12), along(40, 0), -12);
    AddLines({along(40, -12), along(-40, -12)});
    AddArc(along(-40, -12), along(-40, 12), along(-40, 0), -12);
    AddEnd(KindEnd, -2372);
    std::vector<PlanePoint> star;
    for (int i = 0; i <= 240; ++i) {
        const double angle = -2 * Pi * i / 240;
        const double radius = 22 + 6 * std::cos(5 * angle);
        star.push_back({210 + radius * std::cos(angle), 135 + radius * std::sin(angle)});
    }
    AddLines(star);
    AddEnd(KindEnd, -1577);
    MeasureProfiles(FlagOn);
    ComputeBounds();
    InitLeadData();
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        ProfileRecord& record = AppState.ProfileTable.at(static_cast<std::size_t>(profile));
        record.LeadInLength = 12;
        record.LeadInRadius = 6;
        record.LeadOutLength = 6;
        record.LeadOutRadius = 6;
    }
}

class GoldenPicture : public testing::Test
{
protected:
    void SetUp() override
    {
        ResetAppState();
        ResetFields();
        HoldConfigWrites();
        WriteConfig("CONFIG", "KERFPOSDRAW", "5");
        MakePlate();
    }
    void TearDown() override
    {
        ResizeSurface(Picture::Tecno, QSize(), 1.0);
    }

    static void ExpectGolden(Picture picture, const std::string& name)
    {
        const QString path =
            QString::fromStdString(KORVANTA_SOURCE_DIR "/tests/golden/pictures/" + name + ".png");
        const QImage painted = SurfaceImage(picture);
        if (std::getenv("KORVANTA_REWRITE_GOLDEN") != nullptr) {
            painted.save(path);
        }
        const QImage expected = QImage(path).convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(painted.size(), expected.size()) << name;
        int worst = 0;
        for (int y = 0; y < painted.height(); ++y) {
            for (int x = 0; x < painted.width(); ++x) {
                const QRgb a = painted.pixel(x, y);
                const QRgb b = expected.pixel(x, y);
                worst = std::max({worst, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                  std::abs(qBlue(a) - qBlue(b))});
            }
        }
        EXPECT_LE(worst, Tolerance8Bit) << name;
    }

    static void DrawCutting(QSize size, qreal ratio)
    {
        AppState.ScreenState = ScreenCutting;
        AppState.CurrentProfile = 3;
        ResizeSurface(Picture::Tecno, size, ratio);
        DrawScene(Picture::Tecno, FlagOn, FlagOff, FlagOn);
        DrawMoves(Picture::Tecno, 0.0, 0.0, LeadWidth);
        DrawOriginMark(Picture::Tecno);
    }

    static void DrawNest(QSize size, qreal ratio)
    {
        AppState.ScreenState = ScreenNesting;
        AppState.CurrentProfile = 2;
        AppState.TextNesting[FieldSheetX].Text = "4000";
        AppState.TextNesting[FieldSheetY].Text = "2500";
        AppState.TextNesting[FieldGapX].Text = "10";
        AppState.TextNesting[FieldGapY].Text = "10";
        AppState.TextNesting[FieldNestType].Text = "1";
        ResizeSurface(Picture::Nesting, size, ratio);
        DrawScene(Picture::Nesting, FlagOn, FlagOff, FlagOff);
        for (int row = 0; row < 13; ++row) {
            DrawMoves(Picture::Nesting, 5.0, 5.0 + 190 * row, LeadWidth);
        }
    }
};

TEST_F(GoldenPicture, Cutting)
{
    DrawCutting(QSize(640, 420), 1.0);
    ExpectGolden(Picture::Tecno, "cutting");
}

TEST_F(GoldenPicture, CuttingOnAFineScreen)
{
    DrawCutting(QSize(400, 260), 2.0);
    ExpectGolden(Picture::Tecno, "cutting-ratio-2");
}

TEST_F(GoldenPicture, CuttingBetween)
{
    DrawCutting(QSize(400, 260), 1.5);
    ExpectGolden(Picture::Tecno, "cutting-ratio-1.5");
}

TEST_F(GoldenPicture, ZoomFrame)
{
    DrawCutting(QSize(480, 320), 1.0);
    AppState.ViewCentreX = 200;
    AppState.ViewCentreY = 60;
    DrawZoomFrame(Picture::Tecno, 3.0);
    ExpectGolden(Picture::Tecno, "zoom-frame");
}

TEST_F(GoldenPicture, Nest)
{
    DrawNest(QSize(640, 420), 1.0);
    ExpectGolden(Picture::Nesting, "nest");
}
} // namespace
