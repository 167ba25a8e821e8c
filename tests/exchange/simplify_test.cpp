// Network simplification: every test of the merge on small hand-built chains, the undo records
// and the message, zero-flow removal, and the filter compared with its literal procedure (its
// neighbour lists built by a double scan) on generated mines cut into chains.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <tuple>

#include "exchange/simplify.h"
#include "exchange_support.h"
#include "files/duplicates.h"
#include "generate/mine_generator.h"
#include "model/builtin_settings.h"
#include "simulate/run.h"

using namespace karvane;
using namespace karvane::exchange;
using karvane::testing::ExchangeBench;

namespace {

using karvane::testing::Ends;
using karvane::testing::EndsOf;

// The ends of every row in order of their coordinates, whatever the order of the rows.
std::vector<Ends> AllEnds(const Model& m) {
    std::vector<Ends> out = karvane::testing::AllEnds(m);
    std::sort(out.begin(), out.end());
    return out;
}

SimplifyFields Fields(int maxLength, int maxAngle) {
    SimplifyFields f = FillSimplify();
    f.HSL = maxLength;
    f.HSA = maxAngle;
    SliderMoved(f);
    return f;
}

struct SimplifyRun {
    ExchangeBench B;
    files::UndoLog Undo;
    SimplifyRun() { Undo.Open(B.ui(), B.Dir.File("undo.dat")); }
    std::int32_t Simplify(const SimplifyFields& f) {
        B.Settle();
        B.ui().Transcript.clear();
        return CmdSimp(B.m(), B.ui(), Undo, f);
    }
};

// ---------------------------------------------------------------------------------------------
// The literal procedure: neighbour lists by a double scan over all rows, then the filter step by
// step as written. Rows already deleted are not deleted or logged twice by the zero-flow pass, and
// the changed rows get their key and resistance back before their record after the change: the
// two points where the program had to decide.

struct Lists {
    std::vector<std::vector<std::int32_t>> Up, Down;
};

Lists ScanNeighbours(const Model& m) {
    const std::int32_t n = m.AirwayCount;
    Lists l;
    l.Up.resize(static_cast<std::size_t>(n) + 1);
    l.Down.resize(static_cast<std::size_t>(n) + 1);
    for (std::int32_t i = 1; i <= n; ++i) {
        for (std::int32_t r = 1; r <= n; ++r) {
            if (r == i) continue;
            const Airway& a = m.Airways[static_cast<std::size_t>(i)];
            const Airway& b = m.Airways[static_cast<std::size_t>(r)];
            if (b.ExitKey == a.EntryKey) l.Up[static_cast<std::size_t>(i)].push_back(r);
            if (b.EntryKey == a.ExitKey) l.Down[static_cast<std::size_t>(i)].push_back(r);
        }
    }
    return l;
}

std::int32_t LiteralSimplify(Model& m, ui::UserInterface& ui, files::UndoLog& undo, const SimplifyFields& f) {
    if (m.AirwayCount >= 2) files::SortAirways(m, ui);
    BuildNodeKeys(m, ui);
    Lists lists = ScanNeighbours(m);
    const double maxL = std::stoi(f.TxtL);
    const double maxA = static_cast<float>(std::stod(f.TxtA));
    const std::int16_t step = undo.CurrentStep;
    const std::int32_t n = m.AirwayCount;
    auto A = [&m](std::int32_t r) -> Airway& { return m.Airways[static_cast<std::size_t>(r)]; };
    std::int32_t count = 0;
    for (std::int32_t i = 1; i <= n; ++i) {
        if (f.CheckR && A(i).ResType != 0) continue;
        if (f.CheckSel && (A(i).BranchCode & bc::Selected) == 0) continue;
        for (;;) {
            const auto& down = lists.Down[static_cast<std::size_t>(i)];
            if (down.size() != 1) break;
            const std::int32_t j = down[0];
            if (lists.Up[static_cast<std::size_t>(j)].size() != 1) break;
            if (A(i).Length == 0 || A(j).Length == 0) break;
            auto unit = [](const Airway& a, double& len, double u[3]) {
                const double d[3] = {double(a.X2) - a.X1, double(a.Y2) - a.Y1, double(a.Z2) - a.Z1};
                len = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
                for (int k = 0; k < 3; ++k) u[k] = len == 0 ? 0 : d[k] / len;
            };
            double li = 0, lj = 0, ui3[3], uj3[3];
            unit(A(i), li, ui3);
            unit(A(j), lj, uj3);
            const double c = ui3[0] * uj3[0] + ui3[1] * uj3[1] + ui3[2] * uj3[2];
            double angle = 0;
            if (std::fabs(c) < 1)
                angle = (std::atan(-c / std::sqrt(1 - c * c)) + 2 * std::atan(1.0)) * 180 / (4 * std::atan(1.0));
            const bool surface = A(i).EntryKey == SurfaceKey || A(i).ExitKey == SurfaceKey ||
                                 A(j).EntryKey == SurfaceKey || A(j).ExitKey == SurfaceKey;
            if (angle > maxA || li > maxL || A(i).FanNumber != 0 || A(j).FanNumber != 0 || surface ||
                (f.CheckR && A(j).ResType != 0) || (A(i).BranchCode & bc::FixedFlow) != 0 ||
                (f.CheckK && A(i).WallType != A(j).WallType) ||
                (f.CheckS && (A(i).Height != A(j).Height || A(i).Width != A(j).Width)))
                break;
            ++count;
            if (A(i).EntryKey != -9999) {
                undo.LogAirway(m, ui, i, files::undo::Before, step);
                A(i).EntryKey = -9999;
            }
            A(i).ExitKey = A(j).ExitKey;
            A(i).X2 = A(j).X2, A(i).Y2 = A(j).Y2, A(i).Z2 = A(j).Z2;
            lists.Down[static_cast<std::size_t>(i)] = lists.Down[static_cast<std::size_t>(j)];
            if (f.ChkCombine) {
                A(i).Length = static_cast<float>(double(A(i).Length) + A(j).Length);
                A(i).ShockFactor = static_cast<float>(double(A(i).ShockFactor) + A(j).ShockFactor);
                if (A(i).ShockFactor > 0) A(i).ShockType = 50;
                A(i).BranchCode |= bc::FixedLength;
            }
            if (A(j).EntryKey != -9999) undo.LogAirway(m, ui, j, files::undo::Before, step);
            ClearAirwayRow(m, j);
        }
    }
    if (f.ChkZero) {
        for (std::int32_t r = 1; r <= n; ++r) {
            if (A(r).BranchCode == 0 || A(r).Quantity != 0) continue;
            if (f.CheckSel && (A(r).BranchCode & bc::Selected) == 0) continue;
            if (A(r).EntryKey != -9999) undo.LogAirway(m, ui, r, files::undo::Before, step);
            ClearAirwayRow(m, r);
            ++count;
        }
    }
    for (std::int32_t r = 1; r <= n; ++r) {
        if (A(r).EntryKey != -9999) continue;
        A(r).EntryKey = EndKey(m, A(r).X1, A(r).Y1, A(r).Z1, (A(r).BranchCode & bc::EntryAtSurface) != 0);
        RecalcAirway(m, r);
        undo.LogAirway(m, ui, r, files::undo::After, step);
    }
    if (count > 0) ++undo.CurrentStep;
    CompactAirways(m);
    ui.Message("The network size was reduced by " + std::to_string(count) + " airways", ProgramName, ui::Icon::None);
    return count;
}

// A generated mine with every airway cut into one to four pieces, the joints pushed a little
// off the straight line; some airways selected, some with a preset resistance, other wall types,
// heights and widths, some without flow.
void ChainedMine(Model& m, std::int32_t airways, std::uint64_t seed) {
    karvane::testing::SetUpBuiltIn(m);
    minegen::MineRequest request;
    request.Airways = airways;
    request.Seed = seed;
    minegen::GenerateMine(m, request);
    std::vector<Airway> rows(m.Airways.begin() + 1, m.Airways.begin() + m.AirwayCount + 1);
    std::mt19937_64 rng(seed);
    auto pick = [&rng](int n) { return static_cast<int>(rng() % static_cast<std::uint64_t>(n)); };
    m.AirwayCount = 0;
    for (const Airway& whole : rows) {
        const int pieces = 1 + pick(4);
        std::int32_t px = whole.X1, py = whole.Y1, pz = whole.Z1;
        for (int k = 1; k <= pieces; ++k) {
            const std::int32_t row = NewAirwayRow(m);
            if (row == 0) return;
            Airway a = whole;
            a.X1 = px, a.Y1 = py, a.Z1 = pz;
            if (k < pieces) {
                const double t = static_cast<double>(k) / pieces;
                a.X2 = whole.X1 + static_cast<std::int32_t>(std::lround(t * (whole.X2 - whole.X1))) + pick(3) - 1;
                a.Y2 = whole.Y1 + static_cast<std::int32_t>(std::lround(t * (whole.Y2 - whole.Y1))) + pick(3) - 1;
                a.Z2 = whole.Z1 + static_cast<std::int32_t>(std::lround(t * (whole.Z2 - whole.Z1)));
                if (k > 1) a.BranchCode &= ~(bc::EntryAtSurface);
                a.BranchCode &= ~bc::ExitAtSurface;
            } else if (k > 1) {
                a.BranchCode &= ~bc::EntryAtSurface;
            }
            if (k > 1 && a.FanNumber != 0 && pick(2) == 0) a.FanNumber = 0, a.NoOfFans = 0;
            if (pick(9) == 0) a.BranchCode |= bc::Selected;
            if (pick(17) == 0) a.ResType = 3;
            if (pick(13) == 0) a.WallType = 6;
            if (pick(11) == 0) a.Height += 0.5f;
            if (pick(19) == 0) a.Width += 0.5f;
            if (pick(15) == 0) a.BranchCode |= bc::FixedFlow;
            a.Quantity = pick(8) == 0 ? 0.0f : static_cast<float>(1 + pick(50));
            a.AirwayNo = row;
            a.UndoNo = 0;
            m.Airways[static_cast<std::size_t>(row)] = a;
            px = a.X2, py = a.Y2, pz = a.Z2;
        }
    }
    m.Set.LastAirwayNo = m.AirwayCount;
    ui::ScriptedUserInterface quiet;
    BuildNodeKeys(m, quiet);
    RecalcAllAirways(m);
}

void ExpectSameRows(const Model& a, const Model& b, const std::string& what) {
    ASSERT_EQ(a.AirwayCount, b.AirwayCount) << what;
    auto fields = [](const Airway& x) {
        return std::tuple(EndsOf(x), x.EntryKey, x.ExitKey, x.BranchCode, x.Length, x.Resistance, x.ShockFactor,
                          x.ShockType, x.AirwayNo, x.UndoNo);
    };
    for (std::int32_t r = 1; r <= a.AirwayCount; ++r)
        ASSERT_EQ(fields(a.Airways[static_cast<std::size_t>(r)]), fields(b.Airways[static_cast<std::size_t>(r)]))
            << what << " row " << r;
}

} // namespace

