// The print commands of the main window on the offscreen platform, where the PDF output is
// the printer: the dialog's Print, Tool 22's question, the stored printer values, the screen
// bitmap in both its forms, and the Qt page surface on PDF pages.
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QTimer>

#include "dialogs/printer_dialog.h"
#include "display/recording_surface.h"
#include "edit/tool_table.h"
#include "qt/page_job.h"
#include "qt/print_job.h"
#include "qt/qt_surface.h"
#include "qt/qt_text.h"
#include "shell_rig.h"
#include "shell_tests.h"

namespace karvane::shell::testing {

namespace {

QByteArray Head(const QString& path, int n) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return {};
    return f.read(n);
}

std::string Stored(ShellRig& rig, const std::string& key) { return rig.Ui.Store["Karvane/Files/" + key]; }

} // namespace

void PrintTest::thePrintDialogWritesThePdfAndStoresItsValues() {
    ShellRig rig;
    rig.OpenDemo();
    const QString pdf = rig.Temp.filePath(QStringLiteral("plan.pdf"));
    rig.Ui.FilePaths.push_back(ToPath(pdf));
    QString offeredScale;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<dialogs::PrinterDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        for (const auto& [box, text] : {std::pair{"PrintList", PdfPrinterName}, {"PrintSize", "A3"}}) {
            auto* list = dialog->findChild<QComboBox*>(QString::fromLatin1(box));
            const int at = list->findText(QString::fromLatin1(text));
            QVERIFY(at >= 0);
            list->setCurrentIndex(at);
            Q_EMIT list->activated(at);
        }
        auto* scale = dialog->findChild<QLineEdit*>(QStringLiteral("TxtScale"));
        offeredScale = scale->text();
        scale->setText(QString::number(offeredScale.toInt() * 2));
        dialog->findChild<QLineEdit*>(QStringLiteral("TxtTitle"))->setText(QStringLiteral("Plan for the manager"));
        dialog->findChild<QPushButton*>(QStringLiteral("PrintIt"))->click();
    });
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuPrint")));
    QVERIFY(!offeredScale.isEmpty());
    QCOMPARE(Head(pdf, 5), QByteArray("%PDF-"));
    QCOMPARE(Stored(rig, "PrinterName"), std::string(PdfPrinterName));
    QCOMPARE(Stored(rig, "Papersize"), std::to_string(static_cast<int>(QPageSize::A3)));
    QCOMPARE(Stored(rig, "PrintOrient"), std::string("0"));
}

void PrintTest::printScreenAsksAndPrintsWithTheLastValues() {
    ShellRig rig;
    rig.OpenDemo();
    rig.Ui.Store["Karvane/Files/PrinterName"] = PdfPrinterName;
    const QString pdf = rig.Temp.filePath(QStringLiteral("screen.pdf"));
    // Cancel: nothing printed, the window redrawn.
    rig.Ui.Answers.push_back(ui::Answer::Cancel);
    rig.W().dispatcher().RunToolCommand(edit::cmd::PrintScreen);
    QCOMPARE(rig.Ui.Transcript.back().Text, std::string("Print Screen ?"));
    QVERIFY(!QFile::exists(pdf));
    rig.Ui.Answers.push_back(ui::Answer::OK);
    rig.Ui.FilePaths.push_back(ToPath(pdf));
    rig.W().dispatcher().RunToolCommand(edit::cmd::PrintScreen);
    QCOMPARE(Head(pdf, 5), QByteArray("%PDF-"));
    for (const auto& entry : rig.Ui.Transcript) QVERIFY(entry.Text != "Printing Error");
}

void PrintTest::theScreenBitmapIsBmpOrPngByItsName() {
    ShellRig rig;
    rig.OpenDemo();
    const QString bmp = rig.Temp.filePath(QStringLiteral("view.bmp"));
    const QString png = rig.Temp.filePath(QStringLiteral("view.png"));
    rig.Ui.FilePaths.push_back(ToPath(bmp));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuSvScreen")));
    QCOMPARE(Head(bmp, 2), QByteArray("BM"));
    rig.Ui.FilePaths.push_back(ToPath(png));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuSvScreen")));
    QCOMPARE(Head(png, 4), QByteArray("\x89PNG"));
    rig.Ui.FilePaths.push_back(std::string("   "));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuSvScreen")));
    QCOMPARE(rig.Ui.Transcript.back().Text, std::string("Error Save File - Check Name"));
}

void PrintTest::thePageSurfaceDrawsOnPdfPages() {
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("pages.pdf"));
    double widthMm = 0;
    int area = 0;
    QString error;
    QVERIFY(WritePdf(
        pdf, QPageSize(QPageSize::A4), QPageLayout::Landscape, QStringLiteral("Pages"),
        [&](display::Surface& page) {
            widthMm = page.PageWidthMm();
            area = page.AreaWidth();
            page.SetCoordinateBox(0, 0, 297, 210);
            page.SetLineWidth(3);
            page.Line(10, 10, 287, 200, 0);
            page.PutBitmap(display::sym::Fan, 100, 100, 10, 10);
            QImage grab(40, 30, QImage::Format_RGB32);
            grab.fill(Qt::darkGreen);
            dynamic_cast<QtSurface&>(page).DrawPicture(grab, 200, 150, 40, 30);
            page.SetFontSize(10);
            page.SetCurrentPoint(20, 20);
            page.PrintText("First page");
            page.NewPage();
            page.SetCurrentPoint(20, 20);
            page.PrintText("Second page");
            return true;
        },
        &error));
    QCOMPARE(widthMm, 297.0);
    QVERIFY(std::abs(area - 297.0 / 25.4 * PdfDotsPerInch) < 2);
    const QByteArray bytes = Head(pdf, 1 << 24);
    QVERIFY(bytes.startsWith("%PDF-"));
    QVERIFY(bytes.contains("/Count 2"));
    QVERIFY(bytes.contains("/Subtype /Image"));
    // A drawing that fails leaves no file, and keeps the one that was there.
    QVERIFY(!WritePdf(
        pdf, QPageSize(QPageSize::A4), QPageLayout::Portrait, QString(), [](display::Surface&) { return false; },
        &error));
    QCOMPARE(Head(pdf, 5), QByteArray("%PDF-"));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void PrintTest::theAboutBoxNamesVersionBuildAndLibraries() {
    ShellRig rig;
    QString text;
    QTimer::singleShot(0, [&] {
        auto* about = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY(about);
        QCOMPARE(about->objectName(), QStringLiteral("frmAbout2"));
        for (QLabel* label : about->findChildren<QLabel*>()) text += label->text();
        // No system information tool on the test machine: the message says so.
        about->findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->click();
        about->accept();
    });
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuAbout")));
    QVERIFY2(text.contains(QStringLiteral("Version 0.1.0")), qPrintable(text));
    QVERIFY(text.contains(QStringLiteral("Build:")));
    QVERIFY(text.contains(QStringLiteral("Qt 6.")));
    const bool said = rig.Ui.Said("System Information Is Unavailable At This Time");
    bool toolThere = false;
    for (const char* tool : {"hardinfo", "gnome-system-monitor", "ksysguard", "xfce4-taskmanager"})
        toolThere = toolThere || !QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty();
    QCOMPARE(said, !toolThere);
}

} // namespace karvane::shell::testing
