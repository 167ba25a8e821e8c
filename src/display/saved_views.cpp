// Saving and loading the view state of a window in the saved view table.
#include "display/saved_views.h"

#include <cmath>

#include "display/data_types.h"
#include "display/display_list.h"
#include "display/view_transform.h"
#include "files/number_text.h"

namespace karvane::display {

namespace {

bool ValidSlot(const Model& model, int slot) {
    return slot >= 0 && static_cast<std::size_t>(slot) < model.SavedViews.size();
}

Fixed4 ToFixed(std::int64_t whole) { return whole * kFixedScale; }
std::int64_t FromFixed(Fixed4 v) { return v / kFixedScale; }

float F(std::int32_t v) { return static_cast<float>(v); }

} // namespace

void SaveViewToSlot(Model& model, const DisplayState& ds, int slot) {
    if (!ValidSlot(model, slot)) return;
    SavedView& s = model.SavedViews[static_cast<std::size_t>(slot)];
    const ViewState& v = ds.View;
    auto& p = s.ViewParam;
    p[1] = v.Tilt;
    p[2] = v.Spin;
    p[3] = v.ScaleLeft;
    p[4] = v.ScaleTop;
    p[5] = v.ScaleWidth;
    p[6] = v.ScaleHeight;
    p[9] = F(v.DimOptions);
    p[10] = v.LevelMode;
    p[11] = F(v.CurrentRLMin);
    p[12] = F(v.CurrentRLMax);
    p[13] = v.CurrentLevel;
    p[14] = v.Is3D;
    p[15] = v.CentreX;
    p[16] = v.CentreY;
    for (std::size_t k = 0; k < v.SelectedLevels.size(); ++k) p[17 + k] = v.SelectedLevels[k];
    p[23] = F(v.RotCentre[0]);
    p[24] = F(v.RotCentre[1]);
    p[25] = F(v.RotCentre[2]);
    p[26] = v.RotCentreSet;
    p[27] = F(v.CurRL);
    p[28] = v.DataType;
    const LayerMasks masks = CurrentLayerMasks(model);
    s.ViewValue[1] = ToFixed(masks.Secondary1);
    s.ViewValue[2] = ToFixed(masks.Primary);
    s.ViewValue[3] = ToFixed(masks.Secondary2);
    s.ViewValue[4] = ToFixed(v.DisplayOptions);
    s.ViewValue[5] = ToFixed(v.FreshExhaust);
}

ViewLoad LoadViewFromSlot(Model& model, DisplayState& ds, int slot) {
    if (ds.MainMinimised || !ValidSlot(model, slot)) return ViewLoad::NotLoaded;
    const SavedView& s = model.SavedViews[static_cast<std::size_t>(slot)];
    const auto& p = s.ViewParam;
    ViewState& v = ds.View;
    v.Tilt = p[1];
    v.Spin = p[2];
    v.Is3D = files::ToInt16(p[14]) != 0 ? 1 : 0;
    if (slot >= 3 && slot <= 5) v.Tilt = std::fabs(v.Tilt) * static_cast<float>(model.SgnY);
    if (slot == 1) v.Is3D = 0;
    if (p[5] == 0) {
        // A view of angles only: the caller fits the box.
        v.RotCentreSet = 0;
        return ViewLoad::AnglesOnly;
    }
    v.ScaleLeft = p[3];
    v.ScaleTop = p[4];
    v.ScaleWidth = p[5];
    v.ScaleHeight = p[6];
    v.CentreX = p[15];
    v.CentreY = p[16];
    if (files::ToInt16(p[26]) == 0) {
        // A slot from before the rotation centre was kept stores the box by its corner.
        v.CentreX = v.ScaleLeft + v.ScaleWidth / 2;
        v.CentreY = v.ScaleTop + v.ScaleHeight / 2;
        v.ScaleLeft = -v.ScaleWidth / 2;
        v.ScaleTop = -v.ScaleHeight / 2;
    }
    v.DimOptions = files::ToInt32(p[9]);
    v.LevelMode = files::ToInt16(p[10]);
    if (v.LevelMode < lm::Single || v.LevelMode > lm::All) v.LevelMode = lm::All;
    v.CurrentRLMin = files::ToInt32(p[11]);
    v.CurrentRLMax = files::ToInt32(p[12]);
    v.CurrentLevel = files::ToInt16(p[13]);
    v.CurRL = files::ToInt32((static_cast<double>(v.CurrentRLMin) + v.CurrentRLMax) / 2);
    for (std::size_t k = 0; k < v.SelectedLevels.size(); ++k) v.SelectedLevels[k] = files::ToInt16(p[17 + k]);
    v.RotCentre = {files::ToInt32(p[23]), files::ToInt32(p[24]), files::ToInt32(p[25])};
    v.RotCentreSet = files::ToInt16(p[26]);
    if (p[27] != 0) v.CurRL = files::ToInt32(p[27]);
    const std::int16_t dataType = files::ToInt16(p[28]);
    if (dataType != 0 && IsDataType(dataType)) {
        // The lists show the type without their handlers running: the group memory stays.
        v.DataType = dataType;
        ds.Labels.Unit = DataUnitLabel(model, dataType);
    }
    v.DisplayOptions = static_cast<std::int16_t>(FromFixed(s.ViewValue[4]));
    v.FreshExhaust = static_cast<std::int16_t>(FromFixed(s.ViewValue[5]));
    LayerMasks masks;
    masks.Secondary1 = FromFixed(s.ViewValue[1]);
    masks.Primary = FromFixed(s.ViewValue[2]);
    masks.Secondary2 = FromFixed(s.ViewValue[3]);
    SetLayersFromMasks(model, masks);

    BuildDisplayList(model, ds);
    if (slot == 1) v.Is3D = 0;
    ApplyRotation(model, ds);
    return ViewLoad::Loaded;
}

void CopyViewSlot(Model& model, int from, int to) {
    if (!ValidSlot(model, from) || !ValidSlot(model, to) || from == to) return;
    SavedView& dst = model.SavedViews[static_cast<std::size_t>(to)];
    const SavedView& src = model.SavedViews[static_cast<std::size_t>(from)];
    dst.ViewParam = src.ViewParam;
    dst.ViewValue = src.ViewValue;
}

} // namespace karvane::display
