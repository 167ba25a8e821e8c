// The network spreadsheet: filling, editing, the recalculation of a row and the save.
#include "forms/spreadsheet_form.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "display/display_list.h"
#include "engineering/resistance.h"
#include "forms/sheet_print.h"
#include "model/node_keys.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::forms {

namespace {

// Whole world metres a coordinate may reach, as everywhere else in the program.
constexpr double CoordinateLimit = 9999999.0;

const std::string& EmptyText() {
    static const std::string empty;
    return empty;
}

// A cell's number converted from display units to SI.
double ToSI(const Model& model, double shown, int unitClass) {
    if (unitClass == 0) return shown;
    const float factor = ToDisplay(model, 1.0, unitClass);
    return factor != 0.0f ? shown / factor : shown;
}

bool FitsSingle(double v) { return std::fabs(v) <= std::numeric_limits<float>::max(); }

} // namespace

SpreadSheetForm::SpreadSheetForm(Model& model, display::DisplayState& ds, files::UndoLog& undo, ui::UserInterface& ui,
                                 SpreadSheetHost& host, SheetWidths& widths)
    : m_(model),
      ds_(ds),
      undo_(undo),
      ui_(ui),
      host_(host),
      widths_(widths) {}

void SpreadSheetForm::Open() { Fill(); }

void SpreadSheetForm::Fill() {
    ui_.SetBusy(true);
    sep_ = ds_.DecimalSeparator;
    rows_ = BuildSheetRows(m_, ds_.DisplayList, sep_);
    pendingNew_ = 0;
    Modified = false;
    CurRow = SelRow = 0;
    CurCol = SelCol = sc::No;
    ui_.SetBusy(false);
}

void SpreadSheetForm::RefillRow(int r) {
    if (!ValidRow(r)) return;
    SheetRow& row = RowAt(r);
    if (row.Key < 1 || row.Key > m_.AirwayCount) return;
    FillSheetRow(m_, row.Key, sep_, row);
}

const std::string& SpreadSheetForm::Text(int r, int c) const {
    if (!ValidRow(r) || c < 0 || c >= sc::Count) return EmptyText();
    return Row(r).Cells[static_cast<std::size_t>(c)];
}

bool SpreadSheetForm::Red(int r, int c) const { return ValidRow(r) && c >= 0 && c < sc::Count && Row(r).Marked(c); }

void SpreadSheetForm::SetCurrent(int r, int c) { Select(r, c, r, c); }

void SpreadSheetForm::Select(int r1, int c1, int r2, int c2) {
    const int last = RowCount();
    auto row = [&](int r) { return std::clamp(r, 0, last); };
    auto col = [&](int c) { return std::clamp(c, 1, sc::Count - 1); };
    CurRow = row(r1);
    CurCol = col(c1);
    SelRow = row(r2);
    SelCol = col(c2);
}

void SpreadSheetForm::SetText(int r, int c, std::string text) {
    if (!ValidRow(r) || c < 1 || c >= sc::Count) return;
    SheetRow& row = RowAt(r);
    std::string& cell = row.Cells[static_cast<std::size_t>(c)];
    if (cell == text) return;
    cell = std::move(text);
    row.Changed |= 1u << c;
}

void SpreadSheetForm::SetCellMark(int r, int c, bool on) {
    if (!ValidRow(r)) return;
    SheetRow& row = RowAt(r);
    if (row.Marked(c) == on) return;
    row.SetMark(c, on);
    // A change of mark changes what the save writes, as a change of text does.
    row.Changed |= 1u << c;
}

void SpreadSheetForm::EnterCell(int r, int c, std::string_view text) {
    if (!ValidRow(r) || !SheetColumnEditable(c)) return;
    SetText(r, c, std::string(text));
    CellChanged(r, c);
    Modified = true;
}

