// The DXF export: the true form against its stored drawing, arrows, sizes and units, the screen form with its
// comment block and colours, the options dialog, the export command's messages, and a read of
// the written drawings by an independent DXF reader.
#include <gtest/gtest.h>

#include "exchange/dxf_export.h"
#include "exchange_support.h"
#include "files/text_file.h"
#include "support/golden.h"

using namespace karvane;
using namespace karvane::exchange;
using karvane::testing::ExchangeBench;
using karvane::testing::ExpectGolden;
using karvane::testing::FileLines;

namespace {

// A drive running east with names and a data value, a shaft down from its end, and one
// floating text in view.
void TwoAirways(ExchangeBench& b) {
    Model& m = b.m();
    Airway& drive = b.Add(0, 0, 500, 100, 0, 500);
    drive.BranchName = "Drive A";
    drive.ExitNode = "N2  ";
    drive.BranchCode |= bc::FreshAir;
    drive.Quantity = 12.34f;
    Airway& shaft = b.Add(100, 0, 500, 100, 0, 400);
    shaft.BranchCode |= bc::ExhaustAir;
    b.Settle();
    m.FloatingTexts[1] = {true, "Portal", 10, 20, 510};
    b.Ds->VisibleText = {1};
    b.Ds->View.DataType = 12; // quantity
    b.Ds->View.DisplayOptions = 511;
    m.Set.DxfData = 5, m.Set.DxfNode = 4, m.Set.DxfAirway = 3, m.Set.DxfNodeCircle = 2, m.Set.DxfArrow = 10;
}

int CountOf(const std::vector<std::string>& lines, const std::string& layer) {
    int n = 0;
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2)
        if (lines[i] == "8" && lines[i + 1] == layer) ++n;
    return n;
}

} // namespace

TEST(DxfExport, TrueFormAsStored) {
    ExchangeBench b;
    TwoAirways(b);
    ASSERT_TRUE(ExportDxfTrue(b.m(), *b.Ds, b.Dir.File("out.dxf"), b.ui()));
    EXPECT_TRUE(b.ui().Transcript.empty());
    const std::string bytes = b.Dir.Read("out.dxf");

    // A drive with fresh air, names and its value, its arrow a little short of its middle
    // pointing east; a shaft of exhaust air straight down, its arrow lying flat at its place.
    ASSERT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
    ExpectGolden("two_airways_true.dxf", bytes);
}

TEST(DxfExport, SizesUnitsAndWhatIsLeftOut) {
    ExchangeBench b;
    TwoAirways(b);
    Model& m = b.m();
    auto exported = [&] {
        EXPECT_TRUE(ExportDxfTrue(m, *b.Ds, b.Dir.File("a.dxf"), b.ui()));
        return b.Dir.Read("a.dxf");
    };
    // No arrow size: no arrow lines in the true form; no circle size: no circles. A 3D view
    // writes no floating text; nor does a plan view with floating text hidden.
    m.Set.DxfArrow = 0;
    m.Set.DxfNodeCircle = 0;
    b.Ds->View.Is3D = 1;
    const std::string plain = exported();
    ExpectGolden("two_airways_plain.dxf", plain);
    b.Ds->View.Is3D = 0;
    b.Ds->View.DisplayOptions = 511 & ~256;
    EXPECT_EQ(exported(), plain);

    // British units: every coordinate in feet, the arrow's barbs 10 long in feet as well, the data
    // text DxfData above the middle, not converted, its value in the display unit (kcf/m).
    m.Set.UnitSys = 2;
    m.Set.DxfArrow = 10;
    ExpectGolden("two_airways_feet.dxf", exported());

    // Only the airways of the display list.
    m.Set.UnitSys = 1;
    m.Set.ExportVisibleOnly = true;
    b.Ds->DisplayList = {2};
    ExpectGolden("shaft_only.dxf", exported());
    EXPECT_TRUE(b.ui().Transcript.empty());
}

TEST(DxfExport, ScreenFormFromTheDrawnList) {
    ExchangeBench b;
    TwoAirways(b);
    Model& m = b.m();
    m.Set.DxfArrow = 0; // the screen form writes its arrows all the same
    display::DrawnAirway d1{10.5f, 20.0f, 110.5f, 20.0f, 1, m.Set.Colours[2], 1};
    display::DrawnAirway d2{110.5f, 20.0f, 110.5f, -80.0f, 2, Rgb(1, 2, 3), 1};
    b.Ds->Drawn = {d1, d2};
    b.Ds->VisibleText = {};
    b.ui().Clock = {2026, 3, 4, 7, 8, 9, 3};
    ASSERT_TRUE(ExportDxfScreen(m, *b.Ds, b.Dir.File("s.dxf"), b.ui()));
    // The comment block with the time, then the drawn lines in screen units: y negated, z 0,
    // arrows whatever the arrow size, a colour of none of the eight settings as 7.
    ExpectGolden("two_airways_screen.dxf", b.Dir.Read("s.dxf"));
}

