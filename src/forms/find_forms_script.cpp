// frmAttrib and the list finders driven by the script of the user's actions.
#include "forms/find_forms_script.h"

#include <algorithm>

#include "forms/attrib_form.h"
#include "forms/name_lists.h"

namespace karvane::forms {

namespace {

class AttribForm : public ScriptableForm {
public:
    explicit AttribForm(const FormContext& context) : c_(context), f_(LoadAttribForm(context.M)) {}

    std::string SetField(const std::string& name, const std::string& value) override {
        const ControlName control = SplitControlName(name);
        if (control.Name != "ChkAttrib") return "frmAttrib has no control " + name;
        if (control.Index < 0 || control.Index >= AttribBoxes) return name + " has members 0 to 8";
        const std::optional<bool> on = CheckValue(value);
        if (!on) return "\"" + value + "\" is no value for " + name + " (1 or 0)";
        f_.ChkAttrib[static_cast<std::size_t>(control.Index)] = *on;
        return {};
    }

    std::string PressButton(const std::string& name) override {
        if (name == "cmdSelectAll") {
            SelectAllAttributes(f_);
        } else if (name == "cmdDeselectAll") {
            DeselectAllAttributes(f_);
        } else if (name == "cmdOK") {
            ApplyAttribForm(c_.M, f_);
            closed_ = accepted_ = true;
        } else {
            return "frmAttrib has no button " + name;
        }
        return {};
    }

private:
    FormContext c_;
    AttribFields f_;
};

class NameListForm : public ScriptableForm {
public:
    NameListForm(const FormContext& context, bool nodes)
        : c_(context),
          nodes_(nodes),
          names_(ListedNames(context.M, nodes)),
          shown_(names_) {}

    std::string SetField(const std::string& name, const std::string& value) override {
        if (name == "TxtFilter") {
            shown_ = FilterNames(names_, value);
            return {};
        }
        if (name != "LstNames") return std::string(FormName()) + " has no control " + name;
        if (std::find(shown_.begin(), shown_.end(), value) == shown_.end())
            return "\"" + value + "\" is not in the list of " + FormName();
        closed_ = accepted_ = true;
        if (c_.Finder) ChooseListedName(c_.M, c_.Ds, c_.Ui, *c_.Finder, nodes_, value);
        return {};
    }

    std::string PressButton(const std::string& name) override {
        return std::string(FormName()) + " has no button " + name;
    }

private:
    const char* FormName() const { return nodes_ ? "frmListAirNodes" : "frmListAirNames"; }

    FormContext c_;
    bool nodes_;
    std::vector<std::string> names_;
    std::vector<std::string> shown_;
};

} // namespace

std::unique_ptr<ScriptableForm> OpenAttribForm(FormContext& context) { return std::make_unique<AttribForm>(context); }

std::unique_ptr<ScriptableForm> OpenBranchNameList(FormContext& context) {
    return std::make_unique<NameListForm>(context, false);
}

std::unique_ptr<ScriptableForm> OpenNodeNameList(FormContext& context) {
    return std::make_unique<NameListForm>(context, true);
}

} // namespace karvane::forms
