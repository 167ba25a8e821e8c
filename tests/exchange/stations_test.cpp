// Real-time stations: the logger's data file, half-written lines and station numbers out of
// range, the labels and alarms the views show, the flows a station sets, a resimulation around
// a measured flow, the results file line by line, and the two station dialogs.
#include <gtest/gtest.h>

#include "exchange/stations.h"
#include "exchange/text_export.h"
#include "exchange_support.h"
#include "files/text_file.h"

using namespace karvane;
using namespace karvane::exchange;
using karvane::testing::CrLf;
using karvane::testing::ExchangeBench;

namespace {

// Counts redraws; each one asks the station labels of every airway, as the renderer does, and
// keeps the lines of the last one.
struct Views : StationHooks {
    Model* M = nullptr;
    StationMonitor* Monitor = nullptr;
    bool BusyNow = false;
    int Redraws = 0;
    std::vector<std::vector<display::StationLabelLine>> Lines;
    bool Busy() override { return BusyNow; }
    void RedrawViews() override {
        ++Redraws;
        Lines.clear();
        if (!Monitor || !Monitor->Active()) return;
        for (std::int32_t r = 1; r <= M->AirwayCount; ++r)
            if (M->Airways[static_cast<std::size_t>(r)].RemoteStation != 0) Lines.push_back(Monitor->LabelLines(*M, r));
    }
};

Station& StationNo(Model& m, int s) { return m.Stations.Stations[static_cast<std::size_t>(s)]; }

std::vector<std::string> TextsOf(const std::vector<display::StationLabelLine>& lines) {
    std::vector<std::string> out;
    for (const auto& l : lines) out.push_back(l.Text);
    return out;
}

} // namespace

TEST(StationFile, ReadingsAndTheirEdges) {
    ExchangeBench b;
    Model& m = b.m();
    StationNo(m, 4).ChannelValue = {0, 7, 7, 7, 7, 7};
    b.Dir.Write("logger.rem", CrLf({"Stn\tLocation\tTime\tFlow\tVel\tCO\tTemp\tDust", "units line",
                                    "4\tLevel 2 east\t10:15:00\t12.5\t-3.6\t13.5\t1e2\t7", "0\ta\tb\t1\t1\t1\t1\t1",
                                    "51\ta\tb\t1\t1\t1\t1\t1", "x\ta\tb\t1\t1\t1\t1\t1", "2.5\ta\tb\t1\t1\t1\t1\t1",
                                    "9\tShaft\t10:16:00\t44\t1,4", "7"}));
    std::array<std::string, 6> heading{};
    ASSERT_EQ(ReadStationFile(m, b.Dir.File("logger.rem"), heading), files::err::None);
    EXPECT_EQ(heading, (std::array<std::string, 6>{"", "Flow", "Vel", "CO", "Temp", "Dust"}));
    const Station& s4 = StationNo(m, 4);
    EXPECT_EQ(s4.StationText[1], "Level 2 east");
    EXPECT_EQ(s4.StationText[2], "10:15:00");
    EXPECT_EQ(s4.ChannelValue, (std::array<std::int32_t, 6>{0, 12, -4, 14, 100, 7})) << "rounded half to even";
    // A line still being written keeps the readings it does not reach.
    StationNo(m, 9).ChannelValue = {0, 1, 2, 3, 4, 5};
    ASSERT_EQ(ReadStationFile(m, b.Dir.File("logger.rem"), heading), files::err::None);
    EXPECT_EQ(StationNo(m, 9).ChannelValue, (std::array<std::int32_t, 6>{0, 44, 1, 3, 4, 5}));
    EXPECT_EQ(StationNo(m, 7).StationText[1], "");
    for (int s : {1, 2, 3, 5, 50}) EXPECT_EQ(StationNo(m, s).ChannelValue[1], 0) << s;

    EXPECT_EQ(ReadStationFile(m, b.Dir.File("none.rem"), heading), files::err::FileNotFound);
    b.Dir.Write("empty.rem", "");
    EXPECT_EQ(ReadStationFile(m, b.Dir.File("empty.rem"), heading), files::err::FileNotFound);
}

