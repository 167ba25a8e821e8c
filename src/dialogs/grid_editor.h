// The in-place editor of the dialogs' tables: a text box laid over the current cell of a table
// view (any model: a QTableWidget's or a large QAbstractTableModel), carrying out the key rules
// of forms::GridKeyStep, and the tables' copy, paste and clear. Used by the fan table, the level
// table, the units table and the network spreadsheet.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "forms/grid_edit.h"

class QLineEdit;
class QTableView;
class QTableWidget;
class QModelIndex;

namespace karvane::dialogs {

class GridEditor : public QObject {
    Q_OBJECT
public:
    // Takes over the view's editing: the view's own editors are switched off.
    GridEditor(QTableView* view, char decimalSep);

    // Which cells take the box; every cell unless set.
    std::function<bool(int row, int col)> Editable;
    // The cells the box moves over and a paste reaches; the whole model unless set.
    std::function<forms::GridLimits()> Limits;
    // A paste of clipboard text from the current cell down to the selection's last row. When
    // unset (or when it returns false) the cells are written through the model.
    std::function<bool(const QString& text, forms::GridCell from, int selectionLastRow)> PasteHandler;
    // Delete with the box closed; empties the selected editable cells through the model unless set.
    std::function<void()> ClearHandler;

    QTableView* View() const { return view_; }
    QLineEdit* Box() const { return box_; }
    bool IsOpen() const { return open_; }
    forms::GridCell Current() const;
    forms::GridLimits CurrentLimits() const;

    // Opens the box over the current cell: with `text` as its only content, or keeping the
    // cell's text when `keep` is set.
    void Open(bool keep, const QString& text = {});
    // Takes the box's text into its cell, hides the box and says so by cellCommitted. Returns
    // false when no box was open.
    bool Commit();
    // Closes the box, leaving the cell as it was.
    void CancelEdit();

    // One key, as the table or its open box would take it; true when the editor used it.
    bool Key(forms::GridKey key, const QString& typed = {});

    // The selected block as clipboard text, and onto the clipboard.
    QString SelectionText() const;
    void Copy();
    // The clipboard's text pasted from the current cell.
    void Paste();
    void PasteText(const QString& text);
    // Empties the selected editable cells.
    void ClearSelection();
    // The last row of the selection, at least the current row.
    int SelectionLastRow() const;

Q_SIGNALS:
    void cellCommitted(int row, int col);
    void cellsCleared();
    void pasted();
    void escapePressed(); // Escape with the box closed: the dialog's Cancel
    void boxTyped();      // any key typed in the box

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PlaceBox();
    void MoveTo(forms::GridCell cell);
    QModelIndex IndexAt(forms::GridCell cell) const;
    bool IsEditable(forms::GridCell cell) const;

    QTableView* view_;
    QLineEdit* box_;
    char sep_;
    bool open_ = false;
    bool committing_ = false;
    forms::GridCell boxCell_;
};

// The text of a cell of a table widget, the item made when there is none yet.
void SetCellText(QTableWidget* table, int row, int col, const QString& text, bool rightAligned);
// The selected block of a table (the current cell when nothing is selected): top, left,
// bottom, right.
forms::GridLimits SelectedBlock(const QTableView* view);

} // namespace karvane::dialogs
