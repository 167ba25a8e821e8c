// The import: text rows and their units, coordinate clipping, offsets and negation, the
// finishing of new rows, both ways of building levels with their question, merge and replace,
// the DXF entities from hand-made drawings, round trips through both exports, and bad files.
#include <gtest/gtest.h>

#include "exchange/dxf_export.h"
#include "exchange/import.h"
#include "exchange/text_export.h"
#include "exchange_support.h"
#include "model/level_list.h"
#include "support/golden.h"

using namespace karvane;
using namespace karvane::exchange;
using karvane::testing::AllEnds;
using karvane::testing::CrLf;
using karvane::testing::Ends;
using karvane::testing::EndsOf;
using karvane::testing::ExchangeBench;
using karvane::testing::ExpectGolden;
using karvane::testing::RowsText;

namespace {

std::string Fixture(const char* name) { return std::string(KARVANE_TEST_DATA) + "/" + name; }

const std::string Heading =
    "X1\tY1\tZ1\tX2\tY2\tZ2\tQUANTITY\tRESISTANCE\tFAN TYPE\tNO FANS\tBRANCH NAME\tENTRY NODE\tEXIT NODE\tHEIGHT\t"
    "WIDTH/DIAM\tAirway No";

// A text row of sixteen fields.
std::string Row(const std::string& coords, const std::string& rest = "0\t0\t0\t0\tA\tB\tC\t0\t0\t1") {
    return coords + "\t" + rest;
}

std::vector<std::string> LevelNames(const Model& m) {
    std::vector<std::string> out;
    for (int r = 1; r <= LevelCount(m); ++r) {
        const LevelRecord& l = m.Levels[static_cast<std::size_t>(r)];
        out.push_back(l.RLName + " " + std::to_string(l.RLMax) + " " + std::to_string(l.RLMin));
    }
    return out;
}

} // namespace

TEST(TextImport, ColumnsUnitsAndNumbering) {
    ExchangeBench b;
    Model& m = b.m();
    m.Set.UnitSys = 2;
    m.Set.LastAirwayNo = 40;
    b.Dir.Write("in.txt", CrLf({Heading,
                                " 328.084 \t 0 \t 1640.42 \t 656.168 \t 0 \t 1640.42 \t 21.189 \t 0.8953 \t 3 \t 2 \t"
                                "Drive A    \t N1 \tN2    \t 13.12336 \t 16.4042 \t 77 ",
                                "", Row("656,168\t0\t1640,42\t656.168\t328.084\t1312.336")}));
    ImportReport report;
    ASSERT_TRUE(ImportFile(m, b.ui(), b.Dir.File("in.txt"), {}, &report));
    EXPECT_TRUE(b.ui().Transcript.empty());
    ASSERT_EQ(m.AirwayCount, 2);
    EXPECT_EQ(report.RowsRead, 2);
    EXPECT_TRUE(report.ReadToEnd);
    // Feet to metres, names trimmed, both decimal separators read; a replaced network numbers
    // its airways from 1.
    ExpectGolden("imported_text_columns.txt", RowsText(m));
    EXPECT_EQ(m.Set.LastAirwayNo, 2);
    EXPECT_EQ(m.NetworkSaved, No0);
}

TEST(TextImport, ClippingOffsetsAndNegation) {
    ExchangeBench b;
    Model& m = b.m();
    b.Dir.Write("in.txt",
                CrLf({Heading, Row("123456789\t20\t-30\t12345678\t20\t-40"), Row("9999999\t0\t10\t5\t5\t10")}));
    ImportFields f;
    f.TxtXOffset = "100";
    f.TxtYOffset = "-20.4";
    f.TxtZOffset = "junk";
    f.NegX = true;
    f.NegZ = true;
    ASSERT_TRUE(ImportFile(m, b.ui(), b.Dir.File("in.txt"), f));
    // The message comes the first time only; the cut is before the offset, so that the offset can
    // take a value past the limit again.
    EXPECT_EQ(b.ui().Texts("Message"),
              std::vector<std::string>{"Coordinate data exceeds 9999999 - it will be truncated to fit Karvane limits"});
    EXPECT_EQ(EndsOf(m.Airways[1]), (Ends{-3456889, 0, 30, -2345778, 0, 40}));
    EXPECT_EQ(EndsOf(m.Airways[2]), (Ends{-10000099, -20, -10, -105, -15, -10}));

    // In British units the offset is in feet.
    ExchangeBench c;
    c.m().Set.UnitSys = 2;
    c.Dir.Write("in.txt", CrLf({Heading, Row("0\t0\t0\t328.084\t0\t0")}));
    ImportFields g;
    g.TxtXOffset = "32.8084";
    ASSERT_TRUE(ImportFile(c.m(), c.ui(), c.Dir.File("in.txt"), g));
    EXPECT_EQ(EndsOf(c.m().Airways[1]), (Ends{10, 0, 0, 110, 0, 0}));
}