TEST(StationLabels, NamesValuesAndAlarms) {
    ExchangeBench b;
    Model& m = b.m();
    b.Add(0, 0, 500, 100, 0, 500).RemoteStation = 3;
    b.Add(100, 0, 500, 200, 0, 500).RemoteStation = 5;
    b.Add(200, 0, 500, 300, 0, 500);
    Station& st = StationNo(m, 3);
    st.StationName = "East fan";
    st.StationText[2] = "10:15:00";
    st.ChannelName = {"", "Methane", "Temp", "Dust", "CO", ""};
    st.ChannelAbbrev = {"", "CH4", "T", "D", "", "X"};
    st.ChannelUnits = {"", "%", " C", "", "", ""};
    st.ChannelFactor = {0, 0.01f, 0.1f, 1, 1, 1};
    st.ChannelValue = {0, 150, 300, 40, 99, 0};
    st.AlarmLow = {0, 0, 30, 0, 0, 0};
    st.AlarmHigh = {0, 1, 0, 40, 50, 0};
    StationNo(m, 5).StationName = "Bare";
    m.Stations.AlarmsOn = -1;
    m.Stations.InputActive = true;

    StationMonitor monitor(m, ',');
    int beeps = 0;
    monitor.Beep = [&beeps] { ++beeps; };
    const auto lines = monitor.LabelLines(m, 1);
    EXPECT_EQ(TextsOf(lines),
              (std::vector<std::string>{"   East fan 10:15:00", "CH4  1,5%", "T  30,0 C", "D  40,0", "X  0,0"}));
    EXPECT_EQ(lines[0].TextColour, Rgb(255, 255, 255));
    EXPECT_EQ(lines[1].TextColour, Rgb(0, 0, 255)) << "1.5 above the high limit of 1";
    EXPECT_EQ(lines[2].TextColour, m.Set.Colours[5]) << "exactly at the low limit: no alarm";
    EXPECT_EQ(lines[3].TextColour, m.Set.Colours[5]) << "exactly at the high limit: no alarm";
    EXPECT_EQ(ChannelAlarm(m, 3, 4), Alarm::High) << "a channel without abbreviation still alarms";
    EXPECT_EQ(beeps, 0) << "only the redraw after a reading sounds";
    monitor.AlarmSoundAllowed = true;
    monitor.LabelLines(m, 1);
    EXPECT_EQ(beeps, 2);
    st.ChannelValue[2] = 299;
    EXPECT_EQ(ChannelAlarm(m, 3, 2), Alarm::Low);

    // Alarms off: plain colours, no sound.
    m.Stations.AlarmsOn = 0;
    beeps = 0;
    const auto quiet = monitor.LabelLines(m, 1);
    EXPECT_EQ(quiet[1].TextColour, m.Set.Colours[5]);
    EXPECT_EQ(beeps, 0);

    // A station without abbreviations shows its name; an airway without a station nothing.
    EXPECT_EQ(TextsOf(monitor.LabelLines(m, 2)), (std::vector<std::string>{"   Bare"}));
    EXPECT_TRUE(monitor.LabelLines(m, 3).empty());
    m.Airways[3].RemoteStation = 77;
    EXPECT_TRUE(monitor.LabelLines(m, 3).empty());
    EXPECT_TRUE(monitor.Active());
}

