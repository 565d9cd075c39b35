// Pieces.h -- straight pieces and arcs as a control drives them: plain geometry of the tests' own, so that no routine of
// the program judges the program.
#pragma once

#include <vector>

struct Spot {
    double X = 0.0;
    double Y = 0.0;
};

double Far(const Spot& a, const Spot& b);

/// A straight piece, or an arc from Start to End round Centre.
struct Piece {
    bool Arc = false;
    bool CounterClockwise = false;
    Spot Start;
    Spot End;
    Spot Centre;
};

Piece StraightPiece(const Spot& start, const Spot& end);

/// Equal ends make a full turn.
Piece ArcPiece(const Spot& start, const Spot& end, const Spot& centre, bool counterClockwise);

double ArcRadius(const Piece& piece);

/// Radians of an arc, above 0, 2 pi for a full turn.
double ArcSweep(const Piece& piece);
double LengthOf(const Piece& piece);

/// The point at `along` of the length, 0 to 1, and the direction of travel there (a unit vector).
Spot PointOn(const Piece& piece, double along);
Spot DirectionOn(const Piece& piece, double along);

double Distance(const Spot& spot, const Piece& piece);
double Distance(const Spot& spot, const std::vector<Piece>& pieces);

/// A place on a chain of pieces: its point, the direction of travel, and how far it is along the chain.
struct Sample {
    Spot At;
    Spot Direction;
    double Along = 0.0;
};

/// Places no more than `step` apart, the ends of all pieces among them.
std::vector<Sample> Samples(const std::vector<Piece>& pieces, double step);

/// Above 0 counter-clockwise.
double SignedArea(const std::vector<Piece>& pieces);
bool Inside(const Spot& spot, const std::vector<Spot>& polygon);
std::vector<Spot> Polygon(const std::vector<Piece>& pieces, double step);
