// The commands of the main window that are not view gestures: the runs and their windows, the
// contaminant windows, the level, layer and view option dialogs, the named views, the note,
// the autosave timer, help, and the commands over all airways; and what the file commands
// need of the windows.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QMenuBar>
#include <QPrinter>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <functional>

#include "commands/menu_commands.h"
#include "contaminant/colours.h"
#include "contaminant/sourcing.h"
#include "contaminant/spread.h"
#include "dialogs/exchange_dialogs.h"
#include "dialogs/file_note_window.h"
#include "dialogs/level_dialogs.h"
#include "dialogs/smoke_windows.h"
#include "dialogs/station_dialogs.h"
#include "dialogs/summary_dialog.h"
#include "dialogs/view_dialogs.h"
#include "display/data_types.h"
#include "display/display_list.h"
#include "display/level_selector.h"
#include "display/saved_views.h"
#include "display/startup_view.h"
#include "display/view_transform.h"
#include "edit/show_airway.h"
#include "edit/tool_table.h"
#include "edit/view_gestures.h"
#include "engineering/resistance.h"
#include "exchange/dxf_export.h"
#include "exchange/import.h"
#include "exchange/simplify.h"
#include "files/defaults_file.h"
#include "files/network_file.h"
#include "files/recent_files.h"
#include "forms/network_commands.h"
#include "forms/summary_form.h"
#include "forms/view_names.h"
#include "forms/view_options.h"
#include "model/network_rows.h"
#include "model/node_keys.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"
#include "shell/run_windows.h"
#include "simulate/run.h"
#include "simulate/troubleshoot.h"

