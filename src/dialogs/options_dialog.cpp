// The settings dialog's pages.
#include "dialogs/options_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "dialogs/grid_editor.h"
#include "files/number_text.h"
#include "model/units.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {
namespace {

using F = forms::OptionsFields;

const std::pair<const char*, std::string F::*> TextBoxes[] = {
    {"TxtVPart", &F::TxtVPart},   {"txtHeight", &F::txtHeight}, {"TxtWidth", &F::TxtWidth},
    {"TxtDiam", &F::TxtDiam},     {"TxtArea", &F::TxtArea},     {"TxtPerim", &F::TxtPerim},
    {"TxtCost", &F::TxtCost},     {"TxtEff", &F::TxtEff},       {"TxtFanMax", &F::TxtFanMax},
    {"txtIt", &F::txtIt},         {"txtMe", &F::txtMe},         {"TxtDensity", &F::TxtDensity},
    {"TxtAirP", &F::TxtAirP},     {"TxtAirRL", &F::TxtAirRL},   {"txtsavetime", &F::txtsavetime},
    {"TxtCd", &F::TxtCd},         {"TxtTol", &F::TxtTol},       {"TxtPowerZoom", &F::TxtPowerZoom},
    {"TxtTilt", &F::TxtTilt},     {"TxtSpin", &F::TxtSpin},     {"TxtMj", &F::TxtMj},
    {"Txtgwidth", &F::Txtgwidth}, {"Txtgx", &F::Txtgx},         {"Txtgy", &F::Txtgy}};

const std::pair<const char*, bool F::*> CheckBoxes[] = {
    {"ChkInherit", &F::ChkInherit},   {"ChkArea", &F::ChkArea},     {"ChkRemote", &F::ChkRemote},
    {"ChkSaveTime", &F::ChkSaveTime}, {"ChkBuffer", &F::ChkBuffer}, {"ChkInfo", &F::ChkInfo},
    {"ChkScroll", &F::ChkScroll},     {"ChkLayer", &F::ChkLayer},   {"ChkEDIT", &F::ChkEDIT},
    {"ChkTilt", &F::ChkTilt},         {"ChkSpeed", &F::ChkSpeed},   {"ChkHor", &F::ChkHor},
    {"ChkVert", &F::ChkVert},         {"ChkUnderR", &F::ChkUnderR}};

const std::pair<const char*, int F::*> OptionGroups[] = {
    {"Optcurve", &F::Optcurve}, {"OptSimSource", &F::OptSimSource}, {"OptSolver", &F::OptSolver},
    {"OptType", &F::OptType},   {"OptColour", &F::OptColour},       {"OptUnitType", &F::OptUnitType}};

const char* const ViewerCaptions[forms::ViewerBoxes] = {
    "Node Names",   "Airway Names", "Data Values",  "Resistance Symbols", "Fan Symbols",
    "Node Symbols", "Arrows",       "Contaminants", "Floating Text",      "Off Level Raises"};

QString ColourStyle(std::int32_t colour) {
    return QStringLiteral("background-color: rgb(%1, %2, %3);")
        .arg(colour & 0xFF)
        .arg((colour >> 8) & 0xFF)
        .arg((colour >> 16) & 0xFF);
}

QGroupBox* Group(QWidget* page, QVBoxLayout* column, const char* caption) {
    auto* box = new QGroupBox(QString::fromLatin1(caption), page);
    column->addWidget(box);
    return box;
}

} // namespace

