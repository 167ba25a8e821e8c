// The settings dialog.
#include "forms/options_form.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>

#include "display/display_list.h"
#include "display/view_transform.h"
#include "engineering/resistance.h"
#include "files/number_text.h"
#include "model/network_rows.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::forms {
namespace {

std::string Plain(double v, char sep) { return files::PlainSingle(static_cast<float>(v), sep); }
std::string Shown(const Model& m, double v, int unitClass, char sep) { return Plain(ToDisplay(m, v, unitClass), sep); }
double Num(const std::string& text) {
    const double v = files::ParseNumber(text);
    return std::isfinite(v) ? v : 0;
}
std::string Upper(std::string s) {
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

void Refuse(ui::UserInterface& ui, const char* text, bool plain) {
    ui.Message(text, ProgramName, plain ? ui::Icon::None : ui::Icon::Exclamation);
}

std::array<std::string, PresetRows>& List(OptionsFields& f, int list) {
    return list == 0 ? f.CmbWall : list == 1 ? f.CmbShock : f.CmbRes;
}
std::array<float, PresetRows>& Work(OptionsFields& f, int list) {
    return list == 0 ? f.WallWork : list == 1 ? f.ShockWork : f.ResWork;
}
int& Remembered(OptionsFields& f, int list) { return list == 0 ? f.TxtW : list == 1 ? f.TxtS : f.TxtR; }
int PresetUnit(int list) { return list == 0 ? uc::Friction : list == 1 ? uc::LongLength : uc::Resistance; }

void FillUnitGrid(const Model& m, OptionsFields& f) {
    for (int k = 1; k <= UnitClassCount; ++k) {
        const UnitRow& row = m.Units.Rows[static_cast<std::size_t>(k)];
        auto& cells = f.Units[static_cast<std::size_t>(k)];
        cells = {row.ClassName.empty() ? std::to_string(k) : row.ClassName,
                 row.Format[1],
                 row.Label[1],
                 row.Format[2],
                 row.Label[2],
                 files::PlainSingle(row.Factor[2], '.')};
    }
}

} // namespace

std::int32_t BasicColour(int index) {
    static constexpr std::int32_t colours[16] = {
        Rgb(0, 0, 0),     Rgb(0, 0, 128),     Rgb(0, 128, 0),     Rgb(0, 128, 128),  Rgb(128, 0, 0), Rgb(128, 0, 128),
        Rgb(128, 128, 0), Rgb(192, 192, 192), Rgb(128, 128, 128), Rgb(0, 0, 255),    Rgb(0, 255, 0), Rgb(0, 255, 255),
        Rgb(255, 0, 0),   Rgb(255, 0, 255),   Rgb(255, 255, 0),   Rgb(255, 255, 255)};
    return colours[std::clamp(index, 0, 15)];
}

std::string PresetEntry(const Model& model, float value, int unitClass, const std::string& name, char sep) {
    return Shown(model, value, unitClass, sep) + "  (" + name + ")";
}

void FillOptions(const Model& m, const display::DisplayState& ds, OptionsFields& f, char sep) {
    if (f.Filled) return;
    f.Filled = true;
    const Settings& s = m.Set;
    f.TxtVPart = std::to_string(s.DefaultCurvePct);
    f.Optcurve = s.DefaultCurvePct <= 0 ? 0 : s.DefaultCurvePct >= 100 ? 1 : 2;
    f.txtHeight = Shown(m, s.DriveHeight, uc::Length, sep);
    f.TxtWidth = Shown(m, s.DriveWidth, uc::Length, sep);
    f.TxtDiam = Shown(m, s.RaiseDiameter, uc::Length, sep);
    f.TxtArea = Shown(m, s.DefaultArea, uc::Area, sep);
    f.TxtPerim = Shown(m, s.DefaultPerimeter, uc::Length, sep);
    f.ChkInherit = !s.NoPropertyInherit;
    f.ChkArea = s.UseArea != 0;
    f.WallCombo = std::clamp<int>(s.DriveWallType, 0, PresetRows - 1);
    f.WallCombo2 = std::clamp<int>(s.RaiseWallType, 0, PresetRows - 1);
    f.ShockCombo = std::clamp(static_cast<int>(s.DefaultShock), 0, PresetRows - 1);
    f.OptSimSource = s.SmokeCumulative != 0 ? 0 : 1;
    f.OptSolver = s.Solver == SolverNewton ? 1 : 0;
    f.TxtCost = Plain(s.PowerCost, sep);
    f.TxtEff = Plain(std::round(static_cast<double>(s.AirEfficiency) * 100 * 1000) / 1000, sep);
    f.TxtFanMax = std::to_string(s.MaxFans);
    f.txtIt = std::to_string(s.MaxIter);
    f.txtMe = Plain(s.AllowErr, sep);
    f.TxtDensity = Shown(m, s.Density, uc::Density, sep);
    f.TxtAirP = Shown(m, s.SurfaceBaro, uc::AbsPressure, sep);
    f.TxtAirRL = s.SurfaceRL == 99999 ? "???" : Shown(m, s.SurfaceRL, uc::Length, sep);
    f.OptUnitType = s.UnitSys == 2 ? 2 : 1;
    f.ChkRemote = s.RealTimeOn != 0;
    f.ChkSaveTime = s.AutosaveMinutes > 0;
    f.txtsavetime = std::to_string(s.AutosaveMinutes);
    for (int k = 0; k < ViewerBoxes; ++k) f.ChkViewer[static_cast<std::size_t>(k)] = (s.DisplayOptions >> k) & 1;
    f.OptType = std::clamp<int>(s.DataFilter, 0, 3);
    f.ChkBuffer = s.ScreenBuffer;
    f.ChkInfo = s.AutoInfo;
    f.Col = s.Colours;
    f.OptColour = s.FreshExhaust != 0 ? 1 : 0;
    f.TxtCd = std::to_string(s.NodeDivisions);
    f.TxtTol = FormatNumber(s.PickDivisions != 0 ? 100.0 / s.PickDivisions : 0.0, "0.0", sep);
    f.TxtPowerZoom = Plain(s.PowerZoom, sep);
    f.TxtTilt = Plain(s.TiltSpeed, sep);
    f.TxtSpin = Plain(s.SpinSpeed, sep);
    f.TxtMj = Plain(s.GridSpacing, sep);
    f.Txtgwidth = Plain(s.ViewBoxWidth, sep);
    f.Txtgx = Plain(s.ViewBoxX, sep);
    f.Txtgy = Plain(s.ViewBoxY, sep);
    f.ChkScroll = s.ScrollZoomOff != 0;
    f.ChkLayer = s.LayerInherit;
    f.ChkEDIT = s.EditNoRightClick != 0;
    f.ChkTilt = s.FullRotation != 0;
    f.ChkSpeed = s.UnlimitedSpeed != 0;
    f.ChkHor = m.SgnX == -1;
    f.ChkVert = m.SgnY == -1;
    f.AxisClicked = false;
    for (int i = 0; i < PresetRows; ++i) {
        const auto k = static_cast<std::size_t>(i);
        f.CmbWall[k] = m.Preset.WallNames[k];
        f.CmbShock[k] = m.Preset.ShockNames[k];
        f.CmbRes[k] = m.Preset.ResNames[k].empty() ? "undefined" : m.Preset.ResNames[k];
        f.WallWork[k] = m.Preset.WallPreset[k];
        f.ShockWork[k] = m.Preset.ShockPreset[k];
        f.ResWork[k] = m.Preset.ResPreset[k];
    }
    for (int list = 0; list < 3; ++list) ChoosePresetRow(m, f, list, Remembered(f, list), sep);
    FillUnitGrid(m, f);
    (void)ds;
}

void ChooseCurveType(const Model& model, OptionsFields& f, int type, char) {
    f.Optcurve = std::clamp(type, 0, 2);
    if (type == 0) f.TxtVPart = "0";
    else if (type == 1) f.TxtVPart = "100";
    else {
        const int pct = model.Set.DefaultCurvePct;
        f.TxtVPart = std::to_string(pct >= 1 && pct <= 99 ? pct : 50);
    }
}

void TickSaveTime(OptionsFields& f, bool ticked) {
    f.ChkSaveTime = ticked;
    f.txtsavetime = ticked ? "5" : "0";
}

void PickBasicColour(OptionsFields& f, int x) {
    f.Col[static_cast<std::size_t>(std::clamp(f.SelectedSwatch, 0, ColourCount - 1))] =
        BasicColour(std::clamp(x, 0, 15));
}

void ChoosePresetRow(const Model& model, OptionsFields& f, int list, int row, char sep) {
    row = std::clamp(row, 0, PresetRows - 1);
    Remembered(f, list) = row;
    const std::string text = Shown(model, Work(f, list)[static_cast<std::size_t>(row)], PresetUnit(list), sep);
    (list == 0 ? f.TxtWallC : list == 1 ? f.TxtShockC : f.TxtRes) = text;
}

bool RenamePreset(OptionsFields& f, int list, const std::string& name, ui::UserInterface& ui) {
    if (name.find(',') != std::string::npos) {
        ui.Message("No commas allowed in name !", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    List(f, list)[static_cast<std::size_t>(Remembered(f, list))] = name;
    return true;
}

void LeavePresetValue(const Model& model, OptionsFields& f, int list, const std::string& text) {
    (list == 0 ? f.TxtWallC : list == 1 ? f.TxtShockC : f.TxtRes) = text;
    if (TrimText(text).empty()) return;
    Work(f, list)[static_cast<std::size_t>(Remembered(f, list))] =
        static_cast<float>(FromDisplay(model, text, PresetUnit(list)));
}

bool SetUnitFormat(OptionsFields& f, int unitClass, int col, const std::string& text, ui::UserInterface& ui) {
    if (unitClass < 1 || unitClass > UnitClassCount || (col != 1 && col != 3)) return false;
    bool valid = !text.empty() && text.find_first_of("0#") != std::string::npos &&
                 text.find_first_not_of("0#.,%") == std::string::npos;
    if (valid) valid = files::IsNumber(FormatNumber(1234.5678, text, '.', ','));
    if (!valid) {
        ui.Message("Invalid format code - formats should look like 0 or 0.00 etc", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    f.Units[static_cast<std::size_t>(unitClass)][static_cast<std::size_t>(col)] = text;
    return true;
}

OptionsEffects ApplySettings(Model& m, display::DisplayState& ds, OptionsFields& f, ui::UserInterface& ui) {
    OptionsEffects fx;
    Settings& s = m.Set;
    // 1 to 6.
    s.DefaultCurvePct = files::ToInt32(std::trunc(Num(f.TxtVPart)));
    s.RealTimeOn = f.ChkRemote ? -1 : 0;
    std::int32_t options = 0;
    for (int k = 0; k < ViewerBoxes; ++k)
        if (f.ChkViewer[static_cast<std::size_t>(k)]) options |= 1 << k;
    s.DisplayOptions = static_cast<std::int16_t>(options);
    ds.View.DisplayOptions = s.DisplayOptions;
    s.DataFilter = static_cast<std::int16_t>(std::clamp(f.OptType, 0, 3));
    display::BuildDisplayList(m, ds);
    s.SmokeCumulative = f.OptSimSource == 0 ? -1 : 0;
    // Another balancing method leaves the flows where they stand, but a result is the method's.
    if (const std::int16_t solver = f.OptSolver == 1 ? SolverNewton : SolverHardyCross; solver != s.Solver) {
        s.Solver = solver;
        m.SimValid = Validity::NotValid;
    }
    s.ScreenBuffer = f.ChkBuffer;
    s.AutoInfo = f.ChkInfo;
    s.ScrollZoomOff = f.ChkScroll ? -1 : 0;
    s.LayerInherit = f.ChkLayer;
    s.EditNoRightClick = f.ChkEDIT ? -1 : 0;
    // 7. The limited fields of the "Display" page.
    const auto limited = [&](const std::string& text, double lo, double hi, bool loOpen, const char* refusal,
                             bool plain) -> std::optional<double> {
        const double v = Num(text);
        if ((loOpen ? v > lo : v >= lo) && v <= hi) return v;
        Refuse(ui, refusal, plain);
        return std::nullopt;
    };
    if (auto v = limited(f.TxtCd, 1, 100, false, "Limits of Allowable Divisions Exceeded", false))
        s.NodeDivisions = files::ToInt16(std::trunc(*v));
    if (auto v = limited(f.TxtTol, 0.25, 20, false, "Limits Exceeded.  Keep values between .25% and 20%", false))
        s.PickDivisions = files::ToInt16(std::trunc(100 / *v));
    if (auto v = limited(f.TxtPowerZoom, 0, 200, true, "Power Zoom exceeds limits", true))
        s.PowerZoom = static_cast<float>(*v);
    if (auto v = limited(f.TxtTilt, 0, 45, true, "Tilt rotation exceeds limits", true))
        s.TiltSpeed = static_cast<float>(*v);
    if (auto v = limited(f.TxtSpin, 0, 45, true, "Spin rotation exceeds limits", true))
        s.SpinSpeed = static_cast<float>(*v);
    // 8, 9.
    s.FullRotation = f.ChkTilt ? -1 : 0;
    s.UnlimitedSpeed = f.ChkSpeed ? -1 : 0;
    s.Colours = f.Col;
    s.FreshExhaust = static_cast<std::int16_t>(f.OptColour != 0 ? 1 : 0);
    ds.View.FreshExhaust = s.FreshExhaust;
    // 10. Default sizes and wall types.
    s.DriveHeight = static_cast<float>(FromDisplay(m, f.txtHeight, uc::Length));
    s.DriveWidth = static_cast<float>(FromDisplay(m, f.TxtWidth, uc::Length));
    s.RaiseDiameter = static_cast<float>(FromDisplay(m, f.TxtDiam, uc::Length));
    s.DefaultArea = static_cast<float>(FromDisplay(m, f.TxtArea, uc::Area));
    s.DefaultPerimeter = static_cast<float>(FromDisplay(m, f.TxtPerim, uc::Length));
    s.NoPropertyInherit = !f.ChkInherit;
    s.DriveWallType = static_cast<std::int16_t>(std::clamp(f.WallCombo, 0, PresetRows - 1));
    s.RaiseWallType = static_cast<std::int16_t>(std::clamp(f.WallCombo2, 0, PresetRows - 1));
    s.DefaultShock = static_cast<float>(std::clamp(f.ShockCombo, 0, PresetRows - 1));
    s.UseArea = f.ChkArea ? -1 : 0;
    // 11. The remaining limited fields.
    if (auto v = limited(f.TxtMj, 5, 1000, false, "Limits of Allowable Major Grid Size Exceeded", false))
        s.GridSpacing = *v;
    if (auto v = limited(f.Txtgwidth, 5, 10000, false, "Limits of Allowable Major Grid Width Exceeded", false))
        s.ViewBoxWidth = static_cast<float>(*v);
    if (auto v = limited(f.Txtgx, 0, 1000000000, false, "Limits of Allowable Grid Exceeded", false))
        s.ViewBoxX = static_cast<float>(*v);
    if (auto v = limited(f.Txtgy, 0, 1000000000, false, "Limits of Allowable Grid Exceeded", false))
        s.ViewBoxY = static_cast<float>(*v);
    m.SgnX = f.ChkHor ? -1 : 1;
    m.SgnY = f.ChkVert ? -1 : 1;
    if (auto v = limited(f.txtIt, 1, 5000, false, "Limits of Itterations Exceeded", false))
        s.MaxIter = files::ToInt16(std::trunc(*v));
    if (auto v = limited(f.txtMe, 0.0001, 5, false, "Limits of Allowable Errors Exceeded", false))
        s.AllowErr = static_cast<float>(*v);
    if (limited(f.TxtDensity, 0.001, 2000, false, "Limits of Allowable Density Exceeded", false)) {
        const auto density = static_cast<float>(FromDisplay(m, f.TxtDensity, uc::Density));
        if (density != s.Density) {
            s.Density = density;
            RecalcAllAirways(m);
            m.SimValid = Validity::NotValid;
            fx.ResistancesRecalculated = true;
        }
    }
    if (limited(f.TxtAirP, 0, 10000, false, "Limits of Allowable Air Pressure Exceeded", false))
        s.SurfaceBaro = static_cast<float>(FromDisplay(m, f.TxtAirP, uc::AbsPressure));
    if (auto v = limited(f.TxtCost, 0, 1000, true, "Limits of Allowable Cost Exceeded", false))
        s.PowerCost = static_cast<float>(*v);
    if (auto v = limited(f.TxtEff, 0, 100, true, "Limits of Allowable Efficiency Exceeded", false))
        s.AirEfficiency = static_cast<float>(*v / 100);
    if (auto v = limited(f.TxtFanMax, 10, 1000, true, "Limits of Allowable Fan Types Exceeded", false)) {
        const std::int16_t wanted = files::ToInt16(std::trunc(*v));
        if (wanted != s.MaxFans) {
            s.MaxFans = wanted;
            ResizeNetwork(m);
        }
    }
    if (TrimText(f.TxtAirRL) != "???") {
        const double rl = FromDisplay(m, f.TxtAirRL, uc::Length);
        if (rl >= -10000000 && rl <= 10000000) {
            if (static_cast<float>(rl) != s.SurfaceRL) s.SurfaceRL = static_cast<float>(rl);
        } else {
            Refuse(ui, "Limits of Allowable RL's Exceeded", false);
        }
    }
    // 12, 13. Presets from the work copies and the lists.
    bool presetsChanged = false;
    for (int i = 0; i < PresetRows; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const auto store = [&](float& to, float from) {
            presetsChanged = presetsChanged || to != std::fabs(from);
            to = std::fabs(from);
        };
        store(m.Preset.WallPreset[k], f.WallWork[k]);
        store(m.Preset.ResPreset[k], f.ResWork[k]);
        store(m.Preset.ShockPreset[k], f.ShockWork[k]);
        const auto name = [](const std::string& n) { return Upper(TrimText(n)) == "UNDEFINED" ? std::string() : n; };
        m.Preset.WallNames[k] = name(f.CmbWall[k]);
        m.Preset.ResNames[k] = name(f.CmbRes[k]);
        m.Preset.ShockNames[k] = name(f.CmbShock[k]);
    }
    if (presetsChanged) {
        // Airways that use a preset follow its new value at once.
        RecalcAllAirways(m);
        m.SimValid = Validity::NotValid;
        fx.ResistancesRecalculated = true;
    }
    // 14. Autosave.
    s.AutosaveMinutes = f.ChkSaveTime ? std::min(files::ToInt32(std::trunc(Num(f.txtsavetime))), 10) : 0;
    // 15. The unit table's formats.
    for (int k = 1; k <= UnitClassCount; ++k) {
        UnitRow& row = m.Units.Rows[static_cast<std::size_t>(k)];
        const auto& cells = f.Units[static_cast<std::size_t>(k)];
        row.Format[1] = cells[1];
        row.Format[2] = cells[3];
    }
    f.UnderRFlag = f.ChkUnderR ? 0 : 1;
    // 16. A reversed axis rebuilds the view transform.
    if (f.AxisClicked) {
        display::ApplyRotation(m, ds);
        fx.ViewTransformRebuilt = true;
    }
    return fx;
}

OptionsEffects SwitchUnitSystem(Model& model, display::DisplayState& ds, OptionsFields& f, int unitSys,
                                ui::UserInterface& ui) {
    OptionsEffects fx = ApplySettings(model, ds, f, ui);
    model.Set.UnitSys = static_cast<std::int16_t>(unitSys == 2 ? 2 : 1);
    f.Filled = false;
    FillOptions(model, ds, f, ui.DecimalSeparator());
    fx.UnitSystemChanged = true;
    model.DefaultsSaved = No0;
    return fx;
}

void SetIconSize(Model& model, const OptionsFields& f, int size, bool scaled) {
    const auto k = static_cast<std::size_t>(std::clamp(f.CmbIcon, 0, IconCount - 1));
    model.Set.IconSize[k] = static_cast<std::int16_t>(std::clamp(size, 1, 20));
    model.Set.IconScaled[k] = scaled ? 1 : 0;
}

void SetFont(Model& model, const OptionsFields& f, int size, bool bold, bool scaled) {
    const auto k = static_cast<std::size_t>(std::clamp(f.CmbFonts, 0, FontCount - 1) + 1);
    model.Set.FontSize[k] = static_cast<std::int16_t>(std::clamp(size, 2, 40));
    model.Set.FontBold[k] = bold ? -1 : 0;
    model.Set.ScaleFonts = scaled ? 1 : 0;
}

OptionsForm::OptionsForm(Model& model, display::DisplayState& ds, ui::UserInterface& ui)
    : model_(model),
      ds_(ds),
      ui_(ui) {
    FillOptions(model, ds, F, ui.DecimalSeparator());
}

bool OptionsForm::SetField(const std::string& name, const std::string& value) {
    const bool tick = Num(value) != 0 || value == "True" || value == "true";
    const int index = static_cast<int>(Num(value));
    std::string* text = nullptr;
    for (auto [n, p] : {std::pair{"TxtVPart", &F.TxtVPart},
                        {"txtHeight", &F.txtHeight},
                        {"TxtWidth", &F.TxtWidth},
                        {"TxtDiam", &F.TxtDiam},
                        {"TxtArea", &F.TxtArea},
                        {"TxtPerim", &F.TxtPerim},
                        {"TxtCost", &F.TxtCost},
                        {"TxtEff", &F.TxtEff},
                        {"TxtFanMax", &F.TxtFanMax},
                        {"txtIt", &F.txtIt},
                        {"txtMe", &F.txtMe},
                        {"TxtDensity", &F.TxtDensity},
                        {"TxtAirP", &F.TxtAirP},
                        {"TxtAirRL", &F.TxtAirRL},
                        {"txtsavetime", &F.txtsavetime},
                        {"TxtCd", &F.TxtCd},
                        {"TxtTol", &F.TxtTol},
                        {"TxtPowerZoom", &F.TxtPowerZoom},
                        {"TxtTilt", &F.TxtTilt},
                        {"TxtSpin", &F.TxtSpin},
                        {"TxtMj", &F.TxtMj},
                        {"Txtgwidth", &F.Txtgwidth},
                        {"Txtgx", &F.Txtgx},
                        {"Txtgy", &F.Txtgy}})
        if (name == n) text = p;
    if (text) {
        *text = value;
        return true;
    }
    bool* box = nullptr;
    for (auto [n, p] : {std::pair{"ChkInherit", &F.ChkInherit},
                        {"ChkArea", &F.ChkArea},
                        {"ChkRemote", &F.ChkRemote},
                        {"ChkBuffer", &F.ChkBuffer},
                        {"ChkInfo", &F.ChkInfo},
                        {"ChkScroll", &F.ChkScroll},
                        {"ChkLayer", &F.ChkLayer},
                        {"ChkEDIT", &F.ChkEDIT},
                        {"ChkTilt", &F.ChkTilt},
                        {"ChkSpeed", &F.ChkSpeed},
                        {"ChkUnderR", &F.ChkUnderR}})
        if (name == n) box = p;
    if (box) {
        *box = tick;
        return true;
    }
    const char sep = ui_.DecimalSeparator();
    if (name == "ChkHor" || name == "ChkVert") {
        (name == "ChkHor" ? F.ChkHor : F.ChkVert) = tick;
        F.AxisClicked = true;
    } else if (name.rfind("ChkViewer", 0) == 0) {
        const int k = static_cast<int>(Num(name.substr(9)));
        if (k < 0 || k >= ViewerBoxes) return false;
        F.ChkViewer[static_cast<std::size_t>(k)] = tick;
    } else if (name == "ChkSaveTime") TickSaveTime(F, tick);
    else if (name == "Optcurve") ChooseCurveType(model_, F, index, sep);
    else if (name == "OptSimSource") F.OptSimSource = std::clamp(index, 0, 1);
    else if (name == "OptSolver") F.OptSolver = std::clamp(index, 0, 1);
    else if (name == "OptType") F.OptType = std::clamp(index, 0, 3);
    else if (name == "OptColour") F.OptColour = std::clamp(index, 0, 1);
    else if (name == "OptUnitType") Effects = SwitchUnitSystem(model_, ds_, F, index, ui_);
    else if (name == "WallCombo") F.WallCombo = std::clamp(index, 0, PresetRows - 1);
    else if (name == "WallCombo2") F.WallCombo2 = std::clamp(index, 0, PresetRows - 1);
    else if (name == "ShockCombo") F.ShockCombo = std::clamp(index, 0, PresetRows - 1);
    else if (name == "Col") F.SelectedSwatch = std::clamp(index, 0, ColourCount - 1);
    else if (name == "Frame3D2") PickBasicColour(F, index);
    else if (name == "CmbWall" || name == "CmbShock" || name == "CmbRes") {
        const int list = name == "CmbWall" ? 0 : name == "CmbShock" ? 1 : 2;
        if (files::IsNumber(value)) ChoosePresetRow(model_, F, list, index, sep);
        else RenamePreset(F, list, value, ui_);
    } else if (name == "TxtWallC" || name == "TxtShockC" || name == "TxtRes") {
        LeavePresetValue(model_, F, name == "TxtWallC" ? 0 : name == "TxtShockC" ? 1 : 2, value);
    } else {
        return false;
    }
    return true;
}

bool OptionsForm::SetCell(int row, int col, const std::string& value) { return SetUnitFormat(F, row, col, value, ui_); }

bool OptionsForm::PressButton(const std::string& name) {
    if (name == "cmdOK") {
        const OptionsEffects fx = ApplySettings(model_, ds_, F, ui_);
        Effects.ResistancesRecalculated = Effects.ResistancesRecalculated || fx.ResistancesRecalculated;
        Effects.ViewTransformRebuilt = Effects.ViewTransformRebuilt || fx.ViewTransformRebuilt;
        applied_ = closed_ = true;
        // The changed settings are offered for saving as defaults when the program ends.
        model_.DefaultsSaved = No0;
    } else if (name == "cmdCancel") {
        closed_ = true;
    } else {
        return false;
    }
    return true;
}

} // namespace karvane::forms
