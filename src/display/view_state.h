// The state of the display: the live view of the current window (what a saved view slot keeps),
// the work columns the renderer rebuilds (projected ends, display list, drawn list), and the
// few program-wide display switches. One DisplayState per program, beside the one Model.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "display/surface.h"
#include "model/model.h"

namespace karvane::display {

// Angles throughout the display use this value of pi.
inline constexpr double Pi = 3.141592654;

// DisplayOptions: one bit per check box of the view options.
namespace opt {
inline constexpr std::int32_t ShowNodeNames = 1;
inline constexpr std::int32_t ShowBranchNames = 2;
inline constexpr std::int32_t ShowData = 4;
inline constexpr std::int32_t ShowResistance = 8;
inline constexpr std::int32_t ShowFans = 16;
inline constexpr std::int32_t ShowNodeSymbols = 32;
inline constexpr std::int32_t ShowArrows = 64;
inline constexpr std::int32_t ShowContaminants = 128;
inline constexpr std::int32_t ShowFloatingText = 256;
inline constexpr std::int32_t ShowOffLevelRaises = 512;
} // namespace opt

// DimOptions: bits 0 and 1 say what happens to airways off their layers, the others which
// details such airways still show.
namespace dim {
inline constexpr std::int32_t LinesMask = 3;
inline constexpr std::int32_t Invisible = 0;
inline constexpr std::int32_t Dim = 1;
inline constexpr std::int32_t Solid = 2;
inline constexpr std::int32_t Data = 4;
inline constexpr std::int32_t Branch = 8;
inline constexpr std::int32_t Name = 16;
inline constexpr std::int32_t Arrow = 32;
inline constexpr std::int32_t Nodes = 64;
} // namespace dim

// Level modes.
namespace lm {
inline constexpr std::int16_t Single = 1;
inline constexpr std::int16_t Multiple = 2;
inline constexpr std::int16_t Range = 3;
inline constexpr std::int16_t All = 4;
} // namespace lm

// Flow limit modes of "Show airways by flow".
namespace flow {
inline constexpr std::int16_t All = 0;
inline constexpr std::int16_t Dim = 1;
inline constexpr std::int16_t Invisible = 2;
} // namespace flow

// The live view of one window; SaveViewToSlot and LoadViewFromSlot move it to and from a slot.
struct ViewState {
    std::int16_t Is3D = 0;
    float Tilt = 0; // "RotX", about the screen's horizontal axis
    float Spin = 0; // "RotY", about the vertical axis
    float ScaleLeft = -250, ScaleTop = -250, ScaleWidth = 500, ScaleHeight = 500;
    float CentreX = 0, CentreY = 0;
    std::array<std::int32_t, 3> RotCentre{};
    std::int16_t RotCentreSet = 0; // 0 not set, 1 set by a fit or entering 3D, 999 by the rotation button

    std::int16_t LevelMode = lm::All;
    std::int16_t CurrentLevel = 1; // row of the level list in Single mode
    std::int32_t CurrentRLMin = 0, CurrentRLMax = 0;
    std::int32_t CurRL = 0; // level at which a plan view's cursor lies
    std::array<std::int16_t, 6> SelectedLevels{};

    std::int16_t DataType = 12;
    std::int16_t DisplayOptions = 511;
    std::int32_t DimOptions = 0;
    std::int16_t FreshExhaust = 0;
};

// Projected (x, y) of one airway end.
struct ViewPoint {
    float X = 0, Y = 0;
};

// One row of the drawn list: where an airway of the display list stands in the window.
struct DrawnAirway {
    float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // window coordinates, after centre, signs and raise offsets
    std::int32_t Airway = 0;              // row of the airway table
    Colour LineColour = 0;
    std::int16_t Width = 1;
};

// The state of a mouse gesture that the cursor-to-world conversion needs.
struct GestureState {
    bool ShiftDown = false;                   // Shift held: moves go in the vertical plane facing the viewer
    bool PowerZoomActive = false;             // the power zoom repeat is running
    bool ButtonHeld = false;                  // a mouse button is down
    float PressX = 0, PressY = 0;             // cursor position of the press
    std::array<std::int32_t, 3> PressPoint{}; // world point picked at the press
};

// One step of the wheel: the box before and after, so that a step back restores it exactly.
struct WheelStep {
    float WidthBefore = 0, HeightBefore = 0, WidthAfter = 0, HeightAfter = 0;
    bool ZoomIn = false;
};

// What the main window shows about the current view: its caption, the three coordinate labels,
// the two small centre labels and the unit of the data type.
struct StatusLabels {
    std::string Caption;
    std::string LabelX, LabelY, LabelRL;
    std::string CentreX, CentreY;
    std::string Unit;
};

// One line of a station label over an airway.
struct StationLabelLine {
    std::string Text;
    Colour TextColour = 0;
};

// Real-time station labels. A later subsystem implements it; it may write a station's first
// value into the airway, which is why it is given the model to change.
class StationLabels {
public:
    virtual ~StationLabels() = default;
    // Whether the real-time input is active.
    virtual bool Active() const = 0;
    // The lines for the airway's station, top line first.
    virtual std::vector<StationLabelLine> LabelLines(const Model& model, std::int32_t row) = 0;
};

struct DisplayState {
    ViewState View;

    // Facts of the current window.
    int AreaWidth = 800; // drawing area, pixels
    int AreaHeight = 600;
    bool WindowCurrent = true;
    bool WindowFrozen = false;
    bool MainMinimised = false;
    bool StartingUp = false;
    // Printable width of the current printer in millimetres, in the print orientation: the
    // scale figure tells how a printout of the view would scale.
    double PrintableWidthMm = 200;
    char DecimalSeparator = '.';

    // Work columns. ViewFrom and ViewTo have a row per airway row; row 0 holds the projected
    // rotation centre.
    std::vector<ViewPoint> ViewFrom, ViewTo;
    bool PlanCopyValid = false;
    std::vector<std::int32_t> DisplayList; // airway rows in the order found
    std::vector<std::int32_t> VisibleText; // floating text slots
    std::vector<DrawnAirway> Drawn;
    bool AnythingDrawn = false;
    float Aspect = 0.75f; // height / width of the drawing area
    float CosSpin = 1, SinSpin = 0, CosTilt = 1, SinTilt = 0;
    float TiltStep = 0, SpinStep = 0; // pending increments of the rotation button
    bool KeepCentre = false;
    bool Panning = false; // grid labels are left out while panning
    bool DrawingBusy = false;
    GestureState Gesture;

    // Program-wide display switches.
    bool GridOn = true;
    int GridWidth = 1;
    std::int16_t FlowLimitMode = flow::All;
    float OtherLevelMode = lm::All;
    std::int32_t RangeMin = 0, RangeMax = 0;
    std::int32_t OnlyAirway = 0;
    std::array<std::int16_t, 6> GroupValue{0, 2, 2, 2, 2, 2}; // 1..5
    float PickFraction = 0;
    float ScaleFigure = 0;
    std::vector<WheelStep> WheelSteps;
    std::string LastNote; // the last note of the scale limits

    StatusLabels Labels;

    StationLabels* Stations = nullptr;

    DisplayState();
};

// Takes the display options, the dim options and the colour scheme from the settings, and
// sizes the work columns. Called when a network is set up.
void ResetViewOptions(const Model& model, DisplayState& ds);

// The airway is a raise on screen: its rise is large against its length.
inline bool IsSteep(const Airway& a) {
    return static_cast<double>(std::abs(static_cast<std::int64_t>(a.Z1) - a.Z2)) * 1.5 > a.Length;
}

} // namespace karvane::display
