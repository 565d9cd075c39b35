// All dimensioned drawings as the window paints them, on one sheet: docs/drawings_sheet.sh. KORVANTA_SHEET_FOLDER in the
// environment: larger sheets into that folder, with the box as it is at 640x480 and at 1024x768, each drawing with another
// parameter standing out.
#include "qt/PaintSurface.h"
#include "shapes/DimensionDrawing.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

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

void PaintSheet(const QString& path, std::span<const ShapeRow> rows, int columns, QSize size, bool highlight)
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
    ASSERT_TRUE(sheet.save(path)) << path.toStdString();
}

TEST(DrawingSheet, DISABLED_Paint)
{
    ResetAppState();
    ResetFields();
    AppState.AppPath = KORVANTA_BINARY_DIR;
    QFile catalogue(KORVANTA_SOURCE_DIR "/station/Korvanta_MSG.TXT");
    ASSERT_TRUE(catalogue.open(QIODevice::ReadOnly));
    ReadCatalogue(catalogue.readAll().toStdString());
    const std::span<const ShapeRow> rows = ShapeCatalogue();
    const char* folder = std::getenv("KORVANTA_SHEET_FOLDER");
    if (folder == nullptr) {
        PaintSheet(KORVANTA_SOURCE_DIR "/docs/images/drawings.png", rows, SheetColumns, QSize(300, 250),
                   false);
        return;
    }
    for (std::size_t first = 0; first < rows.size(); first += 9) {
        const auto part = rows.subspan(first, std::min<std::size_t>(9, rows.size() - first));
        const QString name = QString("%1/%2-").arg(folder).arg(first, 2, 10, QChar('0'));
        PaintSheet(name + "640x480.png", part, 3, QSize(453, 403), false);
        PaintSheet(name + "640x480-marked.png", part, 3, QSize(453, 403), true);
        PaintSheet(name + "1024x768.png", part, 3, QSize(737, 662), true);
    }
    ResizeSurface(Picture::Param, QSize(), 1.0);
}
} // namespace
