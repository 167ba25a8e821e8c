// Loading a network and setting up its first view window for the drawing commands.
#include "view_setup.h"

#include <cctype>

#include "display/data_types.h"
#include "display/display_list.h"
#include "display/level_selector.h"
#include "display/saved_views.h"
#include "display/startup_view.h"
#include "display/view_transform.h"
#include "files/network_load.h"
#include "simulate/run.h"

namespace karvane::cli {

namespace {

bool SameName(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

} // namespace

int ParseDataType(const std::string& text, ui::UserInterface& ui, const std::string& title) {
    if (text.empty()) return 0;
    const int dataType =
        std::isdigit(static_cast<unsigned char>(text[0])) ? std::atoi(text.c_str()) : display::DataTypeByName(text);
    if (!display::IsDataType(dataType)) {
        ui.Message("Unknown data type: " + text, title, ui::Icon::Critical);
        return -1;
    }
    return dataType;
}

std::unique_ptr<display::DisplayState> SetUpView(Session& s, const ViewRequest& o, int dataType,
                                                 const std::string& title) {
    ui::ConsoleUserInterface& ui = s.ui();
    s.StartProgram();
    Model& m = s.model();
    files::LoadReport report;
    files::LoadOptions options;
    options.Report = &report;
    files::LoadNetwork(m, o.File, ui, options);
    if (!report.NetworkChanged) return nullptr;

    if (o.Simulate) {
        m.SimMode = RunMode::Normal;
        m.ShowProgress = o.Progress ? 1 : 0;
        simulate::RunAirflow(m, ui);
    }

    auto ds = std::make_unique<display::DisplayState>();
    ds->AreaWidth = o.Width;
    ds->AreaHeight = o.Height;
    ds->DecimalSeparator = ui.DecimalSeparator();
    // The program's first window stands in Single mode at the level the load chose, until a
    // start-up view of the file says otherwise.
    ds->View.LevelMode = display::lm::Single;
    display::ShowLoadedNetwork(m, *ds, ui, report.StartupViewRead, {report.CurrentLevel, report.CurRL});

    if (o.View >= 0) {
        const bool named = o.View < static_cast<int>(m.SavedViews.size()) &&
                           (!TrimText(m.SavedViews[static_cast<std::size_t>(o.View)].ViewName).empty() ||
                            m.SavedViews[static_cast<std::size_t>(o.View)].ViewParam[5] != 0);
        const auto load = named ? display::LoadViewFromSlot(m, *ds, o.View) : display::ViewLoad::NotLoaded;
        if (load == display::ViewLoad::NotLoaded) {
            ui.Message("Error - could not load view", ProgramName, ui::Icon::Exclamation);
            return nullptr;
        }
        if (load == display::ViewLoad::AnglesOnly) {
            display::BuildDisplayList(m, *ds);
            display::FitView(m, *ds, ui);
            display::ApplyRotation(m, *ds);
        }
    }
    if (!o.Level.empty()) {
        int row = 0;
        for (int r = 1; r <= display::LevelListCount(m); ++r) {
            if (SameName(TrimText(m.Levels[static_cast<std::size_t>(r)].RLName), TrimText(o.Level))) row = r;
        }
        if (row == 0) {
            ui.Message("No level of that name: " + o.Level, title, ui::Icon::Critical);
            return nullptr;
        }
        display::ChooseLevelRow(m, *ds, row);
    } else if (o.AllLevels) {
        display::SelectAllLevels(m, *ds);
    }
    if (dataType > 0) display::ChooseDataType(m, *ds, dataType);
    return ds;
}

} // namespace karvane::cli
