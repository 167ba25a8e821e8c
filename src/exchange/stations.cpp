// Station values at the airways, the two timer roads and the two station dialogs.
#include "exchange/stations.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "exchange/text_export.h"
#include "files/number_text.h"
#include "files/station_list.h"
#include "files/text_file.h"
#include "model/node_keys.h"
#include "model/number_format.h"

namespace karvane::exchange {

namespace {

// Pi as the station areas take it.
constexpr double StationPi = 3.1415926;

const Station* StationOf(const Model& model, int s) {
    if (s < 1 || s > StationCount || static_cast<std::size_t>(s) >= model.Stations.Stations.size()) return nullptr;
    return &model.Stations.Stations[static_cast<std::size_t>(s)];
}

std::string Upper(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

// Area by the shape bits, a later bit winning: rectangle, circle, area entry.
double StationArea(const Airway& a) {
    double area = 0;
    if (a.Has(bc::Rectangular)) area = static_cast<double>(a.Height) * a.Width;
    if (a.Has(bc::Circular)) area = static_cast<double>(a.Width) * a.Width / 4 * StationPi;
    if (a.Has(bc::AreaEntry)) area = a.Width;
    return area;
}

std::string NumberBox(float v, char sep) { return files::PlainSingle(v, sep); }

} // namespace

double ChannelReading(const Model& model, int s, int k) {
    const Station* st = StationOf(model, s);
    if (!st || k < 1 || k > ChannelCount) return 0;
    const auto c = static_cast<std::size_t>(k);
    return static_cast<double>(st->ChannelValue[c]) * st->ChannelFactor[c];
}

Alarm ChannelAlarm(const Model& model, int s, int k) {
    const Station* st = StationOf(model, s);
    if (!st || k < 1 || k > ChannelCount || model.Stations.AlarmsOn == 0) return Alarm::None;
    const auto c = static_cast<std::size_t>(k);
    const double value = ChannelReading(model, s, k);
    Alarm alarm = Alarm::None;
    if (st->AlarmLow[c] != 0 && value < st->AlarmLow[c]) alarm = Alarm::Low;
    if (st->AlarmHigh[c] != 0 && value > st->AlarmHigh[c]) alarm = Alarm::High;
    return alarm;
}

void ApplyStationFlow(Model& model, std::int32_t row) {
    if (row < 1 || row > model.AirwayCount || static_cast<std::size_t>(row) >= model.Airways.size()) return;
    Airway& a = model.Airways[static_cast<std::size_t>(row)];
    const Station* st = StationOf(model, a.RemoteStation);
    if (!st) return;
    const std::string name = Upper(TrimText(st->ChannelName[1]));
    const bool velocity = name == "VELOCITY", quantity = name == "QUANTITY", pressure = name == "PRESSURE";
    if (!velocity && !quantity && !pressure) return;
    if (st->UpdateFlow == 0) {
        a.BranchCode &= ~bc::FixedFlow;
        return;
    }
    const double value = ChannelReading(model, a.RemoteStation, 1);
    double q = value;
    if (velocity) q = value * StationArea(a);
    if (pressure) {
        if (!(a.Resistance > 0)) return;
        q = std::copysign(std::sqrt(std::fabs(value) / a.Resistance), value);
    }
    a.Quantity = files::ToSingle(q);
    if (value != 0) {
        a.BranchCode |= bc::FixedFlow;
    } else {
        a.BranchCode &= ~bc::FixedFlow;
    }
}

std::vector<display::StationLabelLine> StationMonitor::LabelLines(const Model& model, std::int32_t row) {
    std::vector<display::StationLabelLine> lines;
    if (row < 1 || row > model.AirwayCount || static_cast<std::size_t>(row) >= model.Airways.size()) return lines;
    const int s = model.Airways[static_cast<std::size_t>(row)].RemoteStation;
    const Station* st = StationOf(model, s);
    if (!st) return lines;
    // The label of a drawn station airway is where its reading becomes the airway's flow: the
    // monitor writes through its own handle on the network it watches.
    ApplyStationFlow(*model_, row);

    const std::string time = TrimText(st->StationText[2]);
    lines.push_back({"   " + TrimText(st->StationName) + (time.empty() ? "" : " " + time), StationNameColour});
    for (int k = 1; k <= ChannelCount; ++k) {
        const auto c = static_cast<std::size_t>(k);
        const Alarm alarm = ChannelAlarm(model, s, k);
        display::Colour colour = model.Set.Colours[5];
        if (alarm == Alarm::Low) colour = LowAlarmColour;
        if (alarm == Alarm::High) colour = HighAlarmColour;
        if (alarm != Alarm::None && AlarmSoundAllowed && Beep) Beep();
        const std::string abbrev = TrimText(st->ChannelAbbrev[c]);
        if (abbrev.empty()) continue;
        lines.push_back(
            {abbrev + "  " + FormatNumber(ChannelReading(model, s, k), "0.0", sep_) + st->ChannelUnits[c], colour});
    }
    return lines;
}

TickResult ReadStations(Model& model, ui::UserInterface& ui, StationMonitor& monitor, StationHooks& hooks) {
    if (hooks.Busy()) return TickResult::Skipped;
    if (ReadStationFile(model, model.Stations.InputFile, monitor.Heading) != files::err::None) {
        ui.Message(StationFileErrorText, ProgramName, ui::Icon::Exclamation);
        return TickResult::Failed;
    }
    if (!hooks.Busy()) {
        monitor.AlarmSoundAllowed = true;
        hooks.RedrawViews();
        monitor.AlarmSoundAllowed = false;
    }
    if (model.Stations.Resimulate != 0) {
        const std::int16_t shown = model.ShowProgress;
        model.ShowProgress = 0;
        model.SimMode = RunMode::Normal;
        simulate::RunAirflow(model, ui, &hooks);
        model.ShowProgress = shown;
        if (!hooks.Busy()) hooks.RedrawViews();
    }
    return TickResult::Done;
}

TickResult WriteResults(Model& model, ui::UserInterface& ui, StationHooks& hooks) {
    if (hooks.Busy()) return TickResult::Skipped;
    const char sep = ui.DecimalSeparator();
    files::TextFileWriter out;
    int code = out.Open(model.Stations.OutputFile);
    if (code == files::err::None) {
        out.WriteLine(TabJoined(ResultsHeadings));
        for (std::int32_t row = 1; row <= CheckedAirwayCount(model); ++row) out.WriteLine(ResultsLine(model, row, sep));
        code = out.Commit();
    }
    if (code != files::err::None) {
        ui.Message(ResultsErrorText, ProgramName, ui::Icon::Exclamation);
        return TickResult::Failed;
    }
    return TickResult::Done;
}

std::int32_t ActivateInput(Model& model, ui::UserInterface& ui, StationMonitor& monitor, StationHooks& hooks, bool on) {
    model.Stations.InputActive = on;
    // A reading redraws by itself; otherwise the views are redrawn here.
    if (!on || ReadStations(model, ui, monitor, hooks) != TickResult::Done) hooks.RedrawViews();
    return on ? files::StationTimerIntervalMs(model.Stations.InputSeconds) : 0;
}

std::int32_t ActivateOutput(Model& model, ui::UserInterface& ui, StationHooks& hooks, bool on) {
    model.Stations.OutputActive = on;
    if (on) WriteResults(model, ui, hooks);
    hooks.RedrawViews();
    return on ? files::StationTimerIntervalMs(model.Stations.OutputSeconds) : 0;
}

RemoteFields FillRemote(const Model& model, int station, char sep) {
    RemoteFields f;
    f.LblNumber = std::clamp(station, 1, StationCount);
    const StationTable& table = model.Stations;
    if (const Station* st = StationOf(model, f.LblNumber)) {
        PasteStation(f, *st, sep);
    }
    f.TxtRemoteSource = table.InputFile;
    f.ChkResim = table.Resimulate != 0;
    f.TxtTimer = files::PlainDouble(table.InputSeconds, sep);
    f.ChkAlarm = table.AlarmsOn != 0;
    return f;
}

Station CopyStation(const RemoteFields& f) {
    Station st;
    for (std::size_t k = 1; k <= static_cast<std::size_t>(ChannelCount); ++k) {
        st.ChannelName[k] = f.TxtLngNames[k];
        st.ChannelAbbrev[k] = f.Abrev[k];
        st.ChannelUnits[k] = f.RUnits[k];
        st.ChannelFactor[k] = files::ToSingle(ParseLeadingNumber(f.Mult[k]));
        st.AlarmLow[k] = files::ToSingle(ParseLeadingNumber(f.ALow[k]));
        st.AlarmHigh[k] = files::ToSingle(ParseLeadingNumber(f.AHigh[k]));
    }
    st.StationName = f.TxtStationName;
    st.UpdateFlow = f.ChkUpdateQ ? -1 : 0;
    return st;
}

void PasteStation(RemoteFields& f, const Station& st, char sep) {
    for (std::size_t k = 1; k <= static_cast<std::size_t>(ChannelCount); ++k) {
        f.TxtLngNames[k] = st.ChannelName[k];
        f.Abrev[k] = st.ChannelAbbrev[k];
        f.RUnits[k] = st.ChannelUnits[k];
        f.Mult[k] = NumberBox(st.ChannelFactor[k], sep);
        f.ALow[k] = st.AlarmLow[k] == 0 ? std::string() : NumberBox(st.AlarmLow[k], sep);
        f.AHigh[k] = st.AlarmHigh[k] == 0 ? std::string() : NumberBox(st.AlarmHigh[k], sep);
    }
    f.TxtStationName = st.StationName;
    f.ChkUpdateQ = st.UpdateFlow != 0;
}

void StoreRemote(Model& model, const RemoteFields& f) {
    StationTable& table = model.Stations;
    const int s = std::clamp(f.LblNumber, 1, StationCount);
    if (static_cast<std::size_t>(s) < table.Stations.size()) {
        Station& st = table.Stations[static_cast<std::size_t>(s)];
        auto number = [](const std::string& box, float& stored) {
            if (!TrimText(box).empty()) stored = files::ToSingle(ParseLeadingNumber(box));
        };
        for (std::size_t k = 1; k <= static_cast<std::size_t>(ChannelCount); ++k) {
            st.ChannelName[k] = f.TxtLngNames[k];
            st.ChannelAbbrev[k] = f.Abrev[k];
            st.ChannelUnits[k] = f.RUnits[k];
            number(f.Mult[k], st.ChannelFactor[k]);
            number(f.ALow[k], st.AlarmLow[k]);
            number(f.AHigh[k], st.AlarmHigh[k]);
        }
        st.StationName = f.TxtStationName;
        st.UpdateFlow = f.ChkUpdateQ ? -1 : 0;
    }
    table.InputFile = TrimText(f.TxtRemoteSource);
    table.Resimulate = f.ChkResim ? -1 : 0;
    table.InputSeconds = ParseLeadingNumber(f.TxtTimer);
    table.AlarmsOn = f.ChkAlarm ? -1 : 0;
}

void ScrollStation(Model& model, RemoteFields& f, int station, char sep) {
    StoreRemote(model, f);
    f = FillRemote(model, station, sep);
}

std::int32_t CloseRemote(Model& model, const RemoteFields& f) {
    StoreRemote(model, f);
    model.DefaultsSaved = No0;
    return files::StationTimerIntervalMs(model.Stations.InputSeconds);
}

RealOutFields FillRealOut(const Model& model, char sep) {
    return {model.Stations.OutputFile, files::PlainDouble(model.Stations.OutputSeconds, sep)};
}

std::int32_t ApplyRealOut(Model& model, const RealOutFields& f) {
    std::string name = TrimText(f.TxtRealOut);
    if (!name.empty() && std::filesystem::path(name).filename().string().find('.') == std::string::npos) name += ".txt";
    model.Stations.OutputFile = name;
    model.Stations.OutputSeconds = ParseLeadingNumber(f.TxtTimer);
    model.DefaultsSaved = No0;
    return files::StationTimerIntervalMs(model.Stations.OutputSeconds);
}

} // namespace karvane::exchange