TEST(DxfExport, ScreenColoursTestedInOrderLastMatchStands) {
    Model m = karvane::testing::BuiltInModel();
    const int expected[] = {3, 1, 4, 5, 0, 1, 7, 6};
    for (int k = 0; k < ColourCount; ++k)
        EXPECT_EQ(ScreenDxfColour(m, m.Set.Colours[static_cast<std::size_t>(k)]), expected[k]);
    m.Set.Colours[7] = m.Set.Colours[0];
    EXPECT_EQ(ScreenDxfColour(m, m.Set.Colours[0]), 6);
    EXPECT_EQ(ScreenDxfColour(m, Rgb(9, 9, 9)), 7);
}

TEST(DxfExport, OptionsDialogFillsAndStores) {
    Model m = karvane::testing::BuiltInModel();
    m.Set.FontSize = {0, 7, 8, 9, 10};
    m.Set.DxfData = 0, m.Set.DxfAirway = 0, m.Set.DxfNode = 12, m.Set.DxfFloat = 0;
    m.Set.DxfNodeCircle = 0, m.Set.DxfArrow = 3;
    ExportFields f = FillExport(m);
    EXPECT_EQ(f.TxtData, "7");
    EXPECT_EQ(f.TxtAirway, "8");
    EXPECT_EQ(f.TxtNode, "12");
    EXPECT_EQ(f.TxtFloat, "10");
    EXPECT_EQ(f.TxtNodeCircle, "0");
    EXPECT_EQ(f.TxtArrow, "3");
    EXPECT_FALSE(f.ChkVisible);

    f.TxtData = "4.6mm";
    f.TxtNode = "";
    f.TxtArrow = "abc";
    f.TxtNodeCircle = "99999";
    f.ChkVisible = true;
    ApplyExport(m, f);
    EXPECT_EQ(m.Set.DxfData, 5);
    EXPECT_EQ(m.Set.DxfNode, 0);
    EXPECT_EQ(m.Set.DxfArrow, 0);
    EXPECT_EQ(m.Set.DxfNodeCircle, 32767) << "held to the field's range";
    EXPECT_EQ(m.Set.DxfAirway, 8);
    EXPECT_EQ(m.Set.DxfFloat, 10);
    EXPECT_TRUE(m.Set.ExportVisibleOnly);
}

TEST(DxfExport, CommandMessagesAndFailures) {
    ExchangeBench b;
    TwoAirways(b);
    Model& m = b.m();
    auto& ui = b.ui();

    // No file chosen.
    EXPECT_FALSE(ExportFile(m, *b.Ds, ui, exportkind::DxfTrue));
    EXPECT_EQ(ui.Texts("Message"), std::vector<std::string>{"Error Export File - Check Name"});
    ASSERT_EQ(ui.Transcript.front().Kind, "Save");

    // The options dialog cancelled: nothing written, no message, sizes as they were.
    ui.Transcript.clear();
    ui.FilePaths.push_back(b.Dir.File("x.dxf"));
    EXPECT_FALSE(ExportFile(m, *b.Ds, ui, exportkind::DxfTrue, [](ExportFields& f) {
        f.TxtArrow = "99";
        return false;
    }));
    EXPECT_FALSE(b.Dir.Exists("x.dxf"));
    EXPECT_EQ(m.Set.DxfArrow, 10);
    EXPECT_TRUE(ui.Texts("Message").empty());

    // Through the dialog: its sizes are stored and used.
    ui.FilePaths.push_back(b.Dir.File("x.dxf"));
    EXPECT_TRUE(ExportFile(m, *b.Ds, ui, exportkind::DxfTrue, [](ExportFields& f) {
        f.TxtArrow = "0";
        return true;
    }));
    EXPECT_EQ(m.Set.DxfArrow, 0);
    EXPECT_EQ(CountOf(FileLines(b.Dir.Read("x.dxf")), "Arrow"), 0);

    // A folder that does not exist: the message, and the file that was there stays whole.
    ui.Transcript.clear();
    ui.FilePaths.push_back(b.Dir.File("no/such/folder/x.dxf"));
    EXPECT_FALSE(ExportFile(m, *b.Ds, ui, exportkind::DxfScreen));
    EXPECT_EQ(ui.Texts("Message"), std::vector<std::string>{"Error exporting File"});

    // The text form through the same command.
    ui.Transcript.clear();
    ui.FilePaths.push_back(b.Dir.File("x.txt"));
    EXPECT_TRUE(ExportFile(m, *b.Ds, ui, exportkind::Text));
    EXPECT_EQ(b.Dir.Read("x.txt").substr(0, 3), "X1\t");
    EXPECT_TRUE(ui.Texts("Message").empty());
}

