// frmCoords ("Coordinate Entry"): a point typed in by hand for the start or end of a drawn or
// moved airway, or a relative move of a fence or of the selection. A plain struct of its
// fields in the display's length unit, filled from a request, checked key by key and turned
// into world metres on OK.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "edit/edit_host.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

inline constexpr const char* CoordsCaption = "Coordinate Entry";

struct CoordsFields {
    std::string TxtX, TxtY, TxtZ;                      // the point, in the length unit
    std::string TxtdX = "0", TxtdY = "0", TxtdZ = "0"; // "Relative Move"
    bool AbsoluteEnabled = true;                       // TxtX, TxtY, TxtZ in use
    bool CopyVisible = false;                          // ChkCopy ("Make a copy") shown
    bool ChkCopy = false;
    std::vector<std::string> LevelNames; // CmbRL: the named levels of the level list
    std::vector<int> LevelRows;          // their rows
    int CmbRL = -1;                      // the level chosen, -1 none
};

// The form as it opens for a request.
CoordsFields OpenCoordsForm(const Model& model, const edit::CoordsRequest& request);
// CmbRL: TxtZ takes the middle of the chosen level.
void ChooseCoordsLevel(const Model& model, CoordsFields& fields, int index);
// Whether a key may go into a box: digits, a sign, the decimal point (either separator) and
// the editing keys (backspace, delete).
bool CoordsKeyAllowed(char key);
// OK: X, Y, Z = the absolute entry (when its boxes are in use) plus the relative entry, in
// world metres. With the absolute boxes in use, |X| or |Y| above 10000000 or |Z| above
// 9999999 is refused with "Coordinates exceed allowed values"; a value no whole metre can
// hold with "Error in coordinate entry - please check". Nothing is returned after a refusal.
std::optional<edit::CoordsResult> AcceptCoordsForm(const Model& model, const CoordsFields& fields,
                                                   ui::UserInterface& ui);

// The values a script or a test types into the form, as text in the length unit; an empty
// relative box stays at 0.
struct CoordsEntry {
    std::string X{}, Y{}, Z{};
    std::string dX{}, dY{}, dZ{};
    bool Copy = false;
};
// Opens the form for the request, types the entry (the absolute boxes only when in use, the
// copy box only when shown) and presses OK.
std::optional<edit::CoordsResult> EnterCoords(const Model& model, const edit::CoordsRequest& request,
                                              const CoordsEntry& entry, ui::UserInterface& ui);

} // namespace karvane::forms
