// Scratch folder, input files and the declining user of the fuzz targets.
#include "fuzz_support.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace karvane::fuzz {

namespace {

std::string MakeScratchFolder() {
    std::filesystem::path p = std::filesystem::temp_directory_path() / ("karvane-fuzz-" + std::to_string(::getpid()));
    std::filesystem::create_directories(p);
    return p.string();
}

void RemoveScratchFolder() {
    std::error_code ec;
    std::filesystem::remove_all(ScratchFolder(), ec);
}

} // namespace

const std::string& ScratchFolder() {
    static const std::string folder = MakeScratchFolder();
    // Registered after the folder's name exists, so it runs before that name is destroyed.
    static const bool removedAtExit = std::atexit(RemoveScratchFolder) == 0;
    (void)removedAtExit;
    return folder;
}

std::string WriteInput(const std::string& fileName, const std::uint8_t* data, std::size_t size) {
    std::string path = ScratchFolder() + "/" + fileName;
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) Fail("cannot write the input file " + path);
    if (size > 0 && std::fwrite(data, 1, size, f) != size) Fail("cannot write the input file " + path);
    std::fclose(f);
    return path;
}

Model& SmallFileModel() {
    static Model model;
    static const Model pristine = [] {
        Model m;
        m.Airways.clear();
        m.Airways.shrink_to_fit();
        return m;
    }();
    std::vector<Airway> rows = std::move(model.Airways);
    model = pristine;
    model.Airways = std::move(rows);
    if (model.Airways.size() != static_cast<std::size_t>(MaxAirways) + 1)
        Fail("a reader of a small file changed the airway table");
    return model;
}

DecliningUser::DecliningUser() {
    App = ScratchFolder();
    Temp = ScratchFolder();
}

ui::Answer DecliningUser::Ask(const std::string& text, const std::string& title, ui::Buttons buttons, ui::Icon icon) {
    ScriptedUserInterface::Ask(text, title, buttons, icon); // keeps the transcript
    switch (buttons) {
    case ui::Buttons::OK: return ui::Answer::OK;
    case ui::Buttons::OKCancel: return ui::Answer::Cancel;
    case ui::Buttons::YesNo:
    case ui::Buttons::YesNoCancel: return ui::Answer::No;
    }
    return ui::Answer::No;
}

void Fail(std::string_view what) {
    std::fprintf(stderr, "fuzz check failed: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
}

} // namespace karvane::fuzz
