#include "qt/PictureBoxes.h"

#include "platform/Paths.h"
#include "qt/Mirror.h"
#include "qt/PaintSurface.h"
#include "qt/StationWindow.h"
#include "qt/WindowEvents.h"
#include "shell/Measure.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace
{
constexpr int LogoMargin = 6;     ///< from the corner of the box
constexpr int LogoWidthShare = 4; ///< the logo takes at most this part of the box's width
constexpr int LogoLines = 2;      ///< and at most so many lines of text in height
constexpr const char* PreviewFolder = "DATA\\";

bool FindPicture(const QWidget* control, Picture& picture)
{
    const auto found = std::find(Window.Pictures.begin(), Window.Pictures.end(), control);
    picture = static_cast<Picture>(found - Window.Pictures.begin());
    return found != Window.Pictures.end();
}

QPixmap LoadPicture(const std::string& path)
{
    QPixmap picture;
    if (!path.empty() && FileExists(path)) {
        picture.load(FromText(NativePath(path)));
    }
    return picture;
}

void PaintFitted(QPainter& painter, const QRect& box, const QPixmap& picture)
{
    const QSize size = picture.size().scaled(box.size(), Qt::KeepAspectRatio);
    const QRect place(box.left() + (box.width() - size.width()) / 2,
                      box.top() + (box.height() - size.height()) / 2, size.width(), size.height());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, picture);
}

/// The station's logo, when there is one, small in the upper left corner. It is ink on the drawing: its white hides
/// nothing.
void PaintLogo(QPainter& painter, const QRect& box)
{
    const QPixmap logo = LoadPicture(AppState.LogoFile);
    const qreal ratio = Window.Main->devicePixelRatioF();
    const QSize room(box.width() / LogoWidthShare, LogoLines * Window.Main->fontMetrics().height());
    QSizeF size = QSizeF(logo.size()) / ratio;
    if (logo.isNull() || room.isEmpty()) {
        return;
    }
    if (size.width() > room.width() || size.height() > room.height()) {
        size.scale(room, Qt::KeepAspectRatio);
    }
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const QPixmap fitted = logo.scaled((size * ratio).toSize().expandedTo(QSize(1, 1)), Qt::IgnoreAspectRatio,
                                       Qt::SmoothTransformation);
    painter.drawPixmap(QRectF(QPointF(LogoMargin, LogoMargin), size), fitted, QRectF(fitted.rect()));
}

void PaintPicture(QWidget* control, Picture picture)
{
    QPainter painter(control);
    const bool job = picture == Picture::Preview && AppState.PreviewNest == FlagOff;
    if (job) {
        painter.fillRect(control->rect(), QColor::fromRgb(static_cast<QRgb>(AppState.WindowBackColor)));
        const std::string& name = AppState.PreviewJob;
        const QPixmap bitmap =
            name.empty() ? QPixmap() : LoadPicture(AppState.NestingPath + PreviewFolder + name + ".bmp");
        if (!bitmap.isNull()) {
            PaintFitted(painter, control->rect(), bitmap);
        }
        return;
    }
    painter.fillRect(control->rect(), Qt::white);
    if (!SurfaceImage(picture).isNull()) {
        painter.drawImage(0, 0, SurfaceImage(picture));
    }
    if (picture == Picture::Param && AppState.ShapeId > 0) {
        PaintLogo(painter, control->rect());
    }
}

/// Measuring: on the drawings of the Cutting and Nesting screens.
bool MeasureEvent(Picture picture, const QMouseEvent& event)
{
    if (Window.Modal || (picture != Picture::Tecno && picture != Picture::Nesting)) {
        return false;
    }
    double x = 0.0;
    double y = 0.0;
    SurfaceWorldOf(picture, event.position(), x, y);
    RunEvent([&] {
        if (event.type() == QEvent::MouseButtonPress && event.button() == Qt::LeftButton) {
            PressMeasure(picture, x, y);
        } else if (event.type() == QEvent::MouseMove) {
            MoveMeasure(picture, x, y);
        } else if (event.type() == QEvent::MouseButtonRelease) {
            ReleaseMeasure(picture, event.button() == Qt::LeftButton);
        }
    });
    return true;
}
} // namespace

bool PictureEvent(QWidget* control, QEvent* event)
{
    Picture picture = Picture::Param;
    if (!FindPicture(control, picture)) {
        return false;
    }
    switch (event->type()) {
    case QEvent::Paint:
        RunGuarded([&] { PaintPicture(control, picture); });
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return MeasureEvent(picture, *static_cast<QMouseEvent*>(event));
    default:
        return false;
    }
}

void ListenToPictures()
{
    SurfaceListener.Touched = [](Picture picture) { PictureBox(picture)->update(); };
    SurfaceListener.Pointer = [](Picture picture, bool cross) {
        PictureBox(picture)->setCursor(cross ? Qt::CrossCursor : Qt::ArrowCursor);
    };
}
