// The dimensioned drawing in the window: it follows the focus, the window's size, and the way back to the screen.
#include "qt/PaintSurface.h"
#include "qt/ShownStation.h"

#include <filesystem>

namespace
{
constexpr QRgb Red = 0xFFFF0000;
constexpr QRgb LightBlue = 0xFF5555FF;

class ShapeDrawingShown : public ShownStation
{
protected:
    void SetUp() override
    {
        ShownStation::SetUp();
        std::filesystem::copy(KORVANTA_BINARY_DIR "/Korvanta.DBG", Folder.Path + "/Korvanta.DBG");
    }

    /// The part of the painted picture that is of a colour.
    static QRect BoxOf(QRgb colour)
    {
        QRect box;
        const QImage& image = SurfaceImage(Picture::Param);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == colour) {
                    box |= QRect(x, y, 1, 1);
                }
            }
        }
        return box;
    }
};

TEST_F(ShapeDrawingShown, FollowsTheFocus)
{
    Open();
    OpenPart(TabParameters); // A on the left, B above, X below, Y on the right
    const QRect outline = BoxOf(LightBlue);
    ASSERT_FALSE(outline.isEmpty());
    EXPECT_LT(BoxOf(Red).left(), outline.left()) << "A";
    EXPECT_LT(BoxOf(Red).right(), outline.right());
    Press(Qt::Key_Return);
    EXPECT_LT(BoxOf(Red).top(), outline.top()) << "B";
    EXPECT_LT(BoxOf(Red).bottom(), outline.bottom());
    Press(Qt::Key_Down);
    EXPECT_GT(BoxOf(Red).bottom(), outline.bottom()) << "X";
    Press(Qt::Key_Down);
    EXPECT_GT(BoxOf(Red).right(), outline.right()) << "Y";
    Press(Qt::Key_Up);
    EXPECT_GT(BoxOf(Red).bottom(), outline.bottom()) << "X again";
    EXPECT_EQ(BoxOf(LightBlue), outline);
}

TEST_F(ShapeDrawingShown, IsWhatTheBoxShows)
{
    Open();
    OpenPart(TabParameters);
    const QImage shown = PictureBox(Picture::Param)->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QRect red = BoxOf(Red);
    ASSERT_FALSE(red.isEmpty());
    EXPECT_EQ(shown.copy(red), SurfaceImage(Picture::Param).copy(red));
}

TEST_F(ShapeDrawingShown, FollowsTheSizeOfTheWindow)
{
    Open();
    OpenPart(TabParameters);
    Press(Qt::Key_Return);
    Window.Main->resize(1024, 768);
    QApplication::processEvents();
    const QRect outline = BoxOf(LightBlue);
    EXPECT_GT(outline.width(), 300);
    EXPECT_LT(BoxOf(Red).top(), outline.top()) << "B stands out as before";
}

TEST_F(ShapeDrawingShown, StandsAgainAfterAnotherScreen)
{
    Open();
    OpenPart(TabParameters);
    const QRect outline = BoxOf(LightBlue);
    Press(Qt::Key_F10);
    ASSERT_EQ(AppState.ScreenState, ScreenCutting);
    Press(Qt::Key_F9);
    ASSERT_EQ(AppState.ScreenState, ScreenParameters);
    EXPECT_EQ(BoxOf(LightBlue), outline);
    EXPECT_LT(BoxOf(Red).left(), outline.left()) << "A has the focus";
}

TEST_F(ShapeDrawingShown, WithoutTheFileThePictureIsEmpty)
{
    std::filesystem::remove(Folder.Path + "/Korvanta.DBG");
    Open();
    OpenPart(TabParameters);
    EXPECT_TRUE(BoxOf(LightBlue).isEmpty());
    EXPECT_FALSE(Window.Modal) << "nothing is said";
    Press(Qt::Key_F10);
    EXPECT_EQ(AppState.ScreenState, ScreenCutting) << "and the part is made";
}
} // namespace
