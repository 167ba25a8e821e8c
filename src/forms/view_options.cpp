// The view options and layer dialogs.
#include "forms/view_options.h"

#include <algorithm>

#include "display/display_list.h"
#include "files/number_text.h"
#include "model/units.h"

namespace karvane::forms {

ViewerFields FillViewer(const Model& model, const display::DisplayState& ds, char decimalSep) {
    ViewerFields f;
    for (std::size_t k = 0; k < f.Show.size(); ++k) f.Show[k] = (ds.View.DisplayOptions & (1 << k)) != 0;
    f.DataFilter = std::clamp<int>(model.Set.DataFilter, 0, 3);
    f.FreshExhaust = ds.View.FreshExhaust != 0 ? 1 : 0;
    f.MinFlow = files::PlainSingle(ToDisplay(model, model.Set.FlowMin, uc::Flow), decimalSep);
    f.MaxFlow = files::PlainSingle(ToDisplay(model, model.Set.FlowMax, uc::Flow), decimalSep);
    f.FlowLimitMode = std::clamp<int>(ds.FlowLimitMode, 0, 2);
    return f;
}

void ShowAllDetails(ViewerFields& fields) {
    for (int k = 0; k < OffLevelRaisesOption; ++k) fields.Show[static_cast<std::size_t>(k)] = true;
}

void HideAllDetails(ViewerFields& fields) {
    for (int k = 0; k < OffLevelRaisesOption; ++k) fields.Show[static_cast<std::size_t>(k)] = false;
}

bool ApplyViewer(Model& model, display::DisplayState& ds, const ViewerFields& fields, ui::UserInterface& ui) {
    const double low = files::ParseNumber(fields.MinFlow);
    const double high = files::ParseNumber(fields.MaxFlow);
    if (!(low >= 0 && low <= 10000 && high >= 0 && high <= 10000)) {
        ui.Message("Limits of Allowable Significant Flows", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    std::int32_t options = 0;
    for (std::size_t k = 0; k < fields.Show.size(); ++k)
        if (fields.Show[k]) options |= 1 << k;
    ds.View.DisplayOptions = static_cast<std::int16_t>(options);
    model.Set.DataFilter = static_cast<std::int16_t>(std::clamp(fields.DataFilter, 0, 3));
    ds.View.FreshExhaust = static_cast<std::int16_t>(fields.FreshExhaust != 0 ? 1 : 0);
    model.Set.FlowMin = static_cast<float>(FromDisplay(model, fields.MinFlow, uc::Flow));
    model.Set.FlowMax = static_cast<float>(FromDisplay(model, fields.MaxFlow, uc::Flow));
    ds.FlowLimitMode = static_cast<std::int16_t>(std::clamp(fields.FlowLimitMode, 0, 2));
    display::BuildDisplayList(model, ds);
    return true;
}

LayerFields FillLayers(const Model& model, const display::DisplayState& ds) {
    LayerFields f;
    for (int k = 1; k <= PrimaryLayerCount && static_cast<std::size_t>(k) < model.PrimaryLayers.size(); ++k) {
        const LayerRecord& layer = model.PrimaryLayers[static_cast<std::size_t>(k)];
        f.PrimaryName[static_cast<std::size_t>(k)] = layer.Name;
        f.PrimaryOn[static_cast<std::size_t>(k)] = layer.LayerOn != 0;
    }
    for (int k = 1; k <= SecondLayerCount && static_cast<std::size_t>(k) < model.SecondaryLayers.size(); ++k) {
        const LayerRecord& layer = model.SecondaryLayers[static_cast<std::size_t>(k)];
        f.SecondaryName[static_cast<std::size_t>(k)] = layer.Name;
        f.SecondaryOn[static_cast<std::size_t>(k)] = layer.LayerOn != 0;
    }
    // A draw layer of 0 (never set) becomes 1.
    f.DrawPrimary = std::clamp<int>(model.DrawPrimaryLayer == 0 ? 1 : model.DrawPrimaryLayer, 1, PrimaryLayerCount);
    f.DrawSecondary =
        std::clamp<int>(model.DrawSecondaryLayer == 0 ? 1 : model.DrawSecondaryLayer, 1, SecondLayerCount);
    f.Lines = std::clamp<int>(ds.View.DimOptions & display::dim::LinesMask, 0, 2);
    f.ShowBits = ds.View.DimOptions & ~display::dim::LinesMask;
    return f;
}

void SetAllLayers(LayerFields& fields) {
    fields.PrimaryOn.fill(true);
    fields.SecondaryOn.fill(true);
}

void ResetLayers(LayerFields& fields) {
    fields.PrimaryOn.fill(false);
    fields.SecondaryOn.fill(false);
    fields.PrimaryOn[static_cast<std::size_t>(fields.DrawPrimary)] = true;
    fields.SecondaryOn[static_cast<std::size_t>(fields.DrawSecondary)] = true;
}

std::string LayerLabel(const LayerFields& fields, bool primary, int layer) {
    const std::string& name = primary ? fields.PrimaryName[static_cast<std::size_t>(layer)]
                                      : fields.SecondaryName[static_cast<std::size_t>(layer)];
    return TrimText(name).empty() ? std::to_string(layer) : name;
}

bool ApplyLayers(Model& model, display::DisplayState& ds, const LayerFields& fields) {
    bool changed = fields.DrawPrimary != model.DrawPrimaryLayer || fields.DrawSecondary != model.DrawSecondaryLayer;
    for (int k = 1; k <= PrimaryLayerCount && static_cast<std::size_t>(k) < model.PrimaryLayers.size(); ++k) {
        LayerRecord& layer = model.PrimaryLayers[static_cast<std::size_t>(k)];
        changed = changed || layer.Name != fields.PrimaryName[static_cast<std::size_t>(k)];
        layer.Name = fields.PrimaryName[static_cast<std::size_t>(k)];
        layer.LayerOn = fields.PrimaryOn[static_cast<std::size_t>(k)] ? -1 : 0;
    }
    for (int k = 1; k <= SecondLayerCount && static_cast<std::size_t>(k) < model.SecondaryLayers.size(); ++k) {
        LayerRecord& layer = model.SecondaryLayers[static_cast<std::size_t>(k)];
        changed = changed || layer.Name != fields.SecondaryName[static_cast<std::size_t>(k)];
        layer.Name = fields.SecondaryName[static_cast<std::size_t>(k)];
        layer.LayerOn = fields.SecondaryOn[static_cast<std::size_t>(k)] ? -1 : 0;
    }
    model.DrawPrimaryLayer = static_cast<std::int16_t>(fields.DrawPrimary);
    model.DrawSecondaryLayer = static_cast<std::int16_t>(fields.DrawSecondary);
    ds.View.DimOptions = std::clamp(fields.Lines, 0, 2) | (fields.ShowBits & ~display::dim::LinesMask);
    if (changed) model.NetworkSaved = No0;
    display::BuildDisplayList(model, ds);
    return changed;
}

} // namespace karvane::forms
