// frmCoords ("Coordinate Entry") on the screen: the boxes of the coordinate entry form, opened
// centred and modal for a point or a relative move.
#pragma once

#include <optional>

#include "edit/edit_host.h"
#include "model/model.h"
#include "ui/user_interface.h"

class QWidget;

namespace karvane::dialogs {

// Runs the dialog for a request; the entry on OK, nothing on Cancel or after a refused entry
// (the form has told the user why).
std::optional<edit::CoordsResult> RunCoordsDialog(const Model& model, ui::UserInterface& ui,
                                                  const edit::CoordsRequest& request, char decimalSep, QWidget* parent);

} // namespace karvane::dialogs
