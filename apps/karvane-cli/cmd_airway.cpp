// airway FILE AIRWAYNO [--simulate] [--json] [--curve OUT.svg]: the information card of one
// airway, caption and value as the card shows them, optionally after an airflow run; for a fan
// airway the fan's curve with the operating point as an SVG picture.
#include <fstream>
#include <iostream>
#include <memory>

#include "commands.h"
#include "display/svg_surface.h"
#include "forms/air_info.h"
#include "output.h"
#include "session.h"
#include "simulate/run.h"

namespace karvane::cli {

namespace {

struct AirwayOptions {
    std::string File;
    std::int32_t AirwayNo = 0;
    bool Simulate = false;
    bool Json = false;
    std::string Curve;
};

// The card's picture size: the graph square and its captions.
constexpr int CurveWidth = 610, CurveHeight = 565;

nlohmann::json CardJson(const forms::AirInfoCard& card) {
    nlohmann::json j;
    j["title"] = ToUtf8(card.LblAirName);
    j["from"] = ToUtf8(card.LblCoord);
    j["to"] = ToUtf8(card.LblCoord2);
    j["rows"] = nlohmann::json::array();
    for (const auto& r : card.Rows) j["rows"].push_back({{"caption", r.Caption}, {"value", ToUtf8(r.Value)}});
    j["fan"] = nullptr;
    if (card.Wide) {
        j["fan"] = {{"name", ToUtf8(card.LblFanName)},
                    {"dutyQ", ToUtf8(card.LblDutyQ)},
                    {"dutyP", ToUtf8(card.LblDutyP)},
                    {"graph", card.Graph.Drawn},
                    {"operatingPoint", {{"x", JsonSingle(card.Graph.PointX)}, {"y", JsonSingle(card.Graph.PointY)}}}};
    }
    return j;
}

void PrintCard(const forms::AirInfoCard& card) {
    std::ostream& o = std::cout;
    o << ToUtf8(card.LblAirName) << '\n';
    o << "From: " << ToUtf8(card.LblCoord) << '\n';
    o << "To: " << ToUtf8(card.LblCoord2) << '\n';
    for (const auto& r : card.Rows) o << r.Caption << ": " << ToUtf8(r.Value) << '\n';
    if (card.Wide) {
        o << "Fan: " << ToUtf8(card.LblFanName) << '\n';
        o << "Duty: " << ToUtf8(card.LblDutyQ) << " at " << ToUtf8(card.LblDutyP) << '\n';
    }
}

int ShowAirway(const CommandLine& cl, const AirwayOptions& o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    ui::ConsoleUserInterface& ui = s.ui();
    const bool loaded = s.Load(o.File);
    Model& m = s.model();
    forms::AirInfoCard card;
    if (loaded) {
        if (o.Simulate) {
            m.SimMode = RunMode::Normal;
            m.ShowProgress = cl.Global.Progress ? 1 : 0;
            simulate::RunAirflow(m, ui);
        }
        std::int32_t row = 0;
        for (std::int32_t r = 1; r <= m.AirwayCount && row == 0; ++r)
            if (m.Airways[static_cast<std::size_t>(r)].AirwayNo == o.AirwayNo) row = r;
        if (row == 0) {
            ui.Message("No airway numbered " + std::to_string(o.AirwayNo) + " in " + o.File, "Airway",
                       ui::Icon::Critical);
        } else {
            card = forms::FillAirInfo(m, row, ui.DecimalSeparator());
        }
    }
    bool curveWritten = false;
    if (card.Row != 0 && !o.Curve.empty()) {
        if (!card.Graph.Drawn) {
            ui.Message("Airway " + std::to_string(o.AirwayNo) + " has no fan curve to draw", "Airway",
                       ui::Icon::Exclamation);
        } else {
            display::SvgSurface svg(CurveWidth, CurveHeight);
            forms::DrawFanGraph(card.Graph, svg);
            std::ofstream out(o.Curve, std::ios::binary | std::ios::trunc);
            out << svg.Document();
            out.close();
            curveWritten = static_cast<bool>(out);
            if (!curveWritten) ui.Message("Cannot write the picture " + o.Curve, "Airway", ui::Icon::Critical);
        }
    }
    if (o.Json) {
        nlohmann::json j;
        j["file"] = ToUtf8(o.File);
        j["loaded"] = loaded;
        j["airwayNo"] = o.AirwayNo;
        j["found"] = card.Row != 0;
        if (card.Row != 0) j["card"] = CardJson(card);
        if (!o.Curve.empty()) j["curveWritten"] = curveWritten;
        j["messages"] = MessagesJson(ui);
        std::cout << j.dump(2) << '\n';
    } else if (card.Row != 0) {
        PrintCard(card);
    }
    if (card.Row == 0) return ExitFailure;
    return o.Curve.empty() || curveWritten ? ExitOk : ExitFailure;
}

} // namespace

void AddAirwayCommand(CommandLine& cl) {
    auto o = std::make_shared<AirwayOptions>();
    CLI::App* sub = cl.Add("airway", "The information card of one airway, and its fan curve as SVG",
                           [&cl, o] { return ShowAirway(cl, *o); });
    sub->add_option("FILE", o->File, "Network file (.sim or .smm)")->required();
    sub->add_option("AIRWAYNO", o->AirwayNo, "The airway's number")->required();
    sub->add_flag("--simulate", o->Simulate, "Balance the airflow first");
    sub->add_flag("--json", o->Json, "Print one JSON object");
    sub->add_option("--curve", o->Curve, "Write the fan curve with its operating point as SVG");
}

} // namespace karvane::cli
