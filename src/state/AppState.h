// AppState.h -- the program-wide record. Every room reads and writes it directly; one thread runs it all.
#pragma once

#include "state/CutMove.h"
#include "state/Flag.h"
#include "state/Numbers.h"
#include "state/PictureItem.h"
#include "state/PprInputValue.h"
#include "state/ProfileElement.h"
#include "state/ProfileRecord.h"
#include "state/ScreenRecords.h"
#include "state/ValueField.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

struct MarkPoint {
    double X = 0.0;
    double Y = 0.0;
};

/// A profile that stayed open at an import: the distance of its first and last point, and that last point in the
/// coordinates of the file.
struct OpenProfile {
    std::int32_t Profile = 0;
    double Gap = 0.0;
    double X = 0.0;
    double Y = 0.0;
};

/// A line of an imported ISO program that hardly says what its writer meant, and why, in a few words.
struct ImportDoubt {
    std::int64_t Line = 0;
    std::string What;
};

/// Background of the window, the message box and every unmarked label, as 0xRRGGBB: red 236, green 233, blue 216.
inline constexpr std::int32_t DesignBackColor = 0xECE9D8;

/// Background of labels without a mark.
template <std::size_t Count> constexpr std::array<std::int32_t, Count> FilledWithBackColor()
{
    std::array<std::int32_t, Count> colors{};
    for (std::int32_t& color : colors) {
        color = DesignBackColor;
    }
    return colors;
}

/// Values of AppState.ScreenState.
inline constexpr std::int16_t ScreenInput = 0;
inline constexpr std::int16_t ScreenParameters = 1;
inline constexpr std::int16_t ScreenCutting = 2;
inline constexpr std::int16_t ScreenNesting = 3;

/// Table sizes of the message catalogue: messages 0 to 50 in language columns 1 to 6, three parts each.
inline constexpr int MessageRows = 51;
inline constexpr int LanguageColumns = 6;
using MessageParts = std::array<std::string, 3>;

/// Values of HostMode.
inline constexpr std::int16_t NoHost = 0;
inline constexpr std::int16_t Hosted = 1;
inline constexpr std::int16_t HostBarOnly = 2; ///< the host's bar is kept free, and no call is made

/// Values of AppState.KerfState: the compensation of the program being written.
inline constexpr std::int16_t KerfOff = 40;
inline constexpr std::int16_t KerfLeft = 41;
inline constexpr std::int16_t KerfRight = 42;
inline constexpr std::int16_t KerfSilent = 1; ///< on, without a word written

/// Highest slot of ElementTable: element numbers are 16-bit.
inline constexpr std::int32_t MaxElements = 32767;

struct AppStateRecord {
    // --- shell: the program and its screens -----------------------------------------------------------
    std::string ProgramName = "Korvanta";           ///< base of the names of configuration and catalogue
    std::string AppPath;                            ///< the program's folder, without a trailing backslash
    std::int32_t WindowBackColor = DesignBackColor; ///< fixed
    std::int16_t ScreenState = ScreenInput;
    std::int16_t HostBarHeight = 0;   ///< pixels kept free for the host's own bar; 0 without a host
    std::int16_t ShapeId = 0;         ///< 0 none, 1000 + n for R-n, 2000 + n for C-n, 3000 + n for H-n
    std::int32_t FieldMode = 0;       ///< kind of the focused value field, 0 to 9
    std::int16_t CurrentField = 0;    ///< index of the focused value field
    std::string JobName;              ///< as typed or picked
    std::string SourceName;           ///< what the job was made from
    std::int16_t Language = 1;        ///< 1 to 6
    std::int16_t PreviousCamTab = 0;  ///< 0 Parameters, 1 Cutting, 2 Nesting: the screen before this one
    Flag SaveMode = FlagOff;          ///< the Input screen asks for a job name to save under
    Flag ButtonPressed = FlagOff;     ///< a click on the key bar is being handled
    Flag SheetFieldChanged = FlagOff; ///< a sheet size changed since a Nesting field got the focus
    /// [number][language - 1]: the three parts of a message; row 0 holds the language marks.
    std::array<std::array<MessageParts, LanguageColumns>, MessageRows> MessageTable;

