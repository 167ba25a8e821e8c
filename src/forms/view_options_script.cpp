// frmViewer driven by the script of the user's actions.
#include "forms/view_options_script.h"

#include <algorithm>
#include <iterator>

#include "display/view_transform.h"
#include "forms/view_options.h"

namespace karvane::forms {

namespace {

class ViewerForm : public ScriptableForm {
public:
    explicit ViewerForm(const FormContext& context)
        : c_(context),
          f_(FillViewer(context.M, context.Ds, context.Ui.DecimalSeparator())) {}

    std::string SetField(const std::string& name, const std::string& value) override {
        const ControlName control = SplitControlName(name);
        if (control.Name == "TxtSigMin" && control.Index < 0) {
            f_.MinFlow = value;
            return {};
        }
        if (control.Name == "TxtSig" && control.Index < 0) {
            f_.MaxFlow = value;
            return {};
        }
        static constexpr const char* kControls[] = {"ChkViewer", "OptType", "ColOpt", "OptDimmer"};
        if (std::find(std::begin(kControls), std::end(kControls), control.Name) == std::end(kControls))
            return "frmViewer has no control " + name;
        const std::optional<bool> on = CheckValue(value);
        if (!on) return "\"" + value + "\" is no value for " + name + " (1 or 0)";
        auto option = [&](int& field, int count) -> std::string {
            if (control.Index < 0 || control.Index >= count)
                return name + " has members 0 to " + std::to_string(count - 1);
            if (*on) field = control.Index;
            return {};
        };
        if (control.Name == "ChkViewer") {
            if (control.Index < 0 || control.Index >= static_cast<int>(f_.Show.size()))
                return name + " has members 0 to 9";
            f_.Show[static_cast<std::size_t>(control.Index)] = *on;
            return {};
        }
        if (control.Name == "OptType") return option(f_.DataFilter, 4);
        if (control.Name == "ColOpt") return option(f_.FreshExhaust, 2);
        if (control.Name == "OptDimmer") return option(f_.FlowLimitMode, 3);
        return "frmViewer has no control " + name;
    }

    std::string PressButton(const std::string& name) override {
        if (name == "cmdShowAll") {
            ShowAllDetails(f_);
        } else if (name == "cmdHide") {
            HideAllDetails(f_);
        } else if (name == "cmdCancel") {
            closed_ = true;
        } else if (name == "cmdOK") {
            // A refused flow limit keeps the form open.
            if (!ApplyViewer(c_.M, c_.Ds, f_, c_.Ui)) return {};
            display::ApplyRotation(c_.M, c_.Ds);
            closed_ = accepted_ = true;
            if (c_.Changed) c_.Changed();
        } else {
            return "frmViewer has no button " + name;
        }
        return {};
    }

private:
    FormContext c_;
    ViewerFields f_;
};

} // namespace

std::unique_ptr<ScriptableForm> OpenViewerForm(FormContext& context) { return std::make_unique<ViewerForm>(context); }

} // namespace karvane::forms
