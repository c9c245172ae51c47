#pragma once

// Every command of the program, in one numbering shared by the main window's
// toolbar and the pages' own buttons: each owner dispatches its range through
// its signal mapper to its processCommand(int).
enum CommandId {
    // Main toolbar.
    CmdRecentImages = 0,
    CmdOpenImage = 1,
    CmdConfigure = 2,
    CmdExit = 3,
    CmdHelpContents = 4,
    CmdAbout = 5,
    CmdZoomOut = 6,
    CmdZoomIn = 7,
    CmdZoomActual = 8,
    // The "Data" page.
    CmdNewData = 9,
    CmdOpenData = 10,
    CmdSaveData = 11,
    CmdSaveDataAs = 12,
    // The "Sample && Match" page.
    CmdMaintainLibrary = 13,
    CmdMatchColour = 14,
    CmdAddToDataSet = 15,
    CmdAddToLibrary = 16,
    CmdPickClick = 17,
    CmdPickRubberBand = 18,
    CmdSelectSingle = 19,
    CmdSelectMultiple = 20,
    CmdClearMultiple = 21,
    // Main toolbar, after the zoom buttons: "Pick from Screen".
    CmdPickFromScreen = 22
};
