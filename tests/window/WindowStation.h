// WindowStation.h -- the real program in a station folder of its own on the shared display, worked by keys, and
// korvanta-batch beside it as the judge of what it saves.
#pragma once

#include "Desktop.h"
#include "Process.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// One thing that an operator does on the road from the opened part to the nest: types a value into a field (by its
/// English caption), or presses a key of the Cutting screen, as korvanta-batch names them.
struct RoadStep {
    std::string Caption; ///< or "key"
    std::string Value;
};
using Road = std::vector<RoadStep>;

/// A copy of the shipped station with the programs in it: English, no question at the exit, and a window of 1024 x 768
/// that goes on after a save.
struct WindowStation {
    explicit WindowStation(Desktop& desktop = SharedDesktop());
    ~WindowStation();

    /// Sets a key of Korvanta.ini.
    void Set(const std::string& section, const std::string& key, const std::string& value) const;

    /// Starts the program and waits until its window has the focus.
    void Start(const std::vector<std::string>& arguments = {});

    /// Starts it and doesn't wait.
    void Launch(Process& process, const std::vector<std::string>& arguments = {}) const;

    /// The variables that it is started with.
    std::vector<std::string> WholeEnvironment() const;

    /// Sends keys, or types a text over a field's selected one.
    void Press(const std::vector<std::string>& keys) const;
    void Type(const std::string& text) const;

    /// Waits until a box or dialog is open, or none: it dims the window, or has the focus as a window of its own.
    void AwaitBox() const;
    void AwaitNoBox() const;

    /// Waits for the box that tells of a fault.
    void AwaitCriticalError() const;

    /// From the tab that the program starts on to another one, and from any list to the Parameters screen.
    void GoToTab(int tab) const;
    void Open() const;

    /// Types values into the fields of the Parameters screen, in their order.
    void TypeParameters(const std::vector<std::string>& values) const;

    /// From the Parameters screen to the Nesting screen with all the steps of a road, Cutting ones first.
    void Walk(const Road& road) const;

    /// From the Nesting screen: saves under a name and waits for the program, whose text is the result.
    std::string Save(const std::string& name) const;

    /// The program that korvanta-batch makes of the same numbers from the configuration as it stands.
    std::string Reference(const std::string& source, const std::vector<std::string>& options,
                          const Road& road, const std::string& name) const;

    /// The text of an NC program, when its file is complete.
    std::string AwaitProgram(const std::string& name) const;

    /// Expects the program to end with `status`, soon.
    void ExpectEnd(int status);

    /// True when it runs and its window shows.
    bool Lives();

    /// The window's own area; the part of it that lists and drawings have, below the tabs, above the key bar, left of the
    /// fields, so that no caret blinks in it.
    Pixels Look() const;
    Pixels LookAbove() const;

    /// Waits until LookAbove is something else than `before`; true when it became so.
    bool AwaitChange(const Pixels& before) const;

    /// Waits until the yellow of the field with the focus is to be seen; the box around it and its label, on the screen.
    Place AwaitFocusedField() const;

    /// Clicks the key-bar button of F`key`.
    void ClickKey(int key, int times = 1) const;

    Desktop& Screen;
    TempFolder Folder;
    Process Program;
    std::string Window; ///< its window, once started
    Place Area;
    std::string Extension = "nc";         ///< of the NC programs
    std::vector<std::string> Environment; ///< NAME=VALUE beside those that every station here has
};

/// Tabs of the Input screen.
inline constexpr int ProgramsTab = 0;
inline constexpr int RectangularTab = 1;
inline constexpr int DxfTab = 4;
inline constexpr int IsoTab = 5;

inline constexpr const char* WindowTitle = "Korvanta V2.28";
inline constexpr std::uint32_t FocusYellow = 0xFFFF00;
inline constexpr std::uint32_t WindowGround = 0xECE9D8;
inline constexpr int KeyBarHeight = 60; ///< of the window of 1024 x 768
