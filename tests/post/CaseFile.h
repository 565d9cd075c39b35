// CaseFile.h -- a part, its leads and its nest from a few words of text, ready for GenerateProgram.
//   sense S                       side of the elements that follow: 1, -1 or 0 (0 at the start)
//   line X1 Y1 X2 Y2              arc X1 Y1 X2 Y2 CX CY R (R > 0 counter-clockwise)
//   close | open                  ends a profile; the last one is the outer one
//   lead P in=A,B out=C,D at=POSITION side=S
//   snap P                        the lead of profile P jumps onto corners
//   point X Y                     marking point
//   fields NAME=TEXT ..           sheetx, sheety, kerf, gapx, gapy
//   layout kind=K columns=N rows=N gapx=G gapy=G
//   origin X Y                    path cursor as the program's zero
//   nokerf                        cut without compensation words
//   job NAME | program NAME       JOB otherwise
//   answer N TEXT                 of the input dialog
#pragma once

#include <string>
#include <string_view>

/// Fills AppState from the text of a case. The result is the name to hand to GenerateProgram.
std::string LoadCase(std::string_view text);
