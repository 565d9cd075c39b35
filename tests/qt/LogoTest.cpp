// The logo that stands beside the program, and its place on the Parameters screen.
#include "qt/ShownStation.h"

#include "platform/Surface.h"
#include "qt/PaintSurface.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace
{
constexpr int LogoHeight = 80;
constexpr int LogoWidth = 357;  ///< 80 * 232 / 52
constexpr int DepthOffset = 28; ///< of the bits per pixel, in a bitmap file
const QString LogoFile = QStringLiteral(KORVANTA_SOURCE_DIR "/station/IMAGES/LOGO.BMP");

QImage DrawnLogo()
{
    QSvgRenderer drawing(QStringLiteral(KORVANTA_SOURCE_DIR "/docs/images/logo.svg"));
    QImage picture(LogoWidth, LogoHeight, QImage::Format_RGB888);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    return picture;
}

class LogoOnScreen : public ShownStation
{
protected:
    /// The drawing box of R-05 at a window size.
    QImage Shown(const std::string& resolution)
    {
        Open(resolution);
        OpenPart(TabParameters);
        QImage picture = PictureBox(Picture::Param)->grab().toImage().convertToFormat(QImage::Format_RGB32);
        TearDown();
        return picture;
    }

    void RemoveLogo() const
    {
        std::filesystem::remove(std::filesystem::path(Folder.Path) / "IMAGES/LOGO.BMP");
    }

    void PutLogo(const QImage& picture) const
    {
        RemoveLogo();
        ASSERT_TRUE(picture.save(QString::fromStdString(Folder.Path) + "/IMAGES/LOGO.BMP"));
    }
};

/// The smallest rectangle that holds all pixels in which two pictures differ.
QRect Changed(const QImage& a, const QImage& b)
{
    QRect changed;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                changed |= QRect(x, y, 1, 1);
            }
        }
    }
    return changed;
}
} // namespace

TEST(Logo, IsAPlainBitmapOfItsDrawing)
{
    QFile file(LogoFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    ASSERT_GT(bytes.size(), DepthOffset);
    EXPECT_EQ(bytes.left(2), "BM");
    EXPECT_EQ(bytes[DepthOffset], 24);
    const QImage shipped = QImage::fromData(bytes).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(shipped.size(), QSize(LogoWidth, LogoHeight));
    const QImage drawn = DrawnLogo().convertToFormat(QImage::Format_RGB32);
    int other = 0;
    int dark = 0;
    for (int y = 0; y < LogoHeight; ++y) {
        for (int x = 0; x < LogoWidth; ++x) {
            other += std::abs(qGray(shipped.pixel(x, y)) - qGray(drawn.pixel(x, y))) > 16 ? 1 : 0;
            dark += qGray(drawn.pixel(x, y)) < 128 ? 1 : 0;
        }
    }
    EXPECT_LE(other, LogoWidth * LogoHeight / 200); // another painter may round its edges otherwise
    EXPECT_GE(dark, LogoWidth * LogoHeight / 20);
}

TEST_F(LogoOnScreen, StandsSmallInTheUpperLeftCornerAtAnySize)
{
    for (const char* resolution : {"640x480", "1024x768"}) {
        const QImage with = Shown(resolution);
        const QImage original(LogoFile);
        RemoveLogo();
        const QImage without = Shown(resolution);
        PutLogo(original);
        ASSERT_EQ(with.size(), without.size());
        const QRect logo = Changed(with, without);
        EXPECT_GE(logo.width(), 60) << resolution;
        EXPECT_GE(logo.left(), 2) << resolution;
        EXPECT_GE(logo.top(), 2) << resolution;
        EXPECT_LE(logo.right(), with.width() / 3) << resolution;
        EXPECT_LE(logo.bottom(), with.height() / 6) << resolution;
        EXPECT_NEAR(static_cast<double>(logo.width()) / logo.height(), 227.0 / 46.0, 0.6) << resolution;
    }
}

TEST_F(LogoOnScreen, HidesNothingOfTheDrawing)
{
    Open("640x480");
    OpenPart(TabParameters);
    SurfaceSetScale(Picture::Param, 0.0, 100.0, 100.0, -100.0); // up to the upper edge
    SurfaceFillBox(Picture::Param, 0.0F, 90.0F, 30.0F, 100.0F, ColorBlue);
    const QImage shown = PictureBox(Picture::Param)->grab().toImage();
    int covered = 0;
    for (int y = 0; y < shown.height() / 20; ++y) {
        for (int x = 0; x < shown.width() / 4; ++x) {
            covered += qRed(shown.pixel(x, y)) > 0 ? 1 : 0; // neither the logo nor its ground is blue
        }
    }
    EXPECT_EQ(covered, 0);
}

TEST_F(LogoOnScreen, AHugeLogoStaysInItsCorner)
{
    QImage huge(2000, 3000, QImage::Format_RGB888);
    huge.fill(Qt::black);
    PutLogo(huge);
    const QImage with = Shown("640x480");
    RemoveLogo();
    const QRect logo = Changed(with, Shown("640x480"));
    EXPECT_GE(logo.width(), 8);
    EXPECT_LE(logo.right(), with.width() / 3);
    EXPECT_LE(logo.bottom(), with.height() / 6);
}

TEST_F(LogoOnScreen, ASmallLogoKeepsItsPixels)
{
    QImage small(20, 10, QImage::Format_RGB888);
    small.fill(Qt::black);
    PutLogo(small);
    const QImage with = Shown("1024x768");
    RemoveLogo();
    EXPECT_EQ(Changed(with, Shown("1024x768")).size(), QSize(20, 10));
}
