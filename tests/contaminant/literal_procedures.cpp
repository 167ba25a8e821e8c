// The literal contaminant procedures of the oracle tests.
#include "literal_procedures.h"

#include <algorithm>
#include <cmath>

#include "contaminant/spread.h"
#include "files/number_text.h"
#include "model/number_format.h"

namespace karvane::smoketest {

LiteralLists LiteralNeighbours(const Model& model) {
    const std::int32_t n = model.AirwayCount;
    LiteralLists lists;
    lists.Up.resize(static_cast<std::size_t>(n) + 1);
    lists.Down.resize(static_cast<std::size_t>(n) + 1);
    for (std::int32_t i = 1; i <= n; ++i)
        for (std::int32_t j = 1; j <= n; ++j)
            if (j != i && model.Airways[j].ExitKey == model.Airways[i].EntryKey) lists.Up[i].push_back(j);
    for (std::int32_t i = 1; i <= n; ++i)
        for (std::int32_t j = 1; j <= n; ++j)
            if (j != i && model.Airways[j].EntryKey == model.Airways[i].ExitKey) lists.Down[i].push_back(j);
    return lists;
}

LiteralSpreadRecord LiteralSpread(Model& model) {
    LiteralSpreadRecord rec;
    const LiteralLists lists = LiteralNeighbours(model);
    const std::int32_t n = model.AirwayCount;
    Airway* rows = model.Airways.data();
    float* time = model.Smoke.SpreadTime.data();
    const bool cumulative = model.Set.SmokeCumulative == 1;
    const float allowErr = model.Set.AllowErr;

    bool any = false;
    for (std::int32_t i = 1; i <= n; ++i) {
        time[i] = NeverReached;
        rows[i].Gas2 = 0;
        if (rows[i].Has(bc::ContaminantSource) && rows[i].Quantity > 0.0f) {
            time[i] = 0;
            rows[i].Gas2 = files::ToInt16(rows[i].Contaminant);
            any = true;
            if (rows[i].EntryKey != SurfaceKey && cumulative) rec.SpreadOrder.push_back(static_cast<std::int16_t>(i));
        }
    }
    if (!any) return rec;
    rec.Boxes.emplace_back("TxtErr", "0");

    for (int round = 1; round <= 1000; ++round) {
        rec.Boxes.emplace_back("TxtItt", std::to_string(round));
        std::int32_t spreading = 0, added = 0;
        for (std::int32_t i = 1; i <= n; ++i) {
            if (rows[i].ExitKey == SurfaceKey || rows[i].Gas2 == 0 || rows[i].Has(bc::ExitAtSurface)) continue;
            ++spreading;
            for (const std::int32_t j : lists.Down[i]) {
                if (rows[j].Gas2 == 0 && std::fabs(rows[j].Quantity) > allowErr) {
                    rows[j].Gas2 = 1;
                    rec.SpreadOrder.push_back(static_cast<std::int16_t>(j));
                    ++added;
                }
            }
        }
        rec.Boxes.emplace_back("TxtRate", std::to_string(added));
        rec.Boxes.emplace_back("TxtSpread", FormatNumber(static_cast<double>(spreading) / n, "0 %"));
        if (added == 0) break;
    }

    int passes = 0;
    double worst = 0;
    do {
        worst = 0;
        for (const std::int16_t i : rec.SpreadOrder) {
            double sum = 0, mass = 0;
            std::int32_t f = i;
            for (const std::int32_t j : lists.Up[i]) {
                sum += rows[j].Quantity;
                mass += std::abs(static_cast<double>(rows[j].Gas2)) * rows[j].Quantity;
                if (time[j] < time[f]) f = j;
            }
            double c = sum <= allowErr ? 0.0 : mass / std::fabs(sum) + (cumulative ? rows[i].Contaminant : 0.0f);
            if (std::fabs(c - rows[i].Gas2) > worst) worst = std::fabs(c - rows[i].Gas2);
            if (c > 20000) c = 20000;
            rows[i].Gas2 = files::ToInt16(c);
            const double area = contaminant::TravelArea(rows[f]);
            if (time[f] != NeverReached && time[i] > time[f])
                time[i] = static_cast<float>(time[f] + rows[f].Length / (rows[f].Quantity / area));
        }
        rec.Boxes.emplace_back("TxtErr", FormatNumber((1000 - worst) / 1000, "0.0 %"));
        if (++passes > 100) break;
    } while (!(worst < 1.0));
    return rec;
}

void LiteralSourcing(Model& model) {
    const LiteralLists lists = LiteralNeighbours(model);
    const std::int32_t n = model.AirwayCount;
    Airway* rows = model.Airways.data();
    for (std::int32_t i = 1; i <= n; ++i) rows[i].Gas2 = 0;
    auto set = [](Airway& a, std::int16_t state, bool& changed) {
        if (a.Gas2 != state) changed = true;
        a.Gas2 = state;
    };

    for (bool changed = true; changed;) {
        changed = false;
        for (std::int32_t i = 1; i <= n; ++i) {
            if (rows[i].Gas1 == 1) set(rows[i], 5, changed);
            if (rows[i].EntryKey != SurfaceKey && rows[i].Gas2 == 5 && !rows[i].Has(bc::EntryAtSurface))
                for (const std::int32_t j : lists.Up[i])
                    if (rows[j].Gas1 == 0 && rows[j].Gas2 != 5 && std::fabs(rows[j].Quantity) > 0.1f)
                        set(rows[j], 5, changed);
        }
    }
    for (bool changed = true; changed;) {
        changed = false;
        for (std::int32_t i = 1; i <= n; ++i) {
            if (rows[i].Gas1 == 2) set(rows[i], 7, changed);
            if (rows[i].EntryKey != SurfaceKey && rows[i].Gas2 == 7 && !rows[i].Has(bc::EntryAtSurface))
                for (const std::int32_t j : lists.Up[i])
                    if (rows[j].Gas1 == 0 && rows[j].Gas2 != 7 && rows[j].Gas2 != 4 &&
                        std::fabs(rows[j].Quantity) > 0.1f)
                        set(rows[j], 7, changed);
        }
    }
    for (bool changed = true; changed;) {
        changed = false;
        for (std::int32_t i = 1; i <= n; ++i) {
            if (rows[i].Gas1 == 1) set(rows[i], 4, changed);
            if (rows[i].ExitKey != SurfaceKey && rows[i].Gas2 == 4 && !rows[i].Has(bc::ExitAtSurface))
                for (const std::int32_t j : lists.Down[i])
                    if (rows[j].Gas2 != 4 && rows[j].Quantity != 0.0f) set(rows[j], 4, changed);
        }
    }
}

} // namespace karvane::smoketest
