// Writing the network file of the current version, section by section, one line at a time,
// and the text form of one airway row in both directions.
#include "files/network_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>

#include "files/defaults_file.h"
#include "files/number_text.h"
#include "files/recent_files.h"

namespace karvane::files {
namespace {

constexpr char NoteLineFeed = 29;
constexpr char NoteReturn = 30;
constexpr char NoteTab = 31;

// The 37 headings of the airway section; the last two columns of a row have none.
constexpr std::array<const char*, 37> AirwayHeadings{"Entry Node",
                                                     "Exit Node",
                                                     "Branch Name",
                                                     "Blank",
                                                     "Blank",
                                                     "X1",
                                                     "Y1",
                                                     "Z1",
                                                     "X2",
                                                     "Y2",
                                                     "Z2",
                                                     "Height",
                                                     "Width",
                                                     "Branch Code",
                                                     "Res Type",
                                                     "Shock Type",
                                                     "Wall Type",
                                                     "Wall Factor",
                                                     "Shock Factor",
                                                     "Comment",
                                                     "Resistance",
                                                     "Quantity",
                                                     "Fan Number",
                                                     "No of Fans",
                                                     "Length",
                                                     "Pressure",
                                                     "Contaminant",
                                                     "Primary Layer",
                                                     "Second Layer",
                                                     "From Node P",
                                                     "To Node P",
                                                     "Undo No",
                                                     "Airway No",
                                                     "Icon Loc",
                                                     "Remote Station",
                                                     "No Airways",
                                                     "Curve Fraction"};

// A text field must stay inside its line and its field: a tab or a line end in a name would
// split the row and shift every field behind it, so each becomes a blank on the way out.
std::string LineSafe(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c == '\t' || c == '\r' || c == '\n') c = ' ';
    return out;
}

std::size_t Index(std::int32_t i) { return static_cast<std::size_t>(i); }

// Rows of a table that hold data: the setting, never past the table's own end.
std::int32_t UsableRows(std::int32_t setting, std::size_t tableSize) {
    const auto last = static_cast<std::int32_t>(tableSize) - 1;
    return std::clamp(setting, 0, std::max(0, last));
}

std::string RowText(const Airway& a, char sep) {
    std::string s;
    s.reserve(256);
    auto text = [&](std::string_view v) {
        s += LineSafe(TrimText(v));
        s += '\t';
    };
    auto whole = [&](std::int64_t v) {
        s += PlainInt(v);
        s += '\t';
    };
    auto single = [&](float v) {
        s += PlainSingle(v, sep);
        s += '\t';
    };
    text(a.EntryNode);
    text(a.ExitNode);
    text(a.BranchName);
    s += "\t\t"; // the two key columns travel empty: keys are rebuilt after every load
    whole(a.X1);
    whole(a.Y1);
    whole(a.Z1);
    whole(a.X2);
    whole(a.Y2);
    whole(a.Z2);
    single(a.Height);
    single(a.Width);
    whole(a.BranchCode);
    whole(a.ResType);
    whole(a.ShockType);
    whole(a.WallType);
    single(a.WallFactor);
    single(a.ShockFactor);
    text(a.Comment);
    single(a.Resistance);
    single(a.Quantity);
    whole(a.FanNumber);
    whole(a.NoOfFans);
    single(a.Length);
    single(a.Pressure);
    single(a.Contaminant);
    whole(a.PrimaryLayer);
    whole(a.SecondLayer);
    single(a.FromNodeP);
    single(a.ToNodeP);
    whole(a.UndoNo);
    whole(a.AirwayNo);
    single(a.IconLoc);
    whole(a.RemoteStation);
    whole(a.NoAirways);
    whole(a.CurveFraction);
    whole(a.Gas1);
    s += PlainInt(a.Gas2);
    return s;
}

void WriteHeader(TextFileWriter& out, const Model& model, char sep) {
    std::string line = std::string("3") + sep + "1 " + NetworkMagic;
    line += '\t';
    line += LineSafe(model.FileComment);
    line += '\t';
    line += PaddedDouble((1.0 - model.SgnX) / 2.0, sep);
    line += '\t';
    line += PaddedDouble((1.0 - model.SgnY) / 2.0, sep);
    line += '\t';
    line += EscapeNote(model.FileNote);
    line += '\t';
    line += PaddedInt(model.FanStamp);
    out.WriteLine(line);
}

void WriteViewLine(TextFileWriter& out, const SavedView& view, const std::string& name, char sep) {
    std::string line = LineSafe(name) + '\t';
    for (int k = 1; k <= 22; ++k) line += PaddedSingle(view.ViewParam[Index(k)], sep) + '\t';
    for (int k = 1; k <= ViewValueCount; ++k) line += PaddedFixed(view.ViewValue[Index(k)], sep) + '\t';
    for (int k = 23; k <= 27; ++k) line += PaddedSingle(view.ViewParam[Index(k)], sep) + '\t';
    out.WriteLine(line);
}

void WriteViews(TextFileWriter& out, Model& model, char sep) {
    out.WriteLine(SavedViewsLine);
    if (model.SavedViews.size() < static_cast<std::size_t>(SavedViewSlots)) model.SavedViews.resize(SavedViewSlots);
    model.SavedViews[0].ViewName = StartupViewName;
    WriteViewLine(out, model.SavedViews[0], StartupViewName, sep);
    for (int slot = 6; slot <= 99; ++slot) {
        const SavedView& view = model.SavedViews[Index(slot)];
        if (!view.ViewName.empty()) WriteViewLine(out, view, view.ViewName, sep);
    }
    out.WriteLine(SavedViewsEnd);
}

void WriteLayers(TextFileWriter& out, const Model& model) {
    out.WriteLine(TagListLine);
    auto list = [&](const std::vector<LayerRecord>& layers, int count, int sign) {
        for (int i = 1; i <= count && Index(i) < layers.size(); ++i) {
            const LayerRecord& layer = layers[Index(i)];
            if (layer.Name.empty()) continue;
            out.WriteLine(PaddedInt(sign * i) + '\t' + LineSafe(layer.Name) + '\t' + PaddedInt(layer.LayerOn));
        }
    };
    list(model.PrimaryLayers, PrimaryLayerCount, 1);
    list(model.SecondaryLayers, SecondLayerCount, -1);
    out.WriteLine(TagListEnd);
}

void WriteFans(TextFileWriter& out, const Model& model, char sep) {
    out.WriteLine(std::string("Fan Name/Point\tPressure Pa\tQuantity m3/s\tMax Fans=\t") +
                  PaddedInt(model.Set.MaxFans));
    const std::int32_t fans = UsableRows(model.Set.MaxFans, model.Fans.size());
    for (std::int32_t f = 1; f <= fans; ++f) {
        const FanRecord& fan = model.Fans[Index(f)];
        if (fan.IsFree()) continue;
        out.WriteLine(LineSafe(fan.FanName) + '\t' + PaddedSingle(fan.FanDiam, sep) + '\t' + PaddedInt(f));
        for (int p = 1; p <= 10; ++p) {
            const auto k = Index(p);
            out.WriteLine(PaddedInt(p) + '\t' + PaddedSingle(fan.FanPStatic[k], sep) + '\t' +
                          PaddedSingle(fan.FanQ[k], sep) + '\t' + PaddedInt(fan.FanEff[k]) + '\t' +
                          PaddedSingle(fan.FanPTotal[k], sep));
        }
    }
    out.WriteLine(FanDatabaseEnd);
}

void WriteLevels(TextFileWriter& out, const Model& model) {
    out.WriteLine("RL Name\tRL Max\tRL Min");
    for (int i = 1; i <= LevelRowsInFile && Index(i) < model.Levels.size(); ++i) {
        const LevelRecord& level = model.Levels[Index(i)];
        if (level.RLName.empty() && level.RLMax == 0) break;
        out.WriteLine(LineSafe(level.RLName) + '\t' + PaddedInt(level.RLMax) + '\t' + PaddedInt(level.RLMin));
    }
    out.WriteLine(LevelListEnd);
}

void WriteFloatingText(TextFileWriter& out, const Model& model) {
    const std::int32_t slots = UsableRows(model.Set.MaxText, model.FloatingTexts.size());
    for (std::int32_t i = 1; i <= slots; ++i) {
        const FloatingText& t = model.FloatingTexts[Index(i)];
        if (!t.TextOn) continue;
        out.WriteLine(LineSafe(t.TextValue) + '\t' + PaddedInt(t.TextX) + '\t' + PaddedInt(t.TextY) + '\t' +
                      PaddedInt(t.TextZ));
    }
    out.WriteLine(FloatingTextEnd);
}

void WriteAirways(TextFileWriter& out, Model& model, char sep) {
    std::string heading;
    for (std::size_t i = 0; i < AirwayHeadings.size(); ++i) {
        if (i) heading += '\t';
        heading += AirwayHeadings[i];
    }
    out.WriteLine(heading);
    const std::int32_t count = UsableRows(model.AirwayCount, model.Airways.size());
    // An empty network still has one airway line, a blank one, which a load drops again.
    if (count == 0) out.WriteLine(RowText(Airway{}, sep));
    for (std::int32_t row = 1; row <= count; ++row) out.WriteLine(AirwayRowText(model, row, sep));
}

} // namespace

