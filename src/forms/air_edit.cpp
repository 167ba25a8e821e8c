// The airway editor: opening and filling the controls from the airway, and what each control
// does while the dialog is open. The apply and the closings are in air_edit_apply.cpp.
#include "forms/air_edit.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "engineering/resistance.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::forms {

namespace {

constexpr const char* kFullPrecision = "0.0########";
constexpr double kShapePi = 3.1415926; // pi of the shape memo, as the resistance formulas use it

std::string Upper(std::string s) {
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

bool SameText(const std::string& a, const std::string& b) { return Upper(TrimText(a)) == Upper(TrimText(b)); }

// A preset list: rows with a name, the preset index as item data; the resistance list also
// leaves out the rows named "UNDEFINED".
std::vector<ListRow> PresetRowsOf(const std::array<std::string, PresetRows + 1>& names, bool resistance) {
    std::vector<ListRow> rows;
    for (int k = 0; k < PresetRows; ++k) {
        const std::string name = TrimText(names[static_cast<std::size_t>(k)]);
        if (name.empty()) continue;
        if (resistance && Upper(name) == "UNDEFINED") continue;
        rows.push_back({name, k});
    }
    return rows;
}

int RowOfData(const std::vector<ListRow>& rows, int data) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].Data == data) return static_cast<int>(i);
    return -1;
}

// The shape index an airway's bits give: a later test wins.
int ShapeOf(const Airway& a, int otherwise) {
    int shape = otherwise;
    if (a.Has(bc::Rectangular)) shape = ShapeRectangular;
    if (a.Has(bc::Circular)) shape = ShapeCircular;
    if (a.Has(bc::AreaEntry)) shape = ShapeArea;
    return shape;
}

std::string LayerRowText(const std::vector<LayerRecord>& list, int k) {
    const std::string name =
        static_cast<std::size_t>(k) < list.size() ? TrimText(list[static_cast<std::size_t>(k)].Name) : std::string();
    return name.empty() ? std::to_string(k) : name;
}

// A typed number as a whole number, held within what a list or an option can mean.
int WholeOf(double v) {
    if (!std::isfinite(v)) return -1;
    return static_cast<int>(std::clamp(std::trunc(v), -1.0e6, 1.0e6));
}

bool TruthOf(const std::string& value) {
    const std::string v = Upper(TrimText(value));
    return v == "1" || v == "-1" || v == "TRUE" || v == "ON" || v == "YES";
}

} // namespace

std::string FanRowText(std::int32_t fan, const std::string& name) {
    std::string number = std::to_string(fan);
    if (number.size() < 3) number.insert(0, 3 - number.size(), ' ');
    return number + ": " + name;
}

std::vector<ListRow> FanListRows(const Model& model) {
    std::vector<ListRow> rows{{"None", 0}};
    const std::int32_t last =
        std::min<std::int32_t>(model.Set.MaxFans, static_cast<std::int32_t>(model.Fans.size()) - 1);
    for (std::int32_t f = 1; f <= last; ++f) {
        const std::string name = TrimText(model.Fans[static_cast<std::size_t>(f)].FanName);
        if (!name.empty()) rows.push_back({FanRowText(f, name), f});
    }
    return rows;
}

AirEditForm::AirEditForm(Model& model, ui::UserInterface& ui, files::UndoLog& undo, AirEditMemory& memory,
                         char decimalSep)
    : model_(model),
      ui_(ui),
      undo_(undo),
      memory_(memory),
      sep_(decimalSep) {}

std::string AirEditForm::Shown(double value, int unitClass, bool fullPrecision) const {
    const float shown = ToDisplay(model_, value, unitClass);
    return FormatNumber(shown, fullPrecision ? std::string_view(kFullPrecision) : UnitFormat(model_, unitClass), sep_);
}

bool AirEditForm::Open(std::int32_t row, int mode, float pickFraction) {
    if (model_.AirwayCount < 1) return false;
    f_ = AirEditFields{};
    mode_ = mode == AirEditMultiple ? AirEditMultiple : AirEditSingle;
    row_ = row;
    pickFraction_ = pickFraction;
    logged_ = beforeLogged_ = false;
    fanTouched_ = false;
    primaryRemembered_ = secondRemembered_ = 0;
    selected_ = 0;
    if (Multiple()) {
        for (std::int32_t r = 1; r <= model_.AirwayCount; ++r)
            if (model_.Airways[static_cast<std::size_t>(r)].Has(bc::Selected)) ++selected_;
        f_.Caption = "Airway Edit - Multiple select (" + std::to_string(selected_) + ")";
    } else {
        f_.Caption = "Airway Edit";
    }
    FillLists();
    Fill();
    resTypeOnOpen_ = Current().ResType;
    airwayNo_ = Current().AirwayNo;
    open_ = true;
    return true;
}

