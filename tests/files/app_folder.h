// A program folder of its own for each test: a fresh temporary folder that the scripted user
// interface names as AppPath, removed again at the end of the test.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

#include "model/builtin_settings.h"
#include "model/model.h"
#include "model/network_rows.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace karvane::testing {

class AppFolder {
public:
    AppFolder() {
        std::random_device rd;
        Path = std::filesystem::temp_directory_path() / ("karvane-app-" + std::to_string(rd()) + std::to_string(rd()));
        std::filesystem::create_directories(Path);
        Ui.App = Path.string();
    }
    ~AppFolder() {
        std::error_code ec;
        std::filesystem::remove_all(Path, ec);
    }
    AppFolder(const AppFolder&) = delete;
    AppFolder& operator=(const AppFolder&) = delete;

    std::string File(const std::string& name) const { return (Path / name).string(); }
    bool Exists(const std::string& name) const { return std::filesystem::exists(Path / name); }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream out(Path / name, std::ios::binary);
        out << bytes;
    }
    std::string Read(const std::string& name) const { return ReadFile((Path / name).string()); }
    static std::string ReadFile(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        std::stringstream ss;
        ss << in.rdbuf();
        return ss.str();
    }
    // Names of every entry of the folder, to see that no temporary file was left behind.
    std::size_t EntryCount() const {
        std::size_t n = 0;
        for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(Path)) ++n;
        return n;
    }

    std::filesystem::path Path;
    ui::ScriptedUserInterface Ui;
};

// A model as the program has it right after start-up without any file: built-in values,
// built-in units, the tables allocated.
inline void SetUpBuiltIn(Model& model) {
    SetBuiltInCapacities(model);
    SetBuiltInSettings(model);
    SetBuiltInUnits(model.Units);
    AllocateNetwork(model);
}
inline Model BuiltInModel() {
    Model model;
    SetUpBuiltIn(model);
    return model;
}

// Lines joined by CR LF, each line ended.
inline std::string CrLf(std::initializer_list<std::string> lines) {
    std::string out;
    for (const auto& l : lines) out += l + "\r\n";
    return out;
}

// A valid file damaged at a few random places: bytes changed, runs cut out, separators and
// signs put in, the tail cut off. Readers must survive every one of them.
inline std::string Mangled(std::string text, std::mt19937& rng) {
    const int edits = 1 + static_cast<int>(rng() % 8);
    for (int e = 0; e < edits && !text.empty(); ++e) {
        const std::size_t at = rng() % text.size();
        switch (rng() % 4) {
        case 0: text[at] = static_cast<char>(rng() % 256); break;
        case 1: text.erase(at, rng() % 40); break;
        case 2: text.insert(at, std::string(1 + rng() % 3, "\t\r\n-9E,"[rng() % 7])); break;
        default: text.resize(at); break;
        }
    }
    return text;
}

} // namespace karvane::testing
