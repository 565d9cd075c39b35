#include "manual/ManualPages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace
{
namespace fs = std::filesystem;

constexpr const char* Fence = "```";

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with("\r")) {
            line.pop_back();
        }
        lines.push_back(line);
    }
    return lines;
}

/// A text without what stands between back quotes, where brackets are no links.
std::string WithoutCode(const std::string& line)
{
    return std::regex_replace(line, std::regex("`[^`]*`"), "`");
}

void AddLinks(ManualPage& page, const std::string& line, int number)
{
    // A picture may be the text of a link: its own brackets go first, then those of the link around it.
    static const std::regex Picture(R"(!\[[^\]]*\]\(([^)\s]+)\))");
    static const std::regex Link(R"(\[[^\]]*\]\(([^)\s]+)\))");
    const std::string text = WithoutCode(line);
    for (std::sregex_iterator at(text.begin(), text.end(), Picture), end; at != end; ++at) {
        page.Links.push_back({(*at)[1], true, number});
    }
    const std::string rest = std::regex_replace(text, Picture, "");
    for (std::sregex_iterator at(rest.begin(), rest.end(), Link), end; at != end; ++at) {
        page.Links.push_back({(*at)[1], false, number});
    }
}

PageBlock OpenBlock(const std::string& line, int number)
{
    std::istringstream info(line.substr(std::string(Fence).size()));
    PageBlock block;
    block.Line = number;
    info >> block.Kind;
    std::getline(info >> std::ws, block.Name);
    return block;
}

bool MatchFrom(const std::vector<std::string>& pattern, std::size_t p, const std::vector<std::string>& text,
               std::size_t t)
{
    for (; p < pattern.size(); ++p, ++t) {
        if (pattern[p] == "...") {
            for (std::size_t skip = t; skip <= text.size(); ++skip) {
                if (MatchFrom(pattern, p + 1, text, skip)) {
                    return true;
                }
            }
            return false;
        }
        if (t >= text.size() || pattern[p] != text[t]) {
            return false;
        }
    }
    return t == text.size();
}
} // namespace

std::string ManualFolder()
{
    return KORVANTA_SOURCE_DIR "/docs/manual";
}

ManualPage ReadPage(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path << " is missing";
    std::ostringstream whole;
    whole << file.rdbuf();
    ManualPage page;
    page.Name = fs::path(path).filename().string();
    page.Path = path;
    bool inside = false;
    int number = 0;
    for (const std::string& line : Lines(whole.str())) {
        ++number;
        if (line.starts_with(Fence)) {
            inside = !inside;
            if (inside) {
                page.Blocks.push_back(OpenBlock(line, number));
            }
        } else if (inside) {
            page.Blocks.back().Text += line + "\n";
        } else if (line.starts_with("#")) {
            const std::size_t text = line.find_first_not_of("# ");
            page.Headings.push_back(text == std::string::npos ? "" : line.substr(text));
        } else {
            AddLinks(page, line, number);
        }
    }
    EXPECT_FALSE(inside) << PlaceOf(page, page.Blocks.empty() ? 0 : page.Blocks.back().Line)
                         << ": the block isn't closed";
    return page;
}

std::vector<ManualPage> ManualPages()
{
    std::vector<std::string> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(ManualFolder())) {
        if (entry.path().extension() == ".md") {
            paths.push_back(entry.path().string());
        }
    }
    std::sort(paths.begin(), paths.end());
    std::vector<ManualPage> pages;
    pages.reserve(paths.size());
    for (const std::string& path : paths) {
        pages.push_back(ReadPage(path));
    }
    return pages;
}

ManualPage ManualChapter(const std::string& name)
{
    return ReadPage(ManualFolder() + "/" + name);
}

std::string HeadingMark(const std::string& heading)
{
    std::string mark;
    for (const char c : heading) {
        if (c == ' ') {
            mark += '-';
        } else if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_' ||
                   (c & 0x80) != 0) {
            mark += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return mark;
}

bool MatchesLines(const std::string& pattern, const std::string& text)
{
    return MatchFrom(Lines(pattern), 0, Lines(text), 0);
}

std::string PlaceOf(const ManualPage& page, int line)
{
    return page.Name + ":" + std::to_string(line);
}
