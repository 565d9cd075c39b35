#include "qt/Artwork.h"

#include "qt/ShapePictures.h"
#include "shapes/Korvanta_Parameters.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <array>
#include <cmath>
#include <span>

/// Links the compiled-in files, which a static library would leave out. Q_INIT_RESOURCE works in no namespace.
static void UseArtFiles()
{
    Q_INIT_RESOURCE(art);
}

namespace
{
/// Drawings of an image list, from image 1 on; null where an image has none.
using Drawings = std::span<const char* const>;

constexpr std::array InputKeys = {
    "key-next-tab",      // F1
    "key-previous-tab",  // F2
    "key-list-right",    // F3
    "key-list-left",     // F4
    "key-list-down",     // F5
    "key-list-up",       // F6
    "key-hand-to-host",  // F7
    "key-delete-job",    // F8
    "key-leave-program", // F9
    "key-open",          // F10
    "key-back-to-nest",  // F9 while a name is asked for
};

constexpr const char* FieldKey = nullptr; ///< filled by the focused field, or a key that does nothing

constexpr std::array ParametersKeys = {
    "key-back-to-lists", FieldKey, FieldKey, FieldKey, FieldKey, FieldKey, FieldKey, FieldKey, FieldKey,
    "key-next-cutting",
};

constexpr std::array CuttingKeys = {
    "key-back-to-lists",       "key-zoom-jump",    FieldKey, FieldKey, FieldKey, FieldKey, FieldKey, FieldKey,
    "key-previous-parameters", "key-next-nesting",
};

constexpr std::array NestingKeys = {
    "key-back-to-lists", "key-zoom-jump",        FieldKey,          FieldKey, FieldKey, FieldKey, FieldKey,
    "key-simulate",      "key-previous-cutting", "key-finish-save",
};

constexpr std::array CommonKeys = {
    "key-zoom-in",                // 1
    "key-zoom-out",               // 2
    "key-zoom-right",             // 3
    "key-zoom-left",              // 4
    "key-zoom-down",              // 5
    "key-zoom-up",                // 6
    "key-plus",                   // 7
    "key-minus",                  // 8
    "key-turn-left",              // 9: + 90 degrees
    "key-turn-right",             // 10: - 90 degrees
    "key-mirror-none",            // 11
    "key-mirror-x",               // 12: X turned over, left for right
    "key-mirror-y",               // 13: Y turned over, top for bottom
    "key-mirror-xy",              // 14
    "key-zoom-ok",                // 15
    "key-lead-forward",           // 16
    "key-lead-back",              // 17
    "key-nest-rows",              // 18
    "key-nest-columns",           // 19
    "key-nest-staggered-rows",    // 20
    "key-nest-staggered-columns", // 21
    "key-sim-start",              // 22
    "key-sim-stop",               // 23
    "key-lead-next-element",      // 24
    "key-path-change",            // 25
    "key-path-forward",           // 26
    "key-path-back",              // 27
    "key-count",                  // 28
    "key-copy-leads",             // 29
};

constexpr std::array SmallPictures = {
    "sign-save",       "sign-load",
    "tab-programs",    "tab-programs-front",
    "tab-rectangular", "tab-rectangular-front",
    "tab-circular",    "tab-circular-front",
    "tab-holes",       "tab-holes-front",
    "tab-dxf",         "tab-dxf-front",
    "tab-iso",         "tab-iso-front",
    "tab-parameters",  "tab-cutting",
    "tab-nesting",
};

/// The same drawings, which hold no text, in the order of the list for Chinese.
constexpr std::array ChinaPictures = {
    "tab-parameters",     "tab-cutting",     "tab-nesting",           "tab-programs",
    "tab-programs-front", "tab-rectangular", "tab-rectangular-front", "tab-circular",
    "tab-circular-front", "tab-holes",       "tab-holes-front",       "tab-dxf",
    "tab-dxf-front",      "tab-iso",         "tab-iso-front",
};

constexpr std::array FileIcons = {
    "icon-job", // 1
    "icon-dxf", // 2
    "icon-dwg", // 3
    "icon-iso", // 4
};

struct NamedDrawing {
    const char* Name;
    const char* Drawing;
};
constexpr std::array NamedDrawings = {
    NamedDrawing{"SaveFile", "sign-save"},
    NamedDrawing{"LoadFile", "sign-load"},
    NamedDrawing{"LeadHelp", "lead-help"},
    NamedDrawing{"Application", "application"},
};

Drawings DrawingsOf(ImageList list)
{
    switch (list) {
    case ImageList::InputState0:
        return InputKeys;
    case ImageList::InputState1:
        return ParametersKeys;
    case ImageList::InputState2:
        return CuttingKeys;
    case ImageList::InputState3:
        return NestingKeys;
    case ImageList::Common:
        return CommonKeys;
    case ImageList::Small:
        return SmallPictures;
    case ImageList::China:
        return ChinaPictures;
    case ImageList::FileListNormal:
        return FileIcons;
    default:
        return {};
    }
}

QString FileOf(const char* drawing)
{
    return drawing == nullptr ? QString() : QStringLiteral(":/art/%1.svg").arg(QLatin1String(drawing));
}

/// The largest rectangle of the drawing's proportions amid `room`, on whole pixels.
QRect FitInto(const QSizeF& drawing, const QSize& room)
{
    const QSize fitted = drawing.scaled(room, Qt::KeepAspectRatio).toSize();
    return {QPoint((room.width() - fitted.width()) / 2, (room.height() - fitted.height()) / 2), fitted};
}

QPixmap RenderArt(const QString& file, const QSize& pixels)
{
    UseArtFiles();
    QSvgRenderer drawing(file);
    if (!drawing.isValid()) {
        return {};
    }
    QPixmap picture(pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(FitInto(drawing.viewBoxF().size(), pixels)));
    return picture;
}
} // namespace

