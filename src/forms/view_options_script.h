// The view options (frmViewer) as a scriptable form: its check boxes, option groups and flow
// limit boxes by their control names, and the buttons cmdOK, cmdCancel, cmdShowAll, cmdHide.
#pragma once

#include <memory>

#include "forms/scriptable_form.h"

namespace karvane::forms {

std::unique_ptr<ScriptableForm> OpenViewerForm(FormContext& context);

} // namespace karvane::forms
