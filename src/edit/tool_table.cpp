// The tool table.
#include "edit/tool_table.h"

#include <array>

namespace karvane::edit {

namespace {

// Values 0 to 31 in order, then 91, which has no button.
constexpr std::array<ToolCommand, 33> kCommands{{
    {0, tool::Zoom, "Zoom / Pan  [F2]", key::F2, "Zoom / Pan", "Magnify", "Hand"},
    {1, -1, "Fit all data on screen [Home]", key::Home, "Fit", "", ""},
    {2, tool::Layers, "Copy (right)  Paste (left) Layers", 0, "", "Tag", "Tag"},
    {3, -1, "Find airway/error", 0, "", "", ""},
    {4, tool::Draw, "Draw new airway [F3]", key::F3, "Add Airway", "Cross", "Cross"},
    {5, -1, "Redo [TAB]", key::Tab, "Redo", "", ""},
    {6, tool::Move, "Move airway end [F5]", key::F5, "Move", "Move", "Move"},
    {7, tool::Reverse, "Reverse airway direction [F6]", key::F6, "Reverse", "Reverse", "Reverse"},
    {8, tool::Delete, "Delete airway [F4]", key::F4, "Delete", "Delete", "Delete"},
    {9, tool::Fan, "Place / remove fan [F8]", key::F8, "Add Fan", "Fan", "Fan"},
    {10, tool::Names, "Place/Remove Text [F7]", key::F7, "Name", "Alpha", "Alpha"},
    {11, tool::Contaminant, "Place / Remove contaminant", 0, "Contaminate", "Cloud", "Cloud"},
    {12, tool::Edit, "Edit airway [F10]", key::F10, "Edit", "Edit", "Edit"},
    {13, tool::Info, "Airway information [F9]", key::F9, "Info", "Info", "Info"},
    {14, -1, "Air simulation [F12]", key::F12, "", "", ""},
    {15, tool::Insert, "Insert node along airway", 0, "Insert Node", "Insert", "Insert"},
    {16, tool::Follow, "Follow airway", 0, "", "", ""},
    {17, tool::Pins, "Place/remove smoke report - left (smoke) or right (clear)", 0, "", "Trace", "Trace"},
    {18, tool::Centre, "Centre Model (left) or Rotate (right)", 0, "", "Rotate", "Rotate"},
    {19, -1, "Open file", 0, "", "", ""},
    {20, -1, "Save file to disk", 0, "", "", ""},
    {21, tool::Attributes, "Copy (right) or Paste (left) airway attributes", key::F11, "", "Copy", "Copy"},
    {22, -1, "Print screen", 0, "", "", ""},
    {23, -1, "Undo [B/SPACE]", key::Backspace, "Undo", "", ""},
    {24, -1, "Toggle 2D-3D Display", 0, "", "", ""},
    {25, -1, "Grid on/off", 0, "", "", ""},
    {26, -1, "Display options", 0, "", "", ""},
    {27, -1, "Single / Multi level display", 0, "", "", ""},
    {28, -1, "Update Screen", key::Escape, "", "", ""},
    {29, -1, "Contaminant simulation", 0, "", "", ""},
    {30, -1, "Smoke sourcing simulation", 0, "", "", ""},
    {31, tool::Select, "Select airway tool (ESC to deselect)", 0, "", "", ""},
    {91, tool::Attributes, "", 0, "", "Paste", "Paste"},
}};

} // namespace

std::span<const ToolCommand> ToolBarCommands() { return std::span<const ToolCommand>(kCommands.data(), 32); }

const ToolCommand* FindToolCommand(int value) {
    for (const ToolCommand& c : kCommands)
        if (c.Value == value) return &c;
    return nullptr;
}

int ToolOf(int value) {
    const ToolCommand* c = FindToolCommand(value);
    return c ? c->Tool : -1;
}

int CommandOfKey(int keyCode) {
    if (keyCode == 0) return -1;
    for (const ToolCommand& c : kCommands)
        if (c.Key == keyCode) return c.Value;
    return -1;
}

std::string CursorName(int value, int button) {
    const ToolCommand* c = FindToolCommand(value);
    if (!c) return {};
    return button == 1 ? c->CursorLeft : c->CursorRight;
}

} // namespace karvane::edit
