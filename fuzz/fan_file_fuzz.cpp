// Fuzz target of fansdata.dat: arbitrary bytes as the fan database in the program folder.
#include "files/fan_file.h"
#include "fuzz_support.h"
#include "model/model.h"

using namespace karvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::DecliningUser ui;
    fuzz::WriteInput(files::FanFileName, data, size);
    Model& model = fuzz::SmallFileModel();
    files::LoadFanDatabase(model, ui);
    return 0;
}
