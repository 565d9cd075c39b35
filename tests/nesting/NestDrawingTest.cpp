// The picture of a nest against the plain way to draw it: each copy on its own, element by element, its marker set
// anew and its leads found anew. Same strokes, same pens, same order.
#include "nesting/Korvanta_CutTecnology.h"
#include "nesting/NestNumbers.h"

#include "config/Korvanta_Configuration.h"
#include "profile/Drawing.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/Strokes.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace
{
int Pick(std::mt19937& random, int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(random);
}

/// Some holes and an outline with a round corner, mark points, one profile selected.
void MakePart(std::mt19937& random)
{
    const double imported = Pick(random, 0, 1) != 0 ? ImportedClass : LibraryClass;
    const int holes = Pick(random, 0, 3);
    for (int i = 0; i < holes; ++i) {
        if (Pick(random, 0, 1) != 0) {
            PutCircle(4 + 8 * i, 6, Pick(random, 0, 1) != 0 ? 2 : -2);
            AddEnd(KindEnd, 12, imported);
        } else if (Pick(random, 0, 2) != 0) {
            PutBox(2 + 8 * i, 4, 3, 5, Pick(random, 0, 1) != 0);
            AddEnd(KindEnd, 15, imported);
        } else {
            PutLine(2 + 8 * i, 4, 5 + 8 * i, 9, 0);
            AddEnd(KindEnd, 0, imported);
        }
    }
    const double width = Pick(random, 30, 50);
    const double height = Pick(random, 12, 40);
    PutLine(0, 0, 0, height);
    PutLine(0, height, width - 4, height);
    PutArc(width - 4, height, width, height - 4, width - 4, height - 4, -4);
    PutLine(width, height - 4, width, 0);
    PutLine(width, 0, 0, 0);
    AddEnd(KindOuterEnd, -width * height, imported);
    AppState.MarkPoints = {{0, 0}, {1, 1}, {width - 1, 2}};
    AppState.MarkPointCount = Pick(random, 0, 2);
    MeasureProfiles(FlagOn);
    ComputeBounds();
    InitLeadData();
    AppState.CurrentProfile = Pick(random, 0, AppState.ProfileCount);
    AppState.MoveStep = Pick(random, 1, 20);
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        ProfileRecord& record = AppState.ProfileTable[static_cast<std::size_t>(profile)];
        record.LeadPosition = record.ProfileLength * Pick(random, 0, 12) / 8; // also past the end
        record.LeadOutLineOn = ToFlag(Pick(random, 0, 1) != 0);
        record.LeadOutLength = 3;
        record.LeadOutArcOn = ToFlag(Pick(random, 0, 1) != 0);
        record.LeadOutRadius = 2;
        record.Side = Pick(random, 0, 1) != 0 ? 1 : -1;
    }
}

void SetNest(std::mt19937& random)
{
    const auto set = [](NestingField field, int number) {
        AppState.TextNesting[static_cast<std::size_t>(field)].Text = std::to_string(number);
    };
    set(FieldSheetX, Pick(random, 40, 260));
    set(FieldSheetY, Pick(random, 40, 200));
    set(FieldKerf, Pick(random, 0, 2));
    set(FieldGapX, Pick(random, -3, 8));
    set(FieldGapY, Pick(random, -3, 8));
    set(FieldNestType, Pick(random, 1, 4));
}

/// One copy, element by element.
void PlainPart(Picture picture, double x, double y)
{
    std::int32_t profile = 1;
    bool first = true;
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        const ProfileElement& element = Slot(slot);
        const bool current = AppState.CurrentProfile == profile;
        SurfaceSetPen(picture, {current ? ColourRed : ColourBlack, static_cast<std::int16_t>(current ? 3 : 1),
                                false, false});
        if (element.Kind == KindLine) {
            DrawLine(picture, x + element.StartX, y + element.StartY, x + element.EndX, y + element.EndY);
        } else if (element.Kind == KindArc) {
            DrawArc(picture, x + element.GeoA, y + element.GeoB, x + element.StartX, y + element.StartY,
                    x + element.EndX, y + element.EndY, element.GeoC);
        }
        if (IsEndMark(element.Kind)) {
            ++profile;
            first = true;
        } else if (first) {
            DrawKerfMarker(picture, slot, x, y);
            first = false;
        }
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        const MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        const double reachX = PixelsX(5);
        const double reachY = PixelsY(5);
        DrawLine(picture, x + point.X - reachX, y + point.Y, x + point.X + reachX, y + point.Y);
        DrawLine(picture, x + point.X, y + point.Y - reachY, x + point.X, y + point.Y + reachY);
    }
}

