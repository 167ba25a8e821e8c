// The number box of the dialogs: digits, a sign and a decimal point only; a typed "." becomes
// the machine's decimal separator, and the whole text is selected when the box takes the focus.
#pragma once

#include <QLineEdit>

namespace karvane::dialogs {

class NumberEdit : public QLineEdit {
    Q_OBJECT
public:
    NumberEdit(char decimalSep, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    char sep_;
    bool selectOnClick_ = false;
};

} // namespace karvane::dialogs
