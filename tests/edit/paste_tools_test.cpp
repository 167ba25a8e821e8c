// The selection, attribute and layer tools: clicks and fences, the paste store and the
// defaults, the words of every message, and the undo records of a paste.
#include <gtest/gtest.h>

#include "display/palette.h"
#include "edit/attribute_paste.h"
#include "pick_support.h"

namespace karvane::edit {
namespace {

using testing::PickRig;

// Three parallel drives 500 m apart; the first is the one to copy from.
void BuildThree(PickRig& r) {
    for (int k = 0; k < 3; ++k) r.S.Add(0, 500 * k, 500, 1000, 500 * k, 500);
    Airway& a = r.S.Row(1);
    a.Height = 5;
    a.Width = 6;
    a.WallType = 4;
    a.ShockType = 2;
    a.ResType = 2;
    a.BranchCode |= bc::FixedLength | bc::FreshAir | bc::DataHidden | bc::EntryAtSurface;
    a.Length = 333;
    a.PrimaryLayer = 2;
    r.S.M.PrimaryLayers[2].Name = "Vent";
    r.S.Row(3).BranchCode |= bc::ExitAtSurface;
    r.Draw();
}

TEST(SelectTool, ClicksAndFencesSetTheBitWhichOutlivesAToolChange) {
    PickRig r;
    r.S.Add(0, 0, 500, 2000, 0, 500); // a long airway whose midpoint is (1000, 0)
    r.S.Add(0, 400, 500, 2000, 400, 500);
    r.Draw();
    // A fence across the line between its ends and midpoint takes nothing.
    r.Drag(cmd::Select, 400, -50, 600, 50);
    EXPECT_FALSE(r.S.Row(1).Has(bc::Selected));
    // A fence round the midpoint alone takes it.
    r.Drag(cmd::Select, 900, -50, 1100, 50);
    EXPECT_TRUE(r.S.Row(1).Has(bc::Selected));
    EXPECT_FALSE(r.S.Row(2).Has(bc::Selected));
    // A click: left sets, right clears.
    r.Click(cmd::Select, 500, 400);
    EXPECT_TRUE(r.S.Row(2).Has(bc::Selected));
    r.Click(cmd::Select, 500, 400, button::Right);
    EXPECT_FALSE(r.S.Row(2).Has(bc::Selected));
    EXPECT_EQ(r.Calls.back(), "RedrawAllWindows");
    // The selection stays through another tool, is drawn white and twice as wide, and Esc ends it.
    r.D.RunToolCommand(cmd::Layers);
    r.Host.Redraw();
    EXPECT_TRUE(r.S.Row(1).Has(bc::Selected));
    EXPECT_EQ(r.S.Ds.Drawn[0].Width, 2 * r.S.M.Set.IconSize[0]);
    EXPECT_NE(r.S.Ds.Drawn[0].LineColour, r.S.Ds.Drawn[1].LineColour);
    EXPECT_EQ(r.S.Ds.Drawn[0].LineColour, display::FixedColour(display::WhiteIndex));
    r.S.M.Set.Colours[3] = Rgb(255, 255, 250); // a light background: the selection turns black
    r.Host.Redraw();
    EXPECT_EQ(r.S.Ds.Drawn[0].LineColour, display::PaletteColour(0));
    r.D.OnKeyDown(key::Escape);
    EXPECT_FALSE(r.S.Row(1).Has(bc::Selected));
    EXPECT_TRUE(r.LogEntries().empty());
}

TEST(AttributeTool, CopyThenPasteWithEveryLineAndNeverTheSurfaceBits) {
    PickRig r;
    BuildThree(r);
    r.Click(cmd::Attributes, 500, 0, button::Right);
    EXPECT_EQ(r.S.Ui.Texts("Message").back(), "The following attributes for branch 1 were copied for future pasting\n"
                                              "Dimension 5 x 6\n"
                                              "Drive Wall Friction Factor: Smooth Blasted Airway\n"
                                              "Shock Value: Low\n"
                                              "Resistance Type: Steel Door\n"
                                              "Length is fixed to  333\n"
                                              "Airway is in fresh air\n"
                                              "Primary Layer = 2 : Vent\n"
                                              "Secondary Layer = 1 : \n"
                                              "Data values will be hidden");
    EXPECT_EQ(r.S.M.Paste.PasteBranchCode & (bc::EntryAtSurface | bc::ExitAtSurface), 0);

    const std::int16_t step = r.Undo.CurrentStep;
    r.Click(cmd::Attributes, 500, 1000);
    EXPECT_EQ(r.S.Ui.Texts("Notice").back(), "Attributes pasted to Branch 3\n"
                                             "Dimension 5 x 6\n"
                                             "Drive Wall Type: Smooth Blasted Airway\n"
                                             "Low\n"
                                             "Resistance Type: Steel Door\n"
                                             "Length is fixed\n"
                                             "Airway is in fresh air\n"
                                             "Primary Layer = 2 : Vent\n"
                                             "Secondary Layer = 1 : \n"
                                             "Data values will be hidden");
    const Airway& b = r.S.Row(3);
    EXPECT_FLOAT_EQ(b.Height, 5);
    EXPECT_FLOAT_EQ(b.Width, 6);
    EXPECT_EQ(b.WallType, 4);
    EXPECT_EQ(b.ShockType, 2);
    EXPECT_EQ(b.ResType, 2);
    EXPECT_FLOAT_EQ(b.Length, 333);
    EXPECT_EQ(b.PrimaryLayer, 2);
    EXPECT_TRUE(b.Has(bc::FixedLength) && b.Has(bc::FreshAir) && b.Has(bc::DataHidden) && b.Has(bc::Rectangular));
    EXPECT_FALSE(b.Has(bc::EntryAtSurface));
    EXPECT_TRUE(b.Has(bc::ExitAtSurface)); // its own surface bit stays
    EXPECT_EQ(r.LogEntries(), (std::vector<std::pair<int, int>>{{step, 2}, {step, 1}}));
    EXPECT_EQ(r.Undo.CurrentStep, step + 1);
}

TEST(AttributeTool, AnEmptyStoreAndAnEmptyMaskHaveTheirOwnWords) {
    PickRig r;
    BuildThree(r);
    r.Click(cmd::Attributes, 500, 500);
    r.Drag(cmd::Attributes, -50, 400, 1050, 1050);
    r.S.M.Set.AttributeMask = -1;
    r.Click(cmd::Attributes, 500, 500, button::Right);
    r.S.M.Set.AttributeMask = attr::All;
    r.Drag(cmd::Attributes, -50, 400, 1050, 1050);
    EXPECT_EQ(r.S.Ui.Texts("Message"),
              (std::vector<std::string>{
                  "Paste attributes must first be copied from an existing branch by using the right mouse button",
                  "Use the right mouse button to copy attributes from an airway first !",
                  "No copy/paste attributes have been selected !", "No copy/paste attributes have been selected !"}));
    EXPECT_TRUE(r.S.Ui.Texts("Ask").empty());
    EXPECT_EQ(r.S.M.Paste.PasteBranchCode, 0);
    EXPECT_TRUE(r.LogEntries().empty());
}

TEST(AttributeTool, CopyToTheDefaultsGoesByShapeThenTheToolPastesAgain) {
    PickRig r;
    BuildThree(r);
    Airway& raise = r.S.Row(2);
    raise.BranchCode = (raise.BranchCode & ~bc::Rectangular) | bc::Circular;
    raise.Height = 0;
    raise.Width = 2.5f;
    raise.WallType = 3;
    raise.PrimaryLayer = 2;
    r.S.M.Set.AttributeMask = attr::Resistance | attr::Length | attr::Air | attr::Secondary | attr::Display;
    const std::int16_t driveWall = r.S.M.Set.DriveWallType;
    r.Click(cmd::AttributesToDefaults, 500, 500);
    EXPECT_EQ(r.S.Ui.Texts("Message").back(), "The following attributes for branch 2 were copied to defaults\n"
                                              "Diameter 2.5\n"
                                              "Raise Wall Type: Raisebored Airway\n"
                                              "None\n"
                                              "Primary Layer = 2 : Vent");
    EXPECT_FLOAT_EQ(r.S.M.Set.RaiseDiameter, 2.5f);
    EXPECT_EQ(r.S.M.Set.RaiseWallType, 3);
    EXPECT_EQ(r.S.M.Set.DriveWallType, driveWall); // a raise sets the raise wall alone
    EXPECT_FLOAT_EQ(r.S.M.Set.DefaultShock, 0);
    EXPECT_EQ(r.S.M.DrawPrimaryLayer, 2);
    EXPECT_EQ(r.S.M.Paste.PasteBranchCode, 0); // the paste store is not touched
    EXPECT_EQ(r.D.State().CommandValue, cmd::Attributes);
    EXPECT_FALSE(r.D.State().CopyToDefaults);
    EXPECT_TRUE(r.LogEntries().empty());
}

TEST(LayerTool, RightCopiesTheDrawLayersLeftAndTheFencePasteThem) {
    PickRig r;
    BuildThree(r);
    r.Click(cmd::Layers, 500, 0, button::Right);
    EXPECT_EQ(r.S.Ui.Texts("Message").back(), "Primary Layer Default = 2 : Vent\nSecondary Layer Default = 1 : ");
    EXPECT_EQ(r.S.M.DrawPrimaryLayer, 2);
    r.Click(cmd::Layers, 500, 500);
    EXPECT_EQ(r.S.Ui.Texts("Notice").back(), "Layers pasted to branch 2");
    EXPECT_EQ(r.S.Row(2).PrimaryLayer, 2);

    r.S.M.DrawSecondaryLayer = 7;
    const std::int16_t step = r.Undo.CurrentStep;
    r.Drag(cmd::Layers, -50, -50, 1050, 1050);
    EXPECT_EQ(r.S.Ui.Texts("Ask"),
              (std::vector<std::string>{"Are you sure you want to change all airway view layers within the fence ?"}));
    EXPECT_EQ(r.S.Ui.Transcript.back().Title, "Fence Tag");
    for (std::int32_t row = 1; row <= 3; ++row) EXPECT_EQ(r.S.Row(row).SecondLayer, 7);
    EXPECT_EQ(r.LogEntries().size(), 2u + 6u);
    EXPECT_EQ(r.LogEntries().back().first, step);
    EXPECT_EQ(r.Undo.CurrentStep, step + 1);
}

} // namespace
} // namespace karvane::edit