/// The copies on the screen, as they are told.
void PlainNest(Picture picture)
{
    const auto number = [](NestingField field) {
        return FieldNumber(AppState.TextNesting[static_cast<std::size_t>(field)]);
    };
    const double stepX = AppState.PartSizeX + AppState.GapX;
    if (AppState.CountX == 1 && AppState.CountY == 1) {
        PlainPart(picture, 0, 0);
    } else if (AppState.NestKind < 3) {
        for (int i = 0; i < AppState.CountX; ++i) {
            for (int j = 0; j < AppState.CountY; ++j) {
                PlainPart(picture, i * stepX + AppState.GapX / 2,
                          j * (AppState.PartSizeY + AppState.GapY) + AppState.GapY / 2);
            }
        }
    } else {
        for (int j = 0; j <= AppState.CountY; ++j) {
            for (int i = 0; i < AppState.CountX; ++i) {
                const double x = i * stepX + AppState.GapX / 2 + (j % 2 != 0 ? stepX / 2 : 0);
                const double y = j * (AppState.PartSizeY * 0.866 + AppState.GapY) + AppState.GapY / 2;
                if (x + AppState.PartSizeX <= number(FieldSheetX) + 1.0 &&
                    y + AppState.PartSizeY * 0.866 <= number(FieldSheetY) + 1.0) {
                    PlainPart(picture, x, y);
                }
            }
        }
    }
}

struct PlainWalk {
    std::int32_t Copies = 0;
};

bool PlainCopyMoves(double x, double y, void* context)
{
    ++static_cast<PlainWalk*>(context)->Copies;
    DrawMoves(Picture::Nesting, x, y, 2);
    return true;
}

using Strokes = std::vector<std::string>;

/// Without what the plain drawing leaves out: fit, sheet, axes, texts and origin mark.
Strokes OfTheCopies(const Strokes& strokes)
{
    Strokes kept;
    for (const std::string& stroke : strokes) {
        const bool drawn =
            stroke.starts_with("line") || stroke.starts_with("arc") || stroke.starts_with("circle");
        if (drawn && stroke.find("#0000ff") == std::string::npos) {
            kept.push_back(stroke);
        }
    }
    return kept;
}

TEST(NestDrawing, EqualsThePlainDrawing)
{
    std::mt19937 random(5510);
    std::size_t many = 0;
    std::size_t strokes = 0;
    for (int round = 0; round < 250; ++round) {
        StartCase();
        HoldConfigWrites();
        AppState.ScreenState = ScreenNesting;
        WriteConfig("CONFIG", "KERFPOSDRAW", std::to_string(Pick(random, 0, 6)));
        MakePart(random);
        SetNest(random);
        const std::vector<ProfileRecord> before = AppState.ProfileTable;
        Drawn.Shown = true;
        RedrawScene(FlagOn);
        const Strokes fast = OfTheCopies(TakeStrokes());
        const std::vector<ProfileRecord> after = AppState.ProfileTable;

        AppState.ProfileTable = before;
        PlainNest(Picture::Nesting);
        AppState.PenX = AppState.PenY = 0.0;
        PlainWalk walk;
        WalkCopies(AppState.GapX / 2, AppState.GapY / 2, PlainCopyMoves, &walk);
        ASSERT_EQ(fast, OfTheCopies(TakeStrokes())) << "round " << round;
        ASSERT_EQ(AppState.CopiesDrawn, walk.Copies) << "round " << round;
        for (std::size_t i = 1; i < after.size(); ++i) {
            ASSERT_EQ(after[i].LeadPosition, AppState.ProfileTable[i].LeadPosition) << "round " << round;
        }
        many += walk.Copies > 3 ? 1 : 0;
        strokes += fast.size();
    }
    EXPECT_GT(many, 100U);
    EXPECT_GT(strokes, 20000U);
}
TEST(CopiesToDraw, EndsThePictureOfCopiesThatLieOnEachOther)
{
    StartCase();
    AppState.ElementCount = 40;
    AppState.UnitsPerPixelX = 0.5;
    AppState.TotalCutLength = 20.0;
    EXPECT_EQ(CopiesToDraw(), 200000) << "small ones beside each other";
    AppState.TotalCutLength = 25000.0; // 50000 pixels each
    EXPECT_EQ(CopiesToDraw(), 800);
    AppState.TotalCutLength = 1e15; // each line across the picture: 80000 pixels
    EXPECT_EQ(CopiesToDraw(), 500);
    AppState.ElementCount = MaxElements;
    EXPECT_EQ(CopiesToDraw(), 100);
}
} // namespace
