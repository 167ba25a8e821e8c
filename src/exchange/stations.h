// Real-time monitoring stations: the data file a logger keeps up to date is read on a timer, the
// readings are shown at the airways that carry each station (with alarms), a flow channel can
// set its airway's flow and the network be balanced again, and the whole network's results are
// written to a text file on a timer of their own. Remotes.dat, the station definitions, is read
// and written by files/station_list.h.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "display/view_state.h"
#include "model/model.h"
#include "simulate/run.h"
#include "ui/user_interface.h"

namespace karvane::exchange {

inline constexpr const char* StationFileErrorText =
    "Error - Can't find correct realtime station file - check directory or file name in TOOLS => realtime stations";
inline constexpr const char* ResultsErrorText = "Error writing realtime values";
inline constexpr const char* StationFileFilter = "Karvane Remote Files (*.rem)|*.rem|All Files (*.*)|*.*";
inline constexpr const char* ResultsFileFilter = "Karvane Realtime Output Files (*.txt)|*.txt|All Files (*.*)|*.*";
inline constexpr const char* FirstChannelTip =
    "Specify Quantity, Velocity or Pressure if you want Karvane to recalculate flows";
inline constexpr const char* RemoteCaption = "Realtime Input Stations";
inline constexpr const char* RealOutCaption = "Realtime Output File";

// The heading of the results file, one column per field of the airway row.
inline constexpr std::array<const char*, 27> ResultsHeadings{"Branch No",
                                                             "From Node",
                                                             "To Node",
                                                             "Airway Name",
                                                             "X1",
                                                             "Y1",
                                                             "Z1",
                                                             "X2",
                                                             "Y2",
                                                             "Z2",
                                                             "Dim 1",
                                                             "Dim 2",
                                                             "k factor",
                                                             "shock factor",
                                                             "resist",
                                                             "quantity",
                                                             "fan #",
                                                             "no fans",
                                                             "length",
                                                             "pres change",
                                                             "smoke",
                                                             "prim layer",
                                                             "sec layer",
                                                             "entry pres",
                                                             "exit pres",
                                                             "no of airways",
                                                             "Remote Station"};

// Colours of channels in alarm.
inline constexpr display::Colour LowAlarmColour = Rgb(0xFF, 0x00, 0x00);
inline constexpr display::Colour HighAlarmColour = Rgb(0x00, 0x00, 0xFF);
inline constexpr display::Colour StationNameColour = Rgb(0xFF, 0xFF, 0xFF);

// ---------------------------------------------------------------------------------------------
// The data file and the results file.

// Reads the logger's data file: the channel names of the heading line (fields 4 to 8) into
// `heading` [1..5], line 2 passed over, then per line the station number (field 1), its two
// texts (fields 2 and 3) and five readings (fields 4 to 8) rounded to whole numbers. A line whose
// station is not 1 to 50 is passed over; a reading the line does not reach (a line still being
// written) keeps the station's last one. Returns an error code; a file without even a heading
// line counts as one that cannot be read (53).
int ReadStationFile(Model& model, const std::string& path, std::array<std::string, 6>& heading);

// The results file: the heading and one line per airway row, every number in plain form.
std::string ResultsLine(const Model& model, std::int32_t row, char sep);

// ---------------------------------------------------------------------------------------------
// Station values at the airways.

enum class Alarm { None, Low, High };

// A channel's value: the raw reading times the channel's factor.
double ChannelReading(const Model& model, int station, int channel);
// A channel's alarm: below a low limit (not 0), or above a high limit (not 0); none while alarms
// are off. A value exactly at a limit is no alarm.
Alarm ChannelAlarm(const Model& model, int station, int channel);

// What a station does to its airway. A channel named "Quantity", "Velocity" or "Pressure" (any
// case) as channel 1 of a station that updates the airflow sets the airway's Quantity (the
// reading, velocity times the area by shape, or the square root of pressure over resistance,
// signed) and makes it a fixed flow airway, or clears bit 4 for a reading of 0. Such a channel
// of a station that does not update clears bit 4. Only channel 1 decides bit 4; a pressure
// reading on an airway without resistance changes nothing.
void ApplyStationFlow(Model& model, std::int32_t row);

// The station labels of the views: the station's name and the time of its reading, then one line
// per channel with an abbreviation ("Q  12.5m3/s"), red below its low limit and blue above its
// high limit. Working out the lines of an airway (which the renderer does for drawn airways only)
// applies the station's flow to it (ApplyStationFlow) through the monitor's own handle on the
// network, and, while AlarmSoundAllowed, calls Beep once per channel in alarm.
class StationMonitor : public display::StationLabels {
public:
    StationMonitor(Model& model, char decimalSep) : model_(&model), sep_(decimalSep) {}

