// The tool bar of the main window: the tool buttons in the order of their command values, the
// rotation button, the data type lists with the unit, the level list and its scroll bar, the
// list of named views, the three coordinate labels with the centre, and the simulation light.
#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolBar>

#include "display/data_types.h"
#include "display/level_selector.h"
#include "display/view_title.h"
#include "edit/tool_table.h"
#include "forms/view_names.h"
#include "qt/icons.h"
#include "qt/qt_surface.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"
#include "shell/run_windows.h"
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

QAction* MainWindow::toolButton(int value) const {
    const auto found = toolButtons_.find(value);
    return found == toolButtons_.end() ? nullptr : found->second;
}

void MainWindow::BuildToolBars() {
    toolBar_ = addToolBar(QStringLiteral("Tools"));
    toolBar_->setObjectName(QStringLiteral("Tools"));
    toolBar_->setIconSize(QSize(24, 24));
    toolBar_->setMovable(false);
    toolGroup_ = new QActionGroup(this);
    toolGroup_->setExclusive(true);
    for (const edit::ToolCommand& c : edit::ToolBarCommands()) {
        QAction* a = toolBar_->addAction(ToolIcon(c.Value), QString::fromLatin1(c.Tip));
        a->setObjectName(QStringLiteral("Tool%1").arg(c.Value));
        a->setToolTip(QString::fromLatin1(c.Tip));
        a->setStatusTip(QString::fromLatin1(c.Tip));
        a->setData(c.Value);
        if (c.Tool >= 0) {
            a->setCheckable(true);
            toolGroup_->addAction(a);
        }
        toolButtons_[c.Value] = a;
        const int value = c.Value;
        connect(a, &QAction::triggered, this, [this, value] { dispatcher_->RunToolCommand(value); });
        if (!CommandAvailable(value)) {
            a->setEnabled(false);
            a->setToolTip(QString::fromLatin1(c.Tip) + QStringLiteral("\n(not yet available in this version)"));
        }
        // Groups of the bar: the view, the network's tools, files, and the display switches.
        if (value == edit::cmd::Info || value == edit::cmd::Centre || value == edit::cmd::Save ||
            value == edit::cmd::Undo)
            toolBar_->addSeparator();
    }
    toolButtons_[edit::cmd::Zoom]->setChecked(true);
    toolBar_->addSeparator();
    rotation_ = new RotationButton(toolBar_);
    toolBar_->addWidget(rotation_);
    rotation_->OnPress = [this](int b, QPointF at) { views_->RotationPress(b, at); };
    rotation_->OnMove = [this](QPointF at) { views_->RotationMove(at); };
    rotation_->OnRelease = [this](int b, QPointF at) { views_->RotationRelease(b, at); };

    addToolBarBreak();
    listBar_ = addToolBar(QStringLiteral("Lists"));
    listBar_->setObjectName(QStringLiteral("Lists"));
    listBar_->setMovable(false);

    listBar_->addWidget(Caption(QStringLiteral("Data"), listBar_));
    cmbDataType_ = new QComboBox(listBar_);
    cmbDataType_->setObjectName(QStringLiteral("CmbDataType"));
    cmbDataType_->setMinimumWidth(112);
    cmbDataType_->setToolTip(QStringLiteral("Kind of value shown on the airways"));
    listBar_->addWidget(cmbDataType_);
    cmbDataVal_ = new QComboBox(listBar_);
    cmbDataVal_->setObjectName(QStringLiteral("CmbDataVal"));
    cmbDataVal_->setMinimumWidth(130);
    cmbDataVal_->setToolTip(QStringLiteral("Value shown on the airways"));
    listBar_->addWidget(cmbDataVal_);
    lblUnit_ = FieldLabel("LblUnit", 58, listBar_);
    lblUnit_->setAlignment(Qt::AlignCenter);
    lblUnit_->setToolTip(QStringLiteral("Unit of the values shown"));
    listBar_->addWidget(lblUnit_);

    listBar_->addSeparator();
    listBar_->addWidget(Caption(QStringLiteral("Level"), listBar_));
    cmbRL_ = new QComboBox(listBar_);
    cmbRL_->setObjectName(QStringLiteral("CmbRL"));
    cmbRL_->setMinimumWidth(130);
    cmbRL_->setToolTip(QStringLiteral("Level shown (Up and Down keys step through the levels)"));
    listBar_->addWidget(cmbRL_);
    vsbRL_ = new QScrollBar(Qt::Vertical, listBar_);
    vsbRL_->setObjectName(QStringLiteral("VsbRL"));
    vsbRL_->setFixedSize(16, 26);
    vsbRL_->setToolTip(QStringLiteral("Next or previous level"));
    listBar_->addWidget(vsbRL_);

    listBar_->addSeparator();
    listBar_->addWidget(Caption(QStringLiteral("View"), listBar_));
    cmbView_ = new QComboBox(listBar_);
    cmbView_->setObjectName(QStringLiteral("CmbView"));
    cmbView_->setMinimumWidth(150);
    cmbView_->setToolTip(QStringLiteral("Named views"));
    listBar_->addWidget(cmbView_);

    listBar_->addSeparator();
    listBar_->addWidget(Caption(QStringLiteral("X"), listBar_));
    lblX_ = FieldLabel("LblX", 86, listBar_);
    listBar_->addWidget(lblX_);
    listBar_->addWidget(Caption(QStringLiteral("Y"), listBar_));
    lblY_ = FieldLabel("LblY", 86, listBar_);
    listBar_->addWidget(lblY_);
    listBar_->addWidget(Caption(QStringLiteral("RL"), listBar_));
    lblRL_ = FieldLabel("LblRL", 70, listBar_);
    listBar_->addWidget(lblRL_);
    auto* centre = new QWidget(listBar_);
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
    listBar_->addWidget(centre);

    auto* spacer = new QWidget(listBar_);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    listBar_->addWidget(spacer);
    lblSim_ = new QLabel(QStringLiteral("SIM"), listBar_);
    lblSim_->setObjectName(QStringLiteral("LblSim"));
    lblSim_->setAlignment(Qt::AlignCenter);
    lblSim_->setFixedSize(44, 24);
    lblSim_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    lblSim_->setToolTip(QString::fromLatin1(simulate::SimIndicatorTip));
    listBar_->addWidget(lblSim_);

    connect(cmbDataType_, &QComboBox::activated, this, &MainWindow::OnDataGroupChosen);
    connect(cmbDataVal_, &QComboBox::activated, this, &MainWindow::OnDataValueChosen);
    connect(cmbRL_, &QComboBox::activated, this, &MainWindow::OnLevelChosen);
    connect(vsbRL_, &QScrollBar::valueChanged, this, &MainWindow::OnLevelScrolled);
    connect(vsbRL_, &QScrollBar::sliderReleased, this, [this] { OnLevelScrolled(vsbRL_->value()); });
    connect(cmbView_, &QComboBox::activated, this, &MainWindow::OnViewChosen);
}