TEST(StationLabels, FlowsSetByAStation) {
    ExchangeBench b;
    Model& m = b.m();
    Airway& rect = b.Add(0, 0, 500, 100, 0, 500);
    rect.Height = 2;
    rect.Width = 5;
    Airway& round = b.Add(0, 0, 500, 0, 100, 500);
    round.BranchCode = bc::Circular;
    round.Width = 2;
    round.Height = 0;
    Airway& area = b.Add(0, 0, 500, 0, -100, 500);
    area.BranchCode = bc::AreaEntry;
    area.Width = 7;
    for (std::int32_t r = 1; r <= 3; ++r) m.Airways[static_cast<std::size_t>(r)].RemoteStation = 1;
    Station& st = StationNo(m, 1);
    st.UpdateFlow = -1;
    st.ChannelName[1] = "velocity";
    st.ChannelName[2] = "Quantity";
    st.ChannelFactor = {0, 0.5f, 1, 1, 1, 1};
    st.ChannelValue = {0, 3, 0, 0, 0, 0};

    for (std::int32_t r = 1; r <= 3; ++r) ApplyStationFlow(m, r);
    EXPECT_FLOAT_EQ(m.Airways[1].Quantity, 15.0f);
    EXPECT_FLOAT_EQ(m.Airways[2].Quantity, static_cast<float>(1.5 * 3.1415926));
    EXPECT_FLOAT_EQ(m.Airways[3].Quantity, 10.5f);
    for (std::int32_t r = 1; r <= 3; ++r) {
        EXPECT_TRUE(m.Airways[static_cast<std::size_t>(r)].Has(bc::FixedFlow))
            << "a second flow channel leaves the first channel's fixed flow alone";
    }

    st.ChannelName[1] = "QUANTITY";
    st.ChannelValue[1] = 0;
    ApplyStationFlow(m, 1);
    EXPECT_FLOAT_EQ(m.Airways[1].Quantity, 0.0f);
    EXPECT_FALSE(m.Airways[1].Has(bc::FixedFlow)) << "a reading of 0 frees the airway";

    st.ChannelName[1] = "Pressure";
    st.ChannelFactor[1] = 1;
    st.ChannelValue[1] = -50;
    m.Airways[1].Resistance = 0.5f;
    ApplyStationFlow(m, 1);
    EXPECT_FLOAT_EQ(m.Airways[1].Quantity, -10.0f);
    EXPECT_TRUE(m.Airways[1].Has(bc::FixedFlow));
    m.Airways[1].Resistance = 0;
    m.Airways[1].Quantity = 4;
    ApplyStationFlow(m, 1);
    EXPECT_FLOAT_EQ(m.Airways[1].Quantity, 4.0f) << "no resistance: nothing to work the flow from";

    st.UpdateFlow = 0;
    ApplyStationFlow(m, 1);
    EXPECT_FALSE(m.Airways[1].Has(bc::FixedFlow));
    EXPECT_FLOAT_EQ(m.Airways[1].Quantity, 4.0f);
    st.ChannelName[1] = "Methane";
    m.Airways[1].BranchCode |= bc::FixedFlow;
    ApplyStationFlow(m, 1);
    EXPECT_TRUE(m.Airways[1].Has(bc::FixedFlow)) << "a channel of another kind changes nothing";
}

// A station's reading becomes its airway's flow when the airway's label is drawn: the tick and
// the settings alone leave a station airway that no view draws as it was.
TEST(StationLabels, FlowsSetWhereTheLabelIsDrawn) {
    ExchangeBench b;
    Model& m = b.m();
    b.Add(0, 0, 500, 100, 0, 500).RemoteStation = 6;
    b.Add(100, 0, 500, 200, 0, 500).RemoteStation = 6;
    Station& st = StationNo(m, 6);
    st.ChannelName[1] = "Quantity";
    st.ChannelFactor[1] = 0.5f;
    st.UpdateFlow = -1;
    m.Stations.InputFile = b.Dir.File("logger.rem");
    b.Dir.Write("logger.rem", CrLf({"S\tA\tB\tQuantity", "", "6\tRamp\t09:00\t30"}));
    StationMonitor monitor(m, '.');
    Views quiet; // redraws nothing: no label is asked

    ActivateInput(m, b.ui(), monitor, quiet, true);
    StoreRemote(m, FillRemote(m, 6, '.'));
    EXPECT_FLOAT_EQ(m.Airways[1].Quantity, 0);
    EXPECT_FALSE(m.Airways[1].Has(bc::FixedFlow));
    monitor.LabelLines(m, 1);
    EXPECT_FLOAT_EQ(m.Airways[1].Quantity, 15);
    EXPECT_TRUE(m.Airways[1].Has(bc::FixedFlow));
    EXPECT_FLOAT_EQ(m.Airways[2].Quantity, 0) << "an airway whose label is not drawn";
    EXPECT_FALSE(m.Airways[2].Has(bc::FixedFlow));
    EXPECT_EQ(quiet.Redraws, 1);
}

