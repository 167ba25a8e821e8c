// The view window table: new windows, switching with the view slots, closing, freezing; and
// bringing one airway into view.
#include <gtest/gtest.h>

#include "display/saved_views.h"
#include "edit/show_airway.h"
#include "edit/view_windows.h"
#include "edit_support.h"

namespace karvane::edit {
namespace {

using testing::BuildSquare;
using testing::Scene;

TEST(ViewWindows, EachWindowKeepsItsOwnViewAcrossSwitches) {
    Scene s;
    ViewWindowTable table;
    ASSERT_EQ(NumberForNewWindow(table, s.Ui), 0);
    EXPECT_TRUE(EnterNewWindow(s.M, s.Ds, table, 0)); // the first window has no view to copy
    BuildSquare(s);
    const float fitted = s.Ds.View.ScaleWidth;

    // A new window starts as a copy of the current one.
    ASSERT_EQ(NumberForNewWindow(table, s.Ui), 1);
    EXPECT_FALSE(EnterNewWindow(s.M, s.Ds, table, 1));
    EXPECT_EQ(table.CurWin, 1);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, fitted);
    s.Ds.View.ScaleWidth = 400;
    s.Ds.View.ScaleHeight = 300;
    s.Ds.View.DataType = 36;

    EXPECT_TRUE(ActivateViewWindow(s.M, s.Ds, table, 0));
    EXPECT_EQ(table.CurWin, 0);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, fitted);
    EXPECT_EQ(s.Ds.View.DataType, 12);
    EXPECT_FALSE(ActivateViewWindow(s.M, s.Ds, table, 0)); // already current
    EXPECT_TRUE(ActivateViewWindow(s.M, s.Ds, table, 1));
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, 400);
    EXPECT_EQ(s.Ds.View.DataType, 36);

    // No switch while a tiling or a redraw of all windows runs.
    table.Switching = true;
    EXPECT_FALSE(ActivateViewWindow(s.M, s.Ds, table, 0));
    table.Switching = false;

    for (int n = 2; n < MaxViewWindows; ++n) EnterNewWindow(s.M, s.Ds, table, NumberForNewWindow(table, s.Ui));
    EXPECT_EQ(table.OpenCount(), 5);
    EXPECT_EQ(NumberForNewWindow(table, s.Ui), -1);
    EXPECT_TRUE(s.Ui.Said("Too many windows"));
}

TEST(ViewWindows, ClosingTheCurrentWindowMakesTheHighestRemainingCurrent) {
    Scene s;
    ViewWindowTable table;
    EnterNewWindow(s.M, s.Ds, table, 0);
    BuildSquare(s);
    EnterNewWindow(s.M, s.Ds, table, 1);
    EnterNewWindow(s.M, s.Ds, table, 2);
    s.Ds.View.ScaleWidth = 321;
    ActivateViewWindow(s.M, s.Ds, table, 1);
    EXPECT_EQ(CloseViewWindow(s.M, s.Ds, table, 1), 2);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, 321);
    // Closing another window leaves the current one.
    EXPECT_EQ(CloseViewWindow(s.M, s.Ds, table, 0), 2);
    EXPECT_EQ(CloseViewWindow(s.M, s.Ds, table, 2), -1);
    EXPECT_EQ(table.CurWin, -1);
    EXPECT_FALSE(s.Ds.WindowCurrent);
    // A window number can be given again once free.
    EXPECT_EQ(NumberForNewWindow(table, s.Ui), 0);
}

TEST(ViewWindows, ANewNetworkGivesEveryWindowTheCurrentView) {
    Scene s;
    ViewWindowTable table;
    EnterNewWindow(s.M, s.Ds, table, 0);
    BuildSquare(s);
    EnterNewWindow(s.M, s.Ds, table, 1);
    s.Ds.View.ScaleWidth = 123;
    ActivateViewWindow(s.M, s.Ds, table, 0);
    ASSERT_NE(s.Ds.View.ScaleWidth, 123);
    s.Ds.View.ScaleWidth = 456;
    ShareCurrentView(s.M, s.Ds, table);
    ActivateViewWindow(s.M, s.Ds, table, 1);
    EXPECT_FLOAT_EQ(s.Ds.View.ScaleWidth, 456);
    EXPECT_TRUE(table.Windows[0].StateSaved);
}

