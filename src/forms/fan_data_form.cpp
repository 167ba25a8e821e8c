// The fan database editor.
#include "forms/fan_data_form.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "display/data_format.h"
#include "engineering/fan_conversion.h"
#include "files/fan_file.h"
#include "files/number_text.h"
#include "model/units.h"

namespace karvane::forms {
namespace {

constexpr const char* DataEntryError = "An error has occured - probably in data entry";
constexpr const char* PasteErrorText = "An error has occured while attempting to paste data";

bool ValidFan(const Model& model, int fan) { return fan >= 1 && fan <= FanSlotCount(model); }

FanRecord* Current(Model& model, const FanDataFields& fields) {
    return ValidFan(model, fields.CurrentFan) ? &model.Fans[static_cast<std::size_t>(fields.CurrentFan)] : nullptr;
}

// A cell that counts: empty, or a number that a Single can hold.
bool CellReadable(const std::string& text) {
    if (TrimText(text).empty()) return true;
    if (!files::IsNumber(text)) return false;
    const double v = files::ParseNumber(text);
    return std::isfinite(v) && std::fabs(v) <= std::numeric_limits<float>::max();
}

} // namespace

int FanSlotCount(const Model& model) {
    return std::max(0, std::min<int>(model.Set.MaxFans, static_cast<int>(model.Fans.size()) - 1));
}

std::string FanListEntry(const Model& model, int fan) {
    const std::string& name = model.Fans[static_cast<std::size_t>(fan)].FanName;
    return std::to_string(fan) + " " + (TrimText(name).empty() ? std::string("-none-") : name);
}

std::string FanColumnHeading(const Model& model, int col) {
    switch (col) {
    case fancol::Point: return "Point";
    case fancol::Static: return "Ps " + UnitLabel(model, uc::Pressure);
    case fancol::Total: return "Pt " + UnitLabel(model, uc::Pressure);
    case fancol::Flow: return "Q " + UnitLabel(model, uc::Flow);
    default: return "Efc%";
    }
}

int FanColumnWidth(const FanDataFields& fields, int col) {
    switch (col) {
    case fancol::Static: return fields.ChkStatic ? 800 : 0;
    case fancol::Total: return fields.ChkTotal ? 800 : 0;
    case fancol::Eff: return fields.ChkEff ? 600 : 0;
    default: return -1;
    }
}

void FanCurveSet(const FanRecord& fan, FanDataFields& fields) {
    fields.ChkStatic = fields.ChkTotal = fields.ChkEff = true;
    fields.TotalBlank = fan.FanPTotal[1] == fan.FanPTotal[FanTablePoints];
    if (fields.TotalBlank) fields.ChkTotal = false;
    fields.StaticBlank = fan.FanPStatic[1] == fan.FanPStatic[FanTablePoints];
    if (fields.StaticBlank) fields.ChkStatic = false;
    fields.FlowBlank = fan.FanQ[1] == fan.FanQ[FanTablePoints];
    fields.EffBlank = fan.FanEff[1] == 0 && fan.FanEff[FanTablePoints] == 0;
    if (fields.EffBlank) fields.ChkEff = false;
    if (!fields.ChkStatic && !fields.ChkTotal) fields.ChkStatic = true;
}

void SelectFan(Model& model, FanDataFields& fields, int fan, ui::UserInterface& ui) {
    if (!ValidFan(model, fan)) return;
    fields.CurrentFan = fan;
    const FanRecord& f = model.Fans[static_cast<std::size_t>(fan)];
    const char sep = ui.DecimalSeparator();
    fields.TxtFanName = TrimText(f.FanName).empty() ? "-none-" : f.FanName;
    fields.TxtOutDiam = f.FanDiam == 0 ? "n/a"
                                       : display::FormatValue(model, f.FanDiam, uc::LongLength, false, true, sep) +
                                             " " + UnitLabel(model, uc::Length);
    FanCurveSet(f, fields);
    for (int p = 1; p <= FanTablePoints; ++p) {
        auto& row = fields.Cells[static_cast<std::size_t>(p)];
        row[fancol::Point] = std::to_string(p);
        row[fancol::Static] =
            fields.StaticBlank ? "" : display::FormatValue(model, f.FanPStatic[p], uc::Pressure, false, true, sep);
        row[fancol::Total] =
            fields.TotalBlank ? "" : display::FormatValue(model, f.FanPTotal[p], uc::Pressure, false, true, sep);
        row[fancol::Flow] = fields.FlowBlank ? "" : display::FormatValue(model, f.FanQ[p], uc::Flow, false, true, sep);
        row[fancol::Eff] = fields.EffBlank ? "" : std::to_string(f.FanEff[p]);
    }
    ReadCurve(model, fields, ui);
}

FanDataFields OpenFanData(Model& model, ui::UserInterface& ui) {
    FanDataFields fields;
    SelectFan(model, fields, 1, ui);
    return fields;
}

void ReadCurve(Model& model, FanDataFields& fields, ui::UserInterface& ui) {
    FanRecord* fan = Current(model, fields);
    if (!fan) return;
    for (int p = 1; p <= FanTablePoints; ++p)
        for (int c = fancol::Static; c <= fancol::Eff; ++c)
            if (!CellReadable(fields.Cells[static_cast<std::size_t>(p)][static_cast<std::size_t>(c)])) {
                ui.Message(DataEntryError, ProgramName);
                return;
            }

    // 1. The cells in SI; an empty cell reads as 0.
    FanRecord f = *fan;
    double maxQ = 0, maxP = 0;
    for (int p = 1; p <= FanTablePoints; ++p) {
        const auto& row = fields.Cells[static_cast<std::size_t>(p)];
        f.FanPStatic[p] = static_cast<float>(FromDisplay(model, row[fancol::Static], uc::Pressure));
        f.FanPTotal[p] = static_cast<float>(FromDisplay(model, row[fancol::Total], uc::Pressure));
        f.FanQ[p] = std::max(0.0f, static_cast<float>(FromDisplay(model, row[fancol::Flow], uc::Flow)));
        f.FanEff[p] =
            static_cast<std::int16_t>(std::clamp(std::trunc(files::ParseNumber(row[fancol::Eff])), 0.0, 100.0));
        maxQ = std::max<double>(maxQ, f.FanQ[p]);
        maxP = std::max({maxP, static_cast<double>(f.FanPStatic[p]), static_cast<double>(f.FanPTotal[p])});
    }
    // 2. An unnamed fan with a curve is named by its number.
    if (maxQ > 0 && maxP > 0 && (TrimText(fields.TxtFanName).empty() || fields.TxtFanName == "-none-")) {
        fields.TxtFanName = "Fan #" + std::to_string(fields.CurrentFan);
        f.FanName = fields.TxtFanName;
    }
    // 3. Points by falling pressure, by insertion so that equal pressures keep their order: on the
    // total column when the static curve is blank, else on the static column.
    const bool staticBlank = f.FanPStatic[1] == f.FanPStatic[FanTablePoints];
    const auto& key = staticBlank ? f.FanPTotal : f.FanPStatic;
    std::array<int, FanTablePoints + 1> order{};
    for (int p = 1; p <= FanTablePoints; ++p) order[static_cast<std::size_t>(p)] = p;
    std::stable_sort(order.begin() + 1, order.end(),
                     [&](int a, int b) { return key[static_cast<std::size_t>(a)] > key[static_cast<std::size_t>(b)]; });
    FanRecord sorted = f;
    for (int p = 1; p <= FanTablePoints; ++p) {
        const auto from = static_cast<std::size_t>(order[static_cast<std::size_t>(p)]);
        sorted.FanPStatic[p] = f.FanPStatic[from];
        sorted.FanPTotal[p] = f.FanPTotal[from];
        sorted.FanQ[p] = f.FanQ[from];
        sorted.FanEff[p] = f.FanEff[from];
    }
    // 4. A point with no static pressure and no flow repeats the point before it.
    for (int p = 2; p <= FanTablePoints; ++p)
        if (sorted.FanPStatic[p] == 0 && sorted.FanQ[p] == 0) {
            sorted.FanPStatic[p] = sorted.FanPStatic[p - 1];
            sorted.FanPTotal[p] = sorted.FanPTotal[p - 1];
            sorted.FanQ[p] = sorted.FanQ[p - 1];
            sorted.FanEff[p] = sorted.FanEff[p - 1];
        }
    *fan = sorted;
    // 5. The scales of the graph.
    fields.FlowScale = maxQ / 1000;
    fields.PressureScale = maxP / 1000;
}

void TypeFanName(Model& model, FanDataFields& fields, const std::string& text) {
    std::string name;
    for (char ch : text)
        if (ch != ',') name += ch;
    fields.TxtFanName = name;
    if (FanRecord* fan = Current(model, fields)) fan->FanName = name;
    model.FansSaved = No0;
}

void EnterOutDiam(Model& model, FanDataFields& fields, const std::string& text) {
    FanRecord* fan = Current(model, fields);
    if (!fan) return;
    const double d = files::IsNumber(text) ? FromDisplay(model, text, uc::LongLength) : 0;
    fan->FanDiam = std::isfinite(d) && std::fabs(d) <= std::numeric_limits<float>::max() ? static_cast<float>(d) : 0;
    fields.TxtOutDiam = text;
    model.FansSaved = No0;
}

void SetCurveBox(FanDataFields& fields, int box, bool ticked) {
    if (box == 0) fields.ChkStatic = ticked;
    if (box == 1) fields.ChkTotal = ticked;
    if (box == 2) fields.ChkEff = ticked;
    if (!fields.ChkStatic && !fields.ChkTotal) {
        if (box == 0) fields.ChkStatic = true;
        else fields.ChkTotal = true;
    }
}

void SetFanCell(Model& model, FanDataFields& fields, int point, int col, const std::string& text,
                ui::UserInterface& ui) {
    if (point < 1 || point > FanTablePoints || col < fancol::Static || col > fancol::Eff) return;
    fields.Cells[static_cast<std::size_t>(point)][static_cast<std::size_t>(col)] = text;
    fields.Modified = true;
    ReadCurve(model, fields, ui);
}

void ClearFanCells(Model& model, FanDataFields& fields, const std::vector<GridCell>& cells, ui::UserInterface& ui) {
    for (const GridCell& c : cells)
        if (c.Row >= 1 && c.Row <= FanTablePoints && c.Col >= fancol::Static && c.Col <= fancol::Eff)
            fields.Cells[static_cast<std::size_t>(c.Row)][static_cast<std::size_t>(c.Col)].clear();
    ReadCurve(model, fields, ui);
}

bool PasteFanTable(Model& model, FanDataFields& fields, const std::string& text, GridCell from, int lastPoint,
                   ui::UserInterface& ui) {
    const CellTable clip = ReadClipboardTable(text);
    bool bad = from.Col < fancol::Static || from.Col + ClipboardColumns(clip) - 1 > fancol::Eff;
    for (const auto& row : clip)
        for (const std::string& cell : row) bad = bad || !CellReadable(cell);
    if (bad) {
        ui.Message(PasteErrorText, "Paste Error");
        return false;
    }
    const GridLimits limits{1, FanTablePoints, fancol::Static, fancol::Eff};
    for (const CellWrite& w : PasteWrites(clip, from, lastPoint, limits))
        fields.Cells[static_cast<std::size_t>(w.Cell.Row)][static_cast<std::size_t>(w.Cell.Col)] = w.Text;
    fields.Modified = true;
    ReadCurve(model, fields, ui);
    return true;
}

std::string CopyFanTable(const FanDataFields& fields, int top, int left, int bottom, int right) {
    CellTable table;
    for (int r = std::max(1, top); r <= std::min(bottom, FanTablePoints); ++r) {
        std::vector<std::string> row;
        for (int c = std::max(0, left); c <= std::min(right, fancol::Eff); ++c)
            row.push_back(fields.Cells[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]);
        table.push_back(std::move(row));
    }
    return ClipboardText(table);
}

void FillEfficiency(Model& model, int fan, ui::UserInterface& ui) {
    if (!ValidFan(model, fan)) return;
    FanRecord& f = model.Fans[static_cast<std::size_t>(fan)];
    int zeros = 0;
    for (int p = 1; p <= FanTablePoints; ++p) zeros += f.FanEff[p] == 0 ? 1 : 0;
    if (zeros < 1 || zeros > 9) return;
    ui.Message("Your fan curve contains " + std::to_string(zeros) +
                   " zero efficiency value(s)\r\nReplacing these with the default efficiency value!",
               ProgramName);
    const auto fill = static_cast<std::int16_t>(std::trunc(static_cast<double>(model.Set.AirEfficiency) * 100));
    for (int p = 1; p <= FanTablePoints; ++p)
        if (f.FanEff[p] == 0) f.FanEff[p] = fill;
}

void ExitFan(Model& model, FanDataFields& fields, ui::UserInterface& ui) {
    FillEfficiency(model, fields.CurrentFan, ui);
    model.FansSaved = No0;
}

void CancelFan(Model& model, FanDataFields& fields, ui::UserInterface& ui) {
    if (!fields.Modified) return;
    if (ui.Ask("Save fan changes to network ?", "Save changes", ui::Buttons::YesNo) == ui::Answer::Yes)
        ExitFan(model, fields, ui);
}

void DeleteFan(Model& model, FanDataFields& fields, ui::UserInterface& ui) {
    FanRecord* fan = Current(model, fields);
    if (!fan) return;
    if (ui.Ask("Are you sure you want to delete fan?", "DELETE", ui::Buttons::OKCancel) != ui::Answer::OK) return;
    fan->FanName.clear();
    for (int p = 1; p <= FanTablePoints; ++p) fan->FanPStatic[p] = fan->FanPTotal[p] = fan->FanQ[p] = 0;
    model.FansSaved = No0;
    SelectFan(model, fields, fields.CurrentFan, ui);
}

void SaveFanDefault(Model& model, FanDataFields& fields, ui::UserInterface& ui) {
    if (ui.Ask("Are you sure you want to save to default database ?", "Save Fan Database", ui::Buttons::OKCancel) !=
        ui::Answer::OK)
        return;
    FillEfficiency(model, fields.CurrentFan, ui);
    if (files::SaveFanDatabase(model, ui)) model.FansSaved = Yes255;
}

void ExitFanMenu(Model& model) { model.FansSaved = No0; }

namespace {

// One estimate of the Tools menu: the question with its words for one fan or all, then
// ReadCurve, the estimate of each fan in turn, and the dialog filled again.
void Estimate(Model& model, FanDataFields& fields, bool allFans, bool staticCurve, ui::UserInterface& ui) {
    const std::string made = staticCurve ? "static" : "total", from = staticCurve ? "total" : "static";
    const std::string text = allFans ? "Karvane will attempt to calculate a " + made +
                                           " fan curve for all fans based on the " + from +
                                           " curves and fan diameters. This may not represent the true fan curves."
                                     : "Karvane will attempt to calculate a " + made + " fan curve based on the " +
                                           from + " curve and fan diameter. This may not represent the true fan curve.";
    const std::string title = "Estimate " + made + (allFans ? " curves" : " curve");
    if (ui.Ask(text, title, ui::Buttons::OKCancel) != ui::Answer::OK) return;
    ReadCurve(model, fields, ui);
    const int first = allFans ? 1 : fields.CurrentFan, last = allFans ? FanSlotCount(model) : fields.CurrentFan;
    for (int n = first; n <= last; ++n) {
        if (!ValidFan(model, n)) continue;
        FanRecord& fan = model.Fans[static_cast<std::size_t>(n)];
        if (staticCurve) EstimateStaticCurve(fan, model.Set.Density);
        else if (!EstimateTotalCurve(fan, model.Set.Density))
            ui.Message("No fan diameter has been entered for Fan " + std::to_string(n) +
                           ".  Cannot estimate Total Pressure unless the velocity pressure can be calculated from "
                           "the fan diameter!!",
                       ProgramName);
    }
    SelectFan(model, fields, fields.CurrentFan, ui);
}

} // namespace

void EstimateStatic(Model& model, FanDataFields& fields, bool allFans, ui::UserInterface& ui) {
    Estimate(model, fields, allFans, true, ui);
}

void EstimateTotal(Model& model, FanDataFields& fields, bool allFans, ui::UserInterface& ui) {
    Estimate(model, fields, allFans, false, ui);
}

void DrawFanGraph(const Model& model, const FanRecord& fan, display::Surface& s, char decimalSep) {
    double maxQ = 0, maxP = 0;
    for (int p = 1; p <= FanTablePoints; ++p) {
        maxQ = std::max<double>(maxQ, fan.FanQ[p]);
        maxP = std::max({maxP, static_cast<double>(fan.FanPStatic[p]), static_cast<double>(fan.FanPTotal[p])});
    }
    const double qScale = maxQ / 1000, pScale = maxP / 1000;
    s.SetBackColour(Rgb(255, 255, 255));
    s.SetCoordinateBox(-160, -80, 1320, 1180);
    s.Clear();
    if (qScale == 0 || pScale == 0) {
        s.Refresh();
        return;
    }
    constexpr display::Colour black = 0, blue = Rgb(0, 0, 255), green = Rgb(0, 255, 0), red = Rgb(255, 0, 0),
                              yellow = Rgb(255, 255, 0);
    const auto x = [&](int p) { return static_cast<float>(fan.FanQ[p] / qScale); };
    const auto y = [&](float v) { return static_cast<float>(1000 - v / pScale); };
    const auto ye = [&](int p) { return static_cast<float>(1000 - 10.0 * fan.FanEff[p]); };
    const bool staticFlat = fan.FanPStatic[1] == fan.FanPStatic[FanTablePoints];
    const bool totalFlat = fan.FanPTotal[1] == fan.FanPTotal[FanTablePoints];
    s.SetLineWidth(1);
    s.SetLineStyle(display::LineStyle::Solid);
    for (int p = 1; p < FanTablePoints; ++p) {
        if (!staticFlat) s.Line(x(p), y(fan.FanPStatic[p]), x(p + 1), y(fan.FanPStatic[p + 1]), black);
        s.Line(x(p), ye(p), x(p + 1), ye(p + 1), blue);
        if (!totalFlat) s.Line(x(p), y(fan.FanPTotal[p]), x(p + 1), y(fan.FanPTotal[p + 1]), green);
    }
    for (int p = 1; p < FanTablePoints; ++p) {
        if (!staticFlat) {
            s.SetForeColour(red);
            s.Circle(x(p), y(fan.FanPStatic[p]), 20);
        }
        if (!totalFlat) {
            s.SetForeColour(yellow);
            s.Circle(x(p), y(fan.FanPTotal[p]), 20);
        }
    }
    // Captions and axes.
    s.SetForeColour(black);
    s.SetFontName("Arial");
    s.SetFontSize(8);
    s.SetFontBold(false);
    const double topP = std::max(fan.FanPStatic[1], fan.FanPTotal[1]);
    const std::string pText = display::FormatValue(model, topP, uc::Pressure, true, false, decimalSep);
    s.SetCurrentPoint(-150, -70);
    s.PrintText(pText);
    const std::string qText = display::FormatValue(model, fan.FanQ[FanTablePoints], uc::Flow, true, false, decimalSep);
    s.SetCurrentPoint(1000 - s.TextWidth(qText), 1010);
    s.PrintText(qText);
    s.SetCurrentPoint(-40, 1010);
    s.PrintText("0,0");
    s.SetCurrentPoint(1010, -70);
    s.PrintText("100%");
    s.SetCurrentPoint(1010, 500);
    s.PrintText("Eff");
    s.Line(0, 0, 0, 1000, black);
    s.Line(0, 1000, 1000, 1000, black);
    s.Line(1000, 1000, 1000, 0, black);
    s.Refresh();
}

FanDataForm::FanDataForm(Model& model, ui::UserInterface& ui) : model_(model), ui_(ui) { F = OpenFanData(model, ui); }

bool FanDataForm::SetField(const std::string& name, const std::string& value) {
    const bool tick = files::ParseNumber(value) != 0 || value == "True" || value == "true";
    if (name == "FanList") SelectFan(model_, F, static_cast<int>(files::ParseNumber(value)), ui_);
    else if (name == "TxtFanName") TypeFanName(model_, F, value);
    else if (name == "TxtOutDiam") EnterOutDiam(model_, F, value);
    else if (name == "ChkStatic") SetCurveBox(F, 0, tick);
    else if (name == "ChkTotal") SetCurveBox(F, 1, tick);
    else if (name == "ChkEff") SetCurveBox(F, 2, tick);
    else return false;
    return true;
}

bool FanDataForm::SetCell(int point, int col, const std::string& value) {
    if (point < 1 || point > FanTablePoints || col < fancol::Static || col > fancol::Eff) return false;
    SetFanCell(model_, F, point, col, value, ui_);
    return true;
}

bool FanDataForm::PressButton(const std::string& name) {
    if (name == "ExitFan") {
        ExitFan(model_, F, ui_);
        closed_ = true;
    } else if (name == "Cancel") {
        CancelFan(model_, F, ui_);
        closed_ = true;
    } else if (name == "Command2" || name == "mnuDelete") {
        DeleteFan(model_, F, ui_);
    } else if (name == "mnuSave") {
        SaveFanDefault(model_, F, ui_);
    } else if (name == "mnuex") {
        ExitFanMenu(model_);
        closed_ = true;
    } else if (name == "mnuStaticCurrent" || name == "mnuStaticAll") {
        EstimateStatic(model_, F, name == "mnuStaticAll", ui_);
    } else if (name == "mnuTotalCurrent" || name == "mnuTotalAll") {
        EstimateTotal(model_, F, name == "mnuTotalAll", ui_);
    } else if (name != "SaveFan") { // "Save" stands in the dialog with no action
        return false;
    }
    return true;
}

} // namespace karvane::forms
