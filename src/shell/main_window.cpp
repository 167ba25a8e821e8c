// The main window: its construction, the start-up list, the orderly end, the status it shows
// and the progress windows of the runs.
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
        if (display::DataGroupOf(w_.ds_->View.DataType) != 5 || w_.ds_->View.DataType < 55)
            w_.rememberedDataType_ = w_.ds_->View.DataType;
    }
    void ShowContaminantDataTypes() override {
        display::ChooseDataType(*w_.model_, *w_.ds_, 55);
        w_.ShowDataType();
    }
    void RestoreDataTypes() override {
        if (w_.rememberedDataType_ != 0) display::ChooseDataType(*w_.model_, *w_.ds_, w_.rememberedDataType_);
        w_.ShowDataType();
    }
    void CloseSmokeWindow() override {
        if (w_.smokeForm_) w_.smokeForm_->hide();
    }
    void ShowLegend() override {
        if (w_.smokeTrace_) w_.smokeTrace_->hide();
        dialogs::PlaceAtBottomRight(w_.smokeLegend_, &w_);
        w_.smokeLegend_->show();
        w_.smokeLegend_->raise();
    }
    void LegendChanged() override {
        w_.smokeLegend_->ShowLegend(w_.model_->Smoke.ContaminantThreshold, w_.model_->Smoke.SpreadMax);
    }
    void CloseLegend() override {
        if (w_.smokeLegend_) w_.smokeLegend_->hide();
    }

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
    qtUi_ = dynamic_cast<QtUserInterface*>(&ui_);
    if (qtUi_) {
        qtUi_->SetProgressSink(this);
        qtUi_->SetParentWidget(this);
    }
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
    mdi_ = new QMdiArea(this);
    mdi_->setObjectName(QStringLiteral("WorkArea"));
    mdi_->setBackground(QColor(96, 104, 116));
    setCentralWidget(mdi_);
    connect(mdi_, &QMdiArea::subWindowActivated, this, &MainWindow::OnSubWindowActivated);

    BuildMenus();
    BuildToolBars();
    statusBar()->setObjectName(QStringLiteral("StatusBar"));
    toolLabel_ = new QLabel(this);
    toolLabel_->setObjectName(QStringLiteral("LblTool"));
    toolLabel_->setContentsMargins(6, 0, 6, 0);
    statusBar()->addPermanentWidget(toolLabel_);

    simForm_ = new SimulationWindow(this);
    simForm_->OnCancel = [this] {
        // The run sees the request at its next test; the views come back at once.
        model_->StopFlag = 255;
        RedrawWindow();
    };
    errorForm_ = new ErrorListWindow(this);
    errorForm_->OnGoto = [this](std::int32_t n) { GotoAirway(n); };
    errorForm_->OnCancel = [this] {
        model_->StopFlag = 255;
        simForm_->hide();
        RedrawWindow();
    };
    popup_ = new PopupWindow(this);
    smokeForm_ = new dialogs::SmokeWindow(this);
    smokeLegend_ = new dialogs::SmokeLegendWindow(ui_.DecimalSeparator(), this);
    smokeTrace_ = new dialogs::SmokeTraceWindow(this);
    fileNote_ = new dialogs::FileNoteWindow(this);
    fileNote_->hide();

    autosave_ = new QTimer(this);
    autosave_->setObjectName(QStringLiteral("Autosave"));
    connect(autosave_, &QTimer::timeout, this, &MainWindow::OnAutosaveTick);
    rotateTimer_ = new QTimer(this);
    rotateTimer_->setObjectName(QStringLiteral("TimerRotate"));
    rotateTimer_->setInterval(40);
    connect(rotateTimer_, &QTimer::timeout, this, &MainWindow::OnRotationTick);
    inputTimer_ = new QTimer(this);
    inputTimer_->setObjectName(QStringLiteral("Timer1"));
    connect(inputTimer_, &QTimer::timeout, this, [this] {
        if (!model_->Stations.InputActive) return;
        exchange::ReadStations(*model_, ui_, *monitor_, *stationHooks_);
        ShowSimIndicator();
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
    // The work area activates other windows as its windows go; this window is past hearing it.
    if (mdi_) disconnect(mdi_, nullptr, this, nullptr);
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
        FillDataTypeLists();
    });
    Passing([&] { files::LoadBuiltInSettings(m, ui_); });
    Passing([&] { files::LoadFanDatabase(m, ui_); });
    Passing([&] {
        SetNewNetworkLevels(m);
        display::ResetViewOptions(m, ds);
        display::AdoptLoadedLevel(m, ds);
        ds.View.LevelMode = display::lm::Single;
        FillLevelList();
        FillViewList();
    });
    Passing([&] {
        m.AirwayCount = 0;
        mainLoading_ = false;
        ds.StartingUp = false;
        QCoreApplication::processEvents();
        display::BuildDisplayList(m, ds);
        SyncArea(windows_.CurWin);
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
    smokeLegend_->hide();
    smokeTrace_->hide();
    dispatcher_->CancelGesture();
    if (fileNote_->isVisible()) fileNote_->close();
    if (!forms::ConfirmEnd(*model_, ui_, *this)) {
        event->ignore();
        return;
    }
    ending_ = true;
    autosave_->stop();
    rotateTimer_->stop();
    inputTimer_->stop();
    outputTimer_->stop();
    forms::FinishEnd(*model_, ui_);
    simForm_->hide();
    errorForm_->hide();
    smokeForm_->hide();
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
        if (l.LabelX.starts_with("RotX") && windows_.IsOpen(windows_.CurWin))
            display::ShowCursorCoordinates(*model_, *ds_, 0, 0);
        l.CentreX = files::PlainSingle(ds_->View.CentreX, ds_->DecimalSeparator);
        l.CentreY = files::PlainSingle(ds_->View.CentreY, ds_->DecimalSeparator);
    }
    lblX_->setText(FromMessage(l.LabelX));
    lblY_->setText(FromMessage(l.LabelY));
    lblRL_->setText(FromMessage(l.LabelRL));
    lblCentreX_->setText(FromMessage(l.CentreX));
    lblCentreY_->setText(FromMessage(l.CentreY));
    UpdateCaption();
}

void MainWindow::UpdateCaption() {
    display::UpdateWindowTitle(*model_, *ds_);
    setWindowTitle(FromMessage(ds_->Labels.Caption));
}

void MainWindow::TitleChanged() { UpdateCaption(); }

void MainWindow::ProgressOpen() { simForm_->Open(); }
void MainWindow::ProgressClose() { simForm_->hide(); }
void MainWindow::ProgressCaption(const std::string& caption) { simForm_->SetCaption(caption); }
void MainWindow::ProgressPercent(int percent) {
    simForm_->SetPercent(percent);
    if (ProgressObserver) ProgressObserver(percent);
}

bool MainWindow::Trigger(const QString& name) {
    QAction* a = action(name);
    if (!a && name.startsWith(QStringLiteral("Tool"))) a = toolButton(name.mid(4).toInt());
    if (!a || !a->isEnabled()) return false;
    a->trigger();
    return true;
}
void MainWindow::ProgressAttempt(const std::string& text) { simForm_->SetAttempt(text); }
void MainWindow::ProgressError(const std::string& text) { simForm_->SetError(text); }
void MainWindow::ProgressBox(const std::string& box, const std::string& text) { smokeForm_->SetBox(box, text); }

} // namespace karvane::shell
