// The coordinate entry.
#include "forms/coords_form.h"

#include <cmath>

#include "files/number_text.h"
#include "model/level_list.h"
#include "model/units.h"

namespace karvane::forms {

namespace {

std::string LengthText(const Model& model, double metres) {
    return files::PlainSingle(ToDisplay(model, metres, uc::Length), '.');
}

// Limits of an absolute entry, in metres.
constexpr double kPlanLimit = 10000000;
constexpr double kLevelLimit = 9999999;

} // namespace

CoordsFields OpenCoordsForm(const Model& model, const edit::CoordsRequest& request) {
    CoordsFields f;
    f.AbsoluteEnabled = request.Absolute;
    f.CopyVisible = request.OfferCopy;
    if (request.Absolute) {
        f.TxtX = LengthText(model, request.X);
        f.TxtY = LengthText(model, request.Y);
        f.TxtZ = LengthText(model, request.Z);
    }
    for (int row = 1; row <= LevelRows && static_cast<std::size_t>(row) < model.Levels.size(); ++row) {
        const LevelRecord& level = model.Levels[static_cast<std::size_t>(row)];
        if (IsFreeLevel(level)) continue;
        f.LevelNames.push_back(level.RLName);
        f.LevelRows.push_back(row);
    }
    return f;
}

void ChooseCoordsLevel(const Model& model, CoordsFields& fields, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= fields.LevelRows.size()) return;
    const LevelRecord& level =
        model.Levels[static_cast<std::size_t>(fields.LevelRows[static_cast<std::size_t>(index)])];
    fields.CmbRL = index;
    fields.TxtZ = LengthText(model, files::ToInt32((static_cast<double>(level.RLMin) + level.RLMax) / 2));
}

bool CoordsKeyAllowed(char key) {
    return (key >= '0' && key <= '9') || key == '-' || key == '+' || key == '.' || key == ',' || key == 8 || key == 127;
}

std::optional<edit::CoordsResult> AcceptCoordsForm(const Model& model, const CoordsFields& f, ui::UserInterface& ui) {
    auto metres = [&model](const std::string& text) { return FromDisplay(model, text, uc::Length); };
    const double dx = metres(f.TxtdX), dy = metres(f.TxtdY), dz = metres(f.TxtdZ);
    double x = dx, y = dy, z = dz;
    if (f.AbsoluteEnabled) {
        x += metres(f.TxtX);
        y += metres(f.TxtY);
        z += metres(f.TxtZ);
        if (std::fabs(x) > kPlanLimit || std::fabs(y) > kPlanLimit || std::fabs(z) > kLevelLimit) {
            ui.Message("Coordinates exceed allowed values", ProgramName, ui::Icon::Exclamation);
            return std::nullopt;
        }
    }
    // Every value must be a whole number of metres that a coordinate can hold.
    constexpr double top = 2147483647.0;
    for (double v : {x, y, z, dx, dy, dz}) {
        if (!std::isfinite(v) || std::fabs(v) > top) {
            ui.Message("Error in coordinate entry - please check", ProgramName, ui::Icon::Exclamation);
            return std::nullopt;
        }
    }
    edit::CoordsResult r;
    r.X = files::ToInt32(x);
    r.Y = files::ToInt32(y);
    r.Z = files::ToInt32(z);
    r.dX = files::ToInt32(dx);
    r.dY = files::ToInt32(dy);
    r.dZ = files::ToInt32(dz);
    r.Copy = f.CopyVisible && f.ChkCopy;
    if (f.CmbRL >= 0 && static_cast<std::size_t>(f.CmbRL) < f.LevelRows.size()) {
        const LevelRecord& level =
            model.Levels[static_cast<std::size_t>(f.LevelRows[static_cast<std::size_t>(f.CmbRL)])];
        r.Level = files::ToInt32((static_cast<double>(level.RLMin) + level.RLMax) / 2);
    }
    return r;
}

std::optional<edit::CoordsResult> EnterCoords(const Model& model, const edit::CoordsRequest& request,
                                              const CoordsEntry& entry, ui::UserInterface& ui) {
    CoordsFields f = OpenCoordsForm(model, request);
    if (f.AbsoluteEnabled) {
        f.TxtX = entry.X;
        f.TxtY = entry.Y;
        f.TxtZ = entry.Z;
    }
    if (!entry.dX.empty()) f.TxtdX = entry.dX;
    if (!entry.dY.empty()) f.TxtdY = entry.dY;
    if (!entry.dZ.empty()) f.TxtdZ = entry.dZ;
    f.ChkCopy = f.CopyVisible && entry.Copy;
    return AcceptCoordsForm(model, f, ui);
}

} // namespace karvane::forms