TEST(Import, FinishingOfNewRows) {
    ExchangeBench b;
    Model& m = b.m();
    Settings& s = m.Set;
    s.DriveHeight = 3.5f, s.DriveWidth = 4.5f, s.RaiseDiameter = 2.4f, s.DefaultShock = 3;
    s.DriveWallType = 7, s.RaiseWallType = 9;
    m.Preset.ShockPreset[3] = 12.5f;
    m.Preset.WallPreset[4] = 0.012f;
    m.DrawPrimaryLayer = 5;
    m.DrawSecondaryLayer = 30;
    // A drive, an inclined drive not steep enough to be a raise, a raise, a drive with a fan and
    // sizes of its own, and a vertical raise; every resistance of the file is to be retained.
    b.Dir.Write("in.txt", CrLf({Heading, Row("0\t0\t500\t100\t0\t500", "0\t2.5\t0\t0\tA\tB\tC\t0\t0\t1"),
                                Row("0\t0\t500\t100\t0\t434", "0\t2.5\t0\t0\tA\tB\tC\t0\t0\t1"),
                                Row("0\t0\t500\t10\t0\t400", "0\t2.5\t0\t0\tA\tB\tC\t0\t0\t1"),
                                Row("0\t0\t400\t50\t0\t400", "0\t7.5\t2\t1\tA\tB\tC\t3\t6\t1"),
                                Row("0\t0\t400\t0\t0\t300", "0\t9.25\t0\t0\tA\tB\tC\t0\t0\t1")}));
    ImportFields f;
    f.ChkRDrive = true;
    f.ChkRRaise = true;
    ASSERT_TRUE(ImportFile(m, b.ui(), b.Dir.File("in.txt"), f));
    // A drive keeps the resistance of the file; 66 down over 100 along is no raise; the shape
    // decides before the fan bit is added; every row takes the friction and shock presets and the
    // drawing layers.
    ExpectGolden("imported_finished_rows.txt", RowsText(m));

    // Common size: the steep one is a drive too, a width alone a diameter. Area entry: perimeter
    // and area.
    ExchangeBench c;
    c.m().Set.UseArea = -1;
    c.Dir.Write("in.txt", CrLf({Heading, Row("0\t0\t500\t10\t0\t400"),
                                Row("0\t0\t500\t10\t0\t400", "0\t0\t0\t0\tA\tB\tC\t0\t3\t1")}));
    ImportFields g;
    g.ChkSize = true;
    ASSERT_TRUE(ImportFile(c.m(), c.ui(), c.Dir.File("in.txt"), g));
    ExpectGolden("imported_common_size.txt", RowsText(c.m()));
}

TEST(Import, LevelsSpanningTheImport) {
    ExchangeBench b;
    Model& m = b.m();
    b.Dir.Write("in.txt", CrLf({Heading, Row("0\t0\t480\t10\t0\t480"), Row("10\t0\t480\t10\t0\t300"),
                                Row("10\t0\t300\t40\t0\t300")}));
    ImportReport report;
    ASSERT_TRUE(ImportFile(m, b.ui(), b.Dir.File("in.txt"), {}, &report));
    EXPECT_EQ(report.ImportZMax, 480);
    EXPECT_EQ(report.ImportZMin, 300);
    EXPECT_EQ(LevelNames(m), (std::vector<std::string>{"Surface 490 490", "Import Level 480 300"}));
    EXPECT_EQ(report.CurrentLevel, 2);
    EXPECT_EQ(m.CurrentRLMax, 480);
    EXPECT_EQ(m.CurrentRLMin, 300);
    EXPECT_NE(m.Airways[1].EntryKey, SurfaceKey);

    // Merged behind a network whose surface lies above the import: its surface stays.
    b.Dir.Write("more.txt", CrLf({Heading, Row("0\t0\t200\t10\t0\t200")}));
    ImportFields f;
    f.ChkMerge = true;
    ASSERT_TRUE(ImportFile(m, b.ui(), b.Dir.File("more.txt"), f, &report));
    EXPECT_EQ(m.AirwayCount, 4);
    EXPECT_EQ(report.FirstNewRow, 4);
    EXPECT_EQ(LevelNames(m),
              (std::vector<std::string>{"Surface 490 490", "Import Level 480 300", "Import Level 200 200"}));
    EXPECT_EQ(m.Airways[4].AirwayNo, 4);

    // An import that reaches the surface level: the surface moves above it.
    b.Dir.Write("high.txt", CrLf({Heading, Row("0\t0\t495\t10\t0\t495")}));
    ASSERT_TRUE(ImportFile(m, b.ui(), b.Dir.File("high.txt"), f));
    EXPECT_EQ(m.Levels[1].RLName, "Surface");
    EXPECT_EQ(m.Levels[1].RLMax, 505);
}

