// The data type lists, their memory per group, and the texts built from them.
#include "display/data_types.h"

#include <array>
#include <cctype>

#include "display/data_format.h"
#include "model/data_type.h"
#include "model/units.h"

namespace karvane::display {

namespace {

struct DataTypeEntry {
    DataType Type;
    const char* Value;
    const char* Menu;
};

constexpr std::array<const char*, DataGroupCount + 1> kGroups{"",       "Airflow", "Pressure", "Airway data",
                                                              "Energy", "Other"};

constexpr std::array<DataTypeEntry, 24> kTypes{{
    {DataType::Quantity, "Quantity", "Quantity m3/s"},
    {DataType::Velocity, "Velocity", "Velocity m/s"},
    {DataType::TotalLoss, "Total Loss", "Loss  Pa"},
    {DataType::FrictionLoss, "Friction Loss", ""},
    {DataType::Boost, "Boost", "Boost Pa"},
    {DataType::RegulatorLoad, "Regulator Load", "Load  kg"},
    {DataType::NodeRelative, "Relative", "Node relative Pa"},
    {DataType::NodeAbsolute, "Absolute", "Node atmos kPa"},
    {DataType::NodeBarometric, "Barometric", "Node barometric kPa"},
    {DataType::Resistance, "Resistance", "Resistance"},
    {DataType::ShockLength, "Shock Length", "Shock Length"},
    {DataType::FrictionFactor, "Friction Factor", "Friction Factor"},
    {DataType::Dimensions, "Dimensions", "Dimensions"},
    {DataType::AirwayLength, "Airway Length", "Airway Length"},
    {DataType::Coordinates, "Coordinates", "Coordinates"},
    {DataType::FrictionPower, "Friction Power", "Friction Power"},
    {DataType::FanFixPower, "Fan/Fix Power", "Fan/Fix Power"},
    {DataType::FrictionCost, "Friction Cost", "Friction cost"},
    {DataType::FanFixCost, "Fan/Fix Cost", "Fan/Fix cost"},
    {DataType::AirwayNumber, "Airway Number", "Airway Number"},
    {DataType::LayerNumber, "Layer Number", "Layer Number"},
    {DataType::LayerName, "Layer Name", "Layer Name"},
    {DataType::Contaminant, "Contaminant", "Contaminant"},
    {DataType::SpreadTime, "Spread Time", "Spread Time"},
}};

const DataTypeEntry* Find(int dataType) {
    for (const DataTypeEntry& e : kTypes) {
        if (DataTypeNumber(e.Type) == dataType) return &e;
    }
    return nullptr;
}

bool SameText(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) {
            return false;
        }
    }
    return true;
}

} // namespace

bool IsDataType(int dataType) { return Find(dataType) != nullptr; }

std::string_view DataGroupName(int group) {
    if (group < 1 || group > DataGroupCount) return {};
    return kGroups[static_cast<std::size_t>(group)];
}

std::vector<std::string> DataValueNames(int group) {
    std::vector<std::string> names;
    for (const DataTypeEntry& e : kTypes) {
        if (DataGroupOf(DataTypeNumber(e.Type)) == group) names.emplace_back(e.Value);
    }
    return names;
}

std::string_view DataValueName(int dataType) {
    const DataTypeEntry* e = Find(dataType);
    return e ? std::string_view(e->Value) : std::string_view();
}

std::string_view DataMenuCaption(int dataType) {
    const DataTypeEntry* e = Find(dataType);
    return e ? std::string_view(e->Menu) : std::string_view();
}

int DataTypeByName(std::string_view name) {
    for (const DataTypeEntry& e : kTypes) {
        if (SameText(name, e.Value) || (e.Menu[0] != '\0' && SameText(name, e.Menu))) return DataTypeNumber(e.Type);
    }
    return 0;
}

std::string DataUnitLabel(const Model& model, int dataType) {
    // Airway lengths are shown in the long length class, labelled as plain lengths.
    const int unitClass = dataType == DataTypeNumber(DataType::AirwayLength) ? uc::Length : DataUnit(dataType);
    return unitClass == 0 ? std::string() : UnitLabel(model, unitClass);
}

int ChooseDataGroup(const Model& model, DisplayState& ds, int group) {
    if (group < 1 || group > DataGroupCount) return ds.View.DataType;
    auto& remembered = ds.GroupValue[static_cast<std::size_t>(group)];
    int type = group * 10 + std::max<int>(2, remembered);
    if (!IsDataType(type)) type = group * 10 + 2;
    ChooseDataType(model, ds, type);
    return type;
}

void ChooseDataType(const Model& model, DisplayState& ds, int dataType) {
    if (!IsDataType(dataType)) return;
    ds.View.DataType = static_cast<std::int16_t>(dataType);
    ds.GroupValue[static_cast<std::size_t>(DataGroupOf(dataType))] = static_cast<std::int16_t>(dataType % 10);
    ds.Labels.Unit = DataUnitLabel(model, dataType);
}

std::string LevelListText(const Model& model, const DisplayState& ds) {
    const int row = ds.View.CurrentLevel;
    if (ds.View.LevelMode != lm::Single || row < 1 || static_cast<std::size_t>(row) >= model.Levels.size()) return {};
    return TrimText(model.Levels[static_cast<std::size_t>(row)].RLName);
}

std::string ViewWindowCaption(const Model& model, const DisplayState& ds, int windowNumber) {
    return "View " + std::to_string(windowNumber + 1) + " : " + LevelListText(model, ds) + " " +
           std::string(DataValueName(ds.View.DataType));
}

std::string InfoPopupText(const Model& model, const DisplayState& ds, std::int32_t row) {
    static constexpr std::array<std::pair<const char*, DataType>, 10> lines{{{"Q = ", DataType::Quantity},
                                                                             {"Vel = ", DataType::Velocity},
                                                                             {"Res = ", DataType::Resistance},
                                                                             {"kFac = ", DataType::FrictionFactor},
                                                                             {"PLoss = ", DataType::TotalLoss},
                                                                             {"Shock = ", DataType::ShockLength},
                                                                             {"Size = ", DataType::Dimensions},
                                                                             {"Cost = ", DataType::FrictionCost},
                                                                             {"Power = ", DataType::FrictionPower},
                                                                             {"Layers = ", DataType::LayerName}}};
    std::string text = "     AIRWAY " + std::to_string(row) + "\n\n";
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text += lines[i].first + FormatAirwayValue(model, ds, DataTypeNumber(lines[i].second), row, true).Text;
        if (i + 1 < lines.size()) text += "\n";
    }
    return text;
}

} // namespace karvane::display
