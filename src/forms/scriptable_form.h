// Forms that the script of the user's actions can fill in: one small interface over a form's
// logic, and the table of forms by the name of the menu entry (mnuFanData) or the form
// (frmAirEdit) that opens them. A script line "field NAME VALUE" types into a control by its
// documented name, "cell ROW COL VALUE" into a grid cell, "button NAME" presses a button.
// A form whose logic lives in this folder adds one line to the table in form_registry.cpp.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "display/view_state.h"
#include "edit/find.h"
#include "files/undo_log.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// Each member returns an empty text when it acted, otherwise the reason it could not (no such
// control, a value the control cannot hold), which the script reports with its line.
class ScriptableForm {
public:
    virtual ~ScriptableForm() = default;
    // A control by its documented name (TxtFlow, CheckFix, CmbRL, OptType(2)), given the text
    // the user would type or the item the user would choose ("1"/"0" ticks a check box).
    virtual std::string SetField(const std::string& name, const std::string& value) = 0;
    // A cell of the form's grid, rows and columns numbered as the grid shows them.
    virtual std::string SetCell(int /*row*/, int /*col*/, const std::string& /*value*/) {
        return "this form has no grid";
    }
    // A button by its control name (cmdOK, cmdCancel, SaveGrid).
    virtual std::string PressButton(const std::string& name) = 0;
    // Whether the form has closed (OK, Cancel, or a button that closes it), and whether it
    // closed by applying what it shows (OK). Most forms only set the two flags below.
    virtual bool Closed() const { return closed_; }
    virtual bool Accepted() const { return accepted_; }
    // The frame's close box.
    virtual void Close() { closed_ = true; }

protected:
    bool closed_ = false;
    bool accepted_ = false;
};

// What a form is opened with.
struct FormContext {
    Model& M;
    display::DisplayState& Ds;
    ui::UserInterface& Ui;
    files::UndoLog& Undo;
    std::int32_t Row = 0; // the airway a tool opened the form for (frmAirEdit, the fan dialog)
    int Mode = 0;         // frmAirEdit: 1 one airway, 3 the selected airways
    // After a form applied: the views show the new state (display list rebuilt, redraw).
    std::function<void()> Changed;
    // Where a form that finds an airway shows it (the list finders); null when nothing can.
    edit::FinderHost* Finder = nullptr;
};

// The form opened by a menu entry or form name, or nothing when no scriptable form has it.
std::unique_ptr<ScriptableForm> OpenScriptableForm(std::string_view name, FormContext& context);
// Whether a scriptable form has this name.
bool IsScriptableForm(std::string_view name);

// Helpers for the forms' SetField: the index of a control array member ("OptType(2)" gives
// name "OptType" and 2; a plain name gives -1), and a check box value ("1", "0", "yes", "no",
// "true", "false", "on", "off"); nothing for another text.
struct ControlName {
    std::string Name;
    int Index = -1;
};
ControlName SplitControlName(const std::string& text);
std::optional<bool> CheckValue(const std::string& text);

} // namespace karvane::forms
