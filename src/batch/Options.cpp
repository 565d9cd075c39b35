#include "batch/Options.h"

#include "config/Korvanta_Utility.h"
#include "platform/StationFolder.h"
#include "post/Korvanta_PostProcessor.h"
#include "profile/Korvanta_Common.h"
#include "shapes/Korvanta_Parameters.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

namespace
{
namespace fs = std::filesystem;

/// The captions are words of the command line: they stay English in every language of the station.
struct CaptionRow {
    const char* Caption;
    std::int16_t Screen;
    std::int16_t Field;
};

constexpr CaptionRow Captions[] = {
    {"Angle", ScreenCutting, FieldAngle},          {"Mirror", ScreenCutting, FieldMirror},
    {"Scale", ScreenCutting, FieldScale},          {"Profile nr.", ScreenCutting, FieldProfileNumber},
    {"Move Step", ScreenCutting, FieldMoveStep},   {"LeadIn : A", ScreenCutting, FieldLeadInA},
    {"LeadIn : B", ScreenCutting, FieldLeadInB},   {"LeadOut : C", ScreenCutting, FieldLeadOutC},
    {"LeadOut : D", ScreenCutting, FieldLeadOutD}, {"X Sheet", ScreenNesting, FieldSheetX},
    {"Y Sheet", ScreenNesting, FieldSheetY},       {"Kerf", ScreenNesting, FieldKerf},
    {"X Gap", ScreenNesting, FieldGapX},           {"Y Gap", ScreenNesting, FieldGapY},
    {"Nesting", ScreenNesting, FieldNestType},
};

/// The keys of the Cutting screen, by the names of their pictures.
struct KeyRow {
    const char* Name;
    void (*Run)();
};

constexpr KeyRow Keys[] = {
    {"MoveLeadPlus", [] { MoveLead(1); }},
    {"MoveLeadMinus", [] { MoveLead(-1); }},
    {"MoveLeadNextElem", [] { MoveLeadNextElement(); }},
    {"CopyLeads",
     [] {
         CopyLeadsToAll();
         RedrawScreen(FlagOn);
     }},
    {"PrfPathChange", [] { ChangeProfilePath(); }},
    {"OTLeft", [] { MovePathCursor(1, 0); }},
    {"OTRgt", [] { MovePathCursor(-1, 0); }},
};

constexpr const char* Footer = R"(
Captions for --set:
  Cutting screen   Angle, Mirror, Scale, Profile nr., Move Step,
                   LeadIn : A, LeadIn : B, LeadOut : C, LeadOut : D
  Nesting screen   X Sheet, Y Sheet, Kerf, X Gap, Y Gap, Nesting
Names for --key:
  MoveLeadPlus, MoveLeadMinus, MoveLeadNextElem, CopyLeads, PrfPathChange,
  OTLeft, OTRgt

A value goes through the same checks as one typed at the station: a number
beyond the limits of its field becomes the limit. Lead fields act on the profile
that Profile nr. chose. X Sheet and Y Sheet take "*n": a sheet for n copies.

Examples:
  One bracket, with its program in the NC folder of the station:
    korvanta-batch bracket.dxf --set "Move Step=1" --set "LeadIn : A=3" \
        --set "LeadIn : B=1.5" --key CopyLeads --program BRACKET
  Twelve of them, four in a row, turned by 90 degrees, 5 between the parts:
    korvanta-batch bracket.dxf --set "Angle=90" --set "Move Step=1" \
        --set "LeadIn : A=3" --set "LeadIn : B=1.5" --key CopyLeads \
        --set "X Gap=5" --set "Y Gap=5" --set "X Sheet=*4" --set "Y Sheet=*3" \
        --program BRACKET
  Leads that fit the second profile, then the same on all the others:
    korvanta-batch ./plate.dxf --set "Move Step=1" --set "Profile nr.=2" \
        --set "LeadIn : A=2" --set "LeadIn : B=1" --key CopyLeads \
        --program PLATE --out ./nc
  A plate of the catalogue with two chamfered corners, and its picture:
    korvanta-batch R-05 --param A=300 --param X=25 --program PLATE \
        --svg plate.svg
  The same as a job, and a variant of that job:
    korvanta-batch R-05 --param A=300 --param X=25 --save PLATE
    korvanta-batch PLATE.nst --set "Angle=90" --save PLATE90
  What the station made of an ISO program, as JSON:
    korvanta-batch ./old.iso --json - --quiet
  A program that is read back and compared with the part before it counts:
    korvanta-batch bracket.dxf --set "Move Step=1" --set "LeadIn : A=3" \
        --set "LeadIn : B=1.5" --key CopyLeads --program BRACKET --verify

Exit status: 0 done; 1 the part or its program could not be made, or --verify
found a difference; 2 wrong use; 3 written, but --verify can't read programs of
this post-processor table.)";

