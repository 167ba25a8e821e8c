// The level, layer and flow filter of a view.
#include "display/display_list.h"

#include <algorithm>

namespace karvane::display {

namespace {

bool LayerIsOn(const std::vector<LayerRecord>& list, int k) {
    return static_cast<std::size_t>(k) < list.size() && list[static_cast<std::size_t>(k)].LayerOn != 0;
}

struct Bounds {
    std::int32_t Min = 0, Max = 0;
};

void AddAirway(const Model& model, DisplayState& ds, std::int32_t row, const Airway& a) {
    if (ds.FlowLimitMode == flow::Invisible && OutsideFlowLimits(model, a)) return;
    ds.DisplayList.push_back(row);
}

bool WithinLevel(const DisplayState& ds, const Airway& a, const Bounds& b) {
    const std::int32_t lo = std::min(a.Z1, a.Z2), hi = std::max(a.Z1, a.Z2);
    if ((ds.View.DisplayOptions & opt::ShowOffLevelRaises) == 0) {
        return (a.Z1 >= b.Min && a.Z1 <= b.Max) || (a.Z2 >= b.Min && a.Z2 <= b.Max);
    }
    // The level's band and the airway's span overlap.
    return (b.Min >= lo && b.Min <= hi) || (b.Max >= lo && b.Max <= hi) || (b.Min <= lo && b.Max >= hi) ||
           (lo <= b.Min && hi >= b.Max);
}

void Scan(Model& model, DisplayState& ds, const LayerMasks& masks) {
    const ViewState& v = ds.View;
    const Bounds b{v.CurrentRLMin, v.CurrentRLMax};
    const std::size_t texts = model.FloatingTexts.size();
    for (std::size_t slot = 1; slot < texts; ++slot) {
        const FloatingText& t = model.FloatingTexts[slot];
        if (!t.TextOn) continue;
        if (v.LevelMode >= lm::All || (t.TextZ >= b.Min && t.TextZ <= b.Max)) {
            ds.VisibleText.push_back(static_cast<std::int32_t>(slot));
        }
    }
    const bool invisibleOff = (v.DimOptions & dim::LinesMask) == dim::Invisible;
    const std::int32_t count =
        std::min<std::int32_t>(model.AirwayCount, static_cast<std::int32_t>(model.Airways.size()) - 1);
    for (std::int32_t row = 1; row <= count; ++row) {
        Airway& a = model.Airways[static_cast<std::size_t>(row)];
        if (a.EntryKey == 0) continue;
        if (a.PrimaryLayer == 0) a.PrimaryLayer = 1;
        if (a.SecondLayer == 0) a.SecondLayer = 1;
        if (a.SecondLayer > SecondLayerCount) a.SecondLayer = SecondLayerCount;
        a.BranchCode &= ~bc::InView;
        const int p = std::clamp<int>(a.PrimaryLayer, 1, PrimaryLayerCount);
        const int s = std::clamp<int>(a.SecondLayer, 1, SecondLayerCount);
        const bool primaryOn = (masks.Primary >> p) & 1;
        const bool secondOn = s <= 24 ? ((masks.Secondary1 >> s) & 1) : ((masks.Secondary2 >> (s - 24)) & 1);
        const bool on = primaryOn && secondOn;
        if (!on && invisibleOff) continue;
        if (v.LevelMode >= lm::All || WithinLevel(ds, a, b)) AddAirway(model, ds, row, a);
        if (on) a.BranchCode |= bc::InView;
    }
}

} // namespace

LayerMasks CurrentLayerMasks(const Model& model) {
    LayerMasks m;
    for (int k = 1; k <= PrimaryLayerCount; ++k) {
        if (LayerIsOn(model.PrimaryLayers, k)) m.Primary |= std::int64_t{1} << k;
    }
    for (int k = 1; k <= SecondLayerCount; ++k) {
        if (!LayerIsOn(model.SecondaryLayers, k)) continue;
        if (k <= 24) {
            m.Secondary1 |= std::int64_t{1} << k;
        } else {
            m.Secondary2 |= std::int64_t{1} << (k - 24);
        }
    }
    return m;
}

void SetLayersFromMasks(Model& model, const LayerMasks& masks) {
    for (int k = 1; k <= PrimaryLayerCount && static_cast<std::size_t>(k) < model.PrimaryLayers.size(); ++k) {
        const bool on = masks.Primary == 0 || ((masks.Primary >> k) & 1) != 0;
        model.PrimaryLayers[static_cast<std::size_t>(k)].LayerOn = on ? -1 : 0;
    }
    for (int k = 1; k <= SecondLayerCount && static_cast<std::size_t>(k) < model.SecondaryLayers.size(); ++k) {
        const bool on = k <= 24 ? ((masks.Secondary1 >> k) & 1) != 0 : ((masks.Secondary2 >> (k - 24)) & 1) != 0;
        model.SecondaryLayers[static_cast<std::size_t>(k)].LayerOn = on ? -1 : 0;
    }
}

bool OutsideFlowLimits(const Model& model, const Airway& airway) {
    return airway.Quantity < model.Set.FlowMin || airway.Quantity > model.Set.FlowMax;
}

void BuildDisplayList(Model& model, DisplayState& ds) {
    ds.PlanCopyValid = false;
    ds.DisplayList.clear();
    ds.VisibleText.clear();
    const LayerMasks masks = CurrentLayerMasks(model);
    ViewState& v = ds.View;
    if (v.LevelMode == lm::Multiple) {
        for (std::int16_t level : v.SelectedLevels) {
            if (level == 0) break;
            if (level < 1 || static_cast<std::size_t>(level) >= model.Levels.size()) continue;
            const LevelRecord& rec = model.Levels[static_cast<std::size_t>(level)];
            v.CurrentRLMax = rec.RLMax;
            v.CurrentRLMin = rec.RLMin;
            Scan(model, ds, masks);
        }
    } else {
        Scan(model, ds, masks);
    }
}

} // namespace karvane::display