namespace karvane::shell {

namespace {

// The product's web address.
constexpr const char* kWebPage = "https://karvane.example/";

} // namespace

void MainWindow::RunCommand(int value) {
    if (runActive_) return;
    switch (value) {
    case edit::cmd::Simulate: Simulate(); break;
    case edit::cmd::Open: forms::OpenCommand(*model_, ui_, *this); break;
    case edit::cmd::Save: forms::SaveCommand(*model_, ui_, *this); break;
    case edit::cmd::DisplayOptions: ShowViewerDialog(); break;
    case edit::cmd::SingleMulti:
        display::SwapSingleMulti(*model_, *ds_);
        AfterLevelChange();
        break;
    case edit::cmd::Smoke: runWindows_->OpenSmoke(); break;
    case edit::cmd::Undo:
    case edit::cmd::Redo: {
        dispatcher_->CancelGesture();
        commands::CommandContext context{*model_, *ds_, ui_, undo_, *this, hooks_.get()};
        if (value == edit::cmd::Undo) {
            commands::UndoCommand(context);
        } else {
            commands::RedoCommand(context);
        }
        break;
    }
    case edit::cmd::Sourcing: SourcingSimulation(); break;
    case edit::cmd::PrintScreen: PrintScreenCommand(); break;
    case edit::cmd::FindNext: edit::FindNext(*model_, *ds_, ui_, *this); break;
    default: CommandUnavailable(value); break;
    }
}

void MainWindow::SetRunActive(bool active) {
    // While a run goes on the windows stay alive through the event loop, but no other command
    // can change the network under it; its own windows stay usable.
    runActive_ = active;
    menuBar()->setEnabled(!active);
    toolBar_->setEnabled(!active);
    lists_->Bar()->setEnabled(!active);
    views_->WorkArea()->setEnabled(!active);
}

void MainWindow::Simulate() {
    if (runActive_) return;
    // The air simulation ends a contaminant display.
    if (model_->GasActive != GasDisplay::None) EndContaminantDisplay();
    model_->SimMode = RunMode::Normal;
    model_->ShowProgress = 1;
    SetRunActive(true);
    simulate::RunAirflow(*model_, ui_, hooks_.get());
    SetRunActive(false);
    AfterRun();
}

void MainWindow::Troubleshoot(RunMode mode) {
    if (runActive_) return;
    SetRunActive(true);
    simulate::RunTroubleshoot(*model_, ui_, mode, hooks_.get());
    SetRunActive(false);
    AfterRun();
}

void MainWindow::RebuildCurrentView() {
    if (!views_->CurrentOpen()) return;
    views_->SyncCurrent();
    display::BuildDisplayList(*model_, *ds_);
    display::ApplyRotation(*model_, *ds_);
}

void MainWindow::AfterRun() {
    // A run leaves the rows in a new order: the lists of the views are built again.
    RebuildCurrentView();
    RedrawAllWindows();
    runWindows_->ShowErrorList();
    lists_->ShowSimIndicator();
}

void MainWindow::GotoAirway(std::int32_t airwayNo) {
    const std::int32_t row = edit::RowOfAirwayNo(*model_, airwayNo);
    if (row == 0) {
        statusBar()->showMessage(QStringLiteral("No airway has the number %1").arg(airwayNo), 5000);
        return;
    }
    ShowAirwayRow(row, 0);
}

void MainWindow::ShowAirwayRow(std::int32_t row, float fraction) {
    if (!views_->CurrentLive()) return;
    views_->SyncCurrent();
    const edit::ShownAirway shown = edit::ShowAirway(*model_, *ds_, ui_, row, fraction);
    if (!shown.Shown) return;
    if (shown.LevelAdded) lists_->FillLevelList();
    lists_->ShowLevel();
    RedrawWindow();
    if (display::Surface* s = CurrentSurface()) edit::MarkShownAirway(*ds_, *s);
    SaveWindowState();
    AfterLevelChange();
    if (display::Surface* s = CurrentSurface()) edit::MarkShownAirway(*ds_, *s);
}

void MainWindow::SourcingSimulation() {
    if (runActive_) return;
    SetRunActive(true);
    contaminant::RunSourcing(*model_, ui_, hooks_.get());
    SetRunActive(false);
    AfterRun();
    if (model_->GasActive == GasDisplay::Sourcing) runWindows_->ShowTrace();
}

void MainWindow::EndContaminantDisplay() {
    model_->GasActive = GasDisplay::None;
    runWindows_->CloseSmokeWindows();
}

void MainWindow::ChooseLevelsMultiple() {
    std::vector<int> rows;
    for (std::int16_t row : ds_->View.SelectedLevels)
        if (row != 0) rows.push_back(row);
    dialogs::SelectLevelsDialog dialog(*model_, rows, ui_, this);
    if (dialog.exec() == QDialog::Accepted && !dialog.Selected().empty()) {
        display::SelectMultipleLevels(*model_, *ds_, dialog.Selected());
        AfterLevelChange();
        return;
    }
    UpdateMenuTicks();
}

void MainWindow::ChooseLevelsRange() {
    dialogs::RangeDialog dialog(*model_, ds_->View.CurrentLevel, this);
    if (dialog.exec() == QDialog::Accepted) {
        display::SelectLevelRange(*model_, *ds_, dialog.FirstRow(), dialog.SecondRow());
        AfterLevelChange();
        return;
    }
    UpdateMenuTicks();
}

void MainWindow::ShowLayersDialog() {
    dialogs::LayersDialog dialog(forms::FillLayers(*model_, *ds_), this);
    dialog.exec();
    // Closing the dialog, however it closes, keeps what it shows.
    forms::ApplyLayers(*model_, *ds_, dialog.Fields());
    display::ApplyRotation(*model_, *ds_);
    RedrawWindow();
    SaveWindowState();
}

void MainWindow::ShowViewerDialog() {
    dialogs::ViewerDialog dialog(forms::FillViewer(*model_, *ds_, ui_.DecimalSeparator()), ui_.DecimalSeparator(),
                                 this);
    dialog.OnApply = [this](const forms::ViewerFields& f) { return forms::ApplyViewer(*model_, *ds_, f, ui_); };
    if (dialog.exec() != QDialog::Accepted) return;
    display::ApplyRotation(*model_, *ds_);
    RedrawWindow();
    SaveWindowState();
}

void MainWindow::ShowFileNote() {
    if (!fileNotePlaced_) {
        // The first opening stands at the right of the main window; later ones where it was left.
        const QRect frame = geometry();
        fileNote_->resize(333, 333);
        fileNote_->move(frame.right() - fileNote_->width() - 20, frame.top() + 140);
        fileNotePlaced_ = true;
    }
    fileNote_->SetNote(FromCp1252(model_->FileNote));
    fileNote_->OnClosed = [this](const QString& note) {
        // A note does not count as a change of the network.
        model_->FileNote = ToCp1252(note);
        if (!model_->Set.ScreenBuffer) RedrawAllWindows();
    };
    fileNote_->show();
    fileNote_->raise();
    fileNote_->activateWindow();
}

void MainWindow::SaveNamedView() {
    if (!views_->CurrentOpen()) return;
    const std::string name = forms::SaveNamedView(*model_, *ds_, ui_);
    if (name.empty()) return;
    lists_->FillViewList();
    lists_->ShowNamedView(name);
}

void MainWindow::DeleteNamedView() {
    const int position = lists_->NamedViewPosition();
    if (position < 0) return;
    if (forms::DeleteNamedView(*model_, ui_, position, lists_->NamedViewAt(position))) lists_->FillViewList();
}

void MainWindow::ApplySettingsTimers() {
    const std::int32_t interval = files::AutosaveIntervalMs(model_->Set);
    if (interval > 0) {
        autosave_->start(interval);
    } else {
        autosave_->stop();
    }
    UpdateMenuTicks();
}

void MainWindow::OnAutosaveTick() {
    if (!autosaveTicks_.Tick() || runActive_) return;
    if (views_->CurrentOpen()) display::SaveViewToSlot(*model_, *ds_, display::StartupViewSlot);
    if (fileNote_->isVisible()) model_->FileNote = ToCp1252(fileNote_->Note());
    files::SaveNetwork(*model_, ui_, files::AutosaveMode);
    if (fileNote_->isVisible()) fileNote_->SetNote(FromCp1252(model_->FileNote));
}

void MainWindow::OpenHelp() {
    const QStringList places{QCoreApplication::applicationDirPath() + QStringLiteral("/help/index.html"),
                             FromPath(ui_.AppPath()) + QStringLiteral("/help/index.html")};
    for (const QString& page : places) {
        if (!QFileInfo::exists(page)) continue;
        if (QDesktopServices::openUrl(QUrl::fromLocalFile(page))) return;
    }
    ui_.Message("The help pages could not be opened. They are in the folder \"help\" beside the program.", ProgramName,
                ui::Icon::Exclamation);
}

void MainWindow::ShowAbout() {
    dialogs::ShowAboutDialog(this, ui_);
    RedrawWindow();
}

void MainWindow::OpenWebPage() {
    if (!QDesktopServices::openUrl(QUrl(QString::fromLatin1(kWebPage))))
        ui_.Message(std::string("The web page could not be opened: ") + kWebPage, ProgramName, ui::Icon::Exclamation);
}

void MainWindow::ClearNetworkInLastWindow() {
    if (model_->NetworkSaved == No0 && model_->AirwayCount > 1) {
        const ui::Answer answer =
            ui_.Ask("Network Data is not saved - Save it?", ProgramName, ui::Buttons::YesNoCancel, ui::Icon::Question);
        if (answer == ui::Answer::Cancel) return;
        if (answer == ui::Answer::Yes && !forms::SaveCommand(*model_, ui_, *this)) return;
    }
    model_->FileName.clear();
    model_->MasterFile = false;
    ClearNetwork(*model_);
    SetNewNetworkLevels(*model_);
    model_->FileNote.clear();
    model_->AirwayCount = 0;
    model_->NetworkSaved = Yes255;
    simulate::InvalidateSimulation(*model_);
    AfterNewNetwork();
    TitleChanged();
}

void MainWindow::RunMenu(const char* name) {
    if (runActive_) return;
    commands::CommandContext context{*model_, *ds_, ui_, undo_, *this, hooks_.get()};
    context.Finder = this;
    if (commands::RunMenuCommand(context, name) == commands::CommandResult::Unavailable)
        statusBar()->showMessage(QStringLiteral("This window is not yet available in this version of Karvane"), 5000);
}

bool MainWindow::OpenForm(const std::string& menuName) {
    const std::map<std::string, std::function<void()>> forms{
        {"mnuMessage", [this] { ShowFileNote(); }},
        {"mnuLevels1", [this] { ChooseLevelsMultiple(); }},
        {"mnuLevels2", [this] { ChooseLevelsRange(); }},
        {"mnuShowLayers", [this] { ShowLayersDialog(); }},
        {"mnuViewData", [this] { ShowViewerDialog(); }},
        {"mnuSaveView", [this] { SaveNamedView(); }},
        {"mnuDelView", [this] { DeleteNamedView(); }},
        {"mnuSummary",
         [this] {
             dialogs::SummaryDialog dialog(forms::FillSummary(*model_, ui_.DecimalSeparator()), this);
             dialog.exec();
             RedrawAllWindows();
         }},
        {"mnuFanData", [this] { ShowFanData(); }},
        {"mnuRLBase", [this] { ShowLevelList(); }},
        {"mnuPower", [this] { ShowSpreadSheet(); }},
        {"mnuSimp", [this] { ShowSimplify(); }},
        {"mnuRemoteStation", [this] { ShowStationDialog(true); }},
        {"mnuRealOut", [this] { ShowStationDialog(false); }},
        {"mnuOptionShow", [this] { ShowOptions(); }},
        {"mnuAbout", [this] { ShowAbout(); }},
        {"mnucpAttrib", [this] { ShowAttribDialog(); }},
        {"mnuFBName", [this] { ShowNameList(false); }},
        {"mnuFNName", [this] { ShowNameList(true); }},
    };
    const auto found = forms.find(menuName);
    if (found == forms.end()) return false;
    found->second();
    return true;
}

void MainWindow::ExportCommand(int kind) {
    if (!views_->CurrentOpen()) return;
    dispatcher_->CancelGesture();
    const char sep = ui_.DecimalSeparator();
    const bool written = exchange::ExportFile(*model_, *ds_, ui_, kind, [this, sep](exchange::ExportFields& fields) {
        dialogs::ExportOptionsDialog dialog(fields, sep, this);
        if (dialog.exec() != QDialog::Accepted) return false;
        fields = dialog.Fields();
        return true;
    });
    // The sizes asked for are settings.
    if (written && kind != exchange::exportkind::Text) model_->DefaultsSaved = No0;
    if (kind == exchange::exportkind::DxfScreen) RedrawWindow();
}

void MainWindow::ImportCommand(bool dxf) {
    if (runActive_) return;
    dispatcher_->CancelGesture();
    RedrawWindow();
    const std::optional<std::string> path = exchange::ChooseImportFile(ui_, dxf);
    if (!path) return;
    dialogs::ImportOptionsDialog dialog(exchange::ImportFields{}, ui_.DecimalSeparator(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    const exchange::ImportFields fields = dialog.Fields();
    if (!fields.ChkMerge) {
        EndContaminantDisplay();
        runWindows_->HideErrorList();
    }
    exchange::ImportReport report;
    exchange::ImportFile(*model_, ui_, *path, fields, &report);
    if (!report.NetworkChanged) return;
    if (!fields.ChkMerge) undo_.ResetUndo();
    if (!views_->CurrentOpen()) return;
    views_->SyncCurrent();
    display::ChooseLevelRow(*model_, *ds_, report.CurrentLevel);
    display::FitView(*model_, *ds_, ui_);
    display::ApplyRotation(*model_, *ds_);
    lists_->FillLevelList();
    RefreshControls();
    RedrawAllWindows();
}

void MainWindow::ShowSimplify() {
    if (!simplify_) {
        simplify_ = new dialogs::SimplifyWindow(this);
        simplify_->OnSimplify = [this](const exchange::SimplifyFields& fields) {
            if (runActive_) return;
            ui_.SetBusy(true);
            exchange::CmdSimp(*model_, ui_, undo_, fields);
            ui_.SetBusy(false);
            AfterRun();
        };
    }
    simplify_->show();
    simplify_->raise();
    simplify_->activateWindow();
}

void MainWindow::ActivateStations(bool input, bool on) {
    QTimer* timer = input ? inputTimer_ : outputTimer_;
    const std::int32_t interval = input ? exchange::ActivateInput(*model_, ui_, *monitor_, *stationHooks_, on)
                                        : exchange::ActivateOutput(*model_, ui_, *stationHooks_, on);
    if (interval > 0) {
        timer->start(interval);
    } else {
        timer->stop();
    }
    lists_->ShowSimIndicator();
}

void MainWindow::ShowStationDialog(bool input) {
    std::int32_t interval = 0;
    bool accepted = false;
    if (input) {
        dialogs::RemoteDialog dialog(*model_, ui_, this);
        accepted = dialog.exec() == QDialog::Accepted;
        interval = dialog.InputInterval();
    } else {
        dialogs::RealOutDialog dialog(*model_, ui_, this);
        accepted = dialog.exec() == QDialog::Accepted;
        interval = dialog.OutputInterval();
    }
    if (accepted) {
        // A running timer takes its new period at once.
        QTimer* timer = input ? inputTimer_ : outputTimer_;
        if (timer->isActive() && interval > 0) timer->start(interval);
    }
    RedrawAllWindows();
}

void MainWindow::BeforeLoad() {
    dispatcher_->CancelGesture();
    if (!views_->CurrentOpen() && views_->Table().OpenCount() == 0) NewViewWindow();
    if (model_->GasActive != GasDisplay::None || runWindows_->LegendOrTraceShown()) EndContaminantDisplay();
    runWindows_->HideErrorList();
}

void MainWindow::AfterLoad(const files::LoadReport& report) {
    undo_.ResetUndo();
    if (!views_->CurrentOpen()) return;
    views_->SyncCurrent();
    display::LoadedLevel level;
    level.CurrentLevel = report.CurrentLevel;
    level.CurRL = report.CurRL;
    display::ShowLoadedNetwork(*model_, *ds_, ui_, report.StartupViewRead, level);
    edit::ShareCurrentView(*model_, *ds_, views_->Table());
    if (fileNote_->isVisible()) fileNote_->SetNote(FromCp1252(model_->FileNote));
    lists_->FillViewList();
    ApplySettingsTimers();
    RefreshControls();
    views_->RefreshCaptions();
    views_->UpdateWindowMenu();
    RedrawAllWindows();
}

void MainWindow::AfterMerge() {
    RebuildCurrentView();
    RefreshControls();
    RedrawAllWindows();
}

void MainWindow::AfterNewNetwork() {
    undo_.ResetUndo();
    EndContaminantDisplay();
    runWindows_->HideErrorList();
    if (!views_->CurrentOpen()) NewViewWindow();
    if (!views_->CurrentOpen()) return;
    views_->SyncCurrent();
    display::ResetViewOptions(*model_, *ds_);
    display::AdoptLoadedLevel(*model_, *ds_);
    ds_->View.LevelMode = display::lm::Single;
    ds_->View.Is3D = 0;
    display::BuildDisplayList(*model_, *ds_);
    display::FitView(*model_, *ds_, ui_);
    edit::ShareCurrentView(*model_, *ds_, views_->Table());
    if (fileNote_->isVisible()) fileNote_->SetNote(QString());
    lists_->FillViewList();
    RefreshControls();
    RedrawAllWindows();
}

void MainWindow::BeforeSave() {
    // The view the file starts with is the view on show.
    if (views_->CurrentOpen()) display::SaveViewToSlot(*model_, *ds_, display::StartupViewSlot);
    if (fileNote_->isVisible()) model_->FileNote = ToCp1252(fileNote_->Note());
    views_->Focus(views_->Table().CurWin);
}

void MainWindow::AfterSave() {
    if (fileNote_->isVisible()) fileNote_->SetNote(FromCp1252(model_->FileNote));
    UpdateCaption();
}

} // namespace karvane::shell
