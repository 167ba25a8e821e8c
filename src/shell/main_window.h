// The main window (MainForm): the menus, the tool bar with its lists and labels, the work
// area of up to five view windows, and everything the commands of the program need of the
// windows: redraws, window switching, the progress of runs, the file commands' views.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "commands/command_host.h"
#include "contaminant/spread.h"
#include "display/print_network.h"
#include "display/view_state.h"
#include "edit/edit_host.h"
#include "edit/edit_tools.h"
#include "edit/find.h"
#include "edit/pick_tools.h"
#include "edit/tool_dispatch.h"
#include "edit/view_windows.h"
#include "exchange/stations.h"
#include "files/recent_files.h"
#include "files/undo_log.h"
#include "forms/file_commands.h"
#include "forms/spreadsheet_form.h"
#include "model/model.h"
#include "shell/qt_user_interface.h"
#include "shell/view_window.h"
#include "ui/user_interface.h"

class QAction;
class QActionGroup;
class QComboBox;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QScrollBar;
class QTimer;
class QToolBar;

namespace karvane::dialogs {
class AirwayDialogs;
class SimplifyWindow;
class SmokeWindow;
class SmokeLegendWindow;
class SmokeTraceWindow;
class FileNoteWindow;
} // namespace karvane::dialogs

namespace karvane::shell {

class ErrorListWindow;
class PopupWindow;
class RotationButton;
class SimulationWindow;
using dialogs::FileNoteWindow;
using dialogs::SmokeLegendWindow;
using dialogs::SmokeTraceWindow;
using dialogs::SmokeWindow;

class MainWindow : public QMainWindow,
                   public ViewWindowEvents,
                   public edit::ToolHost,
                   public commands::CommandHost,
                   public edit::EditHost,
                   public edit::FinderHost,
                   public ProgressSink {
    Q_OBJECT
public:
    explicit MainWindow(ui::UserInterface& ui, QWidget* parent = nullptr);
    ~MainWindow() override;

    // The start-up list of the main window: units and conversions, recent files, the first
    // view, settings and defaults, the fan database, the level list of a new network, then the
    // network named on the command line and the offer of the autosave copy.
    void StartUp(const std::string& commandFile = {});

    Model& model() { return *model_; }
    display::DisplayState& display() { return *ds_; }
    edit::ToolDispatcher& dispatcher() { return *dispatcher_; }
    const edit::ViewWindowTable& windowTable() const { return windows_; }
    ViewWindow* view(int window) const;
    QMdiArea* workArea() const { return mdi_; }
    bool loading() const { return mainLoading_; }
    // Every command in the menus by its control name (mnuExecute, ...).
    QAction* action(const QString& name) const;
    // The tool bar buttons by command value.
    QAction* toolButton(int value) const;

    // The redraw of the current window, and of every open window in turn.
    void RedrawWindow() override;
    void RedrawAllWindows() override;
    // A new view window (mnuNewWindow); -1 when five are open.
    int NewViewWindow();
    // Makes a window current by the window switching of the views.
    void MakeWindowCurrent(int window) override;
    // The lists and labels of the tool bar, the title, the ticks of the menus, from the model.
    void RefreshControls() override;

    // The commands of the program.
    void Simulate();
    void Troubleshoot(std::int16_t mode) override;
    void ReseedAirflows();

    // ViewWindowEvents
    void ViewMouseDown(int window, int button, int shift, const QPointF& at) override;
    void ViewMouseMove(int window, int buttons, int shift, const QPointF& at, const QPoint& global) override;
    void ViewMouseUp(int window, int button, int shift, const QPointF& at, const QPoint& global) override;
    void ViewWheel(int window, bool positive) override;
    bool ViewKey(int window, int key) override;
    void ViewResized(int window) override;

    // edit::ToolHost
    display::Surface* CurrentSurface() override;
    void Redraw() override { RedrawWindow(); }
    void RedrawAll() override { RedrawAllWindows(); }
    void ShowViewStatus() override;
    void ShowToolState(int value) override;
    void SetViewCursor(const std::string& name) override;
    void StartPowerZoomTimer(int intervalMs) override;
    void StopPowerZoomTimer() override;
    void StopRotationTimer() override;
    void SaveWindowState() override;
    void FocusWindow(int window) override;
    void RunCommand(int value) override;
    void StepLevel(int step) override;
    bool CommandAvailable(int value) const override;
    void CommandUnavailable(int value) override;
    void ToolPress(const edit::ToolEvent& event) override;
    void ToolRelease(const edit::ToolEvent& event) override;
    void ShowPopup(std::int32_t row, float x, float y) override;
    void HidePopup() override;
    bool CoordinateDialogOpen() const override;

    // edit::EditHost (main_construct.cpp)
    std::optional<edit::CoordsResult> ShowCoords(const edit::CoordsRequest& request) override;
    void ShowAirwayEditor(std::int32_t row, int mode) override;
    bool ShowFanDialog(std::int32_t row) override;
    void ShowAirwayInfo(std::int32_t row) override;
    // The airway editor, the information card and the fan dialog (main_airway.cpp).
    dialogs::AirwayDialogs& airwayDialogs();
    void QuickUpdateAllWindows() override;

    // edit::FinderHost: ShowAirway in the current window, redrawn and marked.
    void ShowAirwayRow(std::int32_t row, float fraction) override;

    // commands::CommandHost
    bool ViewWindowOpen() const override;
    void PrepareCurrentView() override;
    void RefreshMenuTicks() override { UpdateMenuTicks(); }
    void RefreshViewList() override { FillViewList(); }
    void AfterLevelChange() override;
    void SettingsChanged() override { ApplySettingsTimers(); }
    void RunToolCommand(int value) override { dispatcher_->RunToolCommand(value); }
    bool OpenForm(const std::string& menuName) override;
    // A main window command by its control name, as its menu entry runs it.
    void RunMenu(const char* name);

    // forms::FileCommandHost
    void BeforeLoad() override;
    void AfterLoad(const files::LoadReport& report) override;
    void AfterMerge() override;
    void AfterNewNetwork() override;
    void BeforeSave() override;
    void AfterSave() override;
    void TitleChanged() override;
    void RecentFilesChanged() override;

    // ProgressSink
    void ProgressOpen() override;
    void ProgressClose() override;
    void ProgressCaption(const std::string& caption) override;
    void ProgressPercent(int percent) override;
    void ProgressAttempt(const std::string& text) override;
    void ProgressError(const std::string& text) override;
    void ProgressBox(const std::string& box, const std::string& text) override;

    // Called at each step of a run's progress bar (tests and the program's own screenshots).
    std::function<void(int)> ProgressObserver;
    // A menu entry or tool button by its name, triggered; false when there is none or it is disabled.
    bool Trigger(const QString& name);

    SimulationWindow* simulationWindow() const { return simForm_; }
    ErrorListWindow* errorWindow() const { return errorForm_; }
    SmokeLegendWindow* smokeLegend() const { return smokeLegend_; }
    SmokeTraceWindow* smokeTrace() const { return smokeTrace_; }
    SmokeWindow* smokeWindow() const { return smokeForm_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Hooks;
    friend class Hooks;

    // Building (main_menus.cpp, main_toolbar.cpp).
    void BuildMenus();
    QAction* AddAction(QMenu* menu, const char* name, const QString& caption, const char* note = nullptr);
    void BuildToolBars();
    void BuildRecentMenu();
    void UpdateWindowMenu();
    void UpdateMenuTicks();
    void FillDataTypeLists();
    void ShowDataType();
    void FillLevelList();
    void ShowLevel();
    void FillViewList();
    void ShowSimIndicator();
    void UpdateCaption();

    // The tool bar's lists.
    void OnDataGroupChosen(int index);
    void OnDataValueChosen(int index);
    void OnDataTypeMenu(int dataType);
    void OnLevelChosen(int index);
    void OnLevelScrolled(int value);
    void OnViewChosen(int index);

    // View windows (main_views.cpp).
    void SyncArea(int window);
    // quick: the lines and annotation drawn over the standing picture, without clearing it.
    void DrawWindowInPlace(int window, bool quick = false);
    void OnSubWindowActivated(QMdiSubWindow* sub);
    bool CloseViewWindowRequested(int window);
    void TileWindows(int how);
    void ToggleFreeze();
    void ShowWindow(int window);
    void OnRotationPress(int button, QPointF at);
    void OnRotationMove(QPointF at);
    void OnRotationRelease(int button, QPointF at);
    void OnRotationTick();
    int ViewWindowAt(const QPoint& global) const;

    // Commands (main_commands.cpp).
    void AfterRun();
    // The current window's display list and projection after the rows changed.
    void RebuildCurrentView();
    void ShowErrorList();
    void GotoAirway(std::int32_t airwayNo);
    // The attribute choice and the list finders (main_find.cpp).
    void ShowAttribDialog();
    void ShowNameList(bool nodes);
    void SetRunActive(bool active);
    void SmokeSimulation();
    void SourcingSimulation();
    void CloseSmokeWindows();
    void ChooseLevelsMultiple();
    void ChooseLevelsRange();
    void ShowLayersDialog();
    void ShowViewerDialog();
    void ShowFileNote();
    void SaveNamedView();
    void DeleteNamedView();
    void OnAutosaveTick();
    void ApplySettingsTimers();
    void ReadPrinterWidth();
    void OpenHelp();
    void ShowAbout();
    void OpenWebPage();
    void ClearNetworkInLastWindow();
    void SaveScreenBitmap();
    void ExportCommand(int kind);
    void ImportCommand(bool dxf);
    void ShowSimplify();
    // Run > Study... (main_study.cpp): a study file run in a window of its own.
    void ShowStudy();
    void ActivateStations(bool input, bool on);
    void ShowStationDialog(bool input);
    // Printing (main_print.cpp): the print dialog, Tool 22, Print Setup, and one print of the
    // current window on a printer (the PDF output asks for its file).
    void PrintCommand();
    void PrintScreenCommand();
    void PrintSetup();
    bool PrintCurrentWindow(const std::string& printerName, int paperId, int orientation);
    // The editors of the Tools menu (main_editors.cpp): fans, levels, options.
    void ShowFanData();
    void ShowLevelList();
    void ShowSpreadSheet();
    void ShowOptions();

    ui::UserInterface& ui_;
    QtUserInterface* qtUi_ = nullptr;
    std::unique_ptr<Model> model_;
    std::unique_ptr<display::DisplayState> ds_;
    edit::ViewWindowTable windows_;
    std::unique_ptr<edit::ToolDispatcher> dispatcher_;
    std::unique_ptr<contaminant::SpreadHooks> hooks_;
    bool mainLoading_ = true;
    bool runActive_ = false;
    bool listsLoading_ = false;
    bool confirmations_ = false;
    bool ending_ = false;
    QTimer* resizeTimer_ = nullptr;
    QString lastBitmapName_;
    bool fileNotePlaced_ = false;
    QLabel* toolLabel_ = nullptr;

    QMdiArea* mdi_ = nullptr;
    std::array<QPointer<ViewWindow>, edit::MaxViewWindows> views_{};
    std::array<QPointer<QMdiSubWindow>, edit::MaxViewWindows> subs_{};
    int pressWindow_ = -1;
    int pendingCurrent_ = -1; // the window to become current once a closed one has gone

    std::map<QString, QAction*> actions_;
    std::map<int, QAction*> toolButtons_;
    QActionGroup* toolGroup_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    QToolBar* listBar_ = nullptr;
    std::array<QAction*, RecentFileCount + 1> recent_{};
    std::array<QAction*, edit::MaxViewWindows> windowEntries_{};
    std::map<int, QAction*> dataTypeEntries_;
    std::array<QAction*, 4> levelModes_{};

    QComboBox* cmbDataType_ = nullptr;
    QComboBox* cmbDataVal_ = nullptr;
    QLabel* lblUnit_ = nullptr;
    QComboBox* cmbRL_ = nullptr;
    QScrollBar* vsbRL_ = nullptr;
    QComboBox* cmbView_ = nullptr;
    QLabel* lblX_ = nullptr;
    QLabel* lblY_ = nullptr;
    QLabel* lblRL_ = nullptr;
    QLabel* lblCentreX_ = nullptr;
    QLabel* lblCentreY_ = nullptr;
    QLabel* lblSim_ = nullptr;
    RotationButton* rotation_ = nullptr;

    QTimer* autosave_ = nullptr;
    QTimer* rotateTimer_ = nullptr;
    QTimer* powerZoomTimer_ = nullptr;
    files::AutosaveTicker autosaveTicks_;
    QPointF rotationAt_;
    bool rotationTicking_ = false;

    SimulationWindow* simForm_ = nullptr;
    ErrorListWindow* errorForm_ = nullptr;
    PopupWindow* popup_ = nullptr;
    SmokeWindow* smokeForm_ = nullptr;
    SmokeLegendWindow* smokeLegend_ = nullptr;
    SmokeTraceWindow* smokeTrace_ = nullptr;
    FileNoteWindow* fileNote_ = nullptr;
    dialogs::SimplifyWindow* simplify_ = nullptr;
    // The undo log: the rows every change touches, for the undo of a later version.
    files::UndoLog undo_;
    // The construction tools of the view windows, over the undo log.
    std::unique_ptr<edit::EditTools> editTools_;
    // Delete, select, attribute and layer paste, follow: the tools that act on picks and fences.
    std::unique_ptr<edit::PickTools> pickTools_;
    std::array<QAction*, edit::FinderEntries> finderEntries_{};
    dialogs::AirwayDialogs* airwayDialogs_ = nullptr;
    // The real-time stations: the labels at their airways, and the input and output timers.
    class StationRoads;
    std::unique_ptr<exchange::StationMonitor> monitor_;
    std::unique_ptr<exchange::StationHooks> stationHooks_;
    QTimer* inputTimer_ = nullptr;
    QTimer* outputTimer_ = nullptr;

    // What the last print dialog chose, for Tool 22's prints; the last PDF file written.
    display::PrintSettings printSettings_;
    QString lastPdfName_;

    // The spreadsheet's column widths, kept between openings.
    std::unique_ptr<forms::SheetWidths> sheetWidths_;
    // The data types shown before a contaminant result took over the lists.
    int rememberedDataType_ = 0;
};

} // namespace karvane::shell
