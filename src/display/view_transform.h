// The geometry of a view: world points to projected and window coordinates and back, the
// rotation with its centre, and the fit of the view box to the network.
//
// Projected coordinates (vx, vy) are world X, Y in a plan view and the rotated coordinates in
// a 3D view. Window coordinates are SgnX (vx - CentreX), SgnY (vy - CentreY); cursor
// coordinates, which every tool uses, are vx - CentreX, vy - CentreY.
#pragma once

#include <cstdint>
#include <string>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::display {

struct WorldPoint {
    std::int32_t X = 0, Y = 0, Z = 0;
};

// Sets the size of the view box and the projected point at the window's middle; the box is
// centred on window coordinates (0, 0).
void SetViewBox(DisplayState& ds, float width, float height, float centreX, float centreY);

// 0 plan, 1 rotated, 2 vertical section (the tilt stands at 90 or 270 degrees).
int ViewKind(const ViewState& view);

// Caches the sines and cosines of the angles.
void CacheRotation(DisplayState& ds);
// Fills ViewFrom and ViewTo of an airway row; row 0 projects the rotation centre.
void ProjectAirway(const Model& model, DisplayState& ds, std::int32_t row);
// Projects every airway of the display list with the cached angles (3D views).
void ProjectDisplayList(const Model& model, DisplayState& ds);
// In a plan view the projected ends are plain copies of X and Y, made once per display list.
void MakePlanCopies(const Model& model, DisplayState& ds);

// A world point relative to the window's middle, signs not applied.
ViewPoint ProjectPoint(const DisplayState& ds, std::int32_t x, std::int32_t y, std::int32_t z);
// The world point under the cursor (cursor coordinates) at the given level.
WorldPoint UnprojectPoint(const Model& model, const DisplayState& ds, float x, float y, std::int32_t level);
// Moves a world point in the vertical plane facing the viewer, from one cursor position to another.
void SectionMove(const DisplayState& ds, float ax, float ay, float bx, float by, double& x, double& y, double& z);

// Normalises the angles, applies pending rotation steps, keeps the rotation centre in the
// window's middle (unless KeepCentre is asked) and reprojects the display list.
void ApplyRotation(const Model& model, DisplayState& ds);

// The three ways of setting the rotation centre.
void RotationCentreKeepPlan(const Model& model, DisplayState& ds);
void RotationCentreMeanOfNetwork(const Model& model, DisplayState& ds);
void RotationCentreOfWhatIsSeen(const Model& model, DisplayState& ds);

// Fits the view box to the displayed airways with a margin. False when nothing was fitted.
bool FitView(const Model& model, DisplayState& ds, ui::UserInterface& ui);

// Sets the box size held between 20 and 1e7 wide, recentred, and returns the note of a limit
// reached ("Minimum Scaling Reached", "Maximum Scaling Reached") or an empty text. Nothing is
// set while the power zoom runs.
std::string SetScaleLimited(DisplayState& ds, float width, float height);
// One turn of the wheel: in (positive) by 0.8, out by 1 / 0.8. A turn back restores the box
// the previous turn left, exactly.
std::string WheelZoom(DisplayState& ds, bool positive);

// Height / width of the drawing area, kept when the area has no size.
void RefreshAspect(DisplayState& ds);

} // namespace karvane::display
