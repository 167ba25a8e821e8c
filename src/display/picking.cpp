// Node, airway, text and fence picks over the drawn list.
#include "display/picking.h"

#include <algorithm>
#include <cmath>

#include "files/number_text.h"

namespace karvane::display {

namespace {

constexpr float kNoPick = 9999999;

const Airway& Row(const Model& model, std::int32_t row) { return model.Airways[static_cast<std::size_t>(row)]; }

bool ValidRow(const Model& model, std::int32_t row) { return row > 0 && row <= model.AirwayCount; }

} // namespace

float PickTolerance(const Model& model, const DisplayState& ds) {
    const int divisions = model.Set.PickDivisions > 0 ? model.Set.PickDivisions : 25;
    return ds.View.ScaleWidth / static_cast<float>(divisions);
}

std::optional<NodePick> FindNode(const Model& model, DisplayState& ds, float curX, float curY) {
    const float t = PickTolerance(model, ds);
    const float x = curX * model.SgnX, y = curY * model.SgnY;
    float best = kNoPick;
    std::int32_t pick = 0;
    for (const DrawnAirway& d : ds.Drawn) {
        if (d.Airway == 0) break;
        const float dx1 = std::fabs(x - d.X1), dy1 = std::fabs(y - d.Y1);
        if (dx1 < t && dy1 < t && dx1 + dy1 < best) {
            best = dx1 + dy1;
            pick = d.Airway;
        }
        const float dx2 = std::fabs(x - d.X2), dy2 = std::fabs(y - d.Y2);
        if (dx2 < t && dy2 < t && dx2 + dy2 < best) {
            best = dx2 + dy2;
            pick = -d.Airway;
        }
    }
    if (pick == 0 || !ValidRow(model, std::abs(pick))) return std::nullopt;
    const Airway& a = Row(model, std::abs(pick));
    NodePick n;
    n.Airway = pick;
    if (pick > 0) {
        n.Point = {a.X1, a.Y1, a.Z1};
        n.Name = TrimText(a.EntryNode);
    } else {
        n.Point = {a.X2, a.Y2, a.Z2};
        n.Name = TrimText(a.ExitNode);
    }
    ds.View.CurRL = n.Point.Z;
    return n;
}

AirwayPick FindAirway(const Model& model, DisplayState& ds, float curX, float curY) {
    const float t = PickTolerance(model, ds);
    const double sx = model.SgnX, sy = model.SgnY;
    const double x = curX, y = curY;
    double best = kNoPick;
    const DrawnAirway* pick = nullptr;
    double px1 = 0, py1 = 0, px2 = 0, py2 = 0;
    for (const DrawnAirway& d : ds.Drawn) {
        // The drawn ends in cursor coordinates.
        const double x1 = d.X1 * sx, y1 = d.Y1 * sy, x2 = d.X2 * sx, y2 = d.Y2 * sy;
        if (x1 == x2 && y1 == y2) continue;
        const bool vertical = x1 == x2;
        const double s = vertical ? 1e8 : (y2 - y1) / (x2 - x1);
        const double marginY = std::fabs(s) < 0.2 ? t : 0;
        const double marginX = std::fabs(s) > 5 ? t : 0;
        if (x < std::min(x1, x2) - marginX || x > std::max(x1, x2) + marginX) continue;
        if (y < std::min(y1, y2) - marginY || y > std::max(y1, y2) + marginY) continue;
        const double dist =
            vertical ? std::fabs(x - x1) : std::fabs((y - s * x) - (y1 - s * x1)) / std::sqrt(s * s + 1);
        if (dist < best) {
            best = dist;
            pick = &d;
            px1 = x1;
            py1 = y1;
            px2 = x2;
            py2 = y2;
        }
    }
    AirwayPick out;
    if (pick == nullptr || !(t >= best) || !ValidRow(model, pick->Airway)) {
        out.Point = UnprojectPoint(model, ds, curX, curY, ds.View.CurRL);
        return out;
    }
    const double d1 = std::hypot(x - px1, y - py1), d2 = std::hypot(x - px2, y - py2);
    const double fraction = d1 + d2 > 0 ? d1 / (d1 + d2) : 0;
    ds.PickFraction = static_cast<float>(fraction);
    const Airway& a = Row(model, pick->Airway);
    const double f = ds.PickFraction;
    out.Airway = pick->Airway;
    out.Point.X = files::ToInt32(a.X1 + (static_cast<double>(a.X2) - a.X1) * f);
    out.Point.Y = files::ToInt32(a.Y1 + (static_cast<double>(a.Y2) - a.Y1) * f);
    out.Point.Z = files::ToInt32(a.Z1 + (static_cast<double>(a.Z2) - a.Z1) * f);
    ds.View.CurRL = out.Point.Z;
    return out;
}

std::optional<TextPick> FindFloatingText(const Model& model, const DisplayState& ds, float curX, float curY) {
    const float t = PickTolerance(model, ds);
    float best = kNoPick;
    std::optional<TextPick> pick;
    for (std::int32_t slot : ds.VisibleText) {
        if (slot <= 0 || static_cast<std::size_t>(slot) >= model.FloatingTexts.size()) continue;
        const FloatingText& text = model.FloatingTexts[static_cast<std::size_t>(slot)];
        const ViewPoint p = ProjectPoint(ds, text.TextX, text.TextY, text.TextZ);
        const float dx = std::fabs(curX - p.X), dy = std::fabs(curY - p.Y);
        if (dx < t && dy < t && dx + dy < best) {
            best = dx + dy;
            pick = TextPick{{text.TextX, text.TextY, text.TextZ}, slot};
        }
    }
    return pick;
}

FenceRect MakeFence(const Model& model, float x1, float y1, float x2, float y2) {
    const float sx = model.SgnX, sy = model.SgnY;
    x1 *= sx;
    x2 *= sx;
    y1 *= sy;
    y2 *= sy;
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

bool InFence(const FenceRect& f, const DrawnAirway& d) {
    auto in = [&f](float x, float y) { return x >= f.Left && x <= f.Right && y >= f.Top && y <= f.Bottom; };
    return in(d.X1, d.Y1) || in(d.X2, d.Y2) || in((d.X1 + d.X2) / 2, (d.Y1 + d.Y2) / 2);
}

bool FenceHit(const DisplayState& ds, const FenceRect& fence) {
    for (const DrawnAirway& d : ds.Drawn) {
        if (InFence(fence, d)) return true;
    }
    return false;
}

std::vector<std::int32_t> RowsInFence(const Model& model, const DisplayState& ds, const FenceRect& fence) {
    std::vector<std::int32_t> rows;
    std::vector<bool> taken(static_cast<std::size_t>(std::max(model.AirwayCount, 0)) + 1, false);
    for (const DrawnAirway& d : ds.Drawn) {
        if (!ValidRow(model, d.Airway) || taken[static_cast<std::size_t>(d.Airway)] || !InFence(fence, d)) continue;
        taken[static_cast<std::size_t>(d.Airway)] = true;
        rows.push_back(d.Airway);
    }
    return rows;
}

} // namespace karvane::display