TEST(Import, LevelsByHeightWithTheSurfaceQuestion) {
    // A shaft from the surface at 500, a drive at 0, a raise down to -150 and one back up.
    const std::string rows = CrLf({Heading, Row("0\t0\t500\t10\t0\t0"), Row("10\t0\t0\t90\t0\t0"),
                                   Row("90\t0\t0\t90\t0\t-150"), Row("0\t0\t0\t0\t50\t500")});
    ImportFields f;
    f.ChkRL = true;

    // Yes: the highest level is the surface.
    ExchangeBench b;
    b.Dir.Write("in.txt", rows);
    b.ui().Answers = {ui::Answer::Yes};
    ASSERT_TRUE(ImportFile(b.m(), b.ui(), b.Dir.File("in.txt"), f));
    ASSERT_EQ(b.ui().Transcript.size(), 1u);
    EXPECT_EQ(b.ui().Transcript[0].Title, "Surface Level");
    EXPECT_EQ(b.ui().Transcript[0].Text, "Place highest RL data on surface level?");
    EXPECT_EQ(LevelNames(b.m()), (std::vector<std::string>{"Surface 500 500", "Level 0 0 0", "Level -150 -150 -150"}));
    EXPECT_EQ(b.m().Airways[1].EntryKey, SurfaceKey) << "the top level lies on the surface";

    // No: the surface ten above the highest level, which stays a level of its own.
    ExchangeBench c;
    c.Dir.Write("in.txt", rows);
    c.ui().Answers = {ui::Answer::No};
    ASSERT_TRUE(ImportFile(c.m(), c.ui(), c.Dir.File("in.txt"), f));
    EXPECT_EQ(LevelNames(c.m()), (std::vector<std::string>{"Surface 510 510", "Level 500 500 500", "Level 0 0 0",
                                                           "Level -150 -150 -150"}));
    EXPECT_NE(c.m().Airways[1].EntryKey, SurfaceKey);
    EXPECT_EQ(c.m().CurrentRLMax, 500);
}

TEST(Import, LevelsByHeightAtTheirLimits) {
    ExchangeBench b;
    std::vector<std::string> lines{Heading};
    for (int k = 0; k < 300; ++k) lines.push_back(Row("0\t0\t0\t5\t0\t" + std::to_string(-k)));
    lines.push_back(Row("0\t0\t0\t5\t5\t9999999"));
    lines.push_back(Row("0\t0\t0\t5\t5\t-20000000"));
    std::string text;
    for (const std::string& l : lines) text += l + "\r\n";
    b.Dir.Write("in.txt", text);
    ImportFields f;
    f.ChkRL = true;
    f.TxtZOffset = "1";
    b.ui().Answers = {ui::Answer::No};
    ASSERT_TRUE(ImportFile(b.m(), b.ui(), b.Dir.File("in.txt"), f));
    EXPECT_EQ(b.ui().Texts("Message"),
              (std::vector<std::string>{"Maximum number of different RL's used!", "Node exceeds Maximum RL Limits",
                                        "Node exceeds Minimum RL Limits"}));
    EXPECT_EQ(LevelCount(b.m()), LevelRowsInFile);
    EXPECT_EQ(b.m().Levels[2].RLMax, 1);
}

