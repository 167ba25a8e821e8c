// The attribute choice of the attribute tool.
#include "forms/attrib_form.h"

namespace karvane::forms {

namespace {

constexpr const char* kCaptions[AttribBoxes] = {
    "Shape and Dimensions", "Wall Friction Factor", "Shock Value",     "Resistance",  "Length",
    "Fresh / Return Air",   "Primary Layer",        "Secondary Layer", "Display data"};

constexpr std::int16_t Bit(int k) { return static_cast<std::int16_t>(1 << k); }

} // namespace

const char* AttribCaption(int k) { return k >= 0 && k < AttribBoxes ? kCaptions[k] : ""; }

AttribFields LoadAttribForm(const Model& model) {
    AttribFields f;
    for (int k = 0; k < AttribBoxes; ++k)
        f.ChkAttrib[static_cast<std::size_t>(k)] = (model.Set.AttributeMask & Bit(k)) == 0;
    return f;
}

void SelectAllAttributes(AttribFields& fields) { fields.ChkAttrib.fill(true); }

void DeselectAllAttributes(AttribFields& fields) { fields.ChkAttrib.fill(false); }

bool ApplyAttribForm(Model& model, const AttribFields& fields) {
    std::int16_t mask = 0;
    bool any = false;
    for (int k = 0; k < AttribBoxes; ++k) {
        if (fields.ChkAttrib[static_cast<std::size_t>(k)]) {
            any = true;
        } else {
            mask = static_cast<std::int16_t>(mask | Bit(k));
        }
    }
    if (!any) mask = -1; // every bit: nothing is carried
    if (mask == model.Set.AttributeMask) return false;
    model.Set.AttributeMask = mask;
    model.DefaultsSaved = No0;
    return true;
}

} // namespace karvane::forms
