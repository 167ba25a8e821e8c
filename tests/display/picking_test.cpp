// Picking nodes, airways, texts and fences on the drawn list, with ties in drawing order.
#include <gtest/gtest.h>

#include <cmath>

#include "display/drawn_list.h"
#include "display/level_selector.h"
#include "display/picking.h"
#include "display_support.h"

namespace karvane::display {
namespace {

using testing::Scene;

// A cross of two drives meeting at (100, 0), and a third one crossing the second.
struct Cross : Scene {
    std::int32_t West, North, Diagonal;
    Cross() {
        West = Add(0, 0, 490, 100, 0, 490);
        North = Add(100, 0, 490, 100, 100, 490);
        Diagonal = Add(60, 60, 490, 140, 40, 500);
        Row(West).ExitNode = "J1  ";
        Row(North).EntryNode = " J1-north";
        BuildDisplayList(M, Ds);
        SetViewBox(Ds, 250, 187.5f, 100, 0); // tolerance 250 / 25 = 10
        BuildDrawnList(M, Ds);
    }
};

TEST(Picking, NodesTakeTheFirstAirwayInDrawingOrder) {
    Cross s;
    EXPECT_FLOAT_EQ(PickTolerance(s.M, s.Ds), 10);
    // The shared node: the first airway's To end wins over the second's From end.
    auto n = FindNode(s.M, s.Ds, 3, -2);
    ASSERT_TRUE(n);
    EXPECT_EQ(n->Airway, -s.West);
    EXPECT_EQ(n->Name, "J1");
    EXPECT_EQ(n->Point.X, 100);
    EXPECT_EQ(n->Point.Z, 490);
    // A nearer end wins.
    n = FindNode(s.M, s.Ds, -97, 1);
    ASSERT_TRUE(n);
    EXPECT_EQ(n->Airway, s.West);
    EXPECT_EQ(n->Name, "");
    // The box is square: 9 along each axis is in, 10 is out.
    EXPECT_TRUE(FindNode(s.M, s.Ds, -91, 9));
    EXPECT_FALSE(FindNode(s.M, s.Ds, -90, 0));
    // CurRL takes the node's level.
    s.Ds.View.CurRL = 0;
    n = FindNode(s.M, s.Ds, 40, 41);
    ASSERT_TRUE(n);
    EXPECT_EQ(n->Airway, -s.Diagonal);
    EXPECT_EQ(s.Ds.View.CurRL, 500);
    // The axis signs turn the cursor into the window.
    s.M.SgnY = -1;
    BuildDrawnList(s.M, s.Ds);
    n = FindNode(s.M, s.Ds, 0, 99);
    ASSERT_TRUE(n);
    EXPECT_EQ(n->Airway, -s.North);
}

TEST(Picking, AirwaysByDistanceWithTiesInDrawingOrder) {
    Cross s;
    // Near the crossing of North and Diagonal (at x = 100, y = 50) the nearer line wins.
    AirwayPick p = FindAirway(s.M, s.Ds, 2, 47);
    EXPECT_EQ(p.Airway, s.North);
    p = FindAirway(s.M, s.Ds, -2, 52);
    EXPECT_EQ(p.Airway, s.Diagonal);
    // On the crossing itself both are at distance 0: the earlier row.
    p = FindAirway(s.M, s.Ds, 0, 50);
    EXPECT_EQ(p.Airway, s.North);
    EXPECT_FLOAT_EQ(s.Ds.PickFraction, 0.5f);
    EXPECT_EQ(p.Point.Y, 50);

    // A shallow line reaches the tolerance beyond its end in y only, not in x.
    p = FindAirway(s.M, s.Ds, -50, 9);
    EXPECT_EQ(p.Airway, s.West);
    p = FindAirway(s.M, s.Ds, -101, 0);
    EXPECT_EQ(p.Airway, 0);
    p = FindAirway(s.M, s.Ds, -50, 11);
    EXPECT_EQ(p.Airway, 0);

    // A pick on a sloping line takes the interpolated level into CurRL.
    s.Ds.View.CurRL = 0;
    p = FindAirway(s.M, s.Ds, -10, 52.5f);
    EXPECT_EQ(p.Airway, s.Diagonal);
    EXPECT_NEAR(s.Ds.PickFraction, 0.375, 1e-5);
    EXPECT_EQ(p.Point.X, 90);
    EXPECT_EQ(p.Point.Z, 494);
    EXPECT_EQ(s.Ds.View.CurRL, 494);

    // Nothing near: the point under the cursor at the current level.
    s.Ds.View.CurRL = 490;
    p = FindAirway(s.M, s.Ds, -80, 80);
    EXPECT_EQ(p.Airway, 0);
    EXPECT_EQ(p.Point.X, 20);
    EXPECT_EQ(p.Point.Y, 80);
    EXPECT_EQ(p.Point.Z, 490);
}

TEST(Picking, ZeroLengthAirwaysOnlyByTheirNode) {
    Scene s;
    const auto shaft = s.Add(0, 0, 490, 0, 0, 495); // a point in plan
    s.Refresh();
    SetViewBox(s.Ds, 250, 187.5f, 0, 0);
    BuildDrawnList(s.M, s.Ds);
    EXPECT_EQ(FindAirway(s.M, s.Ds, 0, 0).Airway, 0);
    const auto n = FindNode(s.M, s.Ds, 1, 1);
    ASSERT_TRUE(n);
    EXPECT_EQ(n->Airway, shaft);
}

TEST(Picking, FloatingTextAndFences) {
    Cross s;
    s.M.FloatingTexts[1] = {true, "Fan house", 90, 10, 490};
    s.M.FloatingTexts[2] = {true, "Sump", 95, 5, 490};
    BuildDisplayList(s.M, s.Ds);
    auto t = FindFloatingText(s.M, s.Ds, -6, 6);
    ASSERT_TRUE(t);
    EXPECT_EQ(t->Slot, 2);
    EXPECT_EQ(t->Point.X, 95);
    t = FindFloatingText(s.M, s.Ds, -11, 11);
    ASSERT_TRUE(t);
    EXPECT_EQ(t->Slot, 1);
    EXPECT_FALSE(FindFloatingText(s.M, s.Ds, 50, 50));

    // A fence catches an airway by an end or its midpoint, edges included, corners in any order.
    BuildDrawnList(s.M, s.Ds);
    FenceRect f = MakeFence(s.M, -40, 10, -60, -10);
    EXPECT_TRUE(FenceHit(s.Ds, f)); // the West drive's midpoint
    EXPECT_TRUE(InFence(f, s.Ds.Drawn[0]));
    EXPECT_FALSE(InFence(f, s.Ds.Drawn[1]));
    f = MakeFence(s.M, -80, 10, -60, 5);
    EXPECT_FALSE(FenceHit(s.Ds, f)); // crosses the line, holds none of its three points
    f = MakeFence(s.M, 0, 100, 10, 110);
    EXPECT_TRUE(FenceHit(s.Ds, f)); // the North drive's end on the edge
}

} // namespace
} // namespace karvane::display
