// Built-in settings, presets and permanent views.
#include "model/builtin_settings.h"

#include <cstddef>

namespace karvane {
namespace {

struct PresetRow {
    const char* Name;
    float Value;
};

// Friction factors, kg/m3 at density 1.2.
constexpr PresetRow WallRows[] = {
    {"Smooth Pipes", 0.003f},         {"Flexible Ducting", 0.0035f},    {"Concrete Lined Airway", 0.004f},
    {"Raisebored Airway", 0.007f},    {"Smooth Blasted Airway", 0.01f}, {"Average Blasted Airway", 0.012f},
    {"Rough Blasted Airway", 0.018f}, {"Very Rough Blasted", 0.025f},   {"Timbered Airway", 0.04f},
    {"Concrete Shaft Sets", 0.05f},
};

// Resistances, Ns2/m8. Row 1 is the blocked airway and takes BlockedRes.
constexpr PresetRow ResRows[] = {
    {"Automatic", 0.0f},       {"Bulkhead", 0.0f},       {"Steel Door", 10.0f},    {"Wood Door", 5.0f},
    {"meshes Brattice", 3.0f}, {"Parachute Stop", 2.0f}, {"High Muck Pile", 1.5f}, {"Med Muck Pile", 1.0f},
    {"Low Muck Pile", 0.5f},   {"Air Curtain", 0.1f},
};

// Shock losses as equivalent length, m.
constexpr PresetRow ShockRows[] = {
    {"None", 0.0f}, {"Slight", 5.0f}, {"Low", 20.0f}, {"Moderate", 50.0f}, {"High", 100.0f}, {"Very High", 250.0f},
};

template <std::size_t N, std::size_t M>
void Fill(const PresetRow (&rows)[N], std::array<std::string, M>& names, std::array<float, M>& values) {
    for (std::size_t i = 0; i < N; ++i) {
        names[i] = rows[i].Name;
        values[i] = rows[i].Value;
    }
}

// One permanent view: only its angles and its 3D flag; ScaleWidth 0 marks a view of angles only.
void SetView(Model& model, int slot, bool is3D, double tilt, double spin) {
    SavedView view;
    view.ViewName = BuiltInViewNames[slot];
    view.ViewParam[1] = static_cast<float>(tilt);
    view.ViewParam[2] = static_cast<float>(spin);
    view.ViewParam[14] = is3D ? 1.0f : 0.0f;
    model.SavedViews[static_cast<std::size_t>(slot)] = view;
}

} // namespace

void SetBuiltInCapacities(Model& model) {
    model.Set.MaxFans = DefaultMaxFans;
    model.Set.BlockedRes = BlockedResValue;
}

void SetBuiltInSettings(Model& model) {
    model.Set = Settings{};

    Presets presets;
    Fill(WallRows, presets.WallNames, presets.WallPreset);
    Fill(ResRows, presets.ResNames, presets.ResPreset);
    Fill(ShockRows, presets.ShockNames, presets.ShockPreset);
    presets.ResPreset[1] = static_cast<float>(model.Set.BlockedRes);
    presets.ResNames[CustomPreset] = "Fix Res";
    model.Preset = presets;

    if (model.SavedViews.size() < static_cast<std::size_t>(SavedViewSlots)) model.SavedViews.resize(SavedViewSlots);
    const double sgnY = model.SgnY < 0 ? -1.0 : 1.0;
    SetView(model, 1, false, 0.0, 0.0);
    SetView(model, 2, true, 0.0, 0.0);
    SetView(model, 3, true, sgnY * ViewPi / 2.0, 0.0);
    SetView(model, 4, true, sgnY * ViewPi / 2.0, -ViewPi / 2.0);
    SetView(model, 5, true, sgnY * 1.0, -0.391);
}

} // namespace karvane
