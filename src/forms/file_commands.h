// The commands of the File menu round a network file: New, Open, the recent files, Save, Save
// As, Merge, the start with a network named on the command line, the offer to recover the
// autosave copy, and the questions before the program ends. Each asks what it must and calls
// the loader or the writer; what the views make of the result is the host's.
#pragma once

#include <string>

#include "files/network_load.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

// The file filter of the Save As dialog.
inline constexpr const char* SaveAsFilter = "Data Files (*.sim)|*.sim|Master Files (*.smm)|*.smm|All files (*.*)|*.*";

// What the file commands need of the windows.
class FileCommandHost {
public:
    virtual ~FileCommandHost() = default;
    // A network is about to be read: tools stop, a view window is opened when none is.
    virtual void BeforeLoad() {}
    // A network was read (whole or in part), merged or made new: the views show it, the title,
    // the level and view lists follow it.
    virtual void AfterLoad(const files::LoadReport& report) = 0;
    virtual void AfterMerge() = 0;
    virtual void AfterNewNetwork() = 0;
    // Before a save the current view is kept as the view the file starts with, and the note
    // window's text becomes the note; after it the note window shows the note with its stamp.
    virtual void BeforeSave() {}
    virtual void AfterSave() {}
    // The title bar and the recent file menu follow the model.
    virtual void TitleChanged() {}
    virtual void RecentFilesChanged() {}
};

// Whether a path ends in ".SIM" or ".SMM", in any case.
bool IsNetworkFileName(const std::string& path);
bool IsMasterFileName(const std::string& path);

// The network named on the command line: a path in double quotes loses them; a path that
// does not end in ".SIM" or ".SMM" names no network (empty result).
std::string CommandLineFile(std::string argument);

// "Network Data is not saved - Save it?" when the network has changes: Yes saves by the Save
// As road, No goes on, Cancel stops. Returns whether to go on.
bool AskToKeepChanges(Model& model, ui::UserInterface& ui, FileCommandHost& host);

// New: "Current Data will be lost ?" when the network has a name or airways; on OK an empty
// network with the level list of a new network and the fan database read again.
bool NewNetworkCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host);
// Open: the question above, then the open dialog, which loads.
bool OpenCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host);
// A click on recent file entry 1..9.
bool RecentFileCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host, int entry);
// Loads a named file (the command line, a file dropped on the program).
bool LoadNamedFile(Model& model, ui::UserInterface& ui, FileCommandHost& host, const std::string& path);

// Save: a master file or a network without a name goes by Save As.
bool SaveCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host);
// Save As: the dialog offers the name without its extension; Cancel puts the name back as it
// was and saves nothing.
bool SaveAsCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host);
// Merge: a second file behind the network in memory.
void MergeCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host);

// The autosave copy in the temporary folder.
std::string RecoveryFilePath(ui::UserInterface& ui);
// At start-up, when the copy exists: "An autosaved recovery file exists - do you wish to load
// this file"; Yes loads it and leaves the network without a name. Returns whether it was loaded.
bool OfferRecovery(Model& model, ui::UserInterface& ui, FileCommandHost& host);

// The questions before the program ends, about the network and then the defaults. Yes saves
// (a network without a name asks for one); a save that does not happen keeps the program
// open, as Cancel does. Returns whether the program may end.
bool ConfirmEnd(Model& model, ui::UserInterface& ui, FileCommandHost& host);
// The clean end: the recent files written and the autosave copy deleted.
void FinishEnd(Model& model, ui::UserInterface& ui);

// "Title Note": the note shown in the title bar.
void TitleNoteCommand(Model& model, ui::UserInterface& ui, FileCommandHost& host);

} // namespace karvane::forms