void AirEditForm::FillLists() {
    f_.FanCombo2 = FanListRows(model_);
    f_.TxtRemote.assign(1, "none");
    for (int s = 1; s <= StationCount; ++s) {
        const auto& st = model_.Stations.Stations;
        f_.TxtRemote.push_back(static_cast<std::size_t>(s) < st.size()
                                   ? TrimText(st[static_cast<std::size_t>(s)].StationName)
                                   : std::string());
    }
    f_.RemoteVisible = model_.Set.RealTimeOn != 0;
    f_.CmbPrimary.clear();
    for (int k = 1; k <= PrimaryLayerCount; ++k) f_.CmbPrimary.push_back(LayerRowText(model_.PrimaryLayers, k));
    f_.CmbSecond.clear();
    for (int k = 1; k <= SecondLayerCount; ++k) f_.CmbSecond.push_back(LayerRowText(model_.SecondaryLayers, k));
}

void AirEditForm::FillShapeMemo(const Airway& a) {
    float& width = memo_[0];
    float& height = memo_[1];
    float& diameter = memo_[2];
    float& area = memo_[3];
    float& perimeter = memo_[4];
    width = a.Width;
    height = a.Height;
    area = a.Width;
    perimeter = a.Height;
    if (f_.ShapeIndex == ShapeRectangular) {
        area = static_cast<float>(static_cast<double>(a.Width) * a.Height);
        perimeter = static_cast<float>(2.0 * a.Width + 2.0 * a.Height);
        diameter = a.Width;
    } else if (f_.ShapeIndex == ShapeCircular) {
        width = height = diameter = a.Width;
        const double r = a.Width / 2.0;
        area = static_cast<float>(r * r * kShapePi);
        perimeter = static_cast<float>(a.Width * kShapePi);
    } else {
        width = height = diameter = static_cast<float>(std::sqrt(std::max(0.0f, a.Width)));
    }
}

void AirEditForm::SetShape(int index) {
    f_.ShapeIndex = std::clamp(index, 0, 2);
    memory_.ShapeIndex = f_.ShapeIndex;
    const std::string& length = UnitLabel(model_, uc::Length);
    auto zeroOne = [&](float value, int unitClass) {
        return FormatNumber(ToDisplay(model_, value, unitClass), "0.0", sep_);
    };
    switch (f_.ShapeIndex) {
    case ShapeRectangular:
        f_.LblWidth = "Width " + length;
        f_.LblHeight = "Height " + length;
        f_.TxtHeightVisible = true;
        f_.TxtWidth = zeroOne(memo_[0], uc::Length);
        f_.TxtHeight = zeroOne(memo_[1], uc::Length);
        break;
    case ShapeCircular:
        f_.LblWidth = "Diam " + length;
        f_.LblHeight.clear();
        f_.TxtHeightVisible = false;
        f_.TxtHeight = zeroOne(memo_[2], uc::Length);
        break;
    default:
        f_.LblWidth = "Area " + UnitLabel(model_, uc::Area);
        f_.LblHeight = "Perim " + length;
        f_.TxtHeightVisible = true;
        f_.TxtWidth = zeroOne(memo_[3], uc::Area);
        f_.TxtHeight = zeroOne(memo_[4], uc::Length);
        break;
    }
}

void AirEditForm::FillLayers(const Airway& a) {
    const int primary = std::clamp<int>(a.PrimaryLayer == 0 ? 1 : a.PrimaryLayer, 1, PrimaryLayerCount);
    const int second = std::clamp<int>(a.SecondLayer == 0 ? 1 : a.SecondLayer, 1, SecondLayerCount);
    f_.PrimaryIndex = primary - 1;
    f_.SecondIndex = second - 1;
    f_.PrimaryText = f_.CmbPrimary[static_cast<std::size_t>(f_.PrimaryIndex)];
    f_.SecondText = f_.CmbSecond[static_cast<std::size_t>(f_.SecondIndex)];
    primaryRemembered_ = secondRemembered_ = 0;
}

