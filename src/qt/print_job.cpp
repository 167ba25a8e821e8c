// The machine's printers through QPrinterInfo, and print jobs on QPrinter.
#include "qt/print_job.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinterInfo>

#include "files/recent_files.h"
#include "qt/qt_text.h"

namespace karvane::shell {

namespace {

bool IsPdf(const std::string& printer) { return printer.empty() || printer == PdfPrinterName; }

bool KnownPrinter(const std::string& name) {
    return !IsPdf(name) && QPrinterInfo::availablePrinterNames().contains(FromPath(name));
}

} // namespace

std::vector<std::string> QtPrinterHost::PrinterNames() {
    std::vector<std::string> names;
    for (const QString& name : QPrinterInfo::availablePrinterNames()) names.push_back(ToPath(name));
    names.push_back(PdfPrinterName);
    return names;
}

std::string QtPrinterHost::DefaultPrinter() {
    const QString name = QPrinterInfo::defaultPrinterName();
    return name.isEmpty() ? std::string(PdfPrinterName) : ToPath(name);
}

std::vector<forms::PaperChoice> QtPrinterHost::Papers(const std::string& printer) {
    std::vector<forms::PaperChoice> papers;
    if (KnownPrinter(printer)) {
        for (const QPageSize& size : QPrinterInfo::printerInfo(FromPath(printer)).supportedPageSizes())
            papers.push_back({ToCp1252(size.name()), static_cast<int>(size.id())});
    }
    if (papers.empty()) {
        for (const StandardPaper& p : StandardPapers()) papers.push_back({p.Name, static_cast<int>(p.Id)});
    }
    return papers;
}

int QtPrinterHost::DefaultPaper(const std::string& printer) {
    if (KnownPrinter(printer)) {
        const QPageSize size = QPrinterInfo::printerInfo(FromPath(printer)).defaultPageSize();
        if (size.isValid()) return static_cast<int>(size.id());
    }
    return static_cast<int>(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                                               : QPageSize::A4);
}

void QtPrinterHost::PageSize(const std::string& printer, int paperId, int orientation, double& widthMm,
                             double& heightMm) {
    QPrinter p(QPrinter::HighResolution);
    SetUpPrinter(p, printer, paperId, orientation);
    const QRectF area = p.pageLayout().paintRect(QPageLayout::Millimeter);
    widthMm = area.width();
    heightMm = area.height();
}

void SetUpPrinter(QPrinter& printer, const std::string& name, int paperId, int orientation) {
    if (KnownPrinter(name)) {
        printer.setPrinterName(FromPath(name));
    } else {
        // The PDF output at the resolution in which line widths count, with no margins.
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setResolution(PdfDotsPerInch);
        printer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    }
    if (paperId > 0 && paperId < QPageSize::LastPageSize) {
        const QPageSize size(static_cast<QPageSize::PageSizeId>(paperId));
        if (size.isValid()) printer.setPageSize(size);
    }
    printer.setPageOrientation(orientation == 1 ? QPageLayout::Landscape : QPageLayout::Portrait);
}

bool RunPrintJob(QPrinter& printer, const PageDrawing& draw, QString* error) {
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        if (printer.outputFileName().isEmpty()) {
            if (error) *error = QStringLiteral("No file was named for the PDF.");
            return false;
        }
        const QPageLayout layout = printer.pageLayout();
        return WritePdf(printer.outputFileName(), layout.pageSize(), layout.orientation(), printer.docName(), draw,
                        error);
    }
    return RunPageJob(printer, draw, error);
}

bool PrintWithDialog(QWidget* parent, ui::UserInterface* ui, const QString& documentName, const PageDrawing& draw) {
    QPrinter printer(QPrinter::HighResolution);
    const std::string stored =
        ui ? ui->GetSetting(files::StoreApp, files::FilesSection, forms::PrinterNameKey, "") : std::string();
    if (KnownPrinter(stored)) printer.setPrinterName(FromPath(stored));
    printer.setDocName(documentName);
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(documentName);
    if (dialog.exec() != QDialog::Accepted) return false;
    QString error;
    if (!RunPrintJob(printer, draw, &error)) {
        const char* text = "Error while trying to print - Check Printer";
        if (ui) {
            ui->Message(text, ProgramName, ui::Icon::Exclamation);
        } else {
            QMessageBox::warning(parent, QString::fromLatin1(ProgramName), QString::fromLatin1(text));
        }
        return false;
    }
    return true;
}

} // namespace karvane::shell
