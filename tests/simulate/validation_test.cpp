// The checking stage: duplicate and zero-length questions, node numbers, the connection
// checks with their exact list lines, and the whole stage against a plain row-by-row version
// of the same checks on generated networks.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "engineering/resistance.h"
#include "files/duplicates.h"
#include "simulate/validation.h"
#include "support/golden.h"
#include "ui/scripted_ui.h"

namespace karvane::simulate {
namespace {

using ui::Answer;

void PrepareModel(Model& model) {
    model.Levels[1] = {"SURFACE", 1000, 1000};
    model.Levels[2] = {"U/Ground", 500, 480};
    model.Preset.WallPreset[4] = 0.01f;
}

std::int32_t AddAirway(Model& model, std::int32_t x1, std::int32_t y1, std::int32_t z1, std::int32_t x2,
                       std::int32_t y2, std::int32_t z2, std::int32_t extraBits = 0) {
    const std::int32_t row = ++model.AirwayCount;
    Airway& a = model.Airways[row];
    a = Airway{};
    a.X1 = x1, a.Y1 = y1, a.Z1 = z1, a.X2 = x2, a.Y2 = y2, a.Z2 = z2;
    a.BranchCode = bc::Rectangular | extraBits;
    a.Height = 4;
    a.Width = 4;
    a.WallType = 4;
    a.BranchName = "A";
    a.BranchName += std::to_string(row);
    a.AirwayNo = row;
    return row;
}

std::vector<std::string> Lines(const Model& model) {
    std::vector<std::string> lines;
    for (const auto& e : model.ErrorList) lines.push_back(ErrorListLine(e));
    return lines;
}

// ---------------------------------------------------------------------------------------------
// The checks as a plain row-by-row procedure: a simple stable sort, a binary search per exit
// that marks the row it lands on, a scan of all rows for each unmarked entry, and a scan of
// every other row for each forced surface end. The duplicate check already works row by row
// on neighbours and serves both sides.

void OracleSort(Model& model) {
    auto& r = model.Airways;
    for (std::int32_t i = 2; i <= model.AirwayCount; ++i) {
        for (std::int32_t j = i; j > 1; --j) {
            const bool after = r[j - 1].EntryKey < r[j].EntryKey ||
                               (r[j - 1].EntryKey == r[j].EntryKey && r[j - 1].ExitKey < r[j].ExitKey);
            if (!after) break;
            std::swap(r[j - 1], r[j]);
        }
    }
}

void OracleMark(Model& model, std::int32_t row, const char* line, const char* comment) {
    model.ErrorList.push_back({model.Airways[row].AirwayNo, line});
    model.Airways[row].Comment = std::string(comment).substr(0, 12);
    model.Airways[row].BranchCode |= bc::ErrorMark;
}

void OracleConnections(Model& model) {
    auto& r = model.Airways;
    RunState& run = model.Run;
    const std::int32_t n = model.AirwayCount;
    for (std::int32_t i = 1; i <= n; ++i) {
        r[i].Comment.clear();
        r[i].BranchCode &= ~bc::ErrorMark;
    }
    run.EntryNodeNo[1] = 1;
    for (std::int32_t i = 2; i <= n; ++i) {
        run.EntryNodeNo[i] = static_cast<std::int16_t>(run.EntryNodeNo[i - 1] + (r[i].EntryKey != r[i - 1].EntryKey));
    }
    run.NumNodes = run.EntryNodeNo[n];
    std::vector<bool> reached(n + 1);
    for (std::int32_t i = 1; i <= n; ++i) {
        std::int32_t lo = 1, hi = n, found = 0;
        while (lo <= hi) {
            const std::int32_t mid = (lo + hi) / 2;
            if (r[mid].EntryKey == r[i].ExitKey) {
                found = mid;
                break;
            }
            if (r[mid].EntryKey > r[i].ExitKey) lo = mid + 1;
            else hi = mid - 1;
        }
        if (found) {
            run.ExitNodeNo[i] = run.EntryNodeNo[found];
            reached[found] = true;
        } else {
            run.ExitNodeNo[i] = 0;
            OracleMark(model, i, "No exit from branch", "No Exit");
            model.SimFail = RunResult::Failed;
        }
    }
    for (std::int32_t i = 1; i <= n; ++i) {
        if (reached[i]) continue;
        bool any = false;
        for (std::int32_t j = 1; j <= n; ++j) any = any || r[j].ExitKey == r[i].EntryKey;
        if (!any) {
            OracleMark(model, i, "No entry into branch", "No Entry");
            model.SimFail = RunResult::Failed;
        }
    }
    for (int end = 1; end <= 2; ++end) {
        for (std::int32_t i = 1; i <= n; ++i) {
            if (!r[i].Has(end == 1 ? bc::EntryAtSurface : bc::ExitAtSurface)) continue;
            const std::int32_t x = end == 1 ? r[i].X1 : r[i].X2;
            const std::int32_t y = end == 1 ? r[i].Y1 : r[i].Y2;
            const std::int32_t z = end == 1 ? r[i].Z1 : r[i].Z2;
            for (std::int32_t j = 1; j <= n; ++j) {
                if (j == i) continue;
                if ((r[j].X1 == x && r[j].Y1 == y && r[j].Z1 == z) || (r[j].X2 == x && r[j].Y2 == y && r[j].Z2 == z)) {
                    if (end == 1) OracleMark(model, i, "Airway into surface entry", "Bad Entry");
                    else OracleMark(model, i, "Airway into surface exit", "Bad Exit");
                    model.SimFail = RunResult::Failed;
                    break;
                }
            }
        }
    }
    for (std::int32_t i = 1; i <= n; ++i) {
        if (std::abs(r[i].Quantity) > 9994) r[i].Quantity = 0;
        if (i > 1 && r[i].EntryKey == r[i - 1].EntryKey && r[i].ExitKey == r[i - 1].ExitKey) {
            OracleMark(model, i, "Duplicate branch", "Error-Duplicate");
            model.SimFail = RunResult::Failed;
        }
    }
}

// A random mine: a lattice of junctions on a few levels, airways between neighbours in either
// direction, shafts to the surface, and the faults the checks look for: duplicates (some
// several times over), reversed twins, dead ends, zero-length airways, forced surface ends on
// free ends and on junctions, airways at the origin, and sentinel flows.
void GenerateNetwork(Model& model, std::mt19937& random) {
    std::uniform_int_distribution<int> pick(0, 99);
    std::uniform_int_distribution<int> cell(0, 4);
    const auto level = [](int k) { return 400 - 100 * k; };
    const int rows = 40 + pick(random) * 3;
    for (int i = 0; i < rows; ++i) {
        const int x = cell(random) * 50, y = cell(random) * 50, k = cell(random) % 3;
        const int kind = pick(random);
        std::int32_t row;
        if (kind < 8) {
            row = AddAirway(model, x, y, 1000, x, y, level(k)); // intake shaft
        } else if (kind < 16) {
            row = AddAirway(model, x, y, level(k), x, y, 1000 + pick(random)); // upcast shaft
        } else if (kind < 20 && model.AirwayCount > 0) {
            const Airway copy = model.Airways[1 + pick(random) % model.AirwayCount];
            row = AddAirway(model, 0, 0, 0, 0, 0, 0);
            const std::string name = model.Airways[row].BranchName;
            model.Airways[row] = copy;
            model.Airways[row].BranchName = name;
            model.Airways[row].AirwayNo = row;
            if (kind == 19) std::swap(model.Airways[row].X1, model.Airways[row].X2);
        } else if (kind < 23) {
            row = AddAirway(model, x, y, level(k), x + 7, y + 3, level(k)); // dead end
        } else if (kind < 25) {
            row = AddAirway(model, x, y, level(k), x, y, level(k)); // no length
        } else if (kind < 28) {
            const int bit = kind == 25 ? bc::EntryAtSurface : bc::ExitAtSurface;
            row = AddAirway(model, x, y, level(k), x + 50, y, level(k), bit);
        } else if (kind < 30) {
            row = AddAirway(model, 0, 0, 0, x, y, level(k)); // from the origin
        } else {
            const bool alongX = pick(random) < 50;
            const bool reverse = pick(random) < 50;
            const int x2 = alongX ? x + 50 : x, y2 = alongX ? y : y + 50;
            row = reverse ? AddAirway(model, x2, y2, level(k), x, y, level(k))
                          : AddAirway(model, x, y, level(k), x2, y2, level(k));
        }
        Airway& a = model.Airways[row];
        const int q = pick(random);
        a.Quantity = q < 5 ? 9999.0f : q < 8 ? -9994.5f : q < 10 ? 9994.0f : static_cast<float>(q);
        if (pick(random) < 20) a.AirwayNo = 0;
    }
}

// What the checks left, as text: what the user was asked, the outcome, the error list and every
// row in key order with its nodes, flow, resistance, code bits and comment.
std::string CheckText(const Model& model, const ui::ScriptedUserInterface& ui) {
    std::string out;
    char buf[120];
    for (const auto& t : ui.Transcript) out += t.Kind + " [" + t.Title + "] " + t.Text + "\n";
    for (const auto& line : Lines(model)) out += "error " + line + "\n";
    out += "fail " + std::to_string(static_cast<int>(model.SimFail)) + " nodes " + std::to_string(model.Run.NumNodes) +
           "\n";
    for (std::int32_t row = 1; row <= model.AirwayCount; ++row) {
        const Airway& a = model.Airways[row];
        std::snprintf(buf, sizeof buf, " %d>%d Q %.9g R %.9g code %d ", model.Run.EntryNodeNo[row],
                      model.Run.ExitNodeNo[row], static_cast<double>(a.Quantity), static_cast<double>(a.Resistance),
                      a.BranchCode);
        out += a.BranchName + buf + a.Comment + "\n";
    }
    return out;
}

TEST(ValidationOracleTest, StageAgreesWithRowByRowChecksOnGeneratedNetworks) {
    std::mt19937 random(2024);
    auto fast = std::make_unique<Model>();
    auto slow = std::make_unique<Model>();
    for (int round = 0; round < 60; ++round) {
        *fast = Model{};
        PrepareModel(*fast);
        GenerateNetwork(*fast, random);
        fast->SimMode = round % 10 == 9 ? RunMode::FindDuplicates : RunMode::Normal;
        ui::ScriptedUserInterface fastUi, slowUi;
        const Answer first = round % 3 == 0 ? Answer::Yes : Answer::No;
        const Answer second = round % 4 == 0 ? Answer::Yes : Answer::No;
        fastUi.Answers = {first, second};
        slowUi.Answers = {first, second};

        *slow = *fast;
        const bool passed = CheckNetwork(*fast, fastUi);
        BuildNodeKeys(*slow, slowUi);
        OracleSort(*slow);
        files::CheckDuplicates(*slow, slowUi);
        OracleSort(*slow);
        OracleConnections(*slow);

        ASSERT_EQ(CheckText(*fast, fastUi), CheckText(*slow, slowUi)) << "round " << round;
        EXPECT_EQ(passed, slow->SimFail != RunResult::Failed);
    }
}

// ---------------------------------------------------------------------------------------------

class ValidationTest : public ::testing::Test {
protected:
    Model model;
    ui::ScriptedUserInterface ui;
    std::string record;