TEST(Simplify, ChainBecomesOneAirwayInOneStep) {
    SimplifyRun run;
    // Drawn westwards so that the rows, sorted by their From ends, stand in chain order.
    run.B.Add(300, 0, 500, 200, 0, 500).BranchName = "First";
    run.B.Add(200, 0, 500, 100, 0, 500).ExitNode = "Middle";
    run.B.Add(100, 0, 500, 0, 0, 500).ExitNode = "End";
    EXPECT_EQ(run.Simplify(Fields(500, 10)), 2);
    EXPECT_EQ(run.B.ui().Texts("Message"), std::vector<std::string>{"The network size was reduced by 2 airways"});
    Model& m = run.B.m();
    ASSERT_EQ(m.AirwayCount, 1);
    const Airway& a = m.Airways[1];
    EXPECT_EQ(EndsOf(a), (Ends{300, 0, 500, 0, 0, 500}));
    EXPECT_EQ(a.BranchName, "First");
    EXPECT_EQ(a.ExitNode, "") << "the merged airway keeps its own names";
    EXPECT_FLOAT_EQ(a.Length, 300.0f);
    EXPECT_EQ(a.EntryKey, EndKey(m, 300, 0, 500, false));
    EXPECT_EQ(a.ExitKey, EndKey(m, 0, 0, 500, false));
    EXPECT_EQ(m.NetworkSaved, No0);
    EXPECT_FALSE(m.Run.NeighboursValid);

    // One record before the change for each of the three, one after for the one that stays (the
    // records themselves are compared with the literal procedure's); the step counter moves on.
    EXPECT_EQ(run.Undo.CurrentStep, 2);
    EXPECT_EQ(run.Undo.NextUndoRow, 5);
    EXPECT_EQ(run.Undo.UndoIndex[4].UndoRowNo, a.UndoNo);

    // Nothing left to merge: no step, the message says 0.
    EXPECT_EQ(run.Simplify(Fields(500, 10)), 0);
    EXPECT_EQ(run.Undo.CurrentStep, 2);
    EXPECT_EQ(run.B.ui().Texts("Message"), std::vector<std::string>{"The network size was reduced by 0 airways"});
}

