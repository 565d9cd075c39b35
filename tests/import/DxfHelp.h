// DxfHelp.h -- small drawings written in the cases, and what the reader hands out for them.
#pragma once

#include "import/DrawingReader.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct DxfRecord {
    DxfEntity Entity;
    std::vector<std::array<float, 2>> Vertices;
};

struct DxfResult {
    bool Opened = false;
    bool Complete = false;
    std::vector<DxfRecord> Records;    ///< those of kinds 15 to 17 left out
    std::vector<std::int16_t> Ignored; ///< kinds of these
    DrawingAccount Account;
};

/// Reads a drawing that lies in memory.
DxfResult ReadDxf(std::string_view bytes);

/// Reads a file below tests/data.
DxfResult ReadDxfFile(const std::string& name);

/// Groups written "code value|code value|..." as lines with that line end.
std::string Groups(std::string_view text, std::string_view lineEnd = "\n");

/// A whole drawing: blocks and entities in the short form of Groups, with sections around them.
std::string DrawingOf(std::string_view entities, std::string_view blocks = "");

/// DrawingOf read at once.
DxfResult ReadEntities(std::string_view entities, std::string_view blocks = "");

// --- what the cases ask of vertex lists --------------------------------------------------------------------

struct CurvePoint {
    double X = 0.0;
    double Y = 0.0;
};

/// Least distance of neighbouring vertices.
double LeastStep(const DxfRecord& record);

/// Largest distance of the sample points from the vertex list.
double LargestMiss(const DxfRecord& record, const std::vector<CurvePoint>& samples);

/// Fails unless the record is a curve that follows the samples: chord error, spacing, both ends.
void ExpectFollows(const DxfRecord& record, const std::vector<CurvePoint>& samples);

/// Fails unless the record is an arc with these values.
void ExpectArc(const DxfRecord& record, std::int16_t kind, CurvePoint centre, double radius, CurvePoint start,
               CurvePoint end);

/// Fails unless the record is that vertex list (to 1e-4).
void ExpectRun(const DxfRecord& record, std::int16_t kind, const std::vector<CurvePoint>& points);
