// The print commands of the main window: Print (frmPrinter), Tool 22 "Print Screen ?" with
// its small frmPrinting window, Print Setup through the platform's page set-up dialog, and the
// Screen Bitmap of the current window (BMP, or PNG by the name given).
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QLabel>
#include <QPageSetupDialog>
#include <QSaveFile>
#include <QVBoxLayout>
#include <algorithm>

#include "dialogs/printer_dialog.h"
#include "display/print_network.h"
#include "display/view_title.h"
#include "files/recent_files.h"
#include "forms/printer_form.h"
#include "qt/print_job.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"

namespace karvane::shell {

namespace {

std::string Stored(ui::UserInterface& ui, const char* key, const char* fallback) {
    return forms::StoredPrinterValue(ui, key, fallback);
}

int StoredInt(ui::UserInterface& ui, const char* key) { return forms::StoredPrinterInt(ui, key, 0); }

} // namespace

void MainWindow::ReadPrinterWidth() {
    // The scale figure of the title tells how a printout would come out: the printable width of
    // the stored printer and paper in the orientation of the print settings.
    QtPrinterHost host;
    std::string name = Stored(ui_, forms::PrinterNameKey, "");
    if (name.empty()) name = host.DefaultPrinter();
    double width = 0, height = 0;
    host.PageSize(name, StoredInt(ui_, forms::PaperSizeKey), StoredInt(ui_, forms::PrintOrientKey) == 1 ? 1 : 0, width,
                  height);
    if (width > 10) ds_->PrintableWidthMm = width;
}

bool MainWindow::PrintCurrentWindow(const std::string& printerName, int paperId, int orientation) {
    if (!ViewWindowOpen()) return false;
    if (ds_->Drawn.empty()) {
        // Said once; the print is not a failure of the printer.
        ui_.Message("No airway is in view: there is nothing to print", ProgramName, ui::Icon::Exclamation);
        return true;
    }
    // A printer that has gone since it was chosen leaves the PDF output.
    const std::vector<std::string> names = QtPrinterHost().PrinterNames();
    const bool pdf = printerName == PdfPrinterName || std::find(names.begin(), names.end(), printerName) == names.end();
    QPrinter printer(QPrinter::HighResolution);
    SetUpPrinter(printer, pdf ? std::string(PdfPrinterName) : printerName, paperId, orientation);
    printer.setDocName(FromCp1252(printSettings_.PrintTitle));
    if (pdf) {
        // The PDF output asks for its file; a later print offers the same name again.
        ui::FileDialogRequest request;
        request.Title = "Save as PDF";
        request.Filter = "PDF Files (*.pdf)|*.pdf|All files (*.*)|*.*";
        request.DefaultExtension = "pdf";
        QString start = lastPdfName_;
        if (start.isEmpty()) {
            const QFileInfo network(FromPath(model_->FileName));
            start = TrimText(model_->FileName).empty() ? QStringLiteral("Unnamed Network.pdf")
                                                       : network.absolutePath() + QLatin1Char('/') +
                                                             network.completeBaseName() + QStringLiteral(".pdf");
        }
        request.FileName = ToPath(start);
        const std::optional<std::string> choice = ui_.SaveFileDialog(request);
        if (!choice || TrimText(*choice).empty()) return false;
        lastPdfName_ = FromPath(*choice);
        printer.setOutputFileName(lastPdfName_);
    }
    QString error;
    const bool printed = RunPrintJob(
        printer,
        [this](display::Surface& page) { return display::PrintNetwork(*model_, *ds_, page, printSettings_, ui_); },
        &error);
    // The figure waits for the next title update, which the caption makes now.
    display::UpdateWindowTitle(*model_, *ds_);
    ShowViewStatus();
    return printed;
}

void MainWindow::PrintCommand() {
    if (!ViewWindowOpen() || runActive_) return;
    dispatcher_->CancelGesture();
    QtPrinterHost host;
    dialogs::PrinterDialog dialog(
        forms::OpenPrinterForm(*model_, *ds_, ui_, host), host, ui_,
        [this](const forms::PrintRequest& r) {
            printSettings_ = r.Settings;
            bool ok = true;
            for (int copy = 0; copy < r.Copies && ok; ++copy) {
                ds_->ScaleFigure = r.ScaleFigure;
                ok = PrintCurrentWindow(r.Printer, r.PaperSize, r.Settings.PrintOrientation);
                // The PDF output writes one file, whatever the number of copies.
                if (r.Printer == PdfPrinterName) break;
            }
            if (!ok) ui_.Message("Error while trying to print - Check Printer", ProgramName, ui::Icon::Exclamation);
            return ok;
        },
        this);
    dialog.exec();
    ReadPrinterWidth();
    display::UpdateWindowTitle(*model_, *ds_);
    ShowViewStatus();
}

void MainWindow::PrintScreenCommand() {
    if (!ViewWindowOpen() || runActive_) return;
    dispatcher_->CancelGesture();
    const ui::Answer answer = ui_.Ask("Print Screen ?", "Printing", ui::Buttons::OKCancel, ui::Icon::Question);
    if (answer == ui::Answer::OK) {
        // No dialog: the view's own figure and the values of the last print dialog.
        QWidget printing(this, Qt::Tool | Qt::WindowStaysOnTopHint);
        printing.setObjectName(QStringLiteral("frmPrinting"));
        printing.setWindowTitle(QStringLiteral("Printing"));
        auto* layout = new QVBoxLayout(&printing);
        layout->addWidget(new QLabel(QStringLiteral("Printing network ....  please wait"), &printing));
        auto* comment = new QLabel(FromCp1252(model_->FileComment), &printing);
        comment->setObjectName(QStringLiteral("lblComment"));
        layout->addWidget(comment);
        printing.show();
        printing.repaint();
        if (printSettings_.PrintTitle.empty())
            printSettings_.PrintTitle = TrimText(model_->FileComment).empty() ? "Unnamed Network" : model_->FileComment;
        printSettings_.PrintOrientation = static_cast<std::int16_t>(StoredInt(ui_, forms::PrintOrientKey) == 1 ? 1 : 0);
        PrintCurrentWindow(Stored(ui_, forms::PrinterNameKey, ""), StoredInt(ui_, forms::PaperSizeKey),
                           printSettings_.PrintOrientation);
    }
    RedrawWindow();
}

void MainWindow::PrintSetup() {
    QPrinter printer(QPrinter::HighResolution);
    SetUpPrinter(printer, Stored(ui_, forms::PrinterNameKey, ""), StoredInt(ui_, forms::PaperSizeKey),
                 StoredInt(ui_, forms::PrintOrientKey));
    QPageSetupDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    const std::string name =
        printer.outputFormat() == QPrinter::PdfFormat ? std::string(PdfPrinterName) : ToPath(printer.printerName());
    ui_.SaveSetting(files::StoreApp, files::FilesSection, forms::PrinterNameKey, name);
    ui_.SaveSetting(files::StoreApp, files::FilesSection, forms::PaperSizeKey,
                    std::to_string(static_cast<int>(printer.pageLayout().pageSize().id())));
    ReadPrinterWidth();
    display::UpdateWindowTitle(*model_, *ds_);
    ShowViewStatus();
}

void MainWindow::SaveScreenBitmap() {
    if (!ViewWindowOpen()) return;
    ui::FileDialogRequest request;
    request.Title = "Screen Bitmap";
    request.Filter = "Picture Files (*.BMP)|*.BMP|PNG Pictures (*.PNG)|*.PNG|All files (*.*)|*.*";
    request.DefaultExtension = "BMP";
    request.FileName = ToPath(lastBitmapName_);
    const std::optional<std::string> choice = ui_.SaveFileDialog(request);
    if (!choice) return;
    if (TrimText(*choice).empty()) {
        ui_.Message("Error Save File - Check Name", ProgramName, ui::Icon::Exclamation);
        return;
    }
    lastBitmapName_ = FromPath(*choice);
    RedrawWindow();
    // A BMP as the program always wrote, or a PNG when the name asks for one; written whole.
    const QByteArray format =
        QFileInfo(lastBitmapName_).suffix().compare(QStringLiteral("png"), Qt::CaseInsensitive) == 0
            ? QByteArray("PNG")
            : QByteArray("BMP");
    QSaveFile file(lastBitmapName_);
    bool written = file.open(QIODevice::WriteOnly);
    if (written) {
        QImageWriter writer(&file, format);
        written = writer.write(views_->View(views_->Table().CurWin)->Surface().Picture()) && file.commit();
    }
    if (!written) ui_.Message("The picture could not be written to " + *choice, ProgramName, ui::Icon::Exclamation);
    RedrawWindow();
}

} // namespace karvane::shell