TEST(Simplify, WhatStopsAChain) {
    struct Case {
        const char* What;
        std::vector<Ends> Rows;
        void (*Change)(Model&);
        int Angle;
        std::int32_t Merged;
    };
    const std::vector<Ends> pair{{200, 0, 500, 100, 0, 500}, {100, 0, 500, 0, 0, 500}};
    const std::vector<Ends> corner{{100, 0, 500, 0, 0, 500}, {0, 0, 500, 0, 100, 500}};
    const std::vector<Case> cases{
        {"a junction: two ways out of a row, and two ways into a row",
         {{0, 0, 500, 100, 0, 500},
          {100, 0, 500, 200, 0, 500},
          {100, 0, 500, 100, 100, 500},
          {150, 100, 500, 200, 0, 500},
          {200, 0, 500, 300, 0, 500}},
         nullptr,
         180,
         0},
        {"a fan stops the merge on both sides of it",
         {{300, 0, 500, 200, 0, 500}, {200, 0, 500, 100, 0, 500}, {100, 0, 500, 0, 0, 500}},
         [](Model& m) { m.Airways[2].FanNumber = 1; },
         10,
         0},
        {"a surface connection is never merged: the shaft's top lies on the surface level",
         {{0, 0, 1000, 0, 0, 500}, {0, 0, 500, 0, 0, 400}, {0, 0, 400, 0, 0, 300}},
         nullptr,
         10,
         1},
        // Fixed flow: only the starting row is tested.
        {"a fixed airway merges away behind a plain one", pair,
         [](Model& m) { m.Airways[2].BranchCode |= bc::FixedFlow; }, 10, 1},
        {"a fixed airway stops the merge of the airway behind it", pair,
         [](Model& m) { m.Airways[1].BranchCode |= bc::FixedFlow; }, 10, 0},
        {"a right angle at the limit of 90", corner, nullptr, 90, 1},
        {"a right angle past the limit of 89", corner, nullptr, 89, 0},
    };
    for (const Case& c : cases) {
        SimplifyRun run;
        for (const Ends& e : c.Rows) run.B.Add(e[0], e[1], e[2], e[3], e[4], e[5]);
        if (c.Change) c.Change(run.B.m());
        EXPECT_EQ(run.Simplify(Fields(500, c.Angle)), c.Merged) << c.What;
    }
}

