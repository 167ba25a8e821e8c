// Fuzz target of the Merge command: a small network is loaded, then arbitrary bytes are merged
// behind it as a second network file. Every question is declined.
#include "files/network_load.h"
#include "fuzz_support.h"
#include "model/model.h"

using namespace karvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::DecliningUser ui;
    Model model;
    files::LoadOptions options;
    options.MaxRetries = 1;
    if (!files::LoadNetwork(model, KARVANE_FUZZ_MERGE_BASE, ui, options))
        fuzz::Fail("the base network of the merge does not load");
    ui.FilePaths.push_back(fuzz::WriteInput("merged.sim", data, size));
    files::MergeNetwork(model, ui);
    return 0;
}
