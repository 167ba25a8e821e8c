// What the command line draws through Qt's GUI module: PNG pictures of a view window and PDF
// prints. The module is optional; without it these outputs are refused with a word.
#pragma once

#include <string>
#include <string_view>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::cli {

// Whether the path ends in the extension, in any case (".png").
bool HasExtension(const std::string& path, std::string_view extension);

// Whether this build has Qt's GUI module for PNG and PDF output.
bool GuiOutputAvailable();
// Starts Qt's GUI module on the offscreen platform, once.
void StartGuiOutput();

// Draws the view as its window does and writes the picture as PNG. False with `error` set when
// the file could not be written.
bool WritePngPicture(const Model& model, display::DisplayState& ds, ui::UserInterface& ui, const std::string& path,
                     std::string& error);

} // namespace karvane::cli
