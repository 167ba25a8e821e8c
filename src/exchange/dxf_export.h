// The export of a network to a DXF drawing, in two forms: the true form writes every airway at
// its world coordinates in 3D, the screen form writes what the current view shows, flat, in
// window coordinates. Both write an ENTITIES section of lines, texts and circles on named layers.
// Also the export command that chooses the file and the form, text export included.
#pragma once

#include <functional>
#include <string>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::exchange {

// Layers of the drawing.
namespace layer {
inline constexpr const char* Float = "FLOAT";   // floating text
inline constexpr const char* Branch = "Branch"; // airway lines
inline constexpr const char* Arrow = "Arrow";   // the two lines of a direction arrow
inline constexpr const char* NodeNames = "NNAMES";
inline constexpr const char* BranchNames = "BNAMES";
inline constexpr const char* Data = "DATA";   // the value of the current data type
inline constexpr const char* Nodes = "NODES"; // circles at airway ends
} // namespace layer

// The comment lines of the screen form; the importer knows its own files by the first.
inline constexpr const char* DxfScreenBanner = "KARVANE******************************************KARVANE";
inline constexpr const char* DxfScreenCreated = "       DXF Export - Created ";

inline constexpr const char* ExportErrorText = "Error exporting File";
inline constexpr const char* ExportNameErrorText = "Error Export File - Check Name";

// frmExport ("DXF Export Options"): the six sizes as the boxes hold them, and the tick. A box
// counts by its leading number; an empty or non-numeric box is 0.
struct ExportFields {
    std::string TxtData;       // data text size (DxfData)
    std::string TxtNode;       // "Node Text Size" (DxfNode)
    std::string TxtAirway;     // "Airway Label Text Size" (DxfAirway)
    std::string TxtNodeCircle; // "Node Size" (DxfNodeCircle)
    std::string TxtArrow;      // "Arrow Size" (DxfArrow)
    std::string TxtFloat;      // "Floating Text Size" (DxfFloat)
    bool ChkVisible = false;   // "Export visible airways only"
};
inline constexpr const char* ExportDialogCaption = "DXF Export Options";

// Opening the dialog: the stored sizes, a size of 0 taking its start value (the font sizes of
// data values, branch names, node names and floating text; node circle and arrow stay 0).
ExportFields FillExport(const Model& model);
// The Export button: the six sizes and the tick go into the settings.
void ApplyExport(Model& model, const ExportFields& fields);

// Writes the true form with the sizes of the settings. Coordinates are in the length unit of
// the current unit system; sizes are taken as they stand. Floating text is written in a plan
// view with floating text shown. Returns whether the file was written; a failure tells the user
// "Error exporting File" and leaves any file that was there as it was.
bool ExportDxfTrue(const Model& model, const display::DisplayState& ds, const std::string& file, ui::UserInterface& ui);

// Writes the screen form: the comment block first, the airways of the drawn list at their
// window coordinates (y negated, z 0), colours from the drawn colours, every arrow. The caller
// builds the drawn list before (a redraw does) and redraws afterwards.
bool ExportDxfScreen(const Model& model, const display::DisplayState& ds, const std::string& file,
                     ui::UserInterface& ui);

// The DXF colour number of a drawn colour: Colours(0) 3, (1) 1, (2) 4, (3) 5, (4) 0, (5) 1,
// (6) 7, (7) 6, the last match standing; a colour none of them matches (a dimmed or selected
// airway) gives 7.
int ScreenDxfColour(const Model& model, display::Colour drawn);

// Kinds of the export command.
namespace exportkind {
inline constexpr int Text = 0;
inline constexpr int DxfTrue = 1;
inline constexpr int DxfScreen = 2;
} // namespace exportkind

// Shows frmExport over the fields; false when the user cancelled.
using ExportDialog = std::function<bool(ExportFields&)>;

// The export command: the save dialog (for text "EXPORT.TXT", else "EXPORT.DXF"), then for the
// DXF forms the options dialog (none given: the fields as filled), then the export with the
// busy pointer on. No file chosen: "Error Export File - Check Name". Returns whether a file was
// written; the screen form asks the caller to redraw afterwards.
bool ExportFile(Model& model, const display::DisplayState& ds, ui::UserInterface& ui, int kind,
                const ExportDialog& dialog = {});

} // namespace karvane::exchange
