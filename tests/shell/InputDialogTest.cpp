// The dialog of the post-processor's input values, and the keys of the message box.
#include "shell/KeyCodes.h"
#include "shell/Korvanta_InputParamPPR.h"
#include "shell/MsgBox_Unicode.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class InputDialog : public StationCase
{
protected:
    /// Slots 1 on by kind; values "V1", ..., lists of three options.
    static void SetSlots(const std::string& kinds)
    {
        for (std::size_t slot = 1; slot <= PprInputSlots; ++slot) {
            PprInputValue& input = AppState.PprInput[slot];
            input = PprInputValue();
            input.Kind = slot <= kinds.size() ? kinds[slot - 1] : 'N';
            input.Value = input.Kind == 'T' ? "MID" : "V" + std::to_string(slot);
            input.Options = input.Kind == 'T' ? "LOW|MID|HIGH" : "";
            input.Label = "label";
        }
    }
};

TEST_F(InputDialog, ShowsARowForEachSlotInUse)
{
    SetSlots("TDX");
    OpenInputDialog("Korvanta [R_05]");
    EXPECT_EQ(AppState.InputDialogTitle, "Korvanta [R_05]");
    EXPECT_EQ(AppState.InputDialogButton, "F10 : text 36");
    EXPECT_EQ(AppState.InputDialogRows[1].IsList, FlagOn);
    EXPECT_THAT(AppState.InputDialogRows[1].Options, ElementsAre("LOW", "MID", "HIGH"));
    EXPECT_EQ(AppState.InputDialogRows[1].Text, "MID");
    EXPECT_EQ(AppState.InputDialogRows[2].IsList, FlagOff);
    EXPECT_EQ(AppState.InputDialogRows[2].Text, "V2");
    EXPECT_EQ(AppState.InputDialogRows[3].Visible, FlagOn);
    EXPECT_EQ(AppState.InputDialogRows[4].Visible, FlagOff);
    SetSlots("D");
    OpenInputDialog("");
    EXPECT_THAT(AppState.InputDialogRows[1].Options, IsEmpty()) << "of the list that was there before";
}

TEST_F(InputDialog, EnterGoesToTheNextSlotAndRoundToTheFirst)
{
    SetSlots("TDXD");
    OpenInputDialog("");
    InputDialogKey(1, KeyEnter);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus input 2"));
    InputDialogKey(2, KeyEnter);
    EXPECT_THAT(TakeCalls(), IsEmpty()) << "a kind that is no focus stop leaves the focus";
    InputDialogKey(3, KeyEnter);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus input 4"));
    InputDialogKey(4, KeyEnter);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus input 1")) << "behind the last slot in use";
    SetSlots("DDDDDDDT");
    InputDialogKey(7, KeyEnter);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus input 8"));
    InputDialogKey(8, KeyEnter);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus input 1"));
    InputDialogKey(0, KeyEnter);
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(InputDialog, ClosesByF8AndF10Everywhere)
{
    SetSlots("D");
    for (std::int16_t slot = 0; slot <= PprInputSlots; ++slot) {
        EXPECT_TRUE(InputDialogKey(slot, KeyF8));
        EXPECT_TRUE(InputDialogKey(slot, KeyF10));
        EXPECT_FALSE(InputDialogKey(slot, KeyEnter));
        EXPECT_FALSE(InputDialogKey(slot, KeyF1));
        EXPECT_FALSE(InputDialogKey(slot, KeyEsc));
    }
}

TEST_F(InputDialog, AnArrivingFocusSelectsTexts)
{
    SetSlots("TD");
    OpenInputDialog("");
    InputRowEntered(1);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    InputRowEntered(2);
    EXPECT_THAT(TakeCalls(), ElementsAre("select input 2"));
    InputButtonEntered();
    EXPECT_THAT(TakeCalls(), ElementsAre("focus input 1"));
}

TEST_F(InputDialog, ClosingTakesTheValues)
{
    SetSlots("TDX");
    AppState.PprInput[5].Value = "left over";
    OpenInputDialog("");
    AppState.InputDialogRows[1].Text = "HIGH";
    AppState.InputDialogRows[2].Text = "typed";
    AppState.InputDialogRows[3].Text = "free";
    CloseInputDialog();
    EXPECT_EQ(AppState.PprInput[1].Value, "HIGH");
    EXPECT_EQ(AppState.PprInput[2].Value, "typed");
    EXPECT_EQ(AppState.PprInput[3].Value, "free");
    EXPECT_EQ(AppState.PprInput[5].Value, "");
}

TEST_F(InputDialog, TheBoxClosesByItsKeys)
{
    AppState.EscAlias = 19;
    struct Case {
        std::int16_t Key;
        bool Closes;
        bool Result;
    };
    for (const Case& c : {Case{KeyF1, true, false}, Case{KeyF10, true, true}, Case{KeyEsc, true, true},
                          Case{19, true, true}, Case{KeyEnter, false, false}, Case{KeyF2, false, false}}) {
        bool result = !c.Result;
        EXPECT_EQ(BoxKey(c.Key, result), c.Closes) << c.Key;
        EXPECT_EQ(result, c.Closes ? c.Result : !c.Result) << c.Key;
    }
    AppState.EscAlias = 0;
    bool result = false;
    EXPECT_FALSE(BoxKey(0, result)) << "a key without a code isn't the alias that is none";
}

TEST_F(InputDialog, TheBoxNamesItsKeys)
{
    std::string ok;
    std::string cancel;
    BoxCaptions(true, ok, cancel);
    EXPECT_EQ(ok, "F10 : text 1");
    EXPECT_EQ(cancel, "F1 : text 2");
    BoxCaptions(false, ok, cancel);
    EXPECT_EQ(ok, "");
    EXPECT_EQ(cancel, "F10 : text 36");
}
} // namespace