std::string AbsolutePath(const std::string& path)
{
    std::string absolute = fs::absolute(path).lexically_normal().string();
    while (absolute.size() > 1 && absolute.back() == '/') {
        absolute.pop_back();
    }
    return absolute;
}

template <typename Row, std::size_t Count>
std::string ListNames(const Row (&rows)[Count], const char* Row::*name)
{
    std::string list;
    for (const Row& row : rows) {
        list += list.empty() ? "" : ", ";
        list += row.*name;
    }
    return list;
}

/// The row of that name, case not counting; null without one.
template <typename Row, std::size_t Count>
const Row* FindRow(const Row (&rows)[Count], const char* Row::*name, const std::string& wanted)
{
    for (const Row& row : rows) {
        if (LowerCase(row.*name) == LowerCase(Trim(wanted))) {
            return &row;
        }
    }
    return nullptr;
}

BatchStep ReadSet(const std::string& text)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        throw CLI::ValidationError("--set", "\"" + text + "\" has no \"=\"; write \"CAPTION=VALUE\"");
    }
    const CaptionRow* row = FindRow(Captions, &CaptionRow::Caption, text.substr(0, equals));
    if (row == nullptr) {
        throw CLI::ValidationError("--set", "no field \"" + text.substr(0, equals) + "\"; there are " +
                                                ListNames(Captions, &CaptionRow::Caption));
    }
    BatchStep step;
    step.Screen = row->Screen;
    step.Field = row->Field;
    step.Value = text.substr(equals + 1);
    return step;
}

BatchStep ReadKey(const std::string& text)
{
    const KeyRow* row = FindRow(Keys, &KeyRow::Name, text);
    if (row == nullptr) {
        throw CLI::ValidationError("--key",
                                   "no key \"" + text + "\"; there are " + ListNames(Keys, &KeyRow::Name));
    }
    BatchStep step;
    step.Key = row->Run;
    return step;
}

/// `--param LETTER=VALUE` of the shape that the source names.
BatchParameter ReadParameter(const std::string& text, const ShapeRow* shape)
{
    if (shape == nullptr) {
        throw CLI::ValidationError("--param", "goes with a shape of the catalogue, such as R-05");
    }
    const std::size_t equals = text.find('=');
    const std::string letter = Trim(text.substr(0, equals));
    std::string letters;
    for (int i = 0; i < ParameterCount(*shape); ++i) {
        const std::string known = shape->Parameters[i].Letter;
        if (equals != std::string::npos && letter == known) {
            return {static_cast<std::size_t>(i), text.substr(equals + 1)};
        }
        letters += (letters.empty() ? "" : ", ") + known;
    }
    throw CLI::ValidationError("--param", "\"" + text + "\" isn't LETTER=VALUE with a letter of " +
                                              shape->Name + ": " + letters);
}

void ReadInput(const std::string& text, BatchOptions& options)
{
    const bool formed =
        text.size() >= 2 && text[1] == '=' && text[0] >= '1' && text[0] <= '0' + PprInputSlots;
    if (!formed) {
        throw CLI::ValidationError("--input", "\"" + text + "\" isn't N=VALUE with N from 1 to 8");
    }
    options.Inputs[static_cast<std::size_t>(text[0] - '0')] = text.substr(2);
}

