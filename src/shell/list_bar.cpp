// The list bar of the main window: its lists and labels, filled from the current view, and
// the choices made in them.
#include "shell/list_bar.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QScrollBar>
#include <QToolBar>

#include "display/data_types.h"
#include "display/level_selector.h"
#include "forms/view_names.h"
#include "qt/qt_surface.h"
#include "qt/qt_text.h"
#include "shell/view_window_manager.h"
#include "simulate/run.h"

namespace karvane::shell {

namespace {

QLabel* FieldLabel(const char* name, int width, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    label->setMinimumWidth(width);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setContentsMargins(4, 0, 4, 0);
    return label;
}

QLabel* Caption(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setContentsMargins(6, 0, 2, 0);
    label->setStyleSheet(QStringLiteral("color: #44505e;"));
    return label;
}

QString Hex(std::int32_t colour) { return QtSurface::ToQColor(colour).name(); }

} // namespace

ListBar::ListBar(QMainWindow& main, Model& model, display::DisplayState& ds, ui::UserInterface& ui,
                 ViewWindowManager& views, Owner& owner)
    : model_(model),
      ds_(ds),
      ui_(ui),
      views_(views),
      owner_(owner) {
    main.addToolBarBreak();
    bar_ = main.addToolBar(QStringLiteral("Lists"));
    bar_->setObjectName(QStringLiteral("Lists"));
    bar_->setMovable(false);

    bar_->addWidget(Caption(QStringLiteral("Data"), bar_));
    cmbDataType_ = new QComboBox(bar_);
    cmbDataType_->setObjectName(QStringLiteral("CmbDataType"));
    cmbDataType_->setMinimumWidth(112);
    cmbDataType_->setToolTip(QStringLiteral("Kind of value shown on the airways"));
    bar_->addWidget(cmbDataType_);
    cmbDataVal_ = new QComboBox(bar_);
    cmbDataVal_->setObjectName(QStringLiteral("CmbDataVal"));
    cmbDataVal_->setMinimumWidth(130);
    cmbDataVal_->setToolTip(QStringLiteral("Value shown on the airways"));
    bar_->addWidget(cmbDataVal_);
    lblUnit_ = FieldLabel("LblUnit", 58, bar_);
    lblUnit_->setAlignment(Qt::AlignCenter);
    lblUnit_->setToolTip(QStringLiteral("Unit of the values shown"));
    bar_->addWidget(lblUnit_);

    bar_->addSeparator();
    bar_->addWidget(Caption(QStringLiteral("Level"), bar_));
    cmbRL_ = new QComboBox(bar_);
    cmbRL_->setObjectName(QStringLiteral("CmbRL"));
    cmbRL_->setMinimumWidth(130);
    cmbRL_->setToolTip(QStringLiteral("Level shown (Up and Down keys step through the levels)"));
    bar_->addWidget(cmbRL_);
    vsbRL_ = new QScrollBar(Qt::Vertical, bar_);
    vsbRL_->setObjectName(QStringLiteral("VsbRL"));
    vsbRL_->setFixedSize(16, 26);
    vsbRL_->setToolTip(QStringLiteral("Next or previous level"));
    bar_->addWidget(vsbRL_);

    bar_->addSeparator();
    bar_->addWidget(Caption(QStringLiteral("View"), bar_));
    cmbView_ = new QComboBox(bar_);
    cmbView_->setObjectName(QStringLiteral("CmbView"));
    cmbView_->setMinimumWidth(150);
    cmbView_->setToolTip(QStringLiteral("Named views"));
    bar_->addWidget(cmbView_);

    bar_->addSeparator();
    bar_->addWidget(Caption(QStringLiteral("X"), bar_));
    lblX_ = FieldLabel("LblX", 86, bar_);
    bar_->addWidget(lblX_);
    bar_->addWidget(Caption(QStringLiteral("Y"), bar_));
    lblY_ = FieldLabel("LblY", 86, bar_);
    bar_->addWidget(lblY_);
    bar_->addWidget(Caption(QStringLiteral("RL"), bar_));
    lblRL_ = FieldLabel("LblRL", 70, bar_);
    bar_->addWidget(lblRL_);
    auto* centre = new QWidget(bar_);
    auto* centreLayout = new QVBoxLayout(centre);
    centreLayout->setContentsMargins(6, 0, 2, 0);
    centreLayout->setSpacing(0);
    lblCentreX_ = new QLabel(centre);
    lblCentreX_->setObjectName(QStringLiteral("LblCentreX"));
    lblCentreY_ = new QLabel(centre);
    lblCentreY_->setObjectName(QStringLiteral("LblCentreY"));
    for (QLabel* l : {lblCentreX_, lblCentreY_}) {
        QFont f = l->font();
        f.setPointSizeF(f.pointSizeF() * 0.8);
        l->setFont(f);
        l->setStyleSheet(QStringLiteral("color: #6a7684;"));
        l->setToolTip(QStringLiteral("Centre of the view"));
        centreLayout->addWidget(l);
    }
    bar_->addWidget(centre);

    auto* spacer = new QWidget(bar_);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar_->addWidget(spacer);
    lblSim_ = new QLabel(QStringLiteral("SIM"), bar_);
    lblSim_->setObjectName(QStringLiteral("LblSim"));
    lblSim_->setAlignment(Qt::AlignCenter);
    lblSim_->setFixedSize(44, 24);
    lblSim_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    lblSim_->setToolTip(QString::fromLatin1(simulate::SimIndicatorTip));
    bar_->addWidget(lblSim_);

    connect(cmbDataType_, &QComboBox::activated, this, &ListBar::OnDataGroupChosen);
    connect(cmbDataVal_, &QComboBox::activated, this, &ListBar::OnDataValueChosen);
    connect(cmbRL_, &QComboBox::activated, this, &ListBar::OnLevelChosen);
    connect(vsbRL_, &QScrollBar::valueChanged, this, &ListBar::OnLevelScrolled);
    connect(vsbRL_, &QScrollBar::sliderReleased, this, [this] { OnLevelScrolled(vsbRL_->value()); });
    connect(cmbView_, &QComboBox::activated, this, &ListBar::OnViewChosen);
}

void ListBar::FillDataTypeLists() {
    loading_ = true;
    cmbDataType_->clear();
    for (int g = 1; g <= display::DataGroupCount; ++g)
        cmbDataType_->addItem(QString::fromStdString(std::string(display::DataGroupName(g))));
    loading_ = false;
    ShowDataType();
}

void ListBar::ShowDataType() {
    loading_ = true;
    const int type = ds_.View.DataType;
    const int group = display::DataGroupOf(type);
    if (group >= 1 && group <= display::DataGroupCount) {
        cmbDataType_->setCurrentIndex(group - 1);
        cmbDataVal_->clear();
        for (const std::string& name : display::DataValueNames(group))
            cmbDataVal_->addItem(QString::fromStdString(name));
        cmbDataVal_->setCurrentIndex(type % 10 - 2);
    }
    lblUnit_->setText(FromCp1252(display::DataUnitLabel(model_, type)));
    loading_ = false;
    owner_.UpdateMenuTicks();
}

void ListBar::OnDataGroupChosen(int index) {
    if (loading_ || index < 0) return;
    display::ChooseDataGroup(model_, ds_, index + 1);
    ShowDataType();
    OnDataValueChosen(cmbDataVal_->currentIndex());
}

void ListBar::OnDataValueChosen(int index) {
    if (loading_ || index < 0) return;
    const int group = cmbDataType_->currentIndex() + 1;
    display::ChooseDataType(model_, ds_, group * 10 + index + 2);
    ShowDataType();
    views_.RefreshCaption();
    views_.UpdateWindowMenu();
    views_.SaveCurrentState();
    views_.RedrawCurrent();
}

void ListBar::ChooseDataType(int dataType) {
    display::ChooseDataType(model_, ds_, dataType);
    ShowDataType();
    OnDataValueChosen(cmbDataVal_->currentIndex());
}

void ListBar::FillLevelList() {
    loading_ = true;
    cmbRL_->clear();
    const int count = display::LevelListCount(model_);
    for (int row = 1; row <= count; ++row)
        cmbRL_->addItem(FromCp1252(TrimText(model_.Levels[static_cast<std::size_t>(row)].RLName)));
    vsbRL_->setRange(1, std::max(1, count));
    vsbRL_->setPageStep(1);
    loading_ = false;
    ShowLevel();
}

void ListBar::ShowLevel() {
    loading_ = true;
    const display::ViewState& v = ds_.View;
    if (v.LevelMode == display::lm::Single) {
        cmbRL_->setCurrentIndex(v.CurrentLevel - 1);
    } else {
        cmbRL_->setCurrentIndex(-1);
    }
    const QSignalBlocker block(vsbRL_);
    vsbRL_->setValue(v.CurrentLevel);
    loading_ = false;
}

void ListBar::OnLevelChosen(int index) {
    if (loading_ || index < 0) return;
    display::ChooseLevelRow(model_, ds_, index + 1);
    owner_.AfterLevelChange();
}

void ListBar::OnLevelScrolled(int value) {
    if (loading_) return;
    if (vsbRL_->isSliderDown()) {
        // While the thumb is dragged only the list follows.
        loading_ = true;
        cmbRL_->setCurrentIndex(value - 1);
        loading_ = false;
        return;
    }
    display::ChooseLevelRow(model_, ds_, value);
    owner_.AfterLevelChange();
}

void ListBar::FillViewList() {
    loading_ = true;
    cmbView_->clear();
    for (const std::string& name : forms::NamedViewList(model_)) cmbView_->addItem(FromCp1252(name));
    cmbView_->setCurrentIndex(cmbView_->count() > 0 ? 0 : -1);
    loading_ = false;
}

void ListBar::OnViewChosen(int index) {
    if (loading_ || index < 0 || views_.Table().CurWin < 0 || ds_.WindowFrozen) return;
    views_.SyncCurrent();
    if (!forms::ChooseNamedView(model_, ds_, ui_, ToCp1252(cmbView_->itemText(index)))) return;
    ShowDataType();
    ShowLevel();
    views_.RefreshCaption();
    views_.UpdateWindowMenu();
    views_.RedrawCurrent();
    views_.SaveCurrentState();
    owner_.ShowViewStatus();
}

void ListBar::ShowSimIndicator() {
    const simulate::SimIndicator st = simulate::SimStatus(model_);
    lblSim_->setText(QString::fromLatin1(st.Caption));
    lblSim_->setStyleSheet(
        QStringLiteral("QLabel#LblSim { background: %1; color: black; font-weight: bold; }").arg(Hex(st.BackColour)));
    const QString list = QStringLiteral("QComboBox { background: %1; }").arg(Hex(st.ListBackColour));
    cmbDataType_->setStyleSheet(list);
    cmbDataVal_->setStyleSheet(list);
}

void ListBar::ShowNamedView(const std::string& name) {
    loading_ = true;
    cmbView_->setCurrentIndex(cmbView_->findText(FromCp1252(name)));
    loading_ = false;
}

int ListBar::NamedViewPosition() const { return cmbView_->currentIndex(); }

std::string ListBar::NamedViewAt(int position) const { return ToCp1252(cmbView_->itemText(position)); }

void ListBar::ShowLabels() {
    const display::StatusLabels& l = ds_.Labels;
    lblX_->setText(FromMessage(l.LabelX));
    lblY_->setText(FromMessage(l.LabelY));
    lblRL_->setText(FromMessage(l.LabelRL));
    lblCentreX_->setText(FromMessage(l.CentreX));
    lblCentreY_->setText(FromMessage(l.CentreY));
}

} // namespace karvane::shell
