// fansdata.dat: the program's own fan database, the library of fans and their curves that the
// user may put in an airway. A network carries its own copy of the fans it was saved with.
#pragma once

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

inline constexpr const char* FanFileName = "fansdata.dat";

// Reads the file from the program folder (versions 1.0 and 1.5 onward). A failure says so by
// its code ("ERROR 9 occurred while loading fans." for a fan number outside the table) and
// leaves the fans read so far in place.
bool LoadFanDatabase(Model& model, ui::UserInterface& ui);
// Writes every fan that is not free, under a stamp one higher than the last. A failure says so
// and leaves the old file as it was.
bool SaveFanDatabase(Model& model, ui::UserInterface& ui);

// The Reload command: asks first, and on OK reads the file again over the database in memory.
void ReloadFanDatabaseCommand(Model& model, ui::UserInterface& ui);

} // namespace karvane::files
