// The airway dialogs of the main window in one place: the airway editor (at most one open,
// modeless), the information card, the shock calculator under the editor and the fan tool's
// dialog, with the hold between the editor and the card. The main window's edit host hands
// its ShowAirwayEditor, ShowFanDialog and ShowAirwayInfo to this.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "files/undo_log.h"
#include "forms/air_edit.h"
#include "model/model.h"
#include "ui/user_interface.h"

class QWidget;

namespace karvane::dialogs {

class AirEditDialog;
class AirInfoDialog;

class AirwayDialogs : public QObject {
    Q_OBJECT
public:
    struct Hooks {
        std::function<void()> RedrawAll;     // every view window drawn again
        std::function<void()> EditFinished;  // the main window's edit state cleared, lists refreshed
        std::function<float()> PickFraction; // where along the airway the last pick lay
    };

    AirwayDialogs(Model& model, ui::UserInterface& ui, files::UndoLog& undo, char decimalSep, QWidget* window,
                  Hooks hooks);
    ~AirwayDialogs() override;

    void ShowAirwayEditor(std::int32_t row, int mode);
    bool ShowFanDialog(std::int32_t row);
    void ShowAirwayInfo(std::int32_t row);

    AirEditDialog* editor() const;
    AirInfoDialog* info() const;
    forms::AirEditMemory& memory() { return memory_; }

private:
    void EditorClosed(const forms::AirEditClose& closed);
    std::int32_t RowOf(std::int32_t airwayNo) const;

    Model& model_;
    ui::UserInterface& ui_;
    files::UndoLog& undo_;
    char sep_;
    QWidget* window_;
    Hooks hooks_;
    forms::AirEditMemory memory_;
    QPointer<AirEditDialog> editor_;
    QPointer<AirInfoDialog> info_;
};

} // namespace karvane::dialogs
