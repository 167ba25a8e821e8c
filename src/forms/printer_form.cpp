// The rules of the print dialog over its fields.
#include "forms/printer_form.h"

#include <cmath>

#include "display/print_network.h"
#include "files/number_text.h"
#include "files/recent_files.h"

namespace karvane::forms {

namespace {

std::string WholeNumber(double value) { return files::PlainInt(static_cast<std::int64_t>(std::lround(value))); }

// The view's own figure on this paper: a print at a smaller figure would not fit the page.
void ComputeFigure(PrinterFields& f) {
    display::ViewState view;
    view.ScaleWidth = f.ViewWidth;
    f.MinFigure = display::PageScaleFigure(view, f.PageWidthMm);
    f.TxtScale = files::PlainSingle(f.MinFigure, f.DecimalSeparator);
}

} // namespace

std::string StoredPrinterValue(ui::UserInterface& ui, const char* key, const char* fallback) {
    return ui.GetSetting(files::StoreApp, files::FilesSection, key, fallback);
}

int StoredPrinterInt(ui::UserInterface& ui, const char* key, int fallback) {
    const std::string text = StoredPrinterValue(ui, key, std::to_string(fallback).c_str());
    if (!files::IsNumber(text)) return fallback;
    return static_cast<int>(files::ToInt32(files::ParseNumber(text)));
}

PrinterFields OpenPrinterForm(const Model& model, const display::DisplayState& ds, ui::UserInterface& ui,
                              PrinterHost& host) {
    PrinterFields f;
    f.DecimalSeparator = ds.DecimalSeparator;
    f.ViewWidth = ds.View.ScaleWidth;
    f.TxtTitle = TrimText(model.FileComment).empty() ? "Unnamed Network" : model.FileComment;
    f.PrintList = host.PrinterNames();
    // A stored printer that no longer exists is passed over: the system's own stays current.
    const std::string stored = StoredPrinterValue(ui, PrinterNameKey, "");
    const std::string wanted = stored.empty() ? host.DefaultPrinter() : stored;
    for (std::size_t i = 0; i < f.PrintList.size(); ++i) {
        if (f.PrintList[i] == wanted) f.PrinterIndex = static_cast<int>(i);
    }
    if (f.PrinterIndex < 0) {
        const std::string fallback = host.DefaultPrinter();
        for (std::size_t i = 0; i < f.PrintList.size(); ++i) {
            if (f.PrintList[i] == fallback) f.PrinterIndex = static_cast<int>(i);
        }
    }
    if (f.PrinterIndex < 0 && !f.PrintList.empty()) f.PrinterIndex = 0;
    f.PaperSize = StoredPrinterInt(ui, PaperSizeKey, f.PrinterIndex >= 0 ? host.DefaultPaper(f.Printer()) : 0);
    f.ChkColour = StoredPrinterInt(ui, PrintColourKey, 0) != 0;
    f.OptOrient = StoredPrinterInt(ui, PrintOrientKey, 0) == 1 ? 1 : 0;
    RefillPapers(f, host);
    return f;
}

void RefillPapers(PrinterFields& f, PrinterHost& host) {
    const std::string printer = f.Printer();
    f.PrintSize = printer.empty() ? std::vector<PaperChoice>() : host.Papers(printer);
    f.PaperIndex = -1;
    for (std::size_t i = 0; i < f.PrintSize.size(); ++i) {
        if (f.PrintSize[i].Id == f.PaperSize) f.PaperIndex = static_cast<int>(i);
    }
    if (f.PaperIndex < 0 && !f.PrintSize.empty()) {
        // A paper this printer doesn't know: its own paper stands.
        const int own = host.DefaultPaper(printer);
        f.PaperIndex = 0;
        for (std::size_t i = 0; i < f.PrintSize.size(); ++i) {
            if (f.PrintSize[i].Id == own) f.PaperIndex = static_cast<int>(i);
        }
        f.PaperSize = f.PrintSize[static_cast<std::size_t>(f.PaperIndex)].Id;
    }
    f.PageWidthMm = f.PageHeightMm = 0;
    if (!printer.empty()) host.PageSize(printer, f.PaperSize, f.OptOrient, f.PageWidthMm, f.PageHeightMm);
    f.PSizer = WholeNumber(f.PageWidthMm) + "mm wide x " + WholeNumber(f.PageHeightMm) + "mm high";
    ComputeFigure(f);
}

void ChoosePrinter(PrinterFields& f, PrinterHost& host, int index) {
    if (index < 0 || index >= static_cast<int>(f.PrintList.size())) return;
    f.PrinterIndex = index;
    RefillPapers(f, host);
}

void ChoosePaper(PrinterFields& f, PrinterHost& host, int index) {
    if (index < 0 || index >= static_cast<int>(f.PrintSize.size())) return;
    f.PaperIndex = index;
    f.PaperSize = f.PrintSize[static_cast<std::size_t>(index)].Id;
    RefillPapers(f, host);
}

void ChooseOrientation(PrinterFields& f, PrinterHost& host, int orientation) {
    f.OptOrient = orientation == 1 ? 1 : 0;
    RefillPapers(f, host);
}

void LeaveScale(PrinterFields& f, ui::UserInterface& ui) {
    const double value = files::ParseNumber(f.TxtScale);
    if (!(value >= f.MinFigure)) {
        ui.Message("Scale exceeds paper size !", ProgramName, ui::Icon::Exclamation);
        f.TxtScale = files::PlainSingle(f.MinFigure, f.DecimalSeparator);
    } else if (value > MaxScaleFigure) {
        ui.Message("The print scale can be at most 1:" + files::PlainInt(static_cast<std::int64_t>(MaxScaleFigure)),
                   ProgramName, ui::Icon::Exclamation);
        f.TxtScale = files::PlainInt(static_cast<std::int64_t>(MaxScaleFigure));
    }
}

PrintRequest PrintItRequest(const PrinterFields& f) {
    PrintRequest r;
    r.Settings.PrintInColour = f.ChkColour ? 1 : 0;
    r.Settings.PrintOrientation = static_cast<std::int16_t>(f.OptOrient);
    r.Settings.PrintTitle = f.TxtTitle;
    const double figure = files::ParseNumber(f.TxtScale);
    r.ScaleFigure = static_cast<float>(figure >= f.MinFigure && figure <= MaxScaleFigure ? figure : f.MinFigure);
    const double copies = files::ParseNumber(f.TxtCopies);
    r.Copies = copies < 1 ? 1 : static_cast<int>(std::min(copies, 999.0));
    r.Printer = f.Printer();
    r.PaperSize = f.PaperSize;
    return r;
}

void SavePrinterSettings(const PrinterFields& f, ui::UserInterface& ui) {
    ui.SaveSetting(files::StoreApp, files::FilesSection, PrinterNameKey, f.Printer());
    ui.SaveSetting(files::StoreApp, files::FilesSection, PaperSizeKey, std::to_string(f.PaperSize));
    ui.SaveSetting(files::StoreApp, files::FilesSection, PrintColourKey, f.ChkColour ? "1" : "0");
    ui.SaveSetting(files::StoreApp, files::FilesSection, PrintOrientKey, std::to_string(f.OptOrient));
}

} // namespace karvane::forms
