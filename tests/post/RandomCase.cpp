#include "RandomCase.h"

namespace
{
std::string Number(std::mt19937& random, int from, int to)
{
    const int hundredths = from * 100 + static_cast<int>(random() % static_cast<unsigned>((to - from) * 100));
    return std::to_string(hundredths / 100.0);
}
} // namespace

std::string RandomCase(std::mt19937& random)
{
    std::string text = "sense 1\n";
    const int profiles = 1 + static_cast<int>(random() % 4);
    for (int p = 0; p < profiles; ++p) {
        const std::string x = Number(random, 0, 50);
        const std::string y = Number(random, 0, 50);
        const std::string x2 = Number(random, 60, 90);
        const std::string y2 = Number(random, 60, 90);
        switch (random() % 3) {
        case 0:
            text += "line " + x + " " + y + " " + x2 + " " + y + "\nline " + x2 + " " + y + " " + x2 + " " +
                    y2 + "\nline " + x2 + " " + y2 + " " + x + " " + y + "\nclose\n";
            break;
        case 1: {
            const double r = 1.0 + static_cast<double>(random() % 200) / 10.0;
            const std::string start = std::to_string(std::stod(x) + r);
            text += "arc " + start + " " + y + " " + start + " " + y + " " + x + " " + y + " " +
                    std::to_string(random() % 2 == 0 ? r : -r) + "\nclose\n";
            break;
        }
        default:
            text += "line " + x + " " + y + " " + x2 + " " + y2 + "\nopen\n";
        }
    }
    for (int p = 1; p <= profiles; ++p) {
        text += "lead " + std::to_string(p) + " in=" + Number(random, 0, 12) + "," + Number(random, 0, 6) +
                " out=" + Number(random, 0, 12) + "," + Number(random, 0, 6) +
                " at=" + Number(random, 0, 80) + " side=" + (random() % 2 == 0 ? "1" : "-1") + "\n";
        if (random() % 3 == 0) {
            text += "snap " + std::to_string(p) + "\n";
        }
    }
    text += "fields kerf=" + Number(random, 0, 5) + " gapx=" + Number(random, -5, 9) +
            " gapy=" + Number(random, 0, 9) + " sheetx=900 sheety=900\n";
    text += "layout kind=" + std::to_string(random() % 5) + " columns=" + std::to_string(random() % 4) +
            " rows=" + std::to_string(random() % 4) + " gapx=12 gapy=11\n";
    return text;
}
