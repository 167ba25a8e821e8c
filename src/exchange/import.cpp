// The import road: the file read into rows held aside, then the network cleared or kept, the
// rows moved in, offset, numbered and finished, a level list built, keys and resistances
// rebuilt. The text reader is here; the DXF reader is dxf_import.cpp.
#include "exchange/import.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "engineering/resistance.h"
#include "exchange/import_rows.h"
#include "files/app_files.h"
#include "files/number_text.h"
#include "model/level_list.h"
#include "model/network_rows.h"
#include "model/node_keys.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::exchange {

// ---------------------------------------------------------------------------------------------
// Rows held aside while a file is read.

ImportRows::ImportRows(Model& m, ui::UserInterface& ui, std::int32_t capacity)
    : model(m),
      ui_(ui),
      capacity_(std::max(0, capacity)),
      lengthFactor_(ToDisplay(m, 1.0, uc::Length)) {}

std::int32_t ImportRows::Coordinate(double raw) {
    if (raw > CoordinateLimit) {
        if (!clipTold_) ui_.Message(ImportClipText, ProgramName, ui::Icon::Exclamation);
        clipTold_ = true;
        raw = std::fmod(raw, CoordinateLimit + 1);
    }
    return files::ToInt32(lengthFactor_ != 0 ? raw / lengthFactor_ : raw);
}

float ImportRows::Length(double raw) const { return files::ToSingle(lengthFactor_ != 0 ? raw / lengthFactor_ : raw); }

Airway* ImportRows::NewRow() {
    if (stopped_) return nullptr;
    if (static_cast<std::int32_t>(Rows.size()) >= capacity_) {
        ui_.Message(ImportCapacityText, ProgramName, ui::Icon::Exclamation);
        stopped_ = true;
        return nullptr;
    }
    return &Rows.emplace_back();
}

bool ImportRows::Fault() {
    if (!asked_) {
        asked_ = true;
        if (ui_.Ask(ImportErrorText, ImportErrorTitle, ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes)
            stopped_ = true;
    }
    return !stopped_;
}

// ---------------------------------------------------------------------------------------------
// Text rows.

void ReadTextRows(ImportRows& rows, files::TextFileReader& in) {
    std::string line;
    files::Fields f;
    if (!in.ReadLine(line)) return; // the heading
    while (!rows.Stopped() && in.ReadLine(line)) {
        if (TrimText(line).empty()) continue;
        Airway* a = rows.NewRow();
        if (!a) return;
        files::SplitTabs(line, f);

        // A short row or a number field that holds no number is a fault of the file.
        bool fault = std::count(line.begin(), line.end(), '\t') < 15;
        for (int k : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14, 15, 16})
            if (!TrimText(f[static_cast<std::size_t>(k)]).empty() && !files::IsNumber(f[static_cast<std::size_t>(k)]))
                fault = true;
        if (fault && !rows.Fault()) {
            rows.DropLastRow();
            return;
        }

        auto num = [&](int k) { return files::ParseNumber(f[static_cast<std::size_t>(k)]); };
        a->X1 = rows.Coordinate(num(1)), a->Y1 = rows.Coordinate(num(2)), a->Z1 = rows.Coordinate(num(3));
        a->X2 = rows.Coordinate(num(4)), a->Y2 = rows.Coordinate(num(5)), a->Z2 = rows.Coordinate(num(6));
        a->Quantity = files::ToSingle(FromDisplay(rows.model, f[7], uc::Flow));
        a->Resistance = files::ToSingle(FromDisplay(rows.model, f[8], uc::Resistance));
        a->FanNumber = files::ToInt16(num(9));
        a->NoOfFans = files::ToInt16(num(10));
        a->BranchName = FitText(TrimText(f[11]), NameWidth);
        a->EntryNode = FitText(TrimText(f[12]), NameWidth);
        a->ExitNode = FitText(TrimText(f[13]), NameWidth);
        a->Height = rows.Length(num(14));
        a->Width = rows.Length(num(15));
        a->AirwayNo = files::ToInt32(num(16));
    }
}

// ---------------------------------------------------------------------------------------------
// Finishing and levels.

