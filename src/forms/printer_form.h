// frmPrinter, "PRINT NETWORK": the printers and their papers, the page's size, colour,
// orientation, the scale figure that fits the paper, copies and title, and the stored printer
// values of the per-user store. The platform's printers are reached through PrinterHost.
#pragma once

#include <string>
#include <vector>

#include "display/print_network.h"
#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// The stored values of the print dialog, in the section "Files" of the per-user store.
inline constexpr const char* PrinterNameKey = "PrinterName";
inline constexpr const char* PaperSizeKey = "Papersize";
inline constexpr const char* PrintColourKey = "PrintColour";
inline constexpr const char* PrintOrientKey = "PrintOrient";

// A stored printer value, and one that is a whole number (fallback when it isn't).
std::string StoredPrinterValue(ui::UserInterface& ui, const char* key, const char* fallback);
int StoredPrinterInt(ui::UserInterface& ui, const char* key, int fallback);

// The largest scale figure a print takes.
inline constexpr double MaxScaleFigure = 10000000;

struct PaperChoice {
    std::string Name;
    int Id = 0;
};

// The printers of the machine, as the dialog needs them.
class PrinterHost {
public:
    virtual ~PrinterHost() = default;
    // Device names of all printers, the PDF output among them.
    virtual std::vector<std::string> PrinterNames() = 0;
    // The printer the system takes when none is chosen.
    virtual std::string DefaultPrinter() = 0;
    // Names and ids of a printer's papers, and the id it takes by default.
    virtual std::vector<PaperChoice> Papers(const std::string& printer) = 0;
    virtual int DefaultPaper(const std::string& printer) = 0;
    // The printable area in millimetres of a paper on a printer in an orientation (0, 1);
    // 0 x 0 when the printer cannot say.
    virtual void PageSize(const std::string& printer, int paperId, int orientation, double& widthMm,
                          double& heightMm) = 0;
};

struct PrinterFields {
    std::string TxtTitle;
    std::vector<std::string> PrintList; // "Searching ..." until filled
    int PrinterIndex = -1;
    std::vector<PaperChoice> PrintSize;
    int PaperIndex = -1;
    std::string PSizer; // "210mm wide x 297mm high"
    bool ChkColour = false;
    int OptOrient = 0; // 0 "Portrait", 1 "Landscape"
    std::string TxtScale;
    std::string TxtCopies = "1";
    bool Printing = false;

    int PaperSize = 0; // numeric id of the paper chosen
    double PageWidthMm = 0, PageHeightMm = 0;
    float MinFigure = 0;
    float ViewWidth = 0; // ScaleWidth of the view printed
    char DecimalSeparator = '.';

    std::string Printer() const {
        return PrinterIndex >= 0 && PrinterIndex < static_cast<int>(PrintList.size())
                   ? PrintList[static_cast<std::size_t>(PrinterIndex)]
                   : std::string();
    }
};

// Opening the dialog: the title, all printers with the stored one selected when it exists,
// paper, colour and orientation from the stored values, then the paper list and the figure.
PrinterFields OpenPrinterForm(const Model& model, const display::DisplayState& ds, ui::UserInterface& ui,
                              PrinterHost& host);
// A refill of the paper list for the current printer: orientation, page size text, the paper
// of the id in PaperSize (the printer's own when it has no such paper), and the figure.
void RefillPapers(PrinterFields& f, PrinterHost& host);
// PrintList, PrintSize and OptOrient chosen by the user.
void ChoosePrinter(PrinterFields& f, PrinterHost& host, int index);
void ChoosePaper(PrinterFields& f, PrinterHost& host, int index);
void ChooseOrientation(PrinterFields& f, PrinterHost& host, int orientation);
// TxtScale loses the focus: a figure below MinFigure gives "Scale exceeds paper size !" and
// the box returns to MinFigure; a figure beyond the largest is held at it, with a word.
void LeaveScale(PrinterFields& f, ui::UserInterface& ui);

// What PrintIt hands to the prints: colour, figure, title, the number of copies (one when the
// box says less than one).
struct PrintRequest {
    display::PrintSettings Settings;
    float ScaleFigure = 0;
    int Copies = 1;
    std::string Printer;
    int PaperSize = 0;
};
PrintRequest PrintItRequest(const PrinterFields& f);
// The dialog closes: the stored values are written.
void SavePrinterSettings(const PrinterFields& f, ui::UserInterface& ui);

} // namespace karvane::forms
