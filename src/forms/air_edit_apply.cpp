// The airway editor's apply, in the documented order of its steps, and its closings: OK,
// Cancel, Info, ReCalc and the leaving of the dialog, with the undo log entries of each, and
// the orifice and shock calculators that fill its boxes.
#include <algorithm>
#include <cfloat>
#include <cmath>

#include "engineering/resistance.h"
#include "forms/air_edit.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::forms {

namespace {

// Whether a text begins with a number once blanks are skipped: a sign, then a digit or a
// decimal separator followed by a digit.
bool BeginsWithNumber(std::string_view t) {
    std::size_t i = 0;
    while (i < t.size() && (t[i] == ' ' || t[i] == '\t')) ++i;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
    if (i < t.size() && (t[i] == '.' || t[i] == ',')) ++i;
    return i < t.size() && t[i] >= '0' && t[i] <= '9';
}

void SetBit(Airway& a, std::int32_t bit, bool on) {
    if (on) {
        a.BranchCode |= bit;
    } else {
        a.BranchCode &= ~bit;
    }
}

int ShapeBitsIndex(const Airway& a) {
    int shape = -1;
    if (a.Has(bc::Rectangular)) shape = ShapeRectangular;
    if (a.Has(bc::Circular)) shape = ShapeCircular;
    if (a.Has(bc::AreaEntry)) shape = ShapeArea;
    return shape;
}

constexpr std::int32_t ShapeBit(int index) {
    return index == ShapeCircular ? bc::Circular : index == ShapeArea ? bc::AreaEntry : bc::Rectangular;
}

} // namespace

std::optional<double> AirEditForm::Number(const std::string& text) {
    if (TrimText(text).empty()) return 0.0;
    const double v = BeginsWithNumber(text) ? ParseLeadingNumber(text) : NAN;
    if (!std::isfinite(v) || std::fabs(v) > FLT_MAX) {
        ui_.Message(DataEntryError, ProgramName, ui::Icon::Exclamation);
        return std::nullopt;
    }
    return v;
}

// A box's value in SI for a single-precision field; nothing (after the message) when the box
// does not hold a number that fits.
static std::optional<float> SiSingle(const Model& model, ui::UserInterface& ui, std::optional<double> shown,
                                     int unitClass) {
    if (!shown) return std::nullopt;
    const float factor = ToDisplay(model, 1.0, unitClass);
    const double si = factor != 0.0f && std::isfinite(factor) ? *shown / factor : *shown;
    if (!std::isfinite(si) || std::fabs(si) > FLT_MAX) {
        ui.Message(DataEntryError, ProgramName, ui::Icon::Exclamation);
        return std::nullopt;
    }
    return static_cast<float>(si);
}

void AirEditForm::RenameNode(std::int32_t row, bool entry, const std::string& name) {
    Airway& a = model_.Airways[static_cast<std::size_t>(row)];
    (entry ? a.EntryNode : a.ExitNode) = name;
    const Fixed4 key = entry ? a.EntryKey : a.ExitKey;
    if (key == SurfaceKey || key == 0) return;
    // Every end of the same node takes the name; the other airways it changes are logged too.
    for (std::int32_t r = 1; r <= model_.AirwayCount; ++r) {
        if (r == row) continue;
        Airway& other = model_.Airways[static_cast<std::size_t>(r)];
        const bool entryHit = other.EntryKey == key && other.EntryNode != name;
        const bool exitHit = other.ExitKey == key && other.ExitNode != name;
        if (!entryHit && !exitHit) continue;
        undo_.LogAirway(model_, ui_, r, files::undo::Before, undo_.CurrentStep);
        if (entryHit) other.EntryNode = name;
        if (exitHit) other.ExitNode = name;
        undo_.LogAirway(model_, ui_, r, files::undo::After, undo_.CurrentStep);
    }
}

