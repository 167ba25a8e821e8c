// The troubleshooting runs and their messages, and the re-seeding of flows.
#include "simulate/troubleshoot.h"

#include <algorithm>
#include <cmath>

#include "engineering/resistance.h"
#include "model/node_keys.h"
#include "model/number_format.h"
#include "simulate/run.h"

namespace karvane::simulate {

void RunTroubleshoot(Model& model, ui::UserInterface& ui, std::int16_t simMode, RunHooks* hooks) {
    model.SimMode = simMode;
    model.ShowProgress = 1;
    RunAirflow(model, ui, hooks);
    if (hooks) hooks->Redraw();
}

void AfterForestChecks(Model& model, ui::UserInterface& ui) {
    if (!model.RestrictionFlag) return;
    switch (model.SimMode) {
    case mode::FindBulkheads:
        model.RestrictionFlag = false;
        ui.Message("CAUTION - Bulkheads are present which MAY restrict meshes formation.", "Possible meshing problems",
                   ui::Icon::Exclamation);
        model.SimFail = 1;
        break;
    case mode::RestrictiveFans:
        model.RestrictionFlag = false;
        ui.Message("WARNING - Fans are present which restrict other fans.", "Possible meshing problems",
                   ui::Icon::Exclamation);
        model.SimFail = 1;
        break;
    case mode::RemoveBulkheads: {
        model.RestrictionFlag = false;
        const ui::Answer answer = ui.Ask("WARNING - This will remove redundant bulkheads from the network.  Continue ?",
                                         "Remove redundant bulkheads", ui::Buttons::YesNo, ui::Icon::Exclamation);
        if (answer != ui::Answer::Yes) {
            model.SimFail = 1;
            return;
        }
        std::int32_t removed = 0;
        for (std::int32_t i = 1; i <= model.AirwayCount; ++i) {
            Airway& a = model.Airways[i];
            if (TrimText(a.Comment) == "Bad BBH") {
                a.ResType = 0;
                ++removed;
            }
        }
        // The freed airways take back their plain resistance.
        RecalcAllAirways(model);
        ui.Message("There were " + std::to_string(removed) + " unnecessary bulkheads removed from the network",
                   ProgramName, ui::Icon::None);
        break;
    }
    default: break;
    }
}

void SayNothingFound(Model& model, ui::UserInterface& ui) {
    const char* text = nullptr;
    switch (model.SimMode) {
    case mode::FindBulkheads: text = "There are NO unnecessary bulkheads."; break;
    case mode::RemoveBulkheads: text = "There were NO unnecessary bulkheads removed."; break;
    case mode::RestrictiveFans: text = "There are NO fans that are being restricted by other fans."; break;
    default: return;
    }
    ui.Message(text, ProgramName, ui::Icon::None);
}

void MarkNonConverging(Model& model, std::int32_t row, float correction, char decimalSeparator) {
    Airway& a = model.Airways[row];
    if (a.Has(bc::ErrorMark)) return;
    const std::string comment = "Converge " + FormatNumber(correction, "0.0", decimalSeparator);
    ReportAirwayFault(model, row, "Converge Error", comment.c_str());
    model.SimFail = 1;
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