OptionsDialog::OptionsDialog(Model& model, display::DisplayState& ds, ui::UserInterface& ui, QWidget* parent)
    : QDialog(parent),
      form_(model, ds, ui),
      model_(model),
      ui_(ui) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Options"));
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabWidget(this);
    tabs_->setObjectName(QStringLiteral("SSTab1"));
    tabs_->addTab(DefaultsPage(), QStringLiteral("Defaults"));
    tabs_->addTab(SimulationPage(), QStringLiteral("Simulation"));
    tabs_->addTab(GraphicsPage(), QStringLiteral("Graphics"));
    tabs_->addTab(ColoursPage(), QStringLiteral("Colours"));
    tabs_->addTab(DisplayPage(), QStringLiteral("Display"));
    tabs_->addTab(PresetsPage(), QStringLiteral("Presets"));
    tabs_->addTab(UnitsPage(), QStringLiteral("Units"));
    layout->addWidget(tabs_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (const auto& [name, caption] : {std::pair{"cmdOK", "OK"}, std::pair{"cmdCancel", "Cancel"}}) {
        auto* b = new QPushButton(QString::fromLatin1(caption), this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        buttons->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, name = name] { Act(name); });
    }
    layout->addLayout(buttons);
    Refresh();
}

QLineEdit* OptionsDialog::Text(QFormLayout* form, const char* name, const char* caption) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(QString::fromLatin1(name));
    form->addRow(QString::fromLatin1(caption), edit);
    texts_[name] = edit;
    return edit;
}

QCheckBox* OptionsDialog::Check(QLayout* layout, const char* name, const char* caption) {
    auto* box = new QCheckBox(QString::fromLatin1(caption), this);
    box->setObjectName(QString::fromLatin1(name));
    layout->addWidget(box);
    checks_[name] = box;
    return box;
}

QButtonGroup* OptionsDialog::Options(QLayout* layout, const char* name, const std::vector<const char*>& captions) {
    auto* group = new QButtonGroup(this);
    group->setObjectName(QString::fromLatin1(name));
    const int first = std::string(name) == "OptUnitType" ? 1 : 0;
    for (std::size_t i = 0; i < captions.size(); ++i) {
        auto* b = new QRadioButton(QString::fromLatin1(captions[i]), this);
        b->setObjectName(QString::fromLatin1(name) + QString::number(i));
        layout->addWidget(b);
        group->addButton(b, first + static_cast<int>(i));
    }
    groups_[name] = group;
    return group;
}

QWidget* OptionsDialog::DefaultsPage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* fan = new QVBoxLayout(Group(page, column, "Fan Curve Defaults"));
    QButtonGroup* curve = Options(fan, "Optcurve", {"Use static curve", "Use total curve", "Use combo curve"});
    connect(curve, &QButtonGroup::idClicked, this, [this](int id) { Act("Optcurve", std::to_string(id)); });
    auto* pv = new QFormLayout;
    fan->addLayout(pv);
    Text(pv, "TxtVPart", "% Pv");
    auto* size = new QFormLayout(Group(page, column, "Default Airway Size"));
    Text(size, "txtHeight", "Drive Height");
    Text(size, "TxtWidth", "Drive Width");
    Text(size, "TxtDiam", "Raise Diameter");
    Text(size, "TxtArea", "Airway Area");
    Text(size, "TxtPerim", "Airway Perimeter");
    auto* values = new QFormLayout(Group(page, column, "Default Airway Values"));
    const char* names[3] = {"WallCombo", "WallCombo2", "ShockCombo"};
    const char* captions[3] = {"Wall Smoothness - Drives", "Wall Smoothness - Raises", "Shock Distance"};
    for (int i = 0; i < 3; ++i) {
        wallCombo_[i] = new QComboBox(this);
        wallCombo_[i]->setObjectName(QString::fromLatin1(names[i]));
        values->addRow(QString::fromLatin1(captions[i]), wallCombo_[i]);
    }
    auto* build = new QVBoxLayout(Group(page, column, "Constructing Airways"));
    Check(build, "ChkInherit", "Property Inheritance");
    Check(build, "ChkArea", "Use 'area' for new airways");
    column->addStretch();
    return page;
}

