// The tools that act on what a click or a fence picks: Delete (Tool 4), Select (Tool 19), the
// attribute copy and paste (Tool 15), the layer copy and paste (Tool 16), and Follow (Tool 11),
// which walks the view from airway to airway. A view window's ToolHost forwards the release
// of these tools here. A drag of more than ScaleWidth / 50 in x or y is a fence: every drawn
// airway with an end or its midpoint inside it (edges included) takes part.
#pragma once

#include <cstdint>
#include <vector>

#include "display/picking.h"
#include "display/view_state.h"
#include "edit/edit_host.h"
#include "edit/find.h"
#include "edit/tool_dispatch.h"
#include "files/undo_log.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::edit {

class PickTools {
public:
    PickTools(Model& model, display::DisplayState& ds, ui::UserInterface& ui, files::UndoLog& undo, EditHost& host,
              FinderHost& finder);

    // Whether this class acts at the release of the tool.
    static bool Handles(int tool);
    // The release of a tool that Handles, from ToolHost::ToolRelease; false for another tool.
    // The dispatcher says whether the attribute tool copies to the defaults, and is told when
    // that copy is done (the tool goes back to the paste store).
    bool Release(const ToolEvent& event, ToolDispatcher& dispatcher);

    // The tools, each at its release.
    void DeleteTool(const ToolEvent& event);
    void SelectTool(const ToolEvent& event);
    // copyToDefaults: tool bar value 91. Returns true when the copy to the defaults was made.
    bool AttributeTool(const ToolEvent& event, bool copyToDefaults);
    void LayerTool(const ToolEvent& event);
    void FollowTool(const ToolEvent& event);

private:
    // The release lies far enough from the press for a fence.
    bool IsFence(const ToolEvent& event) const;
    display::FenceRect Fence(const ToolEvent& event) const;
    // The rows within the fence; with none, the window is redrawn (the rubber band goes).
    std::vector<std::int32_t> FenceRows(const ToolEvent& event);
    void DeleteSelection();
    // The display list rebuilt and the view reprojected after airways changed.
    void Rebuild();
    void Log(std::int32_t row, int action);
    Airway& Row(std::int32_t row) { return m_.Airways[static_cast<std::size_t>(row)]; }

    Model& m_;
    display::DisplayState& ds_;
    ui::UserInterface& ui_;
    files::UndoLog& undo_;
    EditHost& host_;
    FinderHost& finder_;
};

} // namespace karvane::edit
