// The data type lists, their memory per group, and the texts built from them.
#include "display/data_types.h"

#include <array>
#include <cctype>

#include "display/data_format.h"
#include "model/units.h"

namespace karvane::display {

namespace {

struct DataTypeEntry {
    int Type;
    const char* Value;
    const char* Menu;
};

constexpr std::array<const char*, DataGroupCount + 1> kGroups{"",       "Airflow", "Pressure", "Airway data",
                                                              "Energy", "Other"};

constexpr std::array<DataTypeEntry, 24> kTypes{{
    {12, "Quantity", "Quantity m3/s"},
    {13, "Velocity", "Velocity m/s"},
    {22, "Total Loss", "Loss  Pa"},
    {23, "Friction Loss", ""},
    {24, "Boost", "Boost Pa"},
    {25, "Regulator Load", "Load  kg"},
    {26, "Relative", "Node relative Pa"},
    {27, "Absolute", "Node atmos kPa"},
    {28, "Barometric", "Node barometric kPa"},
    {32, "Resistance", "Resistance"},
    {33, "Shock Length", "Shock Length"},
    {34, "Friction Factor", "Friction Factor"},
    {35, "Dimensions", "Dimensions"},
    {36, "Airway Length", "Airway Length"},
    {37, "Coordinates", "Coordinates"},
    {42, "Friction Power", "Friction Power"},
    {43, "Fan/Fix Power", "Fan/Fix Power"},
    {44, "Friction Cost", "Friction cost"},
    {45, "Fan/Fix Cost", "Fan/Fix cost"},
    {52, "Airway Number", "Airway Number"},
    {53, "Layer Number", "Layer Number"},
    {54, "Layer Name", "Layer Name"},
    {55, "Contaminant", "Contaminant"},
    {56, "Spread Time", "Spread Time"},
}};

const DataTypeEntry* Find(int dataType) {
    for (const DataTypeEntry& e : kTypes) {
        if (e.Type == dataType) return &e;
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
        if (DataGroupOf(e.Type) == group) names.emplace_back(e.Value);
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
        if (SameText(name, e.Value) || (e.Menu[0] != '\0' && SameText(name, e.Menu))) return e.Type;
    }
    return 0;
}

std::string DataUnitLabel(const Model& model, int dataType) {
    // Airway lengths are shown in the long length class, labelled as plain lengths.
    const int unitClass = dataType == 36 ? uc::Length : DataUnit(dataType);
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
    static constexpr std::array<std::pair<const char*, int>, 10> lines{{{"Q = ", 12},
                                                                        {"Vel = ", 13},
                                                                        {"Res = ", 32},
                                                                        {"kFac = ", 34},
                                                                        {"PLoss = ", 22},
                                                                        {"Shock = ", 33},
                                                                        {"Size = ", 35},
                                                                        {"Cost = ", 44},
                                                                        {"Power = ", 42},
                                                                        {"Layers = ", 54}}};
    std::string text = "     AIRWAY " + std::to_string(row) + "\n\n";
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text += lines[i].first + FormatAirwayValue(model, ds, lines[i].second, row, true).Text;
        if (i + 1 < lines.size()) text += "\n";
    }
    return text;
}

} // namespace karvane::display