void AirEditForm::FillPresets(const Airway& a) {
    const Presets& p = model_.Preset;
    f_.ResCombo = PresetRowsOf(p.ResNames, true);
    f_.WallCombo = PresetRowsOf(p.WallNames, false);
    f_.ShockCombo = PresetRowsOf(p.ShockNames, false);
    f_.ChkFixRes = a.ResType == CustomPreset;
    f_.ResIndex = f_.ChkFixRes ? -1 : RowOfData(f_.ResCombo, a.ResType);
    f_.TxtFixRes = Shown(a.Resistance, uc::Resistance, false);
    f_.ChkFixK = a.WallType == CustomPreset;
    f_.WallIndex = f_.ChkFixK ? -1 : RowOfData(f_.WallCombo, a.WallType);
    f_.TxtWall = Shown(a.WallFactor, uc::Friction, false);
    f_.ChkShock = a.ShockType == CustomPreset;
    f_.ShockIndex = f_.ChkShock ? -1 : RowOfData(f_.ShockCombo, a.ShockType);
    f_.TxtShock = Shown(a.ShockFactor, uc::Length, true);
}

void AirEditForm::FillFans(const Airway& a) {
    fanDetected_ = true;
    f_.FanIndex = 0;
    if (a.FanNumber > 0) {
        const int index = RowOfData(f_.FanCombo2, a.FanNumber);
        if (index < 0) {
            fanDetected_ = false;
            ui_.Message(FanNotDetected, ProgramName, ui::Icon::Exclamation);
            return;
        }
        f_.FanIndex = index;
    }
    const int fraction = a.CurveFraction;
    f_.Optcurve = fraction <= 0 ? 0 : fraction >= 100 ? 1 : 2;
    f_.TxtCPart = std::to_string(fraction);
    f_.TxtCPartVisible = f_.Optcurve == 2;
    f_.OptSer2 = a.FanNumber > 0 && a.Has(bc::FansInSeries);
    const int count = std::clamp<int>(a.NoOfFans, 0, MaxFansInAirway);
    f_.TxtFanN = std::to_string(a.NoOfFans);
    f_.VSF = MaxFansInAirway - count;
}

void AirEditForm::Fill() {
    row_ = std::clamp<std::int32_t>(row_, 1, model_.AirwayCount);
    const Airway& a = Current();
    f_.ShapeIndex = ShapeOf(a, memory_.ShapeIndex);
    FillShapeMemo(a);
    SetShape(f_.ShapeIndex);
    FillLayers(a);
    f_.TxtMultiAir = std::to_string(a.NoAirways);
    f_.CheckFix = a.Has(bc::FixedFlow);
    f_.ChkPress = a.FanNumber == -1;
    f_.CheckLength = a.Has(bc::FixedLength);
    f_.CheckService = a.Has(bc::Services);
    f_.CheckDirection = a.Has(bc::FixedDirection);
    f_.OptFresh = a.Has(bc::FreshAir);
    f_.OptExhaust = a.Has(bc::ExhaustAir);
    f_.DriveShape = f_.OptFresh ? DriveColour::Blue : f_.OptExhaust ? DriveColour::Red : DriveColour::Green;

    f_.TxtUnique = std::to_string(a.AirwayNo);
    f_.TxtName = TrimText(a.BranchName);
    f_.LblFrom = TrimText(a.EntryNode);
    f_.LblTo = TrimText(a.ExitNode);
    if (f_.ShapeIndex == ShapeArea) {
        f_.TxtWidth = Shown(a.Width, uc::Area, true);
        f_.TxtHeight = Shown(a.Height, uc::Length, true);
    } else {
        f_.TxtWidth = Shown(a.Width, uc::Length, true);
        f_.TxtHeight = Shown(f_.ShapeIndex == ShapeCircular ? memo_[2] : a.Height, uc::Length, true);
    }
    f_.TxtFlow = Shown(a.Quantity, uc::Flow, false);
    f_.TxtPres = Shown(a.Pressure, uc::Pressure, false);
    f_.TxtLength = Shown(a.Length, uc::Length, true);
    f_.RemoteIndex = std::clamp<int>(a.RemoteStation, 0, StationCount);

    FillPresets(a);
    FillFans(a);
    f_.OptShowData = !a.Has(bc::DataHidden);
    f_.ChkSurfaceEntry = a.Has(bc::EntryAtSurface);
    f_.ChkSurfaceExit = a.Has(bc::ExitAtSurface);
}