namespace {

enum class Kind { Text, Dxf, Other };

Kind KindOf(const std::string& path) {
    if (path.size() < 3) return Kind::Other;
    std::string tail = path.substr(path.size() - 3);
    for (char& c : tail)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (tail == "TXT") return Kind::Text;
    if (tail == "DXF") return Kind::Dxf;
    return Kind::Other;
}

void BlankLevels(Model& model) { model.Levels.assign(static_cast<std::size_t>(LevelRows) + 1, LevelRecord{}); }

// Gives a new row its shape, sizes, presets and layers from the settings.
void FinishRow(Model& model, Airway& a, const ImportFields& fields) {
    const Settings& s = model.Set;
    a.EntryKey = EndKey(model, a.X1, a.Y1, a.Z1, false);
    a.ExitKey = EndKey(model, a.X2, a.Y2, a.Z2, false);
    const double dx = static_cast<double>(a.X2) - a.X1, dy = static_cast<double>(a.Y2) - a.Y1,
                 dz = static_cast<double>(a.Z2) - a.Z1;
    const double length = std::sqrt(dx * dx + dy * dy + dz * dz);

    // A row without a width takes the default size. A width with no height is a round airway
    // of that diameter, as the text export writes one, and keeps it.
    if (a.Width == 0) {
        if (s.UseArea != 0) {
            a.Height = s.DefaultPerimeter;
            a.Width = s.DefaultArea;
        } else if (std::fabs(dz) * 1.5 > length && !fields.ChkSize) {
            a.Height = 0;
            a.Width = s.RaiseDiameter;
        } else {
            a.Height = s.DriveHeight;
            a.Width = s.DriveWidth;
        }
    }
    if (a.Height == 0) {
        a.BranchCode |= bc::Circular;
        a.WallType = s.RaiseWallType;
    } else {
        a.WallType = s.DriveWallType;
        a.BranchCode |= s.UseArea != 0 ? bc::AreaEntry : bc::Rectangular;
    }

    a.ShockType = files::ToInt16(s.DefaultShock);
    const auto preset = [](std::int16_t index) {
        return static_cast<std::size_t>(std::clamp<int>(index, 0, PresetRows));
    };
    a.ShockFactor = model.Preset.ShockPreset[preset(a.ShockType)];
    a.WallFactor = model.Preset.WallPreset[preset(a.WallType)];
    a.PrimaryLayer = model.DrawPrimaryLayer;
    a.SecondLayer = model.DrawSecondaryLayer;
    if (fields.ChkRDrive && a.BranchCode == bc::Rectangular) a.ResType = CustomPreset;
    if (fields.ChkRRaise && a.BranchCode == bc::Circular) a.ResType = CustomPreset;
    if (a.FanNumber != 0) a.BranchCode |= bc::FansInSeries;
    // Every imported airway takes the friction of preset 4, whatever its shape.
    a.WallType = 4;
}

// Ten metres above a level, held within the range of a level.
std::int32_t TenAbove(std::int32_t rl) {
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(static_cast<std::int64_t>(rl) + 10, std::numeric_limits<std::int32_t>::max()));
}

std::int32_t FirstFreeLevel(const Model& model, int from) {
    for (int r = from; r <= LevelRowsInFile; ++r)
        if (IsFreeLevel(model.Levels[static_cast<std::size_t>(r)])) return r;
    return 0;
}

// One level spanning the heights of the import, and a surface above it.
void BuildImportLevel(Model& model, ui::UserInterface& ui, std::int32_t zMax, std::int32_t zMin) {
    LevelRecord& surface = model.Levels[1];
    if (!(surface.RLMax > zMax && surface.RLMin > zMax)) surface = {"Surface", TenAbove(zMax), TenAbove(zMax)};
    if (const std::int32_t row = FirstFreeLevel(model, 2); row != 0) {
        model.Levels[static_cast<std::size_t>(row)] = {"Import Level", zMax, zMin};
    } else {
        ui.Message(RLCountText, ProgramName, ui::Icon::Exclamation);
    }
    SortLevels(model);
}

// Sorts rows 2 on, the surface row staying where it is.
void SortBelowSurface(Model& model) {
    const LevelRecord surface = model.Levels[1];
    model.Levels[1] = {"", std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::max()};
    SortLevels(model);
    model.Levels[1] = surface;
}

