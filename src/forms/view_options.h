// The two dialogs of what a view shows: the view options (which details are drawn, the data
// filter, the colour scheme and the flow limits) and the layers (which layers are on, their
// names, the layers new airways are drawn on, and what happens to airways off their layers).
// Each dialog is a plain struct of its fields, filled from the model and applied back.
#pragma once

#include <array>
#include <string>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// frmViewer ("View Options").
struct ViewerFields {
    std::array<bool, 10> Show{};  // ChkViewer(0..9): DisplayOptions bit k
    int DataFilter = 0;           // OptType: 0 all, 1 vertical, 2 horizontal, 3 selected
    int FreshExhaust = 0;         // ColOpt: 0 "Levels", 1 "Fresh / Exhaust"
    std::string MinFlow, MaxFlow; // TxtSigMin, TxtSig, in the display's flow unit
    int FlowLimitMode = 0;        // OptDimmer: 0 all, 1 dim, 2 invisible
};
inline constexpr int OffLevelRaisesOption = 9;

ViewerFields FillViewer(const Model& model, const display::DisplayState& ds, char decimalSep);
// "Show All" and "Hide": the first nine boxes; "Off Level Raises" stays.
void ShowAllDetails(ViewerFields& fields);
void HideAllDetails(ViewerFields& fields);
// OK: a flow limit below 0 or above 10000 is refused with "Limits of Allowable Significant
// Flows" and nothing is applied (false); otherwise everything is applied and the display list
// rebuilt.
bool ApplyViewer(Model& model, display::DisplayState& ds, const ViewerFields& fields, ui::UserInterface& ui);

// frmTagS ("Viewing Layers").
struct LayerFields {
    std::array<std::string, PrimaryLayerCount + 1> PrimaryName{};
    std::array<bool, PrimaryLayerCount + 1> PrimaryOn{};
    std::array<std::string, SecondLayerCount + 1> SecondaryName{};
    std::array<bool, SecondLayerCount + 1> SecondaryOn{};
    int DrawPrimary = 1, DrawSecondary = 1; // shown in red
    int Lines = 0;                          // "Lines": 0 invisible, 1 dim, 2 solid
    std::int32_t ShowBits = 0;              // "Show": data 4, branch 8, name 16, arrow 32, nodes 64
};

LayerFields FillLayers(const Model& model, const display::DisplayState& ds);
// "Set": every layer on. "Reset": every layer off but the two draw layers, which come on.
void SetAllLayers(LayerFields& fields);
void ResetLayers(LayerFields& fields);
// The label beside a layer's box: its name, or its number when it has none.
std::string LayerLabel(const LayerFields& fields, bool primary, int layer);
// Closing: the ticks, names, draw layers and dim options go back. Returns whether the
// network changed (a draw layer or a name), which clears its saved flag.
bool ApplyLayers(Model& model, display::DisplayState& ds, const LayerFields& fields);

} // namespace karvane::forms
