// The note window and the About box.
#include "dialogs/file_note_window.h"

#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

#include "model/model.h"
#include "qt/icons.h"

namespace karvane::dialogs {

FileNoteWindow::FileNoteWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("frmFileNote"));
    setWindowTitle(QStringLiteral("Network File Note"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(5, 5, 5, 5);
    text_ = new QPlainTextEdit(this);
    text_->setObjectName(QStringLiteral("MessageBox"));
    text_->installEventFilter(this);
    layout->addWidget(text_);
    resize(333, 333);
}

void FileNoteWindow::SetNote(const QString& note) {
    QString text = note;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    text_->setPlainText(text);
}

QString FileNoteWindow::Note() const {
    QString text = text_->toPlainText();
    text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return text;
}

void FileNoteWindow::AddStamp(const QString& stamp) {
    text_->moveCursor(QTextCursor::End);
    text_->insertPlainText(stamp + QStringLiteral("\n\n"));
    text_->moveCursor(QTextCursor::End);
}

void FileNoteWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (OnClosed) OnClosed(Note());
}

void FileNoteWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

bool FileNoteWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == text_ && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        close();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

namespace {

const char* KarvaneVersion() {
#ifdef KARVANE_VERSION
    return KARVANE_VERSION;
#else
    return "0.1.0";
#endif
}

// When, how and by which compiler the program was built.
QString BuildText() {
    QString compiler;
#if defined(__clang__)
    compiler = QStringLiteral("Clang %1.%2").arg(__clang_major__).arg(__clang_minor__);
#elif defined(__GNUC__)
    compiler = QStringLiteral("GCC %1.%2").arg(__GNUC__).arg(__GNUC_MINOR__);
#else
    compiler = QStringLiteral("C++ compiler");
#endif
#ifdef NDEBUG
    const QString kind = QStringLiteral("release");
#else
    const QString kind = QStringLiteral("debug");
#endif
    return QStringLiteral("%1 %2, %3 build, %4, C++%5")
        .arg(QString::fromLatin1(__DATE__), QString::fromLatin1(__TIME__), kind, compiler)
        .arg(__cplusplus / 100 % 100);
}

// The libraries the program runs on, with the versions in use.
QString LibraryText() {
    QString text = QStringLiteral("Qt %1 (built with %2): Widgets, Print Support, SVG")
                       .arg(QString::fromLatin1(qVersion()), QStringLiteral(QT_VERSION_STR));
#ifdef __GLIBCXX__
    text += QStringLiteral("; GNU C++ standard library %1").arg(__GLIBCXX__);
#endif
    return text;
}

} // namespace

void ShowAboutDialog(QWidget* parent, ui::UserInterface& ui) {
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("frmAbout2"));
    dialog.setWindowTitle(QStringLiteral("About Karvane Software"));
    auto* layout = new QVBoxLayout(&dialog);
    auto* top = new QHBoxLayout;
    auto* icon = new QLabel(&dialog);
    icon->setPixmap(shell::ProgramIcon().pixmap(64, 64));
    top->addWidget(icon, 0, Qt::AlignTop);
    auto* text = new QLabel(&dialog);
    text->setTextFormat(Qt::RichText);
    text->setText(QStringLiteral("<h2 style='margin:0'>Karvane</h2><p style='margin:2px 0'>Version %1</p>"
                                 "<p>Mine ventilation network design and simulation: airways in three dimensions, "
                                 "airflow balanced by Hardy Cross over meshes with fans read from their curves, "
                                 "contaminant spread and sourcing, results shown on the network itself.</p>"
                                 "<p style='color:#555'>All values are held in SI units; British units are shown "
                                 "on request.</p>"
                                 "<p style='margin:2px 0'><b>Build:</b> %2</p>"
                                 "<p style='margin:2px 0'><b>Libraries:</b> %3</p>")
                      .arg(QString::fromLatin1(KarvaneVersion()), BuildText(), LibraryText()));
    text->setWordWrap(true);
    text->setMinimumWidth(360);
    top->addWidget(text, 1);
    layout->addLayout(top);
    auto* buttons = new QHBoxLayout;
    auto* sysInfo = new QPushButton(QStringLiteral("System Info..."), &dialog);
    sysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    auto* ok = new QPushButton(QStringLiteral("OK"), &dialog);
    ok->setDefault(true);
    buttons->addStretch();
    buttons->addWidget(sysInfo);
    buttons->addWidget(ok);
    layout->addLayout(buttons);
    QObject::connect(ok, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(sysInfo, &QPushButton::clicked, &dialog, [&ui] {
        // The machine's own system information tool, where one is installed.
        for (const char* program : {"hardinfo", "gnome-system-monitor", "ksysguard", "xfce4-taskmanager"}) {
            const QString path = QStandardPaths::findExecutable(QString::fromLatin1(program));
            if (!path.isEmpty() && QProcess::startDetached(path, {})) return;
        }
        ui.Message("System Information Is Unavailable At This Time", ProgramName, ui::Icon::Information);
    });
    dialog.exec();
}

} // namespace karvane::dialogs
