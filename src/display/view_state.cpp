// Construction of the display state and its options from the settings.
#include "display/view_state.h"

namespace karvane::display {

DisplayState::DisplayState()
    : ViewFrom(static_cast<std::size_t>(MaxAirways) + 1),
      ViewTo(static_cast<std::size_t>(MaxAirways) + 1) {
    DisplayList.reserve(static_cast<std::size_t>(MaxAirways) + 1);
    Drawn.reserve(static_cast<std::size_t>(MaxAirways) + 1);
}

void ResetViewOptions(const Model& model, DisplayState& ds) {
    ds.View.DisplayOptions = model.Set.DisplayOptions;
    ds.View.DimOptions = model.Set.DimOptions;
    ds.View.FreshExhaust = model.Set.FreshExhaust;
    const std::size_t rows = static_cast<std::size_t>(MaxAirways) + 1;
    if (ds.ViewFrom.size() < rows) ds.ViewFrom.resize(rows);
    if (ds.ViewTo.size() < rows) ds.ViewTo.resize(rows);
    ds.PlanCopyValid = false;
}

} // namespace karvane::display
