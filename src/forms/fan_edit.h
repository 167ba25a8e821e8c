// The fan dialog of the fan tool (frmFanEdit, "Fan Edit"): puts a fan of the database on an
// airway, with the number of fans, series or parallel, and the curve it runs on, without the
// whole airway editor.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/air_edit.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::forms {

inline constexpr const char* FanDatabaseError = "Error detected in Fan Database";

struct FanEditFields {
    std::vector<ListRow> FanCombo2; // "None", then each named fan
    int FanIndex = 0;
    std::string TxtFanN = "0";
    int VSF = MaxFansInAirway; // 10 minus the count
    bool OptSer2 = false;      // "Series"; OptPar2 "Parallel" is the opposite
    int OptCurveType = 0;      // 0 "Static curve", 1 "Total curve", 2 "Combo curve"
    std::string TxtVPart = "0";
    bool TxtVPartVisible = false;
};

class FanEditForm {
public:
    FanEditForm(Model& model, ui::UserInterface& ui);

    // Opens on airway `row`; false when the row is not an airway of the network.
    bool Open(std::int32_t row);
    FanEditFields& Fields() { return f_; }
    const FanEditFields& Fields() const { return f_; }

    void ChooseFan(int index);
    void SetFanCount(int count); // VSF, or the count typed (held within 0 to 10)
    void ChooseCurve(int option);
    void ChooseSeries(bool series);
    // A control by its name (FanCombo2, TxtFanN, OptCurveType, TxtVPart, OptSer2, OptPar2).
    bool SetControl(const std::string& name, const std::string& value);

    // Command1 ("OK"): writes the fan to the airway. Command2 ("Cancel") changes nothing.
    void Ok();
    void Cancel() {}

private:
    Model& model_;
    ui::UserInterface& ui_;
    FanEditFields f_;
    std::int32_t row_ = 0;
    bool fanDetected_ = true;
    bool touched_ = false;
};

} // namespace karvane::forms