TEST(StationTimers, InputTickReadsRedrawsAndResimulates) {
    ExchangeBench b;
    Model& m = b.m();
    // Down a shaft, along a drive that carries station 2, up another shaft.
    for (Airway* a :
         {&b.Add(0, 0, 1000, 0, 0, 500), &b.Add(0, 0, 500, 300, 0, 500), &b.Add(300, 0, 500, 300, 0, 1000)}) {
        a->ResType = CustomPreset;
        a->Resistance = 0.01f;
    }
    m.Airways[2].RemoteStation = 2;
    b.Settle();
    Station& st = StationNo(m, 2);
    st.StationName = "Drive";
    st.ChannelName[1] = "Quantity";
    st.ChannelAbbrev[1] = "Q";
    st.ChannelFactor[1] = 0.1f;
    st.AlarmHigh[1] = 20;
    st.UpdateFlow = -1;
    m.Stations.InputFile = b.Dir.File("logger.rem");
    m.Stations.InputActive = true;
    m.Stations.AlarmsOn = -1;

    StationMonitor monitor(m, '.');
    int beeps = 0;
    monitor.Beep = [&beeps] { ++beeps; };
    Views views;
    views.M = &m;
    views.Monitor = &monitor;

    // No file: the message at each tick, no redraw of the tick's own.
    EXPECT_EQ(ReadStations(m, b.ui(), monitor, views), TickResult::Failed);
    EXPECT_EQ(b.ui().Texts("Message"), std::vector<std::string>{"Error - Can't find correct realtime station file - "
                                                                "check directory or file name in TOOLS => realtime "
                                                                "stations"});
    EXPECT_EQ(views.Redraws, 0);
    // Switched off and on from the menu: a redraw either way, the timer's period when on.
    EXPECT_EQ(ActivateInput(m, b.ui(), monitor, views, false), 0);
    EXPECT_FALSE(m.Stations.InputActive);
    EXPECT_EQ(ActivateInput(m, b.ui(), monitor, views, true), 10000);
    EXPECT_TRUE(m.Stations.InputActive);
    EXPECT_EQ(views.Redraws, 2);
    EXPECT_EQ(b.ui().Texts("Message").size(), 2u);
    views.Redraws = 0;

    // Busy: the tick is skipped without a look at the file.
    b.Dir.Write("logger.rem", CrLf({"S\tA\tB\tQuantity", "", "2\tDrive\t08:00\t254"}));
    views.BusyNow = true;
    EXPECT_EQ(ReadStations(m, b.ui(), monitor, views), TickResult::Skipped);
    EXPECT_EQ(st.ChannelValue[1], 0);

    // A reading: one redraw that may sound, the flow fixed at 25.4 m3/s.
    views.BusyNow = false;
    EXPECT_EQ(ReadStations(m, b.ui(), monitor, views), TickResult::Done);
    EXPECT_EQ(views.Redraws, 1);
    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(monitor.Heading[1], "Quantity");
    ASSERT_EQ(views.Lines.size(), 1u);
    EXPECT_EQ(TextsOf(views.Lines[0]), (std::vector<std::string>{"   Drive 08:00", "Q  25.4"}));
    EXPECT_TRUE(m.Airways[2].Has(bc::FixedFlow));
    EXPECT_FLOAT_EQ(m.Airways[2].Quantity, 25.4f);
    EXPECT_FALSE(monitor.AlarmSoundAllowed);

    // Resimulate: the network is balanced around the measured flow, silently, then redrawn.
    m.Stations.Resimulate = -1;
    m.ShowProgress = 1;
    b.ui().Transcript.clear();
    EXPECT_EQ(ReadStations(m, b.ui(), monitor, views), TickResult::Done);
    EXPECT_EQ(views.Redraws, 3);
    EXPECT_EQ(m.ShowProgress, 1);
    EXPECT_EQ(m.SimValid, Validity::Valid) << (b.ui().Transcript.empty() ? "" : b.ui().Transcript.front().Text);
    for (std::int32_t r = 1; r <= 3; ++r) EXPECT_NEAR(m.Airways[static_cast<std::size_t>(r)].Quantity, 25.4, 0.01) << r;
}