// ---- Controls ------------------------------------------------------------------------------

void AirEditForm::CmdShape() {
    Touch(AirGroup::MultiAir);
    SetShape((f_.ShapeIndex + 1) % 3);
}

// Ticking a custom value hides the preset list; unticking shows it again on the row of the
// airway's type (row 0 when the type is custom).
void AirEditForm::TickPreset(AirGroup group, bool& tick, int& index, const std::vector<ListRow>& rows,
                             std::int16_t type, bool on) {
    Touch(group);
    tick = on;
    if (!on) index = type == CustomPreset ? 0 : std::max(0, RowOfData(rows, type));
}

void AirEditForm::TickFixRes(bool on) {
    TickPreset(AirGroup::Res, f_.ChkFixRes, f_.ResIndex, f_.ResCombo, Current().ResType, on);
}

void AirEditForm::TickFixK(bool on) {
    TickPreset(AirGroup::Wall, f_.ChkFixK, f_.WallIndex, f_.WallCombo, Current().WallType, on);
}

void AirEditForm::TickShock(bool on) {
    TickPreset(AirGroup::Shock, f_.ChkShock, f_.ShockIndex, f_.ShockCombo, Current().ShockType, on);
}

void AirEditForm::ChooseRes(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= f_.ResCombo.size()) return;
    Touch(AirGroup::Res);
    f_.ResIndex = index;
    const int preset = f_.ResCombo[static_cast<std::size_t>(index)].Data;
    const double value = preset != 0 ? model_.Preset.ResPreset[static_cast<std::size_t>(preset)] : Current().Resistance;
    f_.TxtFixRes = Shown(value, uc::Resistance, false);
    f_.ChkFixRes = false;
}

void AirEditForm::ChooseWall(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= f_.WallCombo.size()) return;
    Touch(AirGroup::Wall);
    f_.WallIndex = index;
    const int preset = f_.WallCombo[static_cast<std::size_t>(index)].Data;
    f_.TxtWall = Shown(model_.Preset.WallPreset[static_cast<std::size_t>(preset)], uc::Friction, false);
}

void AirEditForm::ChooseShock(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= f_.ShockCombo.size()) return;
    Touch(AirGroup::Shock);
    f_.ShockIndex = index;
    const int preset = f_.ShockCombo[static_cast<std::size_t>(index)].Data;
    f_.TxtShock = Shown(model_.Preset.ShockPreset[static_cast<std::size_t>(preset)], uc::Length, true);
}

void AirEditForm::ChooseFan(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= f_.FanCombo2.size()) return;
    fanTouched_ = true;
    f_.FanIndex = index;
    if (index > 0) {
        if (ParseLeadingNumber(f_.TxtFanN) == 0) {
            SetFanCount(1);
            f_.CheckDirection = true;
        }
    } else {
        f_.CheckDirection = false;
        SetFanCount(0);
    }
}

void AirEditForm::SetFanCount(int count) {
    fanTouched_ = true;
    count = std::clamp(count, 0, MaxFansInAirway);
    f_.TxtFanN = std::to_string(count);
    f_.VSF = MaxFansInAirway - count;
}

void AirEditForm::ChooseCurve(int option) {
    fanTouched_ = true;
    f_.Optcurve = std::clamp(option, 0, 2);
    f_.TxtCPartVisible = f_.Optcurve == 2;
    if (f_.Optcurve == 0) {
        f_.TxtCPart = "0";
    } else if (f_.Optcurve == 1) {
        f_.TxtCPart = "100";
    } else {
        const std::int32_t pct = model_.Set.DefaultCurvePct;
        f_.TxtCPart = std::to_string(pct == 0 ? 50 : pct);
    }
}

void AirEditForm::TickFix(bool on) { f_.CheckFix = on; }
void AirEditForm::TickPress(bool on) { f_.ChkPress = on; }

void AirEditForm::TickLength(bool on) {
    Touch(AirGroup::Length);
    f_.CheckLength = on;
}

void AirEditForm::TickDirection(bool on) {
    Touch(AirGroup::Direction);
    f_.CheckDirection = on;
}

void AirEditForm::TickService(bool on) {
    Touch(AirGroup::Service);
    f_.CheckService = on;
}

