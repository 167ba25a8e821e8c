// The main window: its construction, the start-up list, the orderly end and the status it
// shows; what the runs, the view windows and the run windows ask of it.
#include "shell/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QWindowStateChangeEvent>

#include "contaminant/sourcing.h"
#include "dialogs/file_note_window.h"
#include "dialogs/smoke_windows.h"
#include "display/data_types.h"
#include "display/display_list.h"
#include "display/level_selector.h"
#include "display/renderer.h"
#include "display/saved_views.h"
#include "display/view_title.h"
#include "display/view_transform.h"
#include "files/conversion_file.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "files/number_text.h"
#include "model/data_type.h"
#include "model/network_rows.h"
#include "model/units.h"
#include "qt/icons.h"
#include "qt/qt_text.h"
#include "shell/run_windows.h"
#include "simulate/run.h"

namespace karvane::shell {

// What the runs and the spread ask of the windows around them.
class MainWindow::Hooks : public commands::UndoLogHooks {
public:
    explicit Hooks(MainWindow& w) : UndoLogHooks(w.undo_, w.ui_), w_(w) {}
    void Redraw() override { w_.RedrawWindow(); }
    void RememberDataTypes() override {
        if (display::DataGroupOf(w_.ds_->View.DataType) != 5 ||
            w_.ds_->View.DataType < DataTypeNumber(DataType::Contaminant))
            w_.rememberedDataType_ = w_.ds_->View.DataType;
    }
    void ShowContaminantDataTypes() override {
        display::ChooseDataType(*w_.model_, *w_.ds_, DataTypeNumber(DataType::Contaminant));
        w_.lists_->ShowDataType();
    }
    void RestoreDataTypes() override {
        if (w_.rememberedDataType_ != 0) display::ChooseDataType(*w_.model_, *w_.ds_, w_.rememberedDataType_);
        w_.lists_->ShowDataType();
    }
    void CloseSmokeWindow() override { w_.runWindows_->HideSmokeWindow(); }
    void ShowLegend() override { w_.runWindows_->ShowLegend(); }
    void LegendChanged() override { w_.runWindows_->LegendChanged(); }
    void CloseLegend() override { w_.runWindows_->CloseLegend(); }

private:
    MainWindow& w_;
};

class MainWindow::ViewRoads : public ViewWindowManager::Owner, public ListBar::Owner {
public:
    explicit ViewRoads(MainWindow& w) : w_(w) {}
    bool Loading() const override { return w_.mainLoading_; }
    bool RunActive() const override { return w_.runActive_; }
    bool Ending() const override { return w_.ending_; }
    void ShowViewStatus() override { w_.ShowViewStatus(); }
    void ShowSimIndicator() override { w_.lists_->ShowSimIndicator(); }
    void ShowDataType() override { w_.lists_->ShowDataType(); }
    void ShowLevel() override { w_.lists_->ShowLevel(); }
    void UpdateMenuTicks() override { w_.UpdateMenuTicks(); }
    void ClearNetworkInLastWindow() override { w_.ClearNetworkInLastWindow(); }
    void AfterLevelChange() override { w_.AfterLevelChange(); }

private:
    MainWindow& w_;
};

class MainWindow::RunRoads : public RunWindowSet::Owner {
public:
    explicit RunRoads(MainWindow& w) : w_(w) {}
    bool RunActive() const override { return w_.runActive_; }
    void SetRunActive(bool active) override { w_.SetRunActive(active); }
    void AfterRun() override { w_.AfterRun(); }
    void RedrawWindow() override { w_.RedrawWindow(); }
    void RedrawAllWindows() override { w_.RedrawAllWindows(); }
    void ShowSimIndicator() override { w_.lists_->ShowSimIndicator(); }
    void GotoAirway(std::int32_t airwayNo) override { w_.GotoAirway(airwayNo); }
    void RunToolCommand(int value) override { w_.RunToolCommand(value); }
    void RestoreDataTypes() override { w_.hooks_->RestoreDataTypes(); }
    contaminant::SpreadHooks* RunHooks() override { return w_.hooks_.get(); }

private:
    MainWindow& w_;
};

// What the station timers need of the windows: the busy state that makes a tick wait, the
// redraws, and the run hooks of a resimulation.
class MainWindow::StationRoads : public exchange::StationHooks {
public:
    explicit StationRoads(MainWindow& w) : w_(w) {}
    bool Busy() override {
        const QCursor* cursor = QApplication::overrideCursor();
        return w_.runActive_ || (cursor && cursor->shape() == Qt::WaitCursor);
    }
    void RedrawViews() override { w_.RedrawAllWindows(); }
    void Redraw() override { w_.RedrawWindow(); }
    void LogAirway(Model& model, std::int32_t row, int action) override { w_.hooks_->LogAirway(model, row, action); }
    void EndUndoStep() override { w_.hooks_->EndUndoStep(); }

private:
    MainWindow& w_;
};

MainWindow::MainWindow(ui::UserInterface& ui, QWidget* parent)
    : QMainWindow(parent),
      ui_(ui),
      model_(std::make_unique<Model>()),
      ds_(std::make_unique<display::DisplayState>()) {
    hooks_ = std::make_unique<Hooks>(*this);
    dispatcher_ = std::make_unique<edit::ToolDispatcher>(*model_, *ds_, ui_, *this);
    editTools_ = std::make_unique<edit::EditTools>(*model_, *ds_, ui_, undo_, *this);
    pickTools_ = std::make_unique<edit::PickTools>(*model_, *ds_, ui_, undo_, *this, *this);
    monitor_ = std::make_unique<exchange::StationMonitor>(*model_, ui_.DecimalSeparator());
    monitor_->Beep = [] { QApplication::beep(); };
    ds_->Stations = monitor_.get();
    stationHooks_ = std::make_unique<StationRoads>(*this);
    ds_->StartingUp = true;
    ds_->WindowCurrent = false;

    setObjectName(QStringLiteral("MainForm"));
    setWindowIcon(ProgramIcon());
    setWindowTitle(QStringLiteral("KARVANE"));
    viewRoads_ = std::make_unique<ViewRoads>(*this);
    views_ = std::make_unique<ViewWindowManager>(*this, *model_, *ds_, ui_, *dispatcher_, *viewRoads_);
    runRoads_ = std::make_unique<RunRoads>(*this);
    runWindows_ = std::make_unique<RunWindowSet>(*this, *model_, ui_, *runRoads_);
    qtUi_ = dynamic_cast<QtUserInterface*>(&ui_);
    if (qtUi_) {
        qtUi_->SetProgressSink(runWindows_.get());
        qtUi_->SetParentWidget(this);
    }

    BuildMenus();
    BuildToolBars();
    lists_ = std::make_unique<ListBar>(*this, *model_, *ds_, ui_, *views_, *viewRoads_);
    statusBar()->setObjectName(QStringLiteral("StatusBar"));
    toolLabel_ = new QLabel(this);
    toolLabel_->setObjectName(QStringLiteral("LblTool"));
    toolLabel_->setContentsMargins(6, 0, 6, 0);
    statusBar()->addPermanentWidget(toolLabel_);

    popup_ = new PopupWindow(this);
    fileNote_ = new dialogs::FileNoteWindow(this);
    fileNote_->hide();

    autosave_ = new QTimer(this);
    autosave_->setObjectName(QStringLiteral("Autosave"));
    connect(autosave_, &QTimer::timeout, this, &MainWindow::OnAutosaveTick);
    inputTimer_ = new QTimer(this);
    inputTimer_->setObjectName(QStringLiteral("Timer1"));
    connect(inputTimer_, &QTimer::timeout, this, [this] {
        if (!model_->Stations.InputActive) return;
        exchange::ReadStations(*model_, ui_, *monitor_, *stationHooks_);
        lists_->ShowSimIndicator();
    });
    outputTimer_ = new QTimer(this);
    outputTimer_->setObjectName(QStringLiteral("Timer2"));
    connect(outputTimer_, &QTimer::timeout, this, [this] {
        if (model_->Stations.OutputActive) exchange::WriteResults(*model_, ui_, *stationHooks_);
    });
    powerZoomTimer_ = new QTimer(this);
    connect(powerZoomTimer_, &QTimer::timeout, this, [this] { dispatcher_->PowerZoomTick(); });

    qApp->installEventFilter(this);
    // Most of the screen, centred.
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        resize(area.width() * 9 / 10, area.height() * 9 / 10);
        move(area.center() - QPoint(width() / 2, height() / 2));
    } else {
        resize(1280, 860);
    }
}

