// The station dialogs.
#include "dialogs/station_dialogs.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "dialogs/number_edit.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace {

QString Text(const std::string& s) { return shell::FromCp1252(s); }
std::string Bytes(const QString& s) { return shell::ToCp1252(s); }

const char* const kColumns[6] = {"TxtLngNames", "Abrev", "RUnits", "Mult", "ALow", "AHigh"};
const char* const kHeadings[6] = {"Channel", "Abbreviation", "Units", "Factor", "Low Alarm", "High Alarm"};

} // namespace

RemoteDialog::RemoteDialog(Model& model, ui::UserInterface& ui, QWidget* parent)
    : QDialog(parent),
      model_(model),
      ui_(ui),
      sep_(ui.DecimalSeparator()) {
    setObjectName(QStringLiteral("frmRemote"));
    setWindowTitle(QString::fromLatin1(exchange::RemoteCaption));
    auto* layout = new QVBoxLayout(this);
    auto* menu = new QMenuBar(this);
    QMenu* edit = menu->addMenu(QStringLiteral("&Station"));
    QAction* copy = edit->addAction(QStringLiteral("Copy Station"));
    copy->setObjectName(QStringLiteral("mnuCopy"));
    QAction* paste = edit->addAction(QStringLiteral("Paste Station"));
    paste->setObjectName(QStringLiteral("mnuPaste"));
    edit->addSeparator();
    QAction* exit = edit->addAction(QStringLiteral("Exit"));
    exit->setObjectName(QStringLiteral("mnuExit"));
    layout->setMenuBar(menu);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Station"), this));
    number_ = new QLabel(this);
    number_->setObjectName(QStringLiteral("LblNumber"));
    number_->setMinimumWidth(28);
    number_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    number_->setAlignment(Qt::AlignCenter);
    top->addWidget(number_);
    station_ = new QScrollBar(Qt::Horizontal, this);
    station_->setObjectName(QStringLiteral("VScStation"));
    station_->setRange(1, StationCount);
    station_->setMinimumWidth(160);
    top->addWidget(station_);
    top->addWidget(new QLabel(QStringLiteral("Name"), this));
    name_ = new QLineEdit(this);
    name_->setObjectName(QStringLiteral("TxtStationName"));
    top->addWidget(name_, 1);
    update_ = new QCheckBox(QStringLiteral("Update airflow"), this);
    update_->setObjectName(QStringLiteral("ChkUpdateQ"));
    top->addWidget(update_);
    layout->addLayout(top);

    auto* grid = new QGridLayout;
    for (int c = 0; c < 6; ++c) grid->addWidget(new QLabel(QString::fromLatin1(kHeadings[c]), this), 0, c + 1);
    for (int k = 1; k <= ChannelCount; ++k) {
        grid->addWidget(new QLabel(QString::number(k), this), k, 0);
        for (int c = 0; c < 6; ++c) {
            QLineEdit* box = c >= 3 ? new NumberEdit(sep_, this) : new QLineEdit(this);
            box->setObjectName(QStringLiteral("%1%2").arg(QString::fromLatin1(kColumns[c])).arg(k));
            if (c >= 3) box->setMaximumWidth(90);
            grid->addWidget(box, k, c + 1);
            channels_[static_cast<std::size_t>(k)][static_cast<std::size_t>(c)] = box;
        }
    }
    channels_[1][0]->setToolTip(QString::fromLatin1(exchange::FirstChannelTip));
    layout->addLayout(grid);

    auto* all = new QGroupBox(QStringLiteral("All stations"), this);
    auto* form = new QFormLayout(all);
    auto* sourceRow = new QHBoxLayout;
    source_ = new QLineEdit(all);
    source_->setObjectName(QStringLiteral("TxtRemoteSource"));
    auto* browse = new QPushButton(QStringLiteral("Browse..."), all);
    sourceRow->addWidget(source_, 1);
    sourceRow->addWidget(browse);
    form->addRow(QStringLiteral("Input Data File"), sourceRow);
    timer_ = new NumberEdit(sep_, all);
    timer_->setObjectName(QStringLiteral("TxtTimer"));
    timer_->setMaximumWidth(90);
    form->addRow(QStringLiteral("Sampling (Sec)"), timer_);
    resim_ = new QCheckBox(QStringLiteral("Resimulate Network"), all);
    resim_->setObjectName(QStringLiteral("ChkResim"));
    alarm_ = new QCheckBox(QStringLiteral("Activate Alarms"), all);
    alarm_->setObjectName(QStringLiteral("ChkAlarm"));
    form->addRow(resim_);
    form->addRow(alarm_);
    layout->addWidget(all);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &RemoteDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(exit, &QAction::triggered, this, &RemoteDialog::accept);
    connect(copy, &QAction::triggered, this, [this] { copied_ = exchange::CopyStation(Fields()); });
    connect(paste, &QAction::triggered, this, [this] {
        if (!copied_) return;
        exchange::RemoteFields f = Fields();
        exchange::PasteStation(f, *copied_, sep_);
        Show(f);
    });
    connect(station_, &QScrollBar::valueChanged, this, [this](int s) {
        exchange::RemoteFields f = Fields();
        exchange::ScrollStation(model_, f, s, sep_);
        Show(f);
    });
    connect(browse, &QPushButton::clicked, this, [this] {
        ui::FileDialogRequest request;
        request.Title = "Input Data File";
        request.Filter = exchange::StationFileFilter;
        request.DefaultExtension = "rem";
        request.FileName = shell::ToPath(source_->text());
        if (const std::optional<std::string> path = ui_.OpenFileDialog(request))
            source_->setText(shell::FromPath(*path));
    });
    Show(exchange::FillRemote(model_, 1, sep_));
}

