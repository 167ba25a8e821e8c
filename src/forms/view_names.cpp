// Named views.
#include "forms/view_names.h"

#include "display/saved_views.h"
#include "display/view_title.h"
#include "display/view_transform.h"

namespace karvane::forms {

std::vector<std::string> NamedViewList(const Model& model) {
    std::vector<std::string> names;
    for (int slot = 1; slot <= display::LastNamedSlot && static_cast<std::size_t>(slot) < model.SavedViews.size();
         ++slot) {
        const std::string& name = model.SavedViews[static_cast<std::size_t>(slot)].ViewName;
        if (!name.empty()) names.push_back(name);
    }
    return names;
}

int SlotOfViewName(const Model& model, const std::string& name) {
    if (name.empty()) return 0;
    for (int slot = 1; slot <= display::LastNamedSlot && static_cast<std::size_t>(slot) < model.SavedViews.size();
         ++slot)
        if (model.SavedViews[static_cast<std::size_t>(slot)].ViewName == name) return slot;
    return 0;
}

std::string SaveNamedView(Model& model, const display::DisplayState& ds, ui::UserInterface& ui) {
    const std::optional<std::string> answer = ui.Input("Enter name of view", "View Name", "");
    if (!answer || answer->empty()) return {};
    const std::string& name = *answer;
    if (name.find(',') != std::string::npos) {
        ui.Message("No commas allowed in name !", ProgramName, ui::Icon::Exclamation);
        return {};
    }
    if (name.find('"') != std::string::npos || static_cast<unsigned char>(name[0]) < 48) {
        ui.Message("Invalid view name", ProgramName, ui::Icon::Exclamation);
        return {};
    }
    if (const int slot = SlotOfViewName(model, name); slot != 0) {
        if (ui.Ask("There is already a view with that name!\nDo you wish to overwrite ?", "Overwrite view",
                   ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes)
            return {};
        display::SaveViewToSlot(model, ds, slot);
        return name;
    }
    for (int slot = FirstUserViewSlot; slot <= LastUserViewSlot; ++slot) {
        SavedView& view = model.SavedViews[static_cast<std::size_t>(slot)];
        if (!view.ViewName.empty()) continue;
        display::SaveViewToSlot(model, ds, slot);
        view.ViewName = name;
        return name;
    }
    ui.Message("No view slots available to save view", ProgramName, ui::Icon::Exclamation);
    return {};
}

bool DeleteNamedView(Model& model, ui::UserInterface& ui, int position, const std::string& name) {
    if (position < PermanentViewCount) {
        ui.Message("Permanent view - cannot delete!", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    if (ui.Ask("Are you sure", "Delete View", ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes) return false;
    for (int slot = FirstUserViewSlot; slot <= display::LastNamedSlot; ++slot) {
        SavedView& view = model.SavedViews[static_cast<std::size_t>(slot)];
        if (view.ViewName != name) continue;
        view = SavedView{};
        break;
    }
    return true;
}

bool ChooseNamedView(Model& model, display::DisplayState& ds, ui::UserInterface& ui, const std::string& name) {
    const int slot = SlotOfViewName(model, name);
    if (slot == 0) {
        ui.Message("Error - could not load view", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    if (display::LoadViewFromSlot(model, ds, slot) == display::ViewLoad::AnglesOnly) {
        // A permanent view gives its angles only: the box is fitted to the network seen at them.
        ds.PlanCopyValid = false;
        display::FitView(model, ds, ui);
    }
    display::UpdateWindowTitle(model, ds);
    return true;
}

} // namespace karvane::forms
