// The two text files of the real-time stations: the logger's data file read in, the results
// of every airway written out.
#include <algorithm>

#include "exchange/stations.h"
#include "exchange/text_export.h"
#include "files/app_files.h"
#include "files/number_text.h"
#include "files/text_file.h"

namespace karvane::exchange {

int ReadStationFile(Model& model, const std::string& path, std::array<std::string, 6>& heading) {
    files::TextFileReader in;
    if (const int code = in.Open(path); code != files::err::None) return code;
    std::string line;
    files::Fields f;
    if (!in.ReadLine(line)) return files::err::FileNotFound;
    files::SplitTabs(line, f);
    for (int k = 1; k <= ChannelCount; ++k)
        heading[static_cast<std::size_t>(k)] = TrimText(f[static_cast<std::size_t>(3 + k)]);
    in.ReadLine(line);

    std::vector<Station>& stations = model.Stations.Stations;
    while (in.ReadLine(line)) {
        files::SplitTabs(line, f);
        if (!files::IsNumber(f[1])) continue;
        const double number = files::ParseNumber(f[1]);
        if (number < 1 || number > StationCount || number != static_cast<double>(static_cast<int>(number))) continue;
        const auto s = static_cast<std::size_t>(number);
        if (s >= stations.size()) continue;
        Station& st = stations[s];
        for (int t = 1; t <= 2; ++t) {
            const std::string& text = f[static_cast<std::size_t>(1 + t)];
            if (!text.empty()) st.StationText[static_cast<std::size_t>(t)] = TrimText(text);
        }
        for (int k = 1; k <= ChannelCount; ++k) {
            const std::string& reading = f[static_cast<std::size_t>(3 + k)];
            if (TrimText(reading).empty()) continue;
            st.ChannelValue[static_cast<std::size_t>(k)] = files::ToInt32(files::ParseNumber(reading));
        }
    }
    return files::err::None;
}

std::string ResultsLine(const Model& model, std::int32_t row, char sep) {
    const Airway& a = model.Airways[static_cast<std::size_t>(row)];
    std::string line;
    auto put = [&line](const std::string& item) { AddField(line, item); };
    auto name = [](const std::string& text) {
        std::size_t end = text.size();
        while (end > 0 && text[end - 1] == ' ') --end;
        return text.substr(0, end);
    };
    auto single = [sep](float v) { return files::PlainSingle(v, sep); };
    put(files::PlainInt(a.AirwayNo));
    put(name(a.EntryNode));
    put(name(a.ExitNode));
    put(name(a.BranchName));
    for (std::int32_t v : {a.X1, a.Y1, a.Z1, a.X2, a.Y2, a.Z2}) put(files::PlainInt(v));
    for (float v : {a.Height, a.Width, a.WallFactor, a.ShockFactor, a.Resistance, a.Quantity}) put(single(v));
    put(files::PlainInt(a.FanNumber));
    put(files::PlainInt(a.NoOfFans));
    for (float v : {a.Length, a.Pressure, a.Contaminant}) put(single(v));
    put(files::PlainInt(a.PrimaryLayer));
    put(files::PlainInt(a.SecondLayer));
    put(single(a.FromNodeP));
    put(single(a.ToNodeP));
    put(files::PlainInt(a.NoAirways));
    put(files::PlainInt(a.RemoteStation));
    return line;
}

} // namespace karvane::exchange
