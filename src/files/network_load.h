// Loading a network file of any version from 1.0 to the current one into the model, merging a
// second file behind the network in memory, and the open dialog that leads to both.
#pragma once

#include <cstdint>
#include <string>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

inline constexpr const char* NetworkFileFilter =
    "Karvane Data (*.sim)|*.sim|Master Files (*.smm)|*.smm|All Files (*.*)|*.*";

// What a load found out, for the layers above that act on it.
struct LoadReport {
    double FileVersion = 0;
    char FileSeparator = 0;         // the file's decimal separator when it is not this machine's
    bool EstimateDiameters = false; // the answer to the total pressure question
    // A view 0 ("startupview") came with the file. The display applies it and draws; without
    // one it rebuilds the display list and fits the view to the network.
    bool StartupViewRead = false;
    bool NetworkChanged = false;  // the network in memory was replaced or added to
    bool Completed = false;       // the file was read to its end
    bool AirwaysCut = false;      // the airway capacity stopped the read
    std::int16_t FanOffset = 0;   // added to the fan numbers of merged airways
    std::int32_t FirstNewRow = 1; // the first row that the file filled
    // The level in view after the load: the row of the level list and the level a plan view's
    // cursor lies at. CurrentRLMin and CurrentRLMax of the model are already set.
    std::int16_t CurrentLevel = 1;
    std::int32_t CurRL = 0;
    int FanCountInFile = 0; // the count on the heading of the fan section
};

struct LoadOptions {
    // The recovery file: it goes to the front of the recent files without being searched for.
    bool Recovery = false;
    // The row the file's airways start at. Above 1 the file is merged: its rows are appended
    // there, and its header, settings, views and layers are passed over.
    std::int32_t FirstLoadRow = 1;
    // Merging: the levels of the file fill the rows behind this one (line i goes to row
    // i + RLOffset, rows 250 and beyond are dropped).
    std::int32_t RLOffset = 0;
    // A failed step of the read may be tried again as often as the user answers Yes; after this
    // many tries of one step the load ends as if answered No, so a batch run never loops.
    int MaxRetries = 10;
    LoadReport* Report = nullptr; // filled when given
};

// Reads the network file at path into the model; LoadOptions::FirstLoadRow above 1 merges it.
// A file of another machine's decimal separator reads the same. Afterwards the levels are
// sorted and the current level chosen, the layers switched on, node keys and resistances
// rebuilt and the simulation marked as not valid; applying view 0 or fitting the view is the
// display's (see LoadReport::StartupViewRead). A plain load names the network after path
// (FileName); a merge keeps the network's name. A failure of a step asks whether to go on;
// ending a plain load keeps what was read, rebuilt the same way, and blanks FileName so that
// the partial network is never saved over the file. Returns whether the file was read to its end.
bool LoadNetwork(Model& model, const std::string& path, ui::UserInterface& ui, const LoadOptions& options = {});

// The open dialog: starts in the folder kept under "Files"/"DefaultDir", keeps the folder of
// the choice there, and loads the file chosen. A file that could not be read at all leaves the
// network in memory with its old name. Returns whether a file was chosen and read.
bool OpenNetworkDialog(Model& model, ui::UserInterface& ui);
bool OpenNetworkDialog(Model& model, ui::UserInterface& ui, const LoadOptions& options);

// The Merge command: a second file's airways, fans and levels go behind the network in memory.
// Its levels are kept once each, its airways take new numbers behind the existing ones, and
// the rows are keyed and sorted. The network keeps its own name, note, settings and views.
void MergeNetwork(Model& model, ui::UserInterface& ui);

} // namespace karvane::files
