// The network file (.sim, .smm): the writer of the current version, the text of one airway row
// and its parse, which the undo log shares. Reading a whole file of any version, and merging,
// is network_load.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/number_text.h"
#include "files/text_file.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

// Words and lines of the file.
inline constexpr const char* NetworkMagic = "KARVANE3";
inline constexpr const char* NetworkMagicStem = "KARVANE"; // all a reader tests
inline constexpr const char* DefaultsListLine = "Defaults List for Network";
inline constexpr const char* SavedViewsLine = "Saved Views";
inline constexpr const char* SavedViewsEnd = "End of saved views";
inline constexpr const char* StartupViewName = "startupview";
inline constexpr const char* TagListLine = "Tag List";
inline constexpr const char* TagListEnd = "End of Tag List";
inline constexpr const char* FanDatabaseEnd = "**End of Fan Database**";
inline constexpr const char* LevelListEnd = "**END OF RL LIST**";
inline constexpr const char* FloatingTextEnd = "**End Of Floating Text";
// The autosave copy in the temporary folder.
inline constexpr const char* AutosaveFileName = "tempsim.sim";
inline constexpr int AutosaveMode = 1;
inline constexpr int AirwayFieldCount = 39;

// The note travels on the header line: line feed, carriage return and tab become the
// characters 29, 30 and 31, one for one, and back.
std::string EscapeNote(std::string_view note);
std::string UnescapeNote(std::string_view text);

// "*** File Saved hh:mm:ss   ddd, d mmm yyyy ***", the stamp each save adds to the note.
std::string SaveStampText(const ui::DateTime& now);

// Writes the whole file, header to the last airway row, with `sep` as decimal separator.
// The caller has stored the view to start with in slot 0.
void WriteNetwork(TextFileWriter& out, Model& model, char sep);

// Saves the network. `mode` 1 is the autosave: the copy goes to tempsim.sim in the temporary
// folder, asks nothing and leaves FileName alone; any other mode saves FileName. The text goes
// to a temporary file that replaces the old one only once complete, so a failed save leaves
// the file on disk as it was. Returns whether the file was written.
//
// The display layer stores the current view in slot 0 before it calls this; here slot 0 only
// takes the name "startupview". While the note window is open, the shell adds the stamp to
// the window's text and takes that text back as FileNote after the call.
bool SaveNetwork(Model& model, ui::UserInterface& ui, int mode);

// The tab-separated text of one airway row, every number in plain form. The three names are
// trimmed and stored back first.
std::string AirwayRowText(Model& model, std::int32_t row, char sep);

// Splits a row text of a file of `version` and fills the row. Names and the comment keep their
// bytes (a comma or a full stop in a name stays as it was); numbers are read under either
// separator, so `sep` is the separator of this machine only for the record. Fields 26 to 31
// are stored only when present, so that an older, shorter row keeps what the row held.
void ParseAirwayRow(Model& model, ui::UserInterface& ui, std::string_view text, std::int32_t row, double version,
                    char sep);

// The field table of a row already split, numbered as the columns of the file, into the
// record; the old preset indices of `version` become custom. The reader of version 1.0 lays
// its items out in the same numbering.
void FillAirwayFromFields(Airway& airway, const Fields& fields, double version);

} // namespace karvane::files
