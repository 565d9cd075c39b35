#include "DxfHelp.h"

#include "platform/TextFile.h"

namespace
{

int Keep(const DxfEntity& entity, void* context)
{
    DxfResult& result = *static_cast<DxfResult*>(context);
    if (entity.Kind == DxfText || entity.Kind == DxfMText || entity.Kind == DxfIgnored) {
        result.Ignored.push_back(entity.Kind);
        return 0;
    }
    DxfRecord record;
    record.Entity = entity;
    DXFConvert(record.Vertices, entity);
    result.Records.push_back(record);
    return 0;
}

DxfResult Enumerate(Drawing* drawing)
{
    DxfResult result;
    if (drawing != nullptr) {
        result.Opened = true;
        result.Complete = DXFProhibitCurvesAsPoly(drawing, 0) != 0 && DXFEnum(drawing, 0, Keep, &result);
        result.Account = DXFAccount(drawing);
        DXFClose(drawing);
    }
    return result;
}

} // namespace

DxfResult ReadDxf(std::string_view bytes)
{
    return Enumerate(OpenDrawingBytes(bytes));
}

DxfResult ReadDxfFile(const std::string& name)
{
    return Enumerate(DXFCreate(std::string(KORVANTA_SOURCE_DIR) + "/tests/data/" + name));
}

std::string Groups(std::string_view text, std::string_view lineEnd)
{
    std::string lines;
    while (!text.empty()) {
        const std::size_t bar = text.find('|');
        const std::string_view group = text.substr(0, bar);
        text.remove_prefix(bar == std::string_view::npos ? text.size() : bar + 1);
        const std::size_t blank = group.find(' ');
        lines.append(group.substr(0, blank)).append(lineEnd);
        lines.append(blank == std::string_view::npos ? std::string_view() : group.substr(blank + 1))
            .append(lineEnd);
    }
    return lines;
}

std::string DrawingOf(std::string_view entities, std::string_view blocks)
{
    std::string text;
    if (!blocks.empty()) {
        text += Groups("0 SECTION|2 BLOCKS") + Groups(blocks) + Groups("0 ENDSEC");
    }
    return text + Groups("0 SECTION|2 ENTITIES") + Groups(entities) + Groups("0 ENDSEC|0 EOF");
}

DxfResult ReadEntities(std::string_view entities, std::string_view blocks)
{
    return ReadDxf(DrawingOf(entities, blocks));
}
