// The defaults block, Defaults.dat and the start-up step of the settings.
#include "files/defaults_file.h"

#include <algorithm>
#include <limits>

#include "files/app_files.h"
#include "files/conversion_file.h"
#include "files/number_text.h"
#include "files/old_settings.h"
#include "files/station_list.h"
#include "model/builtin_settings.h"
#include "model/network_rows.h"

namespace karvane::files {
namespace {

// The icon pairs of the settings line come in this order of IconSize(k).
constexpr int IconFileOrder[IconCount] = {0, 1, 4, 3, 2, 6, 5};

// Calls f(fieldNo, value) for the 90 values of the settings line, in their file order. The same
// walk serves the writer (const Settings) and the reader, so the two can never disagree.
template <class S, class F>
void ForEachSettingsField(S& s, F&& f) {
    int n = 0;
    f(++n, s.NodeDivisions);
    f(++n, s.GridSpacing);
    f(++n, s.PickDivisions);
    f(++n, s.DriveWallType);
    f(++n, s.DefaultShock);
    f(++n, s.DriveHeight);
    f(++n, s.DriveWidth);
    f(++n, s.RaiseDiameter);
    f(++n, s.SurfaceName);
    f(++n, s.MaxIter);
    f(++n, s.AllowErr);
    f(++n, s.AirwayCapacity);
    f(++n, s.PowerCost);
    f(++n, s.AirEfficiency);
    f(++n, s.Density);
    f(++n, s.DimOptions);
    f(++n, s.SpinSpeed);
    f(++n, s.TiltSpeed);
    f(++n, s.FullRotation);
    f(++n, s.FreshExhaust);
    f(++n, s.AttributeMask);
    f(++n, s.DisplayOptions);
    f(++n, s.SurfaceRL);
    f(++n, s.DxfNodeCircle);
    f(++n, s.DxfArrow);
    f(++n, s.DxfData);
    f(++n, s.DxfAirway);
    f(++n, s.DxfNode);
    f(++n, s.DataFilter);
    f(++n, s.DxfFloat);
    f(++n, s.ScreenBuffer);
    f(++n, s.ScaleFonts);
    f(++n, s.NoPropertyInherit);
    for (int k = 1; k <= FontCount; ++k) {
        f(++n, s.FontName[k]);
        f(++n, s.FontBold[k]);
        f(++n, s.FontSize[k]);
    }
    for (int k : IconFileOrder) {
        f(++n, s.IconSize[k]);
        f(++n, s.IconScaled[k]);
    }
    for (auto& colour : s.Colours) f(++n, colour);
    f(++n, s.PowerZoom);
    f(++n, s.MaxFans);
    f(++n, s.PresetResOverride);
    f(++n, s.UnlimitedSpeed);
    f(++n, s.UnitSys);
    f(++n, s.PerspectiveDistance);
    f(++n, s.LayerInherit);
    f(++n, s.DefaultPerimeter);
    f(++n, s.DefaultArea);
    f(++n, s.UseArea);
    f(++n, s.DefaultCurvePct);
    f(++n, s.RealTimeOn);
    f(++n, s.LastAirwayNo);
    f(++n, s.AutoInfo);
    f(++n, s.ScrollZoomOff);
    f(++n, s.AutosaveMinutes);
    f(++n, s.SmokeCumulative);
    f(++n, s.EditNoRightClick);
    f(++n, s.ViewBoxWidth);
    f(++n, s.ViewBoxX);
    f(++n, s.ViewBoxY);
    f(++n, s.FlowMin);
    f(++n, s.FlowMax);
}

// Field numbers of the settings line that carry a rule on reading.
namespace sf {
constexpr int DriveWallType = 4, DefaultShock = 5, Capacity = 12, Density = 15, MaxFans = 69, UnitSys = 72,
              Perspective = 73, Perimeter = 75, Area = 76, ViewBoxWidth = 86, ViewBoxX = 87, ViewBoxY = 88,
              FlowMax = 90;
// The balancing method, behind the 90 values of the settings line: present only when it is
// not Hardy Cross. An older reader takes 90 values and never looks at it; a line without it
// reads as Hardy Cross.
constexpr int Solver = 91;
} // namespace sf

struct SettingsLineWriter {
    std::string& line;
    char sep;
    void Put(int n, const std::string& text) {
        if (n > 1) line += '\t';
        line += text;
    }
    void operator()(int n, const std::int16_t& v) { Put(n, PaddedInt(v)); }
    // The capacity field records the real capacity of the program that wrote the file.
    void operator()(int n, const std::int32_t& v) { Put(n, PaddedInt(n == sf::Capacity ? MaxAirways : v)); }
    void operator()(int n, const std::uint8_t& v) { Put(n, PaddedInt(v)); }
    void operator()(int n, const float& v) { Put(n, PaddedSingle(v, sep)); }
    void operator()(int n, const double& v) { Put(n, PaddedDouble(v, sep)); }
    void operator()(int n, const bool& v) { Put(n, BoolWord(v)); }
    void operator()(int n, const std::string& v) { Put(n, v); }
};

// Reads the values by their type and applies the zero rules on the way, so that a short line
// (its missing values read as 0) still gives usable settings.
struct SettingsLineReader {
    const Fields& f;
    Settings& s;
    double version;

