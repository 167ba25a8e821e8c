// The network spreadsheet (frmSpreadSheet, "SpreadSheet"): the airways of the display list as
// a grid of texts in display units. Edits stay in the grid, which recalculates resistances as
// the user types, until SaveGrid writes them to the network as one undo step. Sorting,
// searching, the clipboard, fixing cells, new rows and row deletion work on the grid; the Qt
// window only shows the grid and passes the user's keys and commands here.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "display/view_state.h"
#include "files/undo_log.h"
#include "forms/sheet_grid.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// What the spreadsheet needs of the windows around it.
class SpreadSheetHost {
public:
    virtual ~SpreadSheetHost() = default;
    // frmAirEdit in single mode on an airway row, modal.
    virtual void ShowAirwayEditor(std::int32_t row) = 0;
    // frmAirInfo on an airway row.
    virtual void ShowAirwayInfo(std::int32_t row) = 0;
    // The airflow simulation, run as the main window runs it.
    virtual void RunSimulation() = 0;
    // The display list has been rebuilt: refresh the data annotation and redraw every view.
    virtual void RefreshViews() = 0;
    // Prints the table (PrintSheetTable) at a font size on a printer or PDF file the user
    // chooses. False when the job failed; a print the user cancelled is not a failure.
    virtual bool PrintTable(int /*fontSize*/) { return true; }
};

// The remembered column widths, for columns 1 to 21, kept by the main window between openings.
// A negative width is a hidden column with its old width as magnitude. Until Taken, the grid's
// own widths are taken on the first opening.
struct SheetWidths {
    bool Taken = false;
    std::array<int, sc::Count> Width{};
};

inline constexpr int RememberedWidthColumns = 21;

class SpreadSheetForm {
public:
    SpreadSheetForm(Model& model, display::DisplayState& ds, files::UndoLog& undo, ui::UserInterface& ui,
                    SpreadSheetHost& host, SheetWidths& widths);

    // Opening: the marks sized and the grid filled.
    void Open();
    // Filling from the display list, sorted on "No.", cursor on row 0, column 1.
    void Fill();

    // The grid. Grid rows are numbered 1..RowCount() (row 0 is the heading row).
    int RowCount() const { return static_cast<int>(rows_.size()); }
    const SheetRow& Row(int r) const { return rows_[static_cast<std::size_t>(r - 1)]; }
    const std::string& Text(int r, int c) const;
    bool Red(int r, int c) const;
    bool Modified = false;

    // The current cell and the other corner of the selection.
    int CurRow = 0, CurCol = 1;
    int SelRow = 0, SelCol = 1;
    // A find asks the window to bring the current row to the top of the view.
    bool ScrollCurrentToTop = false;
    void SetCurrent(int r, int c);
    void Select(int r1, int c1, int r2, int c2);
    int FirstSelectedRow() const { return std::min(CurRow, SelRow); }
    int LastSelectedRow() const { return std::max(CurRow, SelRow); }
    int FirstSelectedCol() const { return std::min(CurCol, SelCol); }
    int LastSelectedCol() const { return std::max(CurCol, SelCol); }

    // Leaving the in-place editor: the text goes into the cell, CellChanged runs and the
    // modified flag is set. Ignored for the key, "No." and Comments columns.
    void EnterCell(int r, int c, std::string_view text);
    void CellChanged(int r, int c);
    // The table's own copy of the resistance formula, on the cells of grid row r.
    void RecalcRow(int r);

    // "Save Changes": asks, then SaveGrid.
    void SaveChanges();
    // Writes every row to the airway of its key as one undo step. False when a cell could not
    // be read (the user has been told which): the network is then left as it was.
    bool SaveGrid();
    // Leaving: the question for unsaved edits, the widths stored, the display list rebuilt and
    // the views redrawn. False when a refused save keeps the window open.
    bool Close();

    // The commands of the menus, by control name (mnuSaveChanges, mnuUndo, mnuCopy, ...); the
    // clipboard commands go through Copy and Paste. False for a name the form does not know.
    bool Command(std::string_view name);

    void UndoChanges();
    void EditBox();
    void Info();
    std::string Copy() const;
    void Paste(std::string_view clipboard);
    void Clear();
    void ClearCurrentCell();
    void SelectAll();
    void InsertRows(bool after);
    void DeleteRows();
    void ColumnFind();
    void FindAgain();
    void ColumnReplace();
    void Sort(bool ascending);
    void Fix(bool fix);
    void RecalcCurrentRow();
    void RecalcAll();
    void Simulate();
    void HideColumns();
    void ShowColumns();
    void ShowAllData();
    // Column widths as the window applies them: 0 for a hidden column.
    int ShownWidth(int col) const;
    // A column's width for the print: the window's width, or the format string's characters
    // before the window has given any; 0 for a hidden column.
    int PrintWidth(int col) const;
    // "Print": the font size asked, then the host's print job.
    void Print();
    // The grid's own widths, taken on the first opening.
    void TakeGridWidths(const std::array<int, sc::Count>& widths);
    // Frozen columns and heading row of the View menu.
    int FrozenColumns = 0;
    bool FrozenHeading = true;

private:
    SheetRow& RowAt(int r) { return rows_[static_cast<std::size_t>(r - 1)]; }
    void SetText(int r, int c, std::string text);
    void SetCellMark(int r, int c, bool on);
    bool ValidRow(int r) const { return r >= 1 && r <= RowCount(); }
    void StoreWidths();
    void RefillRow(int r);
    void Search();
    bool CheckGrid(int& badRow, int& badCol, std::string& message) const;
    void ApplyRow(const SheetRow& row, Airway& a) const;

    Model& m_;
    display::DisplayState& ds_;
    files::UndoLog& undo_;
    ui::UserInterface& ui_;
    SpreadSheetHost& host_;
    SheetWidths& widths_;
    std::vector<SheetRow> rows_;
    char sep_ = '.';
    std::int32_t pendingNew_ = 0; // rows added by Insert, not yet in the network

    // Search state.
    std::string searchText_, replaceText_;
    int searchStart_ = 1;
    bool replaceMode_ = false;
};

} // namespace karvane::forms
