// frmRLBase ("Level List"): the Qt face of the levels editor; the rules live in
// forms::LevelListForm.
#pragma once

#include <QDialog>

#include "forms/level_list_form.h"

class QTableWidget;

namespace karvane::dialogs {

class GridEditor;

class LevelListDialog : public QDialog {
    Q_OBJECT
public:
    LevelListDialog(Model& model, display::DisplayState& ds, ui::UserInterface& ui, QWidget* parent = nullptr);
    forms::LevelListForm& Form() { return form_; }
    GridEditor* Editor() const { return editor_; }
    QTableWidget* Table() const { return table_; }
    bool Press(const std::string& name);
    void Refresh();

protected:
    void reject() override; // the frame's close control acts as RLCancel

private:
    forms::LevelListForm form_;
    QTableWidget* table_;
    GridEditor* editor_;
};

} // namespace karvane::dialogs
