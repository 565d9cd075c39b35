// Sheets.h -- pictures made for the eye: contact sheets of the artwork and of the dimensioned drawings, and the logo.
// `source` is the folder of the sources, `build` that of Korvanta.DBG. Each gives false when a file can't be read or
// written.
#pragma once

#include <QString>

/// docs/images/artwork.png and artwork-fine.png: 40, 50 and 60 pixels, in colour and in grey, at pixel ratio 1 and 2.
bool PaintArtworkSheets(const QString& source);

/// station/IMAGES/LOGO.BMP from docs/images/logo.svg.
bool PaintLogo(const QString& source);

/// docs/images/drawings.png: all shapes on one sheet.
bool PaintDrawingSheet(const QString& source, const QString& build);

/// Sheets of nine into a folder, as large as the window shows them at 640x480 and at 1024x768, there also with a
/// parameter standing out.
bool PaintWindowDrawings(const QString& source, const QString& build, const QString& folder);

/// A picture for each shape into a folder, shape-R-01.png and so on, small enough for a page.
bool PaintShapePictures(const QString& source, const QString& build, const QString& folder);
