// Columns and cell texts of the network spreadsheet.
#include "forms/sheet_grid.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "display/data_format.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::forms {

namespace {

constexpr const char* FullPrecision = "0.0########";

std::array<SheetColumn, sc::Count> ParseFormatString() {
    std::array<SheetColumn, sc::Count> columns{};
    const std::string_view f = SheetFormatString;
    int col = 0;
    std::size_t i = 0;
    while (i < f.size() && col + 1 < sc::Count) {
        // Each column starts at "|": the key column is the empty text before the first one.
        if (f[i] != '|') {
            ++i;
            continue;
        }
        ++col;
        std::size_t end = f.find('|', i + 1);
        if (end == std::string_view::npos) end = f.size();
        std::string_view cell = f.substr(i + 1, end - i - 1);
        SheetColumn& c = columns[static_cast<std::size_t>(col)];
        if (!cell.empty() && (cell[0] == '<' || cell[0] == '>')) {
            c.RightAligned = cell[0] == '>';
            cell.remove_prefix(1);
        }
        c.Heading = std::string(cell);
        c.Characters = static_cast<int>(cell.size());
        i = end;
    }
    return columns;
}

std::string Value(const Model& model, double v, int unitClass, bool full, char sep) {
    return display::FormatValue(model, v, unitClass, false, full, sep);
}

// Truncation toward zero to a number of decimals, in SI, before the conversion.
double Truncated(double v, double scale) {
    if (!std::isfinite(v)) return v;
    return std::trunc(v * scale) / scale;
}

std::string_view TrimView(std::string_view t) {
    while (!t.empty() && (t.front() == ' ' || t.front() == '\t')) t.remove_prefix(1);
    while (!t.empty() && (t.back() == ' ' || t.back() == '\t')) t.remove_suffix(1);
    return t;
}

} // namespace

const std::array<SheetColumn, sc::Count>& SheetColumns() {
    static const std::array<SheetColumn, sc::Count> columns = ParseFormatString();
    return columns;
}

int SheetUnitClass(int col) {
    switch (col) {
    case sc::Length:
    case sc::Shock:
    case sc::Height:
    case sc::Width: return uc::Length;
    case sc::Flow: return uc::Flow;
    case sc::Vel: return uc::Velocity;
    case sc::Pdrop:
    case sc::FPres: return uc::Pressure;
    case sc::Resistance: return uc::Resistance;
    case sc::KFactor: return uc::Friction;
    case sc::X1:
    case sc::Y1:
    case sc::Z1:
    case sc::X2:
    case sc::Y2:
    case sc::Z2: return uc::LongLength;
    default: return 0;
    }
}

bool SheetColumnEditable(int col) { return col > sc::No && col < sc::Count && col != sc::Comments; }

bool SheetNumberColumn(int col) {
    return col == sc::No || col == sc::Fan || (SheetUnitClass(col) != 0 && col != sc::FPres);
}

