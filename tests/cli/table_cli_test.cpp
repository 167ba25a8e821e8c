// karvane-cli table: the spreadsheet's columns of a simulated generated mine, cell by cell
// against the values of `simulate --json` taken through the unit table, in both unit systems,
// and the CSV and text forms with a bad file.
#include <cmath>
#include <map>

#include "cli_support.h"
#include "model/number_format.h"

namespace karvane {
namespace {

using namespace cli_testing;
using TableCli = CliTest;

// A stored SI value as a cell shows it: times the unit's factor in single precision, by a format.
std::string Shown(double si, float factor, const char* format) {
    return FormatNumber(static_cast<float>(si * static_cast<double>(factor)), format);
}

TEST_F(TableCli, CellsOfASimulatedMineMatchTheSimulationThroughTheUnitTable) {
    const std::string mine = Q(dir_ / "mine.sim");
    ASSERT_EQ(Run("generate " + mine + " --airways 400 --seed 11").code, 0);
    const json sim = Run("simulate " + mine + " --json").Json();
    std::map<std::int64_t, json> byNo;
    for (const auto& a : sim["airways"]) byNo[a["airwayNo"].get<std::int64_t>()] = a;
    ASSERT_GT(byNo.size(), 300u);

    const struct {
        const char* Units;
        float Length, Flow, Resistance, Pressure;
    } systems[] = {{"si", 1, 1, 1, 1}, {"british", 3.28084f, 2.1189f, 0.8953f, 4.0186f}};
    for (const auto& u : systems) {
        const json table = Run("table " + mine + " --simulate --json --units " + u.Units).Json();
        ASSERT_TRUE(table["loaded"].get<bool>());
        EXPECT_EQ(table["units"], u.Units);
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

    // The CSV and text forms begin with the column headings; bad files and units fail.
    const Result csv = Run("table " + mine + " --csv");
    EXPECT_EQ(csv.code, 0);
    EXPECT_EQ(csv.out.substr(0, csv.out.find("\r\n")),
              "No.,Name,From,To,Length,Flow,Vel,Pdrop,Resistance,K-Factor,Shock,Fan,F Pres,Height,Width,Comments,X1,Y1,"
              "Z1,X2,Y2,Z2");
    const Result text = Run("table " + mine);
    EXPECT_EQ(text.out.substr(0, text.out.find('\t')), "No.");
    EXPECT_EQ(Run("table " + Q(dir_ / "none.sim") + " --json").code, 1);
    EXPECT_EQ(Run("table " + mine + " --units metric").code, 2);
}

} // namespace
} // namespace karvane
