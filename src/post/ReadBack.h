// ReadBack.h -- a written program as cuts: the moves between two rapids, read with the line reader of ISO-IN. What that
// reader can't tell apart is kept from it here: comments, dwells, and lines without a coordinate.
#pragma once

#include "import/Korvanta_IsoIn.h"
#include "platform/TextFile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct FoundMove {
    IsoMove Iso;
    std::int64_t Line = 0;    ///< in the file, from 1
    bool Incremental = false; ///< G91 is in force
    bool OtherCentre = false; ///< centres are in the mode that the table doesn't write
    std::string Text;         ///< the line without its comments
};

struct FoundRapid {
    double X = 0.0;
    double Y = 0.0;
    std::int16_t Side = 0; ///< compensation in force
    std::int64_t Line = 0;
    bool Incremental = false; ///< G91 is in force
};

/// One cut and what stands around it. Of the M words only the numbers are kept, each once.
struct FoundCut {
    std::vector<double> WordsEarly; ///< ahead of the last rapid
    std::vector<FoundRapid> Rapids; ///< ahead of the cut, the last one to the pierce point
    std::vector<double> WordsAhead; ///< between the last rapid and the first move
    std::vector<FoundMove> Moves;
    std::vector<double> WordsBetween; ///< between the moves
    std::vector<double> WordsBehind;  ///< between the last move and the next rapid
};

struct ReadBack {
    TextReader Text;
    std::uint64_t Sum = 0; ///< of the lines so far
    IsoMove Modal;         ///< as the last line with a word left it
    bool IncrementalCentre = false;
    bool Incremental = false;
    bool OtherCentre = false;     ///< G90.1 or G91.1, against IncrementalCentre, is in force
    bool Moved = false;           ///< a rapid or a move has come
    bool Ended = false;           ///< no control reads on: M02, M30, or % behind a move
    std::vector<FoundRapid> Held; ///< the rapid that ended the last cut
    std::string Line;             ///< kept for its storage
};

/// Opens the program `path` and sets the modal values of ISO-IN to those of a start. Needs the table, which tells how
/// centres stand. False when the file can't be read.
bool OpenReadBack(ReadBack& program, const std::string& path);

/// The next cut. False at the end of the program or of the file, which is read to its end all the same; `cut` then holds
/// the rapids behind the last cut.
bool ReadCut(ReadBack& program, FoundCut& cut);

/// Whether M `word` is among them.
bool HoldsMWord(const std::vector<double>& words, double word);

/// Adds the M words of a line without comments that aren't there yet.
void AddMWords(std::string_view line, std::vector<double>& words);

/// The line without what stands in ( ) and behind a semicolon.
void DropComments(std::string_view line, std::string& rest);
