// frmFanData ("Fan List"): the Qt face of the fan database editor. Every rule lives in
// forms::FanDataForm; this dialog binds the list, the boxes, the table and the graph to it.
#pragma once

#include <QDialog>
#include <QWidget>

#include "forms/fan_data_form.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QTableWidget;

namespace karvane::dialogs {

class GridEditor;

// PicFan: the graph of the current fan, drawn through the core's surface.
class FanGraph : public QWidget {
    Q_OBJECT
public:
    FanGraph(const Model& model, const int& fan, char sep, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Model& model_;
    const int& fan_;
    char sep_;
};

class FanDataDialog : public QDialog {
    Q_OBJECT
public:
    FanDataDialog(Model& model, ui::UserInterface& ui, QWidget* parent = nullptr);
    forms::FanDataForm& Form() { return form_; }
    GridEditor* Editor() const { return editor_; }
    // Puts the form's fields back on the widgets.
    void Refresh();
    // A button or menu entry by its control name; closes the dialog when the form says so.
    bool Press(const std::string& name);

protected:
    void reject() override; // Escape and the frame's close control act as Cancel

private:
    void RefreshTable();
    void RefreshListRow(int fan);
    std::vector<forms::GridCell> SelectedCells() const;

    forms::FanDataForm form_;
    ui::UserInterface& ui_;
    bool loading_ = false;
    QListWidget* fanList_;
    QLineEdit* name_;
    QLineEdit* diam_;
    QCheckBox* chk_[3];
    QTableWidget* table_;
    GridEditor* editor_;
    FanGraph* graph_;
};

} // namespace karvane::dialogs
