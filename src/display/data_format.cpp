// Values of airways and nodes as text, by data type, with the decorations that mark fans,
// fixed airways and parallel airways.
#include "display/data_format.h"

#include <cmath>

#include "contaminant/colours.h"
#include "engineering/resistance.h"
#include "model/data_type.h"
#include "model/number_format.h"
#include "model/units.h"
#include "simulate/energy.h"
#include "simulate/fan_model.h"

namespace karvane::display {

namespace {

constexpr const char* kFullPrecision = "0.0########";

std::string Whole(std::int64_t v) { return std::to_string(v); }

// Through the 4-decimal fixed-point type, as costs are held.
double Currency(double v) {
    if (!std::isfinite(v) || std::fabs(v) > 9e14) return v;
    return std::nearbyint(v * static_cast<double>(kFixedScale)) / static_cast<double>(kFixedScale);
}

const FanRecord* FanOfAirway(const Model& model, const Airway& a) {
    if (a.FanNumber <= 0) return nullptr;
    return simulate::FanOf(model, a.FanNumber);
}

// Pressure of a fan's curve point, times the number of fans when they stand in series.
double FanPointPressure(const Airway& a, const FanRecord& fan, int point) {
    double p = fan.FanPStatic[static_cast<std::size_t>(point)];
    if (a.Has(bc::FansInSeries)) p *= a.NoOfFans;
    return p;
}

std::string ResPresetName(const Model& model, std::int16_t resType) {
    if (resType < 0 || resType > PresetRows) return {};
    return model.Preset.ResNames[static_cast<std::size_t>(resType)];
}

std::string Decorate(const Airway& a, std::string text, bool withUnit) {
    if (!withUnit && a.FanNumber > 0) {
        std::string fan = "Fan" + Whole(a.FanNumber) + ":";
        if (a.NoOfFans > 1) fan = Whole(a.NoOfFans) + "x" + fan;
        text = fan + text;
    }
    if (a.FanNumber == -1) text = "FixP " + text;
    if (a.Has(bc::FixedFlow)) text = "FixQ " + text;
    if (a.NoAirways > 1) text = "[" + Whole(a.NoAirways) + "] " + text;
    return text;
}

} // namespace

std::string FormatValue(const Model& model, double value, int unitClass, bool withUnit, bool fullPrecision,
                        char decimalSep) {
    const float shown = ToDisplay(model, value, unitClass);
    const std::string& format = UnitFormat(model, unitClass);
    std::string text =
        FormatNumber(shown, fullPrecision ? std::string_view(kFullPrecision) : std::string_view(format), decimalSep);
    if (withUnit) {
        const std::string& label = UnitLabel(model, unitClass);
        if (unitClass == uc::Currency) {
            text = label + " " + text;
        } else {
            text += " " + label;
        }
    }
    return text;
}

bool IsNodeDataType(int dataType) {
    const auto type = static_cast<DataType>(dataType);
    return type == DataType::NodeRelative || type == DataType::NodeAbsolute || type == DataType::NodeBarometric ||
           type == DataType::Coordinates;
}

double AirwayArea(const Airway& a) {
    if (a.Has(bc::AreaEntry)) return a.Width;
    if (a.Has(bc::Rectangular)) return static_cast<double>(a.Width) * a.Height;
    if (a.Has(bc::Circular)) return static_cast<double>(a.Width) * a.Width / 4 * 3.1415927;
    return 0;
}

AirwayValueText FormatAirwayValue(const Model& model, const DisplayState& ds, int dataType, std::int32_t row,
                                  bool withUnit) {
    AirwayValueText out;
    if (row < 1 || row > model.AirwayCount || static_cast<std::size_t>(row) >= model.Airways.size()) return out;
    if (IsNodeDataType(dataType)) return out;
    const char sep = ds.DecimalSeparator;
    auto value = [&](double v, int unitClass) { return FormatValue(model, v, unitClass, withUnit, false, sep); };
    const Airway& a = model.Airways[static_cast<std::size_t>(row)];
    const double q = a.Quantity;
    const double r = a.Resistance;
    const bool fanOrFixedPressure = a.FanNumber != 0;
    const FanRecord* fan = FanOfAirway(model, a);
    std::string& text = out.Text;

    switch (static_cast<DataType>(dataType)) {
    case DataType::Quantity:
        text = value(q, uc::Flow);
        if (a.Has(bc::InView) && a.ResType != 0 && (ds.View.DisplayOptions & opt::ShowResistance) != 0) {
            out.ExtraLine = ResPresetName(model, a.ResType);
        }
        break;
    case DataType::Velocity: {
        const double parallel = a.NoAirways;
        text = value(q / AirwayArea(a) / parallel, uc::Velocity);
        break;
    }
    case DataType::TotalLoss:
        text = value(fanOrFixedPressure ? q * q * r : static_cast<double>(a.FromNodeP) - a.ToNodeP, uc::Pressure);
        break;
    case DataType::FrictionLoss: text = value(q * q * FrictionResistance(model, row), uc::Pressure); break;
    case DataType::Boost:
        if (!fanOrFixedPressure && !a.Has(bc::FixedFlow)) break;
        text = value(a.Pressure, uc::Pressure);
        if (fan && a.Pressure == StalledFanPressure) {
            out.ExtraLine = "Stall @" + value(FanPointPressure(a, *fan, 1), uc::Pressure);
        } else if (fan && a.Pressure == NegatedFanPressure) {
            out.ExtraLine = "Negate @" + value(FanPointPressure(a, *fan, 10), uc::Pressure);
        }
        break;
    case DataType::RegulatorLoad: {
        double load;
        if (!fanOrFixedPressure && !a.Has(bc::FixedFlow)) {
            load = std::fabs((static_cast<double>(a.FromNodeP) - a.ToNodeP) - q * q * FrictionResistance(model, row));
        } else {
            load = -static_cast<double>(a.Pressure);
        }
        if (std::fabs(load) == 9999) {
            text = "N/A";
        } else {
            text = value(AirwayArea(a) * load / simulate::Gravity, uc::Mass);
        }
        break;
    }
    case DataType::Resistance:
        text = value(r, uc::Resistance);
        if (a.ResType != 0) out.ExtraLine = ResPresetName(model, a.ResType);
        break;
    case DataType::ShockLength: text = value(a.ShockFactor, uc::Length); break;
    case DataType::FrictionFactor: text = value(a.WallFactor, uc::Friction); break;
    case DataType::Dimensions:
        if (a.Has(bc::AreaEntry)) {
            text = "Area " + value(a.Width, uc::Area) + "  P " + value(a.Height, uc::Length);
        } else if (a.Has(bc::Rectangular)) {
            text = value(a.Height, uc::Length) + " x " + value(a.Width, uc::Length);
        } else if (a.Has(bc::Circular)) {
            text = "Diam " + value(a.Width, uc::Length);
        }
        break;
    case DataType::AirwayLength: text = value(a.Length, uc::LongLength); break;
    case DataType::FrictionPower: text = value(simulate::AirPower(model, row), uc::Power); break;
    case DataType::FrictionCost:
        if (const auto cost = simulate::AirCost(model, row)) text = value(Currency(*cost), uc::Currency);
        break;
    case DataType::FanFixPower:
        if (const auto power = simulate::InputPower(model, row)) text = value(*power, uc::Power);
        break;
    case DataType::FanFixCost:
        if (const auto cost = simulate::InputCost(model, row)) text = value(Currency(*cost), uc::Currency);
        break;
    case DataType::AirwayNumber: text = Whole(a.AirwayNo); break;
    case DataType::LayerNumber: text = Whole(a.PrimaryLayer) + "," + Whole(a.SecondLayer); break;
    case DataType::LayerName: {
        auto name = [](const std::vector<LayerRecord>& list, std::int16_t k) -> std::string {
            if (k < 1 || static_cast<std::size_t>(k) >= list.size()) return {};
            return list[static_cast<std::size_t>(k)].Name;
        };
        text = name(model.PrimaryLayers, a.PrimaryLayer) + "," + name(model.SecondaryLayers, a.SecondLayer);
        break;
    }
    case DataType::Contaminant:
        if (model.GasActive == GasDisplay::Spread && a.Gas2 != 0) {
            text = FormatNumber(a.Gas2 + 0.2, "0", sep);
        } else if (a.Contaminant != 0) {
            text = FormatNumber(static_cast<double>(a.Contaminant) + 0.2, "0", sep);
        }
        break;
    case DataType::SpreadTime: {
        const auto& times = model.Smoke.SpreadTime;
        const float t =
            static_cast<std::size_t>(row) < times.size() ? times[static_cast<std::size_t>(row)] : NeverReached;
        if (t != NeverReached) text = value(t / contaminant::SpreadDaySeconds, uc::Time);
        break;
    }
    default: break;
    }
    if (!text.empty()) text = Decorate(a, std::move(text), withUnit);
    return out;
}

std::string FormatNodeValue(const Model& model, const DisplayState& ds, int dataType, std::int32_t row, AirwayEnd end,
                            bool withUnit) {
    if (!IsNodeDataType(dataType)) return {};
    if (row < 1 || row > model.AirwayCount || static_cast<std::size_t>(row) >= model.Airways.size()) return {};
    const Airway& a = model.Airways[static_cast<std::size_t>(row)];
    const bool to = end == AirwayEnd::To;
    const double p = to ? a.ToNodeP : a.FromNodeP;
    const std::int32_t x = to ? a.X2 : a.X1, y = to ? a.Y2 : a.Y1, z = to ? a.Z2 : a.Z1;
    const char sep = ds.DecimalSeparator;
    const auto type = static_cast<DataType>(dataType);
    if (type == DataType::Coordinates) {
        return FormatValue(model, x, uc::LongLength, false, false, sep) + "," +
               FormatValue(model, y, uc::LongLength, false, false, sep) + "," +
               FormatValue(model, z, uc::LongLength, withUnit, false, sep);
    }
    if (static_cast<float>(p) == NodeNotReached) return {};
    switch (type) {
    case DataType::NodeRelative: return FormatValue(model, p, uc::Pressure, withUnit, false, sep);
    case DataType::NodeAbsolute:
        return FormatValue(model, simulate::NodeAbsPressure(model, p), uc::AbsPressure, withUnit, false, sep);
    default: return FormatValue(model, simulate::NodeBarPressure(model, p, z), uc::AbsPressure, withUnit, false, sep);
    }
}

} // namespace karvane::display
