// The table of scriptable forms, and the helpers their SetField share.
#include "forms/scriptable_form.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "forms/airway_forms_script.h"
#include "forms/editors_script.h"
#include "forms/find_forms_script.h"
#include "forms/spreadsheet_script.h"
#include "forms/view_options_script.h"

namespace karvane::forms {

namespace {

using Opener = std::unique_ptr<ScriptableForm> (*)(FormContext&);

struct FormEntry {
    std::string_view Name;
    Opener Open;
};

// One line per form: the menu entry or form name, and its opener.
// clang-format off
const std::array kForms{
    FormEntry{"mnuViewData", OpenViewerForm},
    FormEntry{"frmViewer", OpenViewerForm},
    FormEntry{"mnuPower", OpenSpreadSheetForm},
    FormEntry{"mnuFanData", OpenFanDataScript},
    FormEntry{"frmFanData", OpenFanDataScript},
    FormEntry{"mnuRLBase", OpenLevelListScript},
    FormEntry{"frmRLBase", OpenLevelListScript},
    FormEntry{"mnuOptionShow", OpenOptionsScript},
    FormEntry{"frmOptions", OpenOptionsScript},
    FormEntry{"frmSpreadSheet", OpenSpreadSheetForm},
    FormEntry{"mnucpAttrib", OpenAttribForm},
    FormEntry{"frmAttrib", OpenAttribForm},
    FormEntry{"mnuFBName", OpenBranchNameList},
    FormEntry{"frmListAirNames", OpenBranchNameList},
    FormEntry{"mnuFNName", OpenNodeNameList},
    FormEntry{"frmListAirNodes", OpenNodeNameList},
    FormEntry{"frmAirEdit", OpenAirEditScript},
    FormEntry{"frmFanEdit", OpenFanEditScript},
    FormEntry{"frmAirInfo", OpenAirInfoScript},
};
// clang-format on

const FormEntry* Find(std::string_view name) {
    const auto found =
        std::find_if(kForms.begin(), kForms.end(), [name](const FormEntry& e) { return e.Name == name; });
    return found == kForms.end() ? nullptr : &*found;
}

std::string Lower(std::string text) {
    for (char& ch : text) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return text;
}

} // namespace

std::unique_ptr<ScriptableForm> OpenScriptableForm(std::string_view name, FormContext& context) {
    const FormEntry* entry = Find(name);
    return entry ? entry->Open(context) : nullptr;
}

bool IsScriptableForm(std::string_view name) { return Find(name) != nullptr; }

ControlName SplitControlName(const std::string& text) {
    ControlName c;
    const std::size_t open = text.find('(');
    if (open == std::string::npos || text.empty() || text.back() != ')') {
        c.Name = text;
        return c;
    }
    c.Name = text.substr(0, open);
    const std::string digits = text.substr(open + 1, text.size() - open - 2);
    if (digits.empty() || digits.size() > 4 ||
        !std::all_of(digits.begin(), digits.end(), [](char ch) { return ch >= '0' && ch <= '9'; })) {
        c.Name = text;
        return c;
    }
    c.Index = std::stoi(digits);
    return c;
}

std::optional<bool> CheckValue(const std::string& text) {
    const std::string t = Lower(text);
    if (t == "1" || t == "yes" || t == "true" || t == "on" || t == "-1") return true;
    if (t == "0" || t == "no" || t == "false" || t == "off") return false;
    return std::nullopt;
}

} // namespace karvane::forms
