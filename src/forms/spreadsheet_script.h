// The network spreadsheet (frmSpreadSheet) as a scriptable form: "cell ROW COL VALUE" types into
// a cell of the grid as the in-place editor does, "button SaveGrid" saves, "button mnuName" runs
// an entry of the spreadsheet's menus, "field Row N" and "field Col N" move the current cell,
// "field Clipboard TEXT" pastes text at the current cell (\t and \n written as such).
#pragma once

#include <memory>

#include "forms/scriptable_form.h"

namespace karvane::forms {

std::unique_ptr<ScriptableForm> OpenSpreadSheetForm(FormContext& context);

} // namespace karvane::forms