// A level for every distinct height of the To ends, and the surface by the user's answer: on
// the highest level itself, or ten metres above it.
void BuildLevelsByHeight(Model& model, ui::UserInterface& ui) {
    std::set<std::int32_t> known;
    for (int r = 1; r <= LevelRowsInFile; ++r) {
        const LevelRecord& level = model.Levels[static_cast<std::size_t>(r)];
        if (!IsFreeLevel(level)) known.insert(level.RLMax);
    }
    std::set<std::int32_t> added;
    bool toldAbove = false, toldBelow = false, toldCount = false;
    std::int32_t highest = std::numeric_limits<std::int32_t>::min();
    int running = 0;
    for (std::int32_t i = 1; i <= model.AirwayCount; ++i) {
        std::int32_t z = model.Airways[static_cast<std::size_t>(i)].Z2;
        if (z > 9999999) {
            if (!toldAbove) ui.Message(RLAboveText, ProgramName, ui::Icon::Exclamation);
            toldAbove = true;
            z = 9999999;
        } else if (z < -9999999) {
            if (!toldBelow) ui.Message(RLBelowText, ProgramName, ui::Icon::Exclamation);
            toldBelow = true;
            z = -9999999;
        }
        highest = std::max(highest, z);
        if (known.count(z) != 0) continue;
        const std::int32_t row = FirstFreeLevel(model, 2);
        if (row == 0) {
            if (!toldCount) ui.Message(RLCountText, ProgramName, ui::Icon::Exclamation);
            toldCount = true;
            continue;
        }
        model.Levels[static_cast<std::size_t>(row)] = {"Level " + std::to_string(++running), z, z};
        known.insert(z);
        added.insert(z);
    }

    SortBelowSurface(model);
    for (int r = 2; r <= LevelRowsInFile; ++r) {
        LevelRecord& level = model.Levels[static_cast<std::size_t>(r)];
        if (!IsFreeLevel(level) && added.count(level.RLMax) != 0 && level.RLName.rfind("Level ", 0) == 0)
            level.RLName = "Level " + std::to_string(level.RLMax);
    }

    const bool onTop =
        ui.Ask(SurfaceLevelQuestion, SurfaceLevelTitle, ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
    if (onTop) {
        // The highest level becomes the surface.
        for (int r = 2; r <= LevelRowsInFile; ++r) {
            LevelRecord& level = model.Levels[static_cast<std::size_t>(r)];
            if (!IsFreeLevel(level) && level.RLMax == highest && added.count(highest) != 0 && level.RLMin == highest) {
                level = LevelRecord{};
                break;
            }
        }
        model.Levels[1] = {"Surface", highest, highest};
    } else {
        const LevelRecord& top = model.Levels[2];
        const std::int32_t rl = TenAbove(IsFreeLevel(top) ? highest : top.RLMin);
        model.Levels[1] = {"Surface", rl, rl};
    }
    SortLevels(model);
}

} // namespace

// ---------------------------------------------------------------------------------------------

