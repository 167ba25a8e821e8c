// The settings on disk: the defaults block (the same text in Defaults.dat and in every network
// file), Defaults.dat of every version, the older settings forms of network files, and the
// start-up step that fills the settings from the built-in values and Defaults.dat.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/text_file.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

inline constexpr const char* DefaultsFileName = "Defaults.dat";
inline constexpr const char* DefaultsBlockEnd = "**End of Network Defaults**";

// The version of a first line read as a network file's first line is read: the number in its
// first three characters, the second character taken as the decimal separator whatever it is,
// so that "3,1" and "3.1" both give 3.1.
double FirstLineVersion(std::string_view firstLine);

// Writes the block, lines 1 to 9, with `sep` as the decimal separator. The network file and
// Defaults.dat both come through here, so the two texts are the same bytes.
void WriteDefaultsBlock(TextFileWriter& out, const Model& model, char sep);

// Reads lines 2 to 9 of a block whose line 1 is `firstLine`. Returns an error code:
// err::PastEndOfFile when the text ends inside the block. Whatever was read before a failure
// stays in the model. `sep` is this machine's decimal separator; the readers of settings need
// it no longer, since names keep their bytes and numbers read under either separator.
int ReadDefaultsBlock(TextFileReader& in, Model& model, const std::string& firstLine, char sep);

// Reads Defaults.dat from the program folder, any version. Any failure (a missing file too)
// says "Error re-loading defaults" and leaves the values read so far over the earlier ones.
bool LoadDefaultsFile(Model& model, ui::UserInterface& ui);

// Writes Defaults.dat, then Conversion.dat and Remotes.dat, in the program folder. A failed
// write says so and leaves the old file in place.
bool SaveDefaultsFile(Model& model, ui::UserInterface& ui);

// The settings of old network files, read right behind their line "Defaults List for Network".
// Row form (versions 1.5 to 2.0): the preset tables only, one preset a line.
int ReadNetworkSettingsRowForm(TextFileReader& in, Model& model, double version, char sep);
// Line form (above 2.0 up to 2.7): six preset lines, the settings line and a closing line.
int ReadNetworkSettingsLineForm(TextFileReader& in, Model& model, double version, char sep);

// The start-up step of the settings: capacities, built-in values and presets, Defaults.dat,
// the station list, the fix-ups of the loaded values and the allocation of the network tables.
void LoadBuiltInSettings(Model& model, ui::UserInterface& ui);

// The Reload Defaults command: asks first, and on OK reloads and marks the defaults as saved.
void ReloadDefaultsCommand(Model& model, ui::UserInterface& ui);
// The Save Defaults command: writes the files and marks the defaults as saved.
void SaveDefaultsCommand(Model& model, ui::UserInterface& ui);

// What hangs on the settings and must follow them at once when they change. The autosave timer
// ticks every AutosaveMinutes x 6000 ms (a copy is made every 11th tick); 0 means no timer.
std::int32_t AutosaveIntervalMs(const Settings& set);
inline bool AutosaveEnabled(const Settings& set) { return AutosaveIntervalMs(set) > 0; }
// The real-time menus are shown while real-time monitoring is switched on.
inline bool RealTimeMenusVisible(const Settings& set) { return set.RealTimeOn != 0; }

} // namespace karvane::files
