// The first view of a loaded network.
#include "display/startup_view.h"

#include "display/display_list.h"
#include "display/drawn_list.h"
#include "display/saved_views.h"
#include "display/view_transform.h"

namespace karvane::display {

void ShowLoadedNetwork(Model& model, DisplayState& ds, ui::UserInterface& ui, bool startupViewRead,
                       const LoadedLevel& level) {
    ResetViewOptions(model, ds);
    ViewState& v = ds.View;
    v.CurrentLevel = level.CurrentLevel;
    v.CurrentRLMin = model.CurrentRLMin;
    v.CurrentRLMax = model.CurrentRLMax;
    v.CurRL = level.CurRL;
    bool fit = true;
    if (startupViewRead) {
        fit = LoadViewFromSlot(model, ds, StartupViewSlot) != ViewLoad::Loaded;
        if (!fit) {
            BuildDrawnList(model, ds);
            fit = ds.Drawn.empty() && model.AirwayCount > 0;
        }
    }
    if (!fit) return;
    BuildDisplayList(model, ds);
    FitView(model, ds, ui);
    ApplyRotation(model, ds);
}

} // namespace karvane::display