    void SetUp() override { PrepareModel(model); }

    std::int32_t Add(std::int32_t x1, std::int32_t y1, std::int32_t z1, std::int32_t x2, std::int32_t y2,
                     std::int32_t z2, std::int32_t bits = 0) {
        return AddAirway(model, x1, y1, z1, x2, y2, z2, bits);
    }

    // A fresh network: intake shaft, two parallel drives, upcast shaft, which balances.
    void Loop() {
        model.AirwayCount = 0;
        model.ErrorList.clear();
        model.SimFail = RunResult::Good;
        ui.Transcript.clear();
        Add(0, 0, 1000, 0, 0, 400);
        Add(0, 0, 400, 100, 0, 400);
        Add(0, 0, 400, 0, 100, 400);
        Add(0, 100, 400, 100, 0, 400);
        Add(100, 0, 400, 100, 0, 1000);
    }

    // Checks the network with the given answers and adds what it left to the record.
    void Check(const char* title, std::vector<Answer> answers = {}) {
        ui.Answers.assign(answers.begin(), answers.end());
        const bool passed = CheckNetwork(model, ui);
        record += std::string("== ") + title + (passed ? ": passes" : ": fails") + "\n" + CheckText(model, ui);
    }
};

TEST_F(ValidationTest, ChecksAsRecorded) {
    Loop();
    std::vector<int> shown;
    EXPECT_TRUE(CheckNetwork(model, ui, [&](int p) { shown.push_back(p); }));
    EXPECT_EQ(shown, (std::vector<int>{10, 20, 30}));
    EXPECT_GT(model.Airways[1].Resistance, 0.0f); // resistances worked out on the way
    Check("a clean network: keys descend, the surface first");

    Loop();
    Add(100, 0, 400, 150, 0, 400);                    // 6: leads nowhere
    Add(20, 20, 300, 0, 0, 400);                      // 7: comes from nowhere
    Add(0, 100, 400, 0, 200, 300, bc::ExitAtSurface); // 8: forced exit on a free end: fine
    Add(0, 0, 400, 50, 50, 400, bc::EntryAtSurface);  // 9: forced entry on a junction
    Add(0, 0, 250, 100, 0, 400, bc::ExitAtSurface);   // 10: forced exit onto (100,0,400)
    model.Airways[6].Comment = "old reason";
    model.Airways[6].BranchCode |= bc::ErrorMark;
    model.Airways[3].BranchCode |= bc::ErrorMark;
    Check("dead ends and surface faults; old reasons and marks cleared, the later fault's reason stands");

    Loop();
    model.AirwayCount = 0;
    Add(0, 0, 400, 100, 0, 400);
    Add(100, 0, 400, 100, 0, 1000);
    Add(0, 0, 400, 0, 0, 1000);
    Check("no airway from the surface: every row that ends there finds no row starting there");

    Loop();
    Add(0, 0, 400, 100, 0, 400); // 6: twin of 2
    Add(100, 0, 400, 0, 0, 400); // 7: 2 reversed: no duplicate
    Check("duplicates kept are listed twice; the connection check's own mark stands", {Answer::No});

    Loop();
    Add(0, 0, 400, 100, 0, 400);
    Add(0, 0, 400, 100, 0, 400);
    Check("duplicates deleted: of equal rows the last in key order stays", {Answer::Yes});
    EXPECT_EQ(model.Airways[6].BranchCode, 0);

    Loop();
    Add(0, 100, 400, 0, 100, 400);
    Add(0, 0, 1000, 5, 5, 1200); // both ends on the surface: not a zero-length airway
    Check("zero-length airways kept", {Answer::No});
    Loop();
    Add(0, 100, 400, 0, 100, 400);
    Check("zero-length airways deleted", {Answer::Yes});

    Loop();
    Add(0, 0, 400, 100, 0, 400);
    Add(0, 100, 400, 0, 100, 400);
    model.SimMode = RunMode::FindDuplicates;
    Check("the duplicate search asks nothing");
    model.SimMode = RunMode::Normal;

    Loop();
    model.Airways[1].Quantity = 9994.0f;
    model.Airways[2].Quantity = 9994.5f;
    model.Airways[3].Quantity = -9999.0f;
    model.Airways[4].Quantity = -12.5f;
    Check("sentinel flows are cleared");
    karvane::testing::ExpectGolden("network_checks.txt", record);
}

TEST_F(ValidationTest, EmptyAndTinyNetworksDoNotBreak) {
    CheckConnections(model);
    EXPECT_EQ(model.Run.NumNodes, 0);
    files::SortAirways(model, ui);
    EXPECT_EQ(ui.Texts(), (std::vector<std::string>{"No Data to sort"}));
    // A network emptied by its blank rows.
    Add(0, 0, 0, 0, 0, 0);
    model.Airways[1].BranchCode = 0;
    EXPECT_TRUE(CheckNetwork(model, ui));
    EXPECT_EQ(model.AirwayCount, 0);
}

} // namespace
} // namespace karvane::simulate
