// karvane-cli run from the tests: a temporary folder of each test's own, the exit status and
// both output streams of one command, the messages of a JSON result, and the demo mine read in
// process as the command line reads it, to save variants of it.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "files/conversion_file.h"
#include "files/defaults_file.h"
#include "files/fan_file.h"
#include "files/network_file.h"
#include "files/network_load.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace karvane::cli_testing {

namespace fs = std::filesystem;
using nlohmann::json;

inline const std::string Demo = std::string(KARVANE_EXAMPLES) + "/demo-mine.sim";
inline const std::string Clock = "--clock '2026-05-04 10:20:30' ";

inline std::string ReadAll(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

inline std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

inline std::string Q(const fs::path& p) { return "'" + p.string() + "'"; }

struct Result {
    int code = -1;
    std::string out, err;
    json Json() const { return json::parse(out); }
};

// The texts of the messages of a JSON result under one title.
inline std::vector<std::string> TextsTitled(const json& doc, const std::string& title) {
    std::vector<std::string> texts;
    for (const auto& m : doc["messages"])
        if (m["title"] == title) texts.push_back(m["text"].get<std::string>());
    return texts;
}

inline bool HasMessage(const json& doc, const std::string& text) {
    for (const auto& m : doc["messages"])
        if (m["text"] == text) return true;
    return false;
}

class CliTest : public ::testing::Test {
protected:
    void SetUp() override {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() /
               ("karvane_cli_" + std::to_string(::getpid()) + "_" + test->test_suite_name() + "_" + test->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    Result Run(const std::string& args) const {
        const fs::path out = dir_ / "stdout.txt", err = dir_ / "stderr.txt";
        const std::string cmd = Q(KARVANE_CLI) + " " + args + " >" + Q(out) + " 2>" + Q(err);
        const int status = std::system(cmd.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(out), ReadAll(err)};
    }
    // Writes a file of the test's folder; its name quoted for a command line.
    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(dir_ / name, std::ios::binary) << text;
        return Q(dir_ / name);
    }

    // A network read in process with the program's data files of the build.
    static std::unique_ptr<Model> LoadDemo(ui::ScriptedUserInterface& ui, const std::string& path = Demo) {
        auto m = std::make_unique<Model>();
        ui.App = fs::path(KARVANE_CLI).parent_path().string();
        SetBuiltInUnits(m->Units);
        files::LoadConversions(*m, ui);
        files::LoadBuiltInSettings(*m, ui);
        files::LoadFanDatabase(*m, ui);
        EXPECT_TRUE(files::LoadNetwork(*m, path, ui));
        return m;
    }
    std::string SaveVariant(Model& m, ui::ScriptedUserInterface& ui, const std::string& name) const {
        const std::string path = (dir_ / name).string();
        m.FileName = path;
        m.ViewWindowOpen = true;
        EXPECT_TRUE(files::SaveNetwork(m, ui, 0));
        return path;
    }

    fs::path dir_;
};

} // namespace karvane::cli_testing