    void operator()(int n, std::int16_t& v) {
        double x = ParseNumber(f[n]);
        switch (n) {
        case sf::DriveWallType: v = HeldPresetIndex(x); break;
        case sf::MaxFans: v = ReadMaxFans(x); break;
        case sf::UnitSys: v = ReadUnitSys(x); break;
        default: v = ToInt16(x);
        }
    }
    void operator()(int n, std::int32_t& v) {
        v = n == sf::Capacity ? HeldCapacity(ParseNumber(f[n])) : ToInt32(ParseNumber(f[n]));
    }
    void operator()(int n, std::uint8_t& v) { v = ToByte(ParseNumber(f[n])); }
    void operator()(int n, float& v) {
        v = ToSingle(ParseNumber(f[n]));
        switch (n) {
        case sf::DefaultShock: v = std::clamp(v, 0.0f, static_cast<float>(CustomPreset)); break;
        case sf::Density:
            if (v == 0.0f && version < 2.8) v = 1.2f;
            break;
        case sf::Perspective:
            if (v == 0.0f) v = 1500;
            break;
        case sf::Perimeter:
            if (v == 0.0f) v = 20, s.DefaultArea = 25;
            break;
        case sf::Area:
            if (v == 0.0f) v = 25;
            break;
        case sf::ViewBoxWidth:
            if (v == 0.0f) v = 500;
            break;
        case sf::ViewBoxX:
        case sf::ViewBoxY:
            if (v == 0.0f) v = 1000;
            break;
        case sf::FlowMax:
            if (v == 0.0f) v = 1000;
            break;
        default: break;
        }
    }
    void operator()(int n, double& v) { v = ParseNumber(f[n]); }
    void operator()(int n, bool& v) { v = ParseBool(f[n]); }
    void operator()(int n, std::string& v) { v = TrimText(f[n]); }
};

void WriteNames(TextFileWriter& out, const std::array<std::string, PresetRows + 1>& names) {
    std::string line;
    for (int i = 0; i < PresetRows; ++i) line += names[i] + '\t';
    out.WriteLine(line);
}

void WriteValues(TextFileWriter& out, const std::array<float, PresetRows + 1>& values, char sep) {
    std::string line;
    for (int i = 0; i < PresetRows; ++i) line += PaddedSingle(values[i], sep) + '\t';
    out.WriteLine(line);
}

// Failures of the start-up list other than those of Defaults.dat itself.
std::string StartupErrorText(int code) {
    if (code == err::FileNotFound) return "Cannot find DEFAULTS File";
    return FileErrorText(code, " occurred.");
}

} // namespace

double FirstLineVersion(std::string_view firstLine) {
    std::string head(firstLine.substr(0, 3));
    if (head.size() >= 2) head[1] = '.';
    return ParseNumber(head);
}

void WriteDefaultsBlock(TextFileWriter& out, const Model& model, char sep) {
    const Presets& p = model.Preset;
    out.WriteLine(std::string("3") + sep + "1\tKARVANE3");
    WriteNames(out, p.WallNames);
    WriteValues(out, p.WallPreset, sep);
    WriteNames(out, p.ResNames);
    WriteValues(out, p.ResPreset, sep);
    WriteNames(out, p.ShockNames);
    WriteValues(out, p.ShockPreset, sep);
    std::string line;
    ForEachSettingsField(model.Set, SettingsLineWriter{line, sep});
    if (model.Set.Solver != SolverHardyCross) line += '\t' + PaddedInt(model.Set.Solver);
    out.WriteLine(line);
    out.WriteLine(DefaultsBlockEnd);
}

int ReadDefaultsBlock(TextFileReader& in, Model& model, const std::string& firstLine, char /*sep*/) {
    const double version = FirstLineVersion(firstLine);
    Presets& p = model.Preset;
    SettingsLines lines(in, version);
    int code = ReadPresetLines(lines, p.WallNames, p.WallPreset, 0, PresetRows - 1, PresetNames::Plain, true);
    if (code == err::None)
        code = ReadPresetLines(lines, p.ResNames, p.ResPreset, 0, PresetRows - 1, PresetNames::Resistance);
    if (code != err::None) return code;
    ApplyBlockedResRule(model);
    code = ReadPresetLines(lines, p.ShockNames, p.ShockPreset, 0, PresetRows - 1, PresetNames::Plain);
    if (code != err::None) return code;

    if (!lines.Next()) return err::PastEndOfFile;
    ForEachSettingsField(model.Set, SettingsLineReader{lines.F(), model.Set, version});
    model.Set.Solver = ParseNumber(lines.F()[sf::Solver]) == SolverNewton ? SolverNewton : SolverHardyCross;
    lines.SkipClosingLine();
    return err::None;
}

bool LoadDefaultsFile(Model& model, ui::UserInterface& ui) {
    TextFileReader in;
    int code = in.Open(AppFile(ui, DefaultsFileName));
    std::string first;
    if (code == err::None && !in.ReadLine(first)) code = err::PastEndOfFile;
    if (code == err::None) {
        const double version = FirstLineVersion(first);
        const char sep = ui.DecimalSeparator();
        if (version < 1.0) {
            // Older than any known form: nothing is read.
        } else if (version <= 2.4) {
            // Friction values of these files are converted; offer the result for saving.
            if (version < 2.4) model.DefaultsSaved = No0;
            code = ReadOldDefaultsCommaForm(in, model, version, first.size() > 4 ? first.substr(4) : "");
        } else if (version <= 2.7) {
            code = ReadOldDefaultsLineForm(in, model, version);
        } else {
            code = ReadDefaultsBlock(in, model, first, sep);
        }
    }
    // The fan and text tables follow a changed MaxFans at once, keeping their content.
    ResizeNetwork(model);
    if (code != err::None) {
        ui.Message("Error re-loading defaults", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    return true;
}

bool SaveDefaultsFile(Model& model, ui::UserInterface& ui) {
    const char sep = ui.DecimalSeparator();
    TextFileWriter out;
    int code = out.Open(AppFile(ui, DefaultsFileName));
    if (code == err::None) {
        WriteDefaultsBlock(out, model, sep);
        code = out.Commit();
    }
    if (code != err::None) {
        ui.Message(FileErrorText(code, " occurred saving defaults."), ProgramName, ui::Icon::Exclamation);
        return false;
    }
    bool ok = SaveConversions(model, ui); // gives its own message
    code = SaveStations(model, ui);
    if (code != err::None) {
        ui.Message(FileErrorText(code, " occurred saving defaults."), ProgramName, ui::Icon::Exclamation);
        return false;
    }
    return ok;
}

void LoadBuiltInSettings(Model& model, ui::UserInterface& ui) {
    SetBuiltInCapacities(model);
    SetBuiltInSettings(model);
    model.DefaultsSaved = Yes255;
    LoadDefaultsFile(model, ui); // gives its own message
    if (int code = LoadStations(model, ui); code != err::None)
        ui.Message(StartupErrorText(code), ProgramName, ui::Icon::Exclamation);
    if (model.Set.SpinSpeed == 0.0f) model.Set.SpinSpeed = 2;
    if (model.Set.TiltSpeed == 0.0f) model.Set.TiltSpeed = 2;
    model.Set.AirwayCapacity = HeldCapacity(model.Set.AirwayCapacity);
    AllocateNetwork(model);
}

void ReloadDefaultsCommand(Model& model, ui::UserInterface& ui) {
    if (ui.Ask("Current defaults will be lost!", "Reload Defaults", ui::Buttons::OKCancel) != ui::Answer::OK) return;
    LoadDefaultsFile(model, ui);
    model.DefaultsSaved = Yes255;
}

void SaveDefaultsCommand(Model& model, ui::UserInterface& ui) {
    // A failed save keeps the changes marked as unsaved, so the end of the program offers them again.
    if (SaveDefaultsFile(model, ui)) model.DefaultsSaved = Yes255;
}

std::int32_t AutosaveIntervalMs(const Settings& set) {
    if (set.AutosaveMinutes <= 0) return 0;
    const std::int64_t ms = static_cast<std::int64_t>(set.AutosaveMinutes) * 6000;
    return static_cast<std::int32_t>(std::min<std::int64_t>(ms, std::numeric_limits<std::int32_t>::max()));
}

} // namespace karvane::files
