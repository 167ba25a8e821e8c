// The tab-separated text export.
#include "exchange/text_export.h"

#include "exchange/dxf_export.h"
#include "files/number_text.h"
#include "files/text_file.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::exchange {

namespace {

// A name at the full width of its field, cut or padded with blanks.
std::string Padded40(const std::string& text) {
    std::string out = FitText(text, NameWidth);
    out.resize(NameWidth, ' ');
    return out;
}

// A value rounded as the pattern shows it, then in the display unit of its class.
float RoundedInUnit(const Model& model, float value, const char* pattern, int unitClass) {
    return ToDisplay(model, ParseLeadingNumber(FormatNumber(value, pattern)), unitClass);
}

} // namespace

void AddField(std::string& line, std::string_view item) {
    if (!line.empty()) line += '\t';
    line += item;
}

std::string TabJoined(std::span<const char* const> items) {
    std::string line;
    for (const char* item : items) AddField(line, item);
    return line;
}

bool EndExport(ui::UserInterface& ui, int code) {
    ui.SetBusy(false);
    if (code == files::err::None) return true;
    ui.Message(ExportErrorText, ProgramName, ui::Icon::Exclamation);
    return false;
}

std::string TextExportLine(const Model& model, std::int32_t row, char sep) {
    const Airway& a = model.Airways[static_cast<std::size_t>(row)];
    std::string line;
    auto put = [&line](const std::string& item) { AddField(line, item); };
    auto length = [&](double v) { return files::PaddedSingle(ToDisplay(model, v, uc::Length), sep); };
    for (std::int32_t v : {a.X1, a.Y1, a.Z1, a.X2, a.Y2, a.Z2}) put(length(v));
    put(files::PaddedSingle(RoundedInUnit(model, a.Quantity, "0.0", uc::Flow), sep));
    put(files::PaddedSingle(RoundedInUnit(model, a.Resistance, "0.00000", uc::Resistance), sep));
    put(files::PaddedInt(a.FanNumber));
    put(files::PaddedInt(a.NoOfFans));
    put(Padded40(a.BranchName));
    put(Padded40(a.EntryNode));
    put(Padded40(a.ExitNode));
    put(length(a.Height));
    put(length(a.Width));
    put(files::PaddedInt(a.AirwayNo));
    return line;
}

bool ExportText(const Model& model, const std::string& file, ui::UserInterface& ui) {
    ui.SetBusy(true);
    const char sep = ui.DecimalSeparator();
    files::TextFileWriter out;
    int code = out.Open(file);
    if (code == files::err::None) {
        out.WriteLine(TabJoined(TextExportHeadings));
        const std::int32_t count =
            std::min<std::int32_t>(model.AirwayCount, static_cast<std::int32_t>(model.Airways.size()) - 1);
        for (std::int32_t row = 1; row <= count; ++row) out.WriteLine(TextExportLine(model, row, sep));
        code = out.Commit();
    }
    return EndExport(ui, code);
}

} // namespace karvane::exchange
