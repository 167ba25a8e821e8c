// frmOptions ("Options"): the Qt face of the settings dialog, seven tabbed pages over
// forms::OptionsForm. The widgets are read into the form's fields before every action and put
// back from them after it.
#pragma once

#include <QDialog>
#include <functional>
#include <map>

#include "forms/options_form.h"

class QAbstractButton;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QTableWidget;
class QTabWidget;

namespace karvane::dialogs {

class GridEditor;

class OptionsDialog : public QDialog {
    Q_OBJECT
public:
    OptionsDialog(Model& model, display::DisplayState& ds, ui::UserInterface& ui, QWidget* parent = nullptr);
    forms::OptionsForm& Form() { return form_; }
    // Called after the unit system switched and after a direct effect (fonts, icons), so that
    // the main window's views and labels follow while the dialog stays open.
    std::function<void()> MainRefresh;
    // The "Simulation Defaults" group, where a further simulation setting takes its row.
    QFormLayout* SimulationDefaults() const { return simDefaults_; }
    QTabWidget* Pages() const { return tabs_; }
    GridEditor* UnitsEditor() const { return unitsEditor_; }
    // A control by its name, as the script and the tests reach it.
    QWidget* Control(const QString& name) const;
    // Reads every box into the fields, acts by the control name, and shows the fields again.
    bool Act(const std::string& name, const std::string& value = {});

protected:
    void reject() override;

private:
    void Collect();
    void Refresh();
    void RefreshIconFont();
    QWidget* DefaultsPage();
    QWidget* SimulationPage();
    QWidget* GraphicsPage();
    QWidget* ColoursPage();
    QWidget* DisplayPage();
    QWidget* PresetsPage();
    QWidget* UnitsPage();
    QLineEdit* Text(QFormLayout* form, const char* name, const char* caption);
    QCheckBox* Check(QLayout* layout, const char* name, const char* caption);
    QButtonGroup* Options(QLayout* layout, const char* name, const std::vector<const char*>& captions);

    forms::OptionsForm form_;
    Model& model_;
    ui::UserInterface& ui_;
    bool loading_ = false;
    std::map<std::string, QLineEdit*> texts_;
    std::map<std::string, QCheckBox*> checks_;
    std::map<std::string, QButtonGroup*> groups_;
    QTabWidget* tabs_ = nullptr;
    QFormLayout* simDefaults_ = nullptr;
    QComboBox* wallCombo_[3] = {};
    QComboBox* presetList_[3] = {};
    QLineEdit* presetValue_[3] = {};
    QAbstractButton* swatch_[ColourCount] = {};
    QLabel* swatchLabel_[3] = {};
    QComboBox* cmbIcon_ = nullptr;
    QComboBox* cmbIconSize_ = nullptr;
    QCheckBox* chkScaleIcon_ = nullptr;
    QComboBox* cmbFonts_ = nullptr;
    QComboBox* cmbFontSize_ = nullptr;
    QCheckBox* chkFontBold_ = nullptr;
    QCheckBox* chkFontScale_ = nullptr;
    QTableWidget* units_ = nullptr;
    GridEditor* unitsEditor_ = nullptr;
};

} // namespace karvane::dialogs