TEST(ViewWindows, FreezeNeedsASecondWindowAndReleasesTheFirstFrozen) {
    Scene s;
    ViewWindowTable table;
    EnterNewWindow(s.M, s.Ds, table, 0);
    BuildSquare(s);
    FreezeChange change = ToggleFreeze(s.M, s.Ds, table, s.Ui);
    EXPECT_EQ(change.Window, -1);
    ASSERT_EQ(s.Ui.Transcript.size(), 1u);
    EXPECT_EQ(s.Ui.Transcript[0].Title, "Freeze error");
    EXPECT_EQ(s.Ui.Transcript[0].Text, "Cannot freeze when only one window is present !");

    EnterNewWindow(s.M, s.Ds, table, 1);
    table.Windows[1].Caption = "View 2 : U/Ground Quantity";
    change = ToggleFreeze(s.M, s.Ds, table, s.Ui);
    EXPECT_EQ(change.Window, 1);
    EXPECT_TRUE(change.Frozen);
    EXPECT_EQ(change.NewCurrent, 0);
    EXPECT_EQ(table.CurWin, 0);
    EXPECT_EQ(ShownCaption(table, 1), "FROZEN View 2 : U/Ground Quantity");
    EXPECT_FALSE(s.Ds.WindowFrozen);
    // Activating a frozen window makes it current, and the views leave it alone.
    ActivateViewWindow(s.M, s.Ds, table, 1);
    EXPECT_TRUE(s.Ds.WindowFrozen);
    ActivateViewWindow(s.M, s.Ds, table, 0);

    change = ToggleFreeze(s.M, s.Ds, table, s.Ui);
    EXPECT_EQ(change.Window, 1);
    EXPECT_FALSE(change.Frozen);
    EXPECT_EQ(ShownCaption(table, 1), "View 2 : U/Ground Quantity");
}

TEST(ShowAirway, PicksTheLevelOfTheEndAndCentresOnTheMidpoint) {
    Scene s;
    BuildSquare(s);
    // Airway 5 is the raise from 500 down to 300: its To end lies on "Deep" (280 to 300).
    ShownAirway shown = ShowAirway(s.M, s.Ds, s.Ui, 5, 0.9f);
    EXPECT_TRUE(shown.Shown);
    EXPECT_TRUE(shown.LevelChanged);
    EXPECT_EQ(s.Ds.View.LevelMode, display::lm::Single);
    EXPECT_EQ(s.Ds.View.CurrentLevel, 3);
    EXPECT_EQ(s.Ds.View.RotCentre, (std::array<std::int32_t, 3>{1000, 1000, 400}));
    EXPECT_FLOAT_EQ(s.Ds.View.CentreX, 1000);
    shown = ShowAirway(s.M, s.Ds, s.Ui, 5, 0.9f);
    EXPECT_FALSE(shown.LevelChanged);

    // An airway on no level creates "Global Level" once; the second time it lies in it.
    const std::int32_t row = s.Add(0, 0, 2000, 0, 50, 2000);
    s.Row(row).PrimaryLayer = 3;
    s.M.PrimaryLayers[3].LayerOn = 0;
    shown = ShowAirway(s.M, s.Ds, s.Ui, row, 0);
    EXPECT_TRUE(shown.LevelAdded);
    EXPECT_EQ(s.M.Levels[4].RLName, "Global Level");
    EXPECT_EQ(s.M.Levels[4].RLMin, 300);
    EXPECT_EQ(s.M.Levels[4].RLMax, 2000);
    EXPECT_EQ(s.M.PrimaryLayers[3].LayerOn, -1); // its layer came on
    EXPECT_TRUE(s.Ui.Said("Could not find a valid defined display level the airway was on!\nKarvane will create a "
                          "new global level range and add it to your level list"));
    shown = ShowAirway(s.M, s.Ds, s.Ui, row, 0);
    EXPECT_FALSE(shown.LevelAdded);

    EXPECT_EQ(RowOfAirwayNo(s.M, 3), 3);
    EXPECT_EQ(RowOfAirwayNo(s.M, 999), 0);
}

} // namespace
} // namespace karvane::edit
