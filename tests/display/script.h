// What an operator does, one step a line: keys, and the windows and rows that he waits for.
//
// A form joins the display tests with a script of its own; see waybill_scripts.cpp.
#pragma once

#include "tests/display/x_client.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace display {

class ProgramRun;

struct Stroke {
    Keysym key = 0;  ///< 0 is the key that moves on to the next box, as the pace says
    bool alt = false;
    bool control = false;
    bool shift = false;
};

/// Either keys, or something to wait for.
struct Step {
    std::vector<Stroke> keys;
    std::function<void(ProgramRun&)> wait;
};
using Script = std::vector<Step>;

/// How keys are sent.
struct Pace {
    int milliseconds = 0;  ///< from one key to the next; 0 sends all keys up to the next wait at once
    bool byTab = false;    ///< moves on by Tab, otherwise by Return
};

inline constexpr Keysym kReturn = 0xff0d;
inline constexpr Keysym kTab = 0xff09;
inline constexpr Keysym kEscape = 0xff1b;
inline constexpr Keysym kF1 = 0xffbe;
inline constexpr Keysym kSpace = 0x20;
inline constexpr Keysym kRight = 0xff53;
inline constexpr Keysym kDown = 0xff54;
inline constexpr Keysym kAlt = 0xffe9;
inline constexpr Keysym kControl = 0xffe3;
inline constexpr Keysym kShift = 0xffe1;

Step Type(const QString& text);  ///< ASCII
Step Press(Keysym key, int times = 1);
Step MoveOn(int boxes = 1);
Step MoveBack(int boxes = 1);  ///< Shift+Tab
Step Alt(char key);
Step Control(char key);
/// Types over what the box holds and moves on.
Step Fill(const QString& text);

/// A window whose title contains this is there and has the keys; "" is a window without a title.
Step ExpectWindow(const QString& title);
Step ExpectNoWindow(const QString& title);
/// The rows of a statement, values joined by "|".
Step ExpectRows(const QString& select, const QStringList& rows);
/// The program has worked off all keys.
Step ExpectIdle();
Step ExpectEnd();
/// The test lets go of the data file; see ProgramRun::CloseFile.
Step CloseFile();
/// Presses this key in that message box once the box takes keys, until it closes.
Step Answer(const QString& title, Keysym key = kReturn);

Script operator+(Script first, const Script& then);

}  // namespace display
