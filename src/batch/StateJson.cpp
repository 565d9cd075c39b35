#include "batch/StateJson.h"

#include "config/Korvanta_Utility.h"
#include "config/PprValues.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Fault.h"
#include "platform/Paths.h"
#include "post/Korvanta_PostProcessor.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Parameters.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <vector>

namespace
{
/// The text is held in memory; more copies than this are a slip of the keyboard, and would fill it.
constexpr std::int64_t MaxListedCopies = 4000000;

/// JSON text being written. The library's own writer gives the shortest digits, not 17, so only its quoting of texts
/// is used. Values are separated by commas; a line break ahead of each one of a list keeps the text readable.
struct JsonText {
    std::string Text;
    bool First = true;
};

void Separate(JsonText& out)
{
    if (!out.First) {
        out.Text += ',';
    }
    out.First = false;
}

void Open(JsonText& out, char bracket)
{
    Separate(out);
    out.Text += bracket;
    out.First = true;
}

void Close(JsonText& out, char bracket)
{
    out.Text += bracket;
    out.First = false;
}

void Break(JsonText& out)
{
    Separate(out);
    out.Text += '\n';
    out.First = true;
}

std::string Quoted(const std::string& text)
{
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void Value(JsonText& out, double value)
{
    Separate(out);
    if (!std::isfinite(value)) { // nothing makes one; a reader must not choke if something does
        out.Text += "null";
        return;
    }
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 17);
    out.Text.append(digits, end.ptr);
}

void Value(JsonText& out, std::int64_t value)
{
    Separate(out);
    out.Text += std::to_string(value);
}

void Value(JsonText& out, std::int32_t value)
{
    Value(out, std::int64_t{value});
}

void Value(JsonText& out, std::int16_t value)
{
    Value(out, std::int64_t{value});
}

void Value(JsonText& out, const std::string& text)
{
    Separate(out);
    out.Text += Quoted(text);
}

void Key(JsonText& out, const std::string& name)
{
    Separate(out);
    out.Text += Quoted(name) + ':';
    out.First = true;
}

template <typename T> void Member(JsonText& out, const char* name, const T& value)
{
    Key(out, name);
    Value(out, value);
}

/// A member of the outermost object, on a line of its own.
template <typename T> void TopMember(JsonText& out, const char* name, const T& value)
{
    Break(out);
    Member(out, name, value);
}

void Point(JsonText& out, double x, double y)
{
    Open(out, '[');
    Value(out, x);
    Value(out, y);
    Close(out, ']');
}

void Element(JsonText& out, const ProfileElement& element)
{
    Break(out);
    Open(out, '{');
    Member(out, "GeoA", element.GeoA);
    Member(out, "GeoB", element.GeoB);
    Member(out, "GeoC", element.GeoC);
    Member(out, "Kind", element.Kind);
    Member(out, "StartX", element.StartX);
    Member(out, "StartY", element.StartY);
    Member(out, "EndX", element.EndX);
    Member(out, "EndY", element.EndY);
    Member(out, "Length", element.Length);
    Member(out, "Sense", element.Sense);
    Member(out, "Closing", element.Closing);
    Close(out, '}');
}

void Profile(JsonText& out, const ProfileRecord& record)
{
    Break(out);
    Open(out, '{');
    Member(out, "Status", record.Status);
    Member(out, "LeadInLength", record.LeadInLength);
    Member(out, "LeadInAngle", record.LeadInAngle);
    Member(out, "LeadInLineOn", record.LeadInLineOn);
    Member(out, "LeadInRadius", record.LeadInRadius);
    Member(out, "LeadInSpare", record.LeadInSpare);
    Member(out, "LeadInArcOn", record.LeadInArcOn);
    Member(out, "LeadOutLength", record.LeadOutLength);
    Member(out, "LeadOutAngle", record.LeadOutAngle);
    Member(out, "LeadOutLineOn", record.LeadOutLineOn);
    Member(out, "LeadOutRadius", record.LeadOutRadius);
    Member(out, "LeadOutSpare", record.LeadOutSpare);
    Member(out, "LeadOutArcOn", record.LeadOutArcOn);
    Member(out, "RecordNumber", record.RecordNumber);
    Member(out, "LeadElement", record.LeadElement);
    Member(out, "ProfileLength", record.ProfileLength);
    Member(out, "LeadPosition", record.LeadPosition);
    Member(out, "Side", record.Side);
    Member(out, "Spare1", record.Spare1);
    Member(out, "CornerSnap", record.CornerSnap);
    Member(out, "Spare2", record.Spare2);
    Close(out, '}');
}

void Move(JsonText& out, const CutMove& move)
{
    Break(out);
    Open(out, '{');
    Member(out, "Phase", move.Phase);
    Member(out, "CentreX", move.CentreX);
    Member(out, "CentreY", move.CentreY);
    Member(out, "Radius", move.Radius);
    Member(out, "X", move.X);
    Member(out, "Y", move.Y);
    Member(out, "Kind", move.Kind);
    Member(out, "Mark", move.Mark);
    Close(out, '}');
}

/// Slots 1 to `count` of a table whose slot 0 holds nothing.
template <typename T>
void Slots(JsonText& out, const char* name, const std::vector<T>& table, void (*write)(JsonText&, const T&))
{
    Break(out);
    Key(out, name);
    Open(out, '[');
    for (std::size_t i = 1; i < table.size(); ++i) {
        write(out, table[i]);
    }
    Close(out, ']');
}

template <typename T> std::vector<T> UpTo(const std::vector<T>& table, std::int32_t count)
{
    const std::size_t wanted = std::min(table.size(), static_cast<std::size_t>(count) + 1);
    return {table.begin(), table.begin() + static_cast<std::ptrdiff_t>(wanted)};
}

void CutMoves(JsonText& out)
{
    const double flyOff = TextToNumber(ReadPprValue("PartProgram_CONFIG", "FLYOFFDIM", "0"));
    std::vector<CutMove> list;
    Break(out);
    Key(out, "CutMoves");
    Open(out, '[');
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        std::int16_t side = 0;
        BuildCutMoves(list, profile, side, flyOff);
        Break(out);
        Open(out, '{');
        Member(out, "side", side);
        Slots(out, "moves", list, Move);
        Close(out, '}');
    }
    Close(out, ']');
}

