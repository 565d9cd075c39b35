#include "Job.h"

#include "nesting/Korvanta_CutTecnology.h"
#include "post/Korvanta_PostProcessor.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace
{
constexpr double PolygonStep = 0.2;
constexpr double SamePoint = 0.01;
constexpr int EntryPieces = 2;

/// Its slot is entered at a corner of its square end, so that the lead begins in the part and the last piece runs on into
/// it by half a kerf. korvanta-batch warns of it; an operator moves the lead on.
constexpr char CornerEntry[] = "C-10";

std::string StationBytes(const std::string& name)
{
    std::ifstream file(std::string(KORVANTA_SOURCE_DIR) + "/station/" + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::string Text(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

void PrepareStation(const TempFolder& station, const std::string& table, const Leads& leads)
{
    station.Write("Korvanta.ini", "[CONFIG]\r\nPPR_INI=ppr\\TABLE.ini\r\nNC_PATH=" + station.Path +
                                      "/NC\r\nNESTING_PATH=" + station.Path +
                                      "/NEST\r\n[Lead_CONFIG]\r\nL_In=" + Text(leads.InLine) +
                                      "\r\nL_InRd=" + Text(leads.InArc) + "\r\nL_Out=" + Text(leads.OutLine) +
                                      "\r\nL_OutRd=" + Text(leads.OutArc) + "\r\n");
    station.Write("NEST/readme.txt", "jobs\r\n");
    station.Write("Korvanta_MSG.TXT", StationBytes("Korvanta_MSG.TXT"));
    station.Write("ppr/TABLE.ini", table);
}

/// The drawn element in `slot`, which ends where the next record starts.
Piece PieceOf(std::size_t slot)
{
    const ProfileElement& element = AppState.ElementTable[slot];
    const ProfileElement& next = AppState.ElementTable[slot + 1];
    const Spot start{element.StartX, element.StartY};
    const Spot end{next.StartX, next.StartY};
    if (element.Kind == KindArc) {
        return ArcPiece(start, end, {element.GeoA, element.GeoB}, element.GeoC > 0.0);
    }
    return StraightPiece(start, end);
}

/// The drawn profiles. The end mark stands where its profile ends, so that its last element is like the others.
std::vector<Contour> ReadContours()
{
    std::vector<Contour> contours(1);
    for (std::size_t slot = 1; slot <= static_cast<std::size_t>(AppState.ElementCount); ++slot) {
        const ProfileElement& element = AppState.ElementTable[slot];
        Contour& contour = contours.back();
        if (!IsEndMark(element.Kind)) {
            contour.Pieces.push_back(PieceOf(slot));
            continue;
        }
        contour.Closed = !contour.Pieces.empty() &&
                         Far(contour.Pieces.front().Start, contour.Pieces.back().End) < SamePoint;
        contours.emplace_back();
    }
    contours.pop_back();
    return contours;
}

/// Two open halves of an outline that run from one point to one other bound the part together. Each begins with an entry of
/// its own, a straight piece and an arc.
void JoinHalves(std::vector<Contour>& contours)
{
    for (std::size_t i = 1; i < contours.size(); ++i) {
        Contour& first = contours[i - 1];
        Contour& second = contours[i];
        if (first.Closed || second.Closed ||
            Far(first.Pieces.back().End, second.Pieces.back().End) > SamePoint) {
            continue;
        }
        for (Contour* half : {&first, &second}) {
            half->Entry = LengthOf(half->Pieces[0]) + LengthOf(half->Pieces[1]);
        }
        first.Boundary = Polygon({first.Pieces.begin() + EntryPieces, first.Pieces.end()}, PolygonStep);
        const std::vector<Spot> back =
            Polygon({second.Pieces.begin() + EntryPieces, second.Pieces.end()}, PolygonStep);
        first.Boundary.insert(first.Boundary.end(), back.rbegin(), back.rend());
        second.Boundary = first.Boundary;
    }
}

/// Where the scrap lies: an outline stands in an even number of others. A shape that is a hole stands in the sheet.
void FindScrap(std::vector<Contour>& contours, bool holeShape)
{
    for (Contour& contour : contours) {
        if (contour.Closed) {
            contour.Boundary = Polygon(contour.Pieces, PolygonStep);
        }
    }
    JoinHalves(contours);
    for (Contour& contour : contours) {
        if (!contour.Closed) {
            continue;
        }
        const Spot spot = PointOn(contour.Pieces.front(), 0.5);
        int around = 0;
        for (std::size_t i = 0; i < contours.size(); ++i) {
            const bool secondHalf = i > 0 && !contours[i].Closed && !contours[i - 1].Closed;
            if (&contours[i] != &contour && !secondHalf && Inside(spot, contours[i].Boundary)) {
                ++around;
            }
        }
        contour.ScrapInside = (around % 2 == 1) != holeShape;
    }
}

/// One row of copies: half a gap from the low edges, a gap between the boxes. Calls of sub-programs move up by what the
/// leads stick out below.
std::vector<Spot> PlaceCopies(const std::vector<Contour>& contours, int columns, bool subprograms)
{
    constexpr double Gap = 10.0; // of a new part, in X and Y; no kerf between the copies
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    for (const Contour& contour : contours) {
        for (const Sample& sample : Samples(contour.Pieces, 0.01)) {
            low = std::min(low, sample.At.X);
            high = std::max(high, sample.At.X);
        }
    }
    std::vector<Spot> copies;
    for (int column = 0; column < columns; ++column) {
        copies.push_back({Gap / 2 + column * (high - low + Gap), Gap / 2});
        if (subprograms) {
            copies.back().X -= AppState.ProgramMinX;
            copies.back().Y -= AppState.ProgramMinY;
        }
    }
    return copies;
}

void OpenSource(const std::string& source, const std::vector<std::string>& parameters)
{
    const std::int16_t shape = ShapeIdOfName(source);
    if (shape != 0) {
        OpenShape(shape);
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            SetText(AppState.ParamText[i], parameters[i]);
        }
    } else {
        ASSERT_TRUE(OpenImport(ImportKind::Drawing,
                               std::string(KORVANTA_SOURCE_DIR) + "/station/DXF/" + source + ".dxf"));
    }
    NextCamTab();
    ASSERT_EQ(AppState.ScreenState, ScreenCutting) << source;
}

void ChangePart(const Changes& changes)
{
    SetText(AppState.TextCutting[FieldAngle], Text(changes.Angle));
    SetText(AppState.TextCutting[FieldMirror], Text(changes.Mirror));
    SetText(AppState.TextCutting[FieldScale], Text(changes.Scale));
    ApplyTransform(changes.Angle, static_cast<std::int16_t>(changes.Mirror), changes.Scale, FlagOff);
    for (std::int32_t profile = 1; changes.Turned && profile <= AppState.ProfileCount; ++profile) {
        ToggleProfileSense(profile);
    }
}

bool IsOpen(std::int32_t profile)
{
    return AppState.ElementTable[static_cast<std::size_t>(EndMarkOf(profile))].GeoB == 0.0;
}

/// As an operator does: a lead that stands on a corner is moved on, for in a hole it would begin in the part.
void MoveLeadsOffCorners()
{
    constexpr int Most = 20; // among the short pieces of a spline every place is a corner
    AppState.MoveStep = 1.0;
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        SelectProfile(profile, FlagOff);
        ProfileRecord& record = AppState.ProfileTable[static_cast<std::size_t>(profile)];
        for (int i = 0; i < Most; ++i) {
            LeadRecordArray leads;
            BuildLeads(leads, profile); // finds out whether it stands on a corner
            if (record.Status != LeadStraight || IsOpen(profile)) {
                break;
            }
            MoveLead(1);
        }
    }
}
} // namespace

std::vector<std::string> AllSources()
{
    std::vector<std::string> sources = {"BRACKET", "FLANGE", "GASKET", "PANEL"};
    for (const ShapeRow& row : ShapeCatalogue()) {
        sources.emplace_back(row.Name);
    }
    return sources;
}

Job Cut(const std::string& source, const std::string& table, const Leads& leads, const Changes& changes)
{
    const TempFolder station;
    PrepareStation(station, table, leads);
    StartCase();
    StartStation(station.Path, 1);
    OpenSource(source, changes.Parameters);
    ChangePart(changes);
    if (AppState.ShapeId == 0 ||
        source == CornerEntry) { // other shapes are entered where they themselves say
        MoveLeadsOffCorners();
    }
    NextCamTab();
    SetText(AppState.TextNesting[FieldSheetX], "*" + std::to_string(changes.Columns));
    ApplySheetEntries(0);
    SetText(AppState.TextNesting[FieldSheetY], "*1");
    ApplySheetEntries(1);
    ComputeLayout();
    AppState.JobName = "JOB";
    GenerateProgram("JOB");
    EXPECT_EQ(AppState.ProgramCopies, changes.Columns) << source;

    Job job;
    job.Name = source;
    job.Program = station.Read("NC/" + ProgramFileName("JOB"));
    job.Contours = ReadContours();
    for (std::size_t i = 1; i <= static_cast<std::size_t>(AppState.MarkPointCount); ++i) {
        job.MarkPoints.push_back({AppState.MarkPoints[i].X, AppState.MarkPoints[i].Y});
    }
    FindScrap(job.Contours, AppState.ShapeId >= FamilyHoles);
    job.Copies =
        PlaceCopies(job.Contours, changes.Columns, table.find("\nSUBPROGRAMS=YES") != std::string::npos);
    job.LeadsUsed = leads;
    return job;
}

std::string ShippedTable(const std::string& name)
{
    return StationBytes(name);
}

std::string WithKey(const std::string& table, const std::string& section, const std::string& key,
                    const std::string& value)
{
    std::string text = table;
    const std::size_t head = text.find("\n[" + section + "]\r\n");
    if (head == std::string::npos) {
        return text + "[" + section + "]\r\n" + key + "=" + value + "\r\n";
    }
    const std::size_t end = std::min(text.find("\n[", head + 1), text.size());
    const std::size_t at = text.find("\n" + key + "=", head);
    if (at < end) {
        text.erase(at, text.find('\n', at + 1) - at);
    }
    text.insert(head + section.size() + 5, key + "=" + value + "\r\n");
    return text;
}

std::string WithoutSection(const std::string& table, const std::string& section)
{
    std::string text = table;
    const std::size_t head = text.find("\n[" + section + "]\r\n");
    EXPECT_NE(head, std::string::npos) << section;
    const std::size_t end = std::min(text.find("\n[", head + 1), text.size());
    return text.erase(head, end - head);
}

std::vector<Piece> Moved(const std::vector<Piece>& pieces, const Spot& by)
{
    std::vector<Piece> moved = pieces;
    for (Piece& piece : moved) {
        for (Spot* spot : {&piece.Start, &piece.End, &piece.Centre}) {
            spot->X += by.X;
            spot->Y += by.Y;
        }
    }
    return moved;
}
