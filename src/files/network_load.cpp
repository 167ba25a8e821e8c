// The load of a network file of any version, section by section, with one handler for every
// failure of a step, and the rebuild of what is derived from the data once the read is over.
#include "files/network_load.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engineering/resistance.h"
#include "files/defaults_file.h"
#include "files/duplicates.h"
#include "files/network_file.h"
#include "files/number_text.h"
#include "files/recent_files.h"
#include "files/text_file.h"
#include "model/builtin_settings.h"
#include "model/level_list.h"
#include "model/network_rows.h"
#include "model/node_keys.h"

namespace karvane::files {
namespace {

constexpr double EstimatePi = 3.141592654;
constexpr const char* FileTooBig = "File too big for current Karvane Settings - Increase Default Size";

std::size_t Index(std::int32_t i) { return static_cast<std::size_t>(i); }

// A section line as the file has it, with what an older writer put round it dropped: a
// leading quote and blanks, and trailing blanks, quotes and commas.
std::string_view MarkerText(std::string_view line) {
    std::size_t b = 0, e = line.size();
    while (b < e && (line[b] == ' ' || line[b] == '"')) ++b;
    while (e > b && (line[e - 1] == ' ' || line[e - 1] == '\t' || line[e - 1] == '"' || line[e - 1] == ',')) --e;
    return line.substr(b, e - b);
}

bool Begins(std::string_view line, std::string_view prefix) { return MarkerText(line).starts_with(prefix); }

// The items of a file of version 1.0, written one group a line with commas between items and
// quotes round texts: an item ends at a comma or at the end of its line.
class ItemReader {
public:
    explicit ItemReader(TextFileReader& in) : in_(in) {}

    // The next item; false at the end of the file.
    bool Next(std::string& item) {
        if (!haveLine_) {
            if (!in_.ReadLine(line_)) return false;
            haveLine_ = true;
            pos_ = 0;
        }
        pos_ = CommaItem(line_, pos_, item);
        item = TrimText(item);
        const std::size_t n = line_.size();
        if (pos_ < n) ++pos_; // past the comma: an item follows on this line, if only an empty one
        else haveLine_ = false;
        return true;
    }

private:
    TextFileReader& in_;
    std::string line_;
    std::size_t pos_ = 0;
    bool haveLine_ = false;
};

enum class Outcome { Completed, Refused, Ended };

class NetworkLoader {
public:
    NetworkLoader(Model& model, const std::string& path, ui::UserInterface& ui, const LoadOptions& options,
                  LoadReport& report)
        : m_(model),
          path_(path),
          ui_(ui),
          opt_(options),
          rep_(report),
          sep_(ui.DecimalSeparator()) {
        firstRow_ = std::max<std::int32_t>(1, options.FirstLoadRow);
        merging_ = firstRow_ > 1;
        rlOffset_ = merging_ ? std::clamp<std::int32_t>(options.RLOffset, 0, LevelRows) : 0;
        rep_.FirstNewRow = firstRow_;
    }

    Outcome Run();
    void Rebuild();
    bool Touched() const { return touched_; }

private:
    using Step = std::function<int()>;

    bool Try(const Step& step);
    int ReadRequired(std::string& line);
    int SkipThrough(std::string_view prefix);

    Outcome ReadHeader();
    Outcome ReadBody();
    int ReadVersion10Levels();
    int ReadVersion10Airways();
    int FindDefaultsList(bool& present);
    int ReadSettings(Model& target);
    void ApplyOldSettingRules();
    int ReadViews();
    void ReadViewLine(SavedView& view);
    void SetBuiltInTilts();
    int ReadLayers();
    int ReadFanHeading();
    void AskMergeFans();
    int ReadFans();
    int ReadLevels();
    int ReadFloatingText();
    int ReadAirways();
    bool MoreRows();

    std::int32_t FanCapacity() const {
        return std::clamp<std::int32_t>(m_.Set.MaxFans, 0, static_cast<std::int32_t>(m_.Fans.size()) - 1);
    }
    std::int32_t TextCapacity() const {
        return std::clamp<std::int32_t>(m_.Set.MaxText, 0, static_cast<std::int32_t>(m_.FloatingTexts.size()) - 1);
    }
    double Num(int k) const { return ParseNumber(f_[Index(k)]); }
    void Split(const std::string& line) { SplitFields(v_, line, f_); }

