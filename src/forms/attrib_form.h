// frmAttrib ("Copy/Paste Attributes"): which attributes of an airway the attribute tool
// carries. One check box per attribute (ChkAttrib(0) to ChkAttrib(8)), "Select All",
// "Deselect All" and OK; the choice is the setting AttributeMask, a bit set for each
// attribute left alone.
#pragma once

#include <array>
#include <cstdint>

#include "model/model.h"

namespace karvane::forms {

inline constexpr int AttribBoxes = 9;

struct AttribFields {
    std::array<bool, AttribBoxes> ChkAttrib{}; // ticked: the attribute is carried
};

// The caption of ChkAttrib(k).
const char* AttribCaption(int k);

AttribFields LoadAttribForm(const Model& model);
void SelectAllAttributes(AttribFields& fields);
void DeselectAllAttributes(AttribFields& fields);
// OK: AttributeMask from the boxes; with none ticked every bit is set, so that nothing is
// carried. Returns whether the setting changed.
bool ApplyAttribForm(Model& model, const AttribFields& fields);

} // namespace karvane::forms