void AirEditForm::ApplySteps(Airway& a, std::int32_t row) {
    const bool single = !Multiple();
    // 1. A fixed pressure and a fixed flow together make the resistance that gives that
    // pressure at that flow, worked on the values on the screen.
    if (single && f_.ChkPress && f_.CheckFix) {
        const double p = ParseLeadingNumber(f_.TxtPres), q = ParseLeadingNumber(f_.TxtFlow);
        if (p != 0 && q != 0 && std::isfinite(p) && std::isfinite(q)) {
            f_.ChkFixRes = true;
            f_.TxtFixRes = FormatNumber(std::fabs(p / (q * q)), "0.00000", sep_);
            f_.CheckFix = f_.ChkPress = false;
            if (const auto v = SiSingle(model_, ui_, Number(f_.TxtPres), uc::Pressure)) a.Pressure = *v;
            a.FanNumber = 0;
        }
    }
    // 2. Fixed direction.
    if (Does(AirGroup::Direction)) SetBit(a, bc::FixedDirection, f_.CheckDirection);
    // 3. Layers: the remembered row or the row chosen; a typed text names that layer.
    auto takeLayer = [&](bool primary) {
        const int remembered = primary ? primaryRemembered_ : secondRemembered_;
        const int layer = remembered != 0 ? remembered : (primary ? f_.PrimaryIndex : f_.SecondIndex) + 1;
        auto& list = primary ? model_.PrimaryLayers : model_.SecondaryLayers;
        if (layer < 1 || static_cast<std::size_t>(layer) >= list.size()) return;
        (primary ? a.PrimaryLayer : a.SecondLayer) = static_cast<std::int16_t>(layer);
        const std::string text = FitText(TrimText(primary ? f_.PrimaryText : f_.SecondText), NameWidth);
        // The number that stands for an unnamed layer is not a name.
        if (!text.empty() && text != std::to_string(layer)) list[static_cast<std::size_t>(layer)].Name = text;
    };
    if (Does(AirGroup::Primary)) takeLayer(true);
    if (Does(AirGroup::Second)) takeLayer(false);
    // 4. Shape bits.
    if (Does(AirGroup::MultiAir)) {
        a.BranchCode &= ~(bc::Rectangular | bc::Circular | bc::AreaEntry);
        a.BranchCode |= ShapeBit(f_.ShapeIndex);
    }
    // 5. Names; a node name goes to every end of the node.
    if (single) {
        a.BranchName = FitText(TrimText(f_.TxtName), NameWidth);
        RenameNode(row, true, FitText(TrimText(f_.LblFrom), NameWidth));
        RenameNode(row, false, FitText(TrimText(f_.LblTo), NameWidth));
    }
    // 6. Flow and station.
    if (single) {
        if (const auto v = SiSingle(model_, ui_, Number(f_.TxtFlow), uc::Flow)) a.Quantity = *v;
        a.RemoteStation = static_cast<std::int16_t>(std::clamp(f_.RemoteIndex, 0, StationCount));
    }
    // 7 to 10. Direction, fixed pressure, fixed flow, surface ends.
    if (single) {
        SetBit(a, bc::FixedDirection, f_.CheckDirection);
        if (f_.ChkPress) {
            if (const auto v = SiSingle(model_, ui_, Number(f_.TxtPres), uc::Pressure)) {
                a.FanNumber = -1;
                a.Pressure = *v;
            }
        } else if (a.FanNumber == -1) {
            a.FanNumber = 0;
        }
        SetBit(a, bc::FixedFlow, f_.CheckFix);
        SetBit(a, bc::EntryAtSurface, f_.ChkSurfaceEntry);
        SetBit(a, bc::ExitAtSurface, f_.ChkSurfaceExit);
    }
    // 11 to 14. Services, fixed length, fresh or exhaust, data display.
    if (Does(AirGroup::Service)) SetBit(a, bc::Services, f_.CheckService);
    if (Does(AirGroup::Length)) SetBit(a, bc::FixedLength, f_.CheckLength);
    if (Does(AirGroup::AirType)) {
        SetBit(a, bc::FreshAir, f_.OptFresh);
        SetBit(a, bc::ExhaustAir, f_.OptExhaust);
    }
    if (Does(AirGroup::ShowData)) SetBit(a, bc::DataHidden, !f_.OptShowData);
    // 15, 16. Size, only on an airway of the dialog's shape.
    const bool sameShape = ShapeBitsIndex(a) == f_.ShapeIndex;
    if (Does(AirGroup::Width) && sameShape) {
        const int unitClass = f_.ShapeIndex == ShapeArea ? uc::Area : uc::Length;
        if (const auto v = SiSingle(model_, ui_, Number(f_.TxtWidth), unitClass)) a.Width = *v;
    }
    if (Does(AirGroup::Height) && sameShape) {
        if (f_.ShapeIndex == ShapeCircular) {
            a.Height = 0;
        } else if (const auto v = SiSingle(model_, ui_, Number(f_.TxtHeight), uc::Length)) {
            a.Height = *v;
        }
        if (a.Height == 0.0f) a.Height = 0.01f;
        if (a.Width == 0.0f) a.Width = 0.01f;
    }
    // 17. Parallel airways.
    if (Does(AirGroup::MultiAir)) {
        if (const auto v = Number(f_.TxtMultiAir)) {
            if (*v < 1 || *v > 32767) {
                ui_.Message(DataEntryError, ProgramName, ui::Icon::Exclamation);
            } else {
                a.NoAirways = static_cast<std::int16_t>(std::trunc(*v));
            }
        }
    }
    // 18. Length.
    if (Does(AirGroup::Length)) {
        if (const auto v = SiSingle(model_, ui_, Number(f_.TxtLength), uc::Length)) {
            if (*v < 0) {
                ui_.Message(DataEntryError, ProgramName, ui::Icon::Exclamation);
            } else {
                a.Length = *v;
            }
        }
    }
    // 19 to 21. Resistance, friction and shock: custom or preset.
    auto takePreset = [&](const std::vector<ListRow>& rows, int index, std::int16_t& type) -> int {
        if (index < 0 || static_cast<std::size_t>(index) >= rows.size()) return -1;
        type = static_cast<std::int16_t>(rows[static_cast<std::size_t>(index)].Data);
        return type;
    };
    if (Does(AirGroup::Res)) {
        if (f_.ChkFixRes) {
            a.ResType = CustomPreset;
            const auto v = SiSingle(model_, ui_, Number(f_.TxtFixRes), uc::Resistance);
            if (!TrimText(f_.TxtFixRes).empty() && v && *v > 0) a.Resistance = *v;
        } else if (const int k = takePreset(f_.ResCombo, f_.ResIndex, a.ResType); k >= 0) {
            a.Resistance = model_.Preset.ResPreset[static_cast<std::size_t>(k)];
        }
    }
    if (Does(AirGroup::Wall)) {
        if (f_.ChkFixK) {
            a.WallType = CustomPreset;
            const auto v = SiSingle(model_, ui_, Number(f_.TxtWall), uc::Friction);
            if (!TrimText(f_.TxtWall).empty() && v && *v > 0) a.WallFactor = *v;
        } else if (const int k = takePreset(f_.WallCombo, f_.WallIndex, a.WallType); k >= 0) {
            a.WallFactor = model_.Preset.WallPreset[static_cast<std::size_t>(k)];
        }
    }
    if (Does(AirGroup::Shock)) {
        if (f_.ChkShock) {
            a.ShockType = CustomPreset;
            if (const auto v = SiSingle(model_, ui_, Number(f_.TxtShock), uc::Length)) a.ShockFactor = *v;
        } else if (const int k = takePreset(f_.ShockCombo, f_.ShockIndex, a.ShockType); k >= 0) {
            a.ShockFactor = model_.Preset.ShockPreset[static_cast<std::size_t>(k)];
        }
    }
    // 22.
    RecalcAirway(model_, row);
    // 23 to 26.
    if (single && (fanDetected_ || fanTouched_)) ApplyFans(a);
}