QWidget* OptionsDialog::SimulationPage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* smoke = new QVBoxLayout(Group(page, column, "Smoke Sources"));
    Options(smoke, "OptSimSource", {"Cummulative", "Fixed Injection"});
    auto* cost = new QFormLayout(Group(page, column, "Cost and Efficiency Defaults"));
    Text(cost, "TxtCost", "Power Cost $ per kWhr");
    Text(cost, "TxtEff", "Air Power Efficiency Factor (%)");
    Text(cost, "TxtFanMax", "Max Number of Fan Types (1000)");
    simDefaults_ = new QFormLayout(Group(page, column, "Simulation Defaults"));
    Text(simDefaults_, "txtIt", "Max Itterations (1-5000)");
    Text(simDefaults_, "txtMe", "Max Allowable Error (0.0001-5.0)");
    Text(simDefaults_, "TxtDensity", "Average Air Density");
    Text(simDefaults_, "TxtAirP", "Surface Barometric Press");
    Text(simDefaults_, "TxtAirRL", "RL at Surface Pressure");
    auto* method = new QHBoxLayout(Group(page, column, "Balancing Method"));
    Options(method, "OptSolver", {"Hardy Cross", "Newton"});
    auto* unitsBox = new QHBoxLayout(Group(page, column, "Units"));
    QButtonGroup* unitType = Options(unitsBox, "OptUnitType", {"SI Metric", "British Imperial"});
    connect(unitType, &QButtonGroup::idClicked, this, [this](int id) {
        if (id == form_.F.OptUnitType) return;
        Act("OptUnitType", std::to_string(id));
        if (MainRefresh) MainRefresh();
    });
    auto* automated = new QVBoxLayout(Group(page, column, "Automated Options"));
    Check(automated, "ChkRemote", "Activate Realtime Monitoring Options");
    QCheckBox* saveTime = Check(automated, "ChkSaveTime", "Auto Save simulations");
    connect(saveTime, &QCheckBox::clicked, this, [this](bool on) { Act("ChkSaveTime", on ? "1" : "0"); });
    auto* minutes = new QFormLayout;
    automated->addLayout(minutes);
    Text(minutes, "txtsavetime", "Minutes");
    column->addStretch();
    return page;
}

QWidget* OptionsDialog::GraphicsPage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* dataGrid = new QGridLayout(Group(page, column, "Data Display"));
    for (int k = 0; k < forms::ViewerBoxes; ++k) {
        const std::string name = "ChkViewer" + std::to_string(k);
        auto* box = new QCheckBox(QString::fromLatin1(ViewerCaptions[k]), this);
        box->setObjectName(QString::fromStdString(name));
        checks_[name] = box;
        dataGrid->addWidget(box, k % 5, k / 5);
    }
    auto* filter = new QVBoxLayout;
    dataGrid->addLayout(filter, 0, 2, 5, 1);
    Options(filter, "OptType", {"Show All Data", "Vertical Data only", "Horizontal data only", "Selected Data only"});
    auto* detail = new QGridLayout(Group(page, column, "Graphics Detail"));
    auto* detailChecks = new QVBoxLayout;
    detail->addLayout(detailChecks, 0, 0, 4, 1);
    Check(detailChecks, "ChkBuffer", "Screen Buffer");
    Check(detailChecks, "ChkInfo", "Auto Info");
    cmbFonts_ = new QComboBox(this);
    cmbFonts_->setObjectName(QStringLiteral("CmbFonts"));
    for (const char* kind : {"Data values", "Branch names", "Node names", "Floating text"})
        cmbFonts_->addItem(QString::fromLatin1(kind));
    cmbFontSize_ = new QComboBox(this);
    cmbFontSize_->setObjectName(QStringLiteral("CmbFontSize"));
    for (int size = 2; size <= 40; size += 2) cmbFontSize_->addItem(QString::number(size));
    chkFontBold_ = new QCheckBox(QStringLiteral("Bold"), this);
    chkFontBold_->setObjectName(QStringLiteral("ChkFontBold"));
    chkFontScale_ = new QCheckBox(QStringLiteral("Scale"), this);
    chkFontScale_->setObjectName(QStringLiteral("ChkFontScale"));
    detail->addWidget(cmbFonts_, 0, 1);
    detail->addWidget(cmbFontSize_, 1, 1);
    detail->addWidget(chkFontBold_, 2, 1);
    detail->addWidget(chkFontScale_, 3, 1);
    auto* icons = new QGridLayout(Group(page, column, "Icon Display"));
    cmbIcon_ = new QComboBox(this);
    cmbIcon_->setObjectName(QStringLiteral("CmbIcon"));
    for (const char* kind : {"Lines", "Arrows", "Smoke", "Fans", "Nodes", "Obstruction", "Bulkhead"})
        cmbIcon_->addItem(QString::fromLatin1(kind));
    cmbIconSize_ = new QComboBox(this);
    cmbIconSize_->setObjectName(QStringLiteral("CmbIconSize"));
    for (int size = 1; size <= 20; ++size) cmbIconSize_->addItem(QString::number(size));
    chkScaleIcon_ = new QCheckBox(QStringLiteral("Scale"), this);
    chkScaleIcon_->setObjectName(QStringLiteral("ChkScaleIcon"));
    icons->addWidget(cmbIcon_, 0, 0);
    icons->addWidget(cmbIconSize_, 0, 1);
    icons->addWidget(chkScaleIcon_, 0, 2);
    // The icon and font boxes write straight into the settings.
    const auto iconChanged = [this] {
        if (loading_) return;
        forms::SetIconSize(model_, form_.F, cmbIconSize_->currentIndex() + 1, chkScaleIcon_->isChecked());
        if (MainRefresh) MainRefresh();
    };
    const auto fontChanged = [this] {
        if (loading_) return;
        forms::SetFont(model_, form_.F, 2 * (cmbFontSize_->currentIndex() + 1), chkFontBold_->isChecked(),
                       chkFontScale_->isChecked());
        if (MainRefresh) MainRefresh();
    };
    connect(cmbIconSize_, &QComboBox::activated, this, iconChanged);
    connect(chkScaleIcon_, &QCheckBox::clicked, this, iconChanged);
    connect(cmbFontSize_, &QComboBox::activated, this, fontChanged);
    connect(chkFontBold_, &QCheckBox::clicked, this, fontChanged);
    connect(chkFontScale_, &QCheckBox::clicked, this, fontChanged);
    connect(cmbIcon_, &QComboBox::activated, this, [this](int index) {
        form_.F.CmbIcon = index;
        RefreshIconFont();
    });
    connect(cmbFonts_, &QComboBox::activated, this, [this](int index) {
        form_.F.CmbFonts = index;
        RefreshIconFont();
    });
    column->addStretch();
    return page;
}

