// The dialogs of what a view shows: frmViewer ("View Options") and frmTagS ("Viewing Layers").
// Each binds its widgets to the fields of its form; the rules are the form's.
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "forms/view_options.h"
#include "ui/user_interface.h"

class QButtonGroup;
class QCheckBox;
class QLineEdit;
class QLabel;

namespace karvane::dialogs {

class ViewerDialog : public QDialog {
    Q_OBJECT
public:
    ViewerDialog(const forms::ViewerFields& fields, char decimalSep, QWidget* parent = nullptr);
    forms::ViewerFields Fields() const;
    // Called at OK with the fields; false keeps the dialog open.
    std::function<bool(const forms::ViewerFields&)> OnApply;

    void accept() override;

private:
    void Show(const forms::ViewerFields& fields);

    std::array<QCheckBox*, 10> checks_{};
    QButtonGroup* optType_;
    QButtonGroup* colOpt_;
    QButtonGroup* optDimmer_;
    QLineEdit* min_;
    QLineEdit* max_;
};

class LayersDialog : public QDialog {
    Q_OBJECT
public:
    LayersDialog(const forms::LayerFields& fields, QWidget* parent = nullptr);
    forms::LayerFields Fields() const;

private:
    void Show(const forms::LayerFields& fields);
    void MarkDrawLayers();

    forms::LayerFields fields_;
    std::array<QCheckBox*, PrimaryLayerCount + 1> primaryOn_{};
    std::array<QLineEdit*, PrimaryLayerCount + 1> primaryName_{};
    std::array<QCheckBox*, SecondLayerCount + 1> secondaryOn_{};
    std::array<QLineEdit*, SecondLayerCount + 1> secondaryName_{};
    QButtonGroup* lines_;
    std::array<QCheckBox*, 5> show_{};
};

} // namespace karvane::dialogs
