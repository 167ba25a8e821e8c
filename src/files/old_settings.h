// The settings forms of older Defaults.dat files, and the value rules that every settings reader
// shares: the friction conversion of old files, the held capacity, safe preset indices.
#pragma once

#include <cstdint>
#include <string>

#include "files/number_text.h"
#include "files/text_file.h"
#include "model/model.h"

namespace karvane::files {

// Friction factors of files below version 2.4 were kept at the true density: the stored preset
// is the value divided by 1.2, rounded to 4 decimals.
float OldFrictionValue(double value);
// The airway capacity field: a whole number held between 50 and 30000; it never changes the
// real capacity.
std::int32_t HeldCapacity(double value);
// A preset index of the settings (0..49, or 50 for a custom value), held in range so that no
// table is ever indexed outside itself.
std::int16_t HeldPresetIndex(double value);
// MaxFans of a file: 0 (or anything below 1) reads as 250.
std::int16_t ReadMaxFans(double value);
// UnitSys of a file: 1 SI or 2 British; 0 or anything else reads as 1.
std::int16_t ReadUnitSys(double value);
// A bulkhead written as 100000 or more means the blocked resistance.
void ApplyBlockedResRule(Model& model);
// An empty resistance name shows and reads as "undefined".
std::string ResNameOf(const std::string& field);

// The lines of a settings text one at a time, each cut into fields by the form of its version
// (commas up to 2.4, tabs above).
class SettingsLines {
public:
    SettingsLines(TextFileReader& in, double version) : in_(in), version_(version) {}
    // Reads and splits the next line; false at the end of the text.
    bool Next();
    const Fields& F() const { return fields_; }
    double Version() const { return version_; }
    // The closing line of a section, when the text has one.
    void SkipClosingLine();

private:
    TextFileReader& in_;
    double version_;
    std::string line_;
    Fields fields_{};
};

// How the names of a preset table are read: trimmed, or as resistance names, of which an empty
// one is "undefined" (the custom row 50 keeps its name when the file has none).
enum class PresetNames { Plain, Resistance };

// A line of names and a line of values for the preset rows first..last, from field 1 on.
// Friction values of files below 2.4 are converted. Returns an error code.
int ReadPresetLines(SettingsLines& lines, std::array<std::string, PresetRows + 1>& names,
                    std::array<float, PresetRows + 1>& values, int first, int last, PresetNames rule,
                    bool friction = false);

// Defaults.dat of versions 1.0 to 2.4: comma-separated items; `rest` is line 1 from its fifth
// character, "KARVANE2" announcing the 39 further resistance rows.
int ReadOldDefaultsCommaForm(TextFileReader& in, Model& model, double version, const std::string& rest);
// Defaults.dat above 2.4 up to 2.7: tab-separated preset lines and a settings line by position.
int ReadOldDefaultsLineForm(TextFileReader& in, Model& model, double version);

} // namespace karvane::files
