// The airway editor (frmAirEdit, "Airway Edit"): one airway, or every selected airway, with
// its resistance, friction and shock, fixed flow or pressure, fans, shape and size, layers and
// flags. The dialog's controls are the fields of AirEditFields; AirEditForm fills them from
// the airway, carries out what each control does when the user works it, and applies the
// boxes back to the airway rows in the documented order, logging every row for undo.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/undo_log.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// The groups of controls that a multiple selection marks as touched; only touched groups
// reach the selected airways.
enum class AirGroup {
    Primary,   // CmbPrimary
    Second,    // CmbSecond
    Res,       // TxtFixRes, ChkFixRes, ResCombo
    Wall,      // TxtWall, ChkFixK, WallCombo
    Shock,     // TxtShock, ChkShock, ShockCombo
    Width,     // TxtWidth
    Height,    // txtHeight
    MultiAir,  // TxtMultiAir with the shape
    Length,    // TxtLength with CheckLength
    Direction, // CheckDirection
    AirType,   // OptAirType
    ShowData,  // OptShowData
    Service,   // CheckService
    Count
};
inline constexpr std::size_t AirGroupCount = static_cast<std::size_t>(AirGroup::Count);

// The text boxes of the dialog, and the two layer boxes, whose click, focus, key, double
// click and lost focus the form hears.
enum class AirBox {
    TxtName,
    LblFrom,
    LblTo,
    TxtFlow,
    TxtPres,
    TxtLength,
    TxtFixRes,
    TxtWall,
    TxtShock,
    TxtFanN,
    TxtCPart,
    TxtMultiAir,
    TxtWidth,
    TxtHeight,
    CmbPrimary,
    CmbSecond
};

// A row of a list: its text and its item data (the preset index, the fan number).
struct ListRow {
    std::string Text;
    int Data = 0;
};

// Fill colour of the shape picture DriveShape.
enum class DriveColour { Green, Blue, Red };

inline constexpr int ShapeRectangular = 0, ShapeCircular = 1, ShapeArea = 2;
inline constexpr int MaxFansInAirway = 10;

inline constexpr const char* DataEntryError = "An error has occured - probably in data entry";
inline constexpr const char* FanNotDetected = "Fan not detected in fan database";
inline constexpr const char* FansInMultipleAirways = "Fans not allowed in multiple airways";

// The controls of frmAirEdit. Texts are those of the boxes, in display units.
struct AirEditFields {
    std::string Caption;
    // "Airway Data"
    std::string TxtUnique, TxtName, LblFrom, LblTo;
    std::string TxtFlow, TxtPres, TxtLength;
    bool CheckFix = false, ChkPress = false, CheckLength = false;
    std::string TxtFixRes, TxtWall, TxtShock;
    bool ChkFixRes = false, ChkFixK = false, ChkShock = false;
    // "Preset Values": the lists and their selected rows (-1 none). A list is shown while its
    // tick is off.
    std::vector<ListRow> ResCombo, WallCombo, ShockCombo;
    int ResIndex = -1, WallIndex = -1, ShockIndex = -1;
    // "Fan(s) Selection"
    std::vector<ListRow> FanCombo2;
    int FanIndex = 0;
    std::string TxtFanN = "0";
    int VSF = MaxFansInAirway; // the spin control: 10 minus the count
    int Optcurve = 0;          // 0 "Use Static", 1 "Use Total", 2 "Use Combo"
    std::string TxtCPart = "0";
    bool TxtCPartVisible = false;
    bool OptSer2 = false; // "Series"; OptPar2 ("Parallel") is the opposite
    // "Airway Settings"
    std::vector<std::string> TxtRemote; // "none", then the 50 station names
    int RemoteIndex = 0;
    bool RemoteVisible = false;
    std::vector<std::string> CmbPrimary, CmbSecond; // 16 and 48 rows
    int PrimaryIndex = 0, SecondIndex = 0;
    std::string PrimaryText, SecondText; // the editable text of each layer box
    std::string TxtMultiAir;
    std::string TxtWidth, TxtHeight, LblWidth, LblHeight;
    bool TxtHeightVisible = true;
    // Flags
    bool CheckService = false, CheckDirection = false;
    bool OptFresh = false, OptExhaust = false; // OptAirType(0), (1)
    bool OptShowData = true;
    bool ChkSurfaceEntry = false, ChkSurfaceExit = false;
    DriveColour DriveShape = DriveColour::Green;
    int ShapeIndex = ShapeRectangular;
    // Multiple selection: the touched marks.
    std::array<bool, AirGroupCount> Touched{};

    bool IsTouched(AirGroup g) const { return Touched[static_cast<std::size_t>(g)]; }
};

// What the program keeps of the editor between openings, and the hold that the airway
// information card and the shock calculator put on it.
struct AirEditMemory {
    int ShapeIndex = ShapeRectangular;
    bool Hold = false;    // a child window holds the editor open: leaving it does not apply
    float ShockTotal = 0; // the last result of the shock calculator, display length units
};

// What a closing asks of the window around the dialog.
struct AirEditClose {
    bool Applied = false;
    bool Redraw = true;    // the views are redrawn
    bool OpenInfo = false; // frmAirInfo opens on InfoRow
    std::int32_t InfoRow = 0;
};

inline constexpr int AirEditSingle = 1;
inline constexpr int AirEditMultiple = 3;

class AirEditForm {
public:
    AirEditForm(Model& model, ui::UserInterface& ui, files::UndoLog& undo, AirEditMemory& memory, char decimalSep);

