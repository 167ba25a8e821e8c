// Fuzz target of the real-time station data file: arbitrary bytes as the logger's file.
#include "exchange/stations.h"
#include "fuzz_support.h"

using namespace karvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Model& model = fuzz::SmallFileModel();
    std::array<std::string, 6> heading{};
    exchange::ReadStationFile(model, fuzz::WriteInput("logger.rem", data, size), heading);
    for (const Station& st : model.Stations.Stations)
        if (st.StationText.size() != 3) fuzz::Fail("a station lost its texts");
    return 0;
}
