// The logo beside the program, as a plain bitmap.
#include "Sheets.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

bool PaintLogo(const QString& source)
{
    constexpr int Height = 80;
    QSvgRenderer drawing(source + "/docs/images/logo.svg");
    if (!drawing.isValid()) {
        return false;
    }
    const QSizeF drawn = drawing.viewBoxF().size();
    QImage picture(qRound(Height * drawn.width() / drawn.height()), Height, QImage::Format_RGB888);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    return picture.save(source + "/station/IMAGES/LOGO.BMP");
}
