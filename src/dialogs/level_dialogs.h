// The two level dialogs of the View menu: several levels at once (frmSelLevel) and a range of
// levels (frmRange). Both only gather rows of the level list; the display's level selector
// applies them.
#pragma once

#include <QDialog>
#include <vector>

#include "model/model.h"
#include "ui/user_interface.h"

class QComboBox;
class QListWidget;

namespace karvane::dialogs {

// frmSelLevel: a double click moves a level from "Available Levels" to "Selected Levels" (at
// most six) and back.
class SelectLevelsDialog : public QDialog {
    Q_OBJECT
public:
    SelectLevelsDialog(const Model& model, const std::vector<int>& selected, ui::UserInterface& ui,
                       QWidget* parent = nullptr);
    // The rows chosen, in the order chosen.
    const std::vector<int>& Selected() const { return selected_; }
    // Moves a row of the level list into the selection, as a double click on it does.
    bool Choose(int row);

private:
    void Refill();

    const Model& model_;
    ui::UserInterface& ui_;
    std::vector<int> selected_;
    QListWidget* available_;
    QListWidget* chosen_;
};

// frmRange: the upper bound of the first level and the lower bound of the second.
class RangeDialog : public QDialog {
    Q_OBJECT
public:
    RangeDialog(const Model& model, int currentRow, QWidget* parent = nullptr);
    int FirstRow() const;
    int SecondRow() const;
    QComboBox* First() const { return first_; }
    QComboBox* Second() const { return second_; }

private:
    QComboBox* first_;
    QComboBox* second_;
};

} // namespace karvane::dialogs
