// The model the import fuzz targets read into: built once per process with the built-in
// settings and units; each input starts from an empty table and the levels of a new network.
#pragma once

#include "exchange/import.h"
#include "fuzz_support.h"
#include "model/builtin_settings.h"
#include "model/network_rows.h"
#include "model/units.h"

namespace karvane::fuzz {

inline Model& ImportModel() {
    static Model model = [] {
        Model m;
        SetBuiltInSettings(m);
        SetBuiltInUnits(m.Units);
        return m;
    }();
    model.AirwayCount = 0;
    SetNewNetworkLevels(model);
    return model;
}

// Imports the file twice: appended to an empty table, then once more behind those rows with a
// level for every height, offsets and negated axes. Every row left must be a finished airway.
inline void ImportTwice(const std::string& path) {
    DecliningUser ui;
    Model& model = ImportModel();
    exchange::ImportFields plain;
    plain.ChkMerge = true;
    exchange::ImportFile(model, ui, path, plain);
    exchange::ImportFields levels = plain;
    levels.ChkRL = true;
    levels.ChkSize = true;
    levels.TxtXOffset = "12.5";
    levels.TxtZOffset = "-1e9";
    levels.NegY = true;
    levels.NegZ = true;
    exchange::ImportFile(model, ui, path, levels);
    if (model.AirwayCount < 0 || model.AirwayCount > MaxAirways) Fail("the airway count left the table");
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r)
        if (model.Airways[static_cast<std::size_t>(r)].BranchCode == 0) Fail("an imported row was left unfinished");
}

} // namespace karvane::fuzz
