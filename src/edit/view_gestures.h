// The gestures that change a view: the zoom tool, the power zoom, the pan, rotation by mouse
// and by the rotation button, and the switches between plan and 3D. Plain arithmetic on the
// display state; the caller draws (lines only during a gesture, everything at its end).
#pragma once

#include "display/view_state.h"
#include "display/view_transform.h"
#include "model/model.h"

namespace karvane::edit {

// Mouse buttons as the tools see them.
namespace button {
inline constexpr int Left = 1;
inline constexpr int Right = 2;
inline constexpr int Both = 3;
inline constexpr int Middle = 4;
} // namespace button

// The zoom tool at mouse up, in cursor coordinates. Left: a click halves the box about the
// cursor, a drag makes the dragged rectangle (at the window's aspect) the new box; right:
// doubles the box about the cursor; middle: nothing. Ends with the recentring.
void ZoomFromMouse(Model& model, display::DisplayState& ds, int button, float pressX, float pressY, float curX,
                   float curY);

// The end of a gesture that moved the centre by (dx, dy) in projected coordinates: the
// rotation centre follows to the new middle of the window (in a vertical section by a move in
// the section plane) and a 3D view is reprojected about it.
void RecentreView(Model& model, display::DisplayState& ds, float dx, float dy);

// One pass of the power zoom about the cursor: the box times f (1 + percent/100 for the right
// button, 1 - percent/100 for the left), the centre moved so that the same world point stays
// under the pointer, whose cursor coordinates are scaled with it.
void PowerZoomPass(display::DisplayState& ds, int button, float percent, float& curX, float& curY);

// One step of a pan: the centre is the centre at the press moved against the mouse's travel
// since the press (window coordinates), so that the picture follows the pointer.
void PanView(const Model& model, display::DisplayState& ds, float startCentreX, float startCentreY, float pressX,
             float pressY, float x, float y);

// Rotation by mouse, from the first move of a drag with both buttons.
struct MouseRotation {
    float Fx = 0, Fy = 0; // press position as fractions of the box
    float StartTilt = 0, StartSpin = 0;
};
// A plan view becomes 3D with both angles 0 about its plan centre; the press position and the
// angles are kept. Window coordinates.
MouseRotation BeginMouseRotation(Model& model, display::DisplayState& ds, float x, float y);
// A drag over the whole width turns half a turn, over the whole height a quarter turn.
void RotateByMouse(Model& model, display::DisplayState& ds, const MouseRotation& rotation, float x, float y);

// The rotation button: its rest point, the limits of its face, and the press and timer tick.
inline constexpr float RotationRestX = 22;
inline constexpr float RotationRestY = 28;
inline constexpr float RotationFaceMin = 1;
inline constexpr float RotationFaceMax = 50;
// On press: a plan view becomes 3D with angles 0; a 3D view's centre becomes what is seen.
void BeginRotationButton(Model& model, display::DisplayState& ds);
// One tick with the pointer at (x, y) on the button's face: turns by steps that grow with the
// distance from the rest point. False when nothing turned (at rest, or off the face).
bool RotationButtonTick(Model& model, display::DisplayState& ds, float x, float y);

// "Plan View": plan with the rotation centre's plan position in the middle.
void MakePlanView(Model& model, display::DisplayState& ds);
// "3D View": the angles as they stand, about the centre of what is seen.
void Make3DView(Model& model, display::DisplayState& ds);
// The tool bar's 2D-3D button.
void TogglePlan3D(Model& model, display::DisplayState& ds);

// Centres the view on a world point, which becomes the rotation centre (the left button of
// the centre tool).
void CentreOnPoint(Model& model, display::DisplayState& ds, const display::WorldPoint& point);

} // namespace karvane::edit
