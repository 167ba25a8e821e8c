// Printers of the machine for the print commands: the list with "Save as PDF" always in it,
// their papers (the standard ISO and US sizes for the PDF output), a QPrinter set up by the
// stored values, and the one function that runs a page job to a QPrinter, on the device or,
// for PDF output, into a file written whole. Every window that prints comes here.
#pragma once

#include <QPrinter>
#include <QString>
#include <string>
#include <vector>

#include "forms/printer_form.h"
#include "qt/page_job.h"
#include "ui/user_interface.h"

class QWidget;

namespace karvane::shell {

// The printer of the list that writes PDF files through Qt's PDF output.
inline constexpr const char* PdfPrinterName = "Save as PDF";

class QtPrinterHost : public forms::PrinterHost {
public:
    std::vector<std::string> PrinterNames() override;
    std::string DefaultPrinter() override;
    std::vector<forms::PaperChoice> Papers(const std::string& printer) override;
    int DefaultPaper(const std::string& printer) override;
    void PageSize(const std::string& printer, int paperId, int orientation, double& widthMm, double& heightMm) override;
};

// A printer by device name (PdfPrinterName or an unknown name: PDF output), paper id (a
// QPageSize id; 0 keeps the printer's own) and orientation (0 portrait, 1 landscape).
void SetUpPrinter(QPrinter& printer, const std::string& name, int paperId, int orientation);

// Runs a page job on a printer: on the device, or into the printer's output file when it
// writes PDF. False with `error` set when it could not.
bool RunPrintJob(QPrinter& printer, const PageDrawing& draw, QString* error = nullptr);

// The print command of a window that prints itself (airway card, fan curve, spreadsheet,
// summary): the system's print dialog on the stored printer, then the job; a failure says
// "Error while trying to print - Check Printer". False when cancelled or failed.
// Without a user interface the failure is shown in a message box of the parent.
bool PrintWithDialog(QWidget* parent, ui::UserInterface* ui, const QString& documentName, const PageDrawing& draw);

} // namespace karvane::shell