void AirEditForm::ChooseAirType(int option, bool on) {
    Touch(AirGroup::AirType);
    if (option == 0) {
        f_.OptFresh = on;
        if (on) f_.OptExhaust = false;
    } else {
        f_.OptExhaust = on;
        if (on) f_.OptFresh = false;
    }
    f_.DriveShape = f_.OptFresh ? DriveColour::Blue : f_.OptExhaust ? DriveColour::Red : DriveColour::Green;
}

void AirEditForm::TickShowData(bool on) {
    Touch(AirGroup::ShowData);
    f_.OptShowData = on;
}

void AirEditForm::TickSurfaceEntry(bool on) {
    f_.ChkSurfaceEntry = on;
    if (on) f_.ChkSurfaceExit = false;
}

void AirEditForm::TickSurfaceExit(bool on) {
    f_.ChkSurfaceExit = on;
    if (on) f_.ChkSurfaceEntry = false;
}

void AirEditForm::ChooseSeries(bool series) {
    fanTouched_ = true;
    f_.OptSer2 = series;
}

void AirEditForm::ChooseRemote(int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < f_.TxtRemote.size()) f_.RemoteIndex = index;
}

void AirEditForm::ChooseLayer(bool primary, int index) {
    const auto& rows = primary ? f_.CmbPrimary : f_.CmbSecond;
    if (index < 0 || static_cast<std::size_t>(index) >= rows.size()) return;
    Touch(primary ? AirGroup::Primary : AirGroup::Second);
    (primary ? f_.PrimaryIndex : f_.SecondIndex) = index;
    (primary ? f_.PrimaryText : f_.SecondText) = rows[static_cast<std::size_t>(index)];
    (primary ? primaryRemembered_ : secondRemembered_) = 0;
}

void AirEditForm::LayerKey(bool primary, const std::string& text) {
    Touch(primary ? AirGroup::Primary : AirGroup::Second);
    int& remembered = primary ? primaryRemembered_ : secondRemembered_;
    if (remembered == 0) remembered = (primary ? f_.PrimaryIndex : f_.SecondIndex) + 1;
    (primary ? f_.PrimaryText : f_.SecondText) = text;
}

void AirEditForm::LayerLeave(bool primary) {
    const int remembered = primary ? primaryRemembered_ : secondRemembered_;
    const std::string text = FitText(TrimText(primary ? f_.PrimaryText : f_.SecondText), NameWidth);
    if (remembered == 0 || text.empty()) return;
    auto& layers = primary ? model_.PrimaryLayers : model_.SecondaryLayers;
    auto& rows = primary ? f_.CmbPrimary : f_.CmbSecond;
    if (static_cast<std::size_t>(remembered) >= layers.size()) return;
    if (layers[static_cast<std::size_t>(remembered)].Name != text) {
        layers[static_cast<std::size_t>(remembered)].Name = text;
        model_.NetworkSaved = No0;
    }
    rows[static_cast<std::size_t>(remembered - 1)] = text;
    (primary ? f_.PrimaryIndex : f_.SecondIndex) = remembered - 1;
    (primary ? f_.PrimaryText : f_.SecondText) = text;
}

// ---- Touched marks and boxes ---------------------------------------------------------------

namespace {

// The group a box belongs to, and whether a click, focus or key marks it.
struct BoxMarks {
    std::optional<AirGroup> Group;
    bool ByClick = false, ByFocus = false, ByKey = false;
};

BoxMarks MarksOf(AirBox box) {
    switch (box) {
    case AirBox::CmbPrimary: return {AirGroup::Primary, false, true, false};
    case AirBox::CmbSecond: return {AirGroup::Second, false, true, false};
    case AirBox::TxtFixRes: return {AirGroup::Res, true, false, false};
    case AirBox::TxtWall: return {AirGroup::Wall, true, false, false};
    case AirBox::TxtShock: return {AirGroup::Shock, true, true, false};
    case AirBox::TxtWidth: return {AirGroup::Width, true, false, true};
    case AirBox::TxtHeight: return {AirGroup::Height, true, true, true};
    case AirBox::TxtMultiAir: return {AirGroup::MultiAir, true, true, true};
    case AirBox::TxtLength: return {AirGroup::Length, true, true, false};
    default: return {};
    }
}

} // namespace

void AirEditForm::Click(AirBox box) {
    const BoxMarks m = MarksOf(box);
    if (m.Group && m.ByClick) Touch(*m.Group);
}

void AirEditForm::Focus(AirBox box) {
    const BoxMarks m = MarksOf(box);
    if (m.Group && m.ByFocus) Touch(*m.Group);
}

