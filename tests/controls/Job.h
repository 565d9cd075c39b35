// Job.h -- one sample drawing or default shape cut with one table: its program, and the contours that must come out.
#pragma once

#include "Pieces.h"

#include <string>
#include <vector>

/// Lead-in and lead-out of all profiles: straight piece and quarter arc.
struct Leads {
    double InLine = 2.0;
    double InArc = 1.0;
    double OutLine = 0.0;
    double OutArc = 0.0;
};

/// A profile of the part as it is drawn, in the coordinates of the part.
struct Contour {
    std::vector<Piece> Pieces;
    bool Closed = false;
    double Entry = 0.0; ///< length of a lead-in that is drawn as a piece of the profile itself
    std::vector<Spot>
        Boundary;             ///< polygon between material and scrap; empty for a stroke, which parts nothing
    bool ScrapInside = false; ///< of the boundary: a hole of the part
};

struct Job {
    std::string Name;
    std::string Program;           ///< the text of the program file
    std::vector<Contour> Contours; ///< in the order of cutting
    std::vector<Spot> Copies;      ///< where the part's zero lies for each copy
    Leads LeadsUsed;
    std::vector<Spot> MarkPoints; ///< in the coordinates of the part
};

/// The drawings of the station and the seventy shapes.
std::vector<std::string> AllSources();

/// How an order differs from two copies side by side of the part as it is.
struct Changes {
    int Columns = 2;
    std::vector<std::string> Parameters; ///< of a shape, in place of its defaults, in their order
    double Angle = 0.0;                  ///< degrees
    int Mirror = 0;                      ///< as in the field
    double Scale = 1.0;
    bool Turned = false; ///< every profile in its other direction
};

/// Cuts it in this process, in a station folder of its own.
Job Cut(const std::string& source, const std::string& table, const Leads& leads, const Changes& changes = {});

/// The text of a shipped table, "ppr/GRBL_Laser.ini".
std::string ShippedTable(const std::string& name);

/// The table with one key set to another value; a key that isn't there is put into the section.
std::string WithKey(const std::string& table, const std::string& section, const std::string& key,
                    const std::string& value);

/// The table without a section.
std::string WithoutSection(const std::string& table, const std::string& section);

/// All pieces of a contour moved by `by`.
std::vector<Piece> Moved(const std::vector<Piece>& pieces, const Spot& by);
