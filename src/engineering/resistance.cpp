// Airway resistance from dimensions and presets, and the orifice and shock loss arithmetic.
// Every stored quantity is single precision: intermediate products run in double and each
// store rounds to float, because the rounded values are part of the results users compare.
#include "engineering/resistance.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace karvane {

namespace {

bool ValidRow(const Model& model, std::int32_t row) {
    return row >= 1 && row <= MaxAirways && row < static_cast<std::int32_t>(model.Airways.size());
}

// A preset index that names a row of a preset table (0..49).
bool IsPresetIndex(std::int16_t index) { return index >= 0 && index < PresetRows; }

struct Section {
    float Area = 0;
    float Perimeter = 0;
};

// What RecalcAirway stores into an airway and works on, computed without writing: the pure
// part shared by RecalcAirway and FrictionResistance, so that both round alike.
struct Worked {
    Section Shape;          // from the shape bits, before the services reduction and the floor
    float Height = 0;       // a circular airway has no height: 0
    float WallFactor = 0;   // from the preset table where the airway names a preset
    float ShockFactor = 0;  // likewise, for the built-in shock rows
    float StoredLength = 0; // whole metres, or the fixed length as it stands
    float Length = 0;       // the unrounded geometric length (the fixed one if fixed)
};

// Area and perimeter from the shape bits, tested in a fixed order so that a later bit wins.
// The rectangle and area entry read the height as stored after the circle has cleared it.
Section AirwaySection(const Airway& a, float& height) {
    Section s;
    height = a.Height;
    if (a.Has(bc::Circular)) {
        const double d = a.Width;
        s.Area = static_cast<float>(d * d * ResistancePi / 4.0);
        s.Perimeter = static_cast<float>(d * ResistancePi);
        height = 0;
    }
    if (a.Has(bc::Rectangular)) {
        s.Area = static_cast<float>(static_cast<double>(height) * a.Width);
        s.Perimeter = static_cast<float>(2.0 * a.Width + 2.0 * height);
    }
    if (a.Has(bc::AreaEntry)) {
        s.Area = a.Width;
        s.Perimeter = height;
    }
    return s;
}

// Friction factor and shock length come from the presets. Shock presets beyond the five
// built-in rows are copied into the airway when chosen in the editor, so only indices below 6
// follow the table here; a later change of such a preset reaches the airway through the editor.
// The geometric length is worked on the coordinate differences (in 64 bits, so that no pair
// of stored coordinates can overflow), single precision. Unless the length is fixed, the
// stored Length is its whole metres, while the unrounded value goes on into the resistance.
Worked WorkAirway(const Model& model, const Airway& a) {
    Worked w;
    w.Shape = AirwaySection(a, w.Height);
    w.WallFactor = IsPresetIndex(a.WallType) ? model.Preset.WallPreset[a.WallType] : a.WallFactor;
    w.ShockFactor = a.ShockType >= 0 && a.ShockType < 6 ? model.Preset.ShockPreset[a.ShockType] : a.ShockFactor;
    const double dx = static_cast<double>(static_cast<std::int64_t>(a.X2) - a.X1);
    const double dy = static_cast<double>(static_cast<std::int64_t>(a.Y2) - a.Y1);
    const double dz = static_cast<double>(static_cast<std::int64_t>(a.Z2) - a.Z1);
    w.Length = static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
    if (a.Has(bc::FixedLength)) {
        w.Length = a.Length;
        w.StoredLength = a.Length;
    } else {
        w.StoredLength = std::floor(w.Length);
    }
    return w;
}

// The Atkinson resistance R = k P L rho / (A^3 x 1.2): the friction factor k is quoted at the
// standard density and scaled to the network's density.
double Atkinson(float k, float perimeter, float length, float density, float area) {
    const double a = area;
    return static_cast<double>(k) * perimeter * length * density / (a * a * a * StandardDensity);
}

} // namespace

