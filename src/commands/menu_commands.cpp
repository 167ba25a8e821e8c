// The table of main window commands. Each entry does what its menu entry does: the question
// and the change (most of them plain routines of forms/ or files/), then the rebuild of the
// views that the change needs. Entries that open a form ask the host for it by name.
#include "commands/menu_commands.h"

#include <algorithm>
#include <array>
#include <functional>

#include "contaminant/sourcing.h"
#include "contaminant/spread.h"
#include "display/display_list.h"
#include "display/level_selector.h"
#include "display/view_transform.h"
#include "edit/find.h"
#include "edit/tool_table.h"
#include "edit/view_gestures.h"
#include "engineering/resistance.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "forms/file_commands.h"
#include "forms/network_commands.h"
#include "model/network_rows.h"
#include "model/node_keys.h"
#include "simulate/troubleshoot.h"

namespace karvane::commands {

namespace {

using Handler = void (*)(CommandContext&);

// The current window's display list and projection after the rows changed.
void RebuildCurrentView(CommandContext& c) {
    if (!c.Host.ViewWindowOpen()) return;
    c.Host.PrepareCurrentView();
    display::BuildDisplayList(c.M, c.Ds);
    display::ApplyRotation(c.M, c.Ds);
}

// After a command over all airways: the network counts as changed and every window shows it.
void NetworkChanged(CommandContext& c) {
    c.M.NetworkSaved = No0;
    RebuildCurrentView(c);
    c.Host.RedrawAllWindows();
}

// An entry of the Find menu: the search of its kind, or for entry 0 the follow tool.
template <int Entry>
void RunFinder(CommandContext& c) {
    if (c.Finder == nullptr || !c.Host.ViewWindowOpen()) return;
    edit::Finder(c.M, c.Ds, c.Ui, *c.Finder, Entry);
    if (Entry == 0) c.Host.RunToolCommand(edit::cmd::Follow);
}

struct MenuCommand {
    std::string_view Name;
    int ToolValue = -1;                // a tool bar command value, run through RunToolCommand
    Handler Run = nullptr;             // a command of its own
    const char* Form = nullptr;        // a form opened by name
    RunMode Trouble = RunMode::Normal; // a troubleshooting run mode
};

void PlanView(CommandContext& c, bool plan) {
    if (!c.Host.ViewWindowOpen()) return;
    c.Host.PrepareCurrentView();
    if (plan) {
        edit::MakePlanView(c.M, c.Ds);
    } else {
        edit::Make3DView(c.M, c.Ds);
    }
    c.Host.RedrawWindow();
    c.Host.SaveWindowState();
    c.Host.RefreshMenuTicks();
}

void SwapXY(CommandContext& c) {
    if (!forms::SwapXYAxis(c.M, c.Ui)) return;
    c.M.NetworkSaved = No0;
    BuildNodeKeys(c.M, c.Ui);
    RecalcAllAirways(c.M);
    if (c.Host.ViewWindowOpen()) {
        c.Host.PrepareCurrentView();
        c.Ds.View.Is3D = 0;
        display::BuildDisplayList(c.M, c.Ds);
        display::FitView(c.M, c.Ds, c.Ui);
    }
    c.Host.RefreshViewList();
    c.Host.RedrawAllWindows();
}

void ReverseAxis(CommandContext& c) {
    if (!forms::ReverseCoordinateAxis(c.M, c.Ui)) return;
    c.M.NetworkSaved = No0;
    BuildNodeKeys(c.M, c.Ui);
    if (c.Host.ViewWindowOpen()) {
        c.Host.PrepareCurrentView();
        display::BuildDisplayList(c.M, c.Ds);
        display::RotationCentreMeanOfNetwork(c.M, c.Ds);
        display::ApplyRotation(c.M, c.Ds);
        display::FitView(c.M, c.Ds, c.Ui);
    }
    c.Host.RedrawAllWindows();
}

// The commands in the order of the menus.
const std::array kCommands{
    // File.
    MenuCommand{"mnuNewFile", -1, [](CommandContext& c) { forms::NewNetworkCommand(c.M, c.Ui, c.Host); }},
    MenuCommand{"mnuOpenFile", -1, [](CommandContext& c) { forms::OpenCommand(c.M, c.Ui, c.Host); }},
    MenuCommand{"mnuSaveFile", -1, [](CommandContext& c) { forms::SaveCommand(c.M, c.Ui, c.Host); }},
    MenuCommand{"mnuSaveAs", -1, [](CommandContext& c) { forms::SaveAsCommand(c.M, c.Ui, c.Host); }},
    MenuCommand{"mnuMergeFile", -1, [](CommandContext& c) { forms::MergeCommand(c.M, c.Ui, c.Host); }},
    MenuCommand{"mnuComment", -1, [](CommandContext& c) { forms::TitleNoteCommand(c.M, c.Ui, c.Host); }},
    MenuCommand{"mnuMessage", -1, nullptr, "mnuMessage"},
    MenuCommand{"mnuReLoadDef", -1,
                [](CommandContext& c) {
                    files::ReloadDefaultsCommand(c.M, c.Ui);
                    c.Host.SettingsChanged();
                    c.Host.RedrawAllWindows();
                }},
    MenuCommand{"mnuSaveDef", -1, [](CommandContext& c) { files::SaveDefaultsCommand(c.M, c.Ui); }},
    MenuCommand{"mnuReLoadFan", -1, [](CommandContext& c) { files::ReloadFanDatabaseCommand(c.M, c.Ui); }},
    MenuCommand{"mnuSaveFan", -1, [](CommandContext& c) { files::SaveFanDatabase(c.M, c.Ui); }},
    // Edit.
    MenuCommand{"mnuUndo", -1, UndoCommand},
    MenuCommand{"mnuRedo", -1, RedoCommand},
    MenuCommand{"mnuCpyPst", edit::cmd::Attributes},
    MenuCommand{"mnuCopy2", edit::cmd::AttributesToDefaults},
    MenuCommand{"mnuZoom", edit::cmd::Zoom},
    MenuCommand{"mnuBar1", edit::cmd::Draw},
    MenuCommand{"mnuBar3", edit::cmd::Move},
    MenuCommand{"mnuBar4", edit::cmd::Reverse},
    MenuCommand{"mnuBar5", edit::cmd::Delete},
    MenuCommand{"mnuBar6", edit::cmd::Fan},
    MenuCommand{"mnuBar7", edit::cmd::Names},
    MenuCommand{"mnuBar8", edit::cmd::Contaminant},
    MenuCommand{"mnuBar9", edit::cmd::Edit},
    MenuCommand{"mnuBar10", edit::cmd::Info},
    MenuCommand{"mnuBar12", edit::cmd::Insert},
    MenuCommand{"mnuFit", edit::cmd::Fit},
    MenuCommand{"mnuDeselect", edit::cmd::UpdateScreen},
    MenuCommand{"mnucpAttrib", -1, nullptr, "mnucpAttrib"},
    MenuCommand{"mnuFinder0", -1, RunFinder<0>},
    MenuCommand{"mnuFinder1", -1, RunFinder<1>},
    MenuCommand{"mnuFinder2", -1, RunFinder<2>},
    MenuCommand{"mnuFinder3", -1, RunFinder<3>},
    MenuCommand{"mnuFinder4", -1, RunFinder<4>},
    MenuCommand{"mnuFinder5", -1, RunFinder<5>},
    MenuCommand{"mnuFinder6", -1, RunFinder<6>},
    MenuCommand{"mnuFinder7", -1, RunFinder<7>},
    MenuCommand{"mnuFinder8", -1, RunFinder<8>},
    MenuCommand{"mnuFinder9", -1, RunFinder<9>},
    MenuCommand{"mnuFBName", -1, nullptr, "mnuFBName"},
    MenuCommand{"mnuFNName", -1, nullptr, "mnuFNName"},
    MenuCommand{"mnuConfirm", -1, [](CommandContext& c) { c.M.Confirmations = !c.M.Confirmations; }},
    // View.
    MenuCommand{"mnuRedraw", -1, [](CommandContext& c) { c.Host.RedrawWindow(); }},
    MenuCommand{"mnuRefresh", -1, [](CommandContext& c) { c.Host.RedrawAllWindows(); }},
    MenuCommand{"mnuFitAll", edit::cmd::Fit},
    MenuCommand{"mnuPlanS", -1, [](CommandContext& c) { PlanView(c, true); }},
    MenuCommand{"mnu3d", -1, [](CommandContext& c) { PlanView(c, false); }},
    MenuCommand{"mnuGridFlag", edit::cmd::Grid},
    MenuCommand{"mnuLevels0", -1,
                [](CommandContext& c) {
                    display::SelectSingleLevel(c.M, c.Ds);
                    c.Host.AfterLevelChange();
                }},
    MenuCommand{"mnuLevels1", -1, nullptr, "mnuLevels1"},
    MenuCommand{"mnuLevels2", -1, nullptr, "mnuLevels2"},
    MenuCommand{"mnuLevels3", -1,
                [](CommandContext& c) {
                    display::SelectAllLevels(c.M, c.Ds);
                    c.Host.AfterLevelChange();
                }},
    MenuCommand{"mnuShowLayers", -1, nullptr, "mnuShowLayers"},
    MenuCommand{"mnuViewData", -1, nullptr, "mnuViewData"},
    MenuCommand{"mnuSaveView", -1, nullptr, "mnuSaveView"},
    MenuCommand{"mnuDelView", -1, nullptr, "mnuDelView"},
    // Run.
    MenuCommand{"mnuExecute", edit::cmd::Simulate},
    MenuCommand{"mnuFire", edit::cmd::Smoke},
    MenuCommand{"mnuTrace", edit::cmd::Sourcing},
    MenuCommand{"mnuSummary", -1, nullptr, "mnuSummary"},
    // Tools.
    MenuCommand{"mnuFanData", -1, nullptr, "mnuFanData"},
    MenuCommand{"mnuRLBase", -1, nullptr, "mnuRLBase"},
    MenuCommand{"mnuPower", -1, nullptr, "mnuPower"},
    MenuCommand{"mnuSimp", -1, nullptr, "mnuSimp"},
    MenuCommand{"mnuremdup", -1,
                [](CommandContext& c) {
                    forms::GiveAirwaysOneSense(c.M);
                    NetworkChanged(c);
                }},
    MenuCommand{"mnuPres", -1,
                [](CommandContext& c) {
                    if (forms::PreserveFlowLabels(c.M, c.Ui, c.Ui.DecimalSeparator())) NetworkChanged(c);
                }},
    MenuCommand{"mnuRmvFlow", -1,
                [](CommandContext& c) {
                    forms::RemoveFlowLabels(c.M);
                    NetworkChanged(c);
                }},
    MenuCommand{"mnuFixL", -1,
                [](CommandContext& c) {
                    if (forms::FixAllLengths(c.M, c.Ui)) NetworkChanged(c);
                }},
    MenuCommand{"mnuUnFixL", -1,
                [](CommandContext& c) {
                    if (forms::UnfixAllLengths(c.M, c.Ui)) NetworkChanged(c);
                }},
    MenuCommand{"mnuAutoName", -1,
                [](CommandContext& c) {
                    if (forms::AutoNameAirways(c.M, c.Ui)) NetworkChanged(c);
                }},
    MenuCommand{"mnuAutoNodes", -1,
                [](CommandContext& c) {
                    if (forms::AutoNameNodes(c.M, c.Ui)) NetworkChanged(c);
                }},
    MenuCommand{"mnuResetAir", -1,
                [](CommandContext& c) {
                    forms::RenumberAirways(c.M, c.Ui);
                    NetworkChanged(c);
                }},
    MenuCommand{"mnuchecknumbers", -1,
                [](CommandContext& c) {
                    CheckAirwayNumbers(c.M, c.Ui);
                    c.Host.RedrawAllWindows();
                }},
    MenuCommand{"mnuRevCoord", -1, SwapXY},
    MenuCommand{"mnuClrSmoke", -1,
                [](CommandContext& c) {
                    contaminant::ClearContaminant(c.M, c.Ui, c.Hooks);
                    c.Host.RedrawAllWindows();
                }},
    MenuCommand{"mnuClrSources", -1,
                [](CommandContext& c) {
                    contaminant::ClearSourcing(c.M);
                    c.Host.RedrawAllWindows();
                }},
    MenuCommand{"mnuRemoteStation", -1, nullptr, "mnuRemoteStation"},
    MenuCommand{"mnuRealOut", -1, nullptr, "mnuRealOut"},
    MenuCommand{"mnuFindResFans", -1, nullptr, nullptr, RunMode::FindRestrictiveFans},
    MenuCommand{"mnuDupAir", -1, nullptr, nullptr, RunMode::FindDuplicates},
    MenuCommand{"mnuProblems", -1, nullptr, nullptr, RunMode::FindBulkheads},
    MenuCommand{"mnuRemoveRedund", -1, nullptr, nullptr, RunMode::RemoveBulkheads},
    MenuCommand{"mnnuNonConverge", -1, nullptr, nullptr, RunMode::FindNonConverging},
    MenuCommand{"mnuResetAirflows", -1,
                [](CommandContext& c) {
                    simulate::ReseedAirflows(c.M, c.Ui);
                    c.Host.RedrawAllWindows();
                }},
    MenuCommand{"mnuOptionShow", -1, nullptr, "mnuOptionShow"},
    MenuCommand{"mnuReverse", -1, ReverseAxis},
    // Help.
    MenuCommand{"mnuAbout", -1, nullptr, "mnuAbout"},
};

const MenuCommand* Find(std::string_view name) {
    const auto found =
        std::find_if(kCommands.begin(), kCommands.end(), [name](const MenuCommand& e) { return e.Name == name; });
    if (found != kCommands.end()) return &*found;
    // A member of a menu array may be named with its index in brackets: mnuFinder(5).
    const std::size_t open = name.find('(');
    if (open == std::string_view::npos || name.size() < open + 3 || name.back() != ')') return nullptr;
    const std::string plain =
        std::string(name.substr(0, open)) + std::string(name.substr(open + 1, name.size() - open - 2));
    if (plain.find_first_of("()") != std::string::npos) return nullptr;
    return Find(plain);
}

// After undo or redo every window shows the table as it now stands.
void ShowRowsChanged(CommandContext& c) {
    c.M.NetworkSaved = No0;
    RebuildCurrentView(c);
    c.Host.RedrawAllWindows();
    c.Host.RefreshControls();
}

} // namespace

void UndoCommand(CommandContext& c) {
    if (c.Undo.Undo(c.M, c.Ui)) ShowRowsChanged(c);
}

void RedoCommand(CommandContext& c) {
    if (c.Undo.Redo(c.M, c.Ui)) ShowRowsChanged(c);
}

CommandResult RunMenuCommand(CommandContext& c, std::string_view name) {
    const MenuCommand* command = Find(name);
    if (!command) return CommandResult::Unknown;
    if (command->ToolValue >= 0) {
        c.Host.RunToolCommand(command->ToolValue);
    } else if (command->Run) {
        command->Run(c);
    } else if (command->Form) {
        if (!c.Host.OpenForm(command->Form)) return CommandResult::Unavailable;
    } else {
        c.Host.Troubleshoot(command->Trouble);
    }
    c.Host.RefreshMenuTicks();
    return CommandResult::Done;
}

bool ToolCommandAvailable(int value) {
    switch (value) {
    case edit::cmd::Zoom:
    case edit::cmd::Fit:
    case edit::cmd::Draw:
    case edit::cmd::Redo:
    case edit::cmd::Move:
    case edit::cmd::Reverse:
    case edit::cmd::Fan:
    case edit::cmd::Names:
    case edit::cmd::Edit:
    case edit::cmd::Insert:
    case edit::cmd::Contaminant:
    case edit::cmd::Info:
    case edit::cmd::Simulate:
    case edit::cmd::Pins:
    case edit::cmd::Centre:
    case edit::cmd::Open:
    case edit::cmd::Save:
    case edit::cmd::Undo:
    case edit::cmd::Delete:
    case edit::cmd::Select:
    case edit::cmd::Attributes:
    case edit::cmd::AttributesToDefaults:
    case edit::cmd::Layers:
    case edit::cmd::Follow:
    case edit::cmd::FindNext:
    case edit::cmd::Toggle3D:
    case edit::cmd::Grid:
    case edit::cmd::DisplayOptions:
    case edit::cmd::SingleMulti:
    case edit::cmd::UpdateScreen:
    case edit::cmd::Smoke:
    case edit::cmd::Sourcing: return true;
    default: return false;
    }
}

bool IsMenuCommand(std::string_view name) { return Find(name) != nullptr; }

std::vector<std::string_view> MenuCommandNames() {
    std::vector<std::string_view> names;
    for (const MenuCommand& e : kCommands) names.push_back(e.Name);
    return names;
}

} // namespace karvane::commands
