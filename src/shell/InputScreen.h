// InputScreen.h -- what the Input screen leads to: opening, saving and deleting a job.
#pragma once

#include <string>

/// Opens what is selected in the list of the current tab as a new part, or the job that TextFileName names, and shows its
/// Parameters screen. Does nothing without a selection or such a job.
void OpenJob();

/// The Input screen, asking for the name to save the nest under.
void EnterSaveMode();

/// Back from the question for a name to the nest.
void LeaveSaveMode();

/// Saves under the name in TextFileName, after a question when a job of that name exists; then, when ExitAfterSave asks for
/// it, hands the program to the host (HostMode 1), writes the exit log and ends the process. Without a name, or with one
/// too long for a file, nothing is saved. A file that can't be written, or a host that doesn't answer, is a RunTimeFault.
void SaveCurrentJob();

/// Hands a job's NC program to the host, and ends the process when ExitAfterSave asks for it, without a log. For HostMode 1.
void HandOverJob(const std::string& name);

/// Deletes a job with its companions and its NC program, after a question. A job that doesn't exist is none.
void DeleteJob(const std::string& name);

/// Gives the focus to the control that has it on the Input screen: the list, or TextFileName in SaveMode.
void FocusInputControl();