TEST(Simplify, AngleAndLengthLimits) {
    // Running back along the same line counts as angle 0.
    EXPECT_EQ(MergeAngle(-1), 0);
    EXPECT_EQ(MergeAngle(1), 0);
    EXPECT_NEAR(MergeAngle(0.5), 60, 1e-9);
    EXPECT_NEAR(MergeAngle(-0.5), 120, 1e-9);
    EXPECT_EQ(MergeAngle(1.0000000001), 0);

    // The length limit looks at the starting row as it grows: 40, 80, then 120 is past 100.
    SimplifyRun run;
    for (int x = 160; x > 0; x -= 40) run.B.Add(x, 0, 500, x - 40, 0, 500);
    EXPECT_EQ(run.Simplify(Fields(100, 10)), 2);
    EXPECT_EQ(AllEnds(run.B.m()), (std::vector<Ends>{{40, 0, 500, 0, 0, 500}, {160, 0, 500, 40, 0, 500}}));
}

TEST(Simplify, LengthsCombinedOrStraight) {
    for (bool combine : {false, true}) {
        SimplifyRun run;
        run.B.Add(0, 0, 500, 30, 40, 500);
        run.B.Add(30, 40, 500, 60, 0, 500);
        SimplifyFields f = Fields(500, 180);
        f.ChkCombine = combine;
        run.B.Settle();
        run.B.m().Airways[1].ShockType = CustomPreset;
        run.B.m().Airways[1].ShockFactor = 2;
        run.B.m().Airways[2].ShockType = CustomPreset;
        run.B.m().Airways[2].ShockFactor = 3;
        run.B.ui().Transcript.clear();
        ASSERT_EQ(CmdSimp(run.B.m(), run.B.ui(), run.Undo, f), 1);
        const Airway& a = run.B.m().Airways[1];
        EXPECT_EQ(EndsOf(a), (Ends{0, 0, 500, 60, 0, 500}));
        if (combine) {
            EXPECT_FLOAT_EQ(a.Length, 100.0f);
            EXPECT_FLOAT_EQ(a.ShockFactor, 5.0f);
            EXPECT_EQ(a.ShockType, CustomPreset);
            EXPECT_TRUE(a.Has(bc::FixedLength));
        } else {
            EXPECT_FLOAT_EQ(a.Length, 60.0f) << "the straight line, shorter than the bent chain";
            EXPECT_FLOAT_EQ(a.ShockFactor, 2.0f);
            EXPECT_FALSE(a.Has(bc::FixedLength));
        }
    }
}