void SpreadSheetForm::CellChanged(int r, int c) {
    if (!ValidRow(r)) return;
    ui_.SetBusy(true);
    switch (c) {
    case sc::From:
    case sc::To: {
        const std::string name = Text(r, c);
        if (name.empty()) break;
        // The name belongs to the node, which is where the coordinates are: every end at the
        // same X, Y and Z texts takes it.
        const int x = c == sc::From ? sc::X1 : sc::X2;
        const std::string px = Text(r, x), py = Text(r, x + 1), pz = Text(r, x + 2);
        for (int k = 1; k <= RowCount(); ++k) {
            const auto& cells = Row(k).Cells;
            if (cells[sc::X1] == px && cells[sc::Y1] == py && cells[sc::Z1] == pz) SetText(k, sc::From, name);
            if (cells[sc::X2] == px && cells[sc::Y2] == py && cells[sc::Z2] == pz) SetText(k, sc::To, name);
        }
        break;
    }
    case sc::Resistance:
    case sc::KFactor:
    case sc::Shock:
    case sc::Length:
        RecalcRow(r);
        SetCellMark(r, c, true);
        break;
    case sc::Flow:
    case sc::Pdrop:
        SetCellMark(r, c, true);
        if (Row(r).Marked(sc::Flow) && Row(r).Marked(sc::Pdrop) &&
            ui_.Ask("Calculate and fix resistance ?", "Resistance Calculation", ui::Buttons::YesNo) ==
                ui::Answer::Yes) {
            const double q = SheetValue(Text(r, sc::Flow));
            const double p = SheetValue(Text(r, sc::Pdrop));
            // Worked on the numbers on the screen; a flow of 0 gives no resistance.
            if (q != 0.0) {
                SetText(r, sc::Resistance, FormatNumber(std::fabs(p) / (q * q), "0.00000", sep_));
                SetCellMark(r, sc::Resistance, true);
            }
        }
        break;
    case sc::FPres:
        if (EndsInStar(Text(r, c))) {
            ui_.Message("Cannot fix this pressure due to fixed flow", ProgramName, ui::Icon::Exclamation);
        } else {
            SetCellMark(r, c, true);
        }
        break;
    case sc::Height:
    case sc::Width:
    case sc::X1:
    case sc::Y1:
    case sc::Z1:
    case sc::X2:
    case sc::Y2:
    case sc::Z2: RecalcRow(r); break;
    default: break;
    }
    ui_.SetBusy(false);
}

void SpreadSheetForm::RecalcRow(int r) {
    if (!ValidRow(r)) return;
    if (CurCol == sc::Resistance || EndsInStar(Text(r, sc::Resistance))) return;
    const SheetRow& row = Row(r);
    const bool inNetwork = row.Key >= 1 && row.Key <= m_.AirwayCount;
    // A row still to be added to the network is drawn as a rectangular airway.
    const std::int32_t shape = inNetwork ? m_.Airways[static_cast<std::size_t>(row.Key)].BranchCode : bc::Rectangular;
    auto si = [&](int col, int unitClass) { return ToSI(m_, SheetValue(Text(r, col)), unitClass); };

    const float h = static_cast<float>(si(sc::Height, uc::Length));
    const float w = static_cast<float>(si(sc::Width, uc::Length));
    float area = 0, perimeter = 0;
    const bool round = (shape & bc::Circular) != 0 || ((shape & bc::Rectangular) != 0 && h == 0.0f);
    if (round) {
        area = static_cast<float>(static_cast<double>(w) * w * ResistancePi / 4.0);
        perimeter = static_cast<float>(static_cast<double>(w) * ResistancePi);
    }
    if ((shape & bc::Rectangular) != 0 && h != 0.0f) {
        area = static_cast<float>(static_cast<double>(h) * w);
        perimeter = static_cast<float>(2.0 * w + 2.0 * h);
    }
    if ((shape & bc::AreaEntry) != 0) {
        area = w;
        perimeter = h;
    }
    if ((shape & bc::Services) != 0) area = static_cast<float>(area - ServicesArea);
    if (area <= 0) area = LeastArea;

    const float k = static_cast<float>(si(sc::KFactor, uc::Friction));
    float length;
    if (row.Marked(sc::Length)) {
        length = static_cast<float>(si(sc::Length, uc::Length));
    } else {
        const double dx = si(sc::X2, uc::LongLength) - si(sc::X1, uc::LongLength);
        const double dy = si(sc::Y2, uc::LongLength) - si(sc::Y1, uc::LongLength);
        const double dz = si(sc::Z2, uc::LongLength) - si(sc::Z1, uc::LongLength);
        length = static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
    }
    length = static_cast<float>(static_cast<double>(length) + static_cast<float>(si(sc::Shock, uc::Length)));
    if (area == 0.0f || length == 0.0f) return;

    const double a = area;
    float res = static_cast<float>(static_cast<double>(k) * perimeter * length * m_.Set.Density /
                                   (a * a * a * StandardDensity));
    if (res == 0.0f) res = LeastResistance;
    if (!Row(r).Marked(sc::Resistance)) {
        SetText(r, sc::Resistance,
                FormatNumber(ToDisplay(m_, res, uc::Resistance), UnitFormat(m_, uc::Resistance), sep_));
    }
}

