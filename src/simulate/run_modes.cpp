// The reports of the run stages in the troubleshooting modes.
#include "simulate/run_modes.h"

#include <string>

#include "engineering/resistance.h"
#include "model/node_keys.h"
#include "model/number_format.h"

namespace karvane::simulate {

void AfterForestChecks(Model& model, ui::UserInterface& ui) {
    if (!model.RestrictionFlag) return;
    switch (model.SimMode) {
    case RunMode::FindBulkheads:
        model.RestrictionFlag = false;
        ui.Message("CAUTION - Bulkheads are present which MAY restrict meshes formation.", "Possible meshing problems",
                   ui::Icon::Exclamation);
        model.SimFail = RunResult::Failed;
        break;
    case RunMode::FindRestrictiveFans:
        model.RestrictionFlag = false;
        ui.Message("WARNING - Fans are present which restrict other fans.", "Possible meshing problems",
                   ui::Icon::Exclamation);
        model.SimFail = RunResult::Failed;
        break;
    case RunMode::RemoveBulkheads: {
        model.RestrictionFlag = false;
        const ui::Answer answer = ui.Ask("WARNING - This will remove redundant bulkheads from the network.  Continue ?",
                                         "Remove redundant bulkheads", ui::Buttons::YesNo, ui::Icon::Exclamation);
        if (answer != ui::Answer::Yes) {
            model.SimFail = RunResult::Failed;
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
    case RunMode::FindBulkheads: text = "There are NO unnecessary bulkheads."; break;
    case RunMode::RemoveBulkheads: text = "There were NO unnecessary bulkheads removed."; break;
    case RunMode::FindRestrictiveFans: text = "There are NO fans that are being restricted by other fans."; break;
    default: return;
    }
    ui.Message(text, ProgramName, ui::Icon::None);
}

void MarkNonConverging(Model& model, std::int32_t row, float correction, char decimalSeparator) {
    Airway& a = model.Airways[row];
    if (a.Has(bc::ErrorMark)) return;
    const std::string comment = "Converge " + FormatNumber(correction, "0.0", decimalSeparator);
    ReportAirwayFault(model, row, "Converge Error", comment.c_str());
    model.SimFail = RunResult::Failed;
}

} // namespace karvane::simulate