QString ArtFile(const ImageRef& image)
{
    const Drawings drawings = DrawingsOf(image.List);
    const auto place = static_cast<std::size_t>(image.Image) - 1;
    return image.Image >= 1 && place < drawings.size() ? FileOf(drawings[place]) : QString();
}

QString ArtFile(const QString& name)
{
    for (const NamedDrawing& row : NamedDrawings) {
        if (name == QLatin1String(row.Name)) {
            return FileOf(row.Drawing);
        }
    }
    return {};
}

QPixmap DrawArt(const QString& file, QSize size, qreal pixelRatio)
{
    if (file.isEmpty() || size.isEmpty() || !(pixelRatio > 0.0)) {
        return {};
    }
    const QSize pixels(static_cast<int>(std::lround(size.width() * pixelRatio)),
                       static_cast<int>(std::lround(size.height() * pixelRatio)));
    const QString key = QStringLiteral("%1 %2x%3").arg(file).arg(pixels.width()).arg(pixels.height());
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = RenderArt(file, pixels);
        QPixmapCache::insert(key, picture);
    }
    picture.setDevicePixelRatio(pixelRatio);
    return picture;
}

QPixmap ArtPicture(const ImageRef& image, QSize size, qreal pixelRatio)
{
    switch (image.List) {
    case ImageList::Rect:
        return ShapePicture(static_cast<std::int16_t>(FamilyRect + image.Image), size, pixelRatio);
    case ImageList::Circular:
        return ShapePicture(static_cast<std::int16_t>(FamilyCircular + image.Image), size, pixelRatio);
    case ImageList::Holes:
        return ShapePicture(static_cast<std::int16_t>(FamilyHoles + image.Image), size, pixelRatio);
    default:
        return DrawArt(ArtFile(image), size, pixelRatio);
    }
}

QPixmap NamedPicture(const QString& name, QSize size, qreal pixelRatio)
{
    return DrawArt(ArtFile(name), size, pixelRatio);
}
