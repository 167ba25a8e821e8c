// The undo log: every edit logs the airway rows it touches as whole rows, in the row text of
// the network file, as fixed records of 256 bytes in a file of the temporary folder, beside an
// index in memory that says which step and which action each record belongs to. The editing
// commands log through it; Undo and Redo read the same index and records back into the table.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::files {

inline constexpr std::size_t UndoRecordLength = 256;

// What an index entry holds.
namespace undo {
inline constexpr int After = 1;  // the row as it is after the step
inline constexpr int Before = 2; // the row as it was before the step
inline constexpr int Mark = 3;   // a mark without a row
} // namespace undo

struct UndoEntry {
    std::int16_t UndoStep = 0;
    std::int16_t UndoAction = 0;
    std::int32_t UndoRowNo = 0; // UndoNo of the row; wider than a step so that it never wraps
};

class UndoLog {
public:
    UndoLog() : UndoIndex(static_cast<std::size_t>(UndoCapacity) + 1) {}
    ~UndoLog();
    UndoLog(const UndoLog&) = delete;
    UndoLog& operator=(const UndoLog&) = delete;

    // Opens the record file anew at `path`, or, when it is empty, under a name of this log's own
    // in the temporary folder, so that two running programs never share one. On failure the user
    // is told "Error loading UNDO file" and the log goes on without records (the index still
    // counts). Row texts take the machine's decimal separator. Returns whether the file opened.
    bool Open(ui::UserInterface& ui, const std::string& path = {});

    // CurrentStep and NextUndoRow back to 1, the record file emptied.
    void ResetUndo();

    // Logs one row under `step`: action 2 before a change, 1 after it (a new row 1 alone, a
    // deleted row 2 alone), 3 a mark without a row. Drops the valid state of the simulation,
    // cuts the redo tail left by an undo, gives the row a new UndoNo for action 1 or when it
    // has none, and writes the row text to the record of the entry. When the index passes its
    // capacity the user is told "Undo buffer full - clearing buffer ..." and it starts again
    // at 1, overwriting the oldest entries.
    void LogAirway(Model& model, ui::UserInterface& ui, std::int32_t row, int action, std::int16_t step);

    // Undo: steps back from CurrentStep to the last step that changed something (an empty step
    // is skipped), takes out the rows that step added and puts back the rows it removed, and
    // rebuilds the node keys. A step that reversed airways after a run belongs to the step
    // before it, which goes with it. With nothing left: "No more actions to undo". Returns
    // whether the table changed; the caller rebuilds the display list and redraws.
    bool Undo(Model& model, ui::UserInterface& ui);
    // Redo: the step at CurrentStep done again, then CurrentStep raised. With nothing to do:
    // "No more actions available to redo". Returns whether the table changed.
    bool Redo(Model& model, ui::UserInterface& ui);

    // The record of index row k as stored (256 bytes, blank padded), or empty without a file.
    std::string RecordText(std::int32_t k) const;
    const std::string& Path() const { return path_; }

    std::vector<UndoEntry> UndoIndex; // rows 1..UndoCapacity; [0] unused
    std::int16_t CurrentStep = 1;     // the step in the making
    std::int16_t NextUndoRow = 1;     // the next free index row
    std::int32_t LastUndoNo = 0;      // the highest UndoNo given so far
    bool LogTruncated = true;         // false right after an undo

private:
    void Close();
    // Takes back one step (CurrentStep after it was lowered); whether a row changed.
    bool UndoStepRows(Model& model, ui::UserInterface& ui);
    // Appends the row of record k at the end of the table.
    void RestoreRecord(Model& model, ui::UserInterface& ui, std::int32_t k);

    std::FILE* file_ = nullptr;
    mutable bool writing_ = false; // the last access to the file was a write
    std::string path_;
    char sep_ = '.';
};

} // namespace karvane::files
