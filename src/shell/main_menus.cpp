// The menus of the main window, as the program's table of contents: File, Edit, View, Run,
// Tools, Window and Help. Entries whose work is not part of this version are shown disabled,
// with a note saying so.
#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <tuple>

#include "display/data_types.h"
#include "edit/tool_table.h"
#include "exchange/dxf_export.h"
#include "files/defaults_file.h"
#include "forms/file_commands.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"

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
    // An entry of the command table, run by its control name.
    auto command = [this](QMenu* m, const char* name, const QString& caption) {
        QAction* a = AddAction(m, name, caption);
        connect(a, &QAction::triggered, this, [this, name] { RunMenu(name); });
        return a;
    };
    // An entry that is the tool bar command of its value, ticked while that command is current.
    auto tool = [&command](QMenu* m, const char* name, const QString& caption, int value) {
        QAction* a = command(m, name, caption);
        a->setData(value);
        return a;
    };
    // A slot of the window itself: files and windows, printing, help.
    auto slot = [this](QMenu* m, const char* name, const QString& caption, auto handler) {
        QAction* a = AddAction(m, name, caption);
        connect(a, &QAction::triggered, this, handler);
        return a;
    };

    // File.
    QMenu* file = menu("mnuFile", QStringLiteral("&File"));
    command(file, "mnuNewFile", QStringLiteral("&New"));
    command(file, "mnuOpenFile", QStringLiteral("&Open..."));
    command(file, "mnuSaveFile", QStringLiteral("&Save"));
    command(file, "mnuSaveAs", QStringLiteral("Save &As..."));
    command(file, "mnuMergeFile", QStringLiteral("&Merge..."));
    file->addSeparator();
    command(file, "mnuComment", QStringLiteral("Title Note..."));
    command(file, "mnuMessage", QStringLiteral("File Memo..."));
    file->addSeparator();
    QMenu* defaults = sub(file, "mnuDefaultsFile", QStringLiteral("Defaults"));
    command(defaults, "mnuReLoadDef", QStringLiteral("Reload Defaults"));
    command(defaults, "mnuSaveDef", QStringLiteral("Save Defaults"));
    QMenu* fans = sub(file, "mnuFanFile", QStringLiteral("Fan Database"));
    command(fans, "mnuReLoadFan", QStringLiteral("Reload Fan Database"));
    command(fans, "mnuSaveFan", QStringLiteral("Save Fan Database"));
    file->addSeparator();
    QMenu* import = sub(file, "mnuImport", QStringLiteral("Import"));
    slot(import, "MnuDXF", QStringLiteral("DXF File..."), [this] { ImportCommand(true); });
    slot(import, "mnuImportData", QStringLiteral("Text File..."), [this] { ImportCommand(false); });
    AddAction(import, "mnuConvert", QStringLiteral("Import Airnet File"), "This import has no converter");
    QMenu* exportMenu = sub(file, "mnuExport", QStringLiteral("Export"));
    slot(exportMenu, "mnuDXFTrue", QStringLiteral("DXF, True Coordinates..."),
         [this] { ExportCommand(exchange::exportkind::DxfTrue); });
    slot(exportMenu, "MnuDXFScreen", QStringLiteral("DXF, Screen..."),
         [this] { ExportCommand(exchange::exportkind::DxfScreen); });
    slot(exportMenu, "mnuExportData", QStringLiteral("Text File..."),
         [this] { ExportCommand(exchange::exportkind::Text); });
    file->addSeparator();
    slot(file, "mnuPrint", QStringLiteral("&Print..."), &MainWindow::PrintCommand);
    slot(file, "mnuPsetup", QStringLiteral("Print Setup..."), &MainWindow::PrintSetup);
    slot(file, "mnuSvScreen", QStringLiteral("Screen Bitmap..."), &MainWindow::SaveScreenBitmap);
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
    slot(file, "mnuExit", QStringLiteral("E&xit"), [this] {
        runWindows_->CloseLegend();
        close();
    });

    // Edit. Undo and Redo go the way of Backspace, Tab and their buttons, which first end a
    // gesture in progress.
    QMenu* editMenu = menu("mnuEdit", QStringLiteral("&Edit"));
    for (const auto& [name, caption, value] : {std::tuple{"mnuUndo", "Undo\tBackspace", edit::cmd::Undo},
                                               std::tuple{"mnuRedo", "Redo\tTab", edit::cmd::Redo}}) {
        QAction* a = AddAction(editMenu, name, QString::fromLatin1(caption));
        a->setData(value);
        connect(a, &QAction::triggered, this, [this, value] { dispatcher_->RunToolCommand(value); });
    }
    editMenu->addSeparator();
    QMenu* copyPaste = sub(editMenu, "mnuCP", QStringLiteral("Copy-Paste"));
    tool(copyPaste, "mnuCpyPst", QStringLiteral("Copy / Paste Attributes\tF11"), edit::cmd::Attributes);
    tool(copyPaste, "mnuCopy2", QStringLiteral("Paste from Defaults"), edit::cmd::AttributesToDefaults);
    command(copyPaste, "mnucpAttrib", QStringLiteral("Attributes to Copy..."));
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
        QAction* a = tool(tools, e.Name, caption, e.Value);
        a->setCheckable(true);
        toolMenuGroup->addAction(a);
    }
    tools->addSeparator();
    command(tools, "mnuFit", QStringLiteral("Fit\tHome"));
    QMenu* find = sub(editMenu, "mnufind", QStringLiteral("Find"));
    const std::pair<const char*, const char*> findEntries[edit::FinderEntries] = {
        {"mnuFinder0", "Follow Airway"}, {"mnuFinder1", "Errors"},         {"mnuFinder2", "Bad Fans"},
        {"mnuFinder3", "Branch Number"}, {"mnuFinder4", "Branch Name"},    {"mnuFinder5", "Node Name"},
        {"mnuFinder6", "Fixed Flows"},   {"mnuFinder7", "Fixed Pressure"}, {"mnuFinder8", "Fixed Directions"},
        {"mnuFinder9", "Zero lengths"}};
    for (std::size_t i = 0; i < finderEntries_.size(); ++i) {
        finderEntries_[i] = command(find, findEntries[i].first, QString::fromLatin1(findEntries[i].second));
        finderEntries_[i]->setCheckable(true);
    }
    QMenu* findList = sub(editMenu, "mnuFL", QStringLiteral("Find by List"));
    command(findList, "mnuFBName", QStringLiteral("Branch Names..."));
    command(findList, "mnuFNName", QStringLiteral("Node Names..."));
    editMenu->addSeparator();
    command(editMenu, "mnuDeselect", QStringLiteral("Deselect All\tEsc"));
    command(editMenu, "mnuConfirm", QStringLiteral("Confirmations"))->setCheckable(true);

    // View.
    QMenu* view = menu("mnuView", QStringLiteral("&View"));
    command(view, "mnuRedraw", QStringLiteral("Redraw"));
    command(view, "mnuRefresh", QStringLiteral("Refresh All Windows"));
    command(view, "mnuFitAll", QStringLiteral("Fit All\tHome"));
    view->addSeparator();
    command(view, "mnuPlanS", QStringLiteral("Plan View"))->setCheckable(true);
    command(view, "mnu3d", QStringLiteral("3D View"))->setCheckable(true);
    command(view, "mnuGridFlag", QStringLiteral("Grid"))->setCheckable(true);
    view->addSeparator();
    QMenu* levels = sub(view, "mnuLevelsMenu", QStringLiteral("Levels"));
    auto* levelGroup = new QActionGroup(this);
    const std::pair<const char*, const char*> levelEntries[4] = {
        {"mnuLevels0", "Single"}, {"mnuLevels1", "Multiple..."}, {"mnuLevels2", "Range..."}, {"mnuLevels3", "All"}};
    for (std::size_t i = 0; i < levelModes_.size(); ++i) {
        levelModes_[i] = command(levels, levelEntries[i].first, QString::fromLatin1(levelEntries[i].second));
        levelModes_[i]->setCheckable(true);
        levelGroup->addAction(levelModes_[i]);
    }
    command(view, "mnuShowLayers", QStringLiteral("Layers..."));
    command(view, "mnuViewData", QStringLiteral("Display Options..."));
    QMenu* dataType = sub(view, "mnuDataType", QStringLiteral("Data Type"));
    auto* dataGroup = new QActionGroup(this);
    // The entries of the data types, named by their group's menu and their place in it.
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
            connect(a, &QAction::triggered, this, [this, type] { lists_->ChooseDataType(type); });
        }
    }
    view->addSeparator();
    command(view, "mnuSaveView", QStringLiteral("Save View..."));
    command(view, "mnuDelView", QStringLiteral("Delete View"));

    // Run.
    QMenu* runMenu = menu("mnuRun", QStringLiteral("&Run"));
    command(runMenu, "mnuExecute", QStringLiteral("Airflow Simulation\tF12"));
    command(runMenu, "mnuFire", QStringLiteral("Smoke Simulation"));
    command(runMenu, "mnuTrace", QStringLiteral("Sourcing Simulation"));
    slot(runMenu, "mnuStudy", QStringLiteral("Study..."), &MainWindow::ShowStudy);
    runMenu->addSeparator();
    QMenu* realtime = sub(runMenu, "mnuRT2", QStringLiteral("Realtime"));
    QAction* input = AddAction(realtime, "mnuRemote", QStringLiteral("Activate Input"));
    input->setCheckable(true);
    connect(input, &QAction::toggled, this, [this](bool on) { ActivateStations(true, on); });
    QAction* output = AddAction(realtime, "mnuRealOutStart", QStringLiteral("Activate Output"));
    output->setCheckable(true);
    connect(output, &QAction::toggled, this, [this](bool on) { ActivateStations(false, on); });
    command(runMenu, "mnuSummary", QStringLiteral("Summary..."));

    // Tools.
    QMenu* toolsMenu = menu("mnuDefaults", QStringLiteral("&Tools"));
    command(toolsMenu, "mnuFanData", QStringLiteral("Fans..."));
    command(toolsMenu, "mnuRLBase", QStringLiteral("Levels..."));
    command(toolsMenu, "mnuPower", QStringLiteral("Spreadsheet..."));
    command(toolsMenu, "mnuSimp", QStringLiteral("Simplify..."));
    toolsMenu->addSeparator();
    command(toolsMenu, "mnuremdup", QStringLiteral("Remove duplicates"));
    QMenu* airflowDisplay = sub(toolsMenu, "mnuAirflowDisplay", QStringLiteral("Airflow Display"));
    command(airflowDisplay, "mnuPres", QStringLiteral("Preserve"));
    command(airflowDisplay, "mnuRmvFlow", QStringLiteral("Remove"));
    QMenu* airways = sub(toolsMenu, "mnuAirways", QStringLiteral("Airways"));
    QMenu* lengths = sub(airways, "mnuLengths", QStringLiteral("Lengths"));
    command(lengths, "mnuFixL", QStringLiteral("Fix All"));
    command(lengths, "mnuUnFixL", QStringLiteral("Unfix All"));
    command(airways, "mnuAutoName", QStringLiteral("Auto Name Airway"));
    command(airways, "mnuAutoNodes", QStringLiteral("Auto Name Nodes"));
    command(airways, "mnuResetAir", QStringLiteral("Renumber Airways"));
    command(airways, "mnuchecknumbers", QStringLiteral("Check numbering"));
    command(airways, "mnuRevCoord", QStringLiteral("Swap XY Axis"));
    QMenu* smoke = sub(toolsMenu, "mnuSmokes", QStringLiteral("Smoke"));
    command(smoke, "mnuClrSmoke", QStringLiteral("Clear Smoke"));
    command(smoke, "mnuClrSources", QStringLiteral("Clear Smoke Sourcing"));
    QMenu* realtimeData = sub(toolsMenu, "mnuRD", QStringLiteral("Realtime Data"));
    command(realtimeData, "mnuRemoteStation", QStringLiteral("Input..."));
    command(realtimeData, "mnuRealOut", QStringLiteral("Output..."));
    QMenu* trouble = sub(toolsMenu, "mnuSimOpt", QStringLiteral("Troubleshoot"));
    command(trouble, "mnuFindResFans", QStringLiteral("Find Restrictive Fans"));
    command(trouble, "mnuDupAir", QStringLiteral("Find Duplicate Airways"));
    QMenu* bulkheads = sub(trouble, "mnuub", QStringLiteral("Unnecessary bulkheads"));
    command(bulkheads, "mnuProblems", QStringLiteral("Find"));
    command(bulkheads, "mnuRemoveRedund", QStringLiteral("Remove"));
    command(trouble, "mnnuNonConverge", QStringLiteral("Non-converging Airways"));
    trouble->addSeparator();
    command(trouble, "mnuResetAirflows", QStringLiteral("Re-seed Airflows"));
    toolsMenu->addSeparator();
    command(toolsMenu, "mnuOptionShow", QStringLiteral("Options..."));
    command(toolsMenu, "mnuReverse", QStringLiteral("Reverse coordinate axis"));

    // Window.
    QMenu* window = menu("mnuWindow", QStringLiteral("&Window"));
    slot(window, "mnuNewWindow", QStringLiteral("New Window"), [this] { NewViewWindow(); });
    slot(window, "mnuTileH", QStringLiteral("Tile Horizontally"), [this] { views_->Tile(0); });
    slot(window, "mnuTileV", QStringLiteral("Tile Vertically"), [this] { views_->Tile(1); });
    slot(window, "MnuTileC", QStringLiteral("Cascade"), [this] { views_->Tile(2); });
    slot(window, "mnuFreeze", QStringLiteral("Freeze"), [this] { views_->ToggleFreeze(); });
    QAction* layerInherit = slot(window, "mnuLayerInherit", QStringLiteral("Layer Inheritance"), [this] {
        edit::ToggleLayerInheritance(*model_, ui_);
        action(QStringLiteral("mnuLayerInherit"))->setChecked(model_->Set.LayerInherit);
    });
    layerInherit->setCheckable(true);
    window->addSeparator();
    for (QAction* a : views_->AddMenuEntries(window)) actions_[a->objectName()] = a;

    // Help.
    QMenu* help = menu("mnuHelpMenu", QStringLiteral("&Help"));
    slot(help, "mnuHelp", QStringLiteral("Contents"), &MainWindow::OpenHelp);
    command(help, "mnuAbout", QStringLiteral("About Karvane Software"));
    slot(help, "mnuWebPage", QStringLiteral("Karvane Web Page"), &MainWindow::OpenWebPage);

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
