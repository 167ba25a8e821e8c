// The menus of the main window, as the program's table of contents: File, Edit, View, Run,
// Tools, Window and Help. Entries whose work is not part of this version are shown disabled,
// with a note saying so.
#include <QAction>
#include <QActionGroup>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>

#include "dialogs/summary_dialog.h"
#include "display/data_types.h"
#include "edit/tool_table.h"
#include "exchange/dxf_export.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "forms/file_commands.h"
#include "forms/summary_form.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"
#include "simulate/troubleshoot.h"

namespace karvane::shell {

namespace {

constexpr const char* kLater = "Not yet available in this version of Karvane";

} // namespace

QAction* MainWindow::AddAction(QMenu* menu, const char* name, const QString& caption, const char* note) {
    auto* a = menu->addAction(caption);
    a->setObjectName(QString::fromLatin1(name));
    actions_[QString::fromLatin1(name)] = a;
    if (note) {
        a->setEnabled(false);
        a->setToolTip(caption.section(QLatin1Char('\t'), 0, 0) + QStringLiteral(" - ") + QString::fromLatin1(note));
        a->setStatusTip(QString::fromLatin1(note));
    }
    return a;
}

QAction* MainWindow::action(const QString& name) const {
    const auto found = actions_.find(name);
    return found == actions_.end() ? nullptr : found->second;
}

void MainWindow::BuildMenus() {
    QMenuBar* bar = menuBar();
    auto menu = [bar](const char* name, const QString& caption) {
        QMenu* m = bar->addMenu(caption);
        m->setObjectName(QString::fromLatin1(name));
        m->setToolTipsVisible(true);
        return m;
    };
    auto sub = [this](QMenu* parent, const char* name, const QString& caption) {
        QMenu* m = parent->addMenu(caption);
        m->setObjectName(QString::fromLatin1(name));
        m->setToolTipsVisible(true);
        actions_[QString::fromLatin1(name)] = m->menuAction();
        return m;
    };
    auto run = [this](int value) { return [this, value] { dispatcher_->RunToolCommand(value); }; };

    // File.
    QMenu* file = menu("mnuFile", QStringLiteral("&File"));
    connect(AddAction(file, "mnuNewFile", QStringLiteral("&New")), &QAction::triggered, this,
            [this] { forms::NewNetworkCommand(*model_, ui_, *this); });
    connect(AddAction(file, "mnuOpenFile", QStringLiteral("&Open...")), &QAction::triggered, this,
            [this] { forms::OpenCommand(*model_, ui_, *this); });
    connect(AddAction(file, "mnuSaveFile", QStringLiteral("&Save")), &QAction::triggered, this,
            [this] { forms::SaveCommand(*model_, ui_, *this); });
    connect(AddAction(file, "mnuSaveAs", QStringLiteral("Save &As...")), &QAction::triggered, this,
            [this] { forms::SaveAsCommand(*model_, ui_, *this); });
    connect(AddAction(file, "mnuMergeFile", QStringLiteral("&Merge...")), &QAction::triggered, this,
            [this] { forms::MergeCommand(*model_, ui_, *this); });
    file->addSeparator();
    connect(AddAction(file, "mnuComment", QStringLiteral("Title Note...")), &QAction::triggered, this,
            [this] { forms::TitleNoteCommand(*model_, ui_, *this); });
    connect(AddAction(file, "mnuMessage", QStringLiteral("File Memo...")), &QAction::triggered, this,
            &MainWindow::ShowFileNote);
    file->addSeparator();
    QMenu* defaults = sub(file, "mnuDefaultsFile", QStringLiteral("Defaults"));
    connect(AddAction(defaults, "mnuReLoadDef", QStringLiteral("Reload Defaults")), &QAction::triggered, this, [this] {
        files::ReloadDefaultsCommand(*model_, ui_);
        ApplySettingsTimers();
        RedrawAllWindows();
    });
    connect(AddAction(defaults, "mnuSaveDef", QStringLiteral("Save Defaults")), &QAction::triggered, this,
            [this] { files::SaveDefaultsCommand(*model_, ui_); });
    QMenu* fans = sub(file, "mnuFanFile", QStringLiteral("Fan Database"));
    connect(AddAction(fans, "mnuReLoadFan", QStringLiteral("Reload Fan Database")), &QAction::triggered, this,
            [this] { files::ReloadFanDatabaseCommand(*model_, ui_); });
    connect(AddAction(fans, "mnuSaveFan", QStringLiteral("Save Fan Database")), &QAction::triggered, this,
            [this] { files::SaveFanDatabase(*model_, ui_); });
    file->addSeparator();
    QMenu* import = sub(file, "mnuImport", QStringLiteral("Import"));
    connect(AddAction(import, "MnuDXF", QStringLiteral("DXF File...")), &QAction::triggered, this,
            [this] { ImportCommand(true); });
    connect(AddAction(import, "mnuImportData", QStringLiteral("Text File...")), &QAction::triggered, this,
            [this] { ImportCommand(false); });
    AddAction(import, "mnuConvert", QStringLiteral("Import Airnet File"), "This import has no converter");
    QMenu* exportMenu = sub(file, "mnuExport", QStringLiteral("Export"));
    connect(AddAction(exportMenu, "mnuDXFTrue", QStringLiteral("DXF, True Coordinates...")), &QAction::triggered, this,
            [this] { ExportCommand(exchange::exportkind::DxfTrue); });
    connect(AddAction(exportMenu, "MnuDXFScreen", QStringLiteral("DXF, Screen...")), &QAction::triggered, this,
            [this] { ExportCommand(exchange::exportkind::DxfScreen); });
    connect(AddAction(exportMenu, "mnuExportData", QStringLiteral("Text File...")), &QAction::triggered, this,
            [this] { ExportCommand(exchange::exportkind::Text); });
    file->addSeparator();
    connect(AddAction(file, "mnuPrint", QStringLiteral("&Print...")), &QAction::triggered, this,
            &MainWindow::PrintCommand);
    connect(AddAction(file, "mnuPsetup", QStringLiteral("Print Setup...")), &QAction::triggered, this,
            &MainWindow::PrintSetup);
    connect(AddAction(file, "mnuSvScreen", QStringLiteral("Screen Bitmap...")), &QAction::triggered, this,
            [this] { SaveScreenBitmap(); });
    file->addSeparator();
    for (int i = 1; i <= RecentFileCount; ++i) {
        QAction* a = file->addAction(QString());
        a->setObjectName(QStringLiteral("mnuOld%1").arg(i));
        a->setVisible(false);
        actions_[a->objectName()] = a;
        recent_[static_cast<std::size_t>(i)] = a;
        connect(a, &QAction::triggered, this, [this, i] { forms::RecentFileCommand(*model_, ui_, *this, i); });
    }
    file->addSeparator();
    connect(AddAction(file, "mnuExit", QStringLiteral("E&xit")), &QAction::triggered, this, [this] {
        runWindows_->CloseLegend();
        close();
    });

    // Edit.
    QMenu* editMenu = menu("mnuEdit", QStringLiteral("&Edit"));
    QAction* undo = AddAction(editMenu, "mnuUndo", QStringLiteral("Undo\tBackspace"));
    undo->setData(edit::cmd::Undo);
    connect(undo, &QAction::triggered, this, run(edit::cmd::Undo));
    QAction* redo = AddAction(editMenu, "mnuRedo", QStringLiteral("Redo\tTab"));
    redo->setData(edit::cmd::Redo);
    connect(redo, &QAction::triggered, this, run(edit::cmd::Redo));
    editMenu->addSeparator();
    QMenu* copyPaste = sub(editMenu, "mnuCP", QStringLiteral("Copy-Paste"));
    QAction* copyAttributes = AddAction(copyPaste, "mnuCpyPst", QStringLiteral("Copy / Paste Attributes\tF11"));
    copyAttributes->setData(edit::cmd::Attributes);
    connect(copyAttributes, &QAction::triggered, this, run(edit::cmd::Attributes));
    QAction* copyDefaults = AddAction(copyPaste, "mnuCopy2", QStringLiteral("Paste from Defaults"));
    copyDefaults->setData(edit::cmd::AttributesToDefaults);
    connect(copyDefaults, &QAction::triggered, this, run(edit::cmd::AttributesToDefaults));
    connect(AddAction(copyPaste, "mnucpAttrib", QStringLiteral("Attributes to Copy...")), &QAction::triggered, this,
            [this] { RunMenu("mnucpAttrib"); });
    QMenu* tools = sub(editMenu, "mnuMods", QStringLiteral("Tools"));
    auto* toolMenuGroup = new QActionGroup(this);
    struct ToolEntry {
        const char* Name;
        int Value;
    };
    const ToolEntry toolEntries[] = {
        {"mnuZoom", edit::cmd::Zoom},    {"mnuBar1", edit::cmd::Draw},        {"mnuBar3", edit::cmd::Move},
        {"mnuBar4", edit::cmd::Reverse}, {"mnuBar5", edit::cmd::Delete},      {"mnuBar6", edit::cmd::Fan},
        {"mnuBar7", edit::cmd::Names},   {"mnuBar8", edit::cmd::Contaminant}, {"mnuBar9", edit::cmd::Edit},
        {"mnuBar10", edit::cmd::Info},   {"mnuBar12", edit::cmd::Insert}};
    for (const ToolEntry& e : toolEntries) {
        const edit::ToolCommand* c = edit::FindToolCommand(e.Value);
        QString caption = QString::fromLatin1(c->MenuCaption);
        if (c->Key >= edit::key::F2) caption += QStringLiteral("\tF%1").arg(c->Key - edit::key::F2 + 2);
        QAction* a = AddAction(tools, e.Name, caption);
        a->setCheckable(true);
        a->setData(e.Value);
        toolMenuGroup->addAction(a);
        connect(a, &QAction::triggered, this, run(e.Value));
    }
    tools->addSeparator();
    connect(AddAction(tools, "mnuFit", QStringLiteral("Fit\tHome")), &QAction::triggered, this, run(edit::cmd::Fit));
    QMenu* find = sub(editMenu, "mnufind", QStringLiteral("Find"));
    const char* const findCaptions[10] = {"Follow Airway",    "Errors",      "Bad Fans",    "Branch Number",
                                          "Branch Name",      "Node Name",   "Fixed Flows", "Fixed Pressure",
                                          "Fixed Directions", "Zero lengths"};
    for (int i = 0; i < 10; ++i) {
        const std::string name = "mnuFinder" + std::to_string(i);
        QAction* entry = AddAction(find, name.c_str(), QString::fromLatin1(findCaptions[i]));
        entry->setCheckable(true);
        finderEntries_[static_cast<std::size_t>(i)] = entry;
        connect(entry, &QAction::triggered, this, [this, i] {
            RunMenu(("mnuFinder" + std::to_string(i)).c_str());
            UpdateMenuTicks();
        });
    }
    QMenu* findList = sub(editMenu, "mnuFL", QStringLiteral("Find by List"));
    connect(AddAction(findList, "mnuFBName", QStringLiteral("Branch Names...")), &QAction::triggered, this,
            [this] { RunMenu("mnuFBName"); });
    connect(AddAction(findList, "mnuFNName", QStringLiteral("Node Names...")), &QAction::triggered, this,
            [this] { RunMenu("mnuFNName"); });
    editMenu->addSeparator();
    connect(AddAction(editMenu, "mnuDeselect", QStringLiteral("Deselect All\tEsc")), &QAction::triggered, this,
            run(edit::cmd::UpdateScreen));
    QAction* confirm = AddAction(editMenu, "mnuConfirm", QStringLiteral("Confirmations"));
    confirm->setCheckable(true);
    connect(confirm, &QAction::toggled, this, [this](bool on) { confirmations_ = on; });

    // View.
    QMenu* view = menu("mnuView", QStringLiteral("&View"));
    connect(AddAction(view, "mnuRedraw", QStringLiteral("Redraw")), &QAction::triggered, this,
            &MainWindow::RedrawWindow);
    connect(AddAction(view, "mnuRefresh", QStringLiteral("Refresh All Windows")), &QAction::triggered, this,
            &MainWindow::RedrawAllWindows);
    connect(AddAction(view, "mnuFitAll", QStringLiteral("Fit All\tHome")), &QAction::triggered, this,
            run(edit::cmd::Fit));
    view->addSeparator();
    QAction* plan = AddAction(view, "mnuPlanS", QStringLiteral("Plan View"));
    plan->setCheckable(true);
    connect(plan, &QAction::triggered, this, [this] { RunMenu("mnuPlanS"); });
    QAction* threeD = AddAction(view, "mnu3d", QStringLiteral("3D View"));
    threeD->setCheckable(true);
    connect(threeD, &QAction::triggered, this, [this] { RunMenu("mnu3d"); });
    QAction* grid = AddAction(view, "mnuGridFlag", QStringLiteral("Grid"));
    grid->setCheckable(true);
    connect(grid, &QAction::triggered, this, run(edit::cmd::Grid));
    view->addSeparator();
    QMenu* levels = sub(view, "mnuLevelsMenu", QStringLiteral("Levels"));
    auto* levelGroup = new QActionGroup(this);
    const char* const levelCaptions[4] = {"Single", "Multiple...", "Range...", "All"};
    for (int i = 0; i < 4; ++i) {
        const std::string name = "mnuLevels" + std::to_string(i);
        QAction* a = AddAction(levels, name.c_str(), QString::fromLatin1(levelCaptions[i]));
        a->setCheckable(true);
        levelGroup->addAction(a);
        levelModes_[static_cast<std::size_t>(i)] = a;
    }
    connect(levelModes_[0], &QAction::triggered, this, [this] { RunMenu("mnuLevels0"); });
    connect(levelModes_[1], &QAction::triggered, this, &MainWindow::ChooseLevelsMultiple);
    connect(levelModes_[2], &QAction::triggered, this, &MainWindow::ChooseLevelsRange);
    connect(levelModes_[3], &QAction::triggered, this, [this] { RunMenu("mnuLevels3"); });
    connect(AddAction(view, "mnuShowLayers", QStringLiteral("Layers...")), &QAction::triggered, this,
            &MainWindow::ShowLayersDialog);
    connect(AddAction(view, "mnuViewData", QStringLiteral("Display Options...")), &QAction::triggered, this,
            &MainWindow::ShowViewerDialog);
    QMenu* dataType = sub(view, "mnuDataType", QStringLiteral("Data Type"));
    auto* dataGroup = new QActionGroup(this);
    const char* const groupMenus[6] = {"", "mnuAirflow", "mnuPressure", "mnuBranch", "mnuCost", "mnuOther"};
    for (int g = 1; g <= display::DataGroupCount; ++g) {
        QMenu* groupMenu = sub(dataType, groupMenus[g], QString::fromStdString(std::string(display::DataGroupName(g))));
        for (int v = 2; v <= 10; ++v) {
            const int type = g * 10 + v;
            if (!display::IsDataType(type)) continue;
            std::string caption(display::DataMenuCaption(type));
            if (caption.empty()) caption = std::string(display::DataValueName(type));
            const std::string name = std::string(groupMenus[g]) + std::to_string(v - 2);
            QAction* a = AddAction(groupMenu, name.c_str(), QString::fromStdString(caption));
            a->setCheckable(true);
            dataGroup->addAction(a);
            dataTypeEntries_[type] = a;
            connect(a, &QAction::triggered, this, [this, type] { OnDataTypeMenu(type); });
        }
    }
    view->addSeparator();
    connect(AddAction(view, "mnuSaveView", QStringLiteral("Save View...")), &QAction::triggered, this,
            &MainWindow::SaveNamedView);
    connect(AddAction(view, "mnuDelView", QStringLiteral("Delete View")), &QAction::triggered, this,
            &MainWindow::DeleteNamedView);

    // Run.
    QMenu* runMenu = menu("mnuRun", QStringLiteral("&Run"));
    connect(AddAction(runMenu, "mnuExecute", QStringLiteral("Airflow Simulation\tF12")), &QAction::triggered, this,
            &MainWindow::Simulate);
    connect(AddAction(runMenu, "mnuFire", QStringLiteral("Smoke Simulation")), &QAction::triggered, this,
            [this] { runWindows_->OpenSmoke(); });
    connect(AddAction(runMenu, "mnuTrace", QStringLiteral("Sourcing Simulation")), &QAction::triggered, this,
            &MainWindow::SourcingSimulation);
    connect(AddAction(runMenu, "mnuStudy", QStringLiteral("Study...")), &QAction::triggered, this,
            &MainWindow::ShowStudy);
    runMenu->addSeparator();
    QMenu* realtime = sub(runMenu, "mnuRT2", QStringLiteral("Realtime"));
    QAction* input = AddAction(realtime, "mnuRemote", QStringLiteral("Activate Input"));
    input->setCheckable(true);
    connect(input, &QAction::toggled, this, [this](bool on) { ActivateStations(true, on); });
    QAction* output = AddAction(realtime, "mnuRealOutStart", QStringLiteral("Activate Output"));
    output->setCheckable(true);
    connect(output, &QAction::toggled, this, [this](bool on) { ActivateStations(false, on); });
    connect(AddAction(runMenu, "mnuSummary", QStringLiteral("Summary...")), &QAction::triggered, this, [this] {
        dialogs::SummaryDialog dialog(forms::FillSummary(*model_, ui_.DecimalSeparator()), this);
        dialog.exec();
        RedrawAllWindows();
    });

    // Tools.
    QMenu* toolsMenu = menu("mnuDefaults", QStringLiteral("&Tools"));
    connect(AddAction(toolsMenu, "mnuFanData", QStringLiteral("Fans...")), &QAction::triggered, this,
            &MainWindow::ShowFanData);
    connect(AddAction(toolsMenu, "mnuRLBase", QStringLiteral("Levels...")), &QAction::triggered, this,
            &MainWindow::ShowLevelList);
    connect(AddAction(toolsMenu, "mnuPower", QStringLiteral("Spreadsheet...")), &QAction::triggered, this,
            &MainWindow::ShowSpreadSheet);
    connect(AddAction(toolsMenu, "mnuSimp", QStringLiteral("Simplify...")), &QAction::triggered, this,
            &MainWindow::ShowSimplify);
    toolsMenu->addSeparator();
    const auto networkCommand = [this](const char* name) { return [this, name] { RunMenu(name); }; };
    connect(AddAction(toolsMenu, "mnuremdup", QStringLiteral("Remove duplicates")), &QAction::triggered, this,
            networkCommand("mnuremdup"));
    QMenu* airflowDisplay = sub(toolsMenu, "mnuAirflowDisplay", QStringLiteral("Airflow Display"));
    connect(AddAction(airflowDisplay, "mnuPres", QStringLiteral("Preserve")), &QAction::triggered, this,
            networkCommand("mnuPres"));
    connect(AddAction(airflowDisplay, "mnuRmvFlow", QStringLiteral("Remove")), &QAction::triggered, this,
            networkCommand("mnuRmvFlow"));
    QMenu* airways = sub(toolsMenu, "mnuAirways", QStringLiteral("Airways"));
    QMenu* lengths = sub(airways, "mnuLengths", QStringLiteral("Lengths"));
    connect(AddAction(lengths, "mnuFixL", QStringLiteral("Fix All")), &QAction::triggered, this,
            networkCommand("mnuFixL"));
    connect(AddAction(lengths, "mnuUnFixL", QStringLiteral("Unfix All")), &QAction::triggered, this,
            networkCommand("mnuUnFixL"));
    for (const auto& [name, caption] :
         {std::pair{"mnuAutoName", "Auto Name Airway"}, std::pair{"mnuAutoNodes", "Auto Name Nodes"},
          std::pair{"mnuResetAir", "Renumber Airways"}, std::pair{"mnuchecknumbers", "Check numbering"},
          std::pair{"mnuRevCoord", "Swap XY Axis"}})
        connect(AddAction(airways, name, QString::fromLatin1(caption)), &QAction::triggered, this,
                networkCommand(name));
    QMenu* smoke = sub(toolsMenu, "mnuSmokes", QStringLiteral("Smoke"));
    connect(AddAction(smoke, "mnuClrSmoke", QStringLiteral("Clear Smoke")), &QAction::triggered, this,
            networkCommand("mnuClrSmoke"));
    connect(AddAction(smoke, "mnuClrSources", QStringLiteral("Clear Smoke Sourcing")), &QAction::triggered, this,
            networkCommand("mnuClrSources"));
    QMenu* realtimeData = sub(toolsMenu, "mnuRD", QStringLiteral("Realtime Data"));
    connect(AddAction(realtimeData, "mnuRemoteStation", QStringLiteral("Input...")), &QAction::triggered, this,
            [this] { ShowStationDialog(true); });
    connect(AddAction(realtimeData, "mnuRealOut", QStringLiteral("Output...")), &QAction::triggered, this,
            [this] { ShowStationDialog(false); });
    QMenu* trouble = sub(toolsMenu, "mnuSimOpt", QStringLiteral("Troubleshoot"));
    connect(AddAction(trouble, "mnuFindResFans", QStringLiteral("Find Restrictive Fans")), &QAction::triggered, this,
            [this] { Troubleshoot(simulate::mode::RestrictiveFans); });
    connect(AddAction(trouble, "mnuDupAir", QStringLiteral("Find Duplicate Airways")), &QAction::triggered, this,
            [this] { Troubleshoot(simulate::mode::DuplicateAirways); });
    QMenu* bulkheads = sub(trouble, "mnuub", QStringLiteral("Unnecessary bulkheads"));
    connect(AddAction(bulkheads, "mnuProblems", QStringLiteral("Find")), &QAction::triggered, this,
            [this] { Troubleshoot(simulate::mode::FindBulkheads); });
    connect(AddAction(bulkheads, "mnuRemoveRedund", QStringLiteral("Remove")), &QAction::triggered, this,
            [this] { Troubleshoot(simulate::mode::RemoveBulkheads); });
    connect(AddAction(trouble, "mnnuNonConverge", QStringLiteral("Non-converging Airways")), &QAction::triggered, this,
            [this] { Troubleshoot(simulate::mode::NonConverging); });
    trouble->addSeparator();
    connect(AddAction(trouble, "mnuResetAirflows", QStringLiteral("Re-seed Airflows")), &QAction::triggered, this,
            &MainWindow::ReseedAirflows);
    toolsMenu->addSeparator();
    connect(AddAction(toolsMenu, "mnuOptionShow", QStringLiteral("Options...")), &QAction::triggered, this,
            &MainWindow::ShowOptions);
    connect(AddAction(toolsMenu, "mnuReverse", QStringLiteral("Reverse coordinate axis")), &QAction::triggered, this,
            networkCommand("mnuReverse"));

    // Window.
    QMenu* window = menu("mnuWindow", QStringLiteral("&Window"));
    connect(AddAction(window, "mnuNewWindow", QStringLiteral("New Window")), &QAction::triggered, this,
            [this] { NewViewWindow(); });
    connect(AddAction(window, "mnuTileH", QStringLiteral("Tile Horizontally")), &QAction::triggered, this,
            [this] { views_->Tile(0); });
    connect(AddAction(window, "mnuTileV", QStringLiteral("Tile Vertically")), &QAction::triggered, this,
            [this] { views_->Tile(1); });
    connect(AddAction(window, "MnuTileC", QStringLiteral("Cascade")), &QAction::triggered, this,
            [this] { views_->Tile(2); });
    connect(AddAction(window, "mnuFreeze", QStringLiteral("Freeze")), &QAction::triggered, views_.get(),
            &ViewWindowManager::ToggleFreeze);
    QAction* layerInherit = AddAction(window, "mnuLayerInherit", QStringLiteral("Layer Inheritance"));
    layerInherit->setCheckable(true);
    connect(layerInherit, &QAction::triggered, this, [this, layerInherit] {
        edit::ToggleLayerInheritance(*model_, ui_);
        layerInherit->setChecked(model_->Set.LayerInherit);
    });
    window->addSeparator();
    for (QAction* a : views_->AddMenuEntries(window)) actions_[a->objectName()] = a;

    // Help.
    QMenu* help = menu("mnuHelpMenu", QStringLiteral("&Help"));
    connect(AddAction(help, "mnuHelp", QStringLiteral("Contents")), &QAction::triggered, this, &MainWindow::OpenHelp);
    connect(AddAction(help, "mnuAbout", QStringLiteral("About Karvane Software")), &QAction::triggered, this,
            &MainWindow::ShowAbout);
    connect(AddAction(help, "mnuWebPage", QStringLiteral("Karvane Web Page")), &QAction::triggered, this,
            &MainWindow::OpenWebPage);

    // The entries of commands whose work is not part of this version.
    for (const auto& [name, a] : actions_) {
        if (!a->data().isValid() || CommandAvailable(a->data().toInt())) continue;
        a->setEnabled(false);
        a->setToolTip(a->text().section(QLatin1Char('\t'), 0, 0) + QStringLiteral(" - ") + QString::fromLatin1(kLater));
        a->setStatusTip(QString::fromLatin1(kLater));
    }
}

void MainWindow::BuildRecentMenu() {
    const auto entries = files::BuildRecentMenu(*model_);
    for (int i = 1; i <= RecentFileCount; ++i) {
        QAction* a = recent_[static_cast<std::size_t>(i)];
        if (!a) continue;
        a->setText(FromPath(entries[static_cast<std::size_t>(i)].Caption));
        a->setVisible(entries[static_cast<std::size_t>(i)].Visible);
        a->setToolTip(FromPath(model_->RecentFiles[static_cast<std::size_t>(i)]));
    }
}

void MainWindow::RecentFilesChanged() { BuildRecentMenu(); }

void MainWindow::UpdateMenuTicks() {
    const display::ViewState& v = ds_->View;
    action(QStringLiteral("mnuPlanS"))->setChecked(v.Is3D == 0);
    action(QStringLiteral("mnu3d"))->setChecked(v.Is3D != 0);
    action(QStringLiteral("mnuGridFlag"))->setChecked(ds_->GridOn);
    action(QStringLiteral("mnuLayerInherit"))->setChecked(model_->Set.LayerInherit);
    const int mode = std::clamp<int>(v.LevelMode, 1, 4) - 1;
    levelModes_[static_cast<std::size_t>(mode)]->setChecked(true);
    for (auto& [type, a] : dataTypeEntries_) a->setChecked(type == v.DataType);
    for (const auto& [name, a] : actions_) {
        if (!a->isCheckable() || !a->data().isValid()) continue;
        a->setChecked(a->data().toInt() == dispatcher_->State().CommandValue);
    }
    // The real-time menus are there while real-time monitoring is switched on.
    const bool realtime = files::RealTimeMenusVisible(model_->Set);
    action(QStringLiteral("mnuRT2"))->setVisible(realtime);
    action(QStringLiteral("mnuRD"))->setVisible(realtime);
    // The entry of the Find menu last chosen carries the tick.
    for (std::size_t i = 0; i < finderEntries_.size(); ++i)
        if (finderEntries_[i]) finderEntries_[i]->setChecked(static_cast<int>(i) == model_->Find.FinderTick);
}

} // namespace karvane::shell
