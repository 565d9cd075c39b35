#include "import/DxfModel.h"

namespace
{

enum class DxfSection : std::uint8_t { None, Entities, Blocks, Other };

constexpr std::size_t MaxNameLength = 40;

/// About what a real drawing takes; only to save the growing.
constexpr std::size_t BytesPerNumber = 24;
constexpr std::size_t BytesPerEntity = 120;

constexpr std::uint32_t NoBlock = 0xFFFFFFFFU;

std::string UpperName(std::string_view name)
{
    std::string upper(name);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return upper;
}

void SkipRecord(DxfParser& parser)
{
    BeginRecord(parser);
    while (NextField(parser)) {
    }
}

DxfSection ReadSectionHead(DxfParser& parser)
{
    DxfSection section = DxfSection::Other;
    bool named = false;
    BeginRecord(parser);
    while (NextField(parser)) { // a header's variables lie in this record too: only the first name counts
        if (parser.Group.Code == 2 && !named) {
            named = true;
            const std::string_view name = GroupText(parser.Group);
            section = name == "ENTITIES" ? DxfSection::Entities
                      : name == "BLOCKS" ? DxfSection::Blocks
                                         : DxfSection::Other;
        }
    }
    return section;
}

bool IsPaperName(std::string_view upper)
{
    return upper.substr(0, 12) == "*PAPER_SPACE" || upper.substr(0, 12) == "$PAPER_SPACE";
}

/// Reads the head of a block. Returns its number.
std::uint32_t ReadBlockHead(DxfParser& parser)
{
    double base[3] = {0.0, 0.0, 0.0};
    std::string_view name;
    BeginRecord(parser);
    while (NextField(parser)) {
        switch (parser.Group.Code) {
        case 2:
            name = GroupText(parser.Group);
            break;
        case 10:
        case 20:
        case 30:
            base[parser.Group.Code / 10 - 1] = GroupNumber(parser.Group);
            break;
        default:
            break;
        }
    }
    const std::uint32_t number = BlockNumber(*parser.Model, name);
    DxfBlock& block = parser.Model->Blocks[number];
    block = DxfBlock(); // a name that is defined twice means its last definition
    block.Defined = true;
    block.Paper = parser.Paper || IsPaperName(UpperName(name));
    for (int i = 0; i < 3; ++i) {
        block.Base[i] = base[i];
    }
    block.First = parser.Model->BlockShapes.size();
    block.End = block.First;
    return number;
}

void CloseBlock(DxfModel& model, std::uint32_t& open)
{
    if (open == NoBlock) {
        return;
    }
    DxfBlock& block = model.Blocks[open];
    block.End = model.BlockShapes.size();
    for (std::size_t i = block.First; i < block.End; ++i) {
        const DxfShapeType type = model.BlockShapes[i].Type;
        block.Plain = block.Plain && (type == DxfShapeType::Ignored || type == DxfShapeType::PaperSpace);
    }
    open = NoBlock;
}

void ReadBlockRecord(DxfParser& parser, std::string_view name, std::uint32_t& open)
{
    if (name == "BLOCK") {
        CloseBlock(*parser.Model, open);
        open = ReadBlockHead(parser);
    } else if (name == "ENDBLK") {
        CloseBlock(*parser.Model, open);
        SkipRecord(parser);
    } else if (open != NoBlock) {
        parser.Target = &parser.Model->BlockShapes;
        ReadEntity(parser, false);
    } else {
        SkipRecord(parser);
    }
}

} // namespace

std::uint32_t NameNumber(DxfModel& model, std::string_view name)
{
    std::string clean(name.substr(0, MaxNameLength));
    for (char& c : clean) {
        if (c < ' ' || c > '~') {
            c = '?';
        }
    }
    const auto [found, isNew] = model.NameIndex.try_emplace(clean, model.Names.size());
    if (isNew) {
        model.Names.push_back(clean);
    }
    return found->second;
}

std::uint32_t BlockNumber(DxfModel& model, std::string_view name)
{
    const auto [found, isNew] = model.BlockIndex.try_emplace(UpperName(name), model.Blocks.size());
    if (isNew) {
        model.Blocks.emplace_back();
    }
    return found->second;
}

bool ReadDrawing(std::string_view bytes, DxfModel& model)
{
    DxfParser parser;
    parser.Model = &model;
    OpenScanner(parser.Scanner, bytes);
    model.Numbers.reserve(bytes.size() / BytesPerNumber);
    model.Entities.reserve(bytes.size() / BytesPerEntity);
    SkipRecord(parser); // whatever stands ahead of the first record
    DxfSection section = DxfSection::None;
    std::uint32_t openBlock = NoBlock;
    bool isDrawing = false;
    while (!parser.AtEnd) {
        const std::string_view name = GroupText(parser.Group);
        if (name == "SECTION") {
            CloseBlock(model, openBlock);
            section = ReadSectionHead(parser);
            isDrawing = true;
        } else if (name == "EOF") {
            isDrawing = true;
            model.Complete = true;
            break;
        } else if (name == "ENDSEC") {
            CloseBlock(model, openBlock);
            section = DxfSection::None;
            SkipRecord(parser);
        } else if (section == DxfSection::Entities || section == DxfSection::None) {
            parser.Target = &model.Entities;
            ReadEntity(parser, section == DxfSection::None);
        } else if (section == DxfSection::Blocks) {
            ReadBlockRecord(parser, name, openBlock);
        } else {
            SkipRecord(parser);
        }
    }
    CloseBlock(model, openBlock);
    return isDrawing || !model.Entities.empty();
}
