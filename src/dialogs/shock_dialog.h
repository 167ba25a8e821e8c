// The shock loss calculator's window (frmShock): twenty fittings with a tick and a count each,
// bound to forms::ShockForm.
#pragma once

#include <QDialog>
#include <array>

#include "forms/shock_form.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace karvane::dialogs {

class ShockDialog : public QDialog {
    Q_OBJECT
public:
    ShockDialog(const Model& model, char decimalSep, QWidget* parent = nullptr);
    // The total after the dialog closed: the sum on "OK", 0 on "Cancel" or the frame's close.
    float Total() const { return total_; }
    forms::ShockForm& form() { return form_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Refresh();

    forms::ShockForm form_;
    float total_ = 0;
    bool loading_ = false;
    std::array<QCheckBox*, ShockLossRowCount> ticks_{};
    std::array<QLineEdit*, ShockLossRowCount> counts_{};
    QLabel* total_label_ = nullptr;
};

} // namespace karvane::dialogs
