// The airway dialogs as scriptable forms, and the set and select lines of a script.
#include "forms/airway_forms_script.h"

#include "forms/air_edit.h"
#include "forms/air_info.h"
#include "forms/fan_edit.h"

namespace karvane::forms {

namespace {

std::int32_t RowOfAirway(const Model& m, std::int32_t airwayNo) {
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r) {
        const Airway& a = m.Airways[static_cast<std::size_t>(r)];
        if (a.AirwayNo == airwayNo && a.BranchCode != 0) return r;
    }
    return 0;
}

class AirEditScript : public ScriptableForm {
public:
    explicit AirEditScript(FormContext& c) : c_(c), form_(c.M, c.Ui, c.Undo, memory_, c.Ui.DecimalSeparator()) {}
    bool Open() { return form_.Open(c_.Row, c_.Mode, c_.Ds.PickFraction); }

    std::string SetField(const std::string& name, const std::string& value) override {
        return form_.SetControl(name, value);
    }
    std::string PressButton(const std::string& name) override {
        if (name == "OK" || name == "Info") {
            Finish(name == "OK" ? form_.Ok() : form_.Info());
        } else if (name == "cmdCancel") {
            Finish(form_.Cancel());
        } else if (name == "ReCalc") {
            form_.Recalc();
            if (c_.Changed) c_.Changed();
        } else if (name == "CmdOriface") {
            form_.Orifice();
        } else if (name == "CmdShape") {
            form_.CmdShape();
        } else if (name == "CmdResetSekection") {
            form_.ResetSelection();
        } else if (name == "CmdShock") {
            return "the shock calculator is not run by a script: tick ChkShock and type the total into TxtShock";
        } else {
            return "frmAirEdit has no button " + name;
        }
        return {};
    }
    bool Closed() const override { return !form_.IsOpen(); }
    void Close() override {
        if (form_.IsOpen()) Finish(form_.Cancel());
    }

private:
    void Finish(const AirEditClose& closed) {
        accepted_ = closed.Applied;
        if (closed.Redraw && c_.Changed) c_.Changed();
    }

    FormContext c_;
    AirEditMemory memory_;
    AirEditForm form_;
};

class FanEditScript : public ScriptableForm {
public:
    explicit FanEditScript(FormContext& c) : c_(c), form_(c.M, c.Ui) {}
    bool Open() { return form_.Open(c_.Row); }

    std::string SetField(const std::string& name, const std::string& value) override {
        return form_.SetControl(name, value) ? std::string() : "frmFanEdit has no control " + name;
    }
    std::string PressButton(const std::string& name) override {
        if (name == "Command1") {
            form_.Ok();
            closed_ = accepted_ = true;
            if (c_.Changed) c_.Changed();
        } else if (name == "Command2") {
            closed_ = true;
        } else {
            return "frmFanEdit has no button " + name;
        }
        return {};
    }

private:
    FormContext c_;
    FanEditForm form_;
};

// The card shows; its buttons close it.
class AirInfoScript : public ScriptableForm {
public:
    std::string SetField(const std::string& name, const std::string&) override {
        return "frmAirInfo has no control " + name + " to fill in";
    }
    std::string PressButton(const std::string& name) override {
        if (name != "Command1" && name != "Command2" && name != "Prnter") return "frmAirInfo has no button " + name;
        if (name != "Prnter") closed_ = true;
        return {};
    }
};

} // namespace

std::unique_ptr<ScriptableForm> OpenAirEditScript(FormContext& context) {
    auto form = std::make_unique<AirEditScript>(context);
    if (!form->Open()) return nullptr;
    return form;
}

std::unique_ptr<ScriptableForm> OpenFanEditScript(FormContext& context) {
    auto form = std::make_unique<FanEditScript>(context);
    if (!form->Open()) return nullptr;
    return form;
}

std::unique_ptr<ScriptableForm> OpenAirInfoScript(FormContext& context) {
    if (FillAirInfo(context.M, context.Row, context.Ui.DecimalSeparator()).Row == 0) return nullptr;
    return std::make_unique<AirInfoScript>();
}

std::string SetAirwayByScript(FormContext& context, std::int32_t airwayNo,
                              const std::vector<std::pair<std::string, std::string>>& fields) {
    const std::int32_t row = RowOfAirway(context.M, airwayNo);
    if (row == 0) return "no airway numbered " + std::to_string(airwayNo);
    const bool selected = context.M.Airways[static_cast<std::size_t>(row)].Has(bc::Selected);
    AirEditMemory memory;
    AirEditForm form(context.M, context.Ui, context.Undo, memory, context.Ui.DecimalSeparator());
    form.Open(row, selected ? AirEditMultiple : AirEditSingle, context.Ds.PickFraction);
    for (const auto& [name, value] : fields) {
        const std::string reason = form.SetControl(name, value);
        if (!reason.empty()) {
            form.Cancel();
            return reason;
        }
    }
    form.Ok();
    if (context.Changed) context.Changed();
    return {};
}

std::string SelectAirwaysByScript(Model& model, const std::vector<std::int32_t>& airwayNos) {
    std::vector<std::int32_t> rows;
    for (const std::int32_t no : airwayNos) {
        const std::int32_t row = RowOfAirway(model, no);
        if (row == 0) return "no airway numbered " + std::to_string(no);
        rows.push_back(row);
    }
    if (rows.empty()) {
        for (std::int32_t r = 1; r <= model.AirwayCount; ++r)
            model.Airways[static_cast<std::size_t>(r)].BranchCode &= ~bc::Selected;
    }
    for (const std::int32_t r : rows) model.Airways[static_cast<std::size_t>(r)].BranchCode |= bc::Selected;
    return {};
}

} // namespace karvane::forms
