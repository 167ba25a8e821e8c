// The print dialog's widgets bound to its fields.
#include "dialogs/printer_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "dialogs/number_edit.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace {

// The small picture of a page standing upright or on its side beside the orientation options.
QLabel* PageShape(const char* name, int w, int h, QWidget* parent) {
    auto* shape = new QLabel(parent);
    shape->setObjectName(QString::fromLatin1(name));
    shape->setFixedSize(w, h);
    shape->setFrameShape(QFrame::Box);
    shape->setStyleSheet(QStringLiteral("background: white; border: 1px solid black"));
    return shape;
}

} // namespace

PrinterDialog::PrinterDialog(forms::PrinterFields fields, forms::PrinterHost& host, ui::UserInterface& ui,
                             std::function<bool(const forms::PrintRequest&)> print, QWidget* parent)
    : QDialog(parent),
      f_(std::move(fields)),
      host_(host),
      ui_(ui),
      print_(std::move(print)) {
    setObjectName(QStringLiteral("frmPrinter"));
    setWindowTitle(QStringLiteral("PRINT NETWORK"));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    txtTitle_ = new QLineEdit(this);
    txtTitle_->setObjectName(QStringLiteral("TxtTitle"));
    txtTitle_->installEventFilter(this);
    form->addRow(QStringLiteral("Title"), txtTitle_);
    printList_ = new QComboBox(this);
    printList_->setObjectName(QStringLiteral("PrintList"));
    printList_->addItem(QStringLiteral("Searching ..."));
    form->addRow(QStringLiteral("Printer"), printList_);
    printSize_ = new QComboBox(this);
    printSize_->setObjectName(QStringLiteral("PrintSize"));
    form->addRow(QStringLiteral("Paper"), printSize_);
    layout->addLayout(form);

    auto* page = new QGroupBox(QStringLiteral("Printer Page"), this);
    auto* pageLayout = new QHBoxLayout(page);
    pSizer_ = new QLabel(page);
    pSizer_->setObjectName(QStringLiteral("PSizer"));
    pageLayout->addWidget(pSizer_, 1);
    auto* orient = new QVBoxLayout;
    optOrient_[0] = new QRadioButton(QStringLiteral("Portrait"), page);
    optOrient_[0]->setObjectName(QStringLiteral("OptOrient(0)"));
    optOrient_[1] = new QRadioButton(QStringLiteral("Landscape"), page);
    optOrient_[1]->setObjectName(QStringLiteral("OptOrient(1)"));
    orient->addWidget(optOrient_[0]);
    orient->addWidget(optOrient_[1]);
    pageLayout->addLayout(orient);
    shpPortrait_ = PageShape("ShpPortrait", 24, 34, page);
    shpLandscape_ = PageShape("ShpLandscape", 34, 24, page);
    pageLayout->addWidget(shpPortrait_);
    pageLayout->addWidget(shpLandscape_);
    layout->addWidget(page);

    auto* numbers = new QFormLayout;
    chkColour_ = new QCheckBox(QStringLiteral("Colour"), this);
    chkColour_->setObjectName(QStringLiteral("ChkColour"));
    numbers->addRow(QString(), chkColour_);
    txtScale_ = new NumberEdit(f_.DecimalSeparator, this);
    txtScale_->setObjectName(QStringLiteral("TxtScale"));
    txtScale_->installEventFilter(this);
    numbers->addRow(QStringLiteral("Print Scale"), txtScale_);
    txtCopies_ = new NumberEdit(f_.DecimalSeparator, this);
    txtCopies_->setObjectName(QStringLiteral("TxtCopies"));
    numbers->addRow(QStringLiteral("Copies"), txtCopies_);
    layout->addLayout(numbers);

    printing_ = new QLabel(QStringLiteral("Printing ......"), this);
    printing_->setObjectName(QStringLiteral("Printing"));
    printing_->setVisible(false);
    layout->addWidget(printing_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    printIt_ = new QPushButton(QStringLiteral("Print"), this);
    printIt_->setObjectName(QStringLiteral("PrintIt"));
    printIt_->setDefault(true);
    cancelIt_ = new QPushButton(QStringLiteral("Cancel"), this);
    cancelIt_->setObjectName(QStringLiteral("CancelIt"));
    buttons->addWidget(printIt_);
    buttons->addWidget(cancelIt_);
    layout->addLayout(buttons);

    Show();
    connect(printList_, &QComboBox::activated, this, [this](int index) {
        if (loading_) return;
        Take();
        QApplication::setOverrideCursor(Qt::WaitCursor);
        forms::ChoosePrinter(f_, host_, index);
        QApplication::restoreOverrideCursor();
        Show();
    });
    connect(printSize_, &QComboBox::activated, this, [this](int index) {
        if (loading_) return;
        Take();
        forms::ChoosePaper(f_, host_, index);
        Show();
    });
    for (int k = 0; k < 2; ++k) {
        connect(optOrient_[k], &QRadioButton::toggled, this, [this, k](bool on) {
            if (loading_ || !on) return;
            Take();
            forms::ChooseOrientation(f_, host_, k);
            Show();
        });
    }
    connect(txtScale_, &QLineEdit::editingFinished, this, [this] {
        if (loading_) return;
        Take();
        forms::LeaveScale(f_, ui_);
        Show();
    });
    connect(printIt_, &QPushButton::clicked, this, &PrinterDialog::PrintIt);
    connect(cancelIt_, &QPushButton::clicked, this, &QDialog::reject);
}

void PrinterDialog::Show() {
    loading_ = true;
    txtTitle_->setText(shell::FromCp1252(f_.TxtTitle));
    printList_->clear();
    for (const std::string& name : f_.PrintList) printList_->addItem(shell::FromPath(name));
    printList_->setCurrentIndex(f_.PrinterIndex);
    printSize_->clear();
    for (const forms::PaperChoice& p : f_.PrintSize) printSize_->addItem(shell::FromCp1252(p.Name), p.Id);
    printSize_->setCurrentIndex(f_.PaperIndex);
    pSizer_->setText(QString::fromStdString(f_.PSizer));
    chkColour_->setChecked(f_.ChkColour);
    optOrient_[f_.OptOrient == 1 ? 1 : 0]->setChecked(true);
    shpPortrait_->setVisible(f_.OptOrient == 0);
    shpLandscape_->setVisible(f_.OptOrient == 1);
    txtScale_->setText(QString::fromStdString(f_.TxtScale));
    txtCopies_->setText(QString::fromStdString(f_.TxtCopies));
    printing_->setVisible(f_.Printing);
    loading_ = false;
}

void PrinterDialog::Take() {
    f_.TxtTitle = shell::ToCp1252(txtTitle_->text());
    f_.ChkColour = chkColour_->isChecked();
    f_.TxtScale = txtScale_->text().toStdString();
    f_.TxtCopies = txtCopies_->text().toStdString();
}

bool PrinterDialog::eventFilter(QObject* watched, QEvent* event) {
    if ((watched == txtTitle_ || watched == txtScale_) && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            // Enter moves on: from the scale to the copies, from the title to the printers.
            if (watched == txtScale_) {
                txtCopies_->setFocus();
            } else {
                printList_->setFocus();
            }
            return true;
        }
        if (watched == txtTitle_ && key->text() == QStringLiteral(".") && f_.DecimalSeparator != '.') {
            txtTitle_->insert(QString(QLatin1Char(f_.DecimalSeparator)));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void PrinterDialog::PrintIt() {
    Take();
    // The title is printed in the network's code page: a character outside it cannot be.
    if (shell::FromCp1252(f_.TxtTitle) != txtTitle_->text()) {
        ui_.Message("The title holds characters that cannot be printed: use the letters of Western European "
                    "languages only",
                    ProgramName, ui::Icon::Exclamation);
        txtTitle_->setFocus();
        return;
    }
    forms::LeaveScale(f_, ui_);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    f_.Printing = true;
    Show();
    QApplication::processEvents();
    const bool printed = print_ && print_(forms::PrintItRequest(f_));
    f_.Printing = false;
    QApplication::restoreOverrideCursor();
    if (printed) {
        accept();
    } else {
        reject();
    }
}

void PrinterDialog::done(int result) {
    // The stored values are written whenever the dialog closes.
    Take();
    forms::SavePrinterSettings(f_, ui_);
    QDialog::done(result);
}

} // namespace karvane::dialogs
