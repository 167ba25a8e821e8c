// frmSummary ("Network Summary"): the figures of the whole network, read only.
#pragma once

#include <QDialog>

#include "forms/summary_form.h"

namespace karvane::dialogs {

class SummaryDialog : public QDialog {
    Q_OBJECT
public:
    SummaryDialog(const forms::SummaryTexts& texts, QWidget* parent = nullptr);
};

} // namespace karvane::dialogs