void MainWindow::ShowToolState(int value) {
    QAction* button = toolButton(value);
    if (button && button->isCheckable()) button->setChecked(true);
    const int current = dispatcher_->State().CommandValue;
    if (QAction* b = toolButton(current == edit::cmd::AttributesToDefaults ? edit::cmd::Attributes : current))
        b->setChecked(true);
    if (const edit::ToolCommand* c = edit::FindToolCommand(current); c && toolLabel_)
        toolLabel_->setText(QStringLiteral("Tool: ") + QString::fromLatin1(*c->Tip ? c->Tip : c->MenuCaption));
    UpdateMenuTicks();
}

void MainWindow::SetViewCursor(const std::string& name) { views_->SetCursor(ViewCursor(name)); }

void MainWindow::FillDataTypeLists() {
    listsLoading_ = true;
    cmbDataType_->clear();
    for (int g = 1; g <= display::DataGroupCount; ++g)
        cmbDataType_->addItem(QString::fromStdString(std::string(display::DataGroupName(g))));
    listsLoading_ = false;
    ShowDataType();
}

void MainWindow::ShowDataType() {
    listsLoading_ = true;
    const int type = ds_->View.DataType;
    const int group = display::DataGroupOf(type);
    if (group >= 1 && group <= display::DataGroupCount) {
        cmbDataType_->setCurrentIndex(group - 1);
        cmbDataVal_->clear();
        for (const std::string& name : display::DataValueNames(group))
            cmbDataVal_->addItem(QString::fromStdString(name));
        cmbDataVal_->setCurrentIndex(type % 10 - 2);
    }
    lblUnit_->setText(FromCp1252(display::DataUnitLabel(*model_, type)));
    listsLoading_ = false;
    UpdateMenuTicks();
}

void MainWindow::OnDataGroupChosen(int index) {
    if (listsLoading_ || index < 0) return;
    display::ChooseDataGroup(*model_, *ds_, index + 1);
    ShowDataType();
    OnDataValueChosen(cmbDataVal_->currentIndex());
}

