// Every picture that the shell can ask for is there, sharp at each pixel ratio, and tells itself from its neighbours.
#include "qt/Artwork.h"

#include "shell/InputLists.h"
#include "shell/KeyBar.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <functional>
#include <vector>

namespace
{
constexpr qreal Ratios[] = {1.0, 1.5, 2.0};
constexpr int KeySize = 40;       ///< the smallest key
constexpr int MostImages = 60;    ///< well past the longest list
constexpr double LeastInk = 0.04; ///< part of a picture's pixels that carry something
constexpr double LeastOther =
    0.02; ///< mean difference, of 1, between two keys of a bar on the button's ground, in grey

const std::string StationFolder = KORVANTA_SOURCE_DIR "/station";
const QString ArtFolder = QStringLiteral(KORVANTA_SOURCE_DIR "/src/qt/art/");

std::string NameOf(const ImageRef& image)
{
    return "list " + std::to_string(static_cast<int>(image.List)) + " image " + std::to_string(image.Image);
}

/// Calls `visit` for the key bar of each screen, field, tab, save mode and state of the simulation.
void ForEachKeyBar(const std::function<void()>& visit)
{
    for (std::int16_t screen = ScreenInput; screen <= ScreenNesting; ++screen) {
        for (std::int32_t mode = 0; mode <= 9; ++mode) {
            for (std::int16_t tab = 0; tab < InputTabCount; ++tab) {
                for (int flags = 0; flags < 4; ++flags) {
                    ResetAppState();
                    AppState.ScreenState = screen;
                    AppState.FieldMode = mode;
                    AppState.InputTab = tab;
                    AppState.SaveMode = (flags & 1) != 0 ? FlagOn : FlagOff;
                    AppState.SimRunning = (flags & 2) != 0 ? FlagOn : FlagOff;
                    RefreshKeyBar();
                    visit();
                }
            }
        }
    }
    ResetAppState();
}

void AddOnce(std::vector<ImageRef>& images, const ImageRef& image)
{
    if (image.List != ImageList::None && std::find(images.begin(), images.end(), image) == images.end()) {
        images.push_back(image);
    }
}

std::vector<ImageRef> KeyImages()
{
    std::vector<ImageRef> images;
    ForEachKeyBar([&] {
        for (const ImageRef& image : AppState.KeyBar) {
            AddOnce(images, image);
        }
    });
    return images;
}

/// Of all tabs, each in front once, in all languages, and of the file lists.
std::vector<ImageRef> TabImages()
{
    std::vector<ImageRef> images;
    for (std::int16_t language = 1; language <= 6; ++language) {
        for (std::int16_t tab = 0; tab < InputTabCount; ++tab) {
            ResetAppState();
            AppState.AppPath = StationFolder;
            LoadMessages();
            AppState.Language = language;
            AppState.InputTab = tab;
            SetTabIcons();
            SetCamTabIcons();
            for (const ImageRef& image : AppState.InputTabIcon) {
                AddOnce(images, image);
            }
            for (const ImageRef& image : AppState.CamTabIcon) {
                AddOnce(images, image);
            }
        }
    }
    ResetAppState();
    return images;
}

std::vector<ImageRef> AllImages()
{
    std::vector<ImageRef> images = KeyImages();
    for (const ImageRef& image : TabImages()) {
        AddOnce(images, image);
    }
    for (int list = static_cast<int>(ImageList::InputState0);
         list <= static_cast<int>(ImageList::FileListNormal); ++list) {
        for (std::int16_t image = 1; image <= MostImages; ++image) {
            const ImageRef ref = {static_cast<ImageList>(list), image};
            if (!ArtFile(ref).isEmpty()) {
                AddOnce(images, ref);
            }
        }
    }
    return images;
}

const QStringList Names = {"SaveFile", "LoadFile", "LeadHelp", "Application"};

/// The drawings that any picture shows.
QSet<QString> AllFiles()
{
    QSet<QString> files;
    for (const ImageRef& image : AllImages()) {
        files.insert(ArtFile(image));
    }
    for (const QString& name : Names) {
        files.insert(ArtFile(name));
    }
    return files;
}

int MarksOnBorder(const QImage& picture)
{
    int marks = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool border = x == 0 || y == 0 || x == picture.width() - 1 || y == picture.height() - 1;
            marks += border && qAlpha(picture.pixel(x, y)) > 0 ? 1 : 0;
        }
    }
    return marks;
}

double InkOf(const QPixmap& picture)
{
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    int marked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            marked += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
        }
    }
    return static_cast<double>(marked) / (image.width() * image.height());
}

/// On the ground of a button, in shades of grey.
QImage InGrey(const QPixmap& picture)
{
    QImage image(picture.size(), QImage::Format_RGB32);
    image.fill(QColor(236, 233, 216));
    QPixmap plain = picture;
    plain.setDevicePixelRatio(1.0);
    QPainter painter(&image);
    painter.drawPixmap(0, 0, plain);
    painter.end();
    return image.convertToFormat(QImage::Format_Grayscale8);
}