void SpreadSheetForm::SaveChanges() {
    if (ui_.Ask("Save spreadsheet changes to network ?", "Save changes", ui::Buttons::YesNo) == ui::Answer::Yes) {
        SaveGrid();
    }
}

// Every number cell a save reads must read as a number, and the coordinates must lie within
// the program's limits, before anything is written: a refused save leaves the network whole.
bool SpreadSheetForm::CheckGrid(int& badRow, int& badCol, std::string& message) const {
    static constexpr int numberCols[] = {sc::Length, sc::Flow,  sc::Resistance, sc::KFactor, sc::Shock,
                                         sc::Fan,    sc::FPres, sc::Height,     sc::Width,   sc::X1,
                                         sc::Y1,     sc::Z1,    sc::X2,         sc::Y2,      sc::Z2};
    for (int r = 1; r <= RowCount(); ++r) {
        const SheetRow& row = Row(r);
        if (row.Key < 1) continue;
        for (const int c : numberCols) {
            if (!row.IsChanged(c)) continue;
            const std::string& text = row.Cells[static_cast<std::size_t>(c)];
            if (c == sc::FPres && (!row.Marked(c) || text == NegateText || text == StallText)) continue;
            const auto v = ReadSheetNumber(text);
            const double siValue = v ? ToSI(m_, *v, SheetUnitClass(c)) : 0.0;
            bool bad = !v || !FitsSingle(siValue);
            if (!bad && c == sc::Fan) bad = *v != std::trunc(*v) || *v < -1 || *v > INT16_MAX;
            if (bad) {
                badRow = r;
                badCol = c;
                message = "Error in Number Format";
                return false;
            }
            if (c >= sc::X1 && std::fabs(std::nearbyint(siValue)) > CoordinateLimit) {
                badRow = r;
                badCol = c;
                message = "Coordinate data exceeds 9999999 - changes not saved";
                return false;
            }
        }
    }
    return true;
}