void MainWindow::OnDataValueChosen(int index) {
    if (listsLoading_ || index < 0) return;
    const int group = cmbDataType_->currentIndex() + 1;
    display::ChooseDataType(*model_, *ds_, group * 10 + index + 2);
    ShowDataType();
    views_->RefreshCaption();
    views_->UpdateWindowMenu();
    SaveWindowState();
    RedrawWindow();
}

void MainWindow::OnDataTypeMenu(int dataType) {
    display::ChooseDataType(*model_, *ds_, dataType);
    ShowDataType();
    OnDataValueChosen(cmbDataVal_->currentIndex());
}

void MainWindow::FillLevelList() {
    listsLoading_ = true;
    cmbRL_->clear();
    const int count = display::LevelListCount(*model_);
    for (int row = 1; row <= count; ++row)
        cmbRL_->addItem(FromCp1252(TrimText(model_->Levels[static_cast<std::size_t>(row)].RLName)));
    vsbRL_->setRange(1, std::max(1, count));
    vsbRL_->setPageStep(1);
    listsLoading_ = false;
    ShowLevel();
}

void MainWindow::ShowLevel() {
    listsLoading_ = true;
    const display::ViewState& v = ds_->View;
    if (v.LevelMode == display::lm::Single) {
        cmbRL_->setCurrentIndex(v.CurrentLevel - 1);
    } else {
        cmbRL_->setCurrentIndex(-1);
    }
    const QSignalBlocker block(vsbRL_);
    vsbRL_->setValue(v.CurrentLevel);
    listsLoading_ = false;
}

void MainWindow::OnLevelChosen(int index) {
    if (listsLoading_ || index < 0) return;
    display::ChooseLevelRow(*model_, *ds_, index + 1);
    AfterLevelChange();
}

void MainWindow::OnLevelScrolled(int value) {
    if (listsLoading_) return;
    if (vsbRL_->isSliderDown()) {
        // While the thumb is dragged only the list follows.
        listsLoading_ = true;
        cmbRL_->setCurrentIndex(value - 1);
        listsLoading_ = false;
        return;
    }
    display::ChooseLevelRow(*model_, *ds_, value);
    AfterLevelChange();
}

void MainWindow::StepLevel(int step) {
    if (display::StepLevel(*model_, *ds_, step)) AfterLevelChange();
}

void MainWindow::AfterLevelChange() {
    ShowLevel();
    views_->RefreshCaption();
    views_->UpdateWindowMenu();
    RedrawWindow();
    SaveWindowState();
    UpdateMenuTicks();
    ShowViewStatus();
}

void MainWindow::FillViewList() {
    listsLoading_ = true;
    cmbView_->clear();
    for (const std::string& name : forms::NamedViewList(*model_)) cmbView_->addItem(FromCp1252(name));
    cmbView_->setCurrentIndex(cmbView_->count() > 0 ? 0 : -1);
    listsLoading_ = false;
}

void MainWindow::OnViewChosen(int index) {
    if (listsLoading_ || index < 0 || views_->Table().CurWin < 0 || ds_->WindowFrozen) return;
    views_->SyncCurrent();
    if (!forms::ChooseNamedView(*model_, *ds_, ui_, ToCp1252(cmbView_->itemText(index)))) return;
    ShowDataType();
    ShowLevel();
    views_->RefreshCaption();
    views_->UpdateWindowMenu();
    RedrawWindow();
    SaveWindowState();
    ShowViewStatus();
}

void MainWindow::ShowSimIndicator() {
    const simulate::SimIndicator st = simulate::SimStatus(*model_);
    lblSim_->setText(QString::fromLatin1(st.Caption));
    lblSim_->setStyleSheet(
        QStringLiteral("QLabel#LblSim { background: %1; color: black; font-weight: bold; }").arg(Hex(st.BackColour)));
    const QString list = QStringLiteral("QComboBox { background: %1; }").arg(Hex(st.ListBackColour));
    cmbDataType_->setStyleSheet(list);
    cmbDataVal_->setStyleSheet(list);
}

void MainWindow::RefreshControls() {
    // The coordinate labels start at the middle of the view.
    if (views_->CurrentOpen() && ds_->View.Is3D == 0) display::ShowCursorCoordinates(*model_, *ds_, 0, 0);
    ShowDataType();
    FillLevelList();
    ShowSimIndicator();
    ShowToolState(dispatcher_->State().CommandValue);
    views_->RefreshCaption();
    views_->UpdateWindowMenu();
    UpdateMenuTicks();
    ShowViewStatus();
}

} // namespace karvane::shell
