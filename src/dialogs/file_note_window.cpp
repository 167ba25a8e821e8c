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

#include "shell/icons.h"

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

void ShowAboutDialog(QWidget* parent) {
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
    text->setText(QStringLiteral(
        "<h2 style='margin:0'>Karvane</h2><p style='margin:2px 0'>Version 3.9.3a</p>"
        "<p>Mine ventilation network design and simulation: airways in three dimensions, "
        "airflow balanced by Hardy Cross over meshes with fans read from their curves, "
        "contaminant spread and sourcing, results shown on the network itself.</p>"
        "<p style='color:#555'>All values are held in SI units; British units are shown on request.</p>"));
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
    QObject::connect(sysInfo, &QPushButton::clicked, &dialog, [&dialog] {
        // The machine's own system information tool, where one is installed.
        for (const char* program : {"hardinfo", "gnome-system-monitor", "ksysguard", "xfce4-taskmanager"}) {
            const QString path = QStandardPaths::findExecutable(QString::fromLatin1(program));
            if (!path.isEmpty() && QProcess::startDetached(path, {})) return;
        }
        QMessageBox::information(&dialog, QStringLiteral("Karvane"),
                                 QStringLiteral("System Information Is Unavailable At This Time"));
    });
    dialog.exec();
}

} // namespace karvane::dialogs