    Model& m_;
    const std::string& path_;
    ui::UserInterface& ui_;
    const LoadOptions& opt_;
    LoadReport& rep_;
    char sep_;
    TextFileReader in_;
    Fields f_;
    std::string line_;
    double v_ = 0;
    std::int32_t firstRow_ = 1;
    std::int32_t rlOffset_ = 0;
    bool merging_ = false;
    bool touched_ = false;
    bool estimate_ = false;
    bool skipMergedFans_ = false;
    std::int16_t fanOffset_ = 0;
    std::int32_t mergeTextSlot_ = 1;
};

// One handler for every failure: the three codes of a missing file, drive or path end the load
// with their text; any other code asks whether to go on, and Yes runs the failed step again
// from where it began. A fault that stays brings the question back, up to the limit of tries.
bool NetworkLoader::Try(const Step& step) {
    int tries = 0;
    for (;;) {
        const TextFileReader::Mark mark = in_.Tell();
        const int code = step();
        if (code == err::None) return true;
        if (code == err::FileNotFound || code == err::DriveNotAvailable || code == err::PathNotFound) {
            ui_.Message(FileErrorText(code, ""), ProgramName, ui::Icon::Exclamation);
            return false;
        }
        if (tries >= opt_.MaxRetries) return false;
        ++tries;
        if (ui_.Ask("Error occured loading file\nDo you wish to continue loading?", "Error", ui::Buttons::YesNo,
                    ui::Icon::Exclamation) != ui::Answer::Yes)
            return false;
        in_.Seek(mark);
    }
}

int NetworkLoader::ReadRequired(std::string& line) { return in_.ReadLine(line) ? err::None : err::PastEndOfFile; }

// Passes over lines up to and including the first that begins with `prefix`.
int NetworkLoader::SkipThrough(std::string_view prefix) {
    while (in_.ReadLine(line_))
        if (Begins(line_, prefix)) return err::None;
    return err::PastEndOfFile;
}

Outcome NetworkLoader::Run() {
    if (m_.SavedViews.size() < static_cast<std::size_t>(SavedViewSlots)) m_.SavedViews.resize(SavedViewSlots);
    m_.SavedViews[0].ViewName.clear();

    const std::string& name = path_;
    if (!name.empty()) TouchRecentFile(m_, ui_, name, !opt_.Recovery);
    m_.Set.SurfaceRL = 99999;

    std::string tail = name.size() >= 3 ? name.substr(name.size() - 3) : name;
    for (char& c : tail) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    if (tail == "SMM")
        ui_.Message("Caution - a MASTER SMM file is being loaded - this file will only be saved as a normal SIM file "
                    "unless otherwise specified in the SAVE dialog box",
                    ProgramName, ui::Icon::Information);

    if (name.empty()) return Outcome::Refused;
    if (!Try([&] { return in_.Open(name); })) return Outcome::Ended;
    return ReadHeader();
}

Outcome NetworkLoader::ReadHeader() {
    std::string first;
    if (!Try([&] { return ReadRequired(first); })) return Outcome::Ended;

    // The version stands in the first three characters, with the writer's decimal separator.
    if (!first.empty() && first[0] == '"') first.erase(0, 1);
    if (first.size() >= 2 && first[1] != sep_) {
        rep_.FileSeparator = first[1];
        first[1] = sep_;
    }
    v_ = std::round(FirstLineVersion(first) * 10.0) / 10.0;
    rep_.FileVersion = v_;
    Split(first.size() > 4 ? first.substr(4) : std::string());

    if (!TrimText(f_[1]).starts_with(NetworkMagicStem)) {
        ui_.Message("Not a KARVANE File - Action Aborted", ProgramName, ui::Icon::Exclamation);
        return Outcome::Refused;
    }
    if (v_ < 1.1 && v_ != 1.0) {
        ui_.Message("Cannot read file format", ProgramName, ui::Icon::Exclamation);
        return Outcome::Refused;
    }

    // A merge keeps the network's own header: name, note and axis directions.
    if (!merging_) {
        ClearNetwork(m_);
        m_.FileComment = f_[2];
        m_.FileNote = UnescapeNote(f_[5]);
        m_.MasterFile = false;
        for (auto [k, sign] : {std::pair{3, &m_.SgnX}, std::pair{4, &m_.SgnY}}) {
            const double s = 1.0 - 2.0 * Num(k);
            *sign = static_cast<std::int16_t>(s == -1.0 ? -1 : 1);
        }
    }
    touched_ = true;

    if (v_ == 1.0) {
        if (!Try([&] { return ReadVersion10Levels(); })) return Outcome::Ended;
        if (!Try([&] { return ReadVersion10Airways(); })) return Outcome::Ended;
        return Outcome::Completed;
    }
    return ReadBody();
}

Outcome NetworkLoader::ReadBody() {
    const bool hasFans = v_ >= 1.5;
    bool fanHeading = true; // false: the settings section is missing and the fan lines follow at once

    if (merging_) {
        // The second file's settings, views and layers are passed over.
        if (v_ > 1.5) {
            if (!Try([&] { return SkipThrough("End of Tag"); })) return Outcome::Ended;
        } else if (v_ == 1.5) {
            bool present = false;
            if (!Try([&] { return FindDefaultsList(present); })) return Outcome::Ended;
            if (present) {
                auto scratch = std::make_unique<Model>();
                if (!Try([&] { return ReadSettings(*scratch); })) return Outcome::Ended;
            } else {
                fanHeading = false;
            }
        }
    } else {
        // Every version before the total pressure curves is asked, those without fans too: the
        // answer is the network's, whatever sections the file goes on to hold.
        if (v_ < 2.4) {
            estimate_ = ui_.Ask("Karvane now has a 'TOTAL PRESSURE' estimating function for fan power calculation\n\n"
                                "Allow Karvane to estimate fan diameters and use this function?  ",
                                "Total Pressures", ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
            rep_.EstimateDiameters = estimate_;
        }
        if (hasFans) {
            bool present = false;
            if (!Try([&] { return FindDefaultsList(present); })) return Outcome::Ended;
            if (present) {
                if (!Try([&] { return ReadSettings(m_); })) return Outcome::Ended;
                ApplyOldSettingRules();
                if (v_ > 1.5) {
                    if (!Try([&] { return ReadViews(); })) return Outcome::Ended;
                    SetBuiltInTilts();
                    if (!Try([&] { return ReadLayers(); })) return Outcome::Ended;
                }
            } else {
                fanHeading = false;
            }
        }
    }

    if (hasFans) {
        if (fanHeading && !Try([&] { return ReadFanHeading(); })) return Outcome::Ended;
        if (merging_) AskMergeFans();
        if (!Try([&] { return ReadFans(); })) return Outcome::Ended;
    }

    if (!Try([&] { return ReadLevels(); })) return Outcome::Ended;

    if (firstRow_ >= MaxAirways - 1) {
        ui_.Message(FileTooBig, ProgramName, ui::Icon::Exclamation);
        rep_.AirwaysCut = true;
        return Outcome::Completed;
    }
    if (in_.AtEnd()) return Outcome::Completed;

    if (v_ >= 2.6) {
        if (merging_) {
            // Merged text goes into the slots behind the last one in use.
            mergeTextSlot_ = 1;
            for (std::int32_t i = TextCapacity(); i >= 1; --i)
                if (m_.FloatingTexts[Index(i)].TextOn) {
                    mergeTextSlot_ = i + 1;
                    break;
                }
        }
        if (!Try([&] { return ReadFloatingText(); })) return Outcome::Ended;
    }
    if (!Try([&] { return ReadAirways(); })) return Outcome::Ended;
    return Outcome::Completed;
}

// Version 1.0: 99 levels of three items, then airways of three groups of 19, 7 and 5 items.
int NetworkLoader::ReadVersion10Levels() {
    ItemReader items(in_);
    std::string name, max, min;
    std::int32_t last = merging_ ? rlOffset_ : 0;
    for (std::int32_t i = 1; i <= 99; ++i) {
        if (!items.Next(name) || !items.Next(max) || !items.Next(min)) return err::PastEndOfFile;
        const std::int32_t row = i + rlOffset_;
        if (row >= LevelRows) continue;
        m_.Levels[Index(row)] = {name, ToInt32(ParseNumber(max)), ToInt32(ParseNumber(min))};
        last = row;
    }
    if (!merging_)
        for (std::int32_t row = last + 1; row <= LevelRows; ++row) m_.Levels[Index(row)] = LevelRecord{};
    return err::None;
}

int NetworkLoader::ReadVersion10Airways() {
    ItemReader items(in_);
    Fields f;
    std::string dropped;
    std::int32_t row = firstRow_;
    m_.AirwayCount = firstRow_ - 1;
    while (row < MaxAirways - 1) {
        for (auto& field : f) field.clear();
        if (!items.Next(f[1])) return err::None; // the end of the file ends the airways
        for (int k = 2; k <= 26; ++k)
            if (!items.Next(f[Index(k)])) return err::PastEndOfFile;
        for (int k = 0; k < 5; ++k)
            if (!items.Next(dropped)) return err::PastEndOfFile;
        ClearAirwayRow(m_, row);
        FillAirwayFromFields(m_.Airways[Index(row)], f, v_);
        m_.AirwayCount = row;
        ++row;
    }
    std::string more;
    if (items.Next(more)) {
        ui_.Message(FileTooBig, ProgramName, ui::Icon::Exclamation);
        rep_.AirwaysCut = true;
    }
    return err::None;
}

// The settings section begins at the first line that begins "Defaults List"; any other such
// line than the exact one means the file has none.
int NetworkLoader::FindDefaultsList(bool& present) {
    if (const int code = SkipThrough("Defaults List"); code != err::None) return code;
    present = MarkerText(line_) == DefaultsListLine;
    return err::None;
}

int NetworkLoader::ReadSettings(Model& target) {
    if (v_ <= 2.0) return ReadNetworkSettingsRowForm(in_, target, v_, sep_);
    if (v_ <= 2.7) return ReadNetworkSettingsLineForm(in_, target, v_, sep_);
    std::string first;
    if (const int code = ReadRequired(first); code != err::None) return code;
    const int code = ReadDefaultsBlock(in_, target, first, sep_);
    if (code == err::None) ResizeNetwork(target);
    return code;
}

// What the settings of files up to 2.7 meant differently: a bulkhead resistance of 1000 or
// more was a blocked airway of 10000, and the fonts and node names of today did not exist.
void NetworkLoader::ApplyOldSettingRules() {
    if (v_ > 2.7) return;
    if (m_.Preset.ResPreset[1] >= 1000.0f) m_.Preset.ResPreset[1] = 10000.0f;
    m_.Set.DisplayOptions = static_cast<std::int16_t>(m_.Set.DisplayOptions | 1);
    for (int k = 1; k <= FontCount; ++k) m_.Set.FontName[Index(k)] = "Arial";
}

void NetworkLoader::ReadViewLine(SavedView& view) {
    view.ViewName = TrimText(f_[1]);
    for (int k = 1; k <= 22; ++k) view.ViewParam[Index(k)] = ToSingle(Num(k + 1));
    for (int k = 1; k <= ViewValueCount; ++k) view.ViewValue[Index(k)] = ParseFixed(f_[Index(k + 23)]);
    for (int k = 23; k <= 27; ++k) view.ViewParam[Index(k)] = ToSingle(Num(k + 6));
    view.ViewParam[28] = 0; // the data type is never kept in the file
}

// The heading, view 0 under its name, then the user's views into slots 6 to 100 in order.
int NetworkLoader::ReadViews() {
    if (const int code = ReadRequired(line_); code != err::None) return code;
    rep_.StartupViewRead = false;
    std::int32_t slot = 6;
    for (;;) {
        if (const int code = ReadRequired(line_); code != err::None) return code;
        if (Begins(line_, SavedViewsEnd)) return err::None;
        Split(line_);
        if (TrimText(f_[1]) == StartupViewName) {
            ReadViewLine(m_.SavedViews[0]);
            rep_.StartupViewRead = true;
        } else if (slot <= 100) {
            ReadViewLine(m_.SavedViews[Index(slot++)]);
        }
    }
}

void NetworkLoader::SetBuiltInTilts() {
    const float sgnY = m_.SgnY;
    m_.SavedViews[3].ViewParam[1] = static_cast<float>(sgnY * ViewPi / 2.0);
    m_.SavedViews[4].ViewParam[1] = static_cast<float>(sgnY * ViewPi / 2.0);
    m_.SavedViews[5].ViewParam[1] = sgnY;
}

// A layer line: 1 to 16 names a primary layer, any other number the secondary layer of its
// absolute value; numbers outside both lists are passed over.
int NetworkLoader::ReadLayers() {
    if (const int code = ReadRequired(line_); code != err::None) return code;
    for (;;) {
        if (const int code = ReadRequired(line_); code != err::None) return code;
        if (Begins(line_, "End of Tag")) return err::None;
        Split(line_);
        const std::int32_t number = ToInt32(Num(1));
        LayerRecord layer{f_[2], ToInt16(Num(3))};
        if (number >= 1 && number <= PrimaryLayerCount) {
            m_.PrimaryLayers[Index(number)] = layer;
        } else {
            const std::int32_t second = number < 0 ? -number : number;
            if (second >= 1 && second <= SecondLayerCount) m_.SecondaryLayers[Index(second)] = layer;
        }
    }
}

int NetworkLoader::ReadFanHeading() {
    if (const int code = ReadRequired(line_); code != err::None) return code;
    Split(line_);
    rep_.FanCountInFile = ToInt32(Num(5));
    return err::None;
}

// Merged fans either refer to the fans already here, or join the database behind them.
void NetworkLoader::AskMergeFans() {
    fanOffset_ = 0;
    for (std::int32_t i = 1; i <= FanCapacity() && !m_.Fans[Index(i)].FanName.empty(); ++i) ++fanOffset_;
    const ui::Answer answer =
        ui_.Ask("Do you want the new data to use the original fan database (YES) or add the merged fan database to "
                "the existing fan list (NO)",
                "Merge fan database", ui::Buttons::YesNo, ui::Icon::Question);
    skipMergedFans_ = answer == ui::Answer::Yes;
    if (skipMergedFans_) fanOffset_ = 0;
    rep_.FanOffset = fanOffset_;
}

int NetworkLoader::ReadFans() {
    if (!merging_)
        for (std::size_t i = 1; i < m_.Fans.size(); ++i) m_.Fans[i] = FanRecord{};
    if (merging_ && skipMergedFans_) return SkipThrough("**End of Fa");

    std::int32_t order = 0;
    for (;;) {
        if (const int code = ReadRequired(line_); code != err::None) return code;
        if (Begins(line_, "**End of Fa")) return err::None;
        Split(line_);
        ++order;
        std::int32_t number = ToInt32(Num(3));
        if (number < 1) number = order;
        number = std::min<std::int32_t>(number, INT32_MAX - fanOffset_) + fanOffset_;
        if (number > FanCapacity()) {
            ui_.Message("Fan database default size is smaller than the file size !\nAny fans above fan " +
                            std::to_string(m_.Set.MaxFans) + " will be deleted",
                        ProgramName, ui::Icon::Exclamation);
            return SkipThrough("**End of Fa");
        }
        FanRecord& fan = m_.Fans[Index(number)];
        fan = FanRecord{};
        fan.FanName = TrimText(f_[1]);
        if (!f_[2].empty()) fan.FanDiam = ToSingle(Num(2));
        for (int p = 1; p <= 10; ++p) {
            if (const int code = ReadRequired(line_); code != err::None) return code;
            Split(line_);
            const auto k = Index(p);
            fan.FanPStatic[k] = ToSingle(Num(2));
            if (!f_[5].empty()) fan.FanPTotal[k] = ToSingle(Num(5));
            fan.FanQ[k] = ToSingle(Num(3));
            fan.FanEff[k] = ToInt16(Num(4));
        }
        // Files before total pressures: an effective diameter from the free delivery flow.
        if (v_ < 2.4 && estimate_ && fan.FanDiam == 0.0f) {
            const double q = std::max(0.0, static_cast<double>(fan.FanQ[10]));
            fan.FanDiam = ToSingle(std::round(2.0 * std::sqrt(q / (21.0 * EstimatePi)) * 100.0) / 100.0);
        }
    }
}

int NetworkLoader::ReadLevels() {
    if (const int code = ReadRequired(line_); code != err::None) return code;
    std::int32_t i = 0;
    std::int32_t last = rlOffset_;
    for (;;) {
        if (const int code = ReadRequired(line_); code != err::None) return code;
        if (Begins(line_, "**END OF RL")) break;
        if (++i > LevelRows) continue;
        const std::int32_t row = i + rlOffset_;
        if (row >= LevelRows) continue;
        Split(line_);
        m_.Levels[Index(row)] = {TrimText(f_[1]), ToInt32(Num(2)), ToInt32(Num(3))};
        last = row;
    }
    for (std::int32_t row = last + 1; row <= LevelRowsInFile; ++row) m_.Levels[Index(row)] = LevelRecord{};
    if (!merging_) m_.Levels[LevelRows] = LevelRecord{};
    return err::None;
}

int NetworkLoader::ReadFloatingText() {
    std::int32_t slot = merging_ ? mergeTextSlot_ : 1;
    for (;;) {
        if (const int code = ReadRequired(line_); code != err::None) return code;
        if (Begins(line_, FloatingTextEnd)) return err::None;
        Split(line_);
        if (merging_ && f_[1].empty()) continue;
        if (slot > TextCapacity()) continue;
        FloatingText& t = m_.FloatingTexts[Index(slot++)];
        if (f_[1].empty()) {
            t = FloatingText{};
            continue;
        }
        t.TextValue = f_[1];
        t.TextOn = true;
        t.TextX = ToInt32(Num(2));
        t.TextY = ToInt32(Num(3));
        t.TextZ = ToInt32(Num(4));
    }
}

// Whether a row line is still to come: empty lines do not count.
bool NetworkLoader::MoreRows() {
    while (in_.ReadLine(line_))
        if (!line_.empty()) return true;
    return false;
}

int NetworkLoader::ReadAirways() {
    if (const int code = ReadRequired(line_); code != err::None) return code; // the heading
    std::int32_t row = firstRow_;
    while (row < MaxAirways - 1 && in_.ReadLine(line_)) {
        if (line_.empty()) continue;
        ClearAirwayRow(m_, row);
        ParseAirwayRow(m_, ui_, line_, row, v_, sep_);
        m_.Airways[Index(row)].UndoNo = 0;
        ++row;
    }
    m_.AirwayCount = row - 1;
    if (row >= MaxAirways - 1 && MoreRows()) {
        ui_.Message(FileTooBig, ProgramName, ui::Icon::Exclamation);
        rep_.AirwaysCut = true;
    }
    return err::None;
}

// Everything that follows from the data once the read is over, whether it ran to the end or
// was ended part way.
void NetworkLoader::Rebuild() {
    SortLevels(m_);
    const std::int32_t current = LevelCount(m_) >= 2 ? 2 : 1;
    const LevelRecord& level = m_.Levels[Index(current)];
    m_.CurrentRLMin = level.RLMin;
    m_.CurrentRLMax = level.RLMax;
    rep_.CurrentLevel = static_cast<std::int16_t>(current);
    rep_.CurRL = static_cast<std::int32_t>((static_cast<std::int64_t>(level.RLMin) + level.RLMax) / 2);

    // The first eight primary layers and every secondary layer come on; the primary layers 9
    // to 16 stay as the file had them.
    for (std::size_t i = 1; i < m_.SecondaryLayers.size(); ++i) m_.SecondaryLayers[i].LayerOn = -1;
    for (std::size_t i = 1; i <= 8 && i < m_.PrimaryLayers.size(); ++i) m_.PrimaryLayers[i].LayerOn = -1;

    const std::int32_t count = CheckedAirwayCount(m_);
    if (fanOffset_ != 0)
        for (std::int32_t row = firstRow_; row <= count; ++row) {
            Airway& a = m_.Airways[Index(row)];
            if (a.FanNumber > 0) a.FanNumber = ToInt16(static_cast<double>(a.FanNumber) + fanOffset_);
        }

    BuildNodeKeys(m_, ui_);
    RecalcAllAirways(m_);
    m_.SimValid = Validity::NotValid;
}

} // namespace

bool LoadNetwork(Model& model, const std::string& path, ui::UserInterface& ui, const LoadOptions& options) {
    LoadReport local;
    LoadReport& report = options.Report ? *options.Report : local;
    report = LoadReport{};

    // The copy of the path outlives a path that names the model's own FileName.
    const std::string name = path;
    const bool merging = options.FirstLoadRow > 1;
    if (!merging) model.FileName = name;
    NetworkLoader loader(model, name, ui, options, report);
    const Outcome outcome = loader.Run();
    report.NetworkChanged = loader.Touched();
    if (outcome == Outcome::Refused && !loader.Touched()) {
        // Nothing of the network in memory changed, but a save must never go to the file that
        // could not be read.
        if (!merging) model.FileName.clear();
        return false;
    }
    if (loader.Touched()) loader.Rebuild();
    if (outcome == Outcome::Completed) {
        model.NetworkSaved = Yes255;
        report.Completed = !report.AirwaysCut;
        return true;
    }
    // Ended by the handler: what was read stays, under no name (a merge: the network's own)
    // and marked unsaved.
    if (!merging) model.FileName.clear();
    if (loader.Touched()) model.NetworkSaved = No0;
    ui.SetBusy(false);
    return false;
}

bool OpenNetworkDialog(Model& model, ui::UserInterface& ui) { return OpenNetworkDialog(model, ui, LoadOptions{}); }

bool OpenNetworkDialog(Model& model, ui::UserInterface& ui, const LoadOptions& options) {
    ui::FileDialogRequest request;
    request.Filter = NetworkFileFilter;
    request.StartFolder = ui.GetSetting(StoreApp, FilesSection, "DefaultDir", "");
    const std::optional<std::string> choice = ui.OpenFileDialog(request);
    if (!choice || choice->empty()) return false;
    ui.SaveSetting(StoreApp, FilesSection, "DefaultDir", std::filesystem::path(*choice).parent_path().string());

    ui.SetBusy(true);
    const std::string oldName = model.FileName;
    const bool oldMaster = model.MasterFile;
    LoadReport local;
    LoadOptions opts = options;
    if (!opts.Report) opts.Report = &local;
    const bool read = LoadNetwork(model, *choice, ui, opts);
    if (!opts.Report->NetworkChanged) {
        model.FileName = oldName;
        model.MasterFile = oldMaster;
    }
    ui.SetBusy(false);
    return read;
}

void MergeNetwork(Model& model, ui::UserInterface& ui) {
    const std::int32_t firstNew = CheckedAirwayCount(model) + 1;
    // The merged levels go behind every row in use (in a sorted list, behind the first free
    // row), so that none of the network's own levels is written over.
    LoadOptions options;
    options.RLOffset = 1;
    for (std::int32_t i = LevelRowsInFile; i >= 1; --i)
        if (Index(i) < model.Levels.size() && !IsFreeLevel(model.Levels[Index(i)])) {
            options.RLOffset = i + 1;
            break;
        }
    options.FirstLoadRow = firstNew;
    LoadReport report;
    options.Report = &report;
    std::int32_t highest = model.Set.LastAirwayNo;
    for (std::int32_t row = 1; row < firstNew; ++row) highest = std::max(highest, model.Airways[Index(row)].AirwayNo);

    OpenNetworkDialog(model, ui, options);
    if (!report.NetworkChanged) return;

    // A level that both networks have stays once.
    SortLevels(model);
    for (std::int32_t i = 1; i < LevelRows; ++i) {
        LevelRecord& a = model.Levels[Index(i)];
        const LevelRecord& b = model.Levels[Index(i + 1)];
        if (!IsFreeLevel(a) && a.RLName == b.RLName && a.RLMax == b.RLMax) a = LevelRecord{};
    }
    SortLevels(model);

    ui.SetBusy(true);
    if (firstNew > 1) {
        // Merged airways are numbered behind every number already given.
        model.Set.LastAirwayNo = highest < INT32_MAX ? highest + 1 : highest;
        NumberAirways(model, firstNew, false);
        model.Set.LastAirwayNo -= 1;
        model.NetworkSaved = No0;
    }
    BuildNodeKeys(model, ui);
    SortAirways(model, ui);
    ui.SetBusy(false);
}

} // namespace karvane::files