void RemoteDialog::Show(const exchange::RemoteFields& f) {
    {
        const QSignalBlocker block(station_);
        station_->setValue(f.LblNumber);
    }
    number_->setText(QString::number(f.LblNumber));
    name_->setText(Text(f.TxtStationName));
    update_->setChecked(f.ChkUpdateQ);
    const std::array<std::string, 6>* columns[6] = {&f.TxtLngNames, &f.Abrev, &f.RUnits, &f.Mult, &f.ALow, &f.AHigh};
    for (int k = 1; k <= ChannelCount; ++k)
        for (std::size_t c = 0; c < 6; ++c)
            channels_[static_cast<std::size_t>(k)][c]->setText(Text((*columns[c])[static_cast<std::size_t>(k)]));
    source_->setText(shell::FromPath(f.TxtRemoteSource));
    resim_->setChecked(f.ChkResim);
    timer_->setText(Text(f.TxtTimer));
    alarm_->setChecked(f.ChkAlarm);
}

exchange::RemoteFields RemoteDialog::Fields() const {
    exchange::RemoteFields f;
    f.LblNumber = number_->text().toInt();
    f.TxtStationName = Bytes(name_->text());
    f.ChkUpdateQ = update_->isChecked();
    std::array<std::string, 6>* columns[6] = {&f.TxtLngNames, &f.Abrev, &f.RUnits, &f.Mult, &f.ALow, &f.AHigh};
    for (int k = 1; k <= ChannelCount; ++k)
        for (std::size_t c = 0; c < 6; ++c)
            (*columns[c])[static_cast<std::size_t>(k)] = Bytes(channels_[static_cast<std::size_t>(k)][c]->text());
    f.TxtRemoteSource = shell::ToPath(source_->text());
    f.ChkResim = resim_->isChecked();
    f.TxtTimer = Bytes(timer_->text());
    f.ChkAlarm = alarm_->isChecked();
    return f;
}

void RemoteDialog::accept() {
    interval_ = exchange::CloseRemote(model_, Fields());
    QDialog::accept();
}

RealOutDialog::RealOutDialog(Model& model, ui::UserInterface& ui, QWidget* parent) : QDialog(parent), model_(model) {
    setObjectName(QStringLiteral("frmRealOut"));
    setWindowTitle(QString::fromLatin1(exchange::RealOutCaption));
    const exchange::RealOutFields fields = exchange::FillRealOut(model, ui.DecimalSeparator());
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    auto* row = new QHBoxLayout;
    file_ = new QLineEdit(shell::FromPath(fields.TxtRealOut), this);
    file_->setObjectName(QStringLiteral("TxtRealOut"));
    file_->setMinimumWidth(260);
    auto* browse = new QPushButton(QStringLiteral("Browse..."), this);
    row->addWidget(file_, 1);
    row->addWidget(browse);
    form->addRow(QStringLiteral("Output Data File"), row);
    timer_ = new NumberEdit(ui.DecimalSeparator(), this);
    timer_->setObjectName(QStringLiteral("TxtTimer"));
    timer_->setText(Text(fields.TxtTimer));
    timer_->setMaximumWidth(90);
    form->addRow(QStringLiteral("Interval (Sec)"), timer_);
    layout->addLayout(form);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &RealOutDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(browse, &QPushButton::clicked, this, [this, &ui] {
        ui::FileDialogRequest request;
        request.Title = "Output Data File";
        request.Filter = exchange::ResultsFileFilter;
        request.DefaultExtension = "txt";
        request.FileName = shell::ToPath(file_->text());
        if (const std::optional<std::string> path = ui.SaveFileDialog(request)) file_->setText(shell::FromPath(*path));
    });
}

void RealOutDialog::accept() {
    exchange::RealOutFields fields;
    fields.TxtRealOut = shell::ToPath(file_->text());
    fields.TxtTimer = Bytes(timer_->text());
    interval_ = exchange::ApplyRealOut(model_, fields);
    QDialog::accept();
}

} // namespace karvane::dialogs