TEST(Import, ReplaceOrMerge) {
    ExchangeBench b;
    Model& m = b.m();
    b.Add(0, 0, 480, 100, 0, 480).BranchName = "Old";
    b.Add(100, 0, 480, 200, 0, 480);
    b.Settle();
    m.FileName = "/somewhere/old.sim";
    m.Set.LastAirwayNo = 12;
    m.PrimaryLayers[2].Name = "Intake";
    b.Dir.Write("in.dxf",
                CrLf({"0", "LINE", "10", "5", "20", "5", "30", "100", "11", "9", "21", "5", "31", "100", "0", "EOF"}));

    // Merge: the network stays, the new airways numbered behind the highest number.
    ImportFields f;
    f.ChkMerge = true;
    ASSERT_TRUE(ImportFile(m, b.ui(), b.Dir.File("in.dxf"), f));
    ASSERT_EQ(m.AirwayCount, 3);
    EXPECT_EQ(m.Airways[1].BranchName, "Old");
    EXPECT_EQ(m.Airways[3].AirwayNo, 13);
    EXPECT_EQ(m.FileName, "/somewhere/old.sim");
    EXPECT_EQ(m.PrimaryLayers[2].Name, "Intake");

    // Replace: only the drawing's airway, a new unsaved network.
    ASSERT_TRUE(ImportFile(m, b.ui(), b.Dir.File("in.dxf"), {}));
    ASSERT_EQ(m.AirwayCount, 1);
    EXPECT_EQ(EndsOf(m.Airways[1]), (Ends{5, 5, 100, 9, 5, 100}));
    EXPECT_EQ(m.Airways[1].AirwayNo, 1);
    EXPECT_EQ(m.FileName, "");
    EXPECT_EQ(m.PrimaryLayers[2].Name, "");
    EXPECT_TRUE(b.ui().Transcript.empty());
}

TEST(DxfImport, EveryEntityKind) {
    struct Case {
        const char* File;
        std::vector<Ends> Rows;
    };
    const std::vector<Case> cases{
        {"import_lines.dxf", {{0, 0, 500, 100, 0, 500}, {100, 0, 500, 101, 80, 500}, {101, 80, 500, 101, 80, 400}}},
        {"import_polylines.dxf",
         {{0, 0, 500, 40, 0, 490}, {40, 0, 490, 40, 40, 480}, {40, 40, 480, 0, 40, 470}, {200, 0, 350, 300, 0, 350}}},
        {"import_lwpolylines.dxf", {{0, 0, 300, 50, 0, 300}, {50, 0, 300, 50, 60, 300}, {0, 0, 250, 0, -30, 250}}},
        {"import_bare_lf.dxf", {{10, 20, 100, 30, 20, 100}, {30, 20, 100, 30, 60, 100}}},
        // The screen export's own drawing: its lines alone, arrows among them.
        {"import_screen.dxf", {{0, -10, 0, 40, -10, 0}, {6, -13, 0, 16, -10, 0}}},
    };
    for (const Case& c : cases) {
        ExchangeBench b;
        ASSERT_TRUE(ImportFile(b.m(), b.ui(), Fixture(c.File), {})) << c.File;
        EXPECT_EQ(AllEnds(b.m()), c.Rows) << c.File;
        EXPECT_TRUE(b.ui().Transcript.empty()) << c.File << ": " << b.ui().Transcript.front().Text;
    }
}

TEST(DxfImport, TrueExportReadsBackAsTheSameNetwork) {
    ExchangeBench b;
    Model& m = b.m();
    b.Add(0, 0, 480, 100, 0, 480).BranchName = "A";
    b.Add(100, 0, 480, 100, 0, 380).ExitNode = "Bottom";
    b.Add(100, 0, 380, -250, 35, 380);
    b.Add(-250, 35, 380, -250, 35, 480);
    b.Settle();
    m.Set.DxfArrow = 0;
    m.Set.DxfNodeCircle = 3;
    for (std::int16_t unitSys : {std::int16_t{1}, std::int16_t{2}}) {
        m.Set.UnitSys = unitSys;
        ASSERT_TRUE(ExportDxfTrue(m, *b.Ds, b.Dir.File("net.dxf"), b.ui()));
        ExchangeBench c;
        c.m().Set.UnitSys = unitSys;
        ASSERT_TRUE(ImportFile(c.m(), c.ui(), b.Dir.File("net.dxf"), {}));
        EXPECT_EQ(AllEnds(c.m()), AllEnds(m)) << unitSys;
    }
}

