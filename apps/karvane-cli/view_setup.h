// The first view window of a network on the command line, as the desktop program would show it
// after opening the file: loaded, optionally balanced, at a saved view, a level and a data type,
// with its drawn list built. Shared by the commands that draw (render, print).
#pragma once

#include <memory>
#include <string>

#include "display/view_state.h"
#include "session.h"

namespace karvane::cli {

struct ViewRequest {
    std::string File;
    int View = -1; // saved view slot, or -1 for the start-up view
    std::string Data;
    std::string Level;
    bool AllLevels = false;
    bool Simulate = false;
    bool Progress = false;          // print the captions of the run
    int Width = 1200, Height = 900; // the view window's drawing area, pixels
};

// The data type asked for by number or name: 0 for none asked; -1, with the message, for an
// unknown one.
int ParseDataType(const std::string& text, ui::UserInterface& ui, const std::string& title);

// Loads the network into the session and sets up the view. Nothing, after a message, when the
// file, the view or the level could not be had.
std::unique_ptr<display::DisplayState> SetUpView(Session& s, const ViewRequest& request, int dataType,
                                                 const std::string& title);

} // namespace karvane::cli