QWidget* OptionsDialog::ColoursPage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* scheme = new QVBoxLayout(Group(page, column, "Colour Scheme"));
    QButtonGroup* schemes = Options(scheme, "OptColour", {"Levels", "Fresh / Exhaust"});
    connect(schemes, &QButtonGroup::idClicked, this, [this](int id) {
        form_.F.OptColour = id;
        Refresh();
    });
    auto* colours = new QGridLayout(Group(page, column, "Colours"));
    const char* const captions[ColourCount] = {"", "", "", "Background", "Text", "Selection", "Dim Airways", "Grid"};
    for (int i = 0; i < ColourCount; ++i) {
        auto* b = new QPushButton(this);
        b->setObjectName(QStringLiteral("Col%1").arg(i));
        b->setCheckable(true);
        b->setAutoExclusive(true);
        b->setFixedSize(40, 22);
        swatch_[i] = b;
        auto* label = new QLabel(QString::fromLatin1(captions[i]), this);
        if (i < 3) swatchLabel_[i] = label;
        colours->addWidget(b, i, 0);
        colours->addWidget(label, i, 1);
        connect(b, &QPushButton::clicked, this, [this, i] { form_.F.SelectedSwatch = i; });
    }
    auto* strip = new QWidget(this);
    strip->setObjectName(QStringLiteral("Frame3D2"));
    auto* stripLayout = new QHBoxLayout(strip);
    stripLayout->setSpacing(0);
    for (int x = 0; x < 16; ++x) {
        auto* b = new QPushButton(strip);
        b->setFixedSize(18, 18);
        b->setStyleSheet(ColourStyle(forms::BasicColour(x)));
        stripLayout->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, x] {
            forms::PickBasicColour(form_.F, x);
            Refresh();
        });
    }
    colours->addWidget(strip, ColourCount, 0, 1, 2);
    column->addStretch();
    return page;
}