// The drawings Karvane writes, read by an independent DXF library: every line, text and circle
// comes back with its layer, colour and coordinates.
TEST(DxfExport, ReadByAnIndependentReader) {
    const std::string python = karvane::testing::EzdxfPython();
    if (python.empty()) GTEST_SKIP() << "python3-ezdxf is not installed";
    ExchangeBench b;
    TwoAirways(b);
    ASSERT_TRUE(ExportDxfTrue(b.m(), *b.Ds, b.Dir.File("true.dxf"), b.ui()));
    b.Ds->Drawn = {{10.5f, 20.0f, 110.5f, 20.0f, 1, b.m().Set.Colours[1], 1}};
    ASSERT_TRUE(ExportDxfScreen(b.m(), *b.Ds, b.Dir.File("screen.dxf"), b.ui()));

    const char* script = R"PY(
import sys, ezdxf
for path in sys.argv[1:]:
    doc = ezdxf.readfile(path)
    print("FILE")
    for e in doc.modelspace():
        t = e.dxftype()
        if t == "LINE":
            s, n = e.dxf.start, e.dxf.end
            print("LINE %s %d %.4f %.4f %.4f %.4f %.4f %.4f" % (e.dxf.layer, e.dxf.color, s.x, s.y, s.z, n.x, n.y, n.z))
        elif t == "TEXT":
            p = e.dxf.insert
            print("TEXT %s %.4f %.4f %.4f %.1f %s" % (e.dxf.layer, p.x, p.y, p.z, e.dxf.height, e.dxf.text))
        elif t == "CIRCLE":
            p = e.dxf.center
            print("CIRCLE %s %.4f %.4f %.4f %.1f" % (e.dxf.layer, p.x, p.y, p.z, e.dxf.radius))
        else:
            print("OTHER " + t)
)PY";
    const auto out =
        karvane::testing::RunPython(python, b.Dir, script, b.Dir.File("true.dxf") + " " + b.Dir.File("screen.dxf"));
    ASSERT_TRUE(out);
    const std::string want = "FILE\n"
                             "TEXT FLOAT 10.0000 20.0000 510.0000 5.0 Portal\n"
                             "LINE Branch 4 0.0000 0.0000 500.0000 100.0000 0.0000 500.0000\n"
                             "LINE Arrow 4 30.4466 2.9552 500.0000 40.0000 0.0000 500.0000\n"
                             "LINE Arrow 4 40.0000 0.0000 500.0000 30.4466 -2.9552 500.0000\n"
                             "TEXT NNAMES 100.0000 0.0000 500.0000 4.0 N2\n"
                             "TEXT BNAMES 50.0000 0.0000 500.0000 3.0 Drive A\n"
                             "TEXT DATA 50.0000 5.0000 500.0000 5.0 12.3\n"
                             "CIRCLE NODES 100.0000 0.0000 500.0000 2.0\n"
                             "LINE Branch 1 100.0000 0.0000 500.0000 100.0000 0.0000 400.0000\n"
                             "LINE Arrow 1 102.9552 9.5534 460.0000 100.0000 0.0000 460.0000\n"
                             "LINE Arrow 1 100.0000 0.0000 460.0000 97.0448 9.5534 460.0000\n"
                             "TEXT DATA 100.0000 5.0000 450.0000 5.0 0.0\n"
                             "CIRCLE NODES 100.0000 0.0000 400.0000 2.0\n"
                             "FILE\n"
                             "TEXT FLOAT 10.0000 -20.0000 0.0000 5.0 Portal\n"
                             "LINE Branch 1 10.5000 -20.0000 0.0000 110.5000 -20.0000 0.0000\n"
                             "LINE Arrow 1 40.9466 -17.0448 0.0000 50.5000 -20.0000 0.0000\n"
                             "LINE Arrow 1 50.5000 -20.0000 0.0000 40.9466 -22.9552 0.0000\n"
                             "TEXT NNAMES 110.5000 -20.0000 0.0000 4.0 N2\n"
                             "TEXT BNAMES 60.5000 -20.0000 0.0000 3.0 Drive A\n"
                             "TEXT DATA 60.5000 -15.0000 0.0000 5.0 12.3\n"
                             "CIRCLE NODES 110.5000 -20.0000 0.0000 2.0\n";
    EXPECT_EQ(*out, want);
}
