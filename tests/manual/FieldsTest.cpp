// The tables of fields and settings say what the program holds: limits, steps and starts.
#include "ManualPages.h"
#include "config/Korvanta_Utility.h"
#include "shell/ValueFields.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>

namespace
{
/// The cells of the rows of a page's tables, by the text of their first cell.
std::multimap<std::string, std::vector<std::string>> RowsOf(const std::string& pageName)
{
    std::multimap<std::string, std::vector<std::string>> rows;
    std::ifstream file(ManualFolder() + "/" + pageName);
    for (std::string line; std::getline(file, line);) {
        std::vector<std::string> cells;
        std::istringstream text(line.starts_with("| ") ? line.substr(1) : "");
        for (std::string cell; std::getline(text, cell, '|');) {
            cells.push_back(Trim(cell));
        }
        if (cells.size() > 1) {
            rows.emplace(cells[0], cells);
        }
    }
    return rows;
}

/// The numbers in a text, as text.
std::vector<std::string> NumbersIn(const std::string& text)
{
    static const std::regex Number("-?[0-9]+(\\.[0-9]+)?");
    std::vector<std::string> numbers;
    for (std::sregex_iterator at(text.begin(), text.end(), Number), end; at != end; ++at) {
        numbers.push_back(at->str());
    }
    return numbers;
}

bool Holds(const std::string& text, double number)
{
    const std::vector<std::string> numbers = NumbersIn(text);
    return std::any_of(numbers.begin(), numbers.end(),
                       [number](const std::string& shown) { return TextToNumber(shown) == number; });
}

/// One row of the page and the field that it tells of.
struct TellsOf {
    const char* Row;
    const ValueField* Field;
};

/// Profile nr. isn't among them: the number of profiles limits it, long before its tag does.
std::vector<TellsOf> FieldRows()
{
    const auto& cutting = AppState.TextCutting;
    const auto& nesting = AppState.TextNesting;
    return {
        {"Angle", &cutting[FieldAngle]},
        {"Mirror", &cutting[FieldMirror]},
        {"Scale", &cutting[FieldScale]},
        {"Move Step", &cutting[FieldMoveStep]},
        {"LeadIn: A", &cutting[FieldLeadInA]},
        {"LeadIn: B", &cutting[FieldLeadInB]},
        {"LeadOut: C", &cutting[FieldLeadOutC]},
        {"LeadOut: D", &cutting[FieldLeadOutD]},
        {"Zoom", &cutting[FieldCuttingZoom]},
        {"X Sheet", &nesting[FieldSheetX]},
        {"Kerf", &nesting[FieldKerf]},
        {"X Gap, Y Gap", &nesting[FieldGapX]},
        {"X Gap, Y Gap", &nesting[FieldGapY]},
        {"Nesting", &nesting[FieldNestType]},
        {"Simulation", &nesting[FieldSimulation]},
        {"Zoom", &nesting[FieldNestingZoom]},
    };
}

TEST(ManualTables, TellTheLimitsAndStepsOfTheFields)
{
    StartCase();
    const auto rows = RowsOf("03-screens.md");
    for (const TellsOf& row : FieldRows()) {
        double least = 0.0;
        double most = 0.0;
        double step = 0.0;
        ParseFieldTag(row.Field->FieldTag, least, most, step);
        const auto [first, last] = rows.equal_range(row.Row);
        EXPECT_TRUE(first != last) << row.Row;
        for (auto at = first; at != last; ++at) {
            ASSERT_GE(at->second.size(), 4U) << row.Row;
            EXPECT_TRUE(Holds(at->second[1], least)) << row.Row << ": " << least;
            EXPECT_TRUE(Holds(at->second[1], most)) << row.Row << ": " << most;
            EXPECT_TRUE(at->second[2] == "its own keys" || TextToNumber(at->second[2]) == step)
                << row.Row << ": " << step;
        }
    }
}

/// "Default" and "As shipped" of a setting, one of several that share a row by their place in it.
TEST(ManualTables, TellTheShippedSettings)
{
    std::map<std::string, std::string> shipped;
    std::ifstream file(KORVANTA_SOURCE_DIR "/station/Korvanta.ini");
    for (std::string line; std::getline(file, line);) {
        line.erase(line.find_last_not_of('\r') + 1);
        const std::size_t sign = line.find('=');
        if (!line.starts_with(";") && sign != std::string::npos) {
            shipped[line.substr(0, sign)] = Trim(line.substr(sign + 1));
        }
    }
    ASSERT_GE(shipped.size(), 20U);
    std::size_t told = 0;
    for (const auto& [names, cells] : RowsOf("09-jobs.md")) {
        std::vector<std::string> keys;
        std::istringstream texts(names);
        for (std::string key; std::getline(texts >> std::ws, key, ',');) {
            keys.push_back(key.size() > 2 && key.front() == '`' ? key.substr(1, key.size() - 2) : "");
        }
        if (cells.size() < 4 || shipped.count(keys[0]) == 0) {
            continue;
        }
        std::istringstream values(cells[2]);
        for (const std::string& key : keys) {
            std::string value;
            std::getline(values >> std::ws, value, ',');
            EXPECT_EQ(value == "empty" ? "" : value, shipped[key]) << key;
            ++told;
        }
    }
    EXPECT_EQ(told, shipped.size());
}
} // namespace
