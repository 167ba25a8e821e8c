// The construction tools driven through the dispatcher as a view window drives them: what a
// drag, a click and the dialogs make of small networks, what goes into the undo log, and that
// the log gives back the network as it was.
#include <gtest/gtest.h>

#include <tuple>

#include <functional>

#include "construct_support.h"

namespace karvane::edit {
namespace {

using testing::ConstructRig;

// A rig with airways added by their ends, numbered, in a plan view.
struct Net : ConstructRig {
    std::int32_t Add(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::int32_t z = 500) {
        const std::int32_t row = S.Add(x1, y1, z, x2, y2, z);
        S.M.Set.LastAirwayNo = row;
        return row;
    }
    // Level airways by their plan ends, then the view.
    Net& Lines(std::initializer_list<std::array<std::int32_t, 4>> ends) {
        for (const auto& e : ends) Add(e[0], e[1], e[2], e[3]);
        Show();
        return *this;
    }
    std::array<std::int32_t, 6> Ends(std::int32_t row) {
        const Airway& a = S.Row(row);
        return {a.X1, a.Y1, a.Z1, a.X2, a.Y2, a.Z2};
    }
};

CoordsResult Point(std::int32_t x, std::int32_t y, std::int32_t z) {
    CoordsResult r;
    r.X = x;
    r.Y = y;
    r.Z = z;
    return r;
}

TEST(Draw, FromANodeIntoEmptySpaceGivesALevelAirwayOfTheSameSize) {
    Net n;
    n.Add(100, 500, 500, 500);
    n.S.Row(1).Height = 5;
    n.S.Row(1).Width = 3;
    n.S.Row(1).ExitNode = "Junction";
    n.S.Row(1).BranchCode |= bc::FreshAir | bc::FixedFlow;
    n.Show();
    n.Tool(cmd::Draw);
    n.Drag(503, 497, 500, 800);

    ASSERT_EQ(n.S.M.AirwayCount, 2);
    const Airway& a = n.S.Row(2);
    EXPECT_EQ(n.Ends(2), (std::array{500, 500, 500, 500, 800, 500}));
    // Fixed flow is not inherited; fresh air is.
    EXPECT_EQ(std::tie(a.EntryNode, a.ExitNode, a.Height, a.Width, a.BranchCode, a.Length, a.AirwayNo),
              std::make_tuple("Junction", "", 5.0f, 3.0f, bc::Rectangular | bc::InView | bc::FreshAir, 300.0f, 2));
    EXPECT_EQ(n.S.M.Set.LastAirwayNo, 2);
    EXPECT_EQ(n.Actions(1), (std::vector<int>{files::undo::After}));
    EXPECT_EQ(std::tie(n.Undo.CurrentStep, n.S.M.NetworkSaved), std::make_tuple(std::int16_t{2}, No0));
    EXPECT_EQ(n.Calls, (std::vector<std::string>{"Quick"}));
    EXPECT_TRUE(n.S.Ui.Transcript.empty());
    // It is in view at once, and can be picked.
    EXPECT_EQ(std::make_tuple(n.S.Ds.DisplayList.back(), a.ExitKey),
              std::make_tuple(2, EndKey(n.S.M, 500, 800, 500, false)));
}

TEST(Draw, AStartAndEndOnAirwaysSplitsBothAndThePartsKeepNamesAndSizes) {
    Net n;
    n.Add(0, 200, 1000, 200);
    n.Add(0, 800, 1000, 800);
    Airway& north = n.S.Row(1);
    std::tie(north.BranchName, north.Height, north.Width, north.PrimaryLayer, north.ExitNode) =
        std::make_tuple("North", 5.0f, 6.0f, std::int16_t{3}, "East");
    n.S.Row(2).BranchName = "South";
    n.Show();
    const std::vector<std::string> before = n.Network();
    n.Tool(cmd::Draw);
    n.Drag(300, 200, 700, 800);

    ASSERT_EQ(n.S.M.AirwayCount, 5);
    // The halves first, then the new airway between them.
    const std::vector<std::array<std::int32_t, 6>> ends{{0, 200, 500, 300, 200, 500},
                                                        {0, 800, 500, 700, 800, 500},
                                                        {300, 200, 500, 700, 800, 500},
                                                        {300, 200, 500, 1000, 200, 500},
                                                        {700, 800, 500, 1000, 800, 500}};
    for (std::int32_t row = 1; row <= 5; ++row) EXPECT_EQ(n.Ends(row), ends[static_cast<std::size_t>(row - 1)]);
    const Airway& half = n.S.Row(4);
    EXPECT_EQ(std::tie(half.BranchName, half.Height, half.Width, half.ExitNode),
              std::make_tuple("North", 5.0f, 6.0f, "East"));
    EXPECT_EQ(std::tie(n.S.Row(5).BranchName, north.ExitNode), std::make_tuple("South", ""));
    // No node at the start: the defaults, and the layers of the airway split at the start.
    const Airway& a = n.S.Row(3);
    EXPECT_EQ(std::tie(a.Height, a.BranchCode, a.PrimaryLayer, a.Length, a.AirwayNo),
              std::make_tuple(n.S.M.Set.DriveHeight, bc::Rectangular | bc::InView, std::int16_t{3}, 721.0f, 5));
    EXPECT_NE(a.EntryKey, 0); // keys refreshed
    EXPECT_EQ(std::make_tuple(a.EntryKey, n.Calls.back()), std::make_tuple(half.EntryKey, "RedrawAllWindows"));
    EXPECT_EQ(n.Actions(1), (std::vector<int>{2, 1, 1, 2, 1, 1, 1}));
    n.UndoLastStep();
    EXPECT_EQ(n.Network(), before);
}

TEST(Draw, BothEndsOnOneAirwaySplitItIntoThreeInOrder) {
    // The end lies beyond the start, then before it.
    for (auto [from, to] : {std::pair{300, 700}, std::pair{700, 300}}) {
        Net m;
        m.Lines({{0, 200, 1000, 200}});
        m.Tool(cmd::Draw);
        m.Drag(from, 200, to, 200);
        ASSERT_EQ(m.S.M.AirwayCount, 4) << from;
        double total = 0;
        for (std::int32_t row : {1, 3, 4}) total += m.S.Row(row).Length;
        EXPECT_DOUBLE_EQ(total, 1000) << from; // no part overlaps another
    }
}

struct LevelCase {
    int Dx;
    int Dz; // the level dropped during the drag
    bool Raise;
};

TEST(Draw, ALevelChangeDuringTheDragGivesAClimbAndTheRaiseRuleDecidesItsSize) {
    // 2 x |dZ| above the whole length makes a raise; exactly equal stays a drive.
    for (const LevelCase& c :
         {LevelCase{50, 210, true}, LevelCase{173, 100, true}, LevelCase{174, 100, false}, LevelCase{400, 10, false}}) {
        Net n;
        n.Lines({{0, 0, 10, 0}});
        n.S.Ds.View.CurRL = 490;
        n.Tool(cmd::Draw);
        n.D.OnMouseDown(1, 0, n.Wx(200), n.Wy(200), 0);
        // Down during the drag: another level is shown, the cursor at its middle.
        n.S.Ds.View.LevelMode = display::lm::Single;
        n.S.Ds.View.CurrentLevel = 3;
        n.S.Ds.View.CurRL = 490 - c.Dz;
        n.D.OnMouseMove(1, 0, n.Wx(200 + c.Dx), n.Wy(200), 0);
        n.D.OnMouseUp(1, 0, n.Wx(200 + c.Dx), n.Wy(200), 0);
        ASSERT_EQ(n.S.M.AirwayCount, 2) << c.Dx;
        const Airway& a = n.S.Row(2);
        EXPECT_EQ(std::tie(a.Z1, a.Z2), std::make_tuple(490, 490 - c.Dz));
        const Settings& set = n.S.M.Set;
        if (c.Raise) {
            EXPECT_EQ(a.BranchCode & ~bc::InView, bc::Circular) << c.Dx;
            EXPECT_FLOAT_EQ(a.Width, set.RaiseDiameter);
            EXPECT_EQ(a.WallType, set.RaiseWallType);
            EXPECT_FLOAT_EQ(a.WallFactor, n.S.M.Preset.WallPreset[static_cast<std::size_t>(set.RaiseWallType)]);
        } else {
            EXPECT_EQ(a.BranchCode & ~bc::InView, bc::Rectangular) << c.Dx;
            EXPECT_FLOAT_EQ(a.Height, set.DriveHeight);
            EXPECT_EQ(a.WallType, set.DriveWallType);
        }
        EXPECT_EQ(a.ShockType, static_cast<std::int16_t>(set.DefaultShock));
    }
}

TEST(Draw, AreaAirwaysTakeTheAreaDefaults) {
    Net n;
    n.Lines({{0, 0, 10, 0}});
    n.S.M.Set.UseArea = 1;
    n.S.Ds.View.CurRL = 490;
    n.Tool(cmd::Draw);
    n.Drag(200, 200, 500, 200);
    const Airway& a = n.S.Row(2);
    EXPECT_EQ(std::tie(a.BranchCode, a.Width, a.Height),
              std::make_tuple(bc::AreaEntry | bc::InView, n.S.M.Set.DefaultArea, n.S.M.Set.DefaultPerimeter));
}

TEST(Draw, ALevelAirwayAtTheSurfaceIsRefusedAndNothingChanges) {
    struct Case {
        bool NoLevels;
        std::string Text;
    };
    for (const Case& c : {Case{false, "Cannot construct an airway within the surface RL."},
                          Case{true, "Cannot construct an airway within the surface RL.\nYou will need to construct "
                                     "an RL database first!"}}) {
        Net n;
        n.Add(0, 0, 10, 0);
        if (c.NoLevels) n.S.M.Levels[2] = LevelRecord{};
        n.Show();
        const std::vector<std::string> before = n.Rows();
        n.S.Ds.View.CurRL = 1000;
        n.Tool(cmd::Draw);
        n.Drag(200, 200, 500, 200);
        EXPECT_EQ(n.S.Ui.Texts("Message"), (std::vector<std::string>{c.Text}));
        EXPECT_EQ(std::make_tuple(n.Rows(), n.Undo.NextUndoRow), std::make_tuple(before, 1));
    }
    // A sloping airway from the surface is accepted.
    Net n;
    n.Lines({{0, 0, 10, 0}});
    n.S.Ds.View.CurRL = 1000;
    n.Tool(cmd::Draw);
    n.D.OnMouseDown(1, 0, n.Wx(200), n.Wy(200), 0);
    n.S.Ds.View.CurrentLevel = 2;
    n.S.Ds.View.LevelMode = display::lm::Single;
    n.S.Ds.View.CurRL = 490;
    n.D.OnMouseUp(1, 0, n.Wx(200), n.Wy(200), 0);
    EXPECT_EQ(n.S.M.AirwayCount, 2);
    EXPECT_TRUE(n.S.Ui.Transcript.empty());
}

TEST(Draw, AClickOrAReleaseOnTheStartNodeMakesNothing) {
    Net n;
    n.Lines({{100, 500, 500, 500}});
    n.Tool(cmd::Draw);
    n.Click(300, 300);
    n.Drag(500, 500, 510, 505); // back onto the same node
    EXPECT_EQ(std::tie(n.S.M.AirwayCount, n.Undo.NextUndoRow, n.Undo.CurrentStep), std::make_tuple(1, 1, 1));
}

TEST(Draw, TheCapacityIsCheckedBeforeAnythingChanges) {
    struct Case {
        std::int32_t Count;
        bool Splits;
        std::string Text;
    };
    for (const Case& c : {Case{MaxAirways - 1, false,
                               "Maximum Number of Airways Exceeded\nIncrease allowable number of branches in "
                               "Defaults !"},
                          Case{MaxAirways - 2, true,
                               "Network size has exceeded maximum airways - increase airways in default settings"},
                          Case{MaxAirways - 3, true, ""}}) {
        Net n;
        n.Lines({{0, 200, 1000, 200}, {0, 800, 1000, 800}});
        // Rows beyond the two are not in view; they only fill the table.
        for (std::int32_t row = 3; row <= c.Count; ++row) n.S.Row(row).BranchCode = bc::Rectangular;
        n.S.M.AirwayCount = c.Count;
        n.Tool(cmd::Draw);
        if (c.Splits) {
            n.Drag(300, 200, 700, 800);
        } else {
            n.Drag(300, 400, 700, 500);
        }
        if (c.Text.empty()) {
            EXPECT_EQ(n.S.M.AirwayCount, MaxAirways);
            EXPECT_TRUE(n.S.Ui.Texts("Message").empty());
        } else {
            EXPECT_EQ(n.S.Ui.Texts("Message"), (std::vector<std::string>{c.Text}));
            EXPECT_EQ(std::make_tuple(n.S.M.AirwayCount, n.Undo.NextUndoRow, n.S.Row(1).X2),
                      std::make_tuple(c.Count, 1, 1000));
        }
    }
}

TEST(Draw, TheRightButtonTakesTypedPointsAndCancelDropsThePress) {
    Net n;
    n.Lines({{0, 0, 10, 0}});
    n.Tool(cmd::Draw);
    n.Drag(300, 300, 400, 300, button::Right); // cancelled at the press
    EXPECT_EQ(n.S.M.AirwayCount, 1);
    ASSERT_EQ(n.CoordsAsked.size(), 1u);
    EXPECT_TRUE(n.CoordsAsked[0].DuringPress);
    EXPECT_FALSE(n.D.State().MouseIsDown);

    n.CoordsAnswers = {Point(100, 100, 490), Point(400, 120, 470)};
    n.Drag(300, 300, 400, 300, button::Right);
    ASSERT_EQ(n.S.M.AirwayCount, 2);
    EXPECT_EQ(n.Ends(2), (std::array{100, 100, 490, 400, 120, 470}));
    EXPECT_EQ(n.Calls.back(), "RedrawAllWindows");
    EXPECT_FALSE(n.T.CoordinateDialogOpen());
}

TEST(Move, ThePressOnAnAirwaysMiddlePullsItsNearerEndAloneOffTheNode) {
    Net n;
    n.Lines({{100, 500, 500, 500}, {500, 500, 900, 500}});
    n.Tool(cmd::Move);
    n.Drag(400, 500, 450, 300); // three quarters along: the To end
    EXPECT_EQ((std::array{n.S.Row(1).X1, n.S.Row(1).X2, n.S.Row(1).Y2}), (std::array{100, 450, 300}));
    EXPECT_EQ((std::array{n.S.Row(2).X1, n.S.Row(2).Y1}), (std::array{500, 500}));
}

TEST(Move, JoiningToANodeAsksFirst) {
    for (ui::Answer answer : {ui::Answer::Yes, ui::Answer::No}) {
        Net n;
        n.Lines({{100, 500, 500, 500}, {500, 500, 900, 500}, {500, 800, 200, 800}});
        n.S.Ui.Answers = {answer};
        n.Tool(cmd::Move);
        n.Drag(900, 500, 210, 790);
        ASSERT_EQ(n.S.Ui.Texts("Ask"), (std::vector<std::string>{"Are you sure you want to join to this node?"}));
        EXPECT_EQ(n.S.Ui.Transcript[0].Title, "Join Nodes");
        const std::array<int, 2> to = answer == ui::Answer::Yes ? std::array{200, 800} : std::array{210, 790};
        EXPECT_EQ((std::array{n.S.Row(2).X2, n.S.Row(2).Y2}), to);
    }
}

TEST(Move, AFenceMovesTheEndsInsideItAndCanCopyThem) {
    for (bool copy : {false, true}) {
        Net n;
        n.Lines({{100, 200, 200, 200}, {200, 200, 300, 200}, {800, 800, 900, 800}});
        CoordsResult move;
        move.dY = 50;
        move.Copy = copy;
        n.CoordsAnswers = {move};
        n.Tool(cmd::Move);
        n.Drag(50, 140, 250, 260);
        ASSERT_EQ(n.CoordsAsked.size(), 1u);
        EXPECT_EQ(std::tie(n.CoordsAsked[0].Absolute, n.CoordsAsked[0].OfferCopy), std::make_tuple(false, true));
        const int moved = copy ? 4 : 1, halfMoved = copy ? 5 : 2;
        ASSERT_EQ(n.S.M.AirwayCount, copy ? 5 : 3);
        EXPECT_EQ(n.Ends(moved), (std::array{100, 250, 500, 200, 250, 500}));
        EXPECT_EQ(n.Ends(halfMoved), (std::array{200, 250, 500, 300, 200, 500}));
        EXPECT_EQ(n.Ends(3), (std::array{800, 800, 500, 900, 800, 500}));
        if (copy) {
            EXPECT_EQ(n.Ends(1), (std::array{100, 200, 500, 200, 200, 500}));
            EXPECT_EQ(n.S.Row(5).AirwayNo, 5);
            EXPECT_EQ(n.Actions(1), (std::vector<int>{1, 1}));
        } else {
            EXPECT_EQ(n.Actions(1), (std::vector<int>{2, 1, 2, 1}));
        }
    }
}

TEST(Move, SelectedAirwaysMoveTogetherOrAreCopied) {
    for (bool copy : {false, true}) {
        Net n;
        n.Add(100, 200, 200, 200);
        n.Add(200, 200, 300, 200);
        n.Add(800, 800, 900, 800);
        n.S.Row(1).BranchCode |= bc::Selected;
        n.S.Row(2).BranchCode |= bc::Selected;
        n.Show();
        CoordsResult to = Point(160, 400, 510);
        to.Copy = copy;
        n.CoordsAnswers = {to};
        n.Tool(cmd::Move);
        n.Drag(150, 200, 160, 400, button::Right); // the press on a selected airway stays where it is
        ASSERT_EQ(n.S.M.AirwayCount, copy ? 5 : 3);
        const std::int32_t first = copy ? 4 : 1;
        EXPECT_EQ((std::array{n.S.Row(first).X1, n.S.Row(first).Y1, n.S.Row(first).Z1}), (std::array{110, 400, 510}));
        EXPECT_EQ(std::make_tuple(n.S.Row(first + 1).X2, n.S.Row(1).X1), std::make_tuple(310, copy ? 100 : 110));
    }
}

TEST(Move, AFloatingTextIsDragged) {
    Net n;
    n.Add(800, 800, 900, 800);
    n.S.M.FloatingTexts[1] = FloatingText{true, "Fan station", 300, 300, 500};
    n.Show();
    n.Tool(cmd::Move);
    n.Drag(305, 305, 400, 350);
    EXPECT_EQ((std::array{n.S.M.FloatingTexts[1].TextX, n.S.M.FloatingTexts[1].TextY}), (std::array{400, 350}));
}

TEST(Reverse, SwapsEndsKeysNamesPressuresAndTheSurfaceBits) {
    Net n;
    n.Lines({{100, 500, 500, 500}, {100, 700, 500, 700}});
    Airway& a = n.S.Row(1);
    std::tie(a.EntryNode, a.ExitNode, a.FromNodeP, a.ToNodeP, a.Quantity) = std::make_tuple("In", "Out", 10, 20, 5);
    a.BranchCode |= bc::EntryAtSurface;
    const Fixed4 entry = a.EntryKey, exit = a.ExitKey;
    n.Show();
    const std::vector<std::string> before = n.Network();
    n.Tool(cmd::Reverse);
    n.Click(300, 500);
    EXPECT_EQ((std::array{a.X1, a.X2}), (std::array{500, 100}));
    EXPECT_EQ((std::array{a.EntryKey, a.ExitKey}), (std::array{exit, entry}));
    EXPECT_EQ(std::tie(a.EntryNode, a.ExitNode, a.FromNodeP, a.ToNodeP, a.Quantity),
              std::make_tuple("Out", "In", 20.0f, 10.0f, -5.0f));
    EXPECT_EQ(std::make_tuple(a.BranchCode & (bc::EntryAtSurface | bc::ExitAtSurface), n.S.Row(2).X1),
              std::make_tuple(bc::ExitAtSurface, 100));
    n.UndoLastStep();
    EXPECT_EQ(n.Network(), before);

    // A selected airway turns the whole selection; nothing picked turns nothing.
    n.S.Row(1).BranchCode |= bc::Selected;
    n.S.Row(2).BranchCode |= bc::Selected;
    n.Show();
    n.Click(300, 700);
    EXPECT_EQ((std::array{n.S.Row(1).X1, n.S.Row(2).X1}), (std::array{500, 500}));
    const std::int16_t step = n.Undo.CurrentStep;
    n.Click(300, 100);
    EXPECT_EQ(n.Undo.CurrentStep, step);
}

TEST(InsertNode, SplitsTheAirwayAtTheClick) {
    Net n;
    n.Add(100, 500, 500, 500);
    n.S.Row(1).BranchCode |= bc::ExitAtSurface | bc::EntryAtSurface;
    n.Show();
    n.Tool(cmd::Insert);
    n.Click(200, 500);
    ASSERT_EQ(n.S.M.AirwayCount, 2);
    EXPECT_EQ((std::array{n.S.Row(1).X2, n.S.Row(2).X1, n.S.Row(2).X2}), (std::array{200, 200, 500}));
    EXPECT_EQ(std::make_tuple(n.S.Row(1).BranchCode & (bc::EntryAtSurface | bc::ExitAtSurface),
                              n.S.Row(2).BranchCode & (bc::EntryAtSurface | bc::ExitAtSurface), n.Undo.CurrentStep),
              std::make_tuple(bc::EntryAtSurface, bc::ExitAtSurface, 2));
}

TEST(EditTool, TheRightButtonTogglesABulkheadAndTheLeftOpensTheEditor) {
    Net n;
    n.Lines({{100, 500, 500, 500}});
    n.Tool(cmd::Edit);
    n.Click(200, 500, button::Right);
    EXPECT_EQ(n.S.Row(1).ResType, 1);
    EXPECT_NEAR(n.S.Row(1).IconLoc, 0.25 - 0.3, 1e-6);
    n.Click(200, 500, button::Right);
    EXPECT_EQ(std::tie(n.S.Row(1).ResType, n.Undo.CurrentStep), std::make_tuple(std::int16_t{0}, std::int16_t{3}));
    n.Click(200, 500);
    n.S.M.Set.EditNoRightClick = 1;
    n.Click(200, 500, button::Right);
    n.S.Row(1).BranchCode |= bc::Selected;
    n.Click(200, 500, button::Right);
    EXPECT_EQ(n.Calls, (std::vector<std::string>{"RedrawAllWindows", "RedrawAllWindows", "Editor 1", "Editor 1",
                                                 "Editor 3", "RedrawAllWindows"}));
}

TEST(FanTool, RefusesFixedAirwaysPlacesAndRemovesFans) {
    Net n;
    n.Lines({{100, 500, 500, 500}});
    n.Tool(cmd::Fan);
    n.S.Row(1).FanNumber = -1;
    n.Click(200, 500);
    n.S.Row(1).FanNumber = 0;
    n.S.Row(1).BranchCode |= bc::FixedFlow;
    n.Click(200, 500);
    EXPECT_EQ(n.S.Ui.Texts("Message"), (std::vector<std::string>{"Fan not allowed with fixed pressure airway",
                                                                 "Fan not allowed with fixed quantity airway"}));
    EXPECT_EQ(n.Undo.NextUndoRow, 1);
    n.S.Row(1).BranchCode &= ~bc::FixedFlow;
    n.Click(200, 500);
    EXPECT_EQ(n.FanRows, (std::vector<std::int32_t>{1}));
    EXPECT_NEAR(n.S.Row(1).IconLoc, -0.05, 1e-6);
    n.S.Row(1).BranchCode |= bc::FixedDirection;
    n.Click(200, 500, button::Right);
    EXPECT_EQ(std::tie(n.S.Row(1).FanNumber, n.S.Row(1).BranchCode),
              std::make_tuple(std::int16_t{0}, bc::Rectangular | bc::InView));
    EXPECT_EQ(n.Actions(1), n.Actions(2));
    EXPECT_EQ(n.Actions(2), (std::vector<int>{2, 1}));
}

TEST(Names, NodesAirwaysSelectionsAndFloatingText) {
    Net n;
    n.Lines({{100, 500, 500, 500}, {500, 500, 900, 500}, {100, 700, 500, 700}});
    n.Tool(cmd::Names);

    // A node: every end of it takes the name; a comma is refused; the right button clears.
    n.S.Ui.Inputs = {"Shaft, bottom", "Shaft bottom"};
    n.Click(500, 500);
    EXPECT_EQ(n.S.Ui.Texts("Message"), (std::vector<std::string>{"Commas are not allowed!"}));
    EXPECT_EQ(n.S.Row(1).ExitNode, "");
    n.Click(500, 500);
    EXPECT_EQ(std::tie(n.S.Row(1).ExitNode, n.S.Row(2).EntryNode), std::make_tuple("Shaft bottom", "Shaft bottom"));
    EXPECT_EQ(n.Actions(1), (std::vector<int>{2, 1, 2, 1}));
    n.Click(500, 500, button::Right);
    EXPECT_EQ(n.S.Row(2).EntryNode, "");

    // An airway, then the selection.
    n.S.Ui.Inputs = {"Main drive"};
    n.Click(300, 700);
    EXPECT_EQ(n.S.Row(3).BranchName, "Main drive");
    n.S.Row(1).BranchCode |= bc::Selected;
    n.S.Row(3).BranchCode |= bc::Selected;
    n.S.Ui.Inputs = {"Return"};
    n.Click(300, 700);
    EXPECT_EQ(std::tie(n.S.Row(1).BranchName, n.S.Row(2).BranchName, n.S.Row(3).BranchName),
              std::make_tuple("Return", "", "Return"));

    // Floating text in empty space, then in a full table.
    n.S.Ui.Inputs = {"Refuge"};
    n.Click(300, 300);
    EXPECT_TRUE(n.S.M.FloatingTexts[1].TextOn);
    EXPECT_EQ((std::array{n.S.M.FloatingTexts[1].TextX, n.S.M.FloatingTexts[1].TextY}), (std::array{300, 300}));
    for (FloatingText& t : n.S.M.FloatingTexts) t.TextOn = true;
    n.S.Ui.Inputs = {"More"};
    n.Click(300, 200);
    EXPECT_EQ(n.S.Ui.Texts("Message").back(), "Exceeded 100 text boxes - increase number in defaults");
    EXPECT_EQ(
        n.S.Ui.Texts("Input"),
        (std::vector<std::string>{"Enter Name of Node", "Enter Name of Node", "Enter Name of Branch ",
                                  "Enter Name of Selected Branch(s) ", "Enter Floating Text", "Enter Floating Text"}));
}

TEST(LayerInheritance, TogglesWithItsTwoMessages) {
    Net n;
    ToggleLayerInheritance(n.S.M, n.S.Ui);
    EXPECT_TRUE(n.S.M.Set.LayerInherit);
    ToggleLayerInheritance(n.S.M, n.S.Ui);
    EXPECT_FALSE(n.S.M.Set.LayerInherit);
    EXPECT_EQ(n.S.Ui.Texts("Message"),
              (std::vector<std::string>{"New airways WILL inherit view layer settings from connected airways.",
                                        "New airways WILL NOT inherit view layer settings from connected airways."}));
}

TEST(Draw, LayersComeFromTheStartAirwayOnlyWithLayerInheritanceAndOffLayersWarn) {
    for (bool inherit : {false, true}) {
        Net n;
        n.Add(100, 500, 500, 500);
        n.S.Row(1).PrimaryLayer = 4;
        n.S.Row(1).SecondLayer = 7;
        n.S.M.DrawPrimaryLayer = 2;
        n.S.M.DrawSecondaryLayer = 3;
        n.S.M.Set.LayerInherit = inherit;
        n.S.M.PrimaryLayers[2].LayerOn = 0;
        n.S.M.SecondaryLayers[3].LayerOn = 0;
        n.Show();
        n.Tool(cmd::Draw);
        n.Drag(500, 500, 500, 800);
        ASSERT_EQ(n.S.M.AirwayCount, 2);
        EXPECT_EQ(std::make_tuple(n.S.Row(2).PrimaryLayer, n.S.Row(2).SecondLayer),
                  std::make_tuple(inherit ? 4 : 2, inherit ? 7 : 3));
        const std::vector<std::string> warnings{"Primary layer is set to invisible - drawn airway may be invisible",
                                                "Secondary layer is set to invisible - drawn airway may be invisible"};
        EXPECT_EQ(n.S.Ui.Texts("Message"), inherit ? std::vector<std::string>{} : warnings);
    }
}

// Every tool's edit, undone and done again: the network before and after it, row for row.
TEST(UndoRoad, EveryEditComesBackWholeAndGoesAgainByRedo) {
    struct Case {
        const char* Name;
        std::function<void(Net&)> Edit;
    };
    const std::vector<Case> cases{
        {"draw with two splits", [](Net& n) { n.Tool(cmd::Draw), n.Drag(300, 200, 700, 800); }},
        {"draw from a node", [](Net& n) { n.Tool(cmd::Draw), n.Drag(1000, 200, 900, 400); }},
        {"move a shared node", [](Net& n) { n.Tool(cmd::Move), n.Drag(1000, 200, 950, 300); }},
        {"move a node onto an airway",
         [](Net& n) {
             n.Tool(cmd::Move);
             n.Drag(0, 200, 400, 800);
         }},
        {"fence copy",
         [](Net& n) {
             CoordsResult move;
             move.dX = 30;
             move.Copy = true;
             n.CoordsAnswers = {move};
             n.Tool(cmd::Move);
             n.Drag(-50, 150, 1050, 250);
         }},
        {"reverse", [](Net& n) { n.Tool(cmd::Reverse), n.Click(500, 800); }},
        {"insert a node", [](Net& n) { n.Tool(cmd::Insert), n.Click(500, 800); }},
        {"name a node",
         [](Net& n) {
             n.S.Ui.Inputs = {"Corner"};
             n.Tool(cmd::Names);
             n.Click(1000, 200);
         }},
        {"bulkhead", [](Net& n) { n.Tool(cmd::Edit), n.Click(500, 200, button::Right); }},
    };
    for (const Case& c : cases) {
        Net n;
        n.Lines({{0, 200, 1000, 200}, {0, 800, 1000, 800}, {1000, 200, 1000, 800}});
        const std::vector<std::string> before = n.Network();
        c.Edit(n);
        const std::vector<std::string> after = n.Network();
        ASSERT_NE(after, before) << c.Name;
        EXPECT_TRUE(n.Undo.Undo(n.S.M, n.S.Ui)) << c.Name;
        EXPECT_EQ(n.Network(), before) << c.Name;
        EXPECT_TRUE(n.Undo.Redo(n.S.M, n.S.Ui)) << c.Name;
        EXPECT_EQ(n.Network(), after) << c.Name;
    }
}

TEST(UndoRoad, ARefusedEditLeavesTheLogAsItWasAndANewEditCutsTheRedoTail) {
    Net n;
    n.Lines({{0, 200, 1000, 200}});
    const std::vector<std::string> original = n.Network();
    n.Tool(cmd::Draw);
    n.Drag(300, 400, 600, 400);
    n.Drag(300, 500, 600, 500);
    const std::int16_t step = n.Undo.CurrentStep;
    const std::int16_t next = n.Undo.NextUndoRow;
    // A level airway at the surface, then a draw past the capacity: nothing changes, nothing is logged.
    n.S.Ds.View.CurRL = 1000;
    n.Drag(300, 600, 600, 600);
    n.S.Ds.View.CurRL = 500;
    const std::int32_t count = n.S.M.AirwayCount;
    n.S.M.AirwayCount = MaxAirways - 1;
    n.Drag(300, 700, 600, 700);
    n.S.M.AirwayCount = count;
    EXPECT_EQ(std::make_tuple(n.Undo.CurrentStep, n.Undo.NextUndoRow), std::make_tuple(step, next));
    // Undo twice gives the network of the start; a new edit leaves nothing to redo.
    n.Undo.Undo(n.S.M, n.S.Ui);
    n.Undo.Undo(n.S.M, n.S.Ui);
    EXPECT_EQ(n.Network(), original);
    n.Show();
    n.Drag(300, 300, 600, 300);
    EXPECT_FALSE(n.Undo.Redo(n.S.M, n.S.Ui));
    EXPECT_EQ(std::make_tuple(n.S.Ui.Texts("Message").back(), n.S.M.AirwayCount),
              std::make_tuple("No more actions available to redo", 2));
}

// A 3D view turned and tilted, or standing as a vertical section.
struct View3D : Net {
    void Turn(float tilt, float spin) {
        S.Ds.View.Is3D = 1;
        S.Ds.View.Tilt = tilt;
        S.Ds.View.Spin = spin;
        S.Ds.View.RotCentre = {500, 500, 500};
        S.Ds.View.RotCentreSet = 1;
        display::CacheRotation(S.Ds);
        Show();
        display::ApplyRotation(S.M, S.Ds);
        Redraw();
    }
    // A drag between two cursor positions (cursor coordinates of the view).
    void DragCursor(display::ViewPoint a, display::ViewPoint b) {
        D.OnMouseDown(1, 0, a.X * S.M.SgnX, a.Y * S.M.SgnY, 0);
        D.OnMouseMove(1, 0, b.X * S.M.SgnX, b.Y * S.M.SgnY, 0);
        D.OnMouseUp(1, 0, b.X * S.M.SgnX, b.Y * S.M.SgnY, 0);
    }
};

TEST(Draw, InATurnedViewAFreeEndStaysAtTheLevelOfThePressAndInASectionFollowsTheCursor) {
    struct Case {
        float Tilt, Spin;
        bool Section;
    };
    for (const Case& c : {Case{0.6f, 0.4f, false}, Case{static_cast<float>(display::Pi / 2), 0.3f, true}}) {
        View3D n;
        n.Add(100, 100, 200, 100, 420);
        n.Turn(c.Tilt, c.Spin);
        ASSERT_EQ(display::ViewKind(n.S.Ds.View), c.Section ? 2 : 1);
        n.S.Ds.View.CurRL = 490;
        n.Tool(cmd::Draw);
        // From the node at (200, 100, 420) to a point of the window away from everything.
        const display::ViewPoint start = display::ProjectPoint(n.S.Ds, 200, 100, 420);
        const display::ViewPoint end{start.X + 80, start.Y + 60};
        n.DragCursor(start, end);
        ASSERT_EQ(n.S.M.AirwayCount, 2) << c.Section;
        const Airway& a = n.S.Row(2);
        EXPECT_EQ((std::array{a.X1, a.Y1, a.Z1}), (std::array{200, 100, 420}));
        // The level shown at the press; a section draws in the vertical plane instead.
        if (c.Section) {
            EXPECT_NE(a.Z2, 490);
        } else {
            EXPECT_EQ(a.Z2, 490);
        }
        // Either way the end stands where the cursor was, seen from the start.
        const display::ViewPoint p1 = display::ProjectPoint(n.S.Ds, a.X1, a.Y1, a.Z1);
        const display::ViewPoint p2 = display::ProjectPoint(n.S.Ds, a.X2, a.Y2, a.Z2);
        EXPECT_NEAR(p2.X - p1.X, end.X - start.X, 1.5) << c.Section;
        EXPECT_NEAR(p2.Y - p1.Y, end.Y - start.Y, 1.5) << c.Section;
    }
}

} // namespace
} // namespace karvane::edit