/// A program, and a job, is named by the text ahead of the first point, folders cut off.
void CheckName(std::string& name, const char* option)
{
    const std::size_t separator = name.find_last_of("\\/");
    name = separator == std::string::npos ? name : name.substr(separator + 1);
    if (Trim(name.substr(0, name.find('.'))).empty()) {
        throw CLI::ValidationError(option, "the name is empty");
    }
    if (UpperCase(name.substr(0, name.find('.'))) == SimulationName) {
        throw CLI::ValidationError(option,
                                   "SIMULA is the station's word for a simulation; choose another name");
    }
}

/// A run that deletes does nothing else.
void CheckDelete(BatchOptions& options)
{
    CheckName(options.Delete, "--delete");
    if (!options.Source.empty() || !options.Save.empty() || !options.Program.empty()) {
        throw CLI::ValidationError("--delete", "goes without SOURCE, --save and --program");
    }
}

/// The texts as the command line gave them.
struct RawOptions {
    std::vector<std::string> Sets;
    std::vector<std::string> Keys;
    std::vector<std::string> Inputs;
    std::vector<std::string> Parameters;
    CLI::Option* SetOption = nullptr;
    CLI::Option* KeyOption = nullptr;
    CLI::Option* ProgramOption = nullptr;
    CLI::Option* SaveOption = nullptr;
    CLI::Option* DeleteOption = nullptr;
};

/// An option that takes one value each time it is given.
CLI::Option* AddRepeatable(CLI::App& app, const char* name, const char* typeName,
                           std::vector<std::string>& values, const char* description)
{
    return app.add_option(name, values, description)
        ->type_name(typeName)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false);
}

void DeclareOptions(CLI::App& app, BatchOptions& options, RawOptions& raw)
{
    app.set_version_flag("--version", "korvanta-batch, Korvanta V2.28", "Print the version and exit");
    app.add_option(
           "SOURCE", options.Source,
           "A shape of the catalogue (R-05), a .dxf drawing, a saved job\n"
           "(.nst), or an ISO program with any other extension. A plain file name is looked up in DXF_PATH,\n"
           "NESTING_PATH or NC_PATH of the station; a path, also ./NAME, is taken as it is")
        ->type_name("");
    app.add_flag("--list-shapes", options.ListShapes,
                 "List the shapes with their letters and defaults, with\n--json FILE as JSON, and exit");
    AddRepeatable(app, "--param", "LETTER=VALUE", raw.Parameters,
                  "Value of a parameter of the shape (repeatable)");
    app.add_option("--station", options.Station,
                   "Folder of the station: Korvanta.ini, Korvanta_MSG.TXT,\n"
                   "post-processor table (default: where korvanta-batch lies; for\nan installed one "
                   "KORVANTA_STATION or ~/Korvanta, which is\nmade when it is missing)")
        ->type_name("DIR");
    app.add_option("--language", options.Language, "Language of messages, instead of the configured one")
        ->type_name("N")
        ->check(CLI::Range(1, LanguageColumns).description(""));
    raw.SetOption = AddRepeatable(app, "--set", "\"CAPTION=VALUE\"", raw.Sets,
                                  "Type VALUE into a field (repeatable, in the order given)");
    raw.KeyOption =
        AddRepeatable(app, "--key", "NAME", raw.Keys,
                      "Press a key of the Cutting screen (repeatable, in the same\norder as --set)");
    AddRepeatable(app, "--input", "N=VALUE", raw.Inputs,
                  "Answer to question #V1 .. #V8 of the post-processor table\n(repeatable)");
    raw.ProgramOption = app.add_option("--program", options.Program, "Write the NC program NAME into NC_PATH")
                            ->type_name("NAME");
    raw.SaveOption = app.add_option("--save", options.Save,
                                    "Save the job NAME as the station does, over an old one:\nNC program, "
                                    ".nst, and preview and geometry in DATA")
                         ->type_name("NAME");
    raw.DeleteOption = app.add_option("--delete", options.Delete,
                                      "Delete the job NAME with its companions and its NC\nprogram, and exit")
                           ->type_name("NAME");
    app.add_option("--out", options.Out, "Write the program into DIR instead (made when missing)")
        ->type_name("DIR");
    app.add_option("--json", options.Json, "Write the finished state to FILE, - for standard output")
        ->type_name("FILE");
    app.add_option("--svg", options.Svg, "Draw the part with its leads into FILE")->type_name("FILE");
    app.add_flag("--verify", options.Verify,
                 "Read the written program back and compare each cut of each\n"
                 "copy with the part; a difference is status 1");
    app.add_flag("--remember", options.Remember, "Keep lead values in Korvanta.ini, as the station does");
    app.add_flag("--quiet", options.Quiet, "No result lines, no progress; warnings stay");
}

