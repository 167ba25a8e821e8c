// The duplicate and zero-length checks over the rows sorted by key, and the sort that brings
// them together.
#include "files/duplicates.h"

#include "engineering/resistance.h"
#include "model/node_keys.h"

namespace karvane::files {

namespace {

bool SameKeys(const Airway& a, const Airway& b) { return a.EntryKey == b.EntryKey && a.ExitKey == b.ExitKey; }

// The answer to one of the deletion questions; the duplicate search asks nothing and keeps
// every row.
bool AgreesToDelete(const Model& model, ui::UserInterface& ui, const char* text, const char* title) {
    if (model.SimMode == RunMode::FindDuplicates) return false;
    return ui.Ask(text, title, ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

// One kind of fault that the user may have deleted: the question, its title, and what each
// row gets when the rows stay.
struct DeletableFault {
    const char* Question;
    const char* Title;
    const char* Line;
    const char* Comment;
};

// Goes through rows 1..AirwayCount. At the first faulty row the user is asked once; on Yes
// every faulty row is deleted after the pass, otherwise the run fails and each is reported.
template <typename IsFaulty>
void DeleteOrReport(Model& model, ui::UserInterface& ui, IsFaulty isFaulty, const DeletableFault& fault) {
    const std::int32_t n = CheckedAirwayCount(model);
    std::int32_t* doomed = nullptr;
    bool asked = false;
    bool remove = false;
    for (std::int32_t row = 1; row <= n; ++row) {
        if (!isFaulty(row, n)) continue;
        if (!asked) {
            asked = true;
            remove = AgreesToDelete(model, ui, fault.Question, fault.Title);
            if (remove) {
                doomed = ClearRowMarks(model, n);
            } else {
                model.SimFail = RunResult::Failed;
            }
        }
        if (remove) {
            doomed[row] = 1;
        } else {
            ReportAirwayFault(model, row, fault.Line, fault.Comment);
        }
    }
    if (remove) RemoveMarkedRows(model, doomed);
}

} // namespace

void CheckDuplicates(Model& model, ui::UserInterface& ui) {
    // Duplicates stand next to each other in key order. Of each run of equal rows the last
    // one stays.
    DeleteOrReport(
        model, ui,
        [&](std::int32_t row, std::int32_t n) {
            return row < n && SameKeys(model.Airways[row], model.Airways[row + 1]);
        },
        {"Duplicate branches exist - delete them ?", "Duplicate branches", "Duplicate airway", "Duplicate branch"});

    // An airway whose two ends are one node has no length (the surface node excepted: an
    // airway with both ends there was reported when the keys were built).
    DeleteOrReport(model, ui,
                   [&](std::int32_t row, std::int32_t) {
                       const Airway& a = model.Airways[row];
                       return a.EntryKey == a.ExitKey && a.EntryKey != SurfaceKey && a.EntryKey != 0;
                   },
                   {"Branches with identical start/end points detected - delete them ?", "Zero length branches",
                    "Same start/end", "Same start/end"});

    RecalcAllAirways(model);
}

void SortAirways(Model& model, ui::UserInterface& ui) {
    if (CheckedAirwayCount(model) < 2) {
        ui.Message("No Data to sort", ProgramName, ui::Icon::Information);
        return;
    }
    SortAirwayRows(model);
    CheckDuplicates(model, ui);
    SortAirwayRows(model);
}

} // namespace karvane::files
