// The troubleshooting runs and the re-seeding of flows.
#include "simulate/troubleshoot.h"

#include <algorithm>
#include <cmath>

#include "model/number_format.h"
#include "simulate/run.h"

namespace karvane::simulate {

void RunTroubleshoot(Model& model, ui::UserInterface& ui, RunMode simMode, RunHooks* hooks) {
    model.SimMode = simMode;
    model.ShowProgress = 1;
    RunAirflow(model, ui, hooks);
    if (hooks) hooks->Redraw();
}

std::string ReseedPrompt() {
    return "Warning !  This will re-seed all airways (except fixed airways) to a specified value.  Subsequent "
           "resimulation will allow Karvane to attempt to rebalance the network.\n\nPlease enter your seed value";
}

void ReseedAirflows(Model& model, ui::UserInterface& ui) {
    const auto answer = ui.Input(ReseedPrompt(), "Re-seed airflows", "10");
    if (!answer || answer->empty()) return;
    // Taken down to the next whole number: 2.7 gives 2 and -2.7 gives -3.
    const double seed = std::floor(ParseLeadingNumber(*answer));
    const float value = std::isfinite(seed) ? static_cast<float>(std::clamp(seed, -3.0e38, 3.0e38)) : 0.0f;
    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) {
        Airway& a = model.Airways[i];
        if (!a.Has(bc::FixedFlow)) a.Quantity = value;
    }
}

} // namespace karvane::simulate
