// Undo and redo over the undo log: the messages, the step rules (empty steps skipped, the
// reversal step of a run taken with the step before), the redo tail cut by a new edit, the
// wrap of the index, the log without its file; and the fast search by UndoNo compared with
// the literal scan from the last row down on random edits.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

#include "files/network_file.h"
#include "files/undo_log.h"
#include "model/builtin_settings.h"
#include "model/network_rows.h"
#include "model/node_keys.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

using namespace karvane;
using files::UndoLog;

namespace {

// A small network and its undo log, with the edits every tool makes: rows logged before and
// after under the current step, and the step closed at the end of the action.
struct Rig {
    Model M;
    ui::ScriptedUserInterface Ui;
    UndoLog Log;

    Rig() {
        SetBuiltInUnits(M.Units);
        SetBuiltInSettings(M);
        SetNewNetworkLevels(M);
        Ui.Temp = std::filesystem::temp_directory_path().string();
        Log.Open(Ui);
        for (int i = 0; i < 4; ++i) AddRow(i * 100, 0, i * 100 + 100, 0);
        BuildNodeKeys(M, Ui);
        for (std::int32_t r = 1; r <= M.AirwayCount; ++r) Row(r).UndoNo = 0; // as loaded
        Log.ResetUndo();
    }
    Airway& Row(std::int32_t r) { return M.Airways[static_cast<std::size_t>(r)]; }
    std::int32_t AddRow(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) {
        const std::int32_t r = NewAirwayRow(M);
        Airway& a = Row(r);
        a.X1 = x1, a.Y1 = y1, a.Z1 = 490, a.X2 = x2, a.Y2 = y2, a.Z2 = 490;
        a.Width = 5, a.Height = 4, a.BranchCode = bc::Rectangular, a.NoAirways = 1;
        a.PrimaryLayer = a.SecondLayer = 1;
        a.AirwayNo = ++M.Set.LastAirwayNo;
        return r;
    }
    void EndStep() { ++Log.CurrentStep; }
    // Tool 1: a new row, logged after.
    std::int32_t Draw(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) {
        const std::int32_t r = AddRow(x1, y1, x2, y2);
        Log.LogAirway(M, Ui, r, files::undo::After, Log.CurrentStep);
        EndStep();
        return r;
    }
    // Tool 2: a row logged before and after its change.
    void MoveEnd(std::int32_t r, std::int32_t x2, std::int32_t y2) {
        Log.LogAirway(M, Ui, r, files::undo::Before, Log.CurrentStep);
        Row(r).X2 = x2;
        Row(r).Y2 = y2;
        Log.LogAirway(M, Ui, r, files::undo::After, Log.CurrentStep);
        EndStep();
    }
    // Delete: a row logged before it goes.
    void Delete(std::int32_t r) {
        Log.LogAirway(M, Ui, r, files::undo::Before, Log.CurrentStep);
        ClearAirwayRow(M, r);
        CompactAirways(M);
        EndStep();
    }
    std::int32_t RowOfAirwayNo(std::int32_t no) {
        for (std::int32_t r = 1; r <= M.AirwayCount; ++r)
            if (Row(r).AirwayNo == no) return r;
        return 0;
    }
};

// The network as rows in AirwayNo order, without the UndoNo and the derived keys that a
// restore gives anew: what "the same network" means after edits and their undos.
std::vector<std::string> Rows(Model& m) {
    std::vector<std::string> rows;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        Airway& a = m.Airways[static_cast<std::size_t>(r)];
        const std::int32_t undoNo = a.UndoNo;
        a.UndoNo = 0;
        rows.push_back(files::AirwayRowText(m, r, '.'));
        a.UndoNo = undoNo;
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

TEST(Undo, EmptyLogSaysSoAndKeepsTheStepAtOne) {
    Rig r;
    EXPECT_FALSE(r.Log.Undo(r.M, r.Ui));
    EXPECT_EQ(r.Ui.Texts("Message"), std::vector<std::string>{"No more actions to undo"});
    EXPECT_EQ(r.Log.CurrentStep, 1);
    EXPECT_FALSE(r.Log.Redo(r.M, r.Ui));
    EXPECT_TRUE(r.Ui.Said("No more actions available to redo"));
}

TEST(Undo, AMovedAirwayComesBackWithItsCoordinatesAndItsUndoNo) {
    Rig r;
    const std::vector<std::string> before = Rows(r.M);
    r.MoveEnd(2, 250, 80);
    const std::int32_t undoNo = r.Row(2).UndoNo;
    ASSERT_NE(undoNo, 0);
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    const std::int32_t row = r.RowOfAirwayNo(2);
    ASSERT_NE(row, 0);
    EXPECT_EQ(r.Row(row).X2, 200);
    EXPECT_EQ(r.Row(row).Y2, 0);
    EXPECT_EQ(r.Row(row).UndoNo, undoNo - 1); // the number the record was written under
    EXPECT_EQ(Rows(r.M), before);
    EXPECT_EQ(r.Log.CurrentStep, 1);
    // Redo moves it again, and the step follows.
    EXPECT_TRUE(r.Log.Redo(r.M, r.Ui));
    EXPECT_EQ(r.Row(r.RowOfAirwayNo(2)).X2, 250);
    EXPECT_EQ(r.Log.CurrentStep, 2);
    EXPECT_TRUE(r.Ui.Transcript.empty());
}

TEST(Undo, UndoTwiceThenANewEditLeavesNothingToRedo) {
    Rig r;
    r.Draw(0, 0, 0, 100);
    r.MoveEnd(1, 50, 50);
    r.Draw(400, 0, 400, 100);
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_EQ(r.Log.CurrentStep, 2);
    r.Draw(0, 0, -100, 0);
    const std::int32_t count = r.M.AirwayCount;
    EXPECT_FALSE(r.Log.Redo(r.M, r.Ui));
    EXPECT_EQ(r.Ui.Texts("Message"), std::vector<std::string>{"No more actions available to redo"});
    EXPECT_EQ(r.M.AirwayCount, count);
    // The new edit and the first draw are still there to undo, the two undone steps are not.
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_EQ(r.M.AirwayCount, 4);
    EXPECT_FALSE(r.Log.Undo(r.M, r.Ui));
}

TEST(Undo, EmptyStepsAreSkipped) {
    Rig r;
    r.Draw(0, 0, 0, 100);
    r.EndStep(); // a cancelled action leaves a spare step
    r.Log.LogAirway(r.M, r.Ui, 0, files::undo::Mark, r.Log.CurrentStep);
    r.EndStep(); // a step holding a mark alone
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_EQ(r.M.AirwayCount, 4);
    EXPECT_EQ(r.Log.CurrentStep, 1);
    EXPECT_TRUE(r.Ui.Transcript.empty());
}

TEST(Undo, TheReversalStepOfARunGoesWithTheStepBefore) {
    Rig r;
    r.MoveEnd(3, 300, 90);
    // A run turns airway 1 and closes its own step.
    r.Log.LogAirway(r.M, r.Ui, 1, files::undo::Before, r.Log.CurrentStep);
    std::swap(r.Row(1).X1, r.Row(1).X2);
    r.Log.LogAirway(r.M, r.Ui, 1, files::undo::After, r.Log.CurrentStep);
    r.EndStep();
    r.M.AirwaysTurned = true;
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_FALSE(r.M.AirwaysTurned);
    EXPECT_EQ(r.Log.CurrentStep, 1);
    EXPECT_EQ(r.Row(r.RowOfAirwayNo(1)).X1, 0);
    EXPECT_EQ(r.Row(r.RowOfAirwayNo(3)).Y2, 0);
}

TEST(Undo, TheIndexWrapsWithItsMessageAndTheLatestStepsStillUndo) {
    Rig r;
    // Fill the index to its last two rows with a step of many moves: the next move wraps.
    while (r.Log.NextUndoRow < UndoCapacity - 1) {
        r.Log.LogAirway(r.M, r.Ui, 4, files::undo::Before, r.Log.CurrentStep);
        r.Log.LogAirway(r.M, r.Ui, 4, files::undo::After, r.Log.CurrentStep);
    }
    r.EndStep();
    EXPECT_TRUE(r.Ui.Transcript.empty());
    r.MoveEnd(2, 210, 10);
    r.MoveEnd(2, 220, 20);
    EXPECT_EQ(r.Ui.Texts("Message"), std::vector<std::string>{"Undo buffer full - clearing buffer ..."});
    EXPECT_LT(r.Log.NextUndoRow, 10);
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_EQ(r.Row(r.RowOfAirwayNo(2)).X2, 210);
    EXPECT_EQ(r.M.AirwayCount, 4);
}

TEST(Undo, AtTheCapacityAMoveComesBackAndOnlyARowTooManySaysSo) {
    Rig r;
    while (r.M.AirwayCount < MaxAirways) r.AddRow(r.M.AirwayCount * 10, 500, r.M.AirwayCount * 10 + 10, 500);
    r.MoveEnd(MaxAirways, 7, 7);
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_EQ(r.M.AirwayCount, MaxAirways);
    EXPECT_EQ(r.Row(MaxAirways).X2, (MaxAirways - 1) * 10 + 10);
    EXPECT_TRUE(r.Ui.Transcript.empty());
    // A deleted row that comes back into a full table has no room.
    r.Delete(1);
    r.AddRow(1, 1, 2, 2);
    EXPECT_TRUE(r.Log.Undo(r.M, r.Ui));
    EXPECT_EQ(r.M.AirwayCount, MaxAirways);
    EXPECT_EQ(
        r.Ui.Texts("Message"),
        std::vector<std::string>{"Insufficient memory for undo function - please increase file size in defaults"});
}

TEST(Undo, WithoutItsFileTheProgramGoesOnAndNothingIsUndone) {
    Rig r;
    UndoLog broken;
    EXPECT_FALSE(broken.Open(r.Ui, "/nonexistent-folder/karvane/undo.dat"));
    EXPECT_EQ(r.Ui.Texts("Message"), std::vector<std::string>{"Error loading UNDO file"});
    broken.LogAirway(r.M, r.Ui, 1, files::undo::Before, broken.CurrentStep);
    r.Row(1).X2 = 999;
    broken.LogAirway(r.M, r.Ui, 1, files::undo::After, broken.CurrentStep);
    ++broken.CurrentStep;
    EXPECT_FALSE(broken.Undo(r.M, r.Ui));
    EXPECT_EQ(r.M.AirwayCount, 4);
    EXPECT_EQ(r.Row(1).X2, 999);
    EXPECT_TRUE(r.Ui.Said("No more actions to undo"));
}

// The literal undo of one step: each row found by a scan from the last row down.
bool LiteralUndoStep(UndoLog& log, Model& m, ui::UserInterface& ui) {
    bool changed = false;
    for (std::int32_t k = log.NextUndoRow - 1; k >= 1; --k) {
        const files::UndoEntry& e = log.UndoIndex[static_cast<std::size_t>(k)];
        if (e.UndoStep != log.CurrentStep) continue;
        if (e.UndoAction == files::undo::After) {
            for (std::int32_t row = m.AirwayCount; row >= 1; --row) {
                if (m.Airways[static_cast<std::size_t>(row)].UndoNo != e.UndoRowNo) continue;
                ClearAirwayRow(m, row);
                changed = true;
                break;
            }
        } else if (e.UndoAction == files::undo::Before) {
            ++m.AirwayCount;
            ClearAirwayRow(m, m.AirwayCount);
            std::string text = log.RecordText(k);
            while (!text.empty() && text.back() == ' ') text.pop_back();
            if (!text.empty()) files::ParseAirwayRow(m, ui, text, m.AirwayCount, 2.6, '.');
            changed = true;
        }
    }
    CompactAirways(m);
    return changed;
}

TEST(Undo, SameRowsAsTheLiteralScanOnRandomEdits) {
    std::mt19937 rng(7);
    for (int round = 0; round < 10; ++round) {
        Rig r;
        for (int i = 0; i < 30; ++i) {
            const std::int32_t row = 1 + static_cast<std::int32_t>(rng() % static_cast<unsigned>(r.M.AirwayCount));
            switch (rng() % 4) {
            case 0: r.Draw(static_cast<std::int32_t>(rng() % 900), 5, 7, static_cast<std::int32_t>(rng() % 900)); break;
            case 1:
                if (r.M.AirwayCount > 2) r.Delete(row);
                break;
            case 2: {
                // One step that touches a row twice, as a split then a move would.
                r.Log.LogAirway(r.M, r.Ui, row, files::undo::Before, r.Log.CurrentStep);
                r.Row(row).X1 += 3;
                r.Log.LogAirway(r.M, r.Ui, row, files::undo::After, r.Log.CurrentStep);
                r.Log.LogAirway(r.M, r.Ui, row, files::undo::Before, r.Log.CurrentStep);
                r.Row(row).Y1 += 4;
                r.Log.LogAirway(r.M, r.Ui, row, files::undo::After, r.Log.CurrentStep);
                r.EndStep();
                break;
            }
            default: r.MoveEnd(row, static_cast<std::int32_t>(rng() % 900), 33); break;
            }
        }
        Model copy = r.M;
        ASSERT_GT(r.Log.CurrentStep, 1);
        while (r.Log.CurrentStep > 1) {
            const std::int16_t step = static_cast<std::int16_t>(r.Log.CurrentStep - 1);
            ASSERT_TRUE(r.Log.Undo(r.M, r.Ui));
            ASSERT_EQ(r.Log.CurrentStep, step);
            LiteralUndoStep(r.Log, copy, r.Ui);
            BuildNodeKeys(copy, r.Ui);
            ASSERT_EQ(copy.AirwayCount, r.M.AirwayCount) << "round " << round << " step " << step;
            for (std::int32_t k = 1; k <= copy.AirwayCount; ++k) {
                const Airway& a = copy.Airways[static_cast<std::size_t>(k)];
                const Airway& b = r.M.Airways[static_cast<std::size_t>(k)];
                ASSERT_TRUE(a.X1 == b.X1 && a.Y1 == b.Y1 && a.X2 == b.X2 && a.Y2 == b.Y2 && a.AirwayNo == b.AirwayNo &&
                            a.UndoNo == b.UndoNo)
                    << "round " << round << " row " << k;
            }
        }
        EXPECT_EQ(r.M.AirwayCount, 4);
    }
}

} // namespace
