// The surfaces of the core: box mapping and text measure, and the SVG picture of a drawing.
#include <gtest/gtest.h>

#include "display/mapped_surface.h"
#include "display/renderer.h"
#include "display/svg_surface.h"
#include "display/symbols.h"
#include "display_support.h"
#include "support/golden.h"

namespace karvane::display {
namespace {

TEST(Surfaces, BoxMappingAndTextMeasure) {
    NullSurface s(800, 600);
    s.SetCoordinateBox(-100, -75, 200, 150);
    EXPECT_DOUBLE_EQ(s.PixelX(-100), 0);
    EXPECT_DOUBLE_EQ(s.PixelX(100), 800);
    EXPECT_DOUBLE_EQ(s.PixelY(0), 300);
    s.SetFontSize(12);
    // 16 pixels of font; "F" is 0.611 em wide: 9.776 pixels, 2.444 window units.
    EXPECT_NEAR(s.TextWidth("F"), 2.444, 1e-3);
    EXPECT_NEAR(s.TextHeight("F"), 16 * 1.15 / 4, 1e-4);
    s.SetFontBold(true);
    EXPECT_GT(s.TextWidth("F"), 2.444f);
    // A box without size is refused: the mapping stays usable.
    s.SetCoordinateBox(0, 0, 0, 10);
    EXPECT_DOUBLE_EQ(s.PixelX(100), 800);
    for (int k = 0; k < sym::Count; ++k) {
        EXPECT_FALSE(SymbolPicture(k).empty()) << k;
        EXPECT_FALSE(SymbolName(k).empty());
    }
    EXPECT_EQ(SymbolName(sym::Fan), "FanBig");
    EXPECT_TRUE(SymbolPicture(sym::Count).empty());
}

TEST(Surfaces, SvgOfADrawing) {
    testing::Scene s;
    const auto row = s.Add(0, 0, 490, 100, 0, 490);
    s.Add(100, 0, 490, 100, 80, 490);
    s.Row(row).BranchName = "Drive <A & B>";
    s.Row(row).FanNumber = 2;
    s.Row(row).NoOfFans = 1;
    s.Row(row).BranchCode |= bc::InView;
    s.Refresh();
    SetViewBox(s.Ds, 200, 150, 50, 0);
    SvgSurface svg(800, 600);
    RedrawWindow(s.M, s.Ds, svg, s.Ui);
    // The two airways in one path of their colour, the name escaped, the fan's picture defined once.
    karvane::testing::ExpectGolden("svg_drawing.svg", svg.Document());
    // Bytes of names beyond ASCII become character references.
    SvgSurface text(10, 10);
    text.SetFontSize(8);
    text.PrintText(std::string("Stope \xE9"));
    EXPECT_NE(text.Document().find("Stope &#233;</text>"), std::string::npos);
}

} // namespace
} // namespace karvane::display
