// Fuzz target of Conversion.dat: arbitrary bytes as the unit table in the program folder.
#include "files/conversion_file.h"
#include "fuzz_support.h"
#include "model/model.h"

using namespace karvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::DecliningUser ui;
    fuzz::WriteInput(files::ConversionFileName, data, size);
    Model& model = fuzz::SmallFileModel();
    files::LoadConversions(model, ui);
    return 0;
}