void Texts(JsonText& out, const char* name, FieldArray fields)
{
    Break(out);
    Key(out, name);
    Open(out, '[');
    for (const ValueField& field : fields) {
        Value(out, field.Text);
    }
    Close(out, ']');
}

bool AddCopy(double x, double y, void* context)
{
    Point(*static_cast<JsonText*>(context), x, y);
    return true;
}

void Nest(JsonText& out)
{
    Break(out);
    Key(out, "Nest");
    Open(out, '{');
    Member(out, "NestKind", AppState.NestKind);
    Member(out, "PartSizeX", AppState.PartSizeX);
    Member(out, "PartSizeY", AppState.PartSizeY);
    Member(out, "GapX", AppState.GapX);
    Member(out, "GapY", AppState.GapY);
    Member(out, "CountX", AppState.CountX);
    Member(out, "CountY", AppState.CountY);
    Member(out, "NestResultX", AppState.NestResultX);
    Member(out, "NestResultY", AppState.NestResultY);
    double originX = 0.0;
    double originY = 0.0;
    ProgramOrigin(originX, originY);
    if (CountCopies(originX, originY) > MaxListedCopies) {
        throw RunTimeFault("the nest has too many copies to list them as JSON");
    }
    Key(out, "Copies");
    Open(out, '[');
    WalkCopies(originX, originY, AddCopy, &out);
    Close(out, ']');
    Close(out, '}');
}

