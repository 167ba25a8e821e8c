// The shock loss calculator's window.
#include "dialogs/shock_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/number_edit.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

ShockDialog::ShockDialog(const Model& model, char decimalSep, QWidget* parent)
    : QDialog(parent),
      form_(model, decimalSep) {
    setObjectName(QStringLiteral("frmShock"));
    setWindowTitle(QStringLiteral("Shock Calculator"));
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    constexpr int half = ShockLossRowCount / 2;
    for (int i = 0; i < ShockLossRowCount; ++i) {
        const auto r = static_cast<std::size_t>(i);
        auto* tick = new QCheckBox(QString::fromLatin1(ShockLossTable[r].Name), this);
        tick->setObjectName(QStringLiteral("ChkShockType%1").arg(i));
        auto* count = new NumberEdit(decimalSep, this);
        count->setObjectName(QStringLiteral("LblNumS%1").arg(i));
        count->setMaximumWidth(50);
        ticks_[r] = tick;
        counts_[r] = count;
        const int row = i % half, col = (i / half) * 2;
        grid->addWidget(tick, row, col);
        grid->addWidget(count, row, col + 1);
        connect(tick, &QCheckBox::toggled, this, [this, i](bool on) {
            if (loading_) return;
            form_.Tick(i, on);
            Refresh();
        });
        connect(count, &QLineEdit::textEdited, this, [this, i](const QString&) {
            if (loading_) return;
            form_.CountKey(i);
            Refresh();
        });
        connect(count, &QLineEdit::editingFinished, this, [this, i, count] {
            if (loading_) return;
            form_.SetCount(i, count->text().toStdString());
            Refresh();
        });
    }
    layout->addLayout(grid);
    auto* note = new QLabel(QString::fromLatin1(forms::ShockNote), this);
    note->setWordWrap(true);
    layout->addWidget(note);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(new QLabel(QStringLiteral("Total equivalent length"), this));
    total_label_ = new QLabel(this);
    total_label_->setObjectName(QStringLiteral("LblShockTotal"));
    total_label_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    total_label_->setMinimumWidth(70);
    buttons->addWidget(total_label_);
    buttons->addStretch();
    auto* update = new QPushButton(QStringLiteral("Update"), this);
    update->setObjectName(QStringLiteral("CmdUpdate"));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("Command2"));
    for (QPushButton* b : {update, ok, cancel}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    layout->addLayout(buttons);
    connect(update, &QPushButton::clicked, this, [this] {
        form_.Update();
        Refresh();
    });
    connect(ok, &QPushButton::clicked, this, [this] {
        total_ = form_.Ok();
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, [this] {
        total_ = form_.Cancel();
        reject();
    });
    Refresh();
}

void ShockDialog::Refresh() {
    loading_ = true;
    const forms::ShockFields& f = form_.Fields();
    for (std::size_t i = 0; i < ticks_.size(); ++i) {
        ticks_[i]->setChecked(f.ChkShockType[i]);
        const QString t = shell::FromCp1252(f.LblNumS[i]);
        if (counts_[i]->text() != t && !counts_[i]->hasFocus()) counts_[i]->setText(t);
    }
    total_label_->setText(shell::FromCp1252(f.LblShockTotal));
    loading_ = false;
}

void ShockDialog::closeEvent(QCloseEvent* event) {
    if (result() != QDialog::Accepted) total_ = form_.Cancel();
    QDialog::closeEvent(event);
}

void ShockDialog::keyPressEvent(QKeyEvent* event) {
    // Enter in a count works the total; it does not close the dialog.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        for (std::size_t i = 0; i < counts_.size(); ++i)
            if (counts_[i]->hasFocus()) form_.SetCount(static_cast<int>(i), counts_[i]->text().toStdString());
        Refresh();
        return;
    }
    if (event->key() == Qt::Key_Escape) total_ = form_.Cancel();
    QDialog::keyPressEvent(event);
}

} // namespace karvane::dialogs
