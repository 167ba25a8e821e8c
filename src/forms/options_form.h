// frmOptions ("Options"): the one dialog over the settings record, seven pages of boxes. The
// fields hold the boxes as the user sees them (display units); ApplySettings takes them back
// in its fixed order, each limited value tested alone so that a refused box keeps its old
// setting while the others go through. The preset tables are edited in work copies that a
// Cancel leaves untouched.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

inline constexpr int ViewerBoxes = 10;

struct OptionsFields {
    // "Defaults"
    std::string TxtVPart;
    int Optcurve = 0; // 0 static, 1 total, 2 combo
    std::string txtHeight, TxtWidth, TxtDiam, TxtArea, TxtPerim;
    bool ChkInherit = true, ChkArea = false;
    int WallCombo = 0, WallCombo2 = 0, ShockCombo = 0;
    // "Simulation"
    int OptSimSource = 0; // 0 "Cummulative", 1 "Fixed Injection"
    int OptSolver = 0;    // the balancing method: 0 Hardy Cross, 1 Newton
    std::string TxtCost, TxtEff, TxtFanMax, txtIt, txtMe, TxtDensity, TxtAirP, TxtAirRL;
    int OptUnitType = 1; // 1 SI, 2 British
    bool ChkRemote = false, ChkSaveTime = false;
    std::string txtsavetime;
    // "Graphics"
    std::array<bool, ViewerBoxes> ChkViewer{};
    int OptType = 0;
    bool ChkBuffer = false, ChkInfo = false;
    int CmbIcon = 0, CmbFonts = 0;
    // "Colours"
    std::array<std::int32_t, ColourCount> Col{};
    int SelectedSwatch = 0;
    int OptColour = 0;
    // "Display"
    std::string TxtCd, TxtTol, TxtPowerZoom, TxtTilt, TxtSpin, TxtMj, Txtgwidth, Txtgx, Txtgy;
    bool ChkScroll = false, ChkLayer = false, ChkEDIT = false, ChkTilt = false, ChkSpeed = false;
    bool ChkHor = false, ChkVert = false;
    bool AxisClicked = false; // ChkHor or ChkVert clicked since filling
    // "Presets": names in the lists, work copies of the values, the remembered rows.
    std::array<std::string, PresetRows> CmbWall{}, CmbShock{}, CmbRes{};
    std::array<float, PresetRows> WallWork{}, ShockWork{}, ResWork{};
    int TxtW = 0, TxtS = 0, TxtR = 0;
    std::string TxtWallC, TxtShockC, TxtRes;
    bool ChkUnderR = false;
    int UnderRFlag = 1; // kept in the dialog, read by nothing
    // "Units": MSFlexGrid1 rows 1..15, columns 0 "Data Type", 1 SI format, 2 SI label,
    // 3 British format, 4 British label, 5 factor.
    std::array<std::array<std::string, 6>, UnitClassCount + 1> Units{};
    bool Filled = false;
};

// What the main window must follow after an apply.
struct OptionsEffects {
    bool ResistancesRecalculated = false;
    bool UnitSystemChanged = false;
    bool ViewTransformRebuilt = false;
};

// The 16 basic colours of the colour strip.
std::int32_t BasicColour(int index);
// A preset as the default lists show it: its value in its unit, "  (", the name and ")".
std::string PresetEntry(const Model& model, float value, int unitClass, const std::string& name, char sep);

// Fills every box from the settings; a second fill of a filled instance changes nothing.
void FillOptions(const Model& model, const display::DisplayState& ds, OptionsFields& f, char sep);
// ApplySettings, in its documented order.
OptionsEffects ApplySettings(Model& model, display::DisplayState& ds, OptionsFields& f, ui::UserInterface& ui);

// Optcurve: static 0, total 100, combo DefaultCurvePct or 50.
void ChooseCurveType(const Model& model, OptionsFields& f, int type, char sep);
// ChkSaveTime: ticking puts 5 in the minutes, unticking 0.
void TickSaveTime(OptionsFields& f, bool ticked);
// The colour strip: a click at position x sets the selected swatch.
void PickBasicColour(OptionsFields& f, int x);
// Presets page: choosing a row of a list (0 wall, 1 shock, 2 resistance) shows its value.
void ChoosePresetRow(const Model& model, OptionsFields& f, int list, int row, char sep);
// Typing in a list renames the remembered row; a comma is refused (false, the name kept).
bool RenamePreset(OptionsFields& f, int list, const std::string& name, ui::UserInterface& ui);
// Leaving a value box with text in it stores the converted value in the work copy.
void LeavePresetValue(const Model& model, OptionsFields& f, int list, const std::string& text);
// Units page: leaving a format cell checks it; a bad format is refused with its message and
// the cell keeps its old text.
bool SetUnitFormat(OptionsFields& f, int unitClass, int col, const std::string& text, ui::UserInterface& ui);
// OptUnitType: applies the boxes as they stand, switches the unit system and refills.
OptionsEffects SwitchUnitSystem(Model& model, display::DisplayState& ds, OptionsFields& f, int unitSys,
                                ui::UserInterface& ui);
// The icon and font boxes write straight into the settings.
void SetIconSize(Model& model, const OptionsFields& f, int size, bool scaled);
void SetFont(Model& model, const OptionsFields& f, int size, bool bold, bool scaled);

// The dialog by its control names: text boxes and check boxes by name ("1"/"0" for a tick),
// option groups by name with their index; cells of "MSFlexGrid1" by class and column; buttons
// "cmdOK", "cmdCancel".
class OptionsForm {
public:
    OptionsForm(Model& model, display::DisplayState& ds, ui::UserInterface& ui);
    OptionsFields F;
    OptionsEffects Effects;
    bool SetField(const std::string& name, const std::string& value);
    bool SetCell(int row, int col, const std::string& value);
    bool PressButton(const std::string& name);
    bool Closed() const { return closed_; }
    bool Applied() const { return applied_; }

private:
    Model& model_;
    display::DisplayState& ds_;
    ui::UserInterface& ui_;
    bool closed_ = false;
    bool applied_ = false;
};

} // namespace karvane::forms
