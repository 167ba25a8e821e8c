// What the editing tools need from around them: the dialogs that a tool opens in the middle of
// its action (the coordinate entry, the airway editor, the fan dialog, the information card)
// and the redraws that follow an edit. The desktop program and the script of the user's
// actions both implement it, so that a tool acts the same with and without a window.
#pragma once

#include <cstdint>
#include <optional>

namespace karvane::edit {

// What the coordinate entry (frmCoords) is opened with: a point in world metres (SI) and which
// of its boxes are in use.
struct CoordsRequest {
    double X = 0, Y = 0, Z = 0; // the point offered in TxtX, TxtY, TxtZ
    bool Absolute = true;       // TxtX, TxtY, TxtZ enabled; off for a relative move of a fence
    bool OfferCopy = false;     // ChkCopy ("Make a copy") shown: a fence or a selection moves
    bool DuringPress = false;   // opened at a press: OK also sets the level shown
};

// What the coordinate entry gives back on OK, in world metres (SI): the absolute point where
// its boxes were in use plus the relative move.
struct CoordsResult {
    std::int32_t X = 0, Y = 0, Z = 0;
    std::int32_t dX = 0, dY = 0, dZ = 0; // the relative move alone (a fence or a selection)
    bool Copy = false;                   // ChkCopy: CopyMove
    std::int32_t Level = 0;              // the level (CurRL) chosen in CmbRL, 0 for none
};

class EditHost {
public:
    virtual ~EditHost() = default;

    // frmCoords, modal: the entry as the user left it on OK; nothing on Cancel or after a
    // refused entry (the form has already said why).
    virtual std::optional<CoordsResult> ShowCoords(const CoordsRequest& request) = 0;
    // frmAirEdit for one airway row (mode 1) or for the selected airways (mode 3).
    virtual void ShowAirwayEditor(std::int32_t row, int mode) = 0;
    // The fan dialog of the fan tool (frmFanEdit) for an airway row; true when it was applied.
    virtual bool ShowFanDialog(std::int32_t row) = 0;
    // frmAirInfo for an airway row.
    virtual void ShowAirwayInfo(std::int32_t row) = 0;

    // After an edit: the new airway drawn into every window without a rebuild of the picture
    // (QuickUpdateAllWindows), the current window redrawn, every window redrawn.
    virtual void QuickUpdateAllWindows() = 0;
    virtual void RedrawWindow() = 0;
    virtual void RedrawAllWindows() = 0;
};

} // namespace karvane::edit
