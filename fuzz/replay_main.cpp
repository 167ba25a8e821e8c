// Runs a fuzz target over saved inputs without libFuzzer, so that the seed corpus and every
// input that once broke a reader are replayed by the sanitizer build of the tests.
// Usage: fuzz_replay_<target> FILE_OR_FOLDER...
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz_support.h"

namespace {

bool Replay(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "cannot read %s\n", file.string().c_str());
        return false;
    }
    std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
    return true;
}

} // namespace

int main(int argc, char** argv) {
    int count = 0;
    bool ok = true;
    for (int i = 1; i < argc; ++i) {
        std::filesystem::path arg(argv[i]);
        std::vector<std::filesystem::path> files;
        if (std::filesystem::is_directory(arg)) {
            for (const auto& entry : std::filesystem::directory_iterator(arg))
                if (entry.is_regular_file()) files.push_back(entry.path());
            std::sort(files.begin(), files.end());
        } else {
            files.push_back(arg);
        }
        for (const auto& f : files) {
            std::fprintf(stderr, "%s\n", f.string().c_str());
            ok = Replay(f) && ok;
            ++count;
        }
    }
    std::printf("%d inputs replayed\n", count);
    return ok && count > 0 ? 0 : 1;
}
