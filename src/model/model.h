// The one Model object: every table of the system in one place, passed by reference to each
// routine that needs it. No globals anywhere, so two models can live side by side.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "model/contaminant_state.h"
#include "model/edit_state.h"
#include "model/network.h"
#include "model/run_state.h"
#include "model/settings.h"
#include "model/stations.h"
#include "model/units.h"

namespace karvane {

// The bare program name: the title of a new network's window and of plain message boxes.
inline constexpr const char* ProgramName = "Karvane";

inline constexpr std::uint8_t Yes255 = 255;
inline constexpr std::uint8_t No0 = 0;

// One line of the network error list: the airway's lasting number and the fault's text.
struct NetworkError {
    std::int32_t AirwayNo = 0;
    std::string Text;
};

struct Model {
    // Airway table, rows 1..AirwayCount in use; row 0 unused (the display keeps the rotation
    // centre in its own row 0).
    std::vector<Airway> Airways;
    std::int32_t AirwayCount = 0;

    // Level list, rows 1..250; [0] unused.
    std::vector<LevelRecord> Levels;
    std::int32_t CurrentRLMin = 0;
    std::int32_t CurrentRLMax = 0;

    // Layers: PrimaryLayers(1..16), SecondaryLayers(1..48); [0] unused.
    std::vector<LayerRecord> PrimaryLayers;
    std::vector<LayerRecord> SecondaryLayers;

    // Floating text slots 1..MaxText; [0] unused.
    std::vector<FloatingText> FloatingTexts;

    // Saved view slots 0..110.
    std::vector<SavedView> SavedViews;

    // Fan database rows 1..MaxFans; [0] unused.
    std::vector<FanRecord> Fans;
    std::int32_t FanStamp = 0;
    std::uint8_t FansSaved = Yes255;

    Settings Set;    // the settings record in memory
    Presets Preset;  // WallNames/WallPreset, ResNames/ResPreset, ShockNames/ShockPreset
    UnitTable Units; // the unit table

    // The real-time monitoring stations (Remotes.dat).
    StationTable Stations;

    // Network-wide values.
    std::string FileName;
    std::string FileComment;
    std::string FileNote;
    bool MasterFile = false;
    std::uint8_t NetworkSaved = Yes255;
    std::uint8_t DefaultsSaved = Yes255;
    std::int16_t SgnX = 1;
    std::int16_t SgnY = 1;
    // The layers a new airway is given, as the layer dialog sets them.
    std::int16_t DrawPrimaryLayer = 1;
    std::int16_t DrawSecondaryLayer = 1;
    // The last search of the Find menu and the paste store of the attribute tool.
    FindState Find;
    PasteStore Paste;
    // The tick of "Confirmations" (mnuConfirm), a flag that no operation consults.
    bool Confirmations = false;

    // Run state of the simulations.
    RunMode SimMode = RunMode::Normal;
    RunResult SimFail = RunResult::Good;
    StopRequest StopFlag = StopRequest::Stop; // no run is active
    Validity SimValid = Validity::NotValid;
    GasDisplay GasActive = GasDisplay::None;
    std::int16_t ShowProgress = 1; // 1 show the progress window; 0 run silently
    bool RestrictionFlag = false;  // a troubleshooting run found what it looked for
    bool AirwaysTurned = false;    // the last run turned airways to match their flow (undo reads it)
    RunState Run;                  // work columns of the airflow run
    ContaminantState Smoke;        // arrival times, settling order, legend and time limit

    // The network error list (shown by the error window of a run).
    std::vector<NetworkError> ErrorList;

    // Recent files 1..9; [0] unused.
    std::vector<std::string> RecentFiles = std::vector<std::string>(RecentFileCount + 1);

    // Whether a view window is open: a save needs one (the command line counts as one).
    bool ViewWindowOpen = true;

    Model();
};

} // namespace karvane