// The filter against its literal procedure on generated mines cut into chains, under several
// sets of options: the same rows, keys, lengths and numbers, the same count and the same undo
// index and records.
TEST(Simplify, SameAsTheLiteralProcedureOnGeneratedMines) {
    struct Options {
        int Length, Angle;
        bool R, K, S, Sel, Combine, Zero;
    };
    const std::vector<Options> sets{{200, 20, false, false, false, false, false, false},
                                    {60, 5, true, true, false, false, true, false},
                                    {1000, 180, false, false, true, true, false, true},
                                    {400, 45, true, false, false, false, true, true}};
    for (std::uint64_t seed : {3u, 11u}) {
        for (const Options& o : sets) {
            auto fast = std::make_unique<Model>();
            ChainedMine(*fast, 900, seed);
            auto slow = std::make_unique<Model>(*fast);
            SimplifyFields f = Fields(o.Length, o.Angle);
            f.CheckR = o.R, f.CheckK = o.K, f.CheckS = o.S, f.CheckSel = o.Sel, f.ChkCombine = o.Combine,
            f.ChkZero = o.Zero;
            karvane::testing::AppFolder dir;
            files::UndoLog fastUndo, slowUndo;
            fastUndo.Open(dir.Ui, dir.File("fast.dat"));
            slowUndo.Open(dir.Ui, dir.File("slow.dat"));
            ui::ScriptedUserInterface fastUi, slowUi;
            const std::int32_t before = fast->AirwayCount;
            const std::int32_t got = CmdSimp(*fast, fastUi, fastUndo, f);
            const std::int32_t want = LiteralSimplify(*slow, slowUi, slowUndo, f);
            const std::string what = "seed " + std::to_string(seed) + " length " + std::to_string(o.Length);
            EXPECT_EQ(got, want) << what;
            EXPECT_GT(got, before / 20) << what << ": the mine should have chains to merge";
            EXPECT_EQ(fastUi.Texts(), slowUi.Texts()) << what;
            ExpectSameRows(*fast, *slow, what);
            ASSERT_EQ(fastUndo.NextUndoRow, slowUndo.NextUndoRow) << what;
            EXPECT_EQ(fastUndo.CurrentStep, slowUndo.CurrentStep);
            for (std::int32_t k = 1; k < fastUndo.NextUndoRow; ++k) {
                const files::UndoEntry& x = fastUndo.UndoIndex[static_cast<std::size_t>(k)];
                const files::UndoEntry& y = slowUndo.UndoIndex[static_cast<std::size_t>(k)];
                ASSERT_EQ(x.UndoAction, y.UndoAction) << what << " entry " << k;
                ASSERT_EQ(x.UndoRowNo, y.UndoRowNo) << what << " entry " << k;
                ASSERT_EQ(fastUndo.RecordText(k), slowUndo.RecordText(k)) << what << " entry " << k;
            }
        }
    }
}

// Two airways that form a closed loop swallow each other, as the literal procedure does.
TEST(Simplify, ClosedPairOfAirways) {
    SimplifyRun run;
    run.B.Add(0, 0, 500, 100, 0, 500);
    run.B.Add(100, 0, 500, 0, 0, 500);
    auto slow = std::make_unique<Model>(run.B.m());
    EXPECT_EQ(run.Simplify(Fields(500, 180)), 2);
    EXPECT_EQ(run.B.m().AirwayCount, 0);
    files::UndoLog undo;
    ui::ScriptedUserInterface ui;
    BuildNodeKeys(*slow, ui);
    RecalcAllAirways(*slow);
    EXPECT_EQ(LiteralSimplify(*slow, ui, undo, Fields(500, 180)), 2);
}