    // Opens on airway `row` in `mode` (1 one airway, 3 the selected airways, with `row` the
    // airway picked); pickFraction is where along the airway the pick lay. False when the
    // network has no airway.
    bool Open(std::int32_t row, int mode, float pickFraction = 0.5f);
    // Fills every control from the current airway (opening and ReCalc).
    void Fill();

    AirEditFields& Fields() { return f_; }
    const AirEditFields& Fields() const { return f_; }
    bool Multiple() const { return mode_ == AirEditMultiple; }
    int Mode() const { return mode_; }
    bool IsOpen() const { return open_; }
    std::int32_t CurrentRow() const { return row_; }
    std::int32_t SelectedCount() const { return selected_; }
    // The text box of each tick is editable while its tick is on.
    bool FlowEditable() const { return f_.CheckFix; }
    bool PressureEditable() const { return f_.ChkPress; }
    bool LengthEditable() const { return f_.CheckLength; }

    // The controls, as the user works them.
    void CmdShape();
    void SetShape(int index);
    void TickFixRes(bool on);
    void TickFixK(bool on);
    void TickShock(bool on);
    void ChooseRes(int index);
    void ChooseWall(int index);
    void ChooseShock(int index);
    void ChooseFan(int index);
    void SetFanCount(int count); // VSF, or TxtFanN typed
    void ChooseCurve(int option);
    void TickFix(bool on);
    void TickPress(bool on);
    void TickLength(bool on);
    void TickDirection(bool on);
    void TickService(bool on);
    void ChooseAirType(int option, bool on); // OptAirType(0) fresh, (1) exhaust
    void TickShowData(bool on);
    void TickSurfaceEntry(bool on);
    void TickSurfaceExit(bool on);
    void ChooseSeries(bool series);
    void ChooseRemote(int index);
    void ChooseLayer(bool primary, int index);
    // Typing in a layer box remembers the row; leaving the box renames that layer.
    void LayerKey(bool primary, const std::string& text);
    void LayerLeave(bool primary);
    // Mouse and keys in a box: the touched marks of a multiple selection.
    void Click(AirBox box);
    void Focus(AirBox box);
    void Key(AirBox box);
    void DoubleClick(AirBox box);
    // A text typed into a box, then the box left (its lost-focus rule runs).
    void TypeText(AirBox box, const std::string& text);
    // The text of a box as the user is typing it, without any of the box's rules.
    void SetBoxText(AirBox box, const std::string& text);
    const std::string& BoxText(AirBox box) const;
    void LeaveBox(AirBox box);
    void ResetSelection(); // CmdResetSekection

    // The calculators.
    void Orifice();
    // The shock calculator's total on its return, display length units.
    void TakeShockTotal(float total);

    // One control set by its name as the script of the user's actions names it (TxtFlow,
    // CheckFix, ResCombo, ...): the click, the typing and the leaving of the box as a user
    // would do them; a member of a control array by its index ("Optcurve(2)", "OptAirType(0)").
    // Empty when it acted, else why not (no such control, a read-only box, no such row).
    std::string SetControl(const std::string& name, const std::string& value);

    // Closing.
    AirEditClose Ok();
    AirEditClose Cancel();
    AirEditClose Info();
    // Leaving the dialog for another window of the program: as OK, but with no before-entry in
    // the undo log and, in a multiple selection, for the current airway alone. Nothing when a
    // child window holds the editor (the hold is then used up).
    std::optional<AirEditClose> Leave();
    // ReCalc: apply without closing, then fill again.
    void Recalc();

private:
    Airway& Current() { return model_.Airways[static_cast<std::size_t>(row_)]; }
    void FillShapeMemo(const Airway& a);
    void FillPresets(const Airway& a);
    void FillFans(const Airway& a);
    void FillLayers(const Airway& a);
    void FillLists();
    void TickPreset(AirGroup group, bool& tick, int& index, const std::vector<ListRow>& rows, std::int16_t type,
                    bool on);
    void Touch(AirGroup g) {
        if (Multiple()) f_.Touched[static_cast<std::size_t>(g)] = true;
    }
    bool Does(AirGroup g) const { return !Multiple() || f_.IsTouched(g); }
    std::string Shown(double value, int unitClass, bool fullPrecision) const;
    std::optional<double> Number(const std::string& text);
    void ApplyOne(std::int32_t row);
    void ApplySteps(Airway& a, std::int32_t row);
    void ApplyFans(Airway& a);
    void RenameNode(std::int32_t row, bool entry, const std::string& name);
    void LogBefore(std::int32_t row);
    AirEditClose Close(bool applied);

    Model& model_;
    ui::UserInterface& ui_;
    files::UndoLog& undo_;
    AirEditMemory& memory_;
    char sep_;
    AirEditFields f_;
    int mode_ = AirEditSingle;
    std::int32_t row_ = 0;
    std::int32_t selected_ = 0;
    float pickFraction_ = 0.5f;
    bool open_ = false;
    bool logged_ = false;       // something was logged under the current step
    bool beforeLogged_ = false; // the before-entry of a single airway is in the log
    bool fanDetected_ = true;   // the airway's fan has a row in FanCombo2
    bool fanTouched_ = false;   // the user worked the fan controls
    std::int16_t resTypeOnOpen_ = 0;
    std::int32_t airwayNo_ = 0;   // the airway shown, found again by its number at apply
    std::array<float, 5> memo_{}; // width, height, diameter, area, perimeter (SI)
    int primaryRemembered_ = 0, secondRemembered_ = 0;
};

// A fan list row: the number right-aligned in three characters, ": " and the name.
std::string FanRowText(std::int32_t fan, const std::string& name);
// "None", then a row for each named fan of the database, the fan number as item data.
std::vector<ListRow> FanListRows(const Model& model);

} // namespace karvane::forms
