// Remotes.dat: one line of 39 tab-separated fields per station, always 50 lines. The last seven
// fields hold the values of all stations together and are written alike on every line.
#include "files/station_list.h"

#include <algorithm>
#include <cmath>

#include "files/app_files.h"
#include "files/number_text.h"
#include "files/text_file.h"

namespace karvane::files {
namespace {

void ReadStationLine(const Fields& f, Station& st, StationTable& table) {
    for (int k = 1; k <= ChannelCount; ++k) {
        st.ChannelName[k] = TrimText(f[k]);
        st.ChannelAbbrev[k] = TrimText(f[5 + k]);
        st.ChannelUnits[k] = TrimText(f[10 + k]);
        st.ChannelFactor[k] = ToSingle(ParseNumber(f[15 + k]));
        st.AlarmLow[k] = ToSingle(ParseNumber(f[20 + k]));
        st.AlarmHigh[k] = ToSingle(ParseNumber(f[25 + k]));
    }
    st.StationName = TrimText(f[31]);
    st.UpdateFlow = ToInt16(ParseNumber(f[32]));
    table.InputFile = TrimText(f[33]);
    table.Resimulate = ToInt16(ParseNumber(f[34]));
    table.InputSeconds = ParseNumber(f[35]);
    table.AlarmsOn = ToInt16(ParseNumber(f[36]));
    table.OutputFile = TrimText(f[38]);
    table.OutputSeconds = ParseNumber(f[39]);
}

std::string StationLine(const Station& st, const StationTable& table, char sep) {
    std::string line;
    auto put = [&line](const std::string& text) { line += text + '\t'; };
    for (int k = 1; k <= ChannelCount; ++k) put(st.ChannelName[k]);
    for (int k = 1; k <= ChannelCount; ++k) put(st.ChannelAbbrev[k]);
    for (int k = 1; k <= ChannelCount; ++k) put(st.ChannelUnits[k]);
    for (int k = 1; k <= ChannelCount; ++k) put(PaddedSingle(st.ChannelFactor[k], sep));
    for (int k = 1; k <= ChannelCount; ++k) put(PaddedSingle(st.AlarmLow[k], sep));
    for (int k = 1; k <= ChannelCount; ++k) put(PaddedSingle(st.AlarmHigh[k], sep));
    put(st.StationName);
    put(PaddedInt(st.UpdateFlow));
    put(table.InputFile);
    put(PaddedInt(table.Resimulate));
    put(PaddedDouble(table.InputSeconds, sep));
    put(PaddedInt(table.AlarmsOn));
    put("");
    put(table.OutputFile);
    line += PaddedDouble(table.OutputSeconds, sep); // the last field has no tab behind it
    return line;
}

} // namespace

int LoadStations(Model& model, ui::UserInterface& ui) {
    StationTable& table = model.Stations;
    TextFileReader in;
    if (int code = in.Open(AppFile(ui, StationFileName)); code != err::None) return code;
    std::string line;
    Fields f;
    for (int s = 1; s <= StationCount && s < static_cast<int>(table.Stations.size()); ++s) {
        if (!in.ReadLine(line) || TrimText(line).empty()) break;
        SplitTabs(line, f);
        ReadStationLine(f, table.Stations[s], table);
    }
    return err::None;
}

int SaveStations(const Model& model, ui::UserInterface& ui) {
    const StationTable& table = model.Stations;
    const char sep = ui.DecimalSeparator();
    TextFileWriter out;
    if (int code = out.Open(AppFile(ui, StationFileName)); code != err::None) return code;
    const Station blank{};
    for (int s = 1; s <= StationCount; ++s)
        out.WriteLine(StationLine(s < static_cast<int>(table.Stations.size()) ? table.Stations[s] : blank, table, sep));
    return out.Commit();
}

std::int32_t StationTimerIntervalMs(double seconds) {
    if (!(seconds > 0)) return 0;
    return static_cast<std::int32_t>(std::min(std::nearbyint(seconds * 1000.0), 65535.0));
}

} // namespace karvane::files
