// The second tool bar of the main window: the data type lists with the unit, the level list
// and its scroll bar, the list of named views, the coordinate labels with the centre of the
// view, and the simulation light. Each list shows the current view's choice and a choice made
// in it changes the view.
#pragma once

#include <QObject>
#include <string>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

class QComboBox;
class QLabel;
class QMainWindow;
class QScrollBar;
class QToolBar;

namespace karvane::shell {

class ViewWindowManager;

class ListBar : public QObject {
    Q_OBJECT
public:
    // What a choice in the lists needs of the main window after the view changed.
    class Owner {
    public:
        virtual ~Owner() = default;
        virtual void UpdateMenuTicks() = 0;
        // The level list, the captions and a redraw after the level selection changed.
        virtual void AfterLevelChange() = 0;
        // The coordinate labels and the title.
        virtual void ShowViewStatus() = 0;
    };

    // The bar is added to main on a row of its own.
    ListBar(QMainWindow& main, Model& model, display::DisplayState& ds, ui::UserInterface& ui, ViewWindowManager& views,
            Owner& owner);

    QToolBar* Bar() const { return bar_; }

    void FillDataTypeLists();
    // The data type of the current view in the lists, with its unit.
    void ShowDataType();
    // A data type chosen from the View menu.
    void ChooseDataType(int dataType);
    void FillLevelList();
    void ShowLevel();
    void FillViewList();
    // A named view shown as the list's choice, without choosing it.
    void ShowNamedView(const std::string& name);
    // The list's place and text of the named view on show; -1 when none.
    int NamedViewPosition() const;
    std::string NamedViewAt(int position) const;
    // The coordinate and centre labels from the display state's labels.
    void ShowLabels();
    // The light and the data type lists in the colours of the simulation's state.
    void ShowSimIndicator();

private:
    void OnDataGroupChosen(int index);
    void OnDataValueChosen(int index);
    void OnLevelChosen(int index);
    void OnLevelScrolled(int value);
    void OnViewChosen(int index);

    Model& model_;
    display::DisplayState& ds_;
    ui::UserInterface& ui_;
    ViewWindowManager& views_;
    Owner& owner_;
    bool loading_ = false; // the lists are being filled: their signals are not the user's

    QToolBar* bar_ = nullptr;
    QComboBox* cmbDataType_ = nullptr;
    QComboBox* cmbDataVal_ = nullptr;
    QLabel* lblUnit_ = nullptr;
    QComboBox* cmbRL_ = nullptr;
    QScrollBar* vsbRL_ = nullptr;
    QComboBox* cmbView_ = nullptr;
    QLabel* lblX_ = nullptr;
    QLabel* lblY_ = nullptr;
    QLabel* lblRL_ = nullptr;
    QLabel* lblCentreX_ = nullptr;
    QLabel* lblCentreY_ = nullptr;
    QLabel* lblSim_ = nullptr;
};

} // namespace karvane::shell
