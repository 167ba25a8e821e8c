// Shared pieces of the fuzz targets: a scratch folder of the process where an input is written
// as the file a reader expects, and a user who declines every question, so that a question such
// as "Do you wish to continue loading?" can never keep a reader going round.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/model.h"
#include "ui/scripted_ui.h"

namespace karvane::fuzz {

// A folder of this process alone under the temporary folder, so that fuzzers running side by
// side never share a file. Created on first use.
const std::string& ScratchFolder();

// Writes the input as `fileName` in the scratch folder and returns the file's path.
std::string WriteInput(const std::string& fileName, const std::uint8_t* data, std::size_t size);

// A model as a program that has just started holds it, for the readers of the program's own
// files. Building a whole model costs an airway table at full capacity each time, far more than
// reading a small file, and those readers never touch that table: so the model is built once per
// process and everything but the airway table is reset from a pristine copy for each input.
Model& SmallFileModel();

// Answers No to Yes/No questions, Cancel to OK/Cancel ones, cancels every input box and file
// dialog; the program's and temporary folders are the scratch folder.
class DecliningUser : public ui::ScriptedUserInterface {
public:
    DecliningUser();
    ui::Answer Ask(const std::string& text, const std::string& title, ui::Buttons buttons, ui::Icon icon) override;
};

// Stops the run at once (a fault the sanitizers cannot see: a broken round trip).
[[noreturn]] void Fail(std::string_view what);

} // namespace karvane::fuzz

// The entry point every target defines; libFuzzer calls it, and so does the replay program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