void AirEditForm::ApplyFans(Airway& a) {
    const std::optional<double> typed = Number(f_.TxtFanN);
    int count = typed ? static_cast<int>(std::clamp(std::trunc(*typed), 0.0, static_cast<double>(MaxFansInAirway))) : 0;
    if (!typed) count = std::max<int>(a.NoOfFans, 0);
    if (count != 0 && a.NoAirways >= 2) {
        ui_.Message(FansInMultipleAirways, ProgramName, ui::Icon::Exclamation);
        f_.TxtFanN = "0";
        f_.VSF = MaxFansInAirway;
        count = 0;
    }
    if (count != 0) {
        const std::size_t index = static_cast<std::size_t>(std::max(0, f_.FanIndex));
        a.FanNumber = index < f_.FanCombo2.size() ? static_cast<std::int16_t>(f_.FanCombo2[index].Data) : 0;
        a.BranchCode |= bc::FixedDirection;
    } else {
        if (a.FanNumber != -1) a.FanNumber = 0;
        if (!f_.CheckDirection) a.BranchCode &= ~bc::FixedDirection;
    }
    if (a.FanNumber < 1) {
        a.NoOfFans = 0;
    } else {
        a.NoOfFans = static_cast<std::int16_t>(std::max(count, 1));
        a.BranchCode &= ~bc::FixedFlow; // a fan cancels a fixed flow
    }
    SetBit(a, bc::FansInSeries, f_.OptSer2);
    if (const auto pct = Number(f_.TxtCPart))
        a.CurveFraction = static_cast<std::int16_t>(std::clamp(std::trunc(*pct), 0.0, 100.0));
}

