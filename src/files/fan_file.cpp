// fansdata.dat: a version line with the stamp, two heading lines, then for each fan a fan line
// and 10 point lines. Fans keep their numbers, since airways refer to them by number.
#include "files/fan_file.h"

#include <algorithm>
#include <limits>

#include "files/app_files.h"
#include "files/defaults_file.h"
#include "files/number_text.h"
#include "files/text_file.h"
#include "model/network_rows.h"

namespace karvane::files {
namespace {

constexpr int StoredPoints = 10; // point 11, free delivery, is worked out and never stored

// The highest fan number the table can take now.
int FanLimit(const Model& model) { return std::min<int>(model.Set.MaxFans, static_cast<int>(model.Fans.size()) - 1); }

// A name on a line of its own, as the first version wrote it, possibly in quotes.
std::string BareName(const std::string& line) {
    std::string name = TrimText(line);
    if (name.size() >= 2 && name.front() == '"' && name.back() == '"') name = name.substr(1, name.size() - 2);
    return name;
}

// Version 1.0: a name line and 10 lines of static pressure and quantity per fan, from fan 1 up.
int ReadFirstVersion(TextFileReader& in, Model& model, double version) {
    std::string line;
    Fields f;
    for (int n = 1; n <= FanLimit(model); ++n) {
        if (!in.ReadLine(line)) break;
        if (TrimText(line).empty() && in.AtEnd()) break;
        FanRecord& fan = model.Fans[n];
        fan.FanName = BareName(line);
        for (int p = 1; p <= StoredPoints; ++p) {
            if (!in.ReadLine(line)) return err::PastEndOfFile;
            SplitFields(version, line, f);
            fan.FanPStatic[p] = ToSingle(ParseNumber(f[1]));
            fan.FanPTotal[p] = fan.FanPStatic[p]; // no total pressure yet in this version
            fan.FanQ[p] = ToSingle(ParseNumber(f[2]));
        }
    }
    return err::None;
}

int ReadFans(TextFileReader& in, Model& model) {
    std::string line;
    Fields f;
    if (!in.ReadLine(line)) return err::PastEndOfFile;
    const double version = FirstLineVersion(line);
    SplitFields(version, line, f);
    if (!TrimText(f[2]).empty()) model.FanStamp = ToInt32(ParseNumber(f[2]));
    if (version >= 1.0 && version < 1.5) return ReadFirstVersion(in, model, version);
    if (version < 1.5) return err::None;

    for (auto& fan : model.Fans) fan = FanRecord{};
    if (!in.ReadLine(line)) return err::PastEndOfFile;
    SplitFields(version, line, f);
    if (IsNumber(f[4])) {
        std::int16_t wanted = ToInt16(ParseNumber(f[4]));
        if (wanted > model.Set.MaxFans) {
            model.Set.MaxFans = wanted;
            ResizeNetwork(model);
        }
    }
    if (!in.ReadLine(line)) return err::PastEndOfFile;

    while (in.ReadLine(line)) {
        if (TrimText(line).empty()) continue; // a blank line between fans or at the end
        SplitFields(version, line, f);
        const double number = ParseNumber(f[1]);
        if (number < 1 || number > FanLimit(model)) return err::SubscriptOutOfRange;
        FanRecord& fan = model.Fans[static_cast<std::size_t>(ToInt16(number))];
        fan.FanName = TrimText(f[2]);
        fan.FanDiam = ToSingle(ParseNumber(f[3]));
        for (int p = 1; p <= StoredPoints; ++p) {
            if (!in.ReadLine(line)) return err::PastEndOfFile;
            SplitFields(version, line, f);
            fan.FanPStatic[p] = ToSingle(ParseNumber(f[2]));
            fan.FanQ[p] = ToSingle(ParseNumber(f[3]));
            fan.FanEff[p] = ToInt16(ParseNumber(f[4]));
            if (!TrimText(f[5]).empty()) fan.FanPTotal[p] = ToSingle(ParseNumber(f[5]));
        }
    }
    return err::None;
}

// The one handler of the fan file's operations.
void FanFileFailed(Model& model, ui::UserInterface& ui, int code, const char* tail) {
    ui.Message(FileErrorText(code, tail), ProgramName, ui::Icon::Exclamation);
    model.FileName.clear();
    ui.SetBusy(false);
}

} // namespace

bool LoadFanDatabase(Model& model, ui::UserInterface& ui) {
    model.FansSaved = Yes255;
    TextFileReader in;
    int code = in.Open(AppFile(ui, FanFileName));
    if (code == err::None) code = ReadFans(in, model);
    if (code != err::None) {
        FanFileFailed(model, ui, code, " occurred while loading fans.");
        return false;
    }
    return true;
}

bool SaveFanDatabase(Model& model, ui::UserInterface& ui) {
    const char sep = ui.DecimalSeparator();
    TextFileWriter out;
    int code = out.Open(AppFile(ui, FanFileName));
    const std::int32_t stamp =
        model.FanStamp < std::numeric_limits<std::int32_t>::max() ? model.FanStamp + 1 : model.FanStamp;
    if (code == err::None) {
        out.WriteLine(std::string("2") + sep + "6 KARVANE\t" + PaddedInt(stamp));
        out.WriteLine("Fan Number\tFan Name\tFan Effective Diameter");
        out.WriteLine("Point\tStatic Pressure (Pa)\tQuantity (m3/s)\tEfficiency (%)\tTotal Pressure (Pa)");
        for (int n = 1; n <= FanLimit(model); ++n) {
            const FanRecord& fan = model.Fans[n];
            if (fan.IsFree()) continue;
            out.WriteLine(PaddedInt(n) + '\t' + fan.FanName + '\t' + PaddedSingle(fan.FanDiam, sep));
            for (int p = 1; p <= StoredPoints; ++p)
                out.WriteLine(PaddedInt(p) + '\t' + PaddedSingle(fan.FanPStatic[p], sep) + '\t' +
                              PaddedSingle(fan.FanQ[p], sep) + '\t' + PaddedInt(fan.FanEff[p]) + '\t' +
                              PaddedSingle(fan.FanPTotal[p], sep));
        }
        code = out.Commit();
    }
    if (code != err::None) {
        FanFileFailed(model, ui, code, " occurred saving fan database.");
        return false;
    }
    model.FanStamp = stamp;
    model.FansSaved = Yes255;
    return true;
}

void ReloadFanDatabaseCommand(Model& model, ui::UserInterface& ui) {
    if (ui.Ask("Current fan database will be lost!", "Reload Default Fan Database", ui::Buttons::OKCancel) !=
        ui::Answer::OK)
        return;
    model.FansSaved = Yes255;
    LoadFanDatabase(model, ui);
}

} // namespace karvane::files
