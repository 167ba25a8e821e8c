// info FILE [--json]: what a network holds (counts of its tables), its comment, and the
// settings that decide a run.
#include <iostream>
#include <memory>

#include "commands.h"
#include "output.h"
#include "session.h"

namespace karvane::cli {

namespace {

struct Counts {
    int Fans = 0, Levels = 0, PrimaryLayers = 0, SecondaryLayers = 0, Views = 0, FloatingTexts = 0;
};

Counts CountTables(const Model& m) {
    Counts c;
    int maxFans =
        std::min<int>(m.Set.MaxFans > 0 ? m.Set.MaxFans : DefaultMaxFans, static_cast<int>(m.Fans.size()) - 1);
    for (int f = 1; f <= maxFans; ++f)
        if (!m.Fans[f].IsFree()) ++c.Fans;
    // The level list ends at the first row with an empty name and a lower bound of 0.
    for (int r = 1; r <= LevelRowsInFile && r < static_cast<int>(m.Levels.size()); ++r) {
        if (m.Levels[r].RLName.empty() && m.Levels[r].RLMin == 0) break;
        ++c.Levels;
    }
    for (int l = 1; l < static_cast<int>(m.PrimaryLayers.size()); ++l)
        if (!m.PrimaryLayers[l].Name.empty()) ++c.PrimaryLayers;
    for (int l = 1; l < static_cast<int>(m.SecondaryLayers.size()); ++l)
        if (!m.SecondaryLayers[l].Name.empty()) ++c.SecondaryLayers;
    // The user's named views; the permanent views 1 to 5 and the start-up view are not counted.
    for (int v = 6; v <= 100 && v < static_cast<int>(m.SavedViews.size()); ++v)
        if (!m.SavedViews[v].ViewName.empty()) ++c.Views;
    int maxText = std::min<int>(m.Set.MaxText, static_cast<int>(m.FloatingTexts.size()) - 1);
    for (int t = 1; t <= maxText; ++t)
        if (m.FloatingTexts[t].TextOn) ++c.FloatingTexts;
    return c;
}

nlohmann::json InfoJson(const std::string& path, bool loaded, Session& s) {
    nlohmann::json j;
    j["file"] = ToUtf8(path);
    j["loaded"] = loaded;
    if (loaded) {
        const Model& m = s.model();
        Counts c = CountTables(m);
        j["comment"] = ToUtf8(m.FileComment);
        j["airways"] = m.AirwayCount;
        j["fans"] = c.Fans;
        j["levels"] = c.Levels;
        j["layers"] = {{"primary", c.PrimaryLayers}, {"secondary", c.SecondaryLayers}};
        j["views"] = c.Views;
        j["floatingText"] = c.FloatingTexts;
        j["settings"] = {{"density", JsonSingle(m.Set.Density)},         {"maxIter", m.Set.MaxIter},
                         {"allowErr", JsonSingle(m.Set.AllowErr)},       {"surfaceRL", JsonSingle(m.Set.SurfaceRL)},
                         {"surfaceBaro", JsonSingle(m.Set.SurfaceBaro)}, {"unitSys", m.Set.UnitSys},
                         {"airwayCapacity", m.Set.AirwayCapacity},       {"maxFans", m.Set.MaxFans}};
    }
    j["messages"] = MessagesJson(s.ui());
    return j;
}

void PrintInfo(const std::string& path, Session& s) {
    const Model& m = s.model();
    Counts c = CountTables(m);
    std::ostream& o = std::cout;
    o << "File: " << ToUtf8(path) << '\n';
    o << "Comment: " << ToUtf8(m.FileComment) << '\n';
    o << "Airways: " << m.AirwayCount << '\n';
    o << "Fans: " << c.Fans << '\n';
    o << "Levels: " << c.Levels << '\n';
    o << "Layers: " << c.PrimaryLayers + c.SecondaryLayers << " (" << c.PrimaryLayers << " primary, "
      << c.SecondaryLayers << " secondary)\n";
    o << "Saved views: " << c.Views << '\n';
    o << "Floating text: " << c.FloatingTexts << '\n';
    o << "Density: " << SingleText(m.Set.Density) << " kg/m3\n";
    o << "MaxIter: " << m.Set.MaxIter << '\n';
    o << "AllowErr: " << SingleText(m.Set.AllowErr) << '\n';
    o << "SurfaceRL: " << SingleText(m.Set.SurfaceRL) << (m.Set.SurfaceRL == 99999.0f ? " (not set)" : " m") << '\n';
    o << "SurfaceBaro: " << SingleText(m.Set.SurfaceBaro) << " kPa\n";
    o << "UnitSys: " << m.Set.UnitSys << (m.Set.UnitSys == 2 ? " (British)" : " (SI)") << '\n';
    o << "Airway capacity: " << m.Set.AirwayCapacity << '\n';
    o << "MaxFans: " << m.Set.MaxFans << '\n';
}

} // namespace

void AddInfoCommand(CommandLine& cl) {
    auto path = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    CLI::App* sub = cl.Add("info", "Counts, comment and run settings of a network", [&cl, path, json] {
        Session s(cl);
        if (!s.ok()) return ExitUsage;
        bool loaded = s.Load(*path);
        if (*json) std::cout << InfoJson(*path, loaded, s).dump(2) << '\n';
        else if (loaded) PrintInfo(*path, s);
        return loaded ? ExitOk : ExitFailure;
    });
    sub->add_option("FILE", *path, "Network file (.sim or .smm)")->required();
    sub->add_flag("--json", *json, "Print one JSON object");
}

} // namespace karvane::cli
