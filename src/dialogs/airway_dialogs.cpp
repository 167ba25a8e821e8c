// The airway dialogs of the main window.
#include "dialogs/airway_dialogs.h"

#include <QApplication>
#include <QWidget>

#include "dialogs/air_edit_dialog.h"
#include "dialogs/air_info_dialog.h"
#include "dialogs/fan_edit_dialog.h"

namespace karvane::dialogs {

AirwayDialogs::AirwayDialogs(Model& model, ui::UserInterface& ui, files::UndoLog& undo, char decimalSep,
                             QWidget* window, Hooks hooks)
    : QObject(window),
      model_(model),
      ui_(ui),
      undo_(undo),
      sep_(decimalSep),
      window_(window),
      hooks_(std::move(hooks)) {}

AirwayDialogs::~AirwayDialogs() = default;

AirEditDialog* AirwayDialogs::editor() const { return editor_; }

AirInfoDialog* AirwayDialogs::info() const { return info_; }

std::int32_t AirwayDialogs::RowOf(std::int32_t airwayNo) const {
    for (std::int32_t r = 1; r <= model_.AirwayCount; ++r) {
        const Airway& a = model_.Airways[static_cast<std::size_t>(r)];
        if (a.AirwayNo == airwayNo && a.BranchCode != 0) return r;
    }
    return 0;
}

void AirwayDialogs::ShowAirwayEditor(std::int32_t row, int mode) {
    if (!editor_) {
        editor_ = new AirEditDialog(
            model_, ui_, undo_, memory_, sep_, [this](const forms::AirEditClose& c) { EditorClosed(c); }, window_);
    }
    // At most one editor: one that is open on another airway is closed as Cancel closes it.
    if (editor_->isVisible()) editor_->close();
    const float pick = hooks_.PickFraction ? hooks_.PickFraction() : 0.5f;
    editor_->OpenOn(row, mode, pick);
}

void AirwayDialogs::EditorClosed(const forms::AirEditClose& closed) {
    if (hooks_.EditFinished) hooks_.EditFinished();
    QApplication::processEvents();
    if (closed.Redraw && hooks_.RedrawAll) hooks_.RedrawAll();
    if (closed.OpenInfo) ShowAirwayInfo(closed.InfoRow);
}

bool AirwayDialogs::ShowFanDialog(std::int32_t row) {
    FanEditDialog dialog(model_, ui_, sep_, window_);
    const bool applied = dialog.Run(row);
    if (applied && hooks_.RedrawAll) hooks_.RedrawAll();
    return applied;
}

void AirwayDialogs::ShowAirwayInfo(std::int32_t row) {
    if (!info_) {
        info_ = new AirInfoDialog(
            model_, sep_,
            [this](std::int32_t airwayNo) {
                const std::int32_t r = RowOf(airwayNo);
                if (r == 0) {
                    ui_.Message("The airway being edited no longer exists", ProgramName, ui::Icon::Exclamation);
                    return;
                }
                ShowAirwayEditor(r, forms::AirEditSingle);
            },
            [this] {
                if (!model_.Set.ScreenBuffer && hooks_.RedrawAll) hooks_.RedrawAll();
            },
            window_);
    }
    // The card holds an editor that is open from being applied by the change of window.
    if (editor_ && editor_->isVisible()) memory_.Hold = true;
    info_->ShowCard(row);
}

} // namespace karvane::dialogs