void AirEditForm::Key(AirBox box) {
    const BoxMarks m = MarksOf(box);
    if (m.Group && m.ByKey) Touch(*m.Group);
}

void AirEditForm::DoubleClick(AirBox box) {
    const BoxMarks m = MarksOf(box);
    if (!m.Group || !Multiple()) return;
    if (*m.Group == AirGroup::Primary || *m.Group == AirGroup::Second) return;
    f_.Touched[static_cast<std::size_t>(*m.Group)] = false;
}

void AirEditForm::ResetSelection() { f_.Touched.fill(false); }

namespace {

std::string* TextOf(AirEditFields& f, AirBox box) {
    switch (box) {
    case AirBox::TxtName: return &f.TxtName;
    case AirBox::LblFrom: return &f.LblFrom;
    case AirBox::LblTo: return &f.LblTo;
    case AirBox::TxtFlow: return &f.TxtFlow;
    case AirBox::TxtPres: return &f.TxtPres;
    case AirBox::TxtLength: return &f.TxtLength;
    case AirBox::TxtFixRes: return &f.TxtFixRes;
    case AirBox::TxtWall: return &f.TxtWall;
    case AirBox::TxtShock: return &f.TxtShock;
    case AirBox::TxtFanN: return &f.TxtFanN;
    case AirBox::TxtCPart: return &f.TxtCPart;
    case AirBox::TxtMultiAir: return &f.TxtMultiAir;
    case AirBox::TxtWidth: return &f.TxtWidth;
    case AirBox::TxtHeight: return &f.TxtHeight;
    case AirBox::CmbPrimary: return &f.PrimaryText;
    case AirBox::CmbSecond: return &f.SecondText;
    }
    return nullptr;
}

} // namespace

void AirEditForm::SetBoxText(AirBox box, const std::string& text) {
    if (std::string* t = TextOf(f_, box)) *t = text;
}

const std::string& AirEditForm::BoxText(AirBox box) const {
    static const std::string none;
    const std::string* t = TextOf(const_cast<AirEditFields&>(f_), box);
    return t ? *t : none;
}

void AirEditForm::TypeText(AirBox box, const std::string& text) {
    Click(box);
    Focus(box);
    if (box == AirBox::CmbPrimary || box == AirBox::CmbSecond) {
        LayerKey(box == AirBox::CmbPrimary, text);
        LayerLeave(box == AirBox::CmbPrimary);
        return;
    }
    Key(box);
    if (std::string* t = TextOf(f_, box)) *t = text;
    LeaveBox(box);
}

void AirEditForm::LeaveBox(AirBox box) {
    std::string* t = TextOf(f_, box);
    if (!t) return;
    const double v = ParseLeadingNumber(*t);
    switch (box) {
    case AirBox::TxtFixRes:
    case AirBox::TxtFlow:
    case AirBox::TxtHeight:
    case AirBox::TxtWidth: *t = FormatNumber(std::fabs(v), "", sep_); break;
    case AirBox::TxtPres: *t = FormatNumber(v, "", sep_); break;
    case AirBox::TxtMultiAir: *t = FormatNumber(std::trunc(v), "", sep_); break;
    case AirBox::TxtFanN:
        if (v < 0 || v > MaxFansInAirway) {
            ui_.Message("Number of fans must be from 0 to " + std::to_string(MaxFansInAirway), ProgramName,
                        ui::Icon::Exclamation);
        }
        SetFanCount(static_cast<int>(std::clamp(std::trunc(v), 0.0, static_cast<double>(MaxFansInAirway))));
        break;
    case AirBox::CmbPrimary:
    case AirBox::CmbSecond: LayerLeave(box == AirBox::CmbPrimary); break;
    default: break;
    }
}

// ---- Controls by name ----------------------------------------------------------------------

namespace {

// A list row chosen by a script: a row whose text matches (a preset or fan name, or a fan
// row's text), else the row whose item data is the number given.
int RowByValue(const std::vector<ListRow>& rows, const std::string& value, bool fans) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::string text = rows[i].Text;
        if (fans && i > 0) text = text.substr(std::min<std::size_t>(text.size(), 5));
        if (SameText(text, value) || SameText(rows[i].Text, value)) return static_cast<int>(i);
    }
    const std::string v = TrimText(value);
    if (!v.empty() && (std::isdigit(static_cast<unsigned char>(v[0])) || v[0] == '-'))
        return RowOfData(rows, WholeOf(ParseLeadingNumber(v)));
    return -1;
}

