// ScreenRecords.h -- what the window shows beside the value fields, as plain records: panels, lists, tabs, key bar,
// dialog. The shell writes them, the window mirrors them and writes none but the typed texts and list sizes.
#pragma once

#include "state/Flag.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// --- pictures -----------------------------------------------------------------------------------------------

/// The image lists; images count from 1.
enum class ImageList : std::int16_t {
    None,
    InputState0, ///< key bars of the four screens, in the order of ScreenState
    InputState1,
    InputState2,
    InputState3,
    Common, ///< keys of the focused field
    Small,  ///< tabs, and the sign beside the file name
    China,  ///< tabs in Chinese
    FileListNormal,
    Rect,
    Circular,
    Holes,
};

/// One picture: a list and a number in it; None shows nothing.
struct ImageRef {
    ImageList List = ImageList::None;
    std::int16_t Image = 0;
};

constexpr bool operator==(const ImageRef& a, const ImageRef& b)
{
    return a.List == b.List && a.Image == b.Image;
}

/// F1 to F10.
inline constexpr int KeyButtonCount = 10;

// --- panels -------------------------------------------------------------------------------------------------

enum class Panel : std::int16_t {
    TabInput,
    TabCam,
    PicParam,
    TecnoPic,
    NestingPic,
    FrameValue,
    FrameCutting,
    FrameNesting,
    Count
};

// --- colours as 0xRRGGBB ------------------------------------------------------------------------------------

inline constexpr std::int32_t ColorWhite = 0xFFFFFF;
inline constexpr std::int32_t ColorBlack = 0x000000;
inline constexpr std::int32_t ColorYellow = 0xFFFF00;
inline constexpr std::int32_t ColorRed = 0xFF0000;
inline constexpr std::int32_t ColorBlue = 0x0000FF;

// --- tabs and lists -----------------------------------------------------------------------------------------

enum InputTab : std::int16_t { TabPrograms, TabRect, TabCirc, TabHoles, TabDxfIn, TabIsoIn, InputTabCount };

enum CamTab : std::int16_t { TabParameters, TabCutting, TabNesting, CamTabCount };

/// Values of ListRecord::View.
inline constexpr std::int16_t ViewIcons = 0;
inline constexpr std::int16_t ViewList = 2; ///< columns of lines, filled downward

struct ListItem {
    std::string Text;
    ImageRef Icon;
};

/// One list of the Input screen.
struct ListRecord {
    std::vector<ListItem> Items;
    std::int32_t Selected = -1; ///< index from 0, -1 none; the window keeps it in view
    std::int16_t View = ViewIcons;
    std::int32_t TextColor = ColorBlack;
    std::int32_t Filled = 0; ///< goes up each time that the items become others
};

/// How a list is laid out at the moment, in pixels.
struct ListMetrics {
    std::int32_t Width = 0;
    std::int32_t Height = 0;
    std::int32_t ItemWidth = 0; ///< of the first item
    std::int32_t ItemHeight = 0;
};

// --- the control with the focus -----------------------------------------------------------------------------

enum class FieldSet : std::int16_t { None, Param, Cutting, Nesting, FileName };

// --- start --------------------------------------------------------------------------------------------------

/// What the settings ask of the window's size, in pixels.
struct WindowPlan {
    Flag WholeScreen = FlagOff;
    std::int32_t Width = 0; ///< 0 with WholeScreen
    std::int32_t Height = 0;
    std::int32_t ButtonHeight = 0;   ///< 0: as designed
    std::int32_t PreviewWidth = 120; ///< of the job preview
    std::int32_t PreviewHeight = 155;
};

// --- dialog of the post-processor's input values --------------------------------------------------------------

/// One row: a text or, for kind 'T', a list in its place.
struct InputRow {
    std::string Text; ///< as typed, or the selected option
    std::vector<std::string> Options;
    Flag IsList = FlagOff;
    Flag Visible = FlagOff;
};
