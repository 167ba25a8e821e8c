// Number boxes.
#include "dialogs/number_edit.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRegularExpressionValidator>

namespace karvane::dialogs {

NumberEdit::NumberEdit(char decimalSep, QWidget* parent) : QLineEdit(parent), sep_(decimalSep) {
    setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[-+]?[0-9]*[.,]?[0-9]*")), this));
}

void NumberEdit::keyPressEvent(QKeyEvent* event) {
    if (event->text() == QStringLiteral(".") && sep_ != '.') {
        insert(QString(QLatin1Char(sep_)));
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void NumberEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
    // A click that brought the focus would place the cursor and lose the selection.
    selectOnClick_ = event->reason() == Qt::MouseFocusReason;
}

void NumberEdit::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    if (selectOnClick_) {
        selectAll();
        selectOnClick_ = false;
    }
}

} // namespace karvane::dialogs