QWidget* OptionsDialog::DisplayPage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* mouseBox = Group(page, column, "Mouse Settings");
    auto* mouse = new QVBoxLayout(mouseBox);
    auto* mouseForm = new QFormLayout;
    mouse->addLayout(mouseForm);
    Text(mouseForm, "TxtTol", "Airway Proximity Search (% of screen area)");
    Text(mouseForm, "TxtPowerZoom", "Power Zoom Speed");
    Text(mouseForm, "TxtTilt", "Tilt/Spin rotation speed");
    Text(mouseForm, "TxtSpin", "Spin rotation speed");
    Check(mouse, "ChkScroll", "Scroll Zoom Off");
    Check(mouse, "ChkEDIT", "EDIT disable right mouse click");
    Check(mouse, "ChkTilt", "Allow full 360 degree rotation");
    Check(mouse, "ChkSpeed", "Unlimited rotation and zoom speed");
    auto* grid = new QVBoxLayout(Group(page, column, "Grid"));
    auto* gridForm = new QFormLayout;
    grid->addLayout(gridForm);
    Text(gridForm, "TxtMj", "Grid Line Spacing (5-1000)");
    Text(gridForm, "Txtgwidth", "Scale Width");
    Text(gridForm, "Txtgx", "Centre X Coord");
    Text(gridForm, "Txtgy", "Centre Y Coord");
    for (const char* name : {"ChkHor", "ChkVert"}) {
        QCheckBox* box =
            Check(grid, name,
                  std::string(name) == "ChkHor" ? "Reverse Horizontal Coordinates" : "Reverse Vertical Coordinates");
        connect(box, &QCheckBox::clicked, this, [this] { form_.F.AxisClicked = true; });
    }
    auto* network = new QVBoxLayout(Group(page, column, "Network Display"));
    auto* networkForm = new QFormLayout;
    network->addLayout(networkForm);
    Text(networkForm, "TxtCd", "Minimum Node Spacing (1-100)");
    Check(network, "ChkLayer", "Layer Inheritance");
    column->addStretch();
    return page;
}

QWidget* OptionsDialog::PresetsPage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    auto* grid = new QGridLayout(Group(page, column, "Preset Values"));
    const char* lists[3] = {"CmbWall", "CmbShock", "CmbRes"};
    const char* boxes[3] = {"TxtWallC", "TxtShockC", "TxtRes"};
    const char* captions[3] = {"Wall Types", "Shock Loss Types", "Resistance Types"};
    for (int list = 0; list < 3; ++list) {
        grid->addWidget(new QLabel(QString::fromLatin1(captions[list]), this), list, 0);
        presetList_[list] = new QComboBox(this);
        presetList_[list]->setObjectName(QString::fromLatin1(lists[list]));
        presetList_[list]->setEditable(true);
        presetList_[list]->setInsertPolicy(QComboBox::NoInsert);
        grid->addWidget(presetList_[list], list, 1);
        presetValue_[list] = new QLineEdit(this);
        presetValue_[list]->setObjectName(QString::fromLatin1(boxes[list]));
        grid->addWidget(presetValue_[list], list, 2);
        connect(presetList_[list], &QComboBox::activated, this, [this, list](int row) {
            forms::ChoosePresetRow(model_, form_.F, list, row, ui_.DecimalSeparator());
            Refresh();
        });
        connect(presetList_[list]->lineEdit(), &QLineEdit::editingFinished, this, [this, list] {
            if (loading_) return;
            const std::string name = shell::ToCp1252(presetList_[list]->currentText());
            const int row = list == 0 ? form_.F.TxtW : list == 1 ? form_.F.TxtS : form_.F.TxtR;
            const auto& names = list == 0 ? form_.F.CmbWall : list == 1 ? form_.F.CmbShock : form_.F.CmbRes;
            if (name == names[static_cast<std::size_t>(row)]) return;
            forms::RenamePreset(form_.F, list, name, ui_);
            Refresh();
        });
        connect(presetValue_[list], &QLineEdit::editingFinished, this, [this, list] {
            if (loading_ || !presetValue_[list]->isModified()) return;
            forms::LeavePresetValue(model_, form_.F, list, shell::ToCp1252(presetValue_[list]->text()));
            presetValue_[list]->setModified(false);
        });
    }
    auto* under = new QVBoxLayout;
    grid->addLayout(under, 3, 0, 1, 3);
    Check(under, "ChkUnderR", "Add underlying airway resistance");
    column->addStretch();
    return page;
}