std::string EscapeNote(std::string_view note) {
    std::string out(note);
    for (char& c : out) {
        if (c == '\n') c = NoteLineFeed;
        else if (c == '\r') c = NoteReturn;
        else if (c == '\t') c = NoteTab;
    }
    return out;
}

std::string UnescapeNote(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c == NoteLineFeed) c = '\n';
        else if (c == NoteReturn) c = '\r';
        else if (c == NoteTab) c = '\t';
    }
    return out;
}

std::string SaveStampText(const ui::DateTime& now) {
    static constexpr std::array<const char*, 7> days{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static constexpr std::array<const char*, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                        "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const char* day = days[Index(std::clamp(now.WeekDay, 0, 6))];
    const char* month = months[Index(std::clamp(now.Month, 1, 12) - 1)];
    char buf[96];
    std::snprintf(buf, sizeof buf, "*** File Saved %02d:%02d:%02d   %s, %d %s %04d ***", now.Hour, now.Minute,
                  now.Second, day, now.Day, month, now.Year);
    return buf;
}

void WriteNetwork(TextFileWriter& out, Model& model, char sep) {
    WriteHeader(out, model, sep);
    out.WriteLine(DefaultsListLine);
    WriteDefaultsBlock(out, model, sep);
    WriteViews(out, model, sep);
    WriteLayers(out, model);
    WriteFans(out, model, sep);
    WriteLevels(out, model);
    WriteFloatingText(out, model);
    WriteAirways(out, model, sep);
}

bool SaveNetwork(Model& model, ui::UserInterface& ui, int mode) {
    const bool autosave = mode == AutosaveMode;
    if (!model.ViewWindowOpen) return false;

    // The autosave runs from a timer and never asks.
    if (model.MasterFile && !autosave &&
        ui.Ask("You are about to save as a Master file - are you sure ?", "Master File", ui::Buttons::YesNo,
               ui::Icon::Question) != ui::Answer::Yes)
        return false;

    model.FileNote += '\r' + SaveStampText(ui.Now()) + '\r';

    std::string target;
    if (autosave) {
        target = (std::filesystem::path(ui.TempPath()) / AutosaveFileName).string();
    } else {
        ui.PumpEvents();
        if (model.GasActive != GasDisplay::None) {
            ui.Message("Clear gas simulation first !", ProgramName, ui::Icon::Exclamation);
            return false;
        }
        if (model.FileName.empty()) return false;
        ui.SetBusy(true);
        TouchRecentFile(model, ui, model.FileName);
        target = model.FileName;
    }

    // The whole text goes to a temporary file beside the target, which replaces the old file
    // only when complete: a save that fails part way leaves the old file whole.
    TextFileWriter out;
    int code = out.Open(target);
    if (code == err::None) {
        WriteNetwork(out, model, ui.DecimalSeparator());
        code = out.Commit();
    }
    if (!autosave) ui.SetBusy(false);
    if (code != err::None) {
        ui.Message(FileErrorText(code, " occurred saving file"), ProgramName, ui::Icon::Exclamation);
        // A failed autosave keeps the name of the network: the copy has its own place.
        if (!autosave) {
            model.FileName.clear();
            model.NetworkSaved = No0;
        }
        return false;
    }
    model.NetworkSaved = Yes255;
    return true;
}

std::string AirwayRowText(Model& model, std::int32_t row, char sep) {
    if (row < 0 || Index(row) >= model.Airways.size()) return RowText(Airway{}, sep);
    Airway& a = model.Airways[Index(row)];
    a.EntryNode = TrimText(a.EntryNode);
    a.ExitNode = TrimText(a.ExitNode);
    a.BranchName = TrimText(a.BranchName);
    return RowText(a, sep);
}

void ParseAirwayRow(Model& model, ui::UserInterface& ui, std::string_view text, std::int32_t row, double version,
                    char /*sep*/) {
    if (row > MaxAirways) {
        ui.Message("Insufficient memory for undo function - please increase file size in defaults", ProgramName,
                   ui::Icon::Exclamation);
        model.AirwayCount = MaxAirways;
        return;
    }
    if (row < 0 || Index(row) >= model.Airways.size()) return;

    Fields f;
    SplitFields(version, text, f);
    FillAirwayFromFields(model.Airways[Index(row)], f, version);
}

void FillAirwayFromFields(Airway& a, const Fields& f, double version) {
    auto num = [&](int k) { return ParseNumber(f[Index(k)]); };
    auto i16 = [&](int k) { return ToInt16(num(k)); };
    auto i32 = [&](int k) { return ToInt32(num(k)); };
    auto f32 = [&](int k) { return ToSingle(num(k)); };
    auto present = [&](int k) { return !f[Index(k)].empty(); };

    a.EntryNode = FitText(TrimText(f[1]), NameWidth);
    a.ExitNode = FitText(TrimText(f[2]), NameWidth);
    a.BranchName = FitText(TrimText(f[3]), NameWidth);
    a.EntryKey = ParseFixed(f[4]);
    a.ExitKey = ParseFixed(f[5]);
    a.X1 = i32(6);
    a.Y1 = i32(7);
    a.Z1 = i32(8);
    a.X2 = i32(9);
    a.Y2 = i32(10);
    a.Z2 = i32(11);
    a.Height = f32(12);
    a.Width = f32(13);
    a.BranchCode = i32(14);
    a.ResType = i16(15);
    a.ShockType = i16(16);
    a.WallType = i16(17);
    a.WallFactor = f32(18);
    a.ShockFactor = f32(19);
    a.Comment = FitText(TrimText(f[20]), CommentWidth);
    a.Resistance = f32(21);
    a.Quantity = f32(22);
    a.FanNumber = i16(23);
    a.NoOfFans = i16(24);
    a.Length = f32(25);
    if (present(26)) a.Pressure = f32(26);
    if (present(27)) a.Contaminant = f32(27);
    if (present(28)) a.PrimaryLayer = i16(28);
    if (present(29)) a.SecondLayer = i16(29);
    if (present(30)) a.FromNodeP = f32(30);
    if (present(31)) a.ToNodeP = f32(31);
    a.UndoNo = i32(32);
    a.AirwayNo = i32(33);
    a.IconLoc = f32(34);
    a.RemoteStation = i16(35);
    a.NoAirways = i16(36);
    a.CurveFraction = i16(37);
    a.Gas1 = i16(38);
    a.Gas2 = i16(39);

    // Preset indices that older versions used for a custom value.
    if (a.ResType == 10 && version <= 2.0) a.ResType = CustomPreset;
    if (version < 2.9) {
        if (a.WallType == 10) a.WallType = CustomPreset;
        if (a.ShockType == 6) a.ShockType = CustomPreset;
    }
}

} // namespace karvane::files