// One row into a copy of its airway, in the order of the save. Cells the grid has not changed
// keep the stored value exactly: only the fixed marks and what the user typed are written.
void SpreadSheetForm::ApplyRow(const SheetRow& row, Airway& a) const {
    const Airway before = a;
    auto changed = [&](int c) { return row.IsChanged(c); };
    auto number = [&](int c) {
        return ToSI(m_, ReadSheetNumber(row.Cells[static_cast<std::size_t>(c)]).value_or(0.0), SheetUnitClass(c));
    };
    auto single = [&](int c, float& field) {
        if (changed(c)) field = static_cast<float>(number(c));
    };
    auto bit = [&](std::int32_t b, bool on) {
        if (on) {
            a.BranchCode |= b;
        } else {
            a.BranchCode &= ~b;
        }
    };
    // 1. Names.
    if (changed(sc::Name)) a.BranchName = FitText(row.Cells[sc::Name], NameWidth);
    if (changed(sc::From)) a.EntryNode = FitText(row.Cells[sc::From], NameWidth);
    if (changed(sc::To)) a.ExitNode = FitText(row.Cells[sc::To], NameWidth);
    // 2. Length and its fixed bit.
    single(sc::Length, a.Length);
    bit(bc::FixedLength, row.Marked(sc::Length));
    // 3. Flow and its fixed bit.
    single(sc::Flow, a.Quantity);
    bit(bc::FixedFlow, row.Marked(sc::Flow));
    // 4. Resistance: a fixed cell makes a calculated airway custom, an unfixed one calculated.
    single(sc::Resistance, a.Resistance);
    if (row.Marked(sc::Resistance)) {
        if (a.ResType == 0) a.ResType = CustomPreset;
    } else {
        a.ResType = 0;
    }
    if (a.Resistance == 0.0f) a.ResType = 0;
    // 5. and 6. Friction factor and shock length.
    single(sc::KFactor, a.WallFactor);
    if (row.Marked(sc::KFactor)) a.WallType = CustomPreset;
    if (a.WallFactor == 0.0f) a.WallType = 0;
    single(sc::Shock, a.ShockFactor);
    if (row.Marked(sc::Shock)) a.ShockType = CustomPreset;
    if (a.ShockFactor == 0.0f) a.ShockType = 0;
    // 7. Fan.
    if (changed(sc::Fan)) a.FanNumber = static_cast<std::int16_t>(number(sc::Fan));
    // 8. Fixed pressure.
    if (row.Marked(sc::FPres)) {
        a.FanNumber = -1;
        if (changed(sc::FPres)) {
            const std::string& text = row.Cells[sc::FPres];
            if (text == NegateText) {
                a.Pressure = NegatedFanPressure;
            } else if (text == StallText) {
                a.Pressure = StalledFanPressure;
            } else {
                a.Pressure = static_cast<float>(number(sc::FPres));
            }
        }
    } else if (a.FanNumber == -1) {
        a.FanNumber = 0;
    }
    // 9. Size.
    single(sc::Height, a.Height);
    single(sc::Width, a.Width);
    // 10. End points, rounded to whole metres.
    auto coordinate = [&](int c, std::int32_t& field) {
        if (changed(c)) field = static_cast<std::int32_t>(std::nearbyint(number(c)));
    };
    coordinate(sc::X1, a.X1);
    coordinate(sc::Y1, a.Y1);
    coordinate(sc::Z1, a.Z1);
    coordinate(sc::X2, a.X2);
    coordinate(sc::Y2, a.Y2);
    coordinate(sc::Z2, a.Z2);
    // The ends' node keys follow the coordinates, so that a moved or new airway joins its nodes
    // and shows in the views before the next run rebuilds every key.
    if (row.Key > m_.AirwayCount || a.X1 != before.X1 || a.Y1 != before.Y1 || a.Z1 != before.Z1 || a.X2 != before.X2 ||
        a.Y2 != before.Y2 || a.Z2 != before.Z2) {
        a.EntryKey = EndKey(m_, a.X1, a.Y1, a.Z1, a.Has(bc::EntryAtSurface));
        a.ExitKey = EndKey(m_, a.X2, a.Y2, a.Z2, a.Has(bc::ExitAtSurface));
    }
}