// ---- Closings ------------------------------------------------------------------------------

namespace {

constexpr const char* kAirwayGone = "The airway being edited no longer exists";

} // namespace

void AirEditForm::LogBefore(std::int32_t row) {
    undo_.LogAirway(model_, ui_, row, files::undo::Before, undo_.CurrentStep);
    logged_ = true;
}

void AirEditForm::ApplyOne(std::int32_t row) {
    Airway& a = model_.Airways[static_cast<std::size_t>(row)];
    ApplySteps(a, row);
    if (row == row_ && a.ResType != resTypeOnOpen_) a.IconLoc = pickFraction_ - 0.3f;
    undo_.LogAirway(model_, ui_, row, files::undo::After, undo_.CurrentStep);
    logged_ = true;
    model_.NetworkSaved = No0;
}

// The airway the dialog shows, found again by its number when a run has sorted the rows or an
// undo has removed it; false (after saying so) when it has gone.
static bool FindAgain(Model& model, ui::UserInterface& ui, std::int32_t& row, std::int32_t airwayNo) {
    if (row >= 1 && row <= model.AirwayCount && model.Airways[static_cast<std::size_t>(row)].AirwayNo == airwayNo &&
        model.Airways[static_cast<std::size_t>(row)].BranchCode != 0)
        return true;
    for (std::int32_t r = 1; r <= model.AirwayCount; ++r) {
        if (model.Airways[static_cast<std::size_t>(r)].AirwayNo == airwayNo &&
            model.Airways[static_cast<std::size_t>(r)].BranchCode != 0) {
            row = r;
            return true;
        }
    }
    ui.Message(kAirwayGone, ProgramName, ui::Icon::Exclamation);
    return false;
}

AirEditClose AirEditForm::Close(bool applied) {
    open_ = false;
    AirEditClose c;
    c.Applied = applied;
    if (row_ >= 1 && row_ <= model_.AirwayCount && Current().ResType != resTypeOnOpen_)
        Current().IconLoc = pickFraction_ - 0.3f;
    if (logged_ && undo_.CurrentStep < UndoCapacity) ++undo_.CurrentStep;
    logged_ = false;
    c.Redraw = applied || !model_.Set.ScreenBuffer;
    return c;
}

