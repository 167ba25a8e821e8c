// The shock loss calculator (frmShock, "Shock Calculator"): twenty fittings, each a tick and a
// count, summed as an equivalent length in the display length unit. The airway editor takes
// the total into its custom shock box.
#pragma once

#include <array>
#include <string>

#include "engineering/resistance.h"
#include "model/model.h"

namespace karvane::forms {

inline constexpr const char* ShockNote =
    "Note : Shock losses to be included in airway following a change, except discharge which should precede a change.";

struct ShockFields {
    std::array<bool, ShockLossRowCount> ChkShockType{};
    std::array<std::string, ShockLossRowCount> LblNumS{};
    std::string LblShockTotal = "0";
};

class ShockForm {
public:
    // Opening: every count "0", the total 0.
    ShockForm(const Model& model, char decimalSep);

    ShockFields& Fields() { return f_; }
    const ShockFields& Fields() const { return f_; }
    float Total() const { return total_; }

    // Ticking a row whose count is 0 makes it 1; unticking makes it 0. Either works the total.
    void Tick(int row, bool on);
    // A key in a count box ticks its row and leaves the count as it is.
    void CountKey(int row);
    // A count typed and the box left (or Enter pressed): the total is worked.
    void SetCount(int row, const std::string& text);
    // CmdUpdate, and every change above.
    void Update();
    // cmdOK leaves the total; Command2 and the frame's close set it to 0.
    float Ok() const { return total_; }
    float Cancel() {
        total_ = 0;
        return 0;
    }

private:
    const Model& model_;
    char sep_;
    ShockFields f_;
    float total_ = 0;
};

} // namespace karvane::forms
