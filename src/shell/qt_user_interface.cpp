// Qt implementation of the user interface of the core.
#include "shell/qt_user_interface.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QTimer>
#include <QVBoxLayout>
#include <vector>

#include "qt/qt_text.h"

namespace karvane::shell {

namespace {

QMessageBox::Icon BoxIcon(ui::Icon icon) {
    switch (icon) {
    case ui::Icon::Information: return QMessageBox::Information;
    case ui::Icon::Exclamation: return QMessageBox::Warning;
    case ui::Icon::Critical: return QMessageBox::Critical;
    case ui::Icon::Question: return QMessageBox::Question;
    case ui::Icon::None: break;
    }
    return QMessageBox::NoIcon;
}

QString Title(const std::string& title) { return title.empty() ? QStringLiteral("Karvane") : FromMessage(title); }

// The files the program brings beside it and keeps in its folder.
const char* const kProgramFiles[] = {"Defaults.dat", "Conversion.dat", "fansdata.dat", "Remotes.dat"};

bool FolderWritable(const QString& folder) {
    QTemporaryFile probe(folder + QStringLiteral("/.karvane-write-test-XXXXXX"));
    return probe.open();
}

} // namespace

QtUserInterface::QtUserInterface(std::string appPath)
    : appPath_(appPath.empty() ? ResolveAppPath() : std::move(appPath)) {}

QtUserInterface::~QtUserInterface() {
    while (busyDepth_ > 0) SetBusy(false);
}

QWidget* QtUserInterface::DialogParent() const {
    if (parent_ && parent_->isVisible()) return parent_;
    return QApplication::activeWindow();
}

void QtUserInterface::Message(const std::string& text, const std::string& title, ui::Icon icon) {
    QMessageBox box(BoxIcon(icon), Title(title), FromMessage(text), QMessageBox::Ok, DialogParent());
    box.exec();
}

ui::Answer QtUserInterface::Ask(const std::string& text, const std::string& title, ui::Buttons buttons, ui::Icon icon) {
    QMessageBox box(BoxIcon(icon), Title(title), FromMessage(text), QMessageBox::NoButton, DialogParent());
    switch (buttons) {
    case ui::Buttons::OK: box.setStandardButtons(QMessageBox::Ok); break;
    case ui::Buttons::OKCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Ok);
        box.setEscapeButton(QMessageBox::Cancel);
        break;
    case ui::Buttons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
        break;
    case ui::Buttons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::Cancel);
        break;
    }
    box.exec();
    switch (box.standardButton(box.clickedButton())) {
    case QMessageBox::Ok: return ui::Answer::OK;
    case QMessageBox::Yes: return ui::Answer::Yes;
    case QMessageBox::No: return ui::Answer::No;
    default: break;
    }
    // A box closed by its frame counts as the cautious answer.
    return buttons == ui::Buttons::YesNo ? ui::Answer::No
                                         : (buttons == ui::Buttons::OK ? ui::Answer::OK : ui::Answer::Cancel);
}

std::optional<std::string> QtUserInterface::Input(const std::string& prompt, const std::string& title,
                                                  const std::string& defaultText) {
    QInputDialog dialog(DialogParent());
    dialog.setWindowTitle(Title(title));
    dialog.setLabelText(FromMessage(prompt));
    dialog.setTextValue(FromCp1252(defaultText));
    dialog.setInputMode(QInputDialog::TextInput);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return ToCp1252(dialog.textValue());
}

void QtUserInterface::Notice(const std::string& text, int ms) { ShowNotice(text, ms); }

void QtUserInterface::ProgressOpen() {
    if (progress_) progress_->ProgressOpen();
}
void QtUserInterface::ProgressClose() {
    if (progress_) progress_->ProgressClose();
}
void QtUserInterface::ProgressCaption(const std::string& caption) {
    if (progress_) progress_->ProgressCaption(caption);
}
void QtUserInterface::ProgressPercent(int percent) {
    if (progress_) progress_->ProgressPercent(percent);
}
void QtUserInterface::ProgressAttempt(const std::string& text) {
    if (progress_) progress_->ProgressAttempt(text);
}
void QtUserInterface::ProgressError(const std::string& text) {
    if (progress_) progress_->ProgressError(text);
}

void QtUserInterface::ProgressBox(const std::string& box, const std::string& text) {
    if (progress_) progress_->ProgressBox(box, text);
}

void QtUserInterface::PumpEvents() { QCoreApplication::processEvents(); }

