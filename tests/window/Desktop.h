// Desktop.h -- a screen of its own for the cases of the real window: a display in memory with a window manager, real key
// and mouse events, and its pixels.
#pragma once

#include "Process.h"
#include "support/TempFolder.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct Place {
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
};

bool operator==(const Place& a, const Place& b);

/// Pixels as 0xRRGGBB, from the top left.
struct Pixels {
    int Width = 0;
    int Height = 0;
    std::vector<std::uint32_t> Colors;
};

/// The part of a picture at `place`, cut at its edges.
Pixels Cut(const Pixels& picture, const Place& place);

bool Same(const Pixels& a, const Pixels& b);

/// How many pixels have just this colour, and the box around them (empty for none).
int CountColor(const Pixels& picture, std::uint32_t color);
Place BoxOfColor(const Pixels& picture, std::uint32_t color);

struct Desktop {
    Desktop(int width, int height, bool isManaged = true);

    /// Key names of the display ("F10", "Return", "KP_Next", "ctrl+F7"), one stroke after the other.
    void Press(const std::vector<std::string>& keys) const;

    /// A text, character by character. Letters, digits and * . - _ + only.
    void Type(const std::string& text) const;

    /// A click, or two at once, of the left button at a place of the screen.
    void Click(int x, int y, int times = 1) const;
    void MovePointer(int x, int y) const;

    /// Presses the left button at one place, moves, and lets go at another.
    void Drag(int fromX, int fromY, int toX, int toY) const;

    /// Visible windows of just this title.
    std::vector<std::string> WindowsTitled(const std::string& title) const;

    /// The window with the focus; empty for none.
    std::string ActiveWindow() const;
    std::string TitleOf(const std::string& window) const;

    /// Where a window's own area lies, the frame left out.
    Place PlaceOf(const std::string& window) const;

    /// Gives a window the focus and brings it to the front.
    void Activate(const std::string& window) const;

    Pixels Look() const;

    /// Waits until nothing moves on the screen any more; true when that came.
    bool WaitUntilStill() const;

    /// Writes what is to be seen into a PNG file.
    void Photograph(const std::string& path) const;

    std::string Display; ///< ":7"
    int Width = 0;
    int Height = 0;

private:
    Finished Tool(std::vector<std::string> words) const;
    void StartDisplay();
    void StartWindowManager();

    TempFolder Scratch;
    Process Server;
    Process Manager;
};

/// The display that all cases of a program share, 1024 x 768; made when it is first asked for.
Desktop& SharedDesktop();