void FillSheetRow(const Model& model, std::int32_t airway, char sep, SheetRow& row) {
    row = SheetRow{};
    row.Key = airway;
    if (airway < 1 || static_cast<std::size_t>(airway) >= model.Airways.size()) return;
    const Airway& a = model.Airways[static_cast<std::size_t>(airway)];
    auto& c = row.Cells;
    c[sc::Key] = std::to_string(airway);
    c[sc::No] = std::to_string(a.AirwayNo);
    c[sc::Name] = TrimText(a.BranchName);
    c[sc::From] = TrimText(a.EntryNode);
    c[sc::To] = TrimText(a.ExitNode);
    c[sc::Length] = Value(model, a.Length, uc::Length, true, sep);
    c[sc::Flow] = Value(model, Truncated(a.Quantity, 1e3), uc::Flow, true, sep);
    // The velocity as the views annotate it: flow over the area of one of the parallel airways.
    const double q = a.Quantity;
    c[sc::Vel] = Value(model, q / display::AirwayArea(a) / a.NoAirways, uc::Velocity, false, sep);
    c[sc::Pdrop] = Value(model, static_cast<double>(a.Resistance) * q * q, uc::Pressure, false, sep);
    c[sc::Resistance] = Value(model, Truncated(a.Resistance, 1e7), uc::Resistance, true, sep);
    c[sc::KFactor] = Value(model, a.WallFactor, uc::Friction, false, sep);
    c[sc::Shock] = Value(model, a.ShockFactor, uc::Length, true, sep);
    if (a.FanNumber > 0) c[sc::Fan] = std::to_string(a.FanNumber);
    if (a.FanNumber != 0 || a.Has(bc::FixedFlow)) {
        if (a.Pressure == NegatedFanPressure) {
            c[sc::FPres] = NegateText;
        } else if (a.Pressure == StalledFanPressure) {
            c[sc::FPres] = StallText;
        } else {
            c[sc::FPres] = FormatNumber(ToDisplay(model, a.Pressure, uc::Pressure), "0", sep);
        }
    }
    c[sc::Height] = Value(model, a.Height, uc::Length, true, sep);
    c[sc::Width] = Value(model, a.Width, uc::Length, true, sep);
    std::string comment = TrimText(a.Comment);
    if (a.ResType != 0) {
        const std::string name = a.ResType > 0 && a.ResType <= PresetRows
                                     ? TrimText(model.Preset.ResNames[static_cast<std::size_t>(a.ResType)])
                                     : std::string();
        comment += " " + name;
    }
    c[sc::Comments] = std::move(comment);
    c[sc::X1] = Value(model, a.X1, uc::LongLength, false, sep);
    c[sc::Y1] = Value(model, a.Y1, uc::LongLength, false, sep);
    c[sc::Z1] = Value(model, a.Z1, uc::LongLength, false, sep);
    c[sc::X2] = Value(model, a.X2, uc::LongLength, false, sep);
    c[sc::Y2] = Value(model, a.Y2, uc::LongLength, false, sep);
    c[sc::Z2] = Value(model, a.Z2, uc::LongLength, false, sep);

    row.SetMark(sc::Length, a.Has(bc::FixedLength));
    row.SetMark(sc::Flow, a.Has(bc::FixedFlow));
    row.SetMark(sc::Pdrop, a.FanNumber == -1 && a.Has(bc::FixedFlow));
    row.SetMark(sc::Resistance, a.ResType != 0);
    row.SetMark(sc::KFactor, a.WallType == 50);
    row.SetMark(sc::Shock, a.ShockType == 50);
    row.SetMark(sc::FPres, a.FanNumber == -1 && !a.Has(bc::FixedFlow));
}

std::vector<SheetRow> BuildSheetRows(const Model& model, const std::vector<std::int32_t>& airways, char sep) {
    std::vector<SheetRow> rows;
    rows.reserve(airways.size());
    for (const std::int32_t airway : airways) {
        if (airway == 0) break;
        if (airway < 1 || airway > model.AirwayCount) continue;
        FillSheetRow(model, airway, sep, rows.emplace_back());
    }
    std::stable_sort(rows.begin(), rows.end(), [&](const SheetRow& x, const SheetRow& y) {
        return model.Airways[static_cast<std::size_t>(x.Key)].AirwayNo <
               model.Airways[static_cast<std::size_t>(y.Key)].AirwayNo;
    });
    return rows;
}

std::optional<double> ReadSheetNumber(std::string_view text) {
    text = TrimView(text);
    if (text.empty()) return 0.0;
    std::string plain(text);
    std::size_t i = 0;
    if (plain[i] == '+' || plain[i] == '-') ++i;
    std::size_t digits = 0;
    bool point = false;
    for (; i < plain.size(); ++i) {
        const char ch = plain[i];
        if (ch >= '0' && ch <= '9') {
            ++digits;
        } else if ((ch == '.' || ch == ',') && !point) {
            point = true;
            plain[i] = '.';
        } else {
            break;
        }
    }
    if (digits == 0) return std::nullopt;
    if (i < plain.size() && (plain[i] == 'E' || plain[i] == 'e' || plain[i] == 'D' || plain[i] == 'd')) {
        plain[i] = 'e';
        std::size_t j = i + 1;
        if (j < plain.size() && (plain[j] == '+' || plain[j] == '-')) ++j;
        const std::size_t start = j;
        while (j < plain.size() && plain[j] >= '0' && plain[j] <= '9') ++j;
        if (j == start) return std::nullopt;
        i = j;
    }
    if (i != plain.size()) return std::nullopt;
    const char* first = plain.data() + (plain[0] == '+' ? 1 : 0);
    double v = 0;
    const auto [ptr, ec] = std::from_chars(first, plain.data() + plain.size(), v);
    if (ec != std::errc() || ptr != plain.data() + plain.size() || !std::isfinite(v)) return std::nullopt;
    return v;
}

bool EndsInStar(std::string_view text) {
    text = TrimView(text);
    return !text.empty() && text.back() == '*';
}

double SheetValue(std::string_view text) {
    text = TrimView(text);
    if (!text.empty() && text.back() == '*') text.remove_suffix(1);
    return ReadSheetNumber(text).value_or(0.0);
}

} // namespace karvane::forms