TEST(StationTimers, ResultsFileLineByLine) {
    ExchangeBench b;
    Model& m = b.m();
    Airway& a = b.Add(10, -20, 480, 110, -20, 470);
    a.EntryNode = "Portal   ";
    a.ExitNode = "  X4";
    a.BranchName = "Main drive ";
    a.Quantity = 12.5f;
    a.FanNumber = 2;
    a.NoOfFans = 1;
    a.Pressure = -1.25f;
    a.RemoteStation = 4;
    a.FromNodeP = 0.5f;
    a.ToNodeP = -9999999;
    a.WallType = CustomPreset, a.WallFactor = 0.0125f;
    a.ShockType = CustomPreset, a.ShockFactor = 2.5f;
    a.ResType = CustomPreset, a.Resistance = 0.125f;
    a.BranchCode |= bc::FixedLength;
    a.Length = 100.5f;
    b.Settle();
    m.Stations.OutputFile = b.Dir.File("out.txt");
    b.ui().Separator = ',';
    Views views;
    ASSERT_EQ(WriteResults(m, b.ui(), views), TickResult::Done);
    const std::vector<std::string> lines = karvane::testing::FileLines(b.Dir.Read("out.txt"));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "Branch No\tFrom Node\tTo Node\tAirway Name\tX1\tY1\tZ1\tX2\tY2\tZ2\tDim 1\tDim 2\tk factor\t"
                        "shock factor\tresist\tquantity\tfan #\tno fans\tlength\tpres change\tsmoke\tprim layer\t"
                        "sec layer\tentry pres\texit pres\tno of airways\tRemote Station");
    EXPECT_EQ(lines[1],
              "1\tPortal\t  X4\tMain drive\t10\t-20\t480\t110\t-20\t470\t4\t4\t0,0125\t2,5\t0,125\t12,5\t2\t1\t"
              "100,5\t-1,25\t0\t1\t1\t0,5\t-9999999\t1\t4");

    b.Dir.Write("out.txt", "");
    EXPECT_EQ(ActivateOutput(m, b.ui(), views, true), 60000);
    EXPECT_EQ(karvane::testing::FileLines(b.Dir.Read("out.txt")).size(), 2u) << "written at once";
    EXPECT_EQ(ActivateOutput(m, b.ui(), views, false), 0);
    EXPECT_FALSE(m.Stations.OutputActive);

    views.BusyNow = true;
    EXPECT_EQ(WriteResults(m, b.ui(), views), TickResult::Skipped);
    views.BusyNow = false;
    m.Stations.OutputFile = b.Dir.File("no/folder/out.txt");
    EXPECT_EQ(WriteResults(m, b.ui(), views), TickResult::Failed);
    EXPECT_EQ(b.ui().Texts("Message"), std::vector<std::string>{"Error writing realtime values"});
}

TEST(StationDialogs, InputStationsAndOutputFile) {
    ExchangeBench b;
    Model& m = b.m();
    Station& st = StationNo(m, 6);
    st.ChannelName[1] = "Quantity";
    st.ChannelFactor[1] = 2.5f;
    st.AlarmLow[1] = 0;
    st.AlarmHigh[1] = 40;
    st.StationName = "North";
    st.UpdateFlow = -1;
    m.Stations.InputSeconds = 12;
    m.Stations.InputFile = "/data/logger.rem";

    RemoteFields f = FillRemote(m, 6, ',');
    EXPECT_EQ(f.Mult[1], "2,5");
    EXPECT_EQ(f.ALow[1], "") << "a limit of 0 shows as an empty box";
    EXPECT_TRUE(f.ChkUpdateQ);
    EXPECT_EQ(f.TxtTimer, "12");

    // Scrolling stores the station on screen and shows the next; empty number boxes keep their
    // values.
    f.Mult[1] = "";
    f.AHigh[1] = "45.5";
    f.TxtStationName = "North 2";
    const Station copied = CopyStation(f);
    ScrollStation(m, f, 7, ',');
    EXPECT_EQ(st.StationName, "North 2");
    EXPECT_FLOAT_EQ(st.ChannelFactor[1], 2.5f);
    EXPECT_FLOAT_EQ(st.AlarmHigh[1], 45.5f);
    EXPECT_EQ(f.LblNumber, 7);
    EXPECT_EQ(f.TxtStationName, "");
    PasteStation(f, copied, ',');
    f.TxtTimer = "100";
    m.DefaultsSaved = Yes255;
    EXPECT_EQ(CloseRemote(m, f), 65535) << "the platform's timer holds at most 65535 ms";
    EXPECT_EQ(StationNo(m, 7).StationName, "North 2");
    EXPECT_FLOAT_EQ(StationNo(m, 7).AlarmHigh[1], 45.5f);
    EXPECT_FLOAT_EQ(StationNo(m, 7).ChannelFactor[1], 0.0f) << "the copy holds the boxes as they stood";
    EXPECT_EQ(StationNo(m, 7).ChannelName[1], "Quantity");
    EXPECT_EQ(m.DefaultsSaved, No0);
    EXPECT_EQ(FillRemote(m, 99, '.').LblNumber, 50);

    RealOutFields out = FillRealOut(m, '.');
    EXPECT_EQ(out.TxtTimer, "60");
    out.TxtRealOut = "/srv/plant.v2/results";
    out.TxtTimer = "15";
    EXPECT_EQ(ApplyRealOut(m, out), 15000);
    EXPECT_EQ(m.Stations.OutputFile, "/srv/plant.v2/results.txt");
    out.TxtRealOut = "results.csv";
    ApplyRealOut(m, out);
    EXPECT_EQ(m.Stations.OutputFile, "results.csv");
}
