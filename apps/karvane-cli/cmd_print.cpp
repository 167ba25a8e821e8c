// print FILE OUT.pdf|OUT.svg [--simulate] [--scale N] [--paper NAME] [--landscape] [--mono]
// [--title TEXT] [--level NAME] [--view N] [--data TYPE]: prints the first view window of a
// network (or a saved view) to scale as the desktop program's print does, into a PDF file
// through Qt's PDF output on the offscreen platform, or into an SVG page of the same paper.
#include <QRectF>
#include <cmath>
#include <iostream>
#include <memory>

#include "commands.h"
#include "display/mapped_surface.h"
#include "display/print_network.h"
#include "display/renderer.h"
#include "display/svg_surface.h"
#include "display/view_title.h"
#include "files/number_text.h"
#include "files/text_file.h"
#include "gui_output.h"
#include "qt/page_job.h"
#include "qt/qt_text.h"
#include "session.h"
#include "view_setup.h"

namespace karvane::cli {

namespace {

constexpr const char* kTitle = "Print";
// The largest scale figure a print takes: beyond it a mine would be a dot on the paper.
constexpr double kMaxFigure = 10000000;

struct PrintOptions {
    ViewRequest View;
    std::string Out;
    std::string Scale;
    std::string Paper = "A4";
    bool Landscape = false;
    bool Mono = false;
    std::string Title;
    bool TitleGiven = false;
};

// A scale figure typed as a whole or decimal number from 1 to kMaxFigure; nothing otherwise.
std::optional<float> ParseFigure(const std::string& text) {
    std::size_t used = 0;
    double value = 0;
    try {
        value = std::stod(text, &used);
    } catch (...) {
        return std::nullopt;
    }
    if (used != text.size() || !std::isfinite(value) || value < 1 || value > kMaxFigure) return std::nullopt;
    return static_cast<float>(value);
}

int Print(const CommandLine& cl, PrintOptions o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    ui::ConsoleUserInterface& ui = s.ui();
    StartGuiOutput();
    const std::optional<QPageSize> paper = shell::PaperByName(QString::fromStdString(o.Paper));
    if (!paper) {
        ui.Message("Unknown paper: " + o.Paper + " (papers: " + shell::StandardPaperNames().toStdString() + ")", kTitle,
                   ui::Icon::Critical);
        return ExitUsage;
    }
    std::optional<float> figure;
    if (!o.Scale.empty()) {
        figure = ParseFigure(o.Scale);
        if (!figure) {
            ui.Message("The print scale must be a number from 1 to 10000000: " + o.Scale, kTitle, ui::Icon::Critical);
            return ExitUsage;
        }
    }
    // The title is printed in the network's code page: a character outside it cannot be.
    const QString title = QString::fromUtf8(o.Title.data(), static_cast<qsizetype>(o.Title.size()));
    if (o.TitleGiven && shell::FromCp1252(shell::ToCp1252(title)) != title) {
        ui.Message("The title holds characters that cannot be printed: " + o.Title, kTitle, ui::Icon::Critical);
        return ExitUsage;
    }
    const int dataType = ParseDataType(o.View.Data, ui, kTitle);
    if (dataType < 0) return ExitUsage;
    o.View.Progress = cl.Global.Progress;
    auto ds = SetUpView(s, o.View, dataType, kTitle);
    if (!ds) return ExitFailure;
    Model& m = s.model();

    const auto orientation = o.Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
    const QPageLayout layout(*paper, orientation, QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    ds->PrintableWidthMm = layout.fullRect(QPageLayout::Millimeter).width();
    // The window as its last redraw left it, and the view's own figure on this paper.
    display::NullSurface window(ds->AreaWidth, ds->AreaHeight);
    display::RedrawWindow(m, *ds, window, ui);
    display::UpdateWindowTitle(m, *ds);
    if (ds->Drawn.empty()) {
        ui.Message("No airway is in view: there is nothing to print", kTitle, ui::Icon::Exclamation);
        return ExitFailure;
    }
    if (figure) {
        if (*figure < ds->ScaleFigure) {
            ui.Message("Scale exceeds paper size !", kTitle, ui::Icon::Exclamation);
            return ExitFailure;
        }
        ds->ScaleFigure = *figure;
    }
    const float printed = ds->ScaleFigure;

    display::PrintSettings print;
    print.PrintInColour = o.Mono ? 0 : 1;
    print.PrintOrientation = o.Landscape ? 1 : 0;
    print.PrintTitle =
        o.TitleGiven ? shell::ToCp1252(title) : (TrimText(m.FileComment).empty() ? "Unnamed Network" : m.FileComment);
    if (HasExtension(o.Out, ".svg")) {
        // The same page as an SVG picture of the paper's size, in dots of the PDF's resolution.
        const QRectF full = layout.fullRect(QPageLayout::Millimeter);
        display::SvgSurface svg(1, 1);
        svg.SetPage(full.width(), full.height(), shell::PdfDotsPerInch);
        if (!display::PrintNetwork(m, *ds, svg, print, ui)) return ExitFailure;
        files::TextFileWriter writer;
        int code = writer.Open(o.Out);
        if (code == 0) {
            writer.Write(svg.Document());
            code = writer.Commit();
        }
        if (code != 0) {
            ui.Message(files::FileErrorText(code, " occurred writing file") + " " + o.Out, kTitle, ui::Icon::Critical);
            return ExitFailure;
        }
    } else {
        QString error;
        const bool written = shell::WritePdf(
            shell::FromPath(o.Out), *paper, orientation, shell::FromCp1252(print.PrintTitle),
            [&](display::Surface& page) { return display::PrintNetwork(m, *ds, page, print, ui); }, &error);
        if (!written) {
            ui.Message(error.toStdString(), kTitle, ui::Icon::Critical);
            return ExitFailure;
        }
    }
    std::cout << o.Out << ": scale 1:" << files::PlainSingle(printed, '.') << ", " << o.Paper
              << (o.Landscape ? " landscape" : " portrait") << (o.Mono ? ", black lines" : ", colour") << "\n";
    return ExitOk;
}

} // namespace

void AddPrintCommand(CommandLine& cl) {
    auto o = std::make_shared<PrintOptions>();
    CLI::App* sub = cl.Add("print", "Print a network's first view window to scale into a PDF file",
                           [&cl, o] { return Print(cl, *o); });
    sub->add_option("FILE", o->View.File, "Network file (.sim or .smm)")->required();
    sub->add_option("OUT", o->Out, "PDF file to write (an .svg name writes the page as SVG)")->required();
    sub->add_flag("--simulate", o->View.Simulate, "Balance the network first and print the results");
    sub->add_option("--scale", o->Scale, "Scale figure N of 1:N (default: the view's own on this paper)");
    sub->add_option("--paper", o->Paper, "Paper: A0 to A5, B4, B5, Letter, Legal, Tabloid, ... (default A4)");
    sub->add_flag("--landscape", o->Landscape, "Landscape paper (default portrait)");
    sub->add_flag("--mono", o->Mono, "Black lines (default colour)");
    sub->add_option("--title", o->Title, "Title on the page (default the network's title note)")
        ->each([o](const std::string&) { o->TitleGiven = true; });
    sub->add_option("--level", o->View.Level, "Print this level alone, by its name");
    sub->add_option("--view", o->View.View, "Saved view to print: 0 the start-up view, 1 to 5, 6 to 100 named")
        ->check(CLI::Range(0, SavedViewSlots - 1));
    sub->add_option("--data", o->View.Data, "Data type on the airways, by number (12) or name (\"Velocity\")");
}

} // namespace karvane::cli
