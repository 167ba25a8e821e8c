// karvane-cli table: the spreadsheet's columns of a simulated generated mine, cell by cell
// against the values of `simulate --json` taken through the unit table, in both unit systems,
// and the CSV and text forms with a bad file.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "model/number_format.h"

namespace fs = std::filesystem;
using nlohmann::json;

namespace karvane {
namespace {

class TableCli : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("karvane_table_cli_" + std::to_string(::getpid()) + "_" +
                                            ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string Run(const std::string& args, int* code = nullptr) {
        const fs::path out = dir_ / "stdout.txt";
        const std::string cmd = "'" + std::string(KARVANE_CLI) + "' " + args + " >'" + out.string() + "' 2>'" +
                                (dir_ / "err").string() + "'";
        const int status = std::system(cmd.c_str());
        if (code) *code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        std::ifstream in(out, std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        return s.str();
    }
    fs::path dir_;
};

// A stored SI value as a cell shows it: times the unit's factor in single precision, by a format.
std::string Shown(double si, float factor, const char* format) {
    return FormatNumber(static_cast<float>(si * static_cast<double>(factor)), format);
}

TEST_F(TableCli, CellsOfASimulatedMineMatchTheSimulationThroughTheUnitTable) {
    const std::string mine = (dir_ / "mine.sim").string();
    int code = -1;
    Run("generate '" + mine + "' --airways 400 --seed 11", &code);
    ASSERT_EQ(code, 0);
    const json sim = json::parse(Run("simulate '" + mine + "' --json"));
    std::map<std::int64_t, json> byNo;
    for (const auto& a : sim["airways"]) byNo[a["airwayNo"].get<std::int64_t>()] = a;
    ASSERT_GT(byNo.size(), 300u);

    const struct {
        const char* Units;
        float Length, Flow, Resistance, Pressure, LongLength;
    } systems[] = {{"si", 1, 1, 1, 1, 1}, {"british", 3.28084f, 2.1189f, 0.8953f, 4.0186f, 3.28084f}};
    for (const auto& u : systems) {
        const json table = json::parse(Run("table '" + mine + "' --simulate --json --units " + u.Units));
        ASSERT_TRUE(table["loaded"].get<bool>());
        EXPECT_EQ(table["units"], u.Units);
        ASSERT_EQ(table["columns"].size(), 22u);
        EXPECT_EQ(table["columns"][8], "Resistance");
        ASSERT_EQ(table["rows"].size(), byNo.size());
        std::int64_t lastNo = 0;
        for (const auto& row : table["rows"]) {
            const auto& cells = row["cells"];
            const std::int64_t no = std::stoll(cells[0].get<std::string>());
            EXPECT_GT(no, lastNo) << "rows come sorted on No.";
            lastNo = no;
            const json& a = byNo.at(no);
            const double q = a["quantity"].get<float>(), r = a["resistance"].get<float>();
            SCOPED_TRACE(std::string(u.Units) + " airway " + std::to_string(no));
            EXPECT_EQ(cells[4], Shown(a["length"].get<float>(), u.Length, "0.0########"));
            EXPECT_EQ(cells[5], Shown(std::trunc(q * 1e3) / 1e3, u.Flow, "0.0########"));
            EXPECT_EQ(cells[7], Shown(r * q * q, u.Pressure, "0.0"));
            EXPECT_EQ(cells[8], Shown(std::trunc(r * 1e7) / 1e7, u.Resistance, "0.0########"));
            const bool fixedFlow = (a["branchCode"].get<std::int64_t>() & 4) != 0;
            EXPECT_EQ(row["fixed"][5].get<bool>(), fixedFlow);
        }
    }
}

TEST_F(TableCli, CsvQuotesAndAMissingFileFails) {
    const std::string mine = (dir_ / "mine.sim").string();
    Run("generate '" + mine + "' --airways 60 --seed 3");
    int code = -1;
    const std::string csv = Run("table '" + mine + "' --csv", &code);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(csv.substr(0, csv.find("\r\n")),
              "No.,Name,From,To,Length,Flow,Vel,Pdrop,Resistance,K-Factor,Shock,Fan,F Pres,Height,Width,Comments,X1,Y1,"
              "Z1,X2,Y2,Z2");
    const std::string text = Run("table '" + mine + "'", &code);
    EXPECT_EQ(text.substr(0, text.find('\t')), "No.");
    Run("table '" + (dir_ / "none.sim").string() + "' --json", &code);
    EXPECT_EQ(code, 1);
    Run("table '" + mine + "' --units metric", &code);
    EXPECT_EQ(code, 2);
}

} // namespace
} // namespace karvane
