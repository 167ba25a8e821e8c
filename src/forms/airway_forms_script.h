// The airway editor, the fan tool's dialog and the information card driven by the script of
// the user's actions, and the script's own airway lines: "set AIRWAYNO FIELD=VALUE ..." goes
// through the editor's controls and OK, "select AIRWAYNO ..." marks airways selected.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/scriptable_form.h"

namespace karvane::forms {

std::unique_ptr<ScriptableForm> OpenAirEditScript(FormContext& context);
std::unique_ptr<ScriptableForm> OpenFanEditScript(FormContext& context);
std::unique_ptr<ScriptableForm> OpenAirInfoScript(FormContext& context);

// The editor opened on the airway of that number (on the whole selection when the airway is
// selected, as the edit tool does), each control set in turn as a user would, then OK. Empty
// when it was applied; otherwise why not, and nothing is applied.
std::string SetAirwayByScript(FormContext& context, std::int32_t airwayNo,
                              const std::vector<std::pair<std::string, std::string>>& fields);

// Marks the airways of these numbers selected; no number clears the selection. Empty, or the
// number the network has not got (nothing is marked then).
std::string SelectAirwaysByScript(Model& model, const std::vector<std::int32_t>& airwayNos);

} // namespace karvane::forms
