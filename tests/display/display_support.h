// Small networks for the display tests: a model with the built-in settings and units, two
// levels, and airways added by their end points.
#pragma once

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>

#include "display/display_list.h"
#include "display/recording_surface.h"
#include "display/view_state.h"
#include "display/view_transform.h"
#include "model/builtin_settings.h"
#include "model/model.h"
#include "model/node_keys.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace karvane::display::testing {

struct Scene {
    std::unique_ptr<Model> ModelPtr = std::make_unique<Model>();
    std::unique_ptr<DisplayState> DsPtr = std::make_unique<DisplayState>();
    ui::ScriptedUserInterface Ui;
    Model& M = *ModelPtr;
    DisplayState& Ds = *DsPtr;

    Scene() {
        SetBuiltInUnits(M.Units);
        SetBuiltInSettings(M);
        M.Levels[1] = {"SURFACE", 1000, 1000};
        M.Levels[2] = {"U/Ground", 500, 480};
        M.Levels[3] = {"Deep", 300, 280};
        ResetViewOptions(M, Ds);
        Ds.AreaWidth = 800;
        Ds.AreaHeight = 600;
        Ds.View.LevelMode = lm::All;
    }

    // Adds a rectangular 4 x 4 airway between two points and returns its row.
    std::int32_t Add(std::int32_t x1, std::int32_t y1, std::int32_t z1, std::int32_t x2, std::int32_t y2,
                     std::int32_t z2) {
        const std::int32_t row = ++M.AirwayCount;
        Airway& a = M.Airways[static_cast<std::size_t>(row)];
        a = Airway{};
        a.X1 = x1, a.Y1 = y1, a.Z1 = z1, a.X2 = x2, a.Y2 = y2, a.Z2 = z2;
        a.Width = a.Height = 4;
        a.BranchCode = bc::Rectangular;
        a.NoAirways = 1;
        a.PrimaryLayer = a.SecondLayer = 1;
        a.AirwayNo = row;
        const double dx = static_cast<double>(x2) - x1, dy = static_cast<double>(y2) - y1,
                     dz = static_cast<double>(z2) - z1;
        a.Length = static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
        a.EntryKey = EndKey(M, x1, y1, z1, false);
        a.ExitKey = EndKey(M, x2, y2, z2, false);
        return row;
    }

    Airway& Row(std::int32_t row) { return M.Airways[static_cast<std::size_t>(row)]; }

    // The display list rebuilt and the view reprojected.
    void Refresh() {
        BuildDisplayList(M, Ds);
        ApplyRotation(M, Ds);
    }
};

// A recorded drawing as text, one operation a line (kind, coordinates to the hundredth, colour,
// then what differs from a thin solid line: width, style, symbol, font and text), for golden files.
inline std::string DrawingText(const RecordingSurface& surface) {
    static const char* const kinds[] = {"clear",  "line", "lineto",  "rect",    "fill", "circle",
                                        "bitmap", "text", "refresh", "newpage", "end"};
    std::string out;
    char buf[160];
    const auto num = [&](float v) {
        std::snprintf(buf, sizeof buf, "%.2f", static_cast<double>(v));
        const std::string text = buf;
        return text == "-0.00" ? std::string("0.00") : text;
    };
    for (const RecordedOp& op : surface.Ops) {
        out += kinds[static_cast<int>(op.Kind)];
        for (float v : {op.X1, op.Y1, op.X2, op.Y2}) out += " " + num(v);
        std::snprintf(buf, sizeof buf, " #%06x", static_cast<unsigned>(op.OpColour));
        out += buf;
        if (op.Width != 1) out += " w" + std::to_string(op.Width);
        if (op.Style == LineStyle::Dotted) out += " dotted";
        if (op.Mode == DrawMode::Invert) out += " invert";
        if (op.Symbol >= 0) out += " symbol " + std::to_string(op.Symbol);
        if (op.Kind == OpKind::Text) {
            out += " size " + std::to_string(op.FontSize) + (op.Bold ? " bold" : "") + (op.Opaque ? " opaque" : "");
            out += " \"" + op.Text + "\"";
        }
        out += '\n';
    }
    return out;
}

} // namespace karvane::display::testing
