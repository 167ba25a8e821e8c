// Fuzz target of the network loader: arbitrary bytes as a network file of any version. Every
// question is declined, and a failed step is tried again at most once.
#include "files/network_load.h"
#include "fuzz_support.h"
#include "model/model.h"

using namespace karvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::DecliningUser ui;
    Model model;
    files::LoadOptions options;
    options.MaxRetries = 1;
    files::LoadNetwork(model, fuzz::WriteInput("network.sim", data, size), ui, options);
    return 0;
}
