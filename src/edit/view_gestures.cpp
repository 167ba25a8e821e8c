// View gestures.
#include "edit/view_gestures.h"

#include <algorithm>
#include <cmath>

#include "display/display_list.h"
#include "files/number_text.h"

namespace karvane::edit {

namespace {

using display::DisplayState;
using display::ViewState;

// Box sizes are held within these bounds by the gestures that have no limits of their own, so
// that the arithmetic of a view stays finite however long the user zooms.
constexpr float kSmallestBox = 0.01f;
constexpr float kLargestBox = 1.0e9f;

float Round(double v) {
    if (!std::isfinite(v)) return 0;
    return static_cast<float>(std::nearbyint(v));
}

void SetBoxHeld(DisplayState& ds, double width, double height, float cx, float cy) {
    if (!std::isfinite(width) || !std::isfinite(height) || width <= 0 || height <= 0) return;
    const double scale = std::clamp(width, static_cast<double>(kSmallestBox), static_cast<double>(kLargestBox)) / width;
    display::SetViewBox(ds, static_cast<float>(width * scale), static_cast<float>(height * scale), cx, cy);
}

// The plan view becomes a 3D view with both angles 0: the picture does not move.
void PlanTo3D(const Model& model, DisplayState& ds) {
    ViewState& v = ds.View;
    v.Is3D = 1;
    v.Tilt = 0;
    v.Spin = 0;
    ds.PlanCopyValid = false;
    display::CacheRotation(ds);
    display::RotationCentreKeepPlan(model, ds);
}

} // namespace

void RecentreView(Model& model, DisplayState& ds, float dx, float dy) {
    ViewState& v = ds.View;
    if (display::ViewKind(v) < 2) {
        const display::WorldPoint p = display::UnprojectPoint(model, ds, 0, 0, v.RotCentre[2]);
        v.RotCentre = {p.X, p.Y, v.RotCentre[2]};
        if (v.Is3D != 0) display::ApplyRotation(model, ds);
        return;
    }
    double x = v.RotCentre[0], y = v.RotCentre[1], z = v.RotCentre[2];
    display::SectionMove(ds, 0, 0, dx, dy, x, y, z);
    v.RotCentre = {files::ToInt32(x), files::ToInt32(y), files::ToInt32(z)};
    display::ApplyRotation(model, ds);
}

void ZoomFromMouse(Model& model, DisplayState& ds, int pressed, float pressX, float pressY, float curX, float curY) {
    ViewState& v = ds.View;
    double w = v.ScaleWidth, h = v.ScaleHeight;
    double cx = curX, cy = curY;
    if (pressed == button::Left) {
        const double near = w / 50;
        if (std::fabs(static_cast<double>(curX) - pressX) < near &&
            std::fabs(static_cast<double>(curY) - pressY) < near) {
            w *= 0.5;
            h *= 0.5;
        } else {
            const double x1 = std::min(pressX, curX), x2 = std::max(pressX, curX);
            const double y1 = std::min(pressY, curY), y2 = std::max(pressY, curY);
            w = x2 - x1;
            h = y2 - y1;
            const double aspect = ds.Aspect;
            if (aspect * w < h) w = h / aspect;
            h = aspect * w;
            cx = (x1 + x2) / 2;
            cy = (y1 + y2) / 2;
        }
    } else if (pressed == button::Right) {
        w *= 2;
        h *= 2;
    } else {
        return;
    }
    const float oldX = v.CentreX, oldY = v.CentreY;
    SetBoxHeld(ds, w, h, Round(oldX + cx), Round(oldY + cy));
    RecentreView(model, ds, v.CentreX - oldX, v.CentreY - oldY);
}

void PowerZoomPass(DisplayState& ds, int pressed, float percent, float& curX, float& curY) {
    ViewState& v = ds.View;
    const double f =
        pressed == button::Left ? 1 - static_cast<double>(percent) / 100 : 1 + static_cast<double>(percent) / 100;
    if (!(f > 0) || !std::isfinite(f)) return;
    const double w = v.ScaleWidth * f, h = v.ScaleHeight * f;
    if (w < kSmallestBox || w > kLargestBox) return;
    const float cx = Round((1 - f) * curX + v.CentreX);
    const float cy = Round((1 - f) * curY + v.CentreY);
    display::SetViewBox(ds, static_cast<float>(w), static_cast<float>(h), cx, cy);
    curX = static_cast<float>(curX * f);
    curY = static_cast<float>(curY * f);
}

void PanView(const Model& model, DisplayState& ds, float startCentreX, float startCentreY, float pressX, float pressY,
             float x, float y) {
    ViewState& v = ds.View;
    v.CentreX = startCentreX + static_cast<float>(model.SgnX) * (pressX - x);
    v.CentreY = startCentreY + static_cast<float>(model.SgnY) * (pressY - y);
}

MouseRotation BeginMouseRotation(Model& model, DisplayState& ds, float x, float y) {
    ViewState& v = ds.View;
    if (v.Is3D == 0) PlanTo3D(model, ds);
    MouseRotation r;
    r.Fx = (x - v.ScaleLeft) / v.ScaleWidth;
    r.Fy = (y - v.ScaleTop) / v.ScaleHeight;
    r.StartTilt = v.Tilt;
    r.StartSpin = v.Spin;
    if (v.RotCentreSet <= 1) {
        display::CacheRotation(ds);
        display::RotationCentreOfWhatIsSeen(model, ds);
        v.RotCentreSet = 1;
    }
    return r;
}

void RotateByMouse(Model& model, DisplayState& ds, const MouseRotation& rotation, float x, float y) {
    ViewState& v = ds.View;
    const float fx = (x - v.ScaleLeft) / v.ScaleWidth;
    const float fy = (y - v.ScaleTop) / v.ScaleHeight;
    if (!std::isfinite(fx) || !std::isfinite(fy)) return;
    v.Spin = rotation.StartSpin + (rotation.Fx - fx) * 3.14159f * static_cast<float>(model.SgnY);
    v.Tilt = rotation.StartTilt + (rotation.Fy - fy) * 3.14159f / 2;
    display::ApplyRotation(model, ds);
}

void BeginRotationButton(Model& model, DisplayState& ds) {
    ViewState& v = ds.View;
    if (v.Is3D == 0) PlanTo3D(model, ds);
    if (v.RotCentreSet == 1) {
        display::CacheRotation(ds);
        display::RotationCentreOfWhatIsSeen(model, ds);
        v.RotCentreSet = 999;
    }
}

bool RotationButtonTick(Model& model, DisplayState& ds, float x, float y) {
    ds.SpinStep = 0;
    ds.TiltStep = 0;
    if (x > RotationFaceMax || x < RotationFaceMin || y > RotationFaceMax || y < RotationFaceMin) return false;
    const double degree = display::Pi / 180;
    ds.SpinStep = static_cast<float>((RotationRestX - x) / 15 * degree * model.Set.SpinSpeed / 2);
    ds.TiltStep = static_cast<float>((RotationRestY - y) / 15 * degree * model.Set.TiltSpeed / 2);
    if (ds.SpinStep == 0 && ds.TiltStep == 0) return false;
    display::ApplyRotation(model, ds);
    ds.SpinStep = 0;
    ds.TiltStep = 0;
    return true;
}

void MakePlanView(Model& model, DisplayState& ds) {
    ViewState& v = ds.View;
    v.Is3D = 0;
    display::BuildDisplayList(model, ds);
    v.CentreX = static_cast<float>(v.RotCentre[0]);
    v.CentreY = static_cast<float>(v.RotCentre[1]);
}

void Make3DView(Model& model, DisplayState& ds) {
    ViewState& v = ds.View;
    v.Is3D = 1;
    display::BuildDisplayList(model, ds);
    v.RotCentreSet = 1;
    display::CacheRotation(ds);
    display::RotationCentreOfWhatIsSeen(model, ds);
    display::ApplyRotation(model, ds);
}

void TogglePlan3D(Model& model, DisplayState& ds) {
    ViewState& v = ds.View;
    if (v.Is3D == 0) {
        v.Is3D = 1;
        ds.PlanCopyValid = false;
        display::ApplyRotation(model, ds);
        display::RotationCentreOfWhatIsSeen(model, ds);
        display::ApplyRotation(model, ds);
    } else {
        v.Is3D = 0;
        ds.PlanCopyValid = false;
        v.CentreX = static_cast<float>(v.RotCentre[0]);
        v.CentreY = static_cast<float>(v.RotCentre[1]);
    }
}

void CentreOnPoint(Model& model, DisplayState& ds, const display::WorldPoint& point) {
    ViewState& v = ds.View;
    v.RotCentre = {point.X, point.Y, point.Z};
    if (v.Is3D == 0) {
        display::SetViewBox(ds, v.ScaleWidth, v.ScaleHeight, static_cast<float>(point.X), static_cast<float>(point.Y));
    } else {
        display::ApplyRotation(model, ds);
    }
}

} // namespace karvane::edit
