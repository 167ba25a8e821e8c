// The main window (MainForm): the menus, the tool bar with its lists and labels, the work
// area of up to five view windows (ViewWindowManager) and the windows of the runs
// (RunWindowSet), bound to the commands, the tools and the forms of the program.
#pragma once

#include <QMainWindow>
#include <array>
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
#include "shell/list_bar.h"
#include "shell/qt_user_interface.h"
#include "shell/run_window_set.h"
#include "shell/view_window.h"
#include "shell/view_window_manager.h"
#include "ui/user_interface.h"

class QAction;
class QActionGroup;
class QLabel;
class QMdiArea;
class QMenu;
class QTimer;
class QToolBar;

namespace karvane::dialogs {
class AirwayDialogs;
class SimplifyWindow;
class FileNoteWindow;
} // namespace karvane::dialogs

namespace karvane::shell {

class PopupWindow;
class RotationButton;
using dialogs::FileNoteWindow;

class MainWindow : public QMainWindow,
                   public edit::ToolHost,
                   public commands::CommandHost,
                   public edit::EditHost,
                   public edit::FinderHost {
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
    ViewWindowManager& views() { return *views_; }
    RunWindowSet& runWindows() { return *runWindows_; }
    const edit::ViewWindowTable& windowTable() const { return views_->Table(); }
    ViewWindow* view(int window) const { return views_->View(window); }
    QMdiArea* workArea() const { return views_->WorkArea(); }
    // Every command in the menus by its control name (mnuExecute, ...).
    QAction* action(const QString& name) const;
    // The tool bar buttons by command value.
    QAction* toolButton(int value) const;

    // The redraw of the current window, and of every open window in turn.
    void RedrawWindow() override { views_->RedrawCurrent(); }
    void RedrawAllWindows() override { views_->RedrawAll(); }
    // A new view window (mnuNewWindow); -1 when five are open.
    int NewViewWindow() { return views_->NewWindow(); }
    // Makes a window current by the window switching of the views.
    void MakeWindowCurrent(int window) override { views_->MakeCurrent(window); }
    // The lists and labels of the tool bar, the title, the ticks of the menus, from the model.
    void RefreshControls() override;

    // The commands of the program.
    void Simulate();
    void Troubleshoot(RunMode mode) override;

    // edit::ToolHost
    display::Surface* CurrentSurface() override { return views_->CurrentSurface(); }
    void Redraw() override { RedrawWindow(); }
    void RedrawAll() override { RedrawAllWindows(); }
    void ShowViewStatus() override;
    void ShowToolState(int value) override;
    void SetViewCursor(const std::string& name) override;
    void StartPowerZoomTimer(int intervalMs) override;
    void StopPowerZoomTimer() override;
    void StopRotationTimer() override { views_->StopRotation(); }
    void SaveWindowState() override { views_->SaveCurrentState(); }
    void FocusWindow(int window) override { views_->Focus(window); }
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
    void QuickUpdateAllWindows() override { views_->QuickUpdateAll(); }

    // edit::FinderHost: ShowAirway in the current window, redrawn and marked.
    void ShowAirwayRow(std::int32_t row, float fraction) override;

    // commands::CommandHost
    bool ViewWindowOpen() const override { return views_->CurrentLive(); }
    void PrepareCurrentView() override { views_->SyncCurrent(); }
    void RefreshMenuTicks() override { UpdateMenuTicks(); }
    void RefreshViewList() override { lists_->FillViewList(); }
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
    // A menu entry or tool button by its name, triggered; false when there is none or it is disabled.
    bool Trigger(const QString& name);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // What the runs, the view windows and the run windows ask of the main window.
    class Hooks;
    class ViewRoads;
    class RunRoads;

    // Building (main_menus.cpp, main_toolbar.cpp).
    void BuildMenus();
    QAction* AddAction(QMenu* menu, const char* name, const QString& caption, const char* note = nullptr);
    void BuildToolBars();
    void BuildRecentMenu();
    void UpdateMenuTicks();
    void UpdateCaption();

    // Commands (main_commands.cpp).
    void AfterRun();
    // The current window's display list and projection after the rows changed.
    void RebuildCurrentView();
    void GotoAirway(std::int32_t airwayNo);
    // The attribute choice and the list finders (main_find.cpp).
    void ShowAttribDialog();
    void ShowNameList(bool nodes);
    void SetRunActive(bool active);
    void SourcingSimulation();
    // The contaminant display ends and its windows close.
    void EndContaminantDisplay();
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
    std::unique_ptr<edit::ToolDispatcher> dispatcher_;
    std::unique_ptr<contaminant::SpreadHooks> hooks_;
    std::unique_ptr<ViewRoads> viewRoads_;
    std::unique_ptr<ViewWindowManager> views_;
    std::unique_ptr<RunRoads> runRoads_;
    std::unique_ptr<RunWindowSet> runWindows_;
    bool mainLoading_ = true;
    bool runActive_ = false;
    bool ending_ = false;
    QString lastBitmapName_;
    bool fileNotePlaced_ = false;
    QLabel* toolLabel_ = nullptr;

    std::map<QString, QAction*> actions_;
    std::map<int, QAction*> toolButtons_;
    QActionGroup* toolGroup_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    std::unique_ptr<ListBar> lists_;
    std::array<QAction*, RecentFileCount + 1> recent_{};
    std::map<int, QAction*> dataTypeEntries_;
    std::array<QAction*, 4> levelModes_{};
    RotationButton* rotation_ = nullptr;

    QTimer* autosave_ = nullptr;
    QTimer* powerZoomTimer_ = nullptr;
    files::AutosaveTicker autosaveTicks_;

    PopupWindow* popup_ = nullptr;
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
