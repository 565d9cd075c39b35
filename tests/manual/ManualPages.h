// ManualPages.h -- the pages of the manual as tests read them: fenced blocks, links and pictures.
#pragma once

#include <string>
#include <vector>

/// One fenced block.
struct PageBlock {
    std::string
        Kind; ///< first word of its info string: "sh", "text", "nc", "keys", "ini", "console"; empty for none
    std::string Name; ///< the words behind it, such as the file of an "nc" block
    std::string Text; ///< its lines, each with a line feed
    int Line = 0;     ///< of the opening fence, from 1
};

/// A link, or a picture, outside blocks and code.
struct PageLink {
    std::string Target; ///< as it stands in the brackets
    bool Picture = false;
    int Line = 0;
};

struct ManualPage {
    std::string Name; ///< file name, "04-shapes.md"
    std::string Path;
    std::vector<PageBlock> Blocks;
    std::vector<PageLink> Links;
    std::vector<std::string> Headings; ///< without their number signs
};

/// The chapters in reading order.
inline constexpr const char* ManualChapterNames[] = {"01-first-cut.md",
                                                     "02-keys.md",
                                                     "03-screens.md",
                                                     "04-shapes.md",
                                                     "05-leads.md",
                                                     "06-nesting.md",
                                                     "07-drawings-and-programs.md",
                                                     "08-post-processor.md",
                                                     "09-jobs.md",
                                                     "10-without-a-window.md",
                                                     "11-host-link.md",
                                                     "12-trouble.md"};

/// Where the pages lie.
std::string ManualFolder();

/// Reads one Markdown file; a missing one, or a block that isn't closed, fails the case.
ManualPage ReadPage(const std::string& path);

/// All pages of the manual, by name.
std::vector<ManualPage> ManualPages();

/// The page of this file name; a missing one fails the case.
ManualPage ManualChapter(const std::string& name);

/// The mark that a heading has as the target of a link: "Lead-in: A" has "lead-in-a".
std::string HeadingMark(const std::string& heading);

/// True when `text` has the lines of `pattern`, of which a line "..." stands for any lines, none included. Carriage returns
/// before line feeds don't count.
bool MatchesLines(const std::string& pattern, const std::string& text);

/// "04-shapes.md:12", for messages.
std::string PlaceOf(const ManualPage& page, int line);
