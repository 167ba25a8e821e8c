// frmPrinter, "PRINT NETWORK": the Qt form over the print dialog's fields. Choosing a printer,
// a paper or an orientation refills through the dialog's rules; Print hands the request to the
// main window, which prints it as many times as asked, and closes the dialog.
#pragma once

#include <QDialog>
#include <functional>

#include "forms/printer_form.h"
#include "ui/user_interface.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace karvane::dialogs {

class NumberEdit;

class PrinterDialog : public QDialog {
    Q_OBJECT
public:
    // `print` runs the prints of a request; false when they failed (it has said why).
    PrinterDialog(forms::PrinterFields fields, forms::PrinterHost& host, ui::UserInterface& ui,
                  std::function<bool(const forms::PrintRequest&)> print, QWidget* parent = nullptr);

    const forms::PrinterFields& Fields() const { return f_; }
    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show();
    void Take();
    void PrintIt();

    forms::PrinterFields f_;
    forms::PrinterHost& host_;
    ui::UserInterface& ui_;
    std::function<bool(const forms::PrintRequest&)> print_;
    bool loading_ = false;

    QLineEdit* txtTitle_ = nullptr;
    QComboBox* printList_ = nullptr;
    QComboBox* printSize_ = nullptr;
    QLabel* pSizer_ = nullptr;
    QCheckBox* chkColour_ = nullptr;
    QRadioButton* optOrient_[2] = {nullptr, nullptr};
    QLabel* shpPortrait_ = nullptr;
    QLabel* shpLandscape_ = nullptr;
    NumberEdit* txtScale_ = nullptr;
    NumberEdit* txtCopies_ = nullptr;
    QLabel* printing_ = nullptr;
    QPushButton* printIt_ = nullptr;
    QPushButton* cancelIt_ = nullptr;
};

} // namespace karvane::dialogs
