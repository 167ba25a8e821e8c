// The dialogs of the exchange: the DXF export options (frmExport), the import options
// (frmImport) and the simplification filter (frmSimplify). Each binds its widgets to the plain
// fields of the exchange, which hold the rules.
#pragma once

#include <QDialog>
#include <QWidget>
#include <array>
#include <functional>

#include "exchange/dxf_export.h"
#include "exchange/import.h"
#include "exchange/simplify.h"

class QCheckBox;
class QLineEdit;
class QSlider;

namespace karvane::dialogs {

class NumberEdit;

class ExportOptionsDialog : public QDialog {
    Q_OBJECT
public:
    ExportOptionsDialog(const exchange::ExportFields& fields, char decimalSep, QWidget* parent = nullptr);
    exchange::ExportFields Fields() const;

private:
    std::array<NumberEdit*, 6> boxes_{};
    QCheckBox* visible_;
};

class ImportOptionsDialog : public QDialog {
    Q_OBJECT
public:
    ImportOptionsDialog(const exchange::ImportFields& fields, char decimalSep, QWidget* parent = nullptr);
    exchange::ImportFields Fields() const;

private:
    QCheckBox* merge_;
    QCheckBox* rl_;
    QCheckBox* drive_;
    QCheckBox* raise_;
    QCheckBox* size_;
    std::array<NumberEdit*, 3> offsets_{};
    std::array<QCheckBox*, 3> negate_{};
};

class SimplifyWindow : public QWidget {
    Q_OBJECT
public:
    explicit SimplifyWindow(QWidget* parent = nullptr);
    exchange::SimplifyFields Fields() const;
    void Show(const exchange::SimplifyFields& fields);

    // "Simplify !".
    std::function<void(const exchange::SimplifyFields&)> OnSimplify;

private:
    QSlider* hsl_;
    QLineEdit* txtL_;
    QSlider* hsa_;
    QLineEdit* txtA_;
    std::array<QCheckBox*, 6> checks_{};
};

} // namespace karvane::dialogs
