// The rows of the airway information card and the figures of its fan graph.
#include "forms/air_info.h"

#include <algorithm>
#include <cmath>

#include "display/data_format.h"
#include "engineering/resistance.h"
#include "model/number_format.h"
#include "model/units.h"
#include "simulate/energy.h"
#include "simulate/fan_model.h"

namespace karvane::forms {

namespace {

constexpr double kCardPi = 3.1415927; // the area of a circular airway on the card

class CardWriter {
public:
    CardWriter(const Model& model, char sep) : m_(model), sep_(sep) {}
    std::string V(double value, int unitClass) const {
        return display::FormatValue(m_, value, unitClass, true, false, sep_);
    }
    // A yearly power row: "power @ $cost/yr", or "n/a".
    std::string Power(double kw) const {
        if (!std::isfinite(kw)) return "n/a";
        const double cost = kw * m_.Set.PowerCost * simulate::HoursPerYear;
        return V(kw, uc::Power) + " @ " + FormatNumber(cost, "$#,##0", sep_, sep_ == ',' ? '.' : ',') + "/yr";
    }

private:
    const Model& m_;
    char sep_;
};

std::string OrUnnamed(const std::string& name) {
    const std::string t = TrimText(name);
    return t.empty() ? "unnamed" : t;
}

std::string LayerName(const std::vector<LayerRecord>& list, std::int16_t k) {
    if (k < 1 || static_cast<std::size_t>(k) >= list.size()) k = 1;
    if (static_cast<std::size_t>(k) >= list.size()) return {};
    const std::string name = TrimText(list[static_cast<std::size_t>(k)].Name);
    return name.empty() ? std::to_string(k) : name;
}

double CardArea(const Airway& a) {
    if (a.Has(bc::AreaEntry)) return a.Width;
    if (a.Has(bc::Circular)) return static_cast<double>(a.Width) * a.Width / 4.0 * kCardPi;
    if (a.Has(bc::Rectangular)) return static_cast<double>(a.Height) * a.Width;
    return 0;
}

std::string Coordinates(const Model& m, std::int32_t x, std::int32_t y, std::int32_t z, char sep) {
    auto n = [&](std::int32_t v, bool unit) { return display::FormatValue(m, v, uc::LongLength, unit, false, sep); };
    return "X " + n(x, false) + "  Y " + n(y, false) + "  Z " + n(z, true);
}

void FillGraph(const Model& m, std::int32_t row, const FanRecord& fan, AirInfoCard& card, char sep) {
    const Airway& a = m.Airways[static_cast<std::size_t>(row)];
    FanGraph& g = card.Graph;
    const double n = a.NoOfFans > 0 ? a.NoOfFans : 1;
    if (a.Has(bc::FansInSeries)) {
        g.PressMult = n;
    } else {
        g.FlowMult = n;
    }
    double maxQ = 0, maxP = 0;
    std::array<double, 12> q{}, p{};
    for (int k = 1; k <= FanPoints; ++k) {
        q[static_cast<std::size_t>(k)] = fan.FanQ[static_cast<std::size_t>(k)] * g.FlowMult;
        p[static_cast<std::size_t>(k)] = simulate::DatabaseCurvePressure(m, k, a.FanNumber, row) * g.PressMult;
        maxQ = std::max(maxQ, q[static_cast<std::size_t>(k)]);
        maxP = std::max(maxP, p[static_cast<std::size_t>(k)]);
    }
    g.FlowScale = maxQ / 1000.0;
    g.PressScale = maxP / 1000.0;
    g.MaxFlow = display::FormatValue(m, maxQ, uc::Flow, true, false, sep);
    g.MaxPressure = display::FormatValue(m, maxP, uc::Pressure, true, false, sep);
    if (!(g.FlowScale > 0) || !(g.PressScale > 0)) return;
    g.Drawn = true;
    for (std::size_t k = 1; k <= FanPoints; ++k) {
        g.X[k] = static_cast<float>(q[k] / g.FlowScale);
        g.Y[k] = static_cast<float>(1000.0 - p[k] / g.PressScale);
        g.EffY[k] = static_cast<float>((100 - fan.FanEff[k]) * 10);
    }
    g.PointX = static_cast<float>(a.Quantity / g.FlowScale);
    if (a.Pressure == NegatedFanPressure) {
        g.PointY = 1000;
    } else if (a.Pressure == StalledFanPressure) {
        g.PointY = 0;
    } else {
        g.PointY = static_cast<float>(1000.0 - a.Pressure / g.PressScale);
    }
    g.EffLineY = static_cast<float>(1000.0 - simulate::FanEfficiencyAt(m, row) * 10.0);
}

} // namespace

AirInfoCard FillAirInfo(const Model& m, std::int32_t row, char sep) {
    AirInfoCard card;
    if (row < 1 || row > m.AirwayCount || static_cast<std::size_t>(row) >= m.Airways.size()) return card;
    if (m.Airways[static_cast<std::size_t>(row)].BranchCode == 0) return card;
    card.Row = row;
    const Airway& a = m.Airways[static_cast<std::size_t>(row)];
    card.AirwayNo = a.AirwayNo;
    const CardWriter w(m, sep);
    const bool fixedQ = a.Has(bc::FixedFlow), fan = a.FanNumber > 0, fixedP = a.FanNumber == -1;

    std::string title = "Passive Airway ";
    if (fixedQ) title = "Fixed Quantity Airway ";
    if (fan) title = "Fan Airway ";
    if (fixedP) title = "Fixed Pressure Airway ";
    card.LblAirName = title + std::to_string(a.AirwayNo);
    if (a.NoAirways > 1) card.LblAirName += " x " + std::to_string(a.NoAirways);
    card.LblCoord = Coordinates(m, a.X1, a.Y1, a.Z1, sep);
    card.LblCoord2 = Coordinates(m, a.X2, a.Y2, a.Z2, sep);

    auto add = [&](const char* caption, std::string value) {
        if (card.Rows.size() < AirInfoMaxRows) card.Rows.push_back({caption, std::move(value)});
    };
    const double area = CardArea(a);
    const double q = a.Quantity, p1 = a.FromNodeP, p2 = a.ToNodeP;
    add("Branch name", OrUnnamed(a.BranchName));
    add("Node names", OrUnnamed(a.EntryNode) + " to " + OrUnnamed(a.ExitNode));
    if (a.Has(bc::AreaEntry)) {
        add("Dimensions", "Area " + w.V(area, uc::Area) + " Per " + w.V(a.Height, uc::Length));
    } else if (a.Has(bc::Circular)) {
        add("Dimensions", w.V(area, uc::Area) + " : Diam " + w.V(a.Width, uc::Length));
    } else {
        add("Dimensions", w.V(area, uc::Area) + " : " + w.V(a.Height, uc::Length) + " x " + w.V(a.Width, uc::Length));
    }
    const double parallel = a.NoAirways > 0 ? a.NoAirways : 1;
    add("Airflow", area != 0 ? w.V(q, uc::Flow) + " @ " + w.V(q / area / parallel, uc::Velocity) : w.V(q, uc::Flow));
    std::string resistance = w.V(a.Resistance, uc::Resistance);
    if (a.ResType == CustomPreset) {
        resistance = "Fixed " + resistance;
    } else if (a.ResType > 0 && a.ResType < PresetRows) {
        resistance += " " + TrimText(m.Preset.ResNames[static_cast<std::size_t>(a.ResType)]);
    }
    add("Resistance", resistance);
    add("Length", w.V(a.Length, uc::Length));
    add("Layer Names", LayerName(m.PrimaryLayers, a.PrimaryLayer) + ", " + LayerName(m.SecondaryLayers, a.SecondLayer));
    add("Node Rel Pres", w.V(p1, uc::Pressure) + " to " + w.V(p2, uc::Pressure));
    add("Node Abs Pres", w.V(simulate::NodeAbsPressure(m, p1), uc::AbsPressure) + " to " +
                             w.V(simulate::NodeAbsPressure(m, p2), uc::AbsPressure));
    add("Node Bar Pres", w.V(simulate::NodeBarPressure(m, p1, a.Z1), uc::AbsPressure) + " to " +
                             w.V(simulate::NodeBarPressure(m, p2, a.Z2), uc::AbsPressure));
    const double friction = FrictionResistance(m, row) * q * q;
    add("Friction Loss", w.V(friction, uc::Pressure));
    add("Total Press Loss", w.V(std::fabs(p1 - p2), uc::Pressure));
    const double load = std::fabs(p1 - p2 - friction);
    add("Pressure Load", w.V(load, uc::Pressure) + "  @  " + w.V(load * area / simulate::Gravity, uc::Mass));

    // The pressure the fan or the fixed pressure puts in, static and total.
    const FanRecord* record = fan ? simulate::FanOf(m, a.FanNumber) : nullptr;
    double total = a.Pressure;
    if (fan || fixedP) {
        double pv = 0;
        const double diam = record ? record->FanDiam : 0.0;
        const double af = fan ? diam * diam * simulate::FanPi / 4.0 * a.NoOfFans : 0.0;
        if (af != 0) pv = (q / af) * (q / af) * m.Set.Density / 2.0;
        total = a.Pressure + (1.0 - a.CurveFraction / 100.0) * pv;
        std::string text = std::string(a.Pressure >= 0 ? "+ " : "- ") + "Static " +
                           w.V(std::fabs(a.Pressure), uc::Pressure) + "  Total " + w.V(std::fabs(total), uc::Pressure);
        if (a.Pressure == StalledFanPressure) {
            const double stall = record ? simulate::DatabaseCurvePressure(m, 1, a.FanNumber, row) : 0.0;
            text =
                "Stalled +" + w.V(stall * (a.Has(bc::FansInSeries) && a.NoOfFans > 1 ? a.NoOfFans : 1), uc::Pressure);
        } else if (a.Pressure == NegatedFanPressure) {
            text = "Negated";
        }
        add(fan ? "Fan Pressures" : "Fix Pressure", text);
        card.LblDutyP = text;
        card.LblDutyQ = w.V(q, uc::Flow);
    } else if (fixedQ) {
        add("Fixed Q Pres", w.V(a.Pressure, uc::Pressure));
    }
    const float efficiency = simulate::FanEfficiencyAt(m, row);
    if (fixedQ) {
        add("Fixed Q Power", a.Pressure <= 0 ? "n/a" : w.Power(q * a.Pressure / 1000.0 / m.Set.AirEfficiency));
    }
    if (fixedP) add("Fixed P Power", a.Pressure <= 0 ? "n/a" : w.Power(q * a.Pressure / 1000.0 / (efficiency / 100.0)));
    if (fan) {
        const bool none = a.Pressure <= 0 || a.Pressure == NegatedFanPressure;
        add("Fan Power", none ? "n/a" : w.Power(q * total / 1000.0 / (efficiency / 100.0)));
        add("Fan Efficiency", FormatNumber(efficiency / 100.0, "0 %", sep));
    }
    if (fixedQ && a.FanNumber == 0) {
        add("Required Res",
            q == 0 || a.Pressure >= 0 ? "Infinite" : w.V(std::fabs(a.Pressure) / (q * q), uc::Resistance));
    }

    if (fan && record) {
        card.Wide = true;
        card.LblFanName = TrimText(record->FanName) + " x " + std::to_string(a.NoOfFans);
        if (a.NoOfFans > 1) card.LblFanName += a.Has(bc::FansInSeries) ? " in series" : " in parallel";
        FillGraph(m, row, *record, card, sep);
    }
    return card;
}

GraphReadout ReadFanGraph(const Model& model, const FanGraph& graph, double x, double y, char sep) {
    GraphReadout r;
    r.LblQ = display::FormatValue(model, x * graph.FlowScale, uc::Flow, true, false, sep);
    r.LblP = display::FormatValue(model, (1000.0 - y) * graph.PressScale, uc::Pressure, true, false, sep);
    return r;
}

void DrawFanGraph(const FanGraph& g, display::Surface& s) {
    constexpr display::Colour black = Rgb(0, 0, 0), blue = Rgb(0, 0, 255), red = Rgb(255, 0, 0);
    s.SetCoordinateBox(GraphLeft, GraphTop, GraphWidth, GraphHeight);
    s.SetBackColour(Rgb(255, 255, 255));
    s.Clear();
    if (!g.Drawn) return;
    s.SetDrawMode(display::DrawMode::Copy);
    s.SetLineWidth(1);
    s.SetLineStyle(display::LineStyle::Solid);
    for (std::size_t k = 1; k < 10; ++k) {
        s.Line(g.X[k], g.Y[k], g.X[k + 1], g.Y[k + 1], black);
        s.Line(g.X[k], g.EffY[k], g.X[k + 1], g.EffY[k + 1], blue);
    }
    s.SetForeColour(red);
    for (std::size_t k = 1; k <= 9; ++k) s.Circle(g.X[k], g.Y[k], 10);
    // The operating point, with its leaders to the axes and along the efficiency.
    const float x = g.PointX, y = g.PointY;
    s.SetLineStyle(display::LineStyle::Dotted);
    s.Line(0, y, x, y, black);
    s.Line(x, y, x, 1000, black);
    s.Line(x, y, x, g.EffLineY, blue);
    s.Line(x, g.EffLineY, 1000, g.EffLineY, blue);
    s.SetLineStyle(display::LineStyle::Solid);
    s.SetLineWidth(3);
    s.Line(x - 20, y - 20, x + 20, y + 20, red);
    s.Line(x - 20, y + 20, x + 20, y - 20, red);
    // Captions in a small serif face, then the axes.
    s.SetFontName("Times New Roman");
    s.SetFontSize(7);
    s.SetFontBold(false);
    s.SetForeColour(black);
    auto text = [&](float tx, float ty, const std::string& t) {
        s.SetCurrentPoint(tx, ty);
        s.PrintText(t);
    };
    const float h = s.TextHeight("0");
    text(0, -h - 6, g.MaxPressure);
    text(1000 - s.TextWidth(g.MaxFlow), 1000 + 4, g.MaxFlow);
    text(-s.TextWidth("0,0") - 4, 1000 + 4, "0,0");
    s.SetForeColour(blue);
    text(1000 + 6, 2, "100%");
    text(1000 + 6, 500 - h / 2, "Eff");
    s.SetLineWidth(2);
    s.Line(0, 0, 0, 1000, black);
    s.LineTo(1000, 1000, black);
    s.LineTo(1000, 0, black);
    s.SetLineWidth(1);
    s.Refresh();
}

} // namespace karvane::forms