TEST(Import, BadFilesLeaveTheNetworkAsItWas) {
    ExchangeBench b;
    Model& m = b.m();
    b.Add(0, 0, 480, 100, 0, 480).BranchName = "Keep";
    b.Settle();
    auto& ui = b.ui();
    auto unchanged = [&](const char* what) {
        EXPECT_EQ(m.AirwayCount, 1) << what;
        EXPECT_EQ(m.Airways[1].BranchName, "Keep") << what;
    };

    EXPECT_FALSE(ImportFile(m, ui, b.Dir.File("missing.dxf"), {}));
    EXPECT_EQ(ui.Texts("Message"), std::vector<std::string>{"ERROR 53: That file doesn't exist."});
    unchanged("missing");

    ui.Transcript.clear();
    b.Dir.Write("net.sim", "3.1 KARVANE3\r\n");
    EXPECT_FALSE(ImportFile(m, ui, b.Dir.File("net.sim"), {}));
    EXPECT_EQ(ui.Texts("Message"), std::vector<std::string>{ImportKindText});
    unchanged("kind");

    for (const char* bytes : {"", "0\r\nSECTION\r\n2\r\nENTITIES\r\n0\r\nCIRCLE\r\n10\r\n1\r\n0\r\nEOF\r\n",
                              "\x01\x02\xff\r\n\x7f", "0\r\nLINE"}) {
        ui.Transcript.clear();
        b.Dir.Write("empty.dxf", bytes);
        EXPECT_FALSE(ImportFile(m, ui, b.Dir.File("empty.dxf"), {}));
        EXPECT_EQ(ui.Texts("Message"), std::vector<std::string>{"No airways were found in " + b.Dir.File("empty.dxf") +
                                                                " - nothing was changed"});
        unchanged("empty");
    }
    ui.Transcript.clear();
    b.Dir.Write("heading.txt", Heading + "\r\n");
    EXPECT_FALSE(ImportFile(m, ui, b.Dir.File("heading.txt"), {}));
    unchanged("heading only");
}

TEST(Import, FaultsAskOnceAndNoKeepsWhatWasRead) {
    const std::string faulty =
        CrLf({Heading, Row("0\t0\t0\t10\t0\t0"), "5\t5\t5", Row("1\t2\t3\tfour\t5\t6"), Row("20\t0\t0\t30\t0\t0")});
    // Yes: the short row and the bad number are read as far as they go, and the rest follows.
    ExchangeBench b;
    b.Dir.Write("in.txt", faulty);
    b.ui().Answers = {ui::Answer::Yes};
    ASSERT_TRUE(ImportFile(b.m(), b.ui(), b.Dir.File("in.txt"), {}));
    ASSERT_EQ(b.ui().Transcript.size(), 1u);
    EXPECT_EQ(b.ui().Transcript[0].Title, "Import Error");
    EXPECT_EQ(b.ui().Transcript[0].Text, "Error Loading Data - Do you wish to continue loading ?");
    EXPECT_EQ(b.m().AirwayCount, 4);
    EXPECT_EQ(EndsOf(b.m().Airways[2]), (Ends{5, 5, 5, 0, 0, 0}));

    // No: the rows before the fault are imported and finished.
    ExchangeBench c;
    c.Dir.Write("in.txt", faulty);
    c.ui().Answers = {ui::Answer::No};
    ImportReport report;
    ASSERT_TRUE(ImportFile(c.m(), c.ui(), c.Dir.File("in.txt"), {}, &report));
    EXPECT_FALSE(report.ReadToEnd);
    ASSERT_EQ(c.m().AirwayCount, 1);
    EXPECT_EQ(c.m().Airways[1].BranchCode, bc::Rectangular);

    // A drawing with a garbled group code and a coordinate that is no number.
    ExchangeBench d;
    d.Dir.Write("in.dxf", CrLf({"0", "LINE", "10", "1", "11",   "9",  "0", "LINE", "X0", "5", "10",
                                "x", "11",   "7",  "0", "LINE", "10", "2", "11",   "3",  "0", "EOF"}));
    d.ui().Answers = {ui::Answer::Yes};
    ASSERT_TRUE(ImportFile(d.m(), d.ui(), d.Dir.File("in.dxf"), {}));
    EXPECT_EQ(d.ui().Texts("Ask").size(), 1u);
    EXPECT_EQ(AllEnds(d.m()), (std::vector<Ends>{{1, 0, 0, 9, 0, 0}, {0, 0, 0, 7, 0, 0}, {2, 0, 0, 3, 0, 0}}));
    ExchangeBench e;
    e.Dir.Write("in.dxf", d.Dir.Read("in.dxf"));
    e.ui().Answers = {ui::Answer::No};
    ASSERT_TRUE(ImportFile(e.m(), e.ui(), e.Dir.File("in.dxf"), {}));
    EXPECT_EQ(AllEnds(e.m()), (std::vector<Ends>{{1, 0, 0, 9, 0, 0}}));
}

