// Settings written by older versions: Defaults.dat of 1.0 to 2.7 and the row and line forms of
// network files up to 2.7, brought into today's settings and preset tables.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

#include "files/defaults_file.h"
#include "files/number_text.h"
#include "files/old_settings.h"

namespace karvane::files {
namespace {

// Each setter stores one item of a file; an empty setter drops its item.
using Setter = std::function<void(const std::string&)>;

Setter I16(std::int16_t& t) {
    return [&t](const std::string& v) { t = ToInt16(ParseNumber(v)); };
}
Setter I32(std::int32_t& t) {
    return [&t](const std::string& v) { t = ToInt32(ParseNumber(v)); };
}
Setter F32(float& t) {
    return [&t](const std::string& v) { t = ToSingle(ParseNumber(v)); };
}
Setter F64(double& t) {
    return [&t](const std::string& v) { t = ParseNumber(v); };
}
Setter Text(std::string& t) {
    return [&t](const std::string& v) { t = TrimText(v); };
}
Setter Flag(bool& t) {
    return [&t](const std::string& v) { t = ParseBool(v); };
}
Setter PresetIndex(std::int16_t& t) {
    return [&t](const std::string& v) { t = HeldPresetIndex(ParseNumber(v)); };
}
Setter ShockIndex(float& t) {
    return [&t](const std::string& v) { t = static_cast<float>(HeldPresetIndex(ParseNumber(v))); };
}
Setter Capacity(std::int32_t& t) {
    return [&t](const std::string& v) { t = HeldCapacity(ParseNumber(v)); };
}
Setter MaxFans(std::int16_t& t) {
    return [&t](const std::string& v) { t = ReadMaxFans(ParseNumber(v)); };
}
// A value of 0 in an old file means "not given": `fallback` stands in for it.
Setter F32Or(float& t, float fallback) {
    return [&t, fallback](const std::string& v) {
        t = ToSingle(ParseNumber(v));
        if (t == 0.0f) t = fallback;
    };
}

// The settings line of a network's line form: a numeric field of 0 (or an empty text) leaves
// the setting as it is.
Setter Given(Setter set) {
    return [set = std::move(set)](const std::string& v) {
        if (IsNumber(v) ? ParseNumber(v) != 0.0 : !TrimText(v).empty()) set(v);
    };
}
Setter GivenFlag(bool& t) {
    return [&t](const std::string& v) {
        std::string word = TrimText(v);
        for (char& c : word) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (word == "true" || word == "false" || ParseNumber(word) != 0.0) t = ParseBool(word);
    };
}

// The items of one line of a comma-separated file: blanks around an item are dropped, an item in
// quotes keeps its commas and loses its quotes.
std::vector<std::string> SplitItems(const std::string& line) {
    std::vector<std::string> items;
    std::size_t i = 0, n = line.size();
    while (true) {
        while (i < n && line[i] == ' ') ++i;
        std::string item;
        if (i < n && line[i] == '"') {
            for (++i; i < n && line[i] != '"'; ++i) item += line[i];
            while (i < n && line[i] != ',') ++i;
        } else {
            for (; i < n && line[i] != ','; ++i) item += line[i];
            item = TrimText(item);
        }
        items.push_back(item);
        if (i >= n) break;
        ++i; // past the comma
    }
    return items;
}

// Items of a comma-separated file read one after the other across its lines, as the old
// program wrote them: several to a line or one a line.
class ItemReader {
public:
    explicit ItemReader(TextFileReader& in) : in_(in) {}
    bool Next(std::string& item) {
        while (pos_ >= items_.size()) {
            std::string line;
            if (!in_.ReadLine(line)) return false;
            items_ = SplitItems(line);
            pos_ = 0;
        }
        item = items_[pos_++];
        return true;
    }
    bool AtEnd() const { return pos_ >= items_.size() && in_.AtEnd(); }

private:
    TextFileReader& in_;
    std::vector<std::string> items_;
    std::size_t pos_ = 0;
};

int Take(ItemReader& r, std::initializer_list<Setter> setters) {
    std::string v;
    for (const auto& set : setters) {
        if (!r.Next(v)) return err::PastEndOfFile;
        if (set) set(v);
    }
    return err::None;
}

// Pairs of name and value for the preset rows first..last.
int TakePairs(ItemReader& r, std::array<std::string, PresetRows + 1>& names, std::array<float, PresetRows + 1>& values,
              int first, int last, const std::function<float(const std::string&)>& value) {
    std::string name, v;
    for (int i = first; i <= last; ++i) {
        if (!r.Next(name)) return err::PastEndOfFile;
        names[i] = TrimText(name);
        if (!r.Next(v)) return err::PastEndOfFile;
        values[i] = value(v);
    }
    return err::None;
}

// Applies `setters` to fields 1.. of one split line.
void TakeFields(const Fields& f, std::initializer_list<std::pair<int, Setter>> setters) {
    for (const auto& [field, set] : setters) set(f[field]);
}

float PlainValue(const std::string& v) { return ToSingle(ParseNumber(v)); }

} // namespace

float OldFrictionValue(double value) { return ToSingle(std::nearbyint(value / 1.2 * 10000.0) / 10000.0); }

std::int32_t HeldCapacity(double value) {
    return std::clamp(ToInt32(value), 50, static_cast<std::int32_t>(MaxAirways));
}

std::int16_t HeldPresetIndex(double value) {
    return std::clamp(ToInt16(value), std::int16_t{0}, static_cast<std::int16_t>(CustomPreset));
}

std::int16_t ReadMaxFans(double value) {
    std::int16_t v = ToInt16(value);
    return v < 1 ? DefaultMaxFans : v;
}

std::int16_t ReadUnitSys(double value) {
    std::int16_t v = ToInt16(value);
    return v == 2 ? std::int16_t{2} : std::int16_t{1};
}

void ApplyBlockedResRule(Model& model) {
    if (model.Preset.ResPreset[1] >= 100000.0f) model.Preset.ResPreset[1] = static_cast<float>(model.Set.BlockedRes);
}

std::string ResNameOf(const std::string& field) {
    std::string name = TrimText(field);
    return name.empty() ? "undefined" : name;
}

bool SettingsLines::Next() {
    if (!in_.ReadLine(line_)) return false;
    SplitFields(version_, line_, fields_);
    return true;
}

void SettingsLines::SkipClosingLine() {
    if (!in_.AtEnd()) in_.ReadLine(line_);
}

int ReadPresetLines(SettingsLines& lines, std::array<std::string, PresetRows + 1>& names,
                    std::array<float, PresetRows + 1>& values, int first, int last, PresetNames rule, bool friction) {
    if (!lines.Next()) return err::PastEndOfFile;
    for (int i = first; i <= last; ++i) {
        const std::string name = TrimText(lines.F()[i - first + 1]);
        if (rule == PresetNames::Plain) names[i] = name;
        else if (i < PresetRows) names[i] = ResNameOf(name);
        else if (!name.empty()) names[i] = name;
    }
    if (!lines.Next()) return err::PastEndOfFile;
    for (int i = first; i <= last; ++i) {
        const double v = ParseNumber(lines.F()[i - first + 1]);
        values[i] = friction && lines.Version() < 2.4 ? OldFrictionValue(v) : ToSingle(v);
    }
    return err::None;
}

int ReadOldDefaultsCommaForm(TextFileReader& in, Model& model, double version, const std::string& rest) {
    Presets& p = model.Preset;
    Settings& s = model.Set;
    ItemReader r(in);
    auto friction = [version](const std::string& v) {
        return version < 2.4 ? OldFrictionValue(ParseNumber(v)) : PlainValue(v);
    };
    int code = TakePairs(r, p.WallNames, p.WallPreset, 0, 10, friction);
    if (code == err::None) code = TakePairs(r, p.ResNames, p.ResPreset, 0, 10, PlainValue);
    if (code == err::None && rest == "KARVANE2") code = TakePairs(r, p.ResNames, p.ResPreset, 11, 49, PlainValue);
    ApplyBlockedResRule(model);
    if (code == err::None) code = TakePairs(r, p.ShockNames, p.ShockPreset, 0, 6, PlainValue);
    if (code != err::None) return code;

    code = Take(r, {I16(s.NodeDivisions), F64(s.GridSpacing), I16(s.PickDivisions), nullptr, nullptr, nullptr, nullptr,
                    PresetIndex(s.DriveWallType), ShockIndex(s.DefaultShock), F32(s.DriveHeight), F32(s.DriveWidth),
                    F32(s.RaiseDiameter)});
    if (code != err::None) return code;
    code = Take(r, {Text(s.SurfaceName), I16(s.MaxIter), F32(s.AllowErr), nullptr, nullptr, nullptr, nullptr, nullptr,
                    nullptr, nullptr});
    if (code != err::None) return code;
    code = Take(r, {Capacity(s.AirwayCapacity), F32(s.PowerCost), F32(s.AirEfficiency), PresetIndex(s.RaiseWallType),
                    F32Or(s.Density, 1.2f), MaxFans(s.MaxFans), F32(s.SpinSpeed), F32(s.TiltSpeed), I16(s.FullRotation),
                    I16(s.FreshExhaust), I16(s.AttributeMask), I16(s.DisplayOptions), F32Or(s.SurfaceBaro, 101),
                    Flag(s.ScreenBuffer), nullptr});
    if (code != err::None) return code;
    for (auto& colour : s.Colours)
        if ((code = Take(r, {I32(colour)})) != err::None) return code;

    // The fonts came later: a file that ends here is complete.
    if (r.AtEnd()) return err::None;
    for (int k = 1; k <= 3 && code == err::None; ++k) code = Take(r, {Text(s.FontName[k])});
    for (int k = 1; k <= 3 && code == err::None; ++k) code = Take(r, {I16(s.FontBold[k])});
    for (int k = 1; k <= 3 && code == err::None; ++k) code = Take(r, {I16(s.FontSize[k])});
    return code;
}

int ReadOldDefaultsLineForm(TextFileReader& in, Model& model, double version) {
    Presets& p = model.Preset;
    Settings& s = model.Set;
    SettingsLines lines(in, version);
    int code = ReadPresetLines(lines, p.WallNames, p.WallPreset, 0, 10, PresetNames::Plain, true);
    // Resistance rows 11 to 50: the bulkhead and the doors of rows 0 to 10 are not in this form.
    if (code == err::None)
        code = ReadPresetLines(lines, p.ResNames, p.ResPreset, 11, PresetRows, PresetNames::Resistance);
    if (code != err::None) return code;
    p.ResPreset[1] = static_cast<float>(s.BlockedRes);
    if ((code = ReadPresetLines(lines, p.ShockNames, p.ShockPreset, 0, 6, PresetNames::Plain)) != err::None)
        return code;

    if (!lines.Next()) return err::PastEndOfFile;
    const Fields& f = lines.F();
    TakeFields(f, {{1, I16(s.NodeDivisions)},
                   {2, F64(s.GridSpacing)},
                   {3, I16(s.PickDivisions)},
                   {8, PresetIndex(s.DriveWallType)},
                   {9, ShockIndex(s.DefaultShock)},
                   {10, F32(s.DriveHeight)},
                   {11, F32(s.DriveWidth)},
                   {12, F32(s.RaiseDiameter)},
                   {13, Text(s.SurfaceName)},
                   {14, I16(s.MaxIter)},
                   {15, F32(s.AllowErr)},
                   {23, Capacity(s.AirwayCapacity)},
                   {24, F32(s.PowerCost)},
                   {25, F32(s.AirEfficiency)},
                   {26, PresetIndex(s.RaiseWallType)},
                   {27, F32Or(s.Density, 1.2f)},
                   {28, MaxFans(s.MaxFans)},
                   {29, F32(s.SpinSpeed)},
                   {30, F32(s.TiltSpeed)},
                   {31, I16(s.FullRotation)},
                   {32, I16(s.FreshExhaust)},
                   {33, I16(s.AttributeMask)},
                   {34, I16(s.DisplayOptions)},
                   {35, F32Or(s.SurfaceBaro, 101)},
                   {36, Flag(s.ScreenBuffer)}});
    return err::None;
}

int ReadNetworkSettingsRowForm(TextFileReader& in, Model& model, double version, char /*sep*/) {
    Presets& p = model.Preset;
    Fields f;
    std::string line;
    // One preset a line: its number, its name and its value. Rows go by the order of the lines.
    auto rows = [&](std::array<std::string, PresetRows + 1>& names, std::array<float, PresetRows + 1>& values,
                    int count, bool friction) {
        for (int i = 0; i < count; ++i) {
            if (!in.ReadLine(line)) return false;
            SplitFields(version, line, f);
            names[i] = TrimText(f[2]);
            double v = ParseNumber(f[3]);
            values[i] = friction && version < 2.4 ? OldFrictionValue(v) : ToSingle(v);
        }
        return true;
    };
    if (!rows(p.WallNames, p.WallPreset, 11, true)) return err::PastEndOfFile;
    if (!rows(p.ResNames, p.ResPreset, 11, false)) return err::PastEndOfFile;
    // Row 10 was the custom resistance of these versions; it and all later rows are unused.
    for (int i = 10; i < PresetRows; ++i) {
        p.ResNames[i] = "undefined";
        p.ResPreset[i] = 0;
    }
    if (!rows(p.ShockNames, p.ShockPreset, 7, false)) return err::PastEndOfFile;
    return err::None;
}

int ReadNetworkSettingsLineForm(TextFileReader& in, Model& model, double version, char /*sep*/) {
    Presets& p = model.Preset;
    Settings& s = model.Set;
    SettingsLines lines(in, version);
    int code = ReadPresetLines(lines, p.WallNames, p.WallPreset, 0, 10, PresetNames::Plain, true);
    if (code == err::None)
        code = ReadPresetLines(lines, p.ResNames, p.ResPreset, 0, PresetRows - 1, PresetNames::Resistance);
    if (code == err::None) code = ReadPresetLines(lines, p.ShockNames, p.ShockPreset, 0, 6, PresetNames::Plain);
    if (code != err::None) return code;

    if (!lines.Next()) return err::PastEndOfFile;
    const Fields& f = lines.F();
    // Field 1 is unused; 32 and 36 held the name of font 4 as a number and 35 a menu tick, none
    // of which means anything today (the fonts of these versions all become "Arial" on loading).
    if (TrimText(f[13]).empty()) s.DisplayOptions = 511;
    TakeFields(
        f, {{2, Given(F32(s.PowerCost))},       {4, Given(F32(s.AirEfficiency))},     {6, Given(F32(s.Density))},
            {7, Given(I32(s.DimOptions))},      {8, Given(F32(s.SpinSpeed))},         {9, Given(F32(s.TiltSpeed))},
            {10, Given(I16(s.FullRotation))},   {11, Given(I16(s.FreshExhaust))},     {12, Given(I16(s.AttributeMask))},
            {13, Given(I16(s.DisplayOptions))}, {14, Given(Text(s.FontName[1]))},     {15, Given(Text(s.FontName[2]))},
            {16, Given(Text(s.FontName[3]))},   {17, Given(I16(s.FontBold[1]))},      {18, Given(I16(s.FontBold[2]))},
            {19, Given(I16(s.FontBold[3]))},    {20, Given(I16(s.FontSize[1]))},      {21, Given(I16(s.FontSize[2]))},
            {22, Given(I16(s.FontSize[3]))},    {23, Given(F32(s.SurfaceRL))},        {24, Given(I16(s.DxfNodeCircle))},
            {25, Given(I16(s.DxfArrow))},       {26, Given(I16(s.DxfData))},          {27, Given(I16(s.DxfAirway))},
            {28, Given(I16(s.DxfNode))},        {29, Given(I16(s.DataFilter))},       {30, Given(I16(s.FontBold[4]))},
            {31, Given(I16(s.FontSize[4]))},    {33, Given(I16(s.DxfFloat))},         {34, GivenFlag(s.ScreenBuffer)},
            {37, Given(I16(s.FontBold[4]))},    {38, Given(I16(s.FontSize[4]))},      {39, Given(I16(s.ScaleFonts))},
            {40, Given(I16(s.IconSize[0]))},    {41, Given(I16(s.IconSize[1]))},      {42, Given(I16(s.IconSize[2]))},
            {43, Given(I16(s.IconSize[3]))},    {44, Given(I16(s.IconSize[4]))},      {45, Given(I16(s.IconSize[5]))},
            {46, Given(I16(s.IconSize[6]))},    {47, GivenFlag(s.NoPropertyInherit)}, {48, GivenFlag(s.AutoInfo)}});
    lines.SkipClosingLine();
    return err::None;
}

} // namespace karvane::files