/// The texts become steps and paths. The parse order holds one entry for each value given.
void TakeOptions(const CLI::App& app, BatchOptions& options, const RawOptions& raw)
{
    std::size_t sets = 0;
    std::size_t keys = 0;
    for (const CLI::Option* option : app.parse_order()) {
        if (option == raw.SetOption) {
            options.Steps.push_back(ReadSet(raw.Sets[sets++]));
        } else if (option == raw.KeyOption) {
            options.Steps.push_back(ReadKey(raw.Keys[keys++]));
        }
    }
    for (const std::string& input : raw.Inputs) {
        ReadInput(input, options);
    }
    if (raw.ProgramOption->count() > 0) {
        CheckName(options.Program, "--program");
    }
    if (raw.SaveOption->count() > 0) {
        CheckName(options.Save, "--save");
    }
    if (raw.DeleteOption->count() > 0) {
        CheckDelete(options);
    } else if (Trim(options.Source).empty() && !options.ListShapes) {
        throw CLI::ValidationError("SOURCE", "a shape, a drawing, an ISO program or a job is needed");
    }
    if (options.Verify && raw.ProgramOption->count() == 0 && raw.SaveOption->count() == 0) {
        throw CLI::ValidationError("--verify", "goes with --program or --save");
    }
    options.ShapeId = ShapeIdOfName(UpperCase(options.Source));
    for (const std::string& parameter : raw.Parameters) {
        options.Parameters.push_back(ReadParameter(parameter, FindShape(options.ShapeId)));
    }
    if (!options.Station.empty()) {
        options.Station = AbsolutePath(options.Station);
    } else if (!options.ListShapes) {
        options.Station = FindStationFolder(ProgramFolder());
    }
    options.Out = options.Out.empty() ? "" : AbsolutePath(options.Out);
    options.Svg = options.Svg.empty() ? "" : AbsolutePath(options.Svg);
    options.Json = options.Json.empty() || options.Json == "-" ? options.Json : AbsolutePath(options.Json);
}
} // namespace

std::string ProgramFolder()
{
    std::error_code failed;
    const fs::path self = fs::read_symlink("/proc/self/exe", failed);
    return failed ? AbsolutePath(".") : self.parent_path().string();
}

bool ReadOptions(int argc, const char* const* argv, BatchOptions& options, int& status)
{
    CLI::App app{
        "From a drawing or an ISO program to an NC program, by the routines of the Korvanta station.",
        "korvanta-batch"};
    app.footer(Footer);
    RawOptions raw;
    DeclareOptions(app, options, raw);
    try {
        app.parse(argc, argv);
        TakeOptions(app, options, raw);
        return true;
    } catch (const CLI::Success& answered) { // help and version
        status = app.exit(answered);
    } catch (const CLI::ParseError& wrong) {
        std::cerr << "korvanta-batch: " << wrong.what() << "\nTry: korvanta-batch --help\n";
        status = StatusWrongUse;
    }
    return false;
}