void Program(JsonText& out, bool withProgram)
{
    Break(out);
    Key(out, "Program");
    if (!withProgram) {
        out.Text += "null";
        out.First = false;
        return;
    }
    Open(out, '{');
    Member(out, "Name", AppState.OutputName);
    Member(out, "Path", NativePath(AppState.ProgramPath));
    Member(out, "Lines", AppState.ProgramLines);
    Close(out, '}');
}

void Counts(JsonText& out, const char* name, const std::map<std::string, std::int64_t>& counts)
{
    Key(out, name);
    Open(out, '{');
    for (const auto& [type, count] : counts) {
        Key(out, type);
        Value(out, count);
    }
    Close(out, '}');
}

void Import(JsonText& out)
{
    Break(out);
    Key(out, "Import");
    Open(out, '{');
    Counts(out, "Read", AppState.ImportRead);
    Counts(out, "LeftOut", AppState.ImportLeftOut);
    Key(out, "Open");
    Open(out, '[');
    for (const OpenProfile& open : AppState.ImportOpen) {
        Open(out, '{');
        Member(out, "Profile", open.Profile);
        Member(out, "Gap", open.Gap);
        Member(out, "X", open.X);
        Member(out, "Y", open.Y);
        Close(out, '}');
    }
    Close(out, ']');
    Close(out, '}');
}
} // namespace

std::string StateJson(bool withProgram)
{
    JsonText out;
    Open(out, '{');
    TopMember(out, "ShapeId", AppState.ShapeId);
    TopMember(out, "SourceName", AppState.SourceName);
    TopMember(out, "JobName", AppState.JobName);
    TopMember(out, "ElementCount", AppState.ElementCount);
    TopMember(out, "ProfileCount", AppState.ProfileCount);
    TopMember(out, "TotalCutLength", AppState.TotalCutLength);
    TopMember(out, "MinX", AppState.MinX);
    TopMember(out, "MaxX", AppState.MaxX);
    TopMember(out, "MinY", AppState.MinY);
    TopMember(out, "MaxY", AppState.MaxY);
    Slots(out, "ElementTable", UpTo(AppState.ElementTable, AppState.ElementCount), Element);
    Slots(out, "ShadowElements", UpTo(AppState.ShadowElements, AppState.ElementCount), Element);
    Slots<MarkPoint>(out, "MarkPoints", UpTo(AppState.MarkPoints, AppState.MarkPointCount),
                     [](JsonText& text, const MarkPoint& mark) { Point(text, mark.X, mark.Y); });
    Slots(out, "ProfileTable", UpTo(AppState.ProfileTable, AppState.ProfileCount), Profile);
    CutMoves(out);
    Texts(out, "TextCutting", AppState.TextCutting);
    Texts(out, "TextNesting", AppState.TextNesting);
    Break(out);
    Key(out, "LabelNesting");
    Open(out, '{');
    Member(out, "8", AppState.LabelNesting[LabelCountX]);
    Member(out, "9", AppState.LabelNesting[LabelCountY]);
    Close(out, '}');
    Nest(out);
    Program(out, withProgram);
    if (AppState.ShapeId == 0) {
        Import(out);
    }
    Close(out, '}');
    out.Text += '\n';
    return out.Text;
}

std::string ShapesJson()
{
    JsonText out;
    Open(out, '[');
    for (const ShapeRow& row : ShapeCatalogue()) {
        Break(out);
        Open(out, '{');
        Member(out, "ShapeId", row.ShapeId);
        Member(out, "Name", std::string(row.Name));
        Key(out, "Parameters");
        Open(out, '[');
        for (int i = 0; i < ParameterCount(row); ++i) {
            Open(out, '{');
            Member(out, "Letter", std::string(row.Parameters[i].Letter));
            Member(out, "Default", row.Parameters[i].Default);
            Close(out, '}');
        }
        Close(out, ']');
        Close(out, '}');
    }
    Close(out, ']');
    out.Text += '\n';
    return out.Text;
}
