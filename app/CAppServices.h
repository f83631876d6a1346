#pragma once

class ISettingsStore;
class IClock;
class IMessageSink;
class IFileChooser;
class IPictureViewer;
class IDialogRunner;

// The outside world as the window sees it: the settings store, the clock, message boxes, file dialogs,
// the picture viewer and the modal editors. The program passes the real ones; tests pass
// recorders. Not owned.
struct CAppServices
{
    ISettingsStore* settings = nullptr;
    const IClock* clock = nullptr;
    IMessageSink* messages = nullptr;
    IFileChooser* files = nullptr;
    IPictureViewer* viewer = nullptr;
    // Runs the editors and keypads modally; null runs them with QDialog::exec.
    IDialogRunner* dialogs = nullptr;
    // The unit system (CUnitSettings::Units) used while no preference is stored: the program
    // passes the system's measurement system, tests choose.
    int defaultUnits = 0;
};