    // --- shell: what the window mirrors ----------------------------------------------------------------
    std::string WindowTitle;
    WindowPlan Window;
    std::array<Flag, static_cast<std::size_t>(Panel::Count)> PanelVisible{};
    std::int16_t InputTab = TabPrograms;  ///< index of Tab_Input
    std::int16_t CamTab = TabParameters;  ///< index of Tab_CAM
    std::int16_t FrontList = TabPrograms; ///< the list in front of the others; TabPrograms with its frame
    std::array<std::string, InputTabCount> InputTabCaption;
    std::array<std::string, CamTabCount> CamTabCaption;
    std::array<ImageRef, InputTabCount> InputTabIcon;
    std::array<ImageRef, CamTabCount> CamTabIcon;
    std::array<ListRecord, InputTabCount> Lists;
    std::array<ImageRef, KeyButtonCount> KeyBar;
    std::string LogoFile;       ///< picture that PicParam shows for a start, empty for none
    std::string PreviewJob;     ///< job whose picture the preview shows, empty for none
    Flag PreviewNest = FlagOff; ///< the preview shows the nest that is about to be saved
    ValueField TextFileName;
    std::string LabelFileName;
    std::int32_t FileNameColor = ColorBlue;
    std::int32_t FileNameBackColor = ColorWhite;
    std::string FileNameImage;            ///< key in ImageList::Small, "SaveFile" or "LoadFile"
    FieldSet FocusedSet = FieldSet::None; ///< which fields hold the focus; CurrentField tells the one
    std::string InputDialogTitle;
    std::string InputDialogButton;
    std::array<InputRow, PprInputSlots + 1> InputDialogRows; ///< by slot, from 1

    /// Set by the shell at start-up: draws the current screen; with the flag on the view is fitted first.
    void (*Redraw)(Flag fit) = nullptr;
    /// The same: shows the keys anew after SimRunning has changed.
    void (*RefreshKeys)() = nullptr;

    // --- value fields: the text of a field is its value -----------------------------------------------
    std::array<ValueField, CuttingFieldCount> TextCutting;
    std::array<ValueField, NestingFieldCount> TextNesting;
    std::array<ValueField, ParamFieldCount> ParamText;
    std::array<std::string, CuttingFieldCount> LabelCutting;
    std::array<std::string, NestingLabelCount> LabelNesting;
    std::array<std::string, ParamFieldCount> ParamLabel;
    std::array<std::int32_t, CuttingFieldCount> LabelCuttingColor = FilledWithBackColor<CuttingFieldCount>();
    std::array<std::int32_t, NestingLabelCount> LabelNestingColor = FilledWithBackColor<NestingLabelCount>();
    std::array<std::int32_t, ParamFieldCount> ParamLabelColor = FilledWithBackColor<ParamFieldCount>();

    // --- config: settings read at start-up ------------------------------------------------------------
    std::string NcPath; ///< folders end in a backslash
    std::string DxfPath;
    std::string NestingPath;
    std::string PprIniName; ///< file name of the post-processor table
    std::int16_t EscAlias = 27;
    Flag ExitConfirm = FlagOff;
    Flag ExitAfterSave = FlagOff;
    Flag TextFileLostFocus = FlagOff;
    Flag SwapRipXY = FlagOff;
    std::int16_t HostMode = NoHost;
    std::int16_t ExternalPathSense = -1; ///< direction of cut: 1 counter-clockwise, -1 clockwise
    std::int16_t InternalPathSense = 1;
    Flag ConfigHeld = FlagOff; ///< WriteConfig keeps its values in HeldConfig instead of writing the file
    std::map<std::string, std::string> HeldConfig; ///< by "SECTION]KEY" in upper case

    // --- shapes: the dimensioned drawing on the Parameters screen ---------------------------------------
    std::vector<PictureItem> PictureItems{1}; ///< of the current shape, slots from 1