TEST(Import, TableCapacity) {
    // A drawing stops one row short of the table, text at its last row.
    std::string dxf, text = Heading + "\r\n";
    for (std::int32_t k = 0; k <= MaxAirways; ++k) {
        const std::string x = std::to_string(k);
        dxf += "0\r\nLINE\r\n10\r\n" + x + "\r\n11\r\n" + x + "\r\n21\r\n1\r\n";
        text += x + "\t0\t0\t" + x + "\t1\t0\t0\t0\t0\t0\t\t\t\t0\t0\t0\r\n";
    }
    for (const char* name : {"big.dxf", "big.txt"}) {
        ExchangeBench b;
        b.Dir.Write(name, name[4] == 'd' ? dxf : text);
        b.ui().DefaultAnswer = ui::Answer::Yes;
        ASSERT_TRUE(ImportFile(b.m(), b.ui(), b.Dir.File(name), {}));
        EXPECT_EQ(b.ui().Texts("Message"), std::vector<std::string>{"Data exceeds maximum number of nodes!"});
        EXPECT_EQ(b.m().AirwayCount, name[4] == 'd' ? MaxAirways - 1 : MaxAirways) << name;
    }
}

// Drawings written by an independent DXF library: lines, 2D and 3D polylines, and lightweight
// polylines with an elevation.
TEST(DxfImport, DrawingsOfAnIndependentWriter) {
    const std::string python = karvane::testing::EzdxfPython();
    if (python.empty()) GTEST_SKIP() << "python3-ezdxf is not installed";
    ExchangeBench b;
    const char* script = R"PY(
import sys, ezdxf
for version in ("R12", "R2000"):
    doc = ezdxf.new(version)
    msp = doc.modelspace()
    msp.add_line((0, 0, 500), (120.4, 0, 500), dxfattribs={"layer": "DRIVES", "color": 3})
    msp.add_polyline3d([(120, 0, 500), (120, 60, 480), (150, 60, 470)])
    msp.add_polyline2d([(0, 100), (50, 100), (50, 150)], dxfattribs={"elevation": (0, 0, 350)})
    if version != "R12":
        msp.add_lwpolyline([(0, 0), (0, -40), (0, -40), (30, -40)], dxfattribs={"elevation": 250})
    msp.add_circle((5, 5), 2)
    msp.add_text("Portal", dxfattribs={"insert": (1, 1)})
    doc.saveas(sys.argv[1] + "/" + version + ".dxf")
)PY";
    ASSERT_TRUE(karvane::testing::RunPython(python, b.Dir, script, b.Dir.Path.string()));
    const std::vector<Ends> common{{0, 0, 500, 120, 0, 500},
                                   {120, 0, 500, 120, 60, 480},
                                   {120, 60, 480, 150, 60, 470},
                                   {0, 100, 350, 50, 100, 350},
                                   {50, 100, 350, 50, 150, 350}};
    for (const char* version : {"R12", "R2000"}) {
        ExchangeBench c;
        ASSERT_TRUE(ImportFile(c.m(), c.ui(), b.Dir.File(std::string(version) + ".dxf"), {})) << version;
        std::vector<Ends> want = common;
        if (std::string(version) == "R2000") {
            want.push_back({0, 0, 250, 0, -40, 250});
            want.push_back({0, -40, 250, 30, -40, 250});
        }
        EXPECT_EQ(AllEnds(c.m()), want) << version;
        EXPECT_TRUE(c.ui().Transcript.empty()) << version;
    }
}

TEST(Import, OpenDialogs) {
    ui::ScriptedUserInterface ui;
    EXPECT_FALSE(ChooseImportFile(ui, true));
    ui.FilePaths.push_back("/x/a.txt");
    EXPECT_EQ(ChooseImportFile(ui, false), std::optional<std::string>("/x/a.txt"));
    EXPECT_EQ(ui.Texts("Open"), (std::vector<std::string>{"Data Files (*.DXF)|*.DXF|All Filese (*.*)|*.*",
                                                          "Data Files (*.TXT)|*.TXT|All Filese (*.*)|*.*"}));
}
