// The paste store, the copy to the defaults, PasteToRow and the list of carried attributes.
#include "edit/attribute_paste.h"

#include "engineering/resistance.h"
#include "files/number_text.h"
#include "model/units.h"

namespace karvane::edit {

namespace {

// Of BranchCode the shape item takes these bits from the store (after the surface bits were
// taken off at the copy), and the row first loses these.
constexpr std::int32_t kShapeCarried = 0xFFF913;
constexpr std::int32_t kShapeCleared = 0x13;
constexpr std::int32_t kShapeBits = bc::Rectangular | bc::Circular | bc::AreaEntry;

bool Carried(std::int16_t mask, std::int16_t bit) { return (mask & bit) == 0; }

void TakeBit(std::int32_t& code, std::int32_t from, std::int32_t bit) { code = (code & ~bit) | (from & bit); }

// A preset's name; a custom value or a nameless row shows its value instead.
template <typename Names, typename Values>
std::string PresetName(const Names& names, const Values& values, std::int16_t index, float own, char sep) {
    if (index >= 0 && static_cast<std::size_t>(index) < names.size()) {
        const std::string name = TrimText(names[static_cast<std::size_t>(index)]);
        if (!name.empty()) return name;
        if (index < CustomPreset) return files::PlainSingle(values[static_cast<std::size_t>(index)], sep);
    }
    return files::PlainSingle(own, sep);
}

std::string LayerName(const std::vector<LayerRecord>& layers, std::int16_t n) {
    if (n < 0 || static_cast<std::size_t>(n) >= layers.size()) return {};
    return TrimText(layers[static_cast<std::size_t>(n)].Name);
}

std::string Shown(const Model& model, float value, int unitClass, char sep) {
    return files::PlainSingle(ToDisplay(model, value, unitClass), sep);
}

PasteStore StoreOf(const Airway& a) {
    PasteStore s;
    s.PasteBranchCode = a.BranchCode & ~(bc::EntryAtSurface | bc::ExitAtSurface);
    s.PasteShape = PasteShapeOf(a);
    s.Values = a;
    return s;
}

} // namespace

std::int16_t PasteShapeOf(const Airway& a) {
    if (a.Has(bc::AreaEntry)) return 3;
    if (a.Has(bc::Circular)) return 2;
    return 1;
}

void CopyToPasteStore(Model& model, std::int32_t row) {
    if (row < 1 || row > model.AirwayCount) return;
    model.Paste = StoreOf(model.Airways[static_cast<std::size_t>(row)]);
}

void CopyToDefaults(Model& model, std::int32_t row) {
    if (row < 1 || row > model.AirwayCount) return;
    const Airway& a = model.Airways[static_cast<std::size_t>(row)];
    const std::int16_t mask = model.Set.AttributeMask;
    const std::int16_t shape = PasteShapeOf(a);
    Settings& s = model.Set;
    if (Carried(mask, attr::Shape)) {
        if (shape == 1) {
            s.DriveHeight = a.Height;
            s.DriveWidth = a.Width;
        } else if (shape == 2) {
            s.RaiseDiameter = a.Width;
        } else {
            s.DefaultArea = a.Width;
            s.DefaultPerimeter = a.Height;
        }
    }
    // A custom wall or shock (kept in the airway) has no preset that a default could name.
    if (Carried(mask, attr::Wall) && a.WallType >= 0 && a.WallType < CustomPreset) {
        (shape == 2 ? s.RaiseWallType : s.DriveWallType) = a.WallType;
    }
    if (Carried(mask, attr::Shock) && a.ShockType >= 0 && a.ShockType < CustomPreset) s.DefaultShock = a.ShockType;
    if (Carried(mask, attr::Primary) && a.PrimaryLayer >= 1 && a.PrimaryLayer <= PrimaryLayerCount)
        model.DrawPrimaryLayer = a.PrimaryLayer;
    if (Carried(mask, attr::Secondary) && a.SecondLayer >= 1 && a.SecondLayer <= SecondLayerCount)
        model.DrawSecondaryLayer = a.SecondLayer;
    model.DefaultsSaved = No0;
}

void PasteToRow(Model& model, std::int32_t row) {
    if (row < 1 || row > model.AirwayCount) return;
    Airway& a = model.Airways[static_cast<std::size_t>(row)];
    const PasteStore& store = model.Paste;
    const Airway& v = store.Values;
    const std::int16_t mask = model.Set.AttributeMask;
    const std::int32_t from = store.PasteBranchCode;
    if (Carried(mask, attr::Shape)) {
        a.BranchCode &= ~kShapeCleared;
        a.BranchCode |= from & kShapeCarried;
        a.BranchCode &= ~kShapeBits;
        if (store.PasteShape == 2) {
            a.Height = 0;
            a.Width = v.Width;
            a.BranchCode |= bc::Circular;
        } else {
            a.Height = v.Height;
            a.Width = v.Width;
            a.BranchCode |= store.PasteShape == 3 ? bc::AreaEntry : bc::Rectangular;
        }
    }
    if (Carried(mask, attr::Wall)) {
        a.WallType = v.WallType;
        a.WallFactor = v.WallFactor;
    }
    if (Carried(mask, attr::Shock)) {
        a.ShockType = v.ShockType;
        a.ShockFactor = v.ShockFactor;
    }
    if (Carried(mask, attr::Resistance)) {
        a.ResType = v.ResType;
        a.Resistance = v.Resistance;
    }
    if (Carried(mask, attr::Length)) {
        TakeBit(a.BranchCode, from, bc::FixedLength);
        if ((from & bc::FixedLength) != 0) a.Length = v.Length;
    }
    if (Carried(mask, attr::Air)) TakeBit(a.BranchCode, from, bc::FreshAir | bc::ExhaustAir);
    if (Carried(mask, attr::Primary)) a.PrimaryLayer = v.PrimaryLayer;
    if (Carried(mask, attr::Secondary)) a.SecondLayer = v.SecondLayer;
    if (Carried(mask, attr::Display)) TakeBit(a.BranchCode, from, bc::DataHidden);
    RecalcAirway(model, row);
}

std::vector<std::string> AttributeLines(const Model& model, const PasteStore& store, std::int16_t mask, Wording wording,
                                        char sep) {
    std::vector<std::string> lines;
    const Airway& v = store.Values;
    const bool copy = wording == Wording::Copy;
    const int shape = store.PasteShape == 2 || store.PasteShape == 3 ? store.PasteShape : 1;
    if (Carried(mask, attr::Shape)) {
        if (shape == 1) {
            lines.push_back("Dimension " + Shown(model, v.Height, uc::Length, sep) + " x " +
                            Shown(model, v.Width, uc::Length, sep));
        } else if (shape == 2) {
            lines.push_back("Diameter " + Shown(model, v.Width, uc::Length, sep));
        } else if (copy) {
            lines.push_back("Area " + Shown(model, v.Width, uc::Area, sep) + " x Perimeter " +
                            Shown(model, v.Height, uc::Length, sep));
        } else {
            lines.push_back("Dimension " + Shown(model, v.Width, uc::Area, sep) + "x P" +
                            Shown(model, v.Height, uc::Length, sep));
        }
    }
    if (Carried(mask, attr::Wall)) {
        static const char* const typeWords[] = {"Drive Wall Type: ", "Raise Wall Type: ", "Airway Wall Type: "};
        static const char* const factorWords[] = {
            "Drive Wall Friction Factor: ", "Raise Wall Friction Factor: ", "Airway Wall Friction Factor: "};
        lines.push_back(std::string((copy ? factorWords : typeWords)[shape - 1]) +
                        PresetName(model.Preset.WallNames, model.Preset.WallPreset, v.WallType, v.WallFactor, sep));
    }
    if (Carried(mask, attr::Shock)) {
        const std::string name =
            PresetName(model.Preset.ShockNames, model.Preset.ShockPreset, v.ShockType, v.ShockFactor, sep);
        lines.push_back(copy ? "Shock Value: " + name : name);
    }
    if (Carried(mask, attr::Resistance)) {
        lines.push_back("Resistance Type: " +
                        PresetName(model.Preset.ResNames, model.Preset.ResPreset, v.ResType, v.Resistance, sep));
    }
    if (Carried(mask, attr::Length)) {
        if ((store.PasteBranchCode & bc::FixedLength) == 0) {
            lines.push_back("Length is unfixed");
        } else {
            lines.push_back(copy ? "Length is fixed to  " + Shown(model, v.Length, uc::Length, sep)
                                 : std::string("Length is fixed"));
        }
    }
    if (Carried(mask, attr::Air)) {
        if ((store.PasteBranchCode & bc::FreshAir) != 0) {
            lines.push_back("Airway is in fresh air");
        } else if ((store.PasteBranchCode & bc::ExhaustAir) != 0) {
            lines.push_back("Airway is in exhaust air");
        } else {
            lines.push_back("Airway is in unspecified air");
        }
    }
    if (Carried(mask, attr::Primary)) {
        lines.push_back("Primary Layer = " + std::to_string(v.PrimaryLayer) + " : " +
                        LayerName(model.PrimaryLayers, v.PrimaryLayer));
    }
    if (Carried(mask, attr::Secondary)) {
        lines.push_back("Secondary Layer = " + std::to_string(v.SecondLayer) + " : " +
                        LayerName(model.SecondaryLayers, v.SecondLayer));
    }
    if (Carried(mask, attr::Display)) {
        lines.push_back((store.PasteBranchCode & bc::DataHidden) != 0 ? "Data values will be hidden"
                                                                      : "Data values will be shown");
    }
    return lines;
}

std::string AttributeMessage(const Model& model, std::int32_t row, Wording wording, char sep) {
    std::string text;
    const std::string number = std::to_string(row);
    switch (wording) {
    case Wording::Defaults: text = "The following attributes for branch " + number + " were copied to defaults"; break;
    case Wording::Copy:
        text = "The following attributes for branch " + number + " were copied for future pasting";
        break;
    case Wording::Paste: text = "Attributes pasted to Branch " + number; break;
    }
    // The defaults are listed from the airway itself; a copy and a paste from the store.
    PasteStore source = model.Paste;
    if (wording == Wording::Defaults && row >= 1 && row <= model.AirwayCount)
        source = StoreOf(model.Airways[static_cast<std::size_t>(row)]);
    for (const std::string& line : AttributeLines(model, source, model.Set.AttributeMask, wording, sep))
        text += "\n" + line;
    return text;
}

} // namespace karvane::edit