double Difference(const QImage& a, const QImage& b)
{
    double sum = 0.0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
        }
    }
    return sum / (255.0 * a.width() * a.height());
}

QSet<QString> FolderFiles()
{
    const QStringList files = QDir(ArtFolder).entryList({"*.svg"}, QDir::Files);
    return {files.begin(), files.end()};
}
} // namespace

TEST(Artwork, HasAPictureForAllThatTheShellAsksFor)
{
    const std::vector<ImageRef> keys = KeyImages();
    // 11 of the Input screen, 2 + 4 + 5 of the others, and 28 of the fields: "Zoom OK" has no place on a bar.
    EXPECT_EQ(keys.size(), 50U);
    const std::vector<ImageRef> tabs = TabImages();
    EXPECT_EQ(tabs.size(), 30U); // 12 + 3, small and in Chinese
    for (const ImageRef& image : AllImages()) {
        EXPECT_GE(InkOf(ArtPicture(image, QSize(KeySize, KeySize), 1.0)), LeastInk) << NameOf(image);
    }
    for (const QString& name : Names) {
        EXPECT_GE(InkOf(NamedPicture(name, QSize(KeySize, KeySize), 1.0)), LeastInk) << name.toStdString();
    }
}

TEST(Artwork, HasTheImagesOfEachList)
{
    for (std::int16_t image = 1; image <= MostImages; ++image) {
        EXPECT_EQ(ArtFile({ImageList::InputState0, image}).isEmpty(), image > 11) << image;
        EXPECT_EQ(ArtFile({ImageList::Common, image}).isEmpty(), image > 29) << image;
        EXPECT_EQ(ArtFile({ImageList::Small, image}).isEmpty(), image > 17) << image;
        EXPECT_EQ(ArtFile({ImageList::China, image}).isEmpty(), image > 15) << image;
        EXPECT_EQ(ArtFile({ImageList::FileListNormal, image}).isEmpty(), image > 4) << image;
    }
}

TEST(Artwork, ShowsWhatAKeyDoes)
{
    const auto common = [](std::int16_t image) { return ArtFile({ImageList::Common, image}).toStdString(); };
    EXPECT_EQ(common(9), ":/art/key-turn-left.svg");
    EXPECT_EQ(common(12), ":/art/key-mirror-x.svg");
    EXPECT_EQ(common(13), ":/art/key-mirror-y.svg");
    EXPECT_EQ(common(18), ":/art/key-nest-rows.svg");
    EXPECT_EQ(common(19), ":/art/key-nest-columns.svg");
    EXPECT_EQ(common(24), ":/art/key-lead-next-element.svg");
    EXPECT_EQ(common(26), ":/art/key-path-forward.svg");
    EXPECT_EQ(common(29), ":/art/key-copy-leads.svg");
    EXPECT_EQ(ArtFile({ImageList::InputState3, 8}).toStdString(), ":/art/key-simulate.svg");
    EXPECT_EQ(ArtFile({ImageList::InputState0, 11}).toStdString(), ":/art/key-back-to-nest.svg");
}

TEST(Artwork, GivesNothingForWhatIsNotThere)
{
    const QSize size(KeySize, KeySize);
    EXPECT_TRUE(ArtPicture({}, size, 1.0).isNull());
    EXPECT_TRUE(ArtPicture({ImageList::Common, 0}, size, 1.0).isNull());
    EXPECT_TRUE(ArtPicture({ImageList::Common, -1}, size, 1.0).isNull());
    EXPECT_TRUE(ArtPicture({ImageList::Common, 30}, size, 1.0).isNull());
    EXPECT_TRUE(ArtPicture({ImageList::InputState1, 5}, size, 1.0).isNull());
    EXPECT_TRUE(ArtPicture({ImageList::Common, 1}, QSize(0, KeySize), 1.0).isNull());
    EXPECT_TRUE(ArtPicture({ImageList::Common, 1}, QSize(KeySize, -1), 1.0).isNull());
    EXPECT_TRUE(NamedPicture("savefile", size, 1.0).isNull());
    EXPECT_TRUE(DrawArt(":/art/no-such-drawing.svg", size, 1.0).isNull());
}

TEST(Artwork, IsDrawnInTheVeryPixels)
{
    for (const qreal ratio : Ratios) {
        for (const int side : {16, 24, 40, 60}) {
            const QPixmap picture = ArtPicture({ImageList::Common, 7}, QSize(side, side), ratio);
            const int pixels = static_cast<int>(side * ratio);
            EXPECT_EQ(picture.size(), QSize(pixels, pixels)) << side << " at " << ratio;
            EXPECT_EQ(picture.devicePixelRatio(), ratio);
        }
    }
}

TEST(Artwork, IsTheSameWhenDrawnAgainAndFitForEachRatio)
{
    const ImageRef key = {ImageList::Common, 25};
    const QPixmap first = ArtPicture(key, QSize(60, 60), 1.0);
    const QPixmap fine = ArtPicture(key, QSize(30, 30), 2.0);
    EXPECT_EQ(fine.toImage().copy(), first.toImage().copy());
    EXPECT_EQ(fine.devicePixelRatio(), 2.0);
    EXPECT_EQ(ArtPicture(key, QSize(60, 60), 1.0).devicePixelRatio(), 1.0);
    EXPECT_EQ(first.devicePixelRatio(), 1.0);
}

