// Projection, unprojection, rotation and fit of a view. All projections are parallel: the
// network turns about the rotation centre and is seen straight on.
#include "display/view_transform.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "display/drawn_list.h"
#include "display/view_title.h"
#include "files/number_text.h"

namespace karvane::display {

namespace {

constexpr float kTwoPi = static_cast<float>(2 * Pi);

// The integer part, towards zero.
long long IntPart(double v) {
    if (!std::isfinite(v)) return 0;
    return static_cast<long long>(std::trunc(v));
}

float ToF(std::int32_t v) { return static_cast<float>(v); }

// Below this cosine of the tilt a view counts as a section for unprojection: the plane
// formula divides by it and would throw the point far off.
constexpr float kNearVertical = 0.01f;

} // namespace

void SetViewBox(DisplayState& ds, float width, float height, float centreX, float centreY) {
    ViewState& v = ds.View;
    v.ScaleWidth = width;
    v.ScaleHeight = height;
    v.ScaleLeft = -width / 2;
    v.ScaleTop = -height / 2;
    v.CentreX = centreX;
    v.CentreY = centreY;
}

int ViewKind(const ViewState& view) {
    if (view.Is3D == 0) return 0;
    const long long t = IntPart(std::fabs(view.Tilt) * 1000.0f);
    if (t == IntPart(Pi / 2 * 1000) || t == IntPart(3 * Pi / 2 * 1000)) return 2;
    return 1;
}

void CacheRotation(DisplayState& ds) {
    ds.CosSpin = std::cos(ds.View.Spin);
    ds.SinSpin = std::sin(ds.View.Spin);
    ds.CosTilt = std::cos(ds.View.Tilt);
    ds.SinTilt = std::sin(ds.View.Tilt);
}

namespace {

ViewPoint Rotate(const DisplayState& ds, std::int32_t x, std::int32_t y, std::int32_t z) {
    const float X = ToF(x), Y = ToF(y), Z = ToF(z);
    ViewPoint p;
    p.X = ds.CosSpin * X - ds.SinSpin * Y;
    p.Y = (ds.CosSpin * Y + ds.SinSpin * X) * ds.CosTilt - ds.SinTilt * Z;
    return p;
}

} // namespace

void ProjectAirway(const Model& model, DisplayState& ds, std::int32_t row) {
    if (row < 0 || static_cast<std::size_t>(row) >= ds.ViewFrom.size()) return;
    const auto r = static_cast<std::size_t>(row);
    if (row == 0) {
        const auto& c = ds.View.RotCentre;
        if (ds.View.Is3D == 0) {
            ds.ViewFrom[0] = {ToF(c[0]), ToF(c[1])};
        } else {
            ds.ViewFrom[0] = Rotate(ds, c[0], c[1], c[2]);
        }
        return;
    }
    if (static_cast<std::size_t>(row) >= model.Airways.size()) return;
    const Airway& a = model.Airways[r];
    if (ds.View.Is3D == 0) {
        ds.ViewFrom[r] = {ToF(a.X1), ToF(a.Y1)};
        ds.ViewTo[r] = {ToF(a.X2), ToF(a.Y2)};
    } else {
        ds.ViewFrom[r] = Rotate(ds, a.X1, a.Y1, a.Z1);
        ds.ViewTo[r] = Rotate(ds, a.X2, a.Y2, a.Z2);
    }
}

void ProjectDisplayList(const Model& model, DisplayState& ds) {
    for (std::int32_t row : ds.DisplayList) {
        if (row != 0) ProjectAirway(model, ds, row);
    }
}

void MakePlanCopies(const Model& model, DisplayState& ds) {
    if (ds.PlanCopyValid) return;
    const std::int32_t count =
        std::min<std::int32_t>(model.AirwayCount, static_cast<std::int32_t>(ds.ViewFrom.size()) - 1);
    for (std::int32_t row = 1; row <= count; ++row) {
        const Airway& a = model.Airways[static_cast<std::size_t>(row)];
        ds.ViewFrom[static_cast<std::size_t>(row)] = {ToF(a.X1), ToF(a.Y1)};
        ds.ViewTo[static_cast<std::size_t>(row)] = {ToF(a.X2), ToF(a.Y2)};
    }
    ds.PlanCopyValid = true;
}

ViewPoint ProjectPoint(const DisplayState& ds, std::int32_t x, std::int32_t y, std::int32_t z) {
    ViewPoint p;
    if (ds.View.Is3D == 0) {
        p = {ToF(x), ToF(y)};
    } else {
        p = Rotate(ds, x, y, z);
    }
    p.X -= ds.View.CentreX;
    p.Y -= ds.View.CentreY;
    return p;
}

void SectionMove(const DisplayState& ds, float ax, float ay, float bx, float by, double& x, double& y, double& z) {
    const double st = std::sin(static_cast<double>(ds.View.Tilt));
    if (st != 0) z += (static_cast<double>(ay) - by) / st;
    y -= (static_cast<double>(bx) - ax) * std::sin(static_cast<double>(ds.View.Spin));
    x += (static_cast<double>(bx) - ax) * std::cos(static_cast<double>(ds.View.Spin));
}

WorldPoint UnprojectPoint(const Model& model, const DisplayState& ds, float x, float y, std::int32_t level) {
    const ViewState& v = ds.View;
    WorldPoint w;
    if (v.Is3D == 0) {
        w.X = files::ToInt32(static_cast<double>(x) + v.CentreX);
        w.Y = files::ToInt32(static_cast<double>(y) + v.CentreY);
        w.Z = level;
        return w;
    }
    const GestureState& g = ds.Gesture;
    const bool shiftDrag = g.ShiftDown && !g.PowerZoomActive;
    const bool section = ViewKind(v) == 2 || std::fabs(ds.CosTilt) < kNearVertical;
    if (!section && !shiftDrag) {
        const double a = static_cast<double>(x) + v.CentreX;
        const double b = static_cast<double>(y) + v.CentreY;
        double c = ds.CosSpin;
        if (std::fabs(c) < 1e-6) c = std::copysign(1e-6, c);
        const double s = ds.SinSpin;
        const double bp = (b + static_cast<double>(ds.SinTilt) * level) / ds.CosTilt;
        const double wy = (bp - a * s / c) / (s * s / c + c);
        const double wx = (wy * s + a) / c;
        w.X = files::ToInt32(wx);
        w.Y = files::ToInt32(wy);
        w.Z = level;
        return w;
    }
    double wx, wy, wz;
    if (g.ButtonHeld) {
        wx = g.PressPoint[0];
        wy = g.PressPoint[1];
        wz = g.PressPoint[2];
        SectionMove(ds, g.PressX, g.PressY, x, y, wx, wy, wz);
    } else {
        wx = v.RotCentre[0];
        wy = v.RotCentre[1];
        wz = -static_cast<double>(v.CentreY) * model.SgnY;
        SectionMove(ds, 0, 0, x, y, wx, wy, wz);
    }
    w.X = files::ToInt32(wx);
    w.Y = files::ToInt32(wy);
    w.Z = files::ToInt32(wz);
    return w;
}

void ApplyRotation(const Model& model, DisplayState& ds) {
    ViewState& v = ds.View;
    if (!ds.WindowCurrent || v.Is3D == 0) return;
    if (!ds.KeepCentre && v.RotCentreSet == 0) {
        RotationCentreOfWhatIsSeen(model, ds);
        v.RotCentreSet = 1;
    }
    v.Tilt += static_cast<float>(model.SgnY) * ds.TiltStep;
    v.Spin += static_cast<float>(model.SgnX) * ds.SpinStep * static_cast<float>(model.SgnY);

    // A view never stands at exactly 90 or 270 degrees of spin: unprojection divides by its cosine.
    const long long spin = IntPart(v.Spin * 1000.0f);
    if (spin == IntPart(Pi / 2 * 1000) || spin == IntPart(3 * Pi / 2 * 1000)) {
        v.Spin += static_cast<float>(Pi / 1000);
    }
    if (model.Set.FullRotation == 0) {
        const float half = static_cast<float>(Pi / 2);
        if (model.SgnY == 1) {
            v.Tilt = std::clamp(v.Tilt, 0.0f, half);
        } else {
            v.Tilt = std::clamp(v.Tilt, -half, 0.0f);
        }
    }
    if (v.Tilt < -kTwoPi) v.Tilt += kTwoPi;
    if (v.Tilt > kTwoPi) v.Tilt -= kTwoPi;
    if (v.Spin < 0) v.Spin += kTwoPi;
    if (v.Spin >= kTwoPi) v.Spin -= kTwoPi;

    ds.Labels.LabelX = "RotX " + std::to_string(IntPart(v.Tilt / (2 * Pi) * 360));
    ds.Labels.LabelY = "RotY " + std::to_string(IntPart(v.Spin / (2 * Pi) * 360));

    CacheRotation(ds);
    ProjectAirway(model, ds, 0);
    if (!ds.KeepCentre) {
        v.CentreX = ds.ViewFrom[0].X;
        v.CentreY = ds.ViewFrom[0].Y;
    }
    ds.KeepCentre = false;
    ds.Labels.CentreX = files::PlainSingle(v.CentreX, ds.DecimalSeparator);
    ds.Labels.CentreY = files::PlainSingle(v.CentreY, ds.DecimalSeparator);
    ProjectDisplayList(model, ds);
}

namespace {

// Mean level of both ends of the airways in the display list; 0 with none.
std::int32_t MeanDisplayedLevel(const Model& model, const DisplayState& ds) {
    double sum = 0;
    std::size_t n = 0;
    for (std::int32_t row : ds.DisplayList) {
        if (row == 0) continue;
        const Airway& a = model.Airways[static_cast<std::size_t>(row)];
        sum += static_cast<double>(a.Z1) + a.Z2;
        ++n;
    }
    return files::ToInt32(sum / (n == 0 ? 1.0 : 2.0 * static_cast<double>(n)));
}

} // namespace

void RotationCentreKeepPlan(const Model& model, DisplayState& ds) {
    ds.View.RotCentre = {files::ToInt32(ds.View.CentreX), files::ToInt32(ds.View.CentreY),
                         MeanDisplayedLevel(model, ds)};
}

void RotationCentreMeanOfNetwork(const Model& model, DisplayState& ds) {
    double sx = 0, sy = 0, sz = 0;
    std::size_t n = 0;
    for (std::int32_t row : ds.DisplayList) {
        if (row == 0) continue;
        const Airway& a = model.Airways[static_cast<std::size_t>(row)];
        sx += static_cast<double>(a.X1) + a.X2;
        sy += static_cast<double>(a.Y1) + a.Y2;
        sz += static_cast<double>(a.Z1) + a.Z2;
        ++n;
    }
    const double d = n == 0 ? 1.0 : 2.0 * static_cast<double>(n);
    ds.View.RotCentre = {files::ToInt32(sx / d), files::ToInt32(sy / d), files::ToInt32(sz / d)};
}

void RotationCentreOfWhatIsSeen(const Model& model, DisplayState& ds) {
    const ViewState& v = ds.View;
    const float left = v.ScaleLeft, right = v.ScaleLeft + v.ScaleWidth;
    const float top = v.ScaleTop, bottom = v.ScaleTop + v.ScaleHeight;
    double sum = 0;
    std::size_t n = 0;
    for (const DrawnAirway& d : ds.Drawn) {
        const float mx = (d.X1 + d.X2) / 2, my = (d.Y1 + d.Y2) / 2;
        if (mx > left && mx < right && my > top && my < bottom) {
            const Airway& a = model.Airways[static_cast<std::size_t>(d.Airway)];
            sum += static_cast<double>(a.Z1) + a.Z2;
            ++n;
        }
    }
    const std::int32_t z =
        n == 0 ? MeanDisplayedLevel(model, ds) : files::ToInt32(sum / (2.0 * static_cast<double>(n)));
    const WorldPoint p = UnprojectPoint(model, ds, 0, 0, z);
    ds.View.RotCentre = {p.X, p.Y, z};
}

std::string SetScaleLimited(DisplayState& ds, float width, float height) {
    if (ds.Gesture.PowerZoomActive) return {};
    ds.LastNote.clear();
    if (!(width >= 20)) {
        width = 20;
        height = ds.Aspect * 20;
        ds.LastNote = "Minimum Scaling Reached";
    }
    if (width >= 1e7f) {
        width = 1e7f;
        height = ds.Aspect * 1e7f;
        ds.LastNote = "Maximum Scaling Reached";
    }
    SetViewBox(ds, width, height, ds.View.CentreX, ds.View.CentreY);
    return ds.LastNote;
}

std::string WheelZoom(DisplayState& ds, bool positive) {
    if (ds.Gesture.PowerZoomActive) return {};
    ViewState& v = ds.View;
    // Single precision cannot undo a step of 0.8 by dividing: the step back takes the box
    // the previous step started from.
    if (!ds.WheelSteps.empty()) {
        const WheelStep& last = ds.WheelSteps.back();
        if (last.ZoomIn != positive && last.WidthAfter == v.ScaleWidth && last.HeightAfter == v.ScaleHeight) {
            const WheelStep back = last;
            ds.WheelSteps.pop_back();
            return SetScaleLimited(ds, back.WidthBefore, back.HeightBefore);
        }
        if (last.WidthAfter != v.ScaleWidth || last.HeightAfter != v.ScaleHeight) ds.WheelSteps.clear();
    }
    WheelStep step;
    step.WidthBefore = v.ScaleWidth;
    step.HeightBefore = v.ScaleHeight;
    step.ZoomIn = positive;
    auto step08 = [positive](double size) { return static_cast<float>(positive ? size * 0.8 : size / 0.8); };
    const std::string note = SetScaleLimited(ds, step08(v.ScaleWidth), step08(v.ScaleHeight));
    step.WidthAfter = v.ScaleWidth;
    step.HeightAfter = v.ScaleHeight;
    constexpr std::size_t kMemory = 64;
    if (ds.WheelSteps.size() == kMemory) ds.WheelSteps.erase(ds.WheelSteps.begin());
    ds.WheelSteps.push_back(step);
    return note;
}

void RefreshAspect(DisplayState& ds) {
    if (ds.AreaWidth > 0 && ds.AreaHeight > 0) {
        ds.Aspect = static_cast<float>(ds.AreaHeight) / static_cast<float>(ds.AreaWidth);
    }
}

bool FitView(const Model& model, DisplayState& ds, ui::UserInterface& ui) {
    if (ds.MainMinimised || !ds.WindowCurrent) return false;
    ViewState& v = ds.View;
    v.RotCentreSet = 1;
    RefreshAspect(ds);
    const double aspect = ds.Aspect;
    if (v.Is3D != 0) {
        CacheRotation(ds);
        ProjectDisplayList(model, ds);
    }
    BuildDrawnList(model, ds, /*clip=*/false);

    double xmin, xmax, ymin, ymax;
    if (ds.Drawn.empty()) {
        if (model.AirwayCount > 0) return false;
        const double w = model.Set.ViewBoxWidth;
        xmin = std::fabs(w / 2 + model.Set.ViewBoxX);
        xmax = model.Set.ViewBoxX - w / 2;
        ymin = std::fabs(w / 2 + model.Set.ViewBoxY);
        ymax = model.Set.ViewBoxY - w / 2;
        if (xmin > xmax) std::swap(xmin, xmax);
        if (ymin > ymax) std::swap(ymin, ymax);
    } else {
        xmin = ymin = std::numeric_limits<double>::max();
        xmax = ymax = std::numeric_limits<double>::lowest();
        for (const DrawnAirway& d : ds.Drawn) {
            const auto r = static_cast<std::size_t>(d.Airway);
            for (const ViewPoint& p : {ds.ViewFrom[r], ds.ViewTo[r]}) {
                xmin = std::min<double>(xmin, p.X);
                xmax = std::max<double>(xmax, p.X);
                ymin = std::min<double>(ymin, p.Y);
                ymax = std::max<double>(ymax, p.Y);
            }
        }
    }
    double w = std::fabs(xmax - xmin);
    double h = std::fabs(ymax - ymin);
    if (w * aspect < h) w = h / aspect;
    // A fit never gives a box height below 5 metres.
    if (w != 0 && 250000 / (w * 1.2 * aspect) > 50000) w = 250000 / (aspect * 60000);
    if (w == 0 || h == 0) w = h = 100;
    const double cx = std::nearbyint((xmin + xmax) / 2);
    const double cy = std::nearbyint((ymin + ymax) / 2);
    const double bw = w * 1.2, bh = w * 1.2 * aspect;
    if (!std::isfinite(bw) || !std::isfinite(bh) || !std::isfinite(cx) || !std::isfinite(cy) || bw <= 0 || bh <= 0 ||
        bw > 3e38 || bh > 3e38) {
        ui.Message("Error FITTING Graphics on screen!", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    SetViewBox(ds, static_cast<float>(bw), static_cast<float>(bh), static_cast<float>(cx), static_cast<float>(cy));
    // The drawn list now follows the new box, for what is seen and for picking. The centre of
    // what is seen would be overwritten at once by the mean of the network, so only the mean is set.
    BuildDrawnList(model, ds);
    UpdateWindowTitle(model, ds);
    RotationCentreMeanOfNetwork(model, ds);
    return true;
}

} // namespace karvane::display
