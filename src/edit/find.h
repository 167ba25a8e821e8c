// The Find menu and FindNext: the kinds of search of mnuFinder with their input boxes, the
// search from the row after the last find with its one wrap to the first row, and the road of
// every find into ShowAirway, which the window around it carries out (FinderHost).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "display/view_state.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::edit {

// The entries of the Find menu, mnuFinder(0) to mnuFinder(9); entry k > 0 searches FindKind k,
// entry 0 is the follow tool.
inline constexpr int FinderEntries = 10;
const char* FinderCaption(int index);

// What a find needs of the window around it.
class FinderHost {
public:
    virtual ~FinderHost() = default;
    // ShowAirway for the row in the current window (the level chosen or "Global Level" added,
    // the layers on, the view centred), the level list refreshed, the window redrawn and the
    // airway marked with its two circles.
    virtual void ShowAirwayRow(std::int32_t row, float pickFraction) = 0;
};

// Upper case of network text in its code page (Windows-1252), as the searches compare.
std::string UpperText(std::string_view text);

// Whether the row is one the current search looks for.
bool FindMatches(const Model& model, std::int32_t row);

// The next row of the current search from FindFrom to the last row, starting over from row 1
// once; FindFrom then stands after it. 0 when there is no search or nothing was found, and
// then the user was told "No branches to find!".
std::int32_t FindNextRow(Model& model, ui::UserInterface& ui);

// FindNext (tool bar value 3 and the end of every Find menu entry): the next row shown with
// PickFraction 0. Returns the row shown, 0 for none.
std::int32_t FindNext(Model& model, display::DisplayState& ds, ui::UserInterface& ui, FinderHost& host);

// mnuFinder(index), 1 to 9: the input box of a number or name search (0 or an empty answer
// stops), the tick moved to the entry, then FindNext from row 1. Index 0 only takes the tick:
// the caller selects the follow tool. Returns the row shown, 0 for none.
std::int32_t Finder(Model& model, display::DisplayState& ds, ui::UserInterface& ui, FinderHost& host, int index);

} // namespace karvane::edit
