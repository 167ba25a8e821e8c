// The construction tools of the view windows: Draw, Move (an end, a node, a fence of airways
// or the selection), Reverse, Insert Node, the Fan tool's road into the fan dialog, the Edit
// tool's quick bulkhead toggle and road into the airway editor, and Names for nodes, airways,
// selections and floating text. A view window's ToolHost forwards its ToolPress and
// ToolRelease here; the class acts on the network through the row operations, logs every row
// it touches in the undo log and closes the step, and reaches the dialogs and the redraws
// through EditHost. No platform code: the desktop program and the script of the user's
// actions drive the same object.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "display/view_state.h"
#include "display/view_transform.h"
#include "edit/edit_host.h"
#include "edit/tool_dispatch.h"
#include "files/undo_log.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::edit {

// The working values of one construction, kept from the press to the release. Every path of
// a release clears them.
struct Construction {
    display::WorldPoint StartPoint; // the start, picked or entered
    bool StartNamed = false;        // StartNodeName holds a name (a node was hit)
    std::string StartNodeName;
    std::string EndNodeName;
    std::int32_t StartZ = 0, EndZ = 0;
    std::int32_t StartAirway = 0;  // the airway whose node the start is on: it donates properties
    std::int32_t SplitAtStart = 0; // the airway to split at the start, 0 for none
    float StartFraction = 0;       // PickFraction of the start's airway pick
    std::int32_t PressAirway = 0;  // the airway picked at a Move press (node or line), 0 for none
    std::int32_t PressLevel = 0;   // CurRL at the press
    // The level shown at the press (the position of the level scroll bar): a change during
    // the drag gives a free end the middle of the new level.
    std::int16_t PressLevelMode = 0, PressCurrentLevel = 0;
    std::int32_t PressRLMin = 0, PressRLMax = 0;
    float PressCurX = 0, PressCurY = 0; // cursor of the press before any snap
    int PressWindow = -1;
    int PressButton = 0;
    bool EndEntered = false;   // the end came from the coordinate entry
    bool StartEntered = false; // the start came from the coordinate entry
    bool PressHit = false;     // the press picked a node, an airway or a text
    std::int32_t MoveEnd = 0;  // Move: -row its From end, +row its To end, 0 every end at the start
    bool DragText = false;     // Move: a floating text is dragged
    std::int32_t TextSlot = 0;
    bool FenceDrag = false; // Move: the press hit nothing, the drag is a fence
    bool CopyMove = false;  // "Make a copy" of the coordinate entry
    bool Active = false;    // a press of Draw or Move is in progress
};

class EditTools {
public:
    EditTools(Model& model, display::DisplayState& ds, ui::UserInterface& ui, files::UndoLog& undo, EditHost& host);

    // Whether this class acts at the release of a tool (Draw, Move, Reverse, Fan, Names,
    // Edit, Insert Node).
    static bool Handles(int tool);

    // The press of Draw and Move, from ToolHost::ToolPress. The press point of the dispatcher
    // is snapped onto what was hit, or the press is dropped when a coordinate entry at the
    // press is cancelled.
    void Press(const ToolEvent& event, ToolDispatcher& dispatcher);
    // The release of any tool that Handles, from ToolHost::ToolRelease; false for another tool.
    bool Release(const ToolEvent& event);
    // The coordinate entry is open: the mouse handlers stay out (ToolHost::CoordinateDialogOpen).
    bool CoordinateDialogOpen() const { return coordsOpen_; }
    const Construction& State() const { return c_; }

    // The operations of the tools, each a whole action that closes its undo step unless said.
    // Splits an airway at a point on it: the row keeps its From end and the point, a new row
    // takes the point and the old To end. Logs both rows; the caller closes the step. Returns
    // the new row, or 0 when the network is full (told to the user, nothing changed).
    std::int32_t SplitAirway(std::int32_t x, std::int32_t y, std::int32_t z, std::int32_t row);
    // Turns an airway round (all selected airways when it is selected).
    void ReverseAirway(std::int32_t row);
    // Moves the selected airways, or copies of them with CopyMove, by a delta.
    void MoveSelected(std::int32_t dx, std::int32_t dy, std::int32_t dz, bool copy);
    // Every airway end at `from` (or only the end `moveEnd`, -row From, +row To) moves to `to`.
    void MoveEnds(const display::WorldPoint& from, const display::WorldPoint& to, std::int32_t moveEnd);

private:
    void PressDrawOrMove(const ToolEvent& event, ToolDispatcher& dispatcher);
    void ConstructAirway(const ToolEvent& event);
    void MoveAirwayEnd(const ToolEvent& event);
    void FenceMove(const ToolEvent& event);
    void ReverseTool(const ToolEvent& event);
    void InsertNode(const ToolEvent& event);
    void FanTool(const ToolEvent& event);
    void EditTool(const ToolEvent& event);
    void NameTool(const ToolEvent& event);

    std::optional<CoordsResult> Coords(const CoordsRequest& request);
    bool LevelShownChanged() const;
    void CloseStep();
    void Log(std::int32_t row, int action);
    Airway& Row(std::int32_t row) { return m_.Airways[static_cast<std::size_t>(row)]; }
    // After ends moved: the step closed, keys refreshed, lengths recalculated, the display list
    // rebuilt, the view kept where it is, every window redrawn.
    void FinishMove();
    // The copies of a move would pass the capacity.
    void TellNetworkFull();
    // The display list rebuilt and, in 3D, the projection (with the rotation centre kept).
    void Rebuild(bool keepCentre);

    Model& m_;
    display::DisplayState& ds_;
    ui::UserInterface& ui_;
    files::UndoLog& undo_;
    EditHost& host_;
    Construction c_;
    bool coordsOpen_ = false;
};

// The Window menu's "Layer Inheritance": toggles LayerInherit and says what new airways will do.
void ToggleLayerInheritance(Model& model, ui::UserInterface& ui);

} // namespace karvane::edit
