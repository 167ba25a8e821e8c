// Conversion.dat: title, headings, one line per unit class, "End".
#include "files/conversion_file.h"

#include "files/app_files.h"
#include "files/number_text.h"
#include "files/text_file.h"

namespace karvane::files {
namespace {

bool IsDigitPlace(char c) { return c == '0' || c == '#'; }

// "0,000", "#,##0", "0,000.00": a comma that groups thousands rather than a decimal comma.
bool IsThousandsGroup(const std::string& format, std::size_t comma) {
    std::size_t i = comma + 1, places = 0;
    while (i < format.size() && IsDigitPlace(format[i])) ++i, ++places;
    return places == 3 && (i == format.size() || format[i] == '.');
}

} // namespace

std::string CorrectedFormat(const std::string& format) {
    std::string out = format;
    if (out.size() > 1 && out[1] == ',' && !IsThousandsGroup(out, 1)) out[1] = '.';
    return out;
}

bool LoadConversions(Model& model, ui::UserInterface& ui) {
    UnitTable& units = model.Units;
    TextFileReader in;
    int code = in.Open(AppFile(ui, ConversionFileName));
    std::string line;
    Fields f;
    if (code == err::None && !in.ReadLine(line)) code = err::PastEndOfFile; // the title
    if (code == err::None) {
        if (in.ReadLine(line)) {
            SplitTabs(line, f);
            for (std::size_t i = 0; i < units.Headings.size(); ++i) units.Headings[i] = TrimText(f[i + 1]);
        } else {
            code = err::PastEndOfFile;
        }
    }
    for (int c = 1; c <= UnitClassCount && code == err::None; ++c) {
        if (!in.ReadLine(line)) {
            code = err::PastEndOfFile;
            break;
        }
        SplitTabs(line, f);
        UnitRow& row = units.Rows[c];
        row.ClassName = TrimText(f[1]);
        row.Factor[1] = 1;
        row.Factor[2] = ToSingle(ParseNumber(f[2]));
        row.Label[1] = TrimText(f[3]);
        row.Label[2] = TrimText(f[4]);
        row.Format[1] = CorrectedFormat(TrimText(f[5]));
        row.Format[2] = CorrectedFormat(TrimText(f[6]));
    }
    if (code != err::None) {
        ui.Message("Error loading conversion values", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    return true;
}

bool SaveConversions(const Model& model, ui::UserInterface& ui) {
    const UnitTable& units = model.Units;
    const char sep = ui.DecimalSeparator();
    TextFileWriter out;
    int code = out.Open(AppFile(ui, ConversionFileName));
    if (code == err::None) {
        out.WriteLine(ConversionTitleLine);
        std::string line;
        for (const auto& heading : units.Headings) line += heading + '\t';
        out.WriteLine(line);
        for (int c = 1; c <= UnitClassCount; ++c) {
            const UnitRow& row = units.Rows[c];
            out.WriteLine(row.ClassName + '\t' + PaddedSingle(row.Factor[2], sep) + '\t' + row.Label[1] + '\t' +
                          row.Label[2] + '\t' + row.Format[1] + '\t' + row.Format[2]);
        }
        out.WriteLine("End");
        code = out.Commit();
    }
    if (code != err::None) {
        ui.Message("Error savings conversion values", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    return true;
}

} // namespace karvane::files
