// frmFanData ("Fan List"): the editor of the fan database. It works straight on the database in
// memory and keeps no copy; its fields are the current fan, the table of ten curve points as
// text in display units, the check boxes that show the curve columns, and the blank flags.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "display/surface.h"
#include "forms/grid_edit.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

inline constexpr int FanTablePoints = 10;
// Columns of the table: 0 "Point", 1 static pressure, 2 total pressure, 3 flow, 4 efficiency.
namespace fancol {
inline constexpr int Point = 0, Static = 1, Total = 2, Flow = 3, Eff = 4, Count = 5;
}

struct FanDataFields {
    int CurrentFan = 1;    // the selected row of FanList plus 1
    bool Modified = false; // set by any key in the edit box
    bool StaticBlank = false, TotalBlank = false, FlowBlank = false, EffBlank = false;
    double FlowScale = 0, PressureScale = 0; // largest flow and pressure / 1000, SI
    std::string TxtFanName;
    std::string TxtOutDiam;
    bool ChkStatic = true, ChkTotal = true, ChkEff = true;
    // Cells[point][column], points 1..10; [0] unused.
    std::array<std::array<std::string, fancol::Count>, FanTablePoints + 1> Cells{};
};

// The number of fan slots the list shows.
int FanSlotCount(const Model& model);
// A row of FanList: the number, a blank and the name, or "-none-" for an empty slot.
std::string FanListEntry(const Model& model, int fan);
// The heading of a table column, built from the unit labels.
std::string FanColumnHeading(const Model& model, int col);
// The width of a column in twips by its check box: 0 for a hidden column, -1 for "as it is".
int FanColumnWidth(const FanDataFields& fields, int col);

// Opening: fan 1.
FanDataFields OpenFanData(Model& model, ui::UserInterface& ui);
// A new row of FanList: fills the dialog with that fan.
void SelectFan(Model& model, FanDataFields& fields, int fan, ui::UserInterface& ui);
// The blank flags and the check boxes from the current fan's curve.
void FanCurveSet(const FanRecord& fan, FanDataFields& fields);
// Takes the table into the database: the points sorted by falling pressure, a short curve
// completed with repeats of its last point, the unnamed fan named, the scales set. A cell that
// is not a number leaves the database as it was and says so.
void ReadCurve(Model& model, FanDataFields& fields, ui::UserInterface& ui);

// TxtFanName: commas are dropped; typing renames at once.
void TypeFanName(Model& model, FanDataFields& fields, const std::string& text);
// TxtOutDiam: Enter or leaving the box stores the diameter; an empty box stores 0.
void EnterOutDiam(Model& model, FanDataFields& fields, const std::string& text);
// ChkStatic (0), ChkTotal (1), ChkEff (2): the last of the two curve boxes cannot be unticked.
void SetCurveBox(FanDataFields& fields, int box, bool ticked);
// A cell left with new text, by the box or a script: the cell takes it and ReadCurve runs.
void SetFanCell(Model& model, FanDataFields& fields, int point, int col, const std::string& text,
                ui::UserInterface& ui);
// Delete: the given cells emptied, then ReadCurve.
void ClearFanCells(Model& model, FanDataFields& fields, const std::vector<GridCell>& cells, ui::UserInterface& ui);
// Paste of clipboard text from the cell `from` (point, column) within the four data columns
// and ten rows, then ReadCurve. Text that would leave the four columns, or that holds a cell
// that is not a number, is refused whole with the paste error.
bool PasteFanTable(Model& model, FanDataFields& fields, const std::string& text, GridCell from, int lastPoint,
                   ui::UserInterface& ui);
// The cells of a block, points top..bottom and columns left..right, as clipboard text.
std::string CopyFanTable(const FanDataFields& fields, int top, int left, int bottom, int right);

// Zero efficiencies of a curve that has some replaced by AirEfficiency, with the message.
void FillEfficiency(Model& model, int fan, ui::UserInterface& ui);
// ExitFan ("OK").
void ExitFan(Model& model, FanDataFields& fields, ui::UserInterface& ui);
// Cancel: asks when modified; Yes acts as ExitFan. The dialog closes in any case.
void CancelFan(Model& model, FanDataFields& fields, ui::UserInterface& ui);
// Command2 / mnuDelete.
void DeleteFan(Model& model, FanDataFields& fields, ui::UserInterface& ui);
// mnuSave ("Save as default").
void SaveFanDefault(Model& model, FanDataFields& fields, ui::UserInterface& ui);
// mnuex ("Exit").
void ExitFanMenu(Model& model);
// The estimates of the "Tools" menu: static or total curve, the current fan or all fans.
void EstimateStatic(Model& model, FanDataFields& fields, bool allFans, ui::UserInterface& ui);
void EstimateTotal(Model& model, FanDataFields& fields, bool allFans, ui::UserInterface& ui);

// The graph of a fan (PicFan) on a square of 1000 by 1000 units, with its captions. Nothing
// is drawn while either scale is 0.
void DrawFanGraph(const Model& model, const FanRecord& fan, display::Surface& surface, char decimalSep);

// The dialog as a whole, reached by its control names as a window or a script reaches it:
// fields "FanList" (a fan number), "TxtFanName", "TxtOutDiam", "ChkStatic", "ChkTotal",
// "ChkEff" (1 or 0); cells of "Spreadsheet" by point 1..10 and column 1..4; buttons
// "ExitFan", "Cancel", "Command2", "SaveFan", "mnuDelete", "mnuSave", "mnuex",
// "mnuStaticCurrent", "mnuStaticAll", "mnuTotalCurrent", "mnuTotalAll".
class FanDataForm {
public:
    FanDataForm(Model& model, ui::UserInterface& ui);
    FanDataFields F;
    // False when the name is no control of the dialog.
    bool SetField(const std::string& name, const std::string& value);
    bool SetCell(int point, int col, const std::string& value);
    bool PressButton(const std::string& name);
    // Whether a button closed the dialog.
    bool Closed() const { return closed_; }
    Model& M() { return model_; }

private:
    Model& model_;
    ui::UserInterface& ui_;
    bool closed_ = false;
};

} // namespace karvane::forms
