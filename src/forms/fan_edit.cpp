// The fan tool's dialog.
#include "forms/fan_edit.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "model/number_format.h"

namespace karvane::forms {

namespace {

int CurveOption(int fraction) { return fraction <= 0 ? 0 : fraction >= 100 ? 1 : 2; }

int Whole(const std::string& text, int low, int high) {
    const double v = ParseLeadingNumber(text);
    if (!std::isfinite(v)) return low;
    return static_cast<int>(std::clamp(std::trunc(v), static_cast<double>(low), static_cast<double>(high)));
}

std::string Upper(std::string s) {
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

} // namespace

FanEditForm::FanEditForm(Model& model, ui::UserInterface& ui) : model_(model), ui_(ui) {}

bool FanEditForm::Open(std::int32_t row) {
    if (row < 1 || row > model_.AirwayCount || static_cast<std::size_t>(row) >= model_.Airways.size()) return false;
    row_ = row;
    f_ = FanEditFields{};
    touched_ = false;
    fanDetected_ = true;
    const Airway& a = model_.Airways[static_cast<std::size_t>(row)];
    f_.FanCombo2 = FanListRows(model_);
    const int fraction = a.FanNumber > 0 ? a.CurveFraction : model_.Set.DefaultCurvePct;
    f_.OptCurveType = CurveOption(fraction);
    f_.TxtVPart = std::to_string(std::clamp(fraction, 0, 100));
    f_.TxtVPartVisible = f_.OptCurveType == 2;
    f_.OptSer2 = a.Has(bc::FansInSeries);
    const int count = std::clamp<int>(a.NoOfFans, 0, MaxFansInAirway);
    f_.TxtFanN = std::to_string(count);
    f_.VSF = MaxFansInAirway - count;
    if (a.FanNumber > 0) {
        if (a.FanNumber > model_.Set.MaxFans || static_cast<std::size_t>(a.FanNumber) >= model_.Fans.size()) {
            fanDetected_ = false;
            ui_.Message(FanNotDetected, ProgramName, ui::Icon::Exclamation);
        } else {
            const auto it = std::find_if(f_.FanCombo2.begin(), f_.FanCombo2.end(),
                                         [&](const ListRow& r) { return r.Data == a.FanNumber; });
            if (it == f_.FanCombo2.end()) {
                fanDetected_ = false;
                ui_.Message(FanNotDetected, ProgramName, ui::Icon::Exclamation);
            } else {
                f_.FanIndex = static_cast<int>(it - f_.FanCombo2.begin());
            }
        }
    }
    return true;
}

void FanEditForm::ChooseFan(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= f_.FanCombo2.size()) return;
    touched_ = true;
    f_.FanIndex = index;
    if (index > 0 && ParseLeadingNumber(f_.TxtFanN) == 0) SetFanCount(1);
}

void FanEditForm::SetFanCount(int count) {
    touched_ = true;
    count = std::clamp(count, 0, MaxFansInAirway);
    f_.TxtFanN = std::to_string(count);
    f_.VSF = MaxFansInAirway - count;
}

void FanEditForm::ChooseCurve(int option) {
    touched_ = true;
    f_.OptCurveType = std::clamp(option, 0, 2);
    f_.TxtVPartVisible = f_.OptCurveType == 2;
    if (f_.OptCurveType == 0) {
        f_.TxtVPart = "0";
    } else if (f_.OptCurveType == 1) {
        f_.TxtVPart = "100";
    } else {
        std::int32_t pct = model_.Set.DefaultCurvePct;
        if (pct < 1 || pct > 99) pct = 50;
        model_.Set.DefaultCurvePct = pct;
        f_.TxtVPart = std::to_string(pct);
    }
}

void FanEditForm::ChooseSeries(bool series) {
    touched_ = true;
    f_.OptSer2 = series;
}

bool FanEditForm::SetControl(const std::string& name, const std::string& value) {
    const std::string key = Upper(name);
    const std::string v = Upper(TrimText(value));
    const bool on = v == "1" || v == "-1" || v == "TRUE" || v == "ON" || v == "YES";
    if (key == "FANCOMBO2") {
        for (std::size_t i = 0; i < f_.FanCombo2.size(); ++i) {
            const std::string& text = f_.FanCombo2[i].Text;
            if (Upper(TrimText(text)) == v || (i > 0 && Upper(TrimText(text.substr(5))) == v)) {
                ChooseFan(static_cast<int>(i));
                return true;
            }
        }
        const int fan = Whole(value, -1, 1000000);
        for (std::size_t i = 0; i < f_.FanCombo2.size(); ++i)
            if (f_.FanCombo2[i].Data == fan) ChooseFan(static_cast<int>(i));
    } else if (key == "TXTFANN") {
        SetFanCount(Whole(value, 0, MaxFansInAirway));
    } else if (key == "OPTCURVETYPE") {
        ChooseCurve(Whole(value, 0, 2));
    } else if (key == "TXTVPART") {
        touched_ = true;
        f_.TxtVPart = value;
    } else if (key == "OPTSER2") {
        ChooseSeries(on);
    } else if (key == "OPTPAR2") {
        ChooseSeries(!on);
    } else {
        return false;
    }
    return true;
}

void FanEditForm::Ok() {
    if (row_ < 1 || row_ > model_.AirwayCount) return;
    Airway& a = model_.Airways[static_cast<std::size_t>(row_)];
    // A fan the database does not know stays on the airway until the user chooses otherwise.
    if (!fanDetected_ && !touched_) return;
    a.CurveFraction = static_cast<std::int16_t>(Whole(f_.TxtVPart, 0, 100));
    const int count = Whole(f_.TxtFanN, 0, MaxFansInAirway);
    if (count == 0) {
        if (a.FanNumber != -1) a.FanNumber = 0;
    } else {
        if (a.FanNumber <= 0)
            a.CurveFraction = static_cast<std::int16_t>(std::clamp(model_.Set.DefaultCurvePct, 0, 100));
        const std::size_t index = static_cast<std::size_t>(std::max(0, f_.FanIndex));
        a.FanNumber = index < f_.FanCombo2.size() ? static_cast<std::int16_t>(f_.FanCombo2[index].Data) : 0;
        a.BranchCode |= bc::FixedDirection;
    }
    a.NoOfFans = a.FanNumber < 1 ? 0 : static_cast<std::int16_t>(std::max(count, 1));
    if (f_.OptSer2) {
        a.BranchCode |= bc::FansInSeries;
    } else {
        a.BranchCode &= ~bc::FansInSeries;
    }
    model_.NetworkSaved = No0;
}

} // namespace karvane::forms
