// The spreadsheet's commands on the grid: the clipboard, sorting, searching, fixing cells, new
// rows and row deletion, and the menu entries by control name.
#include "forms/spreadsheet_form.h"

#include <algorithm>
#include <cctype>
#include <numeric>

#include "display/display_list.h"
#include "edit/delete_rows.h"
#include "forms/grid_edit.h"
#include "model/number_format.h"

namespace karvane::forms {

namespace {

std::string Lower(std::string_view text) {
    std::string out(text);
    for (char& ch : out) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return out;
}

bool FixableColumn(int col) {
    return col == sc::Length || col == sc::Flow || col == sc::Resistance || col == sc::FPres || col == sc::KFactor ||
           col == sc::Shock;
}

bool TextColumn(int col) { return col == sc::Name || col == sc::From || col == sc::To || col == sc::Comments; }

} // namespace

bool SpreadSheetForm::Command(std::string_view name) {
    using F = SpreadSheetForm;
    struct Entry {
        std::string_view Name;
        void (*Run)(F&);
    };
    static constexpr Entry entries[] = {
        {"mnuSaveChanges", [](F& f) { f.SaveChanges(); }},
        {"mnuExit", [](F& f) { f.Close(); }},
        {"mnuPrint", [](F& f) { f.Print(); }},
        {"mnuUndo", [](F& f) { f.UndoChanges(); }},
        {"mnuEditBox", [](F& f) { f.EditBox(); }},
        {"mnuInfo", [](F& f) { f.Info(); }},
        {"mnuClear", [](F& f) { f.Clear(); }},
        {"mnuSelAll", [](F& f) { f.SelectAll(); }},
        {"mnuInsert", [](F& f) { f.InsertRows(false); }},
        {"mnuInsert2", [](F& f) { f.InsertRows(true); }},
        {"mnuDelete", [](F& f) { f.DeleteRows(); }},
        {"mnufind", [](F& f) { f.ColumnFind(); }},
        {"mnuAgain", [](F& f) { f.FindAgain(); }},
        {"mnuReplace", [](F& f) { f.ColumnReplace(); }},
        {"mnuAscend", [](F& f) { f.Sort(true); }},
        {"mnuDescend", [](F& f) { f.Sort(false); }},
        {"mnuFix", [](F& f) { f.Fix(true); }},
        {"mnuUnfix", [](F& f) { f.Fix(false); }},
        {"mnuRecalc", [](F& f) { f.RecalcCurrentRow(); }},
        {"mnuRecalcAll", [](F& f) { f.RecalcAll(); }},
        {"mnuSim", [](F& f) { f.Simulate(); }},
        {"mnu1", [](F& f) { f.FrozenColumns = 1; }},
        {"mnu2", [](F& f) { f.FrozenColumns = 2; }},
        {"mnu3", [](F& f) { f.FrozenColumns = 3; }},
        {"mnu4", [](F& f) { f.FrozenColumns = 4; }},
        {"mnuUnfixC", [](F& f) { f.FrozenColumns = 0; }},
        {"mnuFixR", [](F& f) { f.FrozenHeading = true; }},
        {"mnuUnfixR", [](F& f) { f.FrozenHeading = false; }},
        {"mnuHideC", [](F& f) { f.HideColumns(); }},
        {"mnuShowC", [](F& f) { f.ShowColumns(); }},
        {"mnuShowAll", [](F& f) { f.ShowAllData(); }},
        {"SaveGrid", [](F& f) { f.SaveGrid(); }},
    };
    for (const Entry& e : entries) {
        if (e.Name == name) {
            e.Run(*this);
            return true;
        }
    }
    return false;
}

void SpreadSheetForm::UndoChanges() { Fill(); }

void SpreadSheetForm::EditBox() {
    if (!ValidRow(CurRow)) return;
    const std::int32_t key = Row(CurRow).Key;
    if (key < 1 || key > m_.AirwayCount) return;
    host_.ShowAirwayEditor(key);
    RefillRow(CurRow);
}

void SpreadSheetForm::Info() {
    if (!ValidRow(CurRow)) return;
    const std::int32_t key = Row(CurRow).Key;
    if (key < 1 || key > m_.AirwayCount) return;
    host_.ShowAirwayInfo(key);
}

std::string SpreadSheetForm::Copy() const {
    if (!ValidRow(FirstSelectedRow())) return {};
    CellTable table;
    for (int r = FirstSelectedRow(); r <= LastSelectedRow(); ++r) {
        auto& row = table.emplace_back();
        for (int c = FirstSelectedCol(); c <= LastSelectedCol(); ++c) row.push_back(Text(r, c));
    }
    return ClipboardText(table);
}

void SpreadSheetForm::Paste(std::string_view clip) {
    if (!ValidRow(CurRow)) {
        ui_.Message("An error has occured while attempting to paste data", "Paste Error", ui::Icon::Exclamation);
        return;
    }
    const CellTable table = ReadClipboardTable(clip);
    if (table.empty()) return;
    const GridLimits limits{1, RowCount(), 1, sc::Count - 1};
    for (const CellWrite& w : PasteWrites(table, {CurRow, CurCol}, LastSelectedRow(), limits))
        SetText(w.Cell.Row, w.Cell.Col, w.Text);
    // Lines past the last row have no airway to go to.
    const bool dropped = CurRow + static_cast<int>(table.size()) - 1 > RowCount();
    Modified = true;
    if (dropped) {
        ui_.Message("Rows past the end of the table were not pasted - insert rows first", "Paste",
                    ui::Icon::Information);
    }
}

void SpreadSheetForm::Clear() {
    if (!ValidRow(FirstSelectedRow())) return;
    for (int r = FirstSelectedRow(); r <= LastSelectedRow(); ++r)
        for (int c = FirstSelectedCol(); c <= LastSelectedCol(); ++c)
            if (SheetColumnEditable(c)) SetText(r, c, {});
    Modified = true;
}

void SpreadSheetForm::ClearCurrentCell() {
    if (!ValidRow(CurRow) || !SheetColumnEditable(CurCol)) return;
    SetText(CurRow, CurCol, {});
    Modified = true;
}

void SpreadSheetForm::SelectAll() {
    if (RowCount() == 0) return;
    Select(1, 1, RowCount(), sc::Count - 1);
}

void SpreadSheetForm::InsertRows(bool after) {
    if (!ValidRow(CurRow)) {
        if (RowCount() != 0) return;
        CurRow = SelRow = 0;
    }
    const int n = RowCount() == 0 ? 1 : LastSelectedRow() - FirstSelectedRow() + 1;
    int at = RowCount() == 0 ? 0 : (after ? LastSelectedRow() : FirstSelectedRow() - 1);
    for (int i = 0; i < n; ++i) {
        const std::int32_t key = m_.AirwayCount + pendingNew_ + 1;
        if (key >= MaxAirways) {
            ui_.Message("Network size has exceeded maximum airways - increase airways in default settings", ProgramName,
                        ui::Icon::Exclamation);
            break;
        }
        ++pendingNew_;
        SheetRow row;
        row.Key = key;
        row.Cells[sc::Key] = std::to_string(key);
        rows_.insert(rows_.begin() + at, std::move(row));
        ++at;
    }
    Modified = true;
}

void SpreadSheetForm::DeleteRows() {
    if (!ValidRow(FirstSelectedRow())) return;
    const int first = FirstSelectedRow(), last = LastSelectedRow();
    if (last > first) {
        if (ui_.Ask("Permanently delete row selections ?", "Delete multiple rows", ui::Buttons::YesNo) !=
            ui::Answer::Yes)
            return;
    } else if (ui_.Ask(std::to_string(first) + " Permanently delete branch ?", "Delete", ui::Buttons::YesNo) !=
               ui::Answer::Yes) {
        return;
    }
    std::vector<std::int32_t> keys;
    for (int r = first; r <= last; ++r) keys.push_back(Row(r).Key);
    const std::int32_t oldCount = m_.AirwayCount;
    // Rows inserted in the grid and not yet saved are simply left out of the save.
    for (int r = last; r >= first; --r)
        if (Row(r).Key > oldCount) rows_.erase(rows_.begin() + (r - 1));
    if (!SaveGrid()) return;
    ui_.SetBusy(true);
    std::erase_if(keys, [&](std::int32_t key) { return key < 1 || key > oldCount; });
    edit::DeleteRows(m_, ui_, undo_, keys, &ds_);
    m_.NetworkSaved = No0;
    Fill();
    SetCurrent(std::min(first, RowCount()), CurCol);
    ui_.SetBusy(false);
    host_.RefreshViews();
}

void SpreadSheetForm::ColumnFind() {
    const auto text = ui_.Input("Enter Search", "Column Find", searchText_);
    if (!text || text->empty()) return;
    searchText_ = *text;
    searchStart_ = 1;
    replaceMode_ = false;
    Search();
}

void SpreadSheetForm::FindAgain() {
    if (searchText_.empty()) {
        ColumnFind();
        return;
    }
    replaceMode_ = false;
    Search();
}

void SpreadSheetForm::ColumnReplace() {
    const auto text = ui_.Input("Enter text to replace", "Column Replace", searchText_);
    if (!text || text->empty()) return;
    const auto replacement = ui_.Input("Enter replacement text", "Column Replace", replaceText_);
    if (!replacement) return;
    searchText_ = *text;
    replaceText_ = *replacement;
    searchStart_ = 1;
    replaceMode_ = true;
    Search();
}

void SpreadSheetForm::Search() {
    const int col = CurCol;
    const int last = RowCount();
    const std::string wanted = Lower(searchText_);
    int answer = 0;
    int replaced = 0;
    for (int r = std::max(searchStart_, 1); r <= last; ++r) {
        if (Lower(Text(r, col)) != wanted) continue;
        if (replaceMode_) {
            if (SheetColumnEditable(col)) {
                SetText(r, col, replaceText_);
                ++replaced;
            }
        } else if (searchStart_ == 1) {
            answer = r;
            break;
        }
    }
    if (replaceMode_) {
        if (replaced > 0) Modified = true;
        ui_.Message(std::to_string(replaced) + " replacements made", ProgramName, ui::Icon::Information);
        return;
    }
    if (answer == 0) {
        for (int r = std::max(searchStart_, 1); r <= last; ++r) {
            const std::string& cell = Text(r, col);
            if (Lower(cell).find(wanted) == std::string::npos) continue;
            const ui::Answer a = ui_.Ask("Could not find name - Do you mean " + cell, "Find", ui::Buttons::YesNoCancel);
            if (a == ui::Answer::Yes) {
                answer = r;
                break;
            }
            if (a == ui::Answer::Cancel) {
                searchStart_ = 1;
                return;
            }
        }
    }
    if (answer == 0) {
        if (searchStart_ == 1) ui_.Message("Level name not found", ProgramName, ui::Icon::Information);
        searchStart_ = 1;
        return;
    }
    SetCurrent(answer, col);
    ScrollCurrentToTop = true;
    searchStart_ = answer + 1;
}

void SpreadSheetForm::Sort(bool ascending) {
    const int col = CurCol;
    if (col < 1 || col >= sc::Count || rows_.size() < 2) return;
    ui_.SetBusy(true);
    std::vector<std::size_t> order(rows_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (TextColumn(col) || col == sc::FPres) {
        std::vector<std::string> keys(rows_.size());
        const bool fold = TextColumn(col);
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            const std::string& t = rows_[i].Cells[static_cast<std::size_t>(col)];
            keys[i] = fold ? Lower(t) : t;
        }
        std::stable_sort(order.begin(), order.end(), [&](std::size_t x, std::size_t y) {
            return ascending ? keys[x] < keys[y] : keys[y] < keys[x];
        });
    } else {
        std::vector<double> keys(rows_.size());
        for (std::size_t i = 0; i < rows_.size(); ++i)
            keys[i] = ParseLeadingNumber(rows_[i].Cells[static_cast<std::size_t>(col)]);
        std::stable_sort(order.begin(), order.end(), [&](std::size_t x, std::size_t y) {
            return ascending ? keys[x] < keys[y] : keys[y] < keys[x];
        });
    }
    std::vector<SheetRow> sorted;
    sorted.reserve(rows_.size());
    for (const std::size_t i : order) sorted.push_back(std::move(rows_[i]));
    rows_ = std::move(sorted);
    // The marks are kept with their rows, so the red cells stay on the rows they belong to.
    ui_.SetBusy(false);
}

void SpreadSheetForm::Fix(bool fix) {
    if (!ValidRow(FirstSelectedRow())) return;
    bool any = false;
    for (int r = FirstSelectedRow(); r <= LastSelectedRow(); ++r)
        for (int c = FirstSelectedCol(); c <= LastSelectedCol(); ++c)
            if (FixableColumn(c) && Row(r).Marked(c) != fix) {
                SetCellMark(r, c, fix);
                any = true;
            }
    if (any) Modified = true;
}

void SpreadSheetForm::RecalcCurrentRow() { RecalcRow(CurRow); }

void SpreadSheetForm::RecalcAll() {
    ui_.SetBusy(true);
    for (int r = 1; r <= RowCount(); ++r) RecalcRow(r);
    ui_.SetBusy(false);
}

void SpreadSheetForm::Simulate() {
    if (!SaveGrid()) return;
    StoreWidths();
    host_.RunSimulation();
    // A run sorts the airway rows: the display list follows before the grid is filled again.
    display::BuildDisplayList(m_, ds_);
    Fill();
}

void SpreadSheetForm::HideColumns() {
    for (int c = FirstSelectedCol(); c <= LastSelectedCol(); ++c) {
        int& w = widths_.Width[static_cast<std::size_t>(c)];
        if (w > 0) w = -w;
    }
}

void SpreadSheetForm::ShowColumns() {
    for (int& w : widths_.Width) w = std::abs(w);
}

void SpreadSheetForm::ShowAllData() {
    m_.Set.DataFilter = 0;
    display::BuildDisplayList(m_, ds_);
    Fill();
}

} // namespace karvane::forms
