// The built-in unit table and the conversions between stored SI values and what the user
// sees and types.
#include "model/units.h"

#include <cmath>
#include <limits>

#include "model/data_type.h"
#include "model/model.h"
#include "model/number_format.h"

namespace karvane {
namespace {

struct BuiltInUnit {
    const char* SiLabel;
    const char* BritishLabel;
    float BritishFactor;
    const char* SiFormat;
    const char* BritishFormat;
};

// Classes 1 to 15: length, velocity, area, flow, resistance, density, power, pressure, mass,
// friction, currency, time, absolute pressure, long length, percent.
constexpr BuiltInUnit BuiltInUnits[UnitClassCount] = {
    {"m", "ft", 3.28084f, "0.0", "0.0"},
    {"m/s", "ft/min", 196.85f, "0.0", "0"},
    {"m2", "ft2", 10.764f, "0.0", "0.0"},
    {"m3/s", "kcf/m", 2.1189f, "0.0", "0.0"},
    {"Ns2/m8", "Rx1e9", 0.8953f, "0.00000", "0.00000"},
    {"kg/m3", "lb/ft3", 0.015f, "0.0", "0.0"},
    {"kW", "hp", 1.341f, "0", "0"},
    {"Pa", "m.in.wg", 4.0186f, "0.0", "0.0"},
    {"kg", "lb", 2.204f, "0", "0"},
    {"kg/m3", "Kx1e10", 5391.0f, "0.00000", "0.0"},
    {"$", "$", 1.0f, "0,000", "0,000"},
    {"h:m:s", "h:m:s", 1.0f, "hh:mm:ss", "hh:mm:ss"},
    {"kPa", "in.Hg", 0.2961f, "0.00", "0.00"},
    {"m", "ft", 3.28084f, "0", "0"},
    {"%", "%", 1.0f, "0", "0"},
};

bool ValidClass(int unitClass) { return unitClass >= 1 && unitClass <= UnitClassCount; }

// 1 SI, 2 British; any other stored value counts as SI.
int System(const Model& model) { return model.Set.UnitSys == 2 ? 2 : 1; }

float Factor(const Model& model, int unitClass) {
    return model.Units.Rows[static_cast<std::size_t>(unitClass)].Factor[static_cast<std::size_t>(System(model))];
}

const std::string& Empty() {
    static const std::string empty;
    return empty;
}

} // namespace

void SetBuiltInUnits(UnitTable& units) {
    units = UnitTable{};
    for (int c = 1; c <= UnitClassCount; ++c) {
        const BuiltInUnit& b = BuiltInUnits[c - 1];
        UnitRow& row = units.Rows[static_cast<std::size_t>(c)];
        row.Factor = {0.0f, 1.0f, b.BritishFactor};
        row.Label = {"", b.SiLabel, b.BritishLabel};
        row.Format = {"", b.SiFormat, b.BritishFormat};
    }
}

int DataUnit(int dataType) {
    switch (static_cast<DataType>(dataType)) {
    case DataType::Quantity: return uc::Flow;
    case DataType::Velocity: return uc::Velocity;
    case DataType::TotalLoss:
    case DataType::FrictionLoss:
    case DataType::Boost:
    case DataType::NodeRelative: return uc::Pressure;
    case DataType::RegulatorLoad: return uc::Mass;
    case DataType::NodeAbsolute:
    case DataType::NodeBarometric: return uc::AbsPressure;
    case DataType::Resistance: return uc::Resistance;
    case DataType::ShockLength:
    case DataType::Dimensions:
    case DataType::AirwayLength: return uc::Length;
    case DataType::FrictionFactor: return uc::Friction;
    case DataType::Coordinates: return uc::LongLength;
    case DataType::FrictionPower:
    case DataType::FanFixPower: return uc::Power;
    case DataType::FrictionCost:
    case DataType::FanFixCost: return uc::Currency;
    case DataType::SpreadTime: return uc::Time;
    default: return 0;
    }
}

float ToDisplay(const Model& model, double value, int unitClass) {
    const double factor = ValidClass(unitClass) ? static_cast<double>(Factor(model, unitClass)) : 1.0;
    const double shown = value * factor;
    // A value beyond the range of a Single is held at its ends rather than overflowing.
    constexpr double top = static_cast<double>(std::numeric_limits<float>::max());
    if (shown > top) return std::numeric_limits<float>::max();
    if (shown < -top) return -std::numeric_limits<float>::max();
    return static_cast<float>(shown);
}

double FromDisplay(const Model& model, std::string_view text, int unitClass) {
    const double entry = ParseLeadingNumber(text);
    if (!ValidClass(unitClass)) return entry;
    const double factor = static_cast<double>(Factor(model, unitClass));
    if (factor == 0.0 || !std::isfinite(factor)) return entry;
    return entry / factor;
}

const std::string& UnitLabel(const Model& model, int unitClass) {
    if (!ValidClass(unitClass)) return Empty();
    return model.Units.Rows[static_cast<std::size_t>(unitClass)].Label[static_cast<std::size_t>(System(model))];
}

const std::string& UnitFormat(const Model& model, int unitClass) {
    if (!ValidClass(unitClass)) return Empty();
    return model.Units.Rows[static_cast<std::size_t>(unitClass)].Format[static_cast<std::size_t>(System(model))];
}

} // namespace karvane
