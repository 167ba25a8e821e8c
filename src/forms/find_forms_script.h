// The attribute choice (frmAttrib, mnucpAttrib) and the list finders (frmListAirNames,
// mnuFBName; frmListAirNodes, mnuFNName) as scriptable forms. frmAttrib: ChkAttrib(0) to
// ChkAttrib(8), the buttons cmdSelectAll, cmdDeselectAll and cmdOK. A list finder: TxtFilter
// narrows the list, and "field LstNames NAME" clicks a name of the list, which finds it.
#pragma once

#include <memory>

#include "forms/scriptable_form.h"

namespace karvane::forms {

std::unique_ptr<ScriptableForm> OpenAttribForm(FormContext& context);
std::unique_ptr<ScriptableForm> OpenBranchNameList(FormContext& context);
std::unique_ptr<ScriptableForm> OpenNodeNameList(FormContext& context);

} // namespace karvane::forms
