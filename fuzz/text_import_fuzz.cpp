// Fuzz target of the text import: arbitrary bytes as the tab-separated rows of a text export.
#include "import_support.h"

using namespace karvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::ImportTwice(fuzz::WriteInput("rows.txt", data, size));
    return 0;
}
