// The fan tool's window.
#include "dialogs/fan_edit_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "dialogs/number_edit.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

FanEditDialog::FanEditDialog(Model& model, ui::UserInterface& ui, char decimalSep, QWidget* parent)
    : QDialog(parent),
      form_(model, ui) {
    setObjectName(QStringLiteral("frmFanEdit"));
    setWindowTitle(QStringLiteral("Fan Edit"));
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    fans_ = new QComboBox(this);
    fans_->setObjectName(QStringLiteral("FanCombo2"));
    fans_->setToolTip(QStringLiteral("Fan selection"));
    fans_->setMinimumWidth(220);
    grid->addWidget(fans_, 0, 0, 1, 4);
    count_ = new NumberEdit(decimalSep, this);
    count_->setObjectName(QStringLiteral("TxtFanN"));
    count_->setToolTip(QStringLiteral("Number of fans"));
    count_->setMaximumWidth(50);
    vsf_ = new QScrollBar(Qt::Vertical, this);
    vsf_->setObjectName(QStringLiteral("VSF"));
    vsf_->setRange(0, forms::MaxFansInAirway);
    vsf_->setMaximumHeight(count_->sizeHint().height());
    grid->addWidget(count_, 1, 0);
    grid->addWidget(vsf_, 1, 1);
    series_ = new QRadioButton(QStringLiteral("Series"), this);
    series_->setObjectName(QStringLiteral("OptSer2"));
    parallel_ = new QRadioButton(QStringLiteral("Parallel"), this);
    parallel_->setObjectName(QStringLiteral("OptPar2"));
    grid->addWidget(series_, 1, 2);
    grid->addWidget(parallel_, 1, 3);
    const char* captions[] = {"Static curve", "Total curve", "Combo curve"};
    auto* curves = new QHBoxLayout;
    for (int i = 0; i < 3; ++i) {
        curve_[i] = new QRadioButton(QString::fromLatin1(captions[i]), this);
        curve_[i]->setObjectName(QStringLiteral("OptCurveType%1").arg(i));
        curves->addWidget(curve_[i]);
        connect(curve_[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (loading_ || !on) return;
            form_.ChooseCurve(i);
            Refresh();
        });
    }
    part_ = new NumberEdit(decimalSep, this);
    part_->setObjectName(QStringLiteral("TxtVPart"));
    part_->setMaximumWidth(50);
    curves->addWidget(part_);
    auto* pv = new QLabel(QStringLiteral("% Pv"), this);
    pv->setObjectName(QStringLiteral("LblVPart"));
    curves->addWidget(pv);
    layout->addLayout(grid);
    layout->addLayout(curves);
    auto* buttons = new QHBoxLayout;
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("Command1"));
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("Command2"));
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);

    connect(fans_, &QComboBox::activated, this, [this](int index) {
        form_.ChooseFan(index);
        Refresh();
    });
    connect(vsf_, &QScrollBar::valueChanged, this, [this](int value) {
        if (loading_) return;
        form_.SetFanCount(forms::MaxFansInAirway - value);
        Refresh();
    });
    connect(count_, &QLineEdit::editingFinished, this, [this] {
        if (loading_) return;
        form_.SetControl("TxtFanN", count_->text().toStdString());
        Refresh();
    });
    connect(part_, &QLineEdit::textEdited, this, [this](const QString& t) {
        if (!loading_) form_.SetControl("TxtVPart", t.toStdString());
    });
    connect(series_, &QRadioButton::toggled, this, [this](bool on) {
        if (loading_) return;
        form_.ChooseSeries(on);
    });
    connect(ok, &QPushButton::clicked, this, [this] {
        form_.SetControl("TxtFanN", count_->text().toStdString());
        form_.Ok();
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FanEditDialog::Refresh() {
    loading_ = true;
    const forms::FanEditFields& f = form_.Fields();
    if (fans_->count() != static_cast<int>(f.FanCombo2.size())) {
        fans_->clear();
        for (const auto& r : f.FanCombo2) fans_->addItem(shell::FromCp1252(r.Text));
    }
    fans_->setCurrentIndex(f.FanIndex);
    count_->setText(shell::FromCp1252(f.TxtFanN));
    vsf_->setValue(f.VSF);
    series_->setChecked(f.OptSer2);
    parallel_->setChecked(!f.OptSer2);
    for (int i = 0; i < 3; ++i) curve_[i]->setChecked(f.OptCurveType == i);
    part_->setText(shell::FromCp1252(f.TxtVPart));
    part_->setVisible(f.TxtVPartVisible);
    findChild<QLabel*>(QStringLiteral("LblVPart"))->setVisible(f.TxtVPartVisible);
    loading_ = false;
}

bool FanEditDialog::Run(std::int32_t row) {
    if (!form_.Open(row)) return false;
    Refresh();
    return exec() == QDialog::Accepted;
}

} // namespace karvane::dialogs
