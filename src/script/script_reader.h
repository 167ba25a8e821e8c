// The script of the user's actions: one small line language that says what an engineer does
// with the mouse, the keys, the menus and the forms, so that it can be replayed without a
// window. The reader turns the text into lines; it runs nothing. A line it cannot read stops
// the whole script with "line N: " and the reason.
//
//   window W H                 the view window's size in pixels
//   view plan|section|3d [A B] plan; a vertical section facing along spin A degrees; 3D at
//                              tilt A and spin B degrees
//   box X1,Y1 X2,Y2            the world rectangle the view shows (corners X,Y[,Z] in 3D)
//   level NAME|RL              the level shown, by its name or an elevation in it
//   tool NAME|VALUE            a tool bar command by its name (draw, move, ...) or value
//   press X,Y [right] [shift]  mouse press at a world point in metres (X,Y,Z in 3D views)
//   move X,Y [shift]           mouse move, with the buttons of the press held
//   release X,Y [right]        mouse release
//   click X,Y [right] [shift]  press and release at one point
//   drag X1,Y1 X2,Y2 [right] [shift]  press, move and release
//   key NAME                   F2 to F12, Esc, Up, Down, Home, Backspace, Tab, Delete, ...
//   menu mnuName               a main window command by its control name
//   answer yes|no|ok|cancel|"text"   queued for the next question, input box or file dialog
//   coords X,Y,Z [copy] [DX,DY,DZ]   queued for the next coordinate entry (metres)
//   field NAME VALUE, cell ROW COL VALUE, button NAME, close   act on the open form
//   set AIRWAYNO NAME=VALUE ...   the airway editor on that airway (its selection when it is
//                              selected): each control set by its name, then OK; a pair
//                              with blanks in quotes ("TxtName=Main drive")
//   select [AIRWAYNO ...]      those airways selected; no number clears the selection
//   simulate                   the airflow simulation
//   save PATH                  the network written to PATH once the whole script has run
//   # ...                      a comment
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace karvane::script {

enum class Op {
    Window,
    View,
    Box,
    Level,
    Tool,
    Press,
    Move,
    Release,
    Click,
    Drag,
    Key,
    Menu,
    Answer,
    Coords,
    Field,
    Cell,
    Button,
    Close,
    Simulate,
    Save,
    Set,
    Select,
};

// A point in world metres; Z only where the line gave one.
struct ScriptPoint {
    double X = 0, Y = 0, Z = 0;
    bool HasZ = false;
};

enum class AnswerKind { Yes, No, OK, Cancel, Text };

enum class ViewKind { Plan, Section, ThreeD };

struct ScriptLine {
    int Line = 0; // line number in the script, from 1
    Op Kind = Op::Window;
    std::vector<ScriptPoint> Points; // press, move, release, click: 1; drag, box: 2; coords: 1 or 2
    int Button = 1;                  // 1 left, 2 right
    int Shift = 0;                   // 1 with Shift
    int Width = 0, Height = 0;       // window
    int Row = 0, Col = 0;            // cell
    int Value = 0;                   // tool: the command value; key: the key code
    ViewKind View = ViewKind::Plan;
    double Angle1 = 0, Angle2 = 0; // view angles in degrees
    bool HasAngles = false;
    bool LevelByRL = false;
    std::int32_t RL = 0;
    AnswerKind Answer = AnswerKind::OK;
    bool Copy = false;  // coords: "Make a copy"
    std::string Text;   // the level name, menu name, path, field or button name, answer text
    std::string Value2; // field and cell: the value typed
    std::vector<std::pair<std::string, std::string>> Fields; // set: control names and values
    std::vector<std::int32_t> Airways;                       // set: the airway; select: the airways
};

struct ScriptText {
    std::vector<ScriptLine> Lines;
};

struct ReadResult {
    ScriptText Script;
    std::string Error; // "line N: reason"; empty when the whole text was read
};

// Reads a whole script. `isMenuName` says which names a `menu` line may carry (the session
// passes the commands' own table); without it any name is taken.
using MenuNameCheck = bool (*)(std::string_view name);
ReadResult ReadScript(std::string_view text, MenuNameCheck isMenuName = nullptr);

// The command value of a tool name (lower case, hyphens: "draw", "insert-node"); -1 for none.
int ToolValueOf(std::string_view name);
// The name of a command value, as the reader takes it.
std::string ToolNameOf(int value);
// The key code of a key name (any case: "F5", "Esc", "Up"); -1 for none.
int KeyCodeOf(std::string_view name);

// Coordinates the coordinate entry accepts: |X|, |Y| up to 10000000, |Z| up to 9999999.
inline constexpr double CoordsLimitXY = 10000000;
inline constexpr double CoordsLimitZ = 9999999;
// Any coordinate of a line beyond this is refused before it reaches a window.
inline constexpr double PointLimit = 100000000;

} // namespace karvane::script
