// The editors of the Tools menu as scriptable forms: the fan database (frmFanData), the level
// list (frmRLBase) and the options (frmOptions). Besides their documented controls, the two
// tables take "field Selection R1 C1 R2 C2" (the selected block, as the grid numbers it),
// "field Clipboard TEXT" (a paste at the block's first cell, \t and \n written as such) and
// "button Delete" (the Delete key on the block).
#pragma once

#include <memory>

#include "forms/scriptable_form.h"

namespace karvane::forms {

std::unique_ptr<ScriptableForm> OpenFanDataScript(FormContext& context);
std::unique_ptr<ScriptableForm> OpenLevelListScript(FormContext& context);
std::unique_ptr<ScriptableForm> OpenOptionsScript(FormContext& context);

} // namespace karvane::forms