    // --- profile: the part ----------------------------------------------------------------------------
    std::vector<ProfileElement> ElementTable{1};   ///< slot 0 exists and holds nothing
    std::int32_t ElementCount = 0;                 ///< last used slot, end marks included
    std::vector<ProfileElement> ShadowElements{1}; ///< untransformed copy
    std::vector<MarkPoint> MarkPoints{1};          ///< slots from 1, like the elements
    std::int32_t MarkPointCount = 0;
    std::vector<MarkPoint> ShadowMarkPoints{1};
    std::int32_t ProfileCount = 0;
    std::vector<ProfileRecord> ProfileTable{1}; ///< slots from 1
    /// [p] is the end mark of profile p, [0] is 0; from MeasureProfiles, empty while the table is raw.
    std::vector<std::int32_t> ProfileEnds;
    std::int32_t CurrentProfile = 0; ///< profile being edited, 0 none
    double TotalCutLength = 0.0;
    double MinX = 0.0; ///< box of the part, leads left out
    double MaxX = 0.0;
    double MinY = 0.0;
    double MaxY = 0.0;
    std::int16_t WorkExternalSense = 0; ///< senses in force for OrientProfiles
    std::int16_t WorkInternalSense = 0;
    Flag ShapeFlagTwin = FlagOff;    ///< the part is one of the twin-half shapes
    Flag OpenShapePart = FlagOff;    ///< set by the shapes that draw an open part
    std::int16_t DevelopedShape = 0; ///< ShapeId of the part that the Cutting screen was last built for
    Flag KeepLeadData = FlagOff;     ///< lead data of the last development stays in force
    double MoveStep = 10.0;          ///< field "Move Step"
    Flag PathOriginSet = FlagOff;    ///< the path cursor is on and gives the program's zero
    double PathCursorDistance = NoValue;
    std::int16_t PathCursorProfile = 0;
    double PathOriginX = 0.0;
    double PathOriginY = 0.0;

    // --- view: world units of the picture in use, Y upward ---------------------------------------------
    double UnitsPerPixelX = 0.0;
    double UnitsPerPixelY = 0.0; ///< negative
    double ViewLeft = 0.0;
    double ViewTop = 0.0;
    double ViewWidth = 0.0;
    double ViewHeight = 0.0; ///< negative
    double ViewCentreX = 0.0;
    double ViewCentreY = 0.0;
    double SavedCentreX = NoValue; ///< centre of the last applied zoom
    double SavedCentreY = NoValue;
    double ZoomFrame = 0.0;     ///< factor of the zoom frame that stands on the picture, 0 none
    Flag MeasureOn = FlagOff;   ///< a button is down on a drawing box, and a distance is measured
    double MeasureStartX = 0.0; ///< where it went down
    double MeasureStartY = 0.0;
    double MeasureLastX = 0.0; ///< where the pointer was last
    double MeasureLastY = 0.0;
    double PenX = 0.0; ///< where the last drawn cut ended, start of the next rapid line
    double PenY = 0.0;

    // --- nesting: the layout in force, computed by the last draw of the Nesting screen ------------------
    std::int16_t NestKind = 0; ///< 0 one copy, 1 to 4 the nest types
    double PartSizeX = 0.0;
    double PartSizeY = 0.0;
    double GapX = 0.0;
    double GapY = 0.0;
    std::int32_t CountX = 1;
    std::int32_t CountY = 1;
    std::int32_t NestResultX = 0; ///< columns that "*n" fixed, 0 when computed
    std::int32_t NestResultY = 0;
    Flag NestFieldTouched = FlagOff; ///< a kerf or gap changed since its field got the focus
    std::int32_t CopiesDrawn = 0;    ///< copies that the last walk of the statistics line met
    double StatisticsLeft = 0.0;     ///< where the two lines of the statistics stand on the picture
    double StatisticsRight = 0.0;
    double StatisticsTop = 0.0;
    double StatisticsBottom = 0.0;

