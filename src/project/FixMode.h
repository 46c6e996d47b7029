#pragma once

// The ways a fix moves the other cues. The numbers are the ones the window's controls, the
// observable key "fixMode" and the preferences have always used.
enum class FixMode : int {
    None = 0,     // no current cue: nothing to fix
    Fix = 1,      // stretch the lines between the anchors around the current one
    Shift = 2,    // move the run between the anchors by the same amount
    Single = 3,   // move the current line alone
    Tap2Sync = 4, // every tap fixes the current line and moves on to the next
};