void QtUserInterface::SetBusy(bool busy) {
    if (busy) {
        if (busyDepth_++ == 0) QApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (busyDepth_ > 0) {
        if (--busyDepth_ == 0) QApplication::restoreOverrideCursor();
    }
}

std::string QtUserInterface::QtFilter(const std::string& filter) {
    if (filter.find('|') == std::string::npos) return filter;
    // Pairs of shown name and pattern; Qt shows the name, which carries the pattern already.
    std::vector<std::string> parts;
    std::string part;
    for (char c : filter) {
        if (c == '|') {
            parts.push_back(part);
            part.clear();
        } else {
            part.push_back(c);
        }
    }
    parts.push_back(part);
    std::string out;
    for (std::size_t i = 0; i < parts.size(); i += 2) {
        std::string name = parts[i];
        const std::string pattern = i + 1 < parts.size() ? parts[i + 1] : std::string();
        if (name.find('(') == std::string::npos && !pattern.empty()) name += " (" + pattern + ")";
        if (!out.empty()) out += ";;";
        out += name;
    }
    return out;
}

namespace {

std::optional<std::string> RunFileDialog(QWidget* parent, const ui::FileDialogRequest& request, bool save) {
    QFileDialog dialog(parent);
    dialog.setWindowTitle(request.Title.empty() ? (save ? QStringLiteral("Save As") : QStringLiteral("Open"))
                                                : FromMessage(request.Title));
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    const QString filter = QString::fromStdString(QtUserInterface::QtFilter(request.Filter));
    if (!filter.isEmpty()) dialog.setNameFilters(filter.split(QStringLiteral(";;")));
    if (!request.DefaultExtension.empty()) dialog.setDefaultSuffix(QString::fromStdString(request.DefaultExtension));
    if (!request.StartFolder.empty() && QFileInfo(FromPath(request.StartFolder)).isDir())
        dialog.setDirectory(FromPath(request.StartFolder));
    if (!request.FileName.empty()) {
        const QFileInfo name(FromPath(request.FileName));
        if (name.isAbsolute()) dialog.setDirectory(name.absolutePath());
        dialog.selectFile(name.fileName());
    }
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    const QStringList files = dialog.selectedFiles();
    if (files.isEmpty()) return std::nullopt;
    return ToPath(QDir::toNativeSeparators(files.front()));
}

} // namespace

std::optional<std::string> QtUserInterface::OpenFileDialog(const ui::FileDialogRequest& request) {
    return RunFileDialog(DialogParent(), request, false);
}

std::optional<std::string> QtUserInterface::SaveFileDialog(const ui::FileDialogRequest& request) {
    return RunFileDialog(DialogParent(), request, true);
}

std::string QtUserInterface::GetSetting(const std::string& app, const std::string& section, const std::string& key,
                                        const std::string& defaultValue) {
    QSettings store(QStringLiteral("Karvane"), QString::fromStdString(app.empty() ? "Karvane" : app));
    const QString path = QString::fromStdString(section + "/" + key);
    if (!store.contains(path)) return defaultValue;
    return store.value(path).toString().toStdString();
}

void QtUserInterface::SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                                  const std::string& value) {
    QSettings store(QStringLiteral("Karvane"), QString::fromStdString(app.empty() ? "Karvane" : app));
    store.setValue(QString::fromStdString(section + "/" + key), QString::fromStdString(value));
}

std::string QtUserInterface::TempPath() { return ToPath(QDir::toNativeSeparators(QDir::tempPath())); }

char QtUserInterface::DecimalSeparator() {
    const QString point = QLocale().decimalPoint();
    if (point == QStringLiteral(",")) return ',';
    return '.';
}

ui::DateTime QtUserInterface::Now() {
    const QDateTime now = QDateTime::currentDateTime();
    ui::DateTime t;
    t.Year = now.date().year();
    t.Month = now.date().month();
    t.Day = now.date().day();
    t.Hour = now.time().hour();
    t.Minute = now.time().minute();
    t.Second = now.time().second();
    t.WeekDay = now.date().dayOfWeek() % 7;
    return t;
}

std::string QtUserInterface::ResolveAppPath() {
    const QString program = QCoreApplication::applicationDirPath();
    if (program.isEmpty() || FolderWritable(program)) return ToPath(QDir::toNativeSeparators(program));
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (data.isEmpty() || !QDir().mkpath(data)) return ToPath(QDir::toNativeSeparators(program));
    for (const char* name : kProgramFiles) {
        const QString target = data + QLatin1Char('/') + QLatin1String(name);
        const QString source = program + QLatin1Char('/') + QLatin1String(name);
        if (!QFileInfo::exists(target) && QFileInfo::exists(source)) QFile::copy(source, target);
    }
    return ToPath(QDir::toNativeSeparators(data));
}

void ShowNotice(const std::string& text, int ms) {
    // frmMessage: centred on the screen, shown without taking the input, gone when its
    // timer fires.
    auto* window = new QWidget(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    window->setObjectName(QStringLiteral("frmMessage"));
    window->setWindowTitle(QStringLiteral("Karvane Messenger"));
    auto* layout = new QVBoxLayout(window);
    auto* label = new QLabel(FromMessage(text), window);
    label->setObjectName(QStringLiteral("LblMessage"));
    label->setAlignment(Qt::AlignCenter);
    label->setMargin(12);
    layout->addWidget(label);
    window->adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        window->move(area.center() - QPoint(window->width() / 2, window->height() / 2));
    }
    window->show();
    QPointer<QWidget> guard(window);
    QTimer::singleShot(ms > 0 ? ms : 400, window, [guard] {
        if (guard) guard->close();
    });
}

} // namespace karvane::shell