QWidget* OptionsDialog::UnitsPage() {
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    units_ = new QTableWidget(UnitClassCount, 6, page);
    units_->setObjectName(QStringLiteral("MSFlexGrid1"));
    units_->verticalHeader()->hide();
    const char* headings[6] = {"Data Type", "SI format", "SI label", "British format", "British label", "Factor"};
    for (int c = 0; c < 6; ++c)
        units_->setHorizontalHeaderItem(c, new QTableWidgetItem(QString::fromLatin1(headings[c])));
    column->addWidget(units_);
    unitsEditor_ = new GridEditor(units_, ui_.DecimalSeparator());
    unitsEditor_->Editable = [](int, int col) { return col == 1 || col == 3; };
    unitsEditor_->Limits = [] { return forms::GridLimits{0, UnitClassCount - 1, 1, 5}; };
    unitsEditor_->PasteHandler = [](const QString&, forms::GridCell, int) { return true; }; // no paste here
    unitsEditor_->ClearHandler = [] {};
    connect(unitsEditor_, &GridEditor::cellCommitted, this, [this](int row, int col) {
        const QTableWidgetItem* item = units_->item(row, col);
        forms::SetUnitFormat(form_.F, row + 1, col, item ? shell::ToCp1252(item->text()) : std::string(), ui_);
        Refresh();
    });
    connect(unitsEditor_, &GridEditor::escapePressed, this, [this] { reject(); });
    return page;
}

QWidget* OptionsDialog::Control(const QString& name) const { return findChild<QWidget*>(name); }

void OptionsDialog::Collect() {
    F& f = form_.F;
    for (const auto& [name, member] : TextBoxes)
        if (auto it = texts_.find(name); it != texts_.end()) f.*member = shell::ToCp1252(it->second->text());
    for (const auto& [name, member] : CheckBoxes)
        if (auto it = checks_.find(name); it != checks_.end()) f.*member = it->second->isChecked();
    for (int k = 0; k < forms::ViewerBoxes; ++k)
        f.ChkViewer[static_cast<std::size_t>(k)] = checks_["ChkViewer" + std::to_string(k)]->isChecked();
    for (const auto& [name, member] : OptionGroups)
        if (auto it = groups_.find(name); it != groups_.end() && it->second->checkedId() >= 0)
            f.*member = it->second->checkedId();
    f.WallCombo = wallCombo_[0]->currentIndex();
    f.WallCombo2 = wallCombo_[1]->currentIndex();
    f.ShockCombo = wallCombo_[2]->currentIndex();
}

void OptionsDialog::RefreshIconFont() {
    const Settings& s = model_.Set;
    const auto icon = static_cast<std::size_t>(std::clamp(form_.F.CmbIcon, 0, IconCount - 1));
    const auto font = static_cast<std::size_t>(std::clamp(form_.F.CmbFonts, 0, FontCount - 1) + 1);
    cmbIcon_->setCurrentIndex(static_cast<int>(icon));
    cmbIconSize_->setCurrentIndex(std::clamp<int>(s.IconSize[icon], 1, 20) - 1);
    chkScaleIcon_->setChecked(s.IconScaled[icon] != 0);
    cmbFonts_->setCurrentIndex(static_cast<int>(font) - 1);
    cmbFontSize_->setCurrentIndex(std::clamp<int>(s.FontSize[font], 2, 40) / 2 - 1);
    chkFontBold_->setChecked(s.FontBold[font] != 0);
    chkFontScale_->setChecked(s.ScaleFonts != 0);
}

