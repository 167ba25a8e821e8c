// The summary figures and the error list as the simulation commands print them.
#include "run_report.h"

#include <cmath>
#include <iomanip>
#include <sstream>

#include "output.h"
#include "simulate/summary.h"

namespace karvane::cli {

namespace {

nlohmann::json OptionalNumber(const std::optional<double>& v) {
    if (!v || *v != *v) return nullptr;
    return *v;
}

// A figure for a text line: whole numbers without a fraction, others to a few significant
// digits.
std::string FigureText(double v) {
    std::ostringstream s;
    if (v == static_cast<double>(static_cast<long long>(v)) && v > -1e15 && v < 1e15) s << static_cast<long long>(v);
    else s << std::setprecision(6) << v;
    return s.str();
}

} // namespace

nlohmann::json TotalsJson(const Model& model) { return TotalsJson(simulate::Summarize(model)); }

nlohmann::json TotalsJson(const simulate::SummaryFigures& f) {
    return {{"totalFlow", JsonSingle(f.Sums.TotalFlow)},
            {"totalAirflow", f.TotalAirflow},
            {"airPowerKW", f.AirPowerKW},
            {"inputPowerKW", f.InputPowerKW},
            {"efficiency", OptionalNumber(f.Efficiency)},
            {"mineResistance", OptionalNumber(f.MineResistance)},
            {"annualCost", f.AnnualCost},
            {"numberOfAirways", f.NumberOfAirways},
            {"lengthOfAirways", f.LengthOfAirways},
            {"numberOfFans", f.NumberOfFans}};
}

void PrintSummary(std::ostream& o, const Model& model) {
    const simulate::SummaryFigures f = simulate::Summarize(model);
    o << "Total Airflow: " << FigureText(f.TotalAirflow) << " m3/s\n";
    o << "Total Air Power: " << FigureText(f.AirPowerKW) << " kW\n";
    o << "Network Input Power: " << FigureText(f.InputPowerKW) << " kW\n";
    o << "Network Efficiency: " << (f.Efficiency ? simulate::EfficiencyText(*f.Efficiency, '.') : "-") << '\n';
    o << "Mine Resistance: " << (f.MineResistance ? FigureText(*f.MineResistance) + " Ns2/m8" : "-") << '\n';
    o << "Annual Power Cost: " << simulate::AnnualCostText(f.AnnualCost, '.') << '\n';
    o << "Number of Airways: " << f.NumberOfAirways << '\n';
    o << "Length of Airways: " << FigureText(std::round(f.LengthOfAirways * 10.0) / 10.0) << " m\n";
    o << "Number of Fans: " << f.NumberOfFans << '\n';
}

void PrintErrorList(std::ostream& o, const Model& model) {
    o << "Errors: " << model.ErrorList.size() << '\n';
    if (model.ErrorList.empty()) return;
    o << std::setw(8) << "AirwayNo"
      << "  Text\n";
    for (const NetworkError& e : model.ErrorList) o << std::setw(8) << e.AirwayNo << "  " << ToUtf8(e.Text) << '\n';
}

nlohmann::json NetworkResultJson(const std::string& path, bool loaded, const Model& model,
                                 const ui::ConsoleUserInterface& ui) {
    nlohmann::json j;
    j["file"] = ToUtf8(path);
    j["loaded"] = loaded;
    if (loaded) {
        j["simFail"] = static_cast<int>(model.SimFail);
        j["simValid"] = model.SimValid != Validity::NotValid;
        j["totals"] = TotalsJson(model);
        j["errors"] = ErrorListJson(model);
        j["airways"] = AirwaysJson(model);
    }
    j["messages"] = MessagesJson(ui);
    return j;
}

} // namespace karvane::cli