    bool Active() const override { return model_->Stations.InputActive; }
    std::vector<display::StationLabelLine> LabelLines(const Model& model, std::int32_t row) override;

    bool AlarmSoundAllowed = false;
    std::function<void()> Beep;
    std::array<std::string, 6> Heading{}; // channel names of the data file's heading, [1..5]

private:
    Model* model_;
    char sep_;
};

// ---------------------------------------------------------------------------------------------
// The two timers.

// What the timer roads need of the program: whether the busy pointer shows (a tick is skipped
// then, so that none starts during a run), and a redraw of the views. The run hooks serve the
// airflow run of a resimulation.
struct StationHooks : simulate::RunHooks {
    virtual bool Busy() { return false; }
    virtual void RedrawViews() {}
};

enum class TickResult { Skipped, Failed, Done };

// The input timer's tick: reads the data file, redraws with the alarm sound allowed, and with
// Resimulate balances the network silently and redraws again. A file that cannot be read gives
// "Error - Can't find correct realtime station file - ..." at each tick.
TickResult ReadStations(Model& model, ui::UserInterface& ui, StationMonitor& monitor, StationHooks& hooks);

// The output timer's tick: the results file written anew, or "Error writing realtime values".
TickResult WriteResults(Model& model, ui::UserInterface& ui, StationHooks& hooks);

// mnuRemote ("Activate Input") checked or unchecked: the flag follows; checked, the data file
// is read at once. The views are redrawn either way. Returns the interval the input timer is
// to run at, in milliseconds, 0 to stop it.
std::int32_t ActivateInput(Model& model, ui::UserInterface& ui, StationMonitor& monitor, StationHooks& hooks, bool on);
// mnuRealOutStart ("Activate Output"): the same for the results file and the output timer.
std::int32_t ActivateOutput(Model& model, ui::UserInterface& ui, StationHooks& hooks, bool on);

// ---------------------------------------------------------------------------------------------
// The two dialogs.

// frmRemote: one station on screen (its number in LblNumber, under VScStation) and the values
// of all stations. Channel arrays are [1..5].
struct RemoteFields {
    int LblNumber = 1;
    std::array<std::string, 6> TxtLngNames{}, Abrev{}, RUnits{}, Mult{}, ALow{}, AHigh{};
    std::string TxtStationName;
    bool ChkUpdateQ = false;
    std::string TxtRemoteSource; // "Input Data File"
    bool ChkResim = false;       // "Resimulate Network"
    std::string TxtTimer;        // "Sampling (Sec)"
    bool ChkAlarm = false;       // "Activate Alarms"
};

// Shows station `station` (held to 1..50): a low or high limit of 0 shows as an empty box.
RemoteFields FillRemote(const Model& model, int station, char decimalSep);
// Stores the fields under LblNumber; an empty Mult, ALow or AHigh box leaves the stored value.
void StoreRemote(Model& model, const RemoteFields& fields);
// VScStation changed: the fields go to the old station, the new one is shown.
void ScrollStation(Model& model, RemoteFields& fields, int station, char decimalSep);
// cmdOK and mnuExit: the fields stored, the settings marked as changed. Returns the input
// timer's interval in milliseconds.
std::int32_t CloseRemote(Model& model, const RemoteFields& fields);
// mnuCopy ("Copy Station"): the station on screen as the boxes hold it; mnuPaste ("Paste
// Station") writes such a copy into the station on screen.
Station CopyStation(const RemoteFields& fields);
void PasteStation(RemoteFields& fields, const Station& copied, char decimalSep);

// frmRealOut ("Realtime Output File").
struct RealOutFields {
    std::string TxtRealOut; // "Output Data File"
    std::string TxtTimer;
};
RealOutFields FillRealOut(const Model& model, char decimalSep);
// cmdOK: stores the fields, ".txt" added to a name without a dot, the settings marked as
// changed. Returns the output timer's interval in milliseconds.
std::int32_t ApplyRealOut(Model& model, const RealOutFields& fields);

} // namespace karvane::exchange
