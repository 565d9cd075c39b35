// TableExamples.h -- the examples of the chapter on tables: pieces laid over the small table, the jobs they are tried with,
// and the programs that come of it.
#pragma once

#include "ManualPages.h"
#include "support/TempFolder.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// Keys and values in their order.
using TableKeys = std::vector<std::pair<std::string, std::string>>;

/// Sections of a table in their order.
using TableSections = std::vector<std::pair<std::string, TableKeys>>;

/// An ini block of the chapter with the program lines behind it.
struct TableExample {
    std::string Job; ///< named in a comment at its head; "the plate" without one
    TableSections Piece;
    std::string Lines; ///< as MatchesLines takes them
    int Line = 0;      ///< of the ini block
};

/// Reads the text of an ini block. A line that is neither section nor key nor comment fails the case.
TableSections ReadTablePiece(const std::string& text);

/// `piece` put into the sections of `table`, key by key.
TableSections LaidOver(TableSections table, const TableSections& piece);

/// The same without a key; without the section, too, when the key is empty.
TableSections Without(TableSections table, const std::string& section, const std::string& key);

/// All values with each `from` become `to`.
TableSections WithText(TableSections table, const std::string& from, const std::string& to);

/// The chapter's examples, the small table, and a station in which its drawings lie.
struct TableChapter {
    ManualPage Page;
    TableSections SmallTable;
    std::vector<TableExample> Examples; ///< the small table itself is the first
    std::map<std::string, std::string> Jobs;
    TempFolder Work;

    TableChapter();

    /// The program of a job with `piece` over the small table; a run that fails, fails the case. Lines end in line feeds.
    std::string Program(const std::string& job, const TableSections& piece) const;
};