AirEditClose AirEditForm::Ok() {
    if (Multiple()) {
        for (std::int32_t r = 1; r <= model_.AirwayCount; ++r) {
            if (!model_.Airways[static_cast<std::size_t>(r)].Has(bc::Selected)) continue;
            if (!beforeLogged_) LogBefore(r);
            ApplyOne(r);
        }
        return Close(true);
    }
    if (!FindAgain(model_, ui_, row_, airwayNo_)) return Close(false);
    if (!beforeLogged_) LogBefore(row_);
    ApplyOne(row_);
    return Close(true);
}

AirEditClose AirEditForm::Cancel() { return Close(false); }

AirEditClose AirEditForm::Info() {
    AirEditClose c = Ok();
    c.OpenInfo = c.Applied;
    c.InfoRow = row_;
    return c;
}

std::optional<AirEditClose> AirEditForm::Leave() {
    if (memory_.Hold) {
        memory_.Hold = false;
        return std::nullopt;
    }
    if (!FindAgain(model_, ui_, row_, airwayNo_)) return Close(false);
    ApplyOne(row_);
    return Close(true);
}

void AirEditForm::Recalc() {
    if (Multiple()) {
        for (std::int32_t r = 1; r <= model_.AirwayCount; ++r) {
            if (!model_.Airways[static_cast<std::size_t>(r)].Has(bc::Selected)) continue;
            if (!beforeLogged_) LogBefore(r);
            ApplyOne(r);
        }
    } else {
        if (!FindAgain(model_, ui_, row_, airwayNo_)) return;
        if (!beforeLogged_) LogBefore(row_);
        ApplyOne(row_);
    }
    // The before-entries of this opening are in the log: the closing adds after-entries only,
    // so that one undo gives back the rows as they were when the dialog opened.
    beforeLogged_ = true;
    const auto touched = f_.Touched;
    Fill();
    f_.Touched = touched;
}

// ---- Calculators ---------------------------------------------------------------------------

void AirEditForm::Orifice() {
    const Airway& a = Current();
    if (a.ResType == 1) {
        ui_.Message("No orifice available on blocked ariways", ProgramName, ui::Icon::Exclamation);
        return;
    }
    const auto answer =
        ui_.Input("Enter the orifice area in " + UnitLabel(model_, uc::Area), "Orifice resistance wizard", "");
    if (!answer) return;
    const double shown = ParseLeadingNumber(*answer);
    if (shown <= 0 || !std::isfinite(shown)) return;
    const double orificeArea = FromDisplay(model_, *answer, uc::Area);
    const double airwayArea = OrificeAirwayArea(a);
    if (!(airwayArea > 0)) {
        ui_.Message("The airway has no area: its orifice resistance cannot be worked out", ProgramName,
                    ui::Icon::Exclamation);
        return;
    }
    const double ro = ToDisplay(model_, OrificeResistance(orificeArea, airwayArea), uc::Resistance);
    if (!std::isfinite(ro) || std::fabs(ro) > FLT_MAX) {
        ui_.Message(DataEntryError, ProgramName, ui::Icon::Exclamation);
        return;
    }
    f_.TxtFixRes = Shown(a.Resistance, uc::Resistance, false);
    const double total = ParseLeadingNumber(f_.TxtFixRes) + ro;
    const std::string& unit = UnitLabel(model_, uc::Resistance);
    const std::string text = "A resistance of " + FormatNumber(ro, "0.00000", sep_) + " " + unit +
                             " will now be added to the airway.\n\nThe total resistance will be fixed to " +
                             FormatNumber(total, "0.00000", sep_) + " " + unit;
    if (ui_.Ask(text, "Fix resistance for oriface", ui::Buttons::OKCancel, ui::Icon::Question) != ui::Answer::OK)
        return;
    TickFixRes(true);
    f_.TxtFixRes = FormatNumber(total, "0.00000", sep_);
}

void AirEditForm::TakeShockTotal(float total) {
    if (total == 0.0f) return;
    TickShock(true);
    f_.TxtShock = FormatNumber(total, "0", sep_);
}

} // namespace karvane::forms