MainWindow::~MainWindow() {
    qApp->removeEventFilter(this);
    if (qtUi_) {
        qtUi_->SetProgressSink(nullptr);
        qtUi_->SetParentWidget(nullptr);
    }
}

namespace {

// One step of the start-up list; a failure of a step is passed over and the list goes on.
template <typename Step>
void Passing(Step&& step) {
    try {
        step();
    } catch (...) {}
}

} // namespace

void MainWindow::StartUp(const std::string& commandFile) {
    Model& m = *model_;
    display::DisplayState& ds = *ds_;
    mainLoading_ = true;
    ds.StartingUp = true;

    // Units, the data types and the conversion file.
    Passing([&] {
        SetBuiltInUnits(m.Units);
        files::LoadConversions(m, ui_);
    });
    // The first layer of both lists on.
    Passing([&] {
        if (m.PrimaryLayers.size() > 1) m.PrimaryLayers[1].LayerOn = -1;
        if (m.SecondaryLayers.size() > 1) m.SecondaryLayers[1].LayerOn = -1;
    });
    Passing([&] {
        files::LoadRecentFiles(m, ui_);
        BuildRecentMenu();
    });
    Passing([&] {
        NewViewWindow();
        QCoreApplication::processEvents();
    });
    Passing([&] {
        ds.DecimalSeparator = ui_.DecimalSeparator();
        ReadPrinterWidth();
        m.NetworkSaved = Yes255;
        lists_->FillDataTypeLists();
    });
    Passing([&] { files::LoadBuiltInSettings(m, ui_); });
    Passing([&] { files::LoadFanDatabase(m, ui_); });
    Passing([&] {
        SetNewNetworkLevels(m);
        display::ResetViewOptions(m, ds);
        display::AdoptLoadedLevel(m, ds);
        ds.View.LevelMode = display::lm::Single;
        lists_->FillLevelList();
        lists_->FillViewList();
    });
    Passing([&] {
        m.AirwayCount = 0;
        mainLoading_ = false;
        ds.StartingUp = false;
        QCoreApplication::processEvents();
        display::BuildDisplayList(m, ds);
        views_->SyncCurrent();
        display::FitView(m, ds, ui_);
        RedrawWindow();
    });
    mainLoading_ = false;
    Passing([&] { undo_.Open(ui_); });
    ds.StartingUp = false;
    Passing([&] {
        if (!commandFile.empty()) forms::LoadNamedFile(m, ui_, *this, commandFile);
    });
    Passing([&] { forms::OfferRecovery(m, ui_, *this); });
    ApplySettingsTimers();
    RefreshControls();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // The legend and the editors close first, and any tool in progress stops.
    runWindows_->HideLegends();
    dispatcher_->CancelGesture();
    if (fileNote_->isVisible()) fileNote_->close();
    if (!forms::ConfirmEnd(*model_, ui_, *this)) {
        event->ignore();
        return;
    }
    ending_ = true;
    autosave_->stop();
    views_->StopTimers();
    inputTimer_->stop();
    outputTimer_->stop();
    forms::FinishEnd(*model_, ui_);
    runWindows_->HideProgressWindows();
    event->accept();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    // Nothing is drawn while the main window is minimised; it is drawn again when restored.
    const bool minimised = isMinimized();
    const bool was = ds_->MainMinimised;
    ds_->MainMinimised = minimised;
    if (was && !minimised) RedrawAllWindows();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QMainWindow::eventFilter(watched, event);
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != this || qobject_cast<ViewWindow*>(widget)) return false;
    // The tool bar and the lists pass the keys of the views on to them; text boxes keep theirs.
    if (qobject_cast<QLineEdit*>(widget) ||
        (qobject_cast<QComboBox*>(widget) && static_cast<QComboBox*>(widget)->isEditable()))
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
    const int code = ViewWindow::KeyCode(key->key());
    if (code == 0 || runActive_) return false;
    // Up and Down in an open list move within the list.
    if ((code == edit::key::Up || code == edit::key::Down) && qobject_cast<QComboBox*>(widget)) return false;
    return dispatcher_->OnKeyDown(code);
}

void MainWindow::ShowViewStatus() {
    display::StatusLabels& l = ds_->Labels;
    // A plan view shows its centre beside the coordinates too (a 3D view's rotation sets them),
    // and coordinates where a 3D view showed its angles.
    if (ds_->View.Is3D == 0) {
        if (l.LabelX.starts_with("RotX") && views_->CurrentOpen()) display::ShowCursorCoordinates(*model_, *ds_, 0, 0);
        l.CentreX = files::PlainSingle(ds_->View.CentreX, ds_->DecimalSeparator);
        l.CentreY = files::PlainSingle(ds_->View.CentreY, ds_->DecimalSeparator);
    }
    lists_->ShowLabels();
    UpdateCaption();
}

void MainWindow::UpdateCaption() {
    display::UpdateWindowTitle(*model_, *ds_);
    setWindowTitle(FromMessage(ds_->Labels.Caption));
}

void MainWindow::TitleChanged() { UpdateCaption(); }

bool MainWindow::Trigger(const QString& name) {
    QAction* a = action(name);
    if (!a) a = findChild<QAction*>(name);
    if (!a || !a->isEnabled()) return false;
    a->trigger();
    return true;
}

} // namespace karvane::shell
