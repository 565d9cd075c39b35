// picture_sheets: artwork SOURCE | logo SOURCE | drawings SOURCE BUILD [FOLDER] | shapes SOURCE BUILD FOLDER
#include "Sheets.h"

#include <QApplication>

#include <cstdio>

namespace
{
constexpr int WrongUse = 2;

int Finish(bool painted)
{
    if (!painted) {
        std::fputs("picture_sheets: a file can't be read or written\n", stderr);
    }
    return painted ? 0 : 1;
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().mid(1);
    const QString what = words.value(0);
    if (what == "artwork" && words.size() == 2) {
        return Finish(PaintArtworkSheets(words[1]));
    }
    if (what == "logo" && words.size() == 2) {
        return Finish(PaintLogo(words[1]));
    }
    if (what == "drawings" && words.size() == 3) {
        return Finish(PaintDrawingSheet(words[1], words[2]));
    }
    if (what == "drawings" && words.size() == 4) {
        return Finish(PaintWindowDrawings(words[1], words[2], words[3]));
    }
    if (what == "shapes" && words.size() == 4) {
        return Finish(PaintShapePictures(words[1], words[2], words[3]));
    }
    std::fputs("picture_sheets artwork SOURCE | logo SOURCE | drawings SOURCE BUILD [FOLDER] | "
               "shapes SOURCE BUILD FOLDER\n",
               stderr);
    return WrongUse;
}
