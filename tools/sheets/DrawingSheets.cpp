// The dimensioned drawings of all shapes as the window paints them.
#include "Sheets.h"
#include "qt/PaintSurface.h"
#include "shapes/DimensionDrawing.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>

#include <algorithm>
#include <span>

namespace
{
constexpr int SheetColumns = 7;
constexpr int CaptionHeight = 18;

/// The drawing of a row in a box of that size, one parameter standing out, or none for 0.
QImage Drawing(const ShapeRow& row, QSize size, int highlighted)
{
    ResizeSurface(Picture::Param, size, 1.0);
    ShowShapeParameters(row.ShapeId, FlagOn);
    DrawShapePicture(Picture::Param, static_cast<std::int16_t>(highlighted));
    return SurfaceImage(Picture::Param).copy();
}

bool PaintSheet(const QString& path, std::span<const ShapeRow> rows, int columns, QSize size, bool highlight)
{
    const int lines = (static_cast<int>(rows.size()) + columns - 1) / columns;
    QImage sheet(columns * size.width(), lines * (size.height() + CaptionHeight), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.setPen(Qt::black);
    int i = 0;
    for (const ShapeRow& row : rows) {
        const QRect cell(i % columns * size.width(), i / columns * (size.height() + CaptionHeight),
                         size.width(), size.height());
        painter.drawImage(cell, Drawing(row, size, highlight ? i % ParameterCount(row) + 1 : 0));
        painter.drawText(cell.translated(0, size.height()).adjusted(0, 0, 0, CaptionHeight - size.height()),
                         Qt::AlignCenter, row.Name);
        painter.drawRect(cell.adjusted(0, 0, -1, CaptionHeight - 1));
        ++i;
    }
    painter.end();
    return sheet.save(path);
}

/// The catalogue of texts and the drawings, as the station has them.
bool LoadDrawings(const QString& source, const QString& build)
{
    ResetAppState();
    ResetFields();
    AppState.AppPath = build.toStdString();
    QFile catalogue(source + "/station/Korvanta_MSG.TXT");
    if (!catalogue.open(QIODevice::ReadOnly)) {
        return false;
    }
    ReadCatalogue(catalogue.readAll().toStdString());
    return true;
}
} // namespace

bool PaintDrawingSheet(const QString& source, const QString& build)
{
    return LoadDrawings(source, build) && PaintSheet(source + "/docs/images/drawings.png", ShapeCatalogue(),
                                                     SheetColumns, QSize(300, 250), false);
}

bool PaintWindowDrawings(const QString& source, const QString& build, const QString& folder)
{
    constexpr std::size_t RowsOfSheet = 9;
    const std::span<const ShapeRow> rows = ShapeCatalogue();
    bool painted = LoadDrawings(source, build);
    for (std::size_t first = 0; painted && first < rows.size(); first += RowsOfSheet) {
        const auto part = rows.subspan(first, std::min(RowsOfSheet, rows.size() - first));
        const QString name = QString("%1/%2-").arg(folder).arg(first, 2, 10, QChar('0'));
        painted = PaintSheet(name + "640x480.png", part, 3, QSize(453, 403), false) &&
                  PaintSheet(name + "640x480-marked.png", part, 3, QSize(453, 403), true) &&
                  PaintSheet(name + "1024x768.png", part, 3, QSize(737, 662), true);
    }
    return painted;
}

bool PaintShapePictures(const QString& source, const QString& build, const QString& folder)
{
    bool painted = LoadDrawings(source, build);
    for (const ShapeRow& row : ShapeCatalogue()) {
        const QImage picture = Drawing(row, QSize(320, 240), 0);
        painted = painted && picture.save(QString("%1/shape-%2.png").arg(folder, row.Name));
    }
    return painted;
}