void OptionsDialog::Refresh() {
    loading_ = true;
    const F& f = form_.F;
    const char sep = ui_.DecimalSeparator();
    for (const auto& [name, member] : TextBoxes)
        if (auto it = texts_.find(name); it != texts_.end()) it->second->setText(shell::FromCp1252(f.*member));
    texts_["TxtVPart"]->setVisible(f.Optcurve == 2);
    for (const auto& [name, member] : CheckBoxes)
        if (auto it = checks_.find(name); it != checks_.end()) it->second->setChecked(f.*member);
    for (int k = 0; k < forms::ViewerBoxes; ++k)
        checks_["ChkViewer" + std::to_string(k)]->setChecked(f.ChkViewer[static_cast<std::size_t>(k)]);
    for (const auto& [name, member] : OptionGroups)
        if (auto it = groups_.find(name); it != groups_.end())
            if (QAbstractButton* b = it->second->button(f.*member)) b->setChecked(true);
    // The default lists: every preset as its value and name.
    const struct {
        const std::array<float, PresetRows>& Values;
        const std::array<std::string, PresetRows>& Names;
        int Unit;
    } defaults[3] = {{f.WallWork, f.CmbWall, uc::Friction},
                     {f.WallWork, f.CmbWall, uc::Friction},
                     {f.ShockWork, f.CmbShock, uc::LongLength}};
    const int chosen[3] = {f.WallCombo, f.WallCombo2, f.ShockCombo};
    for (int i = 0; i < 3; ++i) {
        wallCombo_[i]->clear();
        for (int r = 0; r < PresetRows; ++r)
            wallCombo_[i]->addItem(shell::FromCp1252(
                forms::PresetEntry(model_, defaults[i].Values[static_cast<std::size_t>(r)], defaults[i].Unit,
                                   defaults[i].Names[static_cast<std::size_t>(r)], sep)));
        wallCombo_[i]->setCurrentIndex(chosen[i]);
    }
    const std::array<std::string, PresetRows>* names[3] = {&f.CmbWall, &f.CmbShock, &f.CmbRes};
    const std::string* values[3] = {&f.TxtWallC, &f.TxtShockC, &f.TxtRes};
    const int rows[3] = {f.TxtW, f.TxtS, f.TxtR};
    for (int list = 0; list < 3; ++list) {
        presetList_[list]->clear();
        for (const std::string& name : *names[list]) presetList_[list]->addItem(shell::FromCp1252(name));
        presetList_[list]->setCurrentIndex(rows[list]);
        presetValue_[list]->setText(shell::FromCp1252(*values[list]));
        presetValue_[list]->setModified(false);
    }
    for (int i = 0; i < ColourCount; ++i) {
        swatch_[i]->setStyleSheet(ColourStyle(f.Col[static_cast<std::size_t>(i)]));
        swatch_[i]->setChecked(i == f.SelectedSwatch);
    }
    const char* const levels[3] = {"On Level Airways", "Above Level Airways", "Below Level Airways"};
    const char* const air[3] = {"Unspecified Airways", "Fresh Air Airways", "Exhaust Air Airways"};
    for (int i = 0; i < 3; ++i) swatchLabel_[i]->setText(QString::fromLatin1(f.OptColour == 1 ? air[i] : levels[i]));
    for (int r = 1; r <= UnitClassCount; ++r)
        for (int c = 0; c < 6; ++c)
            SetCellText(units_, r - 1, c,
                        shell::FromCp1252(f.Units[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]), c == 5);
    RefreshIconFont();
    loading_ = false;
}

bool OptionsDialog::Act(const std::string& name, const std::string& value) {
    if (name == "cmdOK") unitsEditor_->Commit();
    Collect();
    bool known = true;
    if (name == "cmdOK" || name == "cmdCancel") known = form_.PressButton(name);
    else known = form_.SetField(name, value);
    if (form_.Closed()) {
        if (form_.Applied()) QDialog::accept();
        else QDialog::reject();
        return known;
    }
    Refresh();
    return known;
}

void OptionsDialog::reject() { Act("cmdCancel"); }

} // namespace karvane::dialogs