int TextRow(const std::vector<std::string>& rows, const std::string& value, int offset) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (!TrimText(rows[i]).empty() && SameText(rows[i], value)) return static_cast<int>(i);
    const std::string v = TrimText(value);
    if (!v.empty() && std::isdigit(static_cast<unsigned char>(v[0]))) return WholeOf(ParseLeadingNumber(v)) - offset;
    return -1;
}

} // namespace

std::string AirEditForm::SetControl(const std::string& name, const std::string& value) {
    static const std::pair<const char*, AirBox> boxes[] = {
        {"TxtName", AirBox::TxtName},     {"LblFrom", AirBox::LblFrom},     {"LblTo", AirBox::LblTo},
        {"TxtFlow", AirBox::TxtFlow},     {"TxtPres", AirBox::TxtPres},     {"TxtLength", AirBox::TxtLength},
        {"TxtFixRes", AirBox::TxtFixRes}, {"TxtWall", AirBox::TxtWall},     {"TxtShock", AirBox::TxtShock},
        {"TxtFanN", AirBox::TxtFanN},     {"TxtCPart", AirBox::TxtCPart},   {"TxtMultiAir", AirBox::TxtMultiAir},
        {"TxtWidth", AirBox::TxtWidth},   {"txtHeight", AirBox::TxtHeight}, {"CmbPrimary", AirBox::CmbPrimary},
        {"CmbSecond", AirBox::CmbSecond}};
    // A member of a control array, "Optcurve(2)", is the option of that index.
    std::string key = Upper(TrimText(name));
    int member = -1;
    if (const auto open = key.find('('); open != std::string::npos && key.back() == ')') {
        member = WholeOf(ParseLeadingNumber(key.substr(open + 1)));
        key = key.substr(0, open);
    }
    // The short names of the lists.
    if (key == "CMBRES") key = "RESCOMBO";
    if (key == "CMBWALL") key = "WALLCOMBO";
    if (key == "CMBSHOCK") key = "SHOCKCOMBO";
    if (key == "CMBFAN") key = "FANCOMBO2";
    const bool multiple = Multiple();
    auto refused = [&](const char* why) { return name + std::string(why); };
    for (const auto& [boxName, box] : boxes) {
        if (Upper(boxName) != key) continue;
        if (multiple &&
            (box == AirBox::TxtName || box == AirBox::LblFrom || box == AirBox::LblTo || box == AirBox::TxtFlow ||
             box == AirBox::TxtPres || box == AirBox::TxtFanN || box == AirBox::TxtCPart))
            return refused(" is not available in a multiple selection");
        // The boxes of the fixed flow, pressure and length take text only while ticked.
        if (box == AirBox::TxtFlow && !f_.CheckFix) return refused(" is read-only unless CheckFix is ticked");
        if (box == AirBox::TxtPres && !f_.ChkPress) return refused(" is read-only unless ChkPress is ticked");
        if (box == AirBox::TxtLength && !f_.CheckLength) return refused(" is read-only unless CheckLength is ticked");
        if (box == AirBox::TxtFixRes && !f_.ChkFixRes) return refused(" is read-only unless ChkFixRes is ticked");
        if (box == AirBox::TxtWall && !f_.ChkFixK) return refused(" is read-only unless ChkFixK is ticked");
        if (box == AirBox::TxtShock && !f_.ChkShock) return refused(" is read-only unless ChkShock is ticked");
        if (box == AirBox::TxtHeight && !f_.TxtHeightVisible) return refused(" is hidden for a circular airway");
        if (box == AirBox::TxtCPart && !f_.TxtCPartVisible) return refused(" is shown only with Optcurve(2)");
        if (box == AirBox::CmbPrimary || box == AirBox::CmbSecond) {
            const bool primary = box == AirBox::CmbPrimary;
            const auto& rows = primary ? f_.CmbPrimary : f_.CmbSecond;
            const int row = TextRow(rows, value, 1);
            if (row >= 0 && static_cast<std::size_t>(row) < rows.size()) {
                Focus(box);
                ChooseLayer(primary, row);
            } else {
                TypeText(box, value); // a new name for the layer shown
            }
            return {};
        }
        TypeText(box, value);
        return {};
    }
    const std::string v = Upper(TrimText(value));
    const bool on = TruthOf(value);
    const bool off = v == "0" || v == "FALSE" || v == "OFF" || v == "NO";
    const bool tick = key == "CHECKFIX" || key == "CHKPRESS" || key == "CHECKLENGTH" || key == "CHKFIXRES" ||
                      key == "CHKFIXK" || key == "CHKSHOCK" || key == "OPTSER2" || key == "OPTPAR2" ||
                      key == "CHECKSERVICE" || key == "CHECKDIRECTION" || key == "OPTSHOWDATA" ||
                      key == "CHKSURFACEENTRY" || key == "CHKSURFACEEXIT" || (key == "OPTAIRTYPE" && member >= 0) ||
                      (key == "OPTCURVE" && member >= 0);
    if (tick && !on && !off) return "\"" + value + "\" is no value for " + name + " (1 or 0)";
    auto choose = [&](const std::vector<ListRow>& rows, bool fans, void (AirEditForm::*handler)(int)) {
        const int row = RowByValue(rows, value, fans);
        if (row < 0 || static_cast<std::size_t>(row) >= rows.size()) return "no row \"" + value + "\" in " + name;
        (this->*handler)(row);
        return std::string();
    };
    const bool fanControl = key == "FANCOMBO2" || key == "OPTCURVE" || key == "OPTSER2" || key == "OPTPAR2" ||
                            key == "CHECKFIX" || key == "CHKPRESS" || key == "CHKSURFACEENTRY" ||
                            key == "CHKSURFACEEXIT";
    if (multiple && fanControl) return refused(" is not available in a multiple selection");
    if (key == "CHECKFIX") TickFix(on);
    else if (key == "CHKPRESS") TickPress(on);
    else if (key == "CHECKLENGTH") TickLength(on);
    else if (key == "CHKFIXRES") TickFixRes(on);
    else if (key == "CHKFIXK") TickFixK(on);
    else if (key == "CHKSHOCK") TickShock(on);
    else if (key == "RESCOMBO") return choose(f_.ResCombo, false, &AirEditForm::ChooseRes);
    else if (key == "WALLCOMBO") return choose(f_.WallCombo, false, &AirEditForm::ChooseWall);
    else if (key == "SHOCKCOMBO") return choose(f_.ShockCombo, false, &AirEditForm::ChooseShock);
    else if (key == "FANCOMBO2") return choose(f_.FanCombo2, true, &AirEditForm::ChooseFan);
    else if (key == "OPTCURVE") {
        const int option = member >= 0 ? member : WholeOf(ParseLeadingNumber(value));
        if (option < 0 || option > 2) return name + " has members 0 to 2";
        if (member < 0 || on) ChooseCurve(option);
    } else if (key == "OPTSER2") ChooseSeries(on);
    else if (key == "OPTPAR2") ChooseSeries(!on);
    else if (key == "TXTREMOTE") {
        const int row = TextRow(f_.TxtRemote, value, 0);
        if (row < 0 || static_cast<std::size_t>(row) >= f_.TxtRemote.size())
            return "no row \"" + value + "\" in " + name;
        ChooseRemote(row);
    } else if (key == "CMDSHAPE") {
        const int target = WholeOf(ParseLeadingNumber(value));
        if (target < 0 || target > 2) return name + " takes a shape from 0 to 2";
        for (int i = 0; i < 3 && f_.ShapeIndex != target; ++i) CmdShape();
        Touch(AirGroup::MultiAir);
    } else if (key == "CHECKSERVICE") TickService(on);
    else if (key == "CHECKDIRECTION") TickDirection(on);
    else if (key == "OPTAIRTYPE") {
        if (member == 0 || member == 1) {
            ChooseAirType(member, on);
        } else if (member >= 0) {
            return name + " has members 0 and 1";
        } else if (v == "0" || v == "FRESH") {
            ChooseAirType(0, true);
        } else if (v == "1" || v == "EXHAUST") {
            ChooseAirType(1, true);
        } else {
            ChooseAirType(0, false);
            ChooseAirType(1, false);
        }
    } else if (key == "OPTSHOWDATA") TickShowData(on);
    else if (key == "CHKSURFACEENTRY") TickSurfaceEntry(on);
    else if (key == "CHKSURFACEEXIT") TickSurfaceExit(on);
    else if (key == "CMDRESETSEKECTION") ResetSelection();
    else return "frmAirEdit has no control " + name;
    return {};
}

} // namespace karvane::forms
