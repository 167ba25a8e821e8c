// The fast reach rounds and sourcing walks against their literal procedures on generated,
// balanced mines: the same settling order, levels, arrival times and progress figures, and the
// same sourcing states, for sources and pins placed all over the mine.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>

#include "contaminant/sourcing.h"
#include "generate/mine_generator.h"
#include "literal_procedures.h"
#include "simulate/run.h"
#include "smoke_networks.h"

namespace karvane::smoketest {
namespace {

std::unique_ptr<Model> BalancedMine(std::int32_t airways, std::uint64_t seed) {
    auto m = std::make_unique<Model>();
    SetBuiltInSettings(*m);
    minegen::MineRequest request;
    request.Airways = airways;
    request.Seed = seed;
    request.Boosters = 1;
    minegen::GenerateMine(*m, request);
    m->ShowProgress = 0;
    ui::ScriptedUserInterface ui;
    ui.DefaultAnswer = ui::Answer::No;
    simulate::RunAirflow(*m, ui);
    EXPECT_EQ(m->SimValid, Validity::Valid);
    return m;
}

bool SameBits(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; }

TEST(SpreadOracle, ReachRoundsListTheRowsAsAVisitOfEveryRowWould) {
    int multiRound = 0;
    for (const std::int32_t size : {300, 1200, 2600}) {
        for (const std::uint64_t seed : {3u, 8u}) {
            auto base = BalancedMine(size, seed);
            std::mt19937 pick(static_cast<std::uint32_t>(seed * 7 + static_cast<std::uint64_t>(size)));
            // One source at an intake from the surface and a few anywhere underground.
            for (std::int32_t r = 1; r <= base->AirwayCount; ++r) {
                if (base->Airways[r].EntryKey == SurfaceKey && base->Airways[r].Quantity > 0) {
                    MakeSource(*base, r, 100);
                    break;
                }
            }
            std::uniform_int_distribution<std::int32_t> row(1, base->AirwayCount);
            for (int k = 0; k < 4; ++k) MakeSource(*base, row(pick), static_cast<float>(20 + 35 * k));

            for (const int cumulative : {0, 1}) {
                SCOPED_TRACE(::testing::Message() << size << " airways, seed " << seed << ", mode " << cumulative);
                auto fast = std::make_unique<Model>(*base);
                fast->Set.SmokeCumulative = static_cast<std::int16_t>(cumulative);
                SmokeUi ui;
                contaminant::RunContaminantSpread(*fast, ui);
                ASSERT_EQ(fast->GasActive, GasDisplay::Spread);

                auto slow = std::make_unique<Model>(*fast); // rows as the spread sorted them
                const LiteralSpreadRecord rec = LiteralSpread(*slow);

                ASSERT_EQ(rec.SpreadOrder.size(), static_cast<std::size_t>(fast->Smoke.SpreadCount));
                for (std::size_t k = 0; k < rec.SpreadOrder.size(); ++k)
                    ASSERT_EQ(rec.SpreadOrder[k], fast->Smoke.SpreadOrder[k + 1]) << "position " << k + 1;
                EXPECT_EQ(ui.Boxes, rec.Boxes);
                for (std::int32_t r = 1; r <= fast->AirwayCount; ++r) {
                    ASSERT_EQ(fast->Airways[r].Gas2, slow->Airways[r].Gas2) << "row " << r;
                    ASSERT_TRUE(SameBits(fast->Smoke.SpreadTime[r], slow->Smoke.SpreadTime[r])) << "row " << r;
                }
                if (ui.BoxTexts("TxtItt").size() > 2) ++multiRound;
            }
        }
    }
    // The mines make the reach go back against the row order, so rounds after the first do
    // real work; otherwise this comparison would prove little.
    EXPECT_GT(multiRound, 4);
}

TEST(SourcingOracle, WalksReachWhatWholePassesReach) {
    for (const std::int32_t size : {300, 1500, 2600}) {
        for (const std::uint64_t seed : {2u, 9u}) {
            SCOPED_TRACE(::testing::Message() << size << " airways, seed " << seed);
            auto fast = BalancedMine(size, seed);
            std::mt19937 pick(static_cast<std::uint32_t>(seed + static_cast<std::uint64_t>(size)));
            std::uniform_int_distribution<std::int32_t> row(1, fast->AirwayCount);
            for (int k = 0; k < 6; ++k) fast->Airways[row(pick)].Gas1 = contaminant::SmokePin;
            for (int k = 0; k < 6; ++k) fast->Airways[row(pick)].Gas1 = contaminant::ClearPin;
            auto slow = std::make_unique<Model>(*fast);

            ui::ScriptedUserInterface ui;
            contaminant::RunSourcing(*fast, ui);
            LiteralSourcing(*slow);
            int states[8] = {};
            for (std::int32_t r = 1; r <= fast->AirwayCount; ++r) {
                ASSERT_EQ(fast->Airways[r].Gas2, slow->Airways[r].Gas2) << "row " << r;
                ++states[fast->Airways[r].Gas2 & 7];
            }
            // Every walk had something to do.
            EXPECT_GT(states[contaminant::SmokeState], 6);
            EXPECT_GT(states[contaminant::PotentialSourceState] + states[contaminant::ClearState], 12);
        }
    }
}

} // namespace
} // namespace karvane::smoketest
