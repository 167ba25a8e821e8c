// frmSpreadSheet ("SpreadSheet"): the network spreadsheet's window. A table view over a model
// that reads the grid's texts on demand, so that a mine of 30,000 airways makes no item per
// cell; the shared in-place editor; the menus of the spreadsheet by their control names. All
// rules live in forms::SpreadSheetForm.
#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <functional>

#include "forms/spreadsheet_form.h"

class QTableView;

namespace karvane::dialogs {

class GridEditor;

// The grid as Qt sees it: row i is grid row i + 1, column c the grid's column c (0 the key,
// hidden). Texts, red marks and alignments come from the form on demand.
class SheetTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit SheetTableModel(forms::SpreadSheetForm& form, QObject* parent = nullptr);
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // The form changed the grid: a new row count resets the view, else every cell is redrawn.
    void Refresh();

private:
    forms::SpreadSheetForm& form_;
    int rows_ = 0;
};

class SpreadSheetWindow : public QDialog, private forms::SpreadSheetHost {
    Q_OBJECT
public:
    struct Hooks {
        std::function<void(std::int32_t row)> EditAirway; // frmAirEdit on one airway, modal
        std::function<void(std::int32_t row)> AirwayInfo; // frmAirInfo on one airway
        std::function<void()> Simulate;                   // the airflow run of the main window
        std::function<void()> RefreshViews;               // annotation refreshed, views redrawn
    };

    SpreadSheetWindow(Model& model, display::DisplayState& ds, files::UndoLog& undo, ui::UserInterface& ui,
                      forms::SheetWidths& widths, Hooks hooks, QWidget* parent = nullptr);
    ~SpreadSheetWindow() override;

    forms::SpreadSheetForm& form() { return form_; }
    QTableView* table() const { return table_; }
    GridEditor* editor() const { return editor_; }
    // A menu entry by its control name, as the user would choose it.
    bool Trigger(const QString& name);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    // forms::SpreadSheetHost
    void ShowAirwayEditor(std::int32_t row) override;
    void ShowAirwayInfo(std::int32_t row) override;
    void RunSimulation() override;
    void RefreshViews() override;
    bool PrintTable(int fontSize) override;

    void BuildMenus();
    void Run(const char* name);
    void TakeSelection();
    void ShowSelection();
    void ApplyWidths();
    void KeepWidths();

    forms::SheetWidths& widths_;
    Hooks hooks_;
    forms::SpreadSheetForm form_;
    SheetTableModel* model_ = nullptr;
    QTableView* table_ = nullptr;
    GridEditor* editor_ = nullptr;
    bool closing_ = false;
};

} // namespace karvane::dialogs
