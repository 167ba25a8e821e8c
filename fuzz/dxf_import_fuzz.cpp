// Fuzz target of the DXF import: arbitrary bytes as a drawing, imported as its centre lines.
#include "import_support.h"

using namespace karvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::ImportTwice(fuzz::WriteInput("drawing.dxf", data, size));
    return 0;
}