bool SpreadSheetForm::SaveGrid() {
    int badRow = 0, badCol = 0;
    std::string message;
    if (!CheckGrid(badRow, badCol, message)) {
        SetCurrent(badRow, badCol);
        ui_.Message(message, ProgramName, ui::Icon::Exclamation);
        return false;
    }
    ui_.SetBusy(true);
    const std::int16_t step = undo_.CurrentStep;
    bool any = false;
    // Rows inserted in the grid become new airways after the last one, in the order of their
    // keys, so that the network never has a gap.
    const std::int32_t oldCount = m_.AirwayCount;
    std::vector<SheetRow*> fresh;
    for (SheetRow& row : rows_)
        if (row.Key > oldCount) fresh.push_back(&row);
    std::sort(fresh.begin(), fresh.end(), [](const SheetRow* x, const SheetRow* y) { return x->Key < y->Key; });
    for (SheetRow* row : fresh) {
        if (m_.AirwayCount + 1 >= MaxAirways || static_cast<std::size_t>(m_.AirwayCount + 1) >= m_.Airways.size()) {
            row->Key = 0;
            continue;
        }
        row->Key = ++m_.AirwayCount;
        Airway& a = m_.Airways[static_cast<std::size_t>(row->Key)];
        a = Airway{};
        a.BranchCode = bc::Rectangular;
        a.NoAirways = 1;
        a.AirwayNo = m_.Set.LastAirwayNo;
        if (m_.Set.LastAirwayNo < INT32_MAX) ++m_.Set.LastAirwayNo;
        row->Cells[sc::Key] = std::to_string(row->Key);
        row->Cells[sc::No] = std::to_string(a.AirwayNo);
    }
    for (int r = 1; r <= RowCount(); ++r) {
        SheetRow& row = RowAt(r);
        if (row.Key < 1 || row.Key > m_.AirwayCount) continue;
        const bool isNew = row.Key > oldCount;
        Airway& stored = m_.Airways[static_cast<std::size_t>(row.Key)];
        Airway next = stored;
        ApplyRow(row, next);
        if (!isNew && next == stored) {
            row.Changed = 0;
            continue;
        }
        if (!isNew) undo_.LogAirway(m_, ui_, row.Key, files::undo::Before, step);
        const std::int32_t undoNo = stored.UndoNo;
        stored = next;
        stored.UndoNo = undoNo;
        undo_.LogAirway(m_, ui_, row.Key, files::undo::After, step);
        row.Changed = 0;
        any = true;
    }
    pendingNew_ = 0;
    if (any) {
        if (undo_.CurrentStep < INT16_MAX) ++undo_.CurrentStep;
        m_.NetworkSaved = No0;
    }
    Modified = false;
    m_.SimFail = RunResult::Good;
    ui_.SetBusy(false);
    return true;
}

bool SpreadSheetForm::Close() {
    if (Modified &&
        ui_.Ask("Save spreadsheet changes to network ?", "Save changes", ui::Buttons::YesNo) == ui::Answer::Yes) {
        if (!SaveGrid()) return false;
    }
    StoreWidths();
    display::BuildDisplayList(m_, ds_);
    host_.RefreshViews();
    return true;
}

void SpreadSheetForm::StoreWidths() { widths_.Taken = true; }

void SpreadSheetForm::TakeGridWidths(const std::array<int, sc::Count>& widths) {
    if (widths_.Taken) return;
    widths_.Width = widths;
    widths_.Taken = true;
}

int SpreadSheetForm::PrintWidth(int col) const {
    if (col < 1 || col >= sc::Count) return 0;
    if (!widths_.Taken) return SheetColumns()[static_cast<std::size_t>(col)].Characters;
    return ShownWidth(col);
}

void SpreadSheetForm::Print() {
    const std::optional<int> size = AskPrintFontSize(ui_);
    if (!size) return;
    if (!host_.PrintTable(*size)) ui_.Message("Error printing data ! - aborting", ProgramName, ui::Icon::Exclamation);
}

int SpreadSheetForm::ShownWidth(int col) const {
    if (col < 1 || col >= sc::Count) return 0;
    const int w = widths_.Width[static_cast<std::size_t>(col)];
    return w > 0 ? w : 0;
}

} // namespace karvane::forms
