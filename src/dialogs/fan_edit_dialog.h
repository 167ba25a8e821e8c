// The fan tool's window (frmFanEdit, "Fan Edit"), bound to forms::FanEditForm.
#pragma once

#include <QDialog>

#include "forms/fan_edit.h"

class QComboBox;
class QLineEdit;
class QRadioButton;
class QScrollBar;

namespace karvane::dialogs {

class FanEditDialog : public QDialog {
    Q_OBJECT
public:
    FanEditDialog(Model& model, ui::UserInterface& ui, char decimalSep, QWidget* parent = nullptr);
    // Opens on an airway row; runs modal; true when OK wrote the fan.
    bool Run(std::int32_t row);
    forms::FanEditForm& form() { return form_; }

private:
    void Refresh();

    forms::FanEditForm form_;
    bool loading_ = false;
    QComboBox* fans_ = nullptr;
    QLineEdit* count_ = nullptr;
    QScrollBar* vsf_ = nullptr;
    QRadioButton *series_ = nullptr, *parallel_ = nullptr;
    QRadioButton* curve_[3] = {};
    QLineEdit* part_ = nullptr;
};

} // namespace karvane::dialogs
