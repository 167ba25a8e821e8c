// The shock loss calculator over the table of equivalent lengths.
#include "forms/shock_form.h"

#include "model/number_format.h"
#include "model/units.h"

namespace karvane::forms {

namespace {

// Decimal places of a number format ("0.0" has one).
int Decimals(const std::string& format) {
    const auto point = format.find('.');
    if (point == std::string::npos) return 0;
    int n = 0;
    for (std::size_t i = point + 1; i < format.size() && (format[i] == '0' || format[i] == '#'); ++i) ++n;
    return n;
}

bool ValidRow(int row) { return row >= 0 && row < ShockLossRowCount; }

} // namespace

ShockForm::ShockForm(const Model& model, char decimalSep) : model_(model), sep_(decimalSep) { f_.LblNumS.fill("0"); }

void ShockForm::Tick(int row, bool on) {
    if (!ValidRow(row)) return;
    const auto r = static_cast<std::size_t>(row);
    f_.ChkShockType[r] = on;
    if (!on) {
        f_.LblNumS[r] = "0";
    } else if (ParseLeadingNumber(f_.LblNumS[r]) == 0) {
        f_.LblNumS[r] = "1";
    }
    Update();
}

void ShockForm::CountKey(int row) {
    if (ValidRow(row)) f_.ChkShockType[static_cast<std::size_t>(row)] = true;
}

void ShockForm::SetCount(int row, const std::string& text) {
    if (!ValidRow(row)) return;
    CountKey(row);
    f_.LblNumS[static_cast<std::size_t>(row)] = text;
    Update();
}

void ShockForm::Update() {
    std::array<ShockLossEntry, ShockLossRowCount> rows{};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].Ticked = f_.ChkShockType[i];
        rows[i].Count = ParseLeadingNumber(f_.LblNumS[i]);
    }
    const float factor = ToDisplay(model_, 1.0, uc::Length);
    const int decimals = Decimals(UnitFormat(model_, uc::Length));
    total_ = ShockTableTotal(rows, [&](std::int16_t metres) { return ShownShockLength(metres, factor, decimals); });
    f_.LblShockTotal = FormatNumber(total_, "0", sep_);
}

} // namespace karvane::forms
