// The artwork at the sizes of the key bar, each picture with its name.
#include "Sheets.h"
#include "qt/Artwork.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr int Sides[] = {40, 50, 60};
constexpr int Gap = 8;
constexpr int NameHeight = 16;
constexpr int Columns = 4;
constexpr int CellWidth = 2 * (40 + 50 + 60) + 7 * Gap;
constexpr int CellHeight = NameHeight + 60 + 2 * Gap;
const QColor Ground(236, 233, 216); ///< of the window

QImage OnGround(const QPixmap& picture, bool grey)
{
    QImage image(picture.size(), QImage::Format_RGB32);
    image.setDevicePixelRatio(picture.devicePixelRatio());
    image.fill(Ground);
    QPainter painter(&image);
    painter.drawPixmap(0, 0, picture);
    painter.end();
    return grey ? image.convertToFormat(QImage::Format_Grayscale8) : image;
}

/// One picture with its name: three sizes in colour, then the same in grey.
void DrawCell(QPainter& painter, const QPoint& at, const QString& name, qreal ratio)
{
    painter.drawText(QRect(at, QSize(CellWidth, NameHeight)), Qt::AlignLeft | Qt::AlignVCenter, name);
    int x = at.x();
    for (const bool grey : {false, true}) {
        for (const int side : Sides) {
            const QPixmap picture = DrawArt(":/art/" + name + ".svg", QSize(side, side), ratio);
            painter.drawImage(QPoint(x, at.y() + NameHeight), OnGround(picture, grey));
            x += side + Gap;
        }
        x += Gap;
    }
}

bool DrawSheet(const QString& file, qreal ratio)
{
    const QStringList names = QDir(":/art").entryList({"*.svg"}, QDir::Files, QDir::Name);
    const int rows = (static_cast<int>(names.size()) + Columns - 1) / Columns;
    QImage sheet(QSize(Columns * CellWidth + Gap, rows * CellHeight + Gap) * ratio, QImage::Format_RGB32);
    sheet.setDevicePixelRatio(ratio);
    sheet.fill(Ground);
    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    for (int i = 0; i < names.size(); ++i) {
        const QPoint cell(Gap + i / rows * CellWidth, Gap + i % rows * CellHeight);
        DrawCell(painter, cell, names[i].chopped(4), ratio);
    }
    painter.end();
    return sheet.save(file);
}
} // namespace

bool PaintArtworkSheets(const QString& source)
{
    const QString folder = source + "/docs/images/";
    return !NamedPicture("Application", QSize(8, 8), 1.0).isNull() && // which links the files
           DrawSheet(folder + "artwork.png", 1.0) && DrawSheet(folder + "artwork-fine.png", 2.0);
}
