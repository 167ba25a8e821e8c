// The main window commands by their documented control names (mnuUndo, mnuFixL, mnuAutoName,
// ...): one table, so that any command is found by its menu name. The desktop program's menus
// and the script of the user's actions both come here.
#pragma once

#include <string_view>
#include <vector>

#include "commands/command_host.h"

namespace karvane::commands {

enum class CommandResult {
    Done,
    Unknown,     // no command has this name
    Unavailable, // the command exists but this host has no form for it
};

// Runs a command by its control name.
CommandResult RunMenuCommand(CommandContext& c, std::string_view name);
// Whether a command has this control name.
bool IsMenuCommand(std::string_view name);
// Every control name of the table, in menu order.
std::vector<std::string_view> MenuCommandNames();

// Whether the work of a tool bar command value is part of this program: a command that is not
// is refused with a word to the user, and its buttons and entries stay disabled.
bool ToolCommandAvailable(int value);

// Undo and Redo (mnuUndo, mnuRedo, Backspace, Tab, tool bar values 23 and 5): the log steps
// back or forward, and every window shows the table as it now stands.
void UndoCommand(CommandContext& c);
void RedoCommand(CommandContext& c);

} // namespace karvane::commands
