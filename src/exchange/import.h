// The import of airways from a drawing (the centre lines of a DXF file) or from the
// tab-separated text that the text export writes: the coordinates go into new rows, each row
// takes its sizes, friction and shock from the settings, and a level list is built for what
// came in. The file is chosen first, then frmImport asks how, and its Import button runs
// ImportFile.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::exchange {

// frmImport ("Import Data Options").
struct ImportFields {
    bool ChkMerge = false;  // "Merge Data": append; clear: the network and its levels go first
    bool ChkRL = false;     // "Attempt to create RL Database": a level for every distinct height
    bool ChkRDrive = false; // "Retain Drive Resistances": drives keep the file's resistance
    bool ChkRRaise = false; // "Retain Raise Resistances": raises keep the file's resistance
    bool ChkSize = false;   // "Force common airway size": no raises, every airway a drive
    std::string TxtXOffset, TxtYOffset, TxtZOffset; // added to each coordinate, in the length unit
    bool NegX = false, NegY = false, NegZ = false;  // the axis is negated after the offset
};
inline constexpr const char* ImportDialogCaption = "Import Data Options";

// Texts of the import.
inline constexpr const char* ImportLoadingText = "Loading data .....";
inline constexpr const char* ImportCapacityText = "Data exceeds maximum number of nodes!";
inline constexpr const char* ImportClipText =
    "Coordinate data exceeds 9999999 - it will be truncated to fit Karvane limits";
inline constexpr const char* ImportErrorTitle = "Import Error";
inline constexpr const char* ImportErrorText = "Error Loading Data - Do you wish to continue loading ?";
inline constexpr const char* SurfaceLevelTitle = "Surface Level";
inline constexpr const char* SurfaceLevelQuestion = "Place highest RL data on surface level?";
inline constexpr const char* RLAboveText = "Node exceeds Maximum RL Limits";
inline constexpr const char* RLBelowText = "Node exceeds Minimum RL Limits";
inline constexpr const char* RLCountText = "Maximum number of different RL's used!";
// A file that is neither .TXT nor .DXF is refused before anything changes.
inline constexpr const char* ImportKindText = "Only .TXT and .DXF files can be imported - nothing was changed";

// Coordinates above this are cut to their last seven digits.
inline constexpr double CoordinateLimit = 9999999;

// What an import did, for the display above it.
struct ImportReport {
    bool NetworkChanged = false;  // the network was replaced or added to
    bool ReadToEnd = false;       // the file was read to its end
    std::int32_t FirstNewRow = 0; // the first row of the import
    std::int32_t RowsRead = 0;    // rows the file gave
    std::int32_t ImportZMax = 0;  // range of Z1 of the new rows
    std::int32_t ImportZMin = 0;
    std::int16_t CurrentLevel = 1; // the level to show: the second of the list, or the first
};

// The whole import of the file at `importPath`, read as text when its name ends in "TXT" and as
// DXF when it ends in "DXF", in any case. Without ChkMerge the network and its level list are
// emptied first (the caller resets the undo log); a file that cannot be opened, or of another
// kind, is refused before anything changes. A fault in the file asks, once per import, "Error
// Loading Data - Do you wish to continue loading ?" ("Import Error"): Yes reads on, No keeps the
// rows read so far. The new rows are numbered behind the existing airways, finished with sizes,
// presets and layers, and a level list is built (with ChkRL the question "Place highest RL data
// on surface level?"). Ends with resistances and node keys rebuilt, the levels sorted and
// CurrentRLMin, CurrentRLMax set, NetworkSaved no; the caller rebuilds the display list, fits the
// view and redraws. Returns whether rows were imported.
bool ImportFile(Model& model, ui::UserInterface& ui, const std::string& importPath, const ImportFields& fields,
                ImportReport* report = nullptr);

// The open dialogs of the two import commands (mnuImportData text, MnuDXF drawing); nothing on
// Cancel.
std::optional<std::string> ChooseImportFile(ui::UserInterface& ui, bool dxf);

} // namespace karvane::exchange
