// The contaminant spread: reach rounds that mark every row the contaminant can get to,
// settling passes that mix the levels at the junctions by flow and carry the arrival times
// along the earliest feeder, then the legend thresholds and the time slider.
#include "contaminant/spread.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "contaminant/colours.h"
#include "engineering/resistance.h"
#include "files/duplicates.h"
#include "files/number_text.h"
#include "model/node_keys.h"
#include "model/number_format.h"
#include "simulate/validation.h"

namespace karvane::contaminant {

namespace {

// pi as the spread works out the area of a circular airway.
constexpr double SpreadPi = 3.1415927;

bool Stopped(const Model& model) { return model.StopFlag == StopRequest::Stop; }

// A row passes its contaminant on unless it leaves to the surface: the atmosphere carries
// nothing on to the intakes.
bool PassesOn(const Airway& a) { return a.ExitKey != SurfaceKey && !a.Has(bc::ExitAtSurface); }

void AppendSpread(ContaminantState& s, std::int32_t row) {
    s.SpreadOrder[static_cast<std::size_t>(++s.SpreadCount)] = static_cast<std::int16_t>(row);
}

// Every row's level and arrival time reset; sources with a flow start at their own level at
// time 0, and in cumulative mode those that do not start at the surface are settled with the
// rest. Returns whether any source qualified.
bool SetUpSources(Model& model, std::int32_t n) {
    ContaminantState& s = model.Smoke;
    const bool cumulative = model.Set.SmokeCumulative == 1;
    s.SpreadCount = 0;
    bool any = false;
    for (std::int32_t i = 1; i <= n; ++i) {
        Airway& a = model.Airways[i];
        s.SpreadTime[i] = NeverReached;
        a.Gas2 = 0;
        if (!a.Has(bc::ContaminantSource) || !(a.Quantity > 0.0f)) continue;
        s.SpreadTime[i] = 0.0f;
        a.Gas2 = files::ToInt16(a.Contaminant);
        any = true;
        if (a.EntryKey != SurfaceKey && cumulative) AppendSpread(s, i);
    }
    return any;
}

// The reach rounds. Each round visits the rows in row order, and every contaminated row that
// passes its contaminant on marks the rows it feeds (level 0, flow above AllowErr) with level
// 1 and lists them for settling; a row marked ahead of the visit is visited in the same round,
// one marked behind it in the next. A row that has spread once has nothing more to mark, so
// each round visits only the rows that have not spread yet, in row order, which lists the rows
// exactly as a visit of every row would. Returns false when a stop was requested.
bool Reach(Model& model, ui::UserInterface& ui, std::int32_t n) {
    ContaminantState& s = model.Smoke;
    Airway* rows = model.Airways.data();
    const float allowErr = model.Set.AllowErr;
    std::vector<std::int32_t>& pending = s.Pending;  // a min-heap: this round's rows to visit
    std::vector<std::int32_t>& next = s.NextPending; // marked behind the visit: next round
    pending.clear();
    next.clear();
    std::int32_t contaminated = 0; // rows with a level that pass it on
    for (std::int32_t i = 1; i <= n; ++i) {
        if (rows[i].Gas2 == 0 || !PassesOn(rows[i])) continue;
        pending.push_back(i); // ascending, so already a heap
        ++contaminated;
    }
    for (int round = 1; round <= MaxReachRounds; ++round) {
        ui.ProgressBox("TxtItt", std::to_string(round));
        ui.PumpEvents();
        std::int32_t spreading = contaminated, added = 0;
        while (!pending.empty()) {
            std::pop_heap(pending.begin(), pending.end(), std::greater<>());
            const std::int32_t i = pending.back();
            pending.pop_back();
            for (const std::int16_t j : simulate::Downstream(model, i)) {
                Airway& b = rows[j];
                if (b.Gas2 != 0 || !(std::fabs(b.Quantity) > allowErr)) continue;
                b.Gas2 = 1;
                AppendSpread(s, j);
                ++added;
                if (!PassesOn(b)) continue;
                ++contaminated;
                if (j > i) {
                    ++spreading;
                    pending.push_back(j);
                    std::push_heap(pending.begin(), pending.end(), std::greater<>());
                } else {
                    next.push_back(j);
                }
            }
        }
        ui.ProgressBox("TxtRate", std::to_string(added));
        ui.PumpEvents();
        ui.ProgressBox("TxtSpread", FormatNumber(static_cast<double>(spreading) / n, "0 %"));
        ui.PumpEvents();
        if (Stopped(model)) return false;
        if (added == 0) break;
        std::sort(next.begin(), next.end());
        pending.swap(next);
        next.clear();
    }
    return true;
}

// One settling pass over the listed rows in their order: each row takes the flow weighted mean
// level of the rows that feed it (plus its own level as a cumulative source), and its arrival
// time through the feeder that the contaminant reached first. Returns the largest change of a
// level before the cap.
double SettlePass(Model& model) {
    ContaminantState& s = model.Smoke;
    Airway* rows = model.Airways.data();
    float* time = s.SpreadTime.data();
    const float allowErr = model.Set.AllowErr;
    const bool cumulative = model.Set.SmokeCumulative == 1;
    double worst = 0;
    for (std::int32_t k = 1; k <= s.SpreadCount; ++k) {
        const std::int32_t i = s.SpreadOrder[static_cast<std::size_t>(k)];
        Airway& a = rows[i];
        double sum = 0, mass = 0;
        std::int32_t f = i;
        for (const std::int16_t j : simulate::Upstream(model, i)) {
            const Airway& b = rows[j];
            sum += b.Quantity;
            mass += std::abs(static_cast<double>(b.Gas2)) * b.Quantity;
            if (time[j] < time[f]) f = j;
        }
        double c = 0;
        if (sum > allowErr) {
            c = mass / std::fabs(sum);
            if (cumulative) c += a.Contaminant;
        }
        worst = std::max(worst, std::fabs(c - a.Gas2));
        a.Gas2 = files::ToInt16(std::min(c, static_cast<double>(MaxContaminantLevel)));

        const Airway& feeder = rows[f];
        if (time[f] != NeverReached && time[i] > time[f] && feeder.Quantity != 0.0f) {
            const double velocity = feeder.Quantity / static_cast<double>(TravelArea(feeder));
            time[i] = static_cast<float>(time[f] + feeder.Length / velocity);
        }
    }
    return worst;
}

// The settling passes, until no level moves by 1 or more. After 100 passes the user may take
// the best guess; No gives it another 100. A stop request ends the passes.
void Settle(Model& model, ui::UserInterface& ui) {
    int passes = 0;
    for (;;) {
        const double worst = SettlePass(model);
        ui.ProgressBox("TxtErr", FormatNumber((1000.0 - worst) / 1000.0, "0.0 %"));
        ui.PumpEvents();
        if (Stopped(model)) return;
        if (++passes > SettlePassesBeforeQuestion) {
            const ui::Answer answer =
                ui.Ask("There seems to be a problem converging flows - do you want to accept the best guess ?",
                       "Convergence problem", ui::Buttons::YesNo, ui::Icon::Question);
            if (answer == ui::Answer::Yes) return;
            passes = 0;
        }
        if (worst < 1.0) return;
    }
}

// The legend from the highest level, unless the thresholds are to be kept; each threshold is
// shown as a whole number and read back from its box. Then the slider's end: the latest
// arrival of a row above level 1, in whole seconds, plus one, at most three hours.
void SetUpLegend(Model& model, std::int32_t n) {
    ContaminantState& s = model.Smoke;
    std::int16_t maxLevel = 0;
    for (std::int32_t i = 1; i <= n; ++i) maxLevel = std::max(maxLevel, model.Airways[i].Gas2);
    s.MaxLevel = maxLevel;
    if (!(s.RetainLegend && s.LegendSet)) SetDefaultThresholds(model, maxLevel);
    s.LegendSet = true;

    double latest = 0;
    for (std::int32_t i = 1; i <= n; ++i)
        if (model.Airways[i].Gas2 > 1) latest = std::max(latest, std::floor(static_cast<double>(s.SpreadTime[i])));
    s.SpreadMax = static_cast<std::int32_t>(std::min(latest + 1.0, static_cast<double>(MaxSpreadSeconds)));
    s.SpreadLimit = 0;
}

// The node keys of rows 1..n as they stand.
void KeepKeys(Model& model, std::int32_t n) {
    Fixed4* keys = model.Smoke.KeysBefore.data();
    for (std::int32_t i = 1; i <= n; ++i) {
        keys[2 * i] = model.Airways[i].EntryKey;
        keys[2 * i + 1] = model.Airways[i].ExitKey;
    }
}

// Whether the row count or any row's keys differ from what KeepKeys kept.
bool KeysMoved(const Model& model, std::int32_t n) {
    if (CheckedAirwayCount(model) != n) return true;
    const Fixed4* keys = model.Smoke.KeysBefore.data();
    for (std::int32_t i = 1; i <= n; ++i)
        if (keys[2 * i] != model.Airways[i].EntryKey || keys[2 * i + 1] != model.Airways[i].ExitKey) return true;
    return false;
}

// StopFlag back to "no run is active" however the spread ends.
struct IdleOnExit {
    Model& model;
    ~IdleOnExit() { model.StopFlag = StopRequest::Stop; }
};

} // namespace

float TravelArea(const Airway& airway) {
    double area = 0;
    if (airway.Has(bc::Rectangular)) area = static_cast<double>(airway.Height) * airway.Width;
    if (airway.Has(bc::Circular)) area = static_cast<double>(airway.Width) * airway.Width / 4.0 * SpreadPi;
    if (airway.Has(bc::AreaEntry)) area = airway.Width;
    const float stored = static_cast<float>(area);
    return stored > 0.0f ? stored : LeastArea;
}

void RunContaminantSpread(Model& model, ui::UserInterface& ui, SpreadHooks* hooks, bool retainLegend) {
    SpreadHooks none;
    SpreadHooks& h = hooks ? *hooks : none;
    if (model.SimValid == Validity::NotValid) {
        model.SimMode = RunMode::Normal;
        model.ShowProgress = 1;
        simulate::RunAirflow(model, ui, &h);
        if (model.SimValid == Validity::NotValid) {
            ui.Message("Network must be successfully balanced before smoke simulation can work", ProgramName,
                       ui::Icon::None);
            return;
        }
    }
    h.RememberDataTypes();
    model.StopFlag = StopRequest::Go;
    IdleOnExit idle{model};
    if (model.AirwayCount <= 1) {
        ui.Message("No Data to Simulate", ProgramName, ui::Icon::Exclamation);
        return;
    }
    ContaminantState& s = model.Smoke;
    if (!s.SourcesChanged) s.RetainLegend = retainLegend;
    const std::int32_t before = CheckedAirwayCount(model);
    KeepKeys(model, before);
    BuildNodeKeys(model, ui);
    files::SortAirways(model, ui);
    // The sort moves the rows that the last airflow run turned round: the neighbour lists must
    // then follow the rows as they now stand.
    if (!model.Run.NeighboursValid || KeysMoved(model, before)) simulate::BuildNeighbourLists(model);

    const std::int32_t n = CheckedAirwayCount(model);
    if (!SetUpSources(model, n)) {
        h.Redraw();
        return;
    }
    ui.ProgressBox("TxtErr", "0");
    ui.PumpEvents();
    if (Reach(model, ui, n)) Settle(model, ui);

    h.CloseSmokeWindow();
    h.Redraw();
    model.GasActive = GasDisplay::Spread;
    h.ShowLegend();
    SetUpLegend(model, n);
    h.ShowContaminantDataTypes();
    h.LegendChanged();
    h.Redraw();
}

bool PlaceContaminant(Model& model, ui::UserInterface& ui, std::int32_t row, float fraction, bool leftButton) {
    if (row < 1 || row > CheckedAirwayCount(model)) return false;
    Airway& a = model.Airways[row];
    const float iconLoc = fraction - 0.3f;
    if (leftButton) {
        if (a.Has(bc::ContaminantSource)) {
            a.BranchCode &= ~bc::ContaminantSource;
            a.Contaminant = 0;
        } else {
            a.BranchCode |= bc::ContaminantSource;
            a.Contaminant = DefaultSourceLevel;
            a.IconLoc = iconLoc;
        }
        model.Smoke.SourcesChanged = true;
        return true;
    }
    const float present = a.Contaminant != 0.0f ? a.Contaminant : DefaultSourceLevel;
    const auto answer = ui.Input("Enter contamination concentration", "Concentration",
                                 files::PlainSingle(present, ui.DecimalSeparator()));
    if (!answer || answer->empty()) return false;
    a.Contaminant = files::ToSingle(ParseLeadingNumber(*answer));
    if (a.Contaminant != 0.0f) {
        a.BranchCode |= bc::ContaminantSource;
        a.IconLoc = iconLoc;
    } else {
        a.BranchCode &= ~bc::ContaminantSource;
    }
    model.Smoke.SourcesChanged = true;
    return true;
}

void ClearContaminant(Model& model, ui::UserInterface& ui, SpreadHooks* hooks) {
    const bool sourcesToo = ui.Ask("Clear contaminant sources as well?", "CLEAR CONTAMINANT", ui::Buttons::YesNo,
                                   ui::Icon::Question) == ui::Answer::Yes;
    const std::int32_t n = CheckedAirwayCount(model);
    for (std::int32_t i = 1; i <= n; ++i) {
        Airway& a = model.Airways[i];
        if (sourcesToo) {
            a.BranchCode &= ~bc::ContaminantSource;
            a.Contaminant = 0;
        } else if (!a.Has(bc::ContaminantSource)) {
            a.Contaminant = 0;
        }
    }
    if (model.GasActive == GasDisplay::Spread) {
        model.GasActive = GasDisplay::None;
        if (hooks) {
            hooks->CloseLegend();
            hooks->RestoreDataTypes();
        }
    }
    if (hooks) hooks->Redraw();
}

void CancelSpread(Model& model, SpreadHooks* hooks) {
    model.StopFlag = StopRequest::Stop;
    model.GasActive = GasDisplay::None;
    if (hooks) {
        hooks->CloseSmokeWindow();
        hooks->CloseLegend();
    }
    const std::int32_t n = CheckedAirwayCount(model);
    for (std::int32_t i = 1; i <= n; ++i)
        if (!model.Airways[i].Has(bc::ContaminantSource)) model.Airways[i].Contaminant = 0;
    if (hooks) hooks->Redraw();
}

bool ClearSources(Model& model, ui::UserInterface& ui) {
    if (ui.Ask("Clear contaminant sources ?", "CLEAR CONTAMINANTS", ui::Buttons::YesNo, ui::Icon::Question) !=
        ui::Answer::Yes)
        return false;
    const std::int32_t n = CheckedAirwayCount(model);
    for (std::int32_t i = 1; i <= n; ++i) {
        model.Airways[i].BranchCode &= ~bc::ContaminantSource;
        model.Airways[i].Contaminant = 0;
    }
    return true;
}

} // namespace karvane::contaminant