    // --- import: the account of the last import, and the modal state of one ISO file --------------------
    std::map<std::string, std::int64_t>
        ImportRead; ///< entities by type name; contents of inserts per insertion
    std::map<std::string, std::int64_t> ImportLeftOut; ///< the same for what gives no geometry
    std::vector<OpenProfile> ImportOpen;
    Flag ImportCutOff = FlagOff; ///< the drawing has no end mark: a copy that wasn't finished, perhaps
    std::vector<ImportDoubt> ImportDoubts; ///< the first of them
    std::int64_t ImportDoubtCount = 0;     ///< all of them
    std::string ImportFailure; ///< why the last import gave nothing, one line; empty when it worked
    std::int16_t IsoMode = 0;
    double IsoX = 0.0;
    double IsoY = 0.0;
    double IsoI = 0.0;
    double IsoJ = 0.0;

    // --- post: the values of the post-processor table and of the program being written -----------------
    std::string KerfLeftWord;
    std::string KerfRightWord;
    std::string KerfOffWord;
    std::string AxisX; ///< the addresses, and the mirror addresses behind "*&"
    std::string AxisY;
    std::string AxisI;
    std::string AxisJ;
    std::string MirrorX;
    std::string MirrorY;
    std::string MirrorI;
    std::string MirrorJ;
    std::string RadiusWord;
    std::string Separator;
    std::string LinearCode;
    std::string ClockwiseCode;
    std::string CounterClockwiseCode;
    std::string RapidCode;
    std::int16_t FirstMoveKerfOn = 0; ///< 1: the first move of a cut carries the compensation word
    Flag LineNumbering = FlagOff;
    std::int32_t LineNumber = 10;
    std::int16_t LineNumberStep = 10;
    std::array<PprInputValue, PprInputSlots + 1> PprInput; ///< slot 0 is always empty
    std::int16_t KerfState = KerfOff;
    Flag NoKerfCodes = FlagOff; ///< the part is cut without compensation words
    std::vector<std::string> CollectionBuffer;
    std::string TracksList;
    std::string OutputName; ///< program file name with extension
    std::string PendingFirstMove;
    std::string ProgramPath;        ///< folder + name of the last written program
    std::int64_t ProgramLines = 0;  ///< its lines
    std::int64_t ProgramCopies = 0; ///< its copies
    std::uint64_t ProgramSum = 0;   ///< of its lines, when ProgramFile.KeepSum asked for it, else 0
    double ProgramMinX = 0.0;       ///< low corner of all leads, at most 0
    double ProgramMinY = 0.0;
    double ProgramMaxX = 0.0; ///< largest X and Y since the program was started, never reset
    double ProgramMaxY = 0.0;
    double SheetSizeX = 0.0; ///< precedence of *SIZ over the view; nothing sets them
    double SheetSizeY = 0.0;

    // --- simulation -----------------------------------------------------------------------------------
    Flag SimRunning = FlagOff; ///< from the start of the walk to its end or the stop
    Flag SimStop = FlagOff;    ///< stop request
    Flag SimWalking =
        FlagOff; ///< the walk is on the stack: it outlives SimRunning until it has seen the request
    std::int16_t SimSpeed = 0; ///< speed number that the last simulation left, 0 when none ran yet
    double SimStep = 0.0;      ///< length of a step, drawing units
    double SimStepView = 0.0;  ///< UnitsPerPixelX that the step belongs to
    double SimX = 0.0;         ///< where the head is
    double SimY = 0.0;
    double SimPrevX = 0.0; ///< where it was drawn before: start of the next piece of trail
    double SimPrevY = 0.0;
    Flag SimHeadShown = FlagOff; ///< a head stands on the picture, at SimHeadX, SimHeadY
    Flag SimHeadCross = FlagOff; ///< as a small cross, else as a cross-hair
    double SimHeadX = 0.0;
    double SimHeadY = 0.0;
    Flag SimTextTouched = FlagOff;         ///< the trail has run over the statistics since they were drawn
    double SimDue = 0.0;                   ///< ClockSeconds at which the head is to be where it is
    double SimSeen = 0.0;                  ///< ClockSeconds at which the window last caught up
    std::function<void()> AfterSimulation; ///< what waits for the end of the walk
};

extern AppStateRecord AppState;

/// Puts every member back to its value at process start. For tests.
void ResetAppState();
