// make_drawings <folder of the texts> <catalogue> <file to write>: makes the station's drawings from their texts. A drawing
// that is missing, incomplete or hard to read is told by its shape, and nothing is written.
#include "CheckDrawing.h"
#include "DrawingItems.h"
#include "DrawingText.h"
#include "shapes/Korvanta_Parameters.h"
#include "shapes/PictureRecords.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

namespace
{
constexpr const char* Families[] = {"rectangular.txt", "circular.txt", "holes.txt"};

std::string ReadText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(path.string() + " can't be read");
    }
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void TellFaults(const std::string& name, const std::vector<std::string>& faults, int& count)
{
    for (const std::string& fault : faults) {
        std::fprintf(stderr, "%s: %s\n", name.c_str(), fault.c_str());
        ++count;
    }
}

/// The records of one family. Faults are told and counted.
std::string MakeFamily(const std::filesystem::path& path, std::set<std::string>& drawn, int& faults)
{
    std::string bytes;
    for (const DrawnShape& shape : ReadDrawings(ReadText(path))) {
        std::vector<PictureItem> items;
        try {
            if (!drawn.insert(shape.Name).second || MakePictureItems(shape.ShapeId, items)) {
                throw std::runtime_error("it has another drawing already");
            }
            items = ItemsOf(shape);
            TellFaults(shape.Name, FaultsOf(shape.ShapeId, items), faults);
        } catch (const std::runtime_error& error) {
            TellFaults(shape.Name, {error.what()}, faults);
        }
        for (const PictureItem& item : items) {
            AppendPictureRecord(bytes, item);
        }
    }
    return bytes;
}

/// Every shape has a drawing, and those of the program can be read in every language.
void CheckCatalogue(const std::set<std::string>& drawn, int& faults)
{
    for (const ShapeRow& row : ShapeCatalogue()) {
        std::set<std::string> found; // the same in several languages is one fault
        for (AppState.Language = 1; AppState.Language <= LanguageColumns; ++AppState.Language) {
            std::vector<PictureItem> items;
            if (MakePictureItems(row.ShapeId, items)) {
                const std::vector<std::string> told = FaultsOf(row.ShapeId, items);
                found.insert(told.begin(), told.end());
            } else if (drawn.count(row.Name) == 0) {
                found.insert("it has no drawing");
            }
        }
        TellFaults(row.Name, {found.begin(), found.end()}, faults);
    }
}

int MakeDrawings(const std::filesystem::path& texts, const std::string& catalogue, const std::string& target)
{
    int faults = 0;
    std::string bytes;
    std::set<std::string> drawn;
    ReadCatalogue(ReadText(catalogue));
    for (const char* family : Families) {
        bytes += MakeFamily(texts / family, drawn, faults);
    }
    CheckCatalogue(drawn, faults);
    if (faults != 0) {
        return 1;
    }
    std::ofstream file(target, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        throw std::runtime_error(target + " can't be written");
    }
    return 0;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "make_drawings <folder of the texts> <message catalogue> <file to write>\n");
        return 2;
    }
    try {
        return MakeDrawings(argv[1], argv[2], argv[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
