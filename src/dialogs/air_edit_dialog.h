// The airway editor's window (frmAirEdit): Qt widgets named as the dialog's controls, bound to
// forms::AirEditForm, which holds every rule. The window is modeless; leaving it for another
// window of the program applies it as OK does, unless a child window holds it.
#pragma once

#include <QDialog>
#include <functional>
#include <map>

#include "forms/air_edit.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QWidget;

namespace karvane::dialogs {

class AirEditDialog : public QDialog {
    Q_OBJECT
public:
    // onClosed runs after every closing with what the closing asks of the main window.
    AirEditDialog(Model& model, ui::UserInterface& ui, files::UndoLog& undo, forms::AirEditMemory& memory,
                  char decimalSep, std::function<void(const forms::AirEditClose&)> onClosed, QWidget* parent = nullptr);

    // Opens (or reopens) the dialog on an airway row, mode 1 or 3; false for an empty network.
    bool OpenOn(std::int32_t row, int mode, float pickFraction);
    forms::AirEditForm& form() { return form_; }
    // The widgets show the form's fields again.
    void Refresh();
    QWidget* control(const char* name) const;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Build();
    QLineEdit* Box(forms::AirBox box, const char* name, const char* tip, bool number = true);
    void Close(const std::function<forms::AirEditClose()>& closing);
    void Finish(const forms::AirEditClose& closed);
    void CheckLeave();
    void RunShock();
    void Act(const std::function<void()>& action);

    forms::AirEditForm form_;
    forms::AirEditMemory& memory_;
    Model& model_;
    char sep_;
    std::function<void(const forms::AirEditClose&)> onClosed_;
    bool loading_ = false;
    bool busy_ = false;
    bool closing_ = false;

    std::map<QObject*, forms::AirBox> boxes_;
    std::map<forms::AirBox, QLineEdit*> edits_;
    QLabel* flowUnit_ = nullptr;
    QLabel* presUnit_ = nullptr;
    QLabel* lengthUnit_ = nullptr;
    QLabel* lblWidth_ = nullptr;
    QLabel* lblHeight_ = nullptr;
    QLabel* driveShape_ = nullptr;
    QLabel* resLabel_ = nullptr;
    QLabel* wallLabel_ = nullptr;
    QLabel* shockLabel_ = nullptr;
    QCheckBox *checkFix_ = nullptr, *chkPress_ = nullptr, *checkLength_ = nullptr;
    QCheckBox *chkFixRes_ = nullptr, *chkFixK_ = nullptr, *chkShock_ = nullptr;
    QComboBox *resCombo_ = nullptr, *wallCombo_ = nullptr, *shockCombo_ = nullptr;
    QComboBox* fanCombo_ = nullptr;
    QScrollBar* vsf_ = nullptr;
    QRadioButton* optcurve_[3] = {};
    QRadioButton *optSer2_ = nullptr, *optPar2_ = nullptr;
    QGroupBox* fanGroup_ = nullptr;
    QComboBox* remote_ = nullptr;
    QLabel* remoteLabel_ = nullptr;
    QComboBox *cmbPrimary_ = nullptr, *cmbSecond_ = nullptr;
    QCheckBox *checkService_ = nullptr, *checkDirection_ = nullptr;
    QCheckBox* optAirType_[2] = {};
    QCheckBox *optShowData_ = nullptr, *chkSurfaceEntry_ = nullptr, *chkSurfaceExit_ = nullptr;
    QPushButton *info_ = nullptr, *reset_ = nullptr;
};

} // namespace karvane::dialogs