TEST(Artwork, KeepsItsProportionsAmidAWiderRoom)
{
    const QImage square = ArtPicture({ImageList::Common, 7}, QSize(40, 40), 1.0).toImage();
    const QImage wide = ArtPicture({ImageList::Common, 7}, QSize(60, 40), 1.0).toImage();
    EXPECT_EQ(wide.size(), QSize(60, 40));
    EXPECT_EQ(wide.copy(10, 0, 40, 40), square);
    EXPECT_EQ(qAlpha(wide.pixel(5, 20)), 0);
    EXPECT_EQ(qAlpha(wide.pixel(54, 20)), 0);
}

TEST(Artwork, StaysWithinItsBox)
{
    // A drawing that is cut off at its box leaves marks on the outermost pixels.
    for (const QString& file : AllFiles()) {
        const QSize box = file == ArtFile("LeadHelp") ? QSize(200, 120) : QSize(96, 96);
        const QImage picture = DrawArt(file, box, 1.0).toImage();
        EXPECT_EQ(MarksOnBorder(picture), 0) << file.toStdString();
    }
}

TEST(Artwork, TellsTheKeysOfABarApartInGrey)
{
    QHash<QString, QImage> grey;
    for (const ImageRef& image : KeyImages()) {
        grey[ArtFile(image)] = InGrey(ArtPicture(image, QSize(KeySize, KeySize), 1.0));
    }
    QSet<QString> seen;
    ForEachKeyBar([&] {
        for (std::size_t i = 0; i < AppState.KeyBar.size(); ++i) {
            for (std::size_t k = i + 1; k < AppState.KeyBar.size(); ++k) {
                const QString a = ArtFile(AppState.KeyBar[i]);
                const QString b = ArtFile(AppState.KeyBar[k]);
                if (a.isEmpty() || b.isEmpty() || seen.contains(a + b)) {
                    continue;
                }
                seen.insert(a + b);
                EXPECT_GE(Difference(grey[a], grey[b]), LeastOther)
                    << a.toStdString() << ' ' << b.toStdString();
            }
        }
    });
    EXPECT_GT(seen.size(), 100);
}

TEST(Artwork, TellsATabInFrontFromOneBehind)
{
    for (std::int16_t tab = 0; tab < InputTabCount; ++tab) {
        const auto behind = static_cast<std::int16_t>(2 * tab + 3);
        const QSize size(16, 16);
        const QImage normal = InGrey(ArtPicture({ImageList::Small, behind}, size, 1.0));
        const QImage front =
            InGrey(ArtPicture({ImageList::Small, static_cast<std::int16_t>(behind + 1)}, size, 1.0));
        EXPECT_GE(Difference(normal, front), LeastOther) << tab;
    }
}

TEST(Artwork, TellsTheKindsOfFilesApartInGrey)
{
    const std::vector<std::string> kinds = {"job", "dxf", "dwg", "iso"};
    for (const int side : {16, 19, 24, 32}) { // a line of the file lists at each size of the window
        std::vector<QImage> icons;
        for (std::int16_t image = 1; image <= 4; ++image) {
            const ImageRef icon = {ImageList::FileListNormal, image};
            EXPECT_EQ(ArtFile(icon).toStdString(),
                      ":/art/icon-" + kinds[static_cast<std::size_t>(image) - 1] + ".svg");
            icons.push_back(InGrey(ArtPicture(icon, QSize(side, side), 1.0)));
        }
        for (std::size_t a = 0; a < icons.size(); ++a) {
            for (std::size_t b = a + 1; b < icons.size(); ++b) {
                EXPECT_GE(Difference(icons[a], icons[b]), LeastOther)
                    << kinds[a] << ' ' << kinds[b] << " at " << side;
            }
        }
    }
}

TEST(Artwork, HoldsOnlyWhatItDraws)
{
    for (const QString& name : FolderFiles()) {
        QFile file(ArtFolder + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        const QString text = QString::fromUtf8(file.readAll());
        for (const char* element :
             {"<text", "<tspan", "<style", "<filter", "<marker", "<mask", "<image", "class="}) {
            EXPECT_FALSE(text.contains(QLatin1String(element))) << name.toStdString() << ' ' << element;
        }
        EXPECT_EQ(name.count(QRegularExpression("[0-9]")), 0) << name.toStdString();
    }
}

TEST(Artwork, CompilesInTheFilesThatItShowsAndNoOthers)
{
    ASSERT_FALSE(NamedPicture("Application", QSize(8, 8), 1.0).isNull()); // links the files
    const QStringList compiled = QDir(":/art").entryList(QDir::Files);
    QSet<QString> inside;
    for (const QString& name : compiled) {
        inside.insert(":/art/" + name);
    }
    EXPECT_EQ(inside, AllFiles());
    EXPECT_EQ(QSet<QString>(compiled.begin(), compiled.end()), FolderFiles());
}
