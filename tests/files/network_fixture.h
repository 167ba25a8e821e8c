// A network with every kind of field the network file carries, and small helpers to write it
// (or the defaults block alone) to text and to split text into lines and fields, shared by the
// tests of the files folder.
#pragma once

#include <string>
#include <vector>

#include "app_folder.h"
#include "engineering/resistance.h"
#include "files/defaults_file.h"
#include "files/network_file.h"
#include "files/text_file.h"
#include "model/level_list.h"
#include "model/node_keys.h"

namespace karvane::testing {

inline Airway MakeAirway(const char* from, const char* to, const char* name, std::int32_t x1, std::int32_t y1,
                         std::int32_t z1, std::int32_t x2, std::int32_t y2, std::int32_t z2) {
    Airway a;
    a.EntryNode = from;
    a.ExitNode = to;
    a.BranchName = name;
    a.X1 = x1, a.Y1 = y1, a.Z1 = z1, a.X2 = x2, a.Y2 = y2, a.Z2 = z2;
    a.BranchCode = bc::Rectangular;
    a.Height = 4.5f;
    a.Width = 5.0f;
    a.WallType = 4;
    a.ShockType = 1;
    a.PrimaryLayer = 1;
    a.SecondLayer = 1;
    a.NoAirways = 1;
    return a;
}

// Brings the model to the state a load leaves it in (levels sorted, first eight primary and all
// secondary layers on, keys and resistances rebuilt), so that writing it, loading the text
// and writing again must give the same bytes.
inline void SettleAsLoaded(Model& model, ui::UserInterface& ui) {
    for (int i = 0; i < PresetRows; ++i)
        if (model.Preset.ResNames[static_cast<std::size_t>(i)].empty())
            model.Preset.ResNames[static_cast<std::size_t>(i)] = "undefined";
    SortLevels(model);
    for (std::size_t i = 1; i < model.SecondaryLayers.size(); ++i) model.SecondaryLayers[i].LayerOn = -1;
    for (std::size_t i = 1; i <= 8; ++i) model.PrimaryLayers[i].LayerOn = -1;
    BuildNodeKeys(model, ui);
    RecalcAllAirways(model);
}

// Every kind of field: names with commas and full stops, a note with line breaks and tabs, a
// blocked resistance, custom presets, floating text, saved views, layers, fans with a gap.
inline void BuildFullNetwork(Model& model, ui::UserInterface& ui) {
    SetUpBuiltIn(model);
    SetNewNetworkLevels(model);
    model.Levels[3] = {"Level 2, east.", 300, 280};
    model.FileComment = "Test mine, east. No.2";
    model.FileNote = "First line\r\nSecond\tline\r\n";
    model.SgnX = -1;
    model.SgnY = 1;
    model.FanStamp = 17;

    model.Preset.WallNames[12] = "Shotcrete, wet.";
    model.Preset.WallPreset[12] = 0.0055f;
    model.Preset.ResNames[20] = "Regulator A.1";
    model.Preset.ResPreset[20] = 12.5f;
    model.Preset.ShockNames[7] = "Bend, sharp";
    model.Preset.ShockPreset[7] = 45.0f;
    model.Set.Density = 1.18f;
    model.Set.FontName[1] = "Courier New";
    model.Set.LastAirwayNo = 0;

    SavedView& v0 = model.SavedViews[0];
    v0.ViewName = "startupview";
    for (int k = 1; k <= 27; ++k) v0.ViewParam[static_cast<std::size_t>(k)] = static_cast<float>(k) * 1.5f - 10.0f;
    v0.ViewValue = {0,          131070 * kFixedScale, 65534 * kFixedScale, 33554430 * kFixedScale, 511 * kFixedScale,
                    kFixedScale};
    SavedView& v6 = model.SavedViews[6];
    v6.ViewName = "Stope view, No.3";
    v6.ViewParam[1] = 0.7853982f;
    v6.ViewParam[5] = 1234.5f;
    v6.ViewParam[23] = -150;
    v6.ViewValue[4] = 2550000;
    model.SavedViews[9].ViewName = "Ninth";
    model.SavedViews[9].ViewParam[14] = 1;

    model.PrimaryLayers[1] = {"Main, fresh.", -1};
    model.PrimaryLayers[12] = {"Old workings", 0};
    model.SecondaryLayers[5] = {"Services", -1};

    FanRecord& fan1 = model.Fans[1];
    fan1.FanName = "Main fan, No.1";
    fan1.FanDiam = 2.5f;
    FanRecord& fan3 = model.Fans[3];
    fan3.FanName = "Booster";
    for (int p = 1; p <= 10; ++p) {
        const auto k = static_cast<std::size_t>(p);
        fan1.FanPStatic[k] = 3000.0f - 250.0f * static_cast<float>(p);
        fan1.FanPTotal[k] = 3100.0f - 240.0f * static_cast<float>(p);
        fan1.FanQ[k] = 15.0f * static_cast<float>(p);
        fan1.FanEff[k] = static_cast<std::int16_t>(40 + p);
        fan3.FanPStatic[k] = 800.0f - 80.0f * static_cast<float>(p);
        fan3.FanQ[k] = 2.5f * static_cast<float>(p);
    }

    model.FloatingTexts[1] = {true, "Portal, No.1", 100, -200, 1000};
    model.FloatingTexts[4] = {true, "Fan house", 0, 0, 990};

    auto add = [&](const Airway& a) {
        model.AirwayCount += 1;
        model.Airways[static_cast<std::size_t>(model.AirwayCount)] = a;
    };
    Airway shaft = MakeAirway("Portal", "Shaft bottom", "Main shaft, No.1", 0, 0, 1000, 0, 0, 500);
    shaft.BranchCode = bc::Circular | bc::FreshAir;
    shaft.Width = 5.5f;
    shaft.Quantity = 120.25f;
    add(shaft);
    Airway drive = MakeAirway("Shaft bottom", "X.1", "Drive 1, east", 0, 0, 500, 300, -40, 490);
    drive.ResType = 20;
    drive.WallType = 12;
    drive.ShockType = 7;
    drive.Comment = "Reg. 1,2";
    drive.FanNumber = 1;
    drive.NoOfFans = 2;
    drive.BranchCode |= bc::FansInSeries;
    drive.Pressure = -9999;
    drive.FromNodeP = -1.5f;
    drive.ToNodeP = -9999999;
    drive.Contaminant = 0.00001f;
    drive.CurveFraction = 60;
    drive.Gas1 = 1;
    drive.Gas2 = 2;
    drive.RemoteStation = 3;
    drive.IconLoc = 0.2f;
    add(drive);
    Airway stopping = MakeAirway("X.1", "X.2", "Stopping", 300, -40, 490, 600, -40, 490);
    stopping.ResType = CustomPreset;
    stopping.Resistance = 1000000000.0f;
    stopping.SecondLayer = 5;
    stopping.PrimaryLayer = 12;
    add(stopping);
    Airway raise = MakeAirway("X.2", "", "Vent raise", 600, -40, 490, 600, -40, 1000);
    raise.BranchCode = bc::AreaEntry | bc::FixedLength | bc::ExhaustAir;
    raise.Width = 9.0f;
    raise.Height = 12.0f;
    raise.Length = 515.5f;
    raise.FanNumber = -1;
    raise.Pressure = 250.0f;
    raise.NoAirways = 2;
    add(raise);
    Airway fixedFlow = MakeAirway("X.1", "X.3", "", 300, -40, 490, 300, 500, 480);
    fixedFlow.BranchCode |= bc::FixedFlow | bc::ContaminantSource;
    fixedFlow.Quantity = -12.5f;
    fixedFlow.Contaminant = 1.8f;
    fixedFlow.CurveFraction = 100;
    add(fixedFlow);

    SettleAsLoaded(model, ui);
}

// The text a writer makes, through a file of its own.
template <class Write>
std::string WrittenText(Write write) {
    AppFolder dir;
    files::TextFileWriter out;
    EXPECT_EQ(out.Open(dir.File("out.txt")), 0);
    write(out);
    EXPECT_EQ(out.Commit(), 0);
    return dir.Read("out.txt");
}

inline std::string NetworkText(Model& model, char sep) {
    return WrittenText([&](files::TextFileWriter& out) { files::WriteNetwork(out, model, sep); });
}

// The defaults block as Defaults.dat and the network file hold it.
inline std::string DefaultsText(const Model& model, char sep = '.') {
    return WrittenText([&](files::TextFileWriter& out) { files::WriteDefaultsBlock(out, model, sep); });
}

inline std::vector<std::string> SplitText(const std::string& text, const std::string& by) {
    std::vector<std::string> parts;
    std::size_t start = 0, end;
    while ((end = text.find(by, start)) != std::string::npos) {
        parts.push_back(text.substr(start, end - start));
        start = end + by.size();
    }
    parts.push_back(text.substr(start));
    return parts;
}

// The lines of a file ended by CR LF (nothing after the last line end).
inline std::vector<std::string> FileLines(const std::string& text) {
    std::vector<std::string> lines = SplitText(text, "\r\n");
    if (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

inline std::string JoinLines(const std::vector<std::string>& lines, std::size_t count) {
    std::string out;
    for (std::size_t i = 0; i < count && i < lines.size(); ++i) out += lines[i] + "\r\n";
    return out;
}

} // namespace karvane::testing
