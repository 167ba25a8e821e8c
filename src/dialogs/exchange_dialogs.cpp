// The exchange dialogs.
#include "dialogs/exchange_dialogs.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "dialogs/number_edit.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace {

QCheckBox* Check(QWidget* parent, const char* name, const char* caption, const char* tip = nullptr) {
    auto* box = new QCheckBox(QString::fromLatin1(caption), parent);
    box->setObjectName(QString::fromLatin1(name));
    if (tip) box->setToolTip(QString::fromLatin1(tip));
    return box;
}

QString Text(const std::string& s) { return shell::FromCp1252(s); }
std::string Bytes(const QString& s) { return shell::ToCp1252(s); }

} // namespace

ExportOptionsDialog::ExportOptionsDialog(const exchange::ExportFields& fields, char decimalSep, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmExport"));
    setWindowTitle(QString::fromLatin1(exchange::ExportDialogCaption));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    const char* const names[6] = {"TxtData", "TxtNode", "TxtAirway", "TxtNodeCircle", "TxtArrow", "TxtFloat"};
    const char* const captions[6] = {"Data Text Size", "Node Text Size", "Airway Label Text Size",
                                     "Node Size",      "Arrow Size",     "Floating Text Size"};
    const std::string* values[6] = {&fields.TxtData,       &fields.TxtNode,  &fields.TxtAirway,
                                    &fields.TxtNodeCircle, &fields.TxtArrow, &fields.TxtFloat};
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i] = new NumberEdit(decimalSep, this);
        boxes_[i]->setObjectName(QString::fromLatin1(names[i]));
        boxes_[i]->setText(Text(*values[i]));
        form->addRow(QString::fromLatin1(captions[i]), boxes_[i]);
    }
    layout->addLayout(form);
    visible_ = Check(this, "ChkVisible", "Export visible airways only");
    visible_->setChecked(fields.ChkVisible);
    layout->addWidget(visible_);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("Export"), QDialogButtonBox::AcceptRole)
        ->setObjectName(QStringLiteral("CmdExport"));
    buttons->addButton(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

exchange::ExportFields ExportOptionsDialog::Fields() const {
    exchange::ExportFields f;
    std::string* values[6] = {&f.TxtData, &f.TxtNode, &f.TxtAirway, &f.TxtNodeCircle, &f.TxtArrow, &f.TxtFloat};
    for (std::size_t i = 0; i < boxes_.size(); ++i) *values[i] = Bytes(boxes_[i]->text());
    f.ChkVisible = visible_->isChecked();
    return f;
}

ImportOptionsDialog::ImportOptionsDialog(const exchange::ImportFields& fields, char decimalSep, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmImport"));
    setWindowTitle(QString::fromLatin1(exchange::ImportDialogCaption));
    auto* layout = new QVBoxLayout(this);
    merge_ = Check(this, "ChkMerge", "Merge Data", "Merge with existing data");
    rl_ = Check(this, "ChkRL", "Attempt to create RL Database", "Find discrete levels to separate airways into");
    drive_ = Check(this, "ChkRDrive", "Retain Drive Resistances");
    raise_ = Check(this, "ChkRRaise", "Retain Raise Resistances");
    size_ = Check(this, "ChkSize", "Force common airway size",
                  "Make horizontal and vertical airways the same default size");
    merge_->setChecked(fields.ChkMerge);
    rl_->setChecked(fields.ChkRL);
    drive_->setChecked(fields.ChkRDrive);
    raise_->setChecked(fields.ChkRRaise);
    size_->setChecked(fields.ChkSize);
    for (QCheckBox* c : {merge_, rl_, drive_, raise_, size_}) layout->addWidget(c);
    auto* offsets = new QGroupBox(QStringLiteral("Offsets"), this);
    auto* grid = new QGridLayout(offsets);
    const char* const names[3] = {"TxtXOffset", "TxtYOffset", "TxtZOffset"};
    const char* const captions[3] = {"X Offset", "Y Offset", "Z Offset"};
    const char* const negNames[3] = {"NegX", "NegY", "NegZ"};
    const std::string* values[3] = {&fields.TxtXOffset, &fields.TxtYOffset, &fields.TxtZOffset};
    const bool negs[3] = {fields.NegX, fields.NegY, fields.NegZ};
    for (int i = 0; i < 3; ++i) {
        const auto k = static_cast<std::size_t>(i);
        offsets_[k] = new NumberEdit(decimalSep, offsets);
        offsets_[k]->setObjectName(QString::fromLatin1(names[i]));
        offsets_[k]->setText(Text(*values[i]));
        negate_[k] = Check(offsets, negNames[i], "(-)ve");
        negate_[k]->setChecked(negs[i]);
        grid->addWidget(new QLabel(QString::fromLatin1(captions[i]), offsets), i, 0);
        grid->addWidget(offsets_[k], i, 1);
        grid->addWidget(negate_[k], i, 2);
    }
    layout->addWidget(offsets);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(QStringLiteral("Import"), QDialogButtonBox::AcceptRole)
        ->setObjectName(QStringLiteral("CmdImport"));
    buttons->addButton(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

exchange::ImportFields ImportOptionsDialog::Fields() const {
    exchange::ImportFields f;
    f.ChkMerge = merge_->isChecked();
    f.ChkRL = rl_->isChecked();
    f.ChkRDrive = drive_->isChecked();
    f.ChkRRaise = raise_->isChecked();
    f.ChkSize = size_->isChecked();
    f.TxtXOffset = Bytes(offsets_[0]->text());
    f.TxtYOffset = Bytes(offsets_[1]->text());
    f.TxtZOffset = Bytes(offsets_[2]->text());
    f.NegX = negate_[0]->isChecked();
    f.NegY = negate_[1]->isChecked();
    f.NegZ = negate_[2]->isChecked();
    return f;
}

SimplifyWindow::SimplifyWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("frmSimplify"));
    setWindowTitle(QString::fromLatin1(exchange::SimplifyCaption));
    auto* layout = new QVBoxLayout(this);
    auto* limits = new QGridLayout;
    auto slider = [this, limits](int row, const char* name, const char* boxName, const char* caption, int lo, int hi,
                                 QSlider*& s, QLineEdit*& box) {
        s = new QSlider(Qt::Horizontal, this);
        s->setObjectName(QString::fromLatin1(name));
        s->setRange(lo, hi);
        box = new QLineEdit(this);
        box->setObjectName(QString::fromLatin1(boxName));
        box->setMaximumWidth(70);
        limits->addWidget(new QLabel(QString::fromLatin1(caption), this), row, 0);
        limits->addWidget(s, row, 1);
        limits->addWidget(box, row, 2);
        // The box follows its slider.
        connect(s, &QSlider::valueChanged, this, [this] {
            exchange::SimplifyFields f = Fields();
            exchange::SliderMoved(f);
            txtL_->setText(Text(f.TxtL));
            txtA_->setText(Text(f.TxtA));
        });
    };
    slider(0, "HSL", "TxtL", "Max Length", exchange::MaxLengthSliderMin, exchange::MaxLengthSliderMax, hsl_, txtL_);
    slider(1, "HSA", "TxtA", "Max Angle", exchange::MaxAngleSliderMin, exchange::MaxAngleSliderMax, hsa_, txtA_);
    limits->setColumnMinimumWidth(1, 200);
    layout->addLayout(limits);
    const char* const names[6] = {"CheckR", "CheckK", "CheckS", "CheckSel", "ChkCombine", "ChkZero"};
    const char* const captions[6] = {"Ensure no resistance presets filtered",
                                     "Ensure wall types are the same",
                                     "Ensure airway dimsensions are the same",
                                     "Filter selected airways only",
                                     "Use Combined Lengths",
                                     "Remove airways with zero flow"};
    for (std::size_t i = 0; i < checks_.size(); ++i) {
        checks_[i] = Check(this, names[i], captions[i]);
        layout->addWidget(checks_[i]);
    }
    auto* buttons = new QHBoxLayout;
    auto* run = new QPushButton(QStringLiteral("Simplify !"), this);
    run->setObjectName(QStringLiteral("CmdSimp"));
    auto* exit = new QPushButton(QStringLiteral("Exit"), this);
    exit->setObjectName(QStringLiteral("CmdExit"));
    buttons->addStretch();
    buttons->addWidget(run);
    buttons->addWidget(exit);
    layout->addLayout(buttons);
    connect(run, &QPushButton::clicked, this, [this] {
        if (OnSimplify) OnSimplify(Fields());
    });
    connect(exit, &QPushButton::clicked, this, &QWidget::close);
    Show(exchange::FillSimplify());
}

void SimplifyWindow::Show(const exchange::SimplifyFields& f) {
    const QSignalBlocker a(hsl_), b(hsa_);
    hsl_->setValue(f.HSL);
    hsa_->setValue(f.HSA);
    txtL_->setText(Text(f.TxtL));
    txtA_->setText(Text(f.TxtA));
    const bool values[6] = {f.CheckR, f.CheckK, f.CheckS, f.CheckSel, f.ChkCombine, f.ChkZero};
    for (std::size_t i = 0; i < checks_.size(); ++i) checks_[i]->setChecked(values[i]);
}

exchange::SimplifyFields SimplifyWindow::Fields() const {
    exchange::SimplifyFields f;
    f.HSL = hsl_->value();
    f.HSA = hsa_->value();
    f.TxtL = Bytes(txtL_->text());
    f.TxtA = Bytes(txtA_->text());
    f.CheckR = checks_[0]->isChecked();
    f.CheckK = checks_[1]->isChecked();
    f.CheckS = checks_[2]->isChecked();
    f.CheckSel = checks_[3]->isChecked();
    f.ChkCombine = checks_[4]->isChecked();
    f.ChkZero = checks_[5]->isChecked();
    return f;
}

} // namespace karvane::dialogs