void RecalcAirway(Model& model, std::int32_t row) {
    if (!ValidRow(model, row)) return;
    Airway& a = model.Airways[row];

    if (a.NoAirways == 0) a.NoAirways = 1;

    float presetRes = 0;
    if (a.ResType > 0 && a.ResType <= CustomPreset) presetRes = model.Preset.ResPreset[a.ResType];

    const Worked w = WorkAirway(model, a);
    a.Height = w.Height;
    a.WallFactor = w.WallFactor;
    a.ShockFactor = w.ShockFactor;
    a.Length = w.StoredLength;
    Section s = w.Shape;
    if (a.Has(bc::Services)) s.Area = static_cast<float>(s.Area - ServicesArea);
    if (s.Area <= 0) s.Area = LeastArea;

    if (a.ResType == CustomPreset) return; // the user's own resistance stands as entered

    const float length = static_cast<float>(static_cast<double>(w.Length) + a.ShockFactor);

    a.Resistance = static_cast<float>(Atkinson(a.WallFactor, s.Perimeter, length, model.Set.Density, s.Area));
    if (a.Resistance == 0.0f) a.Resistance = LeastResistance;

    if (model.Set.PresetResOverride == 1) {
        a.Resistance = presetRes;
    } else {
        a.Resistance = static_cast<float>(static_cast<double>(a.Resistance) + presetRes);
    }

    if (a.NoAirways > 1) {
        const double n = a.NoAirways;
        a.Resistance = static_cast<float>(a.Resistance / (n * n));
    }
}

void RecalcAllAirways(Model& model) {
    const std::int32_t last = std::min<std::int32_t>(model.AirwayCount, MaxAirways);
    for (std::int32_t row = 1; row <= last; ++row) RecalcAirway(model, row);
}

double FrictionResistance(const Model& model, std::int32_t row) {
    if (!ValidRow(model, row)) return 0;
    const Worked w = WorkAirway(model, model.Airways[row]);
    Section s = w.Shape;
    if (s.Area <= 0) s.Area = LeastArea;
    const float length = static_cast<float>(static_cast<double>(w.Length) + w.ShockFactor);
    return Atkinson(w.WallFactor, s.Perimeter, length, model.Set.Density, s.Area);
}

float OrificeAirwayArea(const Airway& airway) {
    double area = static_cast<double>(airway.Height) * airway.Width;
    if (airway.Has(bc::Circular)) {
        const double d = airway.Width;
        area = d * d * ResistancePi / 4.0;
    }
    if (airway.Has(bc::AreaEntry)) area = airway.Width;
    return static_cast<float>(area);
}

double OrificeResistance(double orificeArea, double airwayArea) {
    // 0.65 is the contraction of the jet through a sharp-edged opening; 0.6 turns the
    // velocity pressure of the jet into a resistance at the usual air density.
    const double d = 1.0 / (orificeArea * 0.65) - 1.0 / airwayArea;
    return d * d * 0.6;
}

double ShownShockLength(std::int16_t metres, float lengthFactor, int decimals) {
    const float shown = static_cast<float>(static_cast<double>(metres) * lengthFactor);
    if (decimals < 0) decimals = 0;
    if (decimals > 9) decimals = 9;
    // Round through the decimal text, as the value's text form does, then read it back.
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, static_cast<double>(shown));
    return std::strtod(text, nullptr);
}

float ShockTableTotal(const std::array<ShockLossEntry, ShockLossRowCount>& rows,
                      const std::function<double(std::int16_t metres)>& shownLength) {
    float total = 0;
    for (int i = 0; i < ShockLossRowCount; ++i) {
        if (!rows[i].Ticked) continue;
        const double length = shownLength ? shownLength(ShockLossTable[i].Metres) : ShockLossTable[i].Metres;
        total = static_cast<float>(total + rows[i].Count * length);
    }
    return total;
}

} // namespace karvane
