// The tool table: every tool bar button, tool menu entry and function key as a command value,
// the tool that a value selects, its tip, its key and the cursor names of the views.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace karvane::edit {

// Tools (the value of Tool).
namespace tool {
inline constexpr int Zoom = 0;
inline constexpr int Draw = 1;
inline constexpr int Move = 2;
inline constexpr int Reverse = 3;
inline constexpr int Delete = 4;
inline constexpr int Fan = 5;
inline constexpr int Names = 6;
inline constexpr int Contaminant = 7;
inline constexpr int Edit = 8;
inline constexpr int Info = 9;
inline constexpr int Centre = 10;
inline constexpr int Follow = 11;
inline constexpr int Attributes = 15;
inline constexpr int Layers = 16;
inline constexpr int Insert = 17;
inline constexpr int Pins = 18;
inline constexpr int Select = 19;
} // namespace tool

// Command values of RunToolCommand.
namespace cmd {
inline constexpr int Zoom = 0;
inline constexpr int Fit = 1;
inline constexpr int Layers = 2;
inline constexpr int FindNext = 3;
inline constexpr int Draw = 4;
inline constexpr int Redo = 5;
inline constexpr int Move = 6;
inline constexpr int Reverse = 7;
inline constexpr int Delete = 8;
inline constexpr int Fan = 9;
inline constexpr int Names = 10;
inline constexpr int Contaminant = 11;
inline constexpr int Edit = 12;
inline constexpr int Info = 13;
inline constexpr int Simulate = 14;
inline constexpr int Insert = 15;
inline constexpr int Follow = 16;
inline constexpr int Pins = 17;
inline constexpr int Centre = 18;
inline constexpr int Open = 19;
inline constexpr int Save = 20;
inline constexpr int Attributes = 21;
inline constexpr int PrintScreen = 22;
inline constexpr int Undo = 23;
inline constexpr int Toggle3D = 24;
inline constexpr int Grid = 25;
inline constexpr int DisplayOptions = 26;
inline constexpr int SingleMulti = 27;
inline constexpr int UpdateScreen = 28;
inline constexpr int Smoke = 29;
inline constexpr int Sourcing = 30;
inline constexpr int Select = 31;
inline constexpr int AttributesToDefaults = 91;
inline constexpr int LastToolBarValue = 31;
} // namespace cmd

// Key codes as the keyboard reports them to the views.
namespace key {
inline constexpr int Backspace = 8;
inline constexpr int Tab = 9;
inline constexpr int Escape = 27;
inline constexpr int Home = 36;
inline constexpr int Up = 38;
inline constexpr int Down = 40;
inline constexpr int F2 = 113;
inline constexpr int F3 = 114;
inline constexpr int F4 = 115;
inline constexpr int F5 = 116;
inline constexpr int F6 = 117;
inline constexpr int F7 = 118;
inline constexpr int F8 = 119;
inline constexpr int F9 = 120;
inline constexpr int F10 = 121;
inline constexpr int F11 = 122;
inline constexpr int F12 = 123;
} // namespace key

struct ToolCommand {
    int Value = 0;
    int Tool = -1;                // the tool the value selects; -1 for a command that selects none
    const char* Tip = "";         // tool bar tip; empty for a value without a button
    int Key = 0;                  // key code, 0 for none
    const char* MenuCaption = ""; // caption of its entry in the tool menu; empty for none
    const char* CursorLeft = "";  // cursor names by button; empty: the cross
    const char* CursorRight = "";
};

// The tool bar's buttons, values 0 to 31 in order.
std::span<const ToolCommand> ToolBarCommands();
// Any value of the table (91 included); null for another value.
const ToolCommand* FindToolCommand(int value);
// The tool a value selects; -1 when it selects none.
int ToolOf(int value);
// The command value of a key; -1 for a key that runs no command (Up and Down move the level).
int CommandOfKey(int key);
// The cursor name of the views for a command value and a button (1 left, any other right).
std::string CursorName(int value, int button);

} // namespace karvane::edit
