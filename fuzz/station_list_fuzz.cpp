// Fuzz target of Remotes.dat: arbitrary bytes as the station list in the program folder.
#include "files/station_list.h"
#include "fuzz_support.h"
#include "model/model.h"

using namespace karvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::DecliningUser ui;
    fuzz::WriteInput(files::StationFileName, data, size);
    Model& model = fuzz::SmallFileModel();
    files::LoadStations(model, ui);
    return 0;
}