bool ImportFile(Model& model, ui::UserInterface& ui, const std::string& importPath, const ImportFields& fields,
                ImportReport* report) {
    ImportReport local;
    ImportReport& out = report ? *report : local;
    out = ImportReport{};

    const Kind kind = KindOf(importPath);
    if (kind == Kind::Other) {
        ui.Message(ImportKindText, ImportErrorTitle, ui::Icon::Exclamation);
        return false;
    }
    files::TextFileReader in;
    if (const int code = in.Open(importPath); code != files::err::None) {
        ui.Message(files::FileErrorText(code, " occurred loading file"), ImportErrorTitle, ui::Icon::Exclamation);
        return false;
    }

    ui.SetBusy(true);
    ui.PumpEvents();
    const bool merge = fields.ChkMerge;
    const std::int32_t kept = merge ? std::clamp<std::int32_t>(model.AirwayCount, 0, MaxAirways) : 0;
    // Text rows may fill the table to its last row; a drawing stops one row short of it.
    const std::int32_t lastRow = kind == Kind::Text ? MaxAirways : MaxAirways - 1;
    ImportRows rows(model, ui, lastRow - kept);
    if (kind == Kind::Text) {
        ReadTextRows(rows, in);
    } else {
        ReadDxfRows(rows, in);
    }
    out.ReadToEnd = !rows.Stopped();
    // A row with both ends at the origin is what an entity without coordinates gives; node keys
    // would take it for a cleared row and drop it, so it does not count as read.
    std::erase_if(rows.Rows, [](const Airway& a) {
        return a.X1 == 0 && a.Y1 == 0 && a.Z1 == 0 && a.X2 == 0 && a.Y2 == 0 && a.Z2 == 0;
    });
    out.RowsRead = static_cast<std::int32_t>(rows.Rows.size());
    if (rows.Rows.empty()) {
        ui.SetBusy(false);
        ui.Message("No airways were found in " + importPath + " - nothing was changed", ImportErrorTitle,
                   ui::Icon::Exclamation);
        return false;
    }

    if (!merge) {
        ClearNetwork(model);
        BlankLevels(model);
        model.AirwayCount = 0;
        model.FileName.clear();
    }
    const std::int32_t first = model.AirwayCount + 1;
    out.FirstNewRow = first;
    for (Airway& a : rows.Rows) {
        const std::int32_t row = NewAirwayRow(model);
        if (row == 0) break;
        model.Airways[static_cast<std::size_t>(row)] = std::move(a);
    }
    const std::int32_t last = model.AirwayCount;

    // Offsets in the length unit, then the sign of each axis.
    const double off[3] = {FromDisplay(model, fields.TxtXOffset, uc::Length),
                           FromDisplay(model, fields.TxtYOffset, uc::Length),
                           FromDisplay(model, fields.TxtZOffset, uc::Length)};
    const double sign[3] = {fields.NegX ? -1.0 : 1.0, fields.NegY ? -1.0 : 1.0, fields.NegZ ? -1.0 : 1.0};
    std::int32_t zMax = std::numeric_limits<std::int32_t>::min(), zMin = std::numeric_limits<std::int32_t>::max();
    for (std::int32_t r = first; r <= last; ++r) {
        Airway& a = model.Airways[static_cast<std::size_t>(r)];
        std::int32_t* ends[2][3] = {{&a.X1, &a.Y1, &a.Z1}, {&a.X2, &a.Y2, &a.Z2}};
        for (auto& end : ends)
            for (int axis = 0; axis < 3; ++axis)
                *end[axis] = files::ToInt32((static_cast<double>(*end[axis]) + off[axis]) * sign[axis]);
        zMax = std::max(zMax, a.Z1);
        zMin = std::min(zMin, a.Z1);
    }
    out.ImportZMax = zMax;
    out.ImportZMin = zMin;

    // New airways are numbered behind every number already given; a new network from 1.
    std::int32_t highest = merge ? model.Set.LastAirwayNo : 0;
    for (std::int32_t r = 1; r < first; ++r)
        highest = std::max(highest, model.Airways[static_cast<std::size_t>(r)].AirwayNo);
    model.Set.LastAirwayNo = highest < std::numeric_limits<std::int32_t>::max() ? highest + 1 : highest;
    NumberAirways(model, first, false);
    model.Set.LastAirwayNo -= 1;
    for (std::int32_t r = first; r <= last; ++r) FinishRow(model, model.Airways[static_cast<std::size_t>(r)], fields);

    if (!merge || model.AirwayCount <= 1) BlankLevels(model);
    if (model.Levels.size() < static_cast<std::size_t>(LevelRows) + 1) model.Levels.resize(LevelRows + 1);
    if (fields.ChkRL) {
        BuildLevelsByHeight(model, ui);
    } else {
        BuildImportLevel(model, ui, zMax, zMin);
    }

    RecalcAllAirways(model);
    model.NetworkSaved = No0;
    model.SimValid = Validity::NotValid;
    model.Run.NeighboursValid = false;
    BuildNodeKeys(model, ui);
    SortLevels(model);
    out.CurrentLevel = LevelCount(model) >= 2 ? 2 : 1;
    model.CurrentRLMin = model.Levels[static_cast<std::size_t>(out.CurrentLevel)].RLMin;
    model.CurrentRLMax = model.Levels[static_cast<std::size_t>(out.CurrentLevel)].RLMax;
    out.NetworkChanged = true;
    ui.SetBusy(false);
    return true;
}

std::optional<std::string> ChooseImportFile(ui::UserInterface& ui, bool dxf) {
    ui::FileDialogRequest request;
    request.Filter =
        dxf ? "Data Files (*.DXF)|*.DXF|All Filese (*.*)|*.*" : "Data Files (*.TXT)|*.TXT|All Filese (*.*)|*.*";
    request.DefaultExtension = dxf ? "DXF" : "TXT";
    std::optional<std::string> path = ui.OpenFileDialog(request);
    if (path && path->empty()) path.reset();
    return path;
}

} // namespace karvane::exchange
