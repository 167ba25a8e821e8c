// The records of the undo log: fixed 256-byte slots, one per index row, written in place.
#include "files/undo_log.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <unordered_map>

#include "files/network_file.h"
#include "model/network_rows.h"
#include "model/node_keys.h"

namespace karvane::files {

namespace {

// The rows of the table by UndoNo, each list in ascending row order, so that its last entry is
// the row a search from the last row down finds first. Built once per undo or redo, so that a
// step of a thousand rows costs no thousand scans of the table.
class RowsByUndoNo {
public:
    explicit RowsByUndoNo(const Model& model) {
        for (std::int32_t row = 1; row <= model.AirwayCount; ++row) {
            const std::int32_t no = model.Airways[static_cast<std::size_t>(row)].UndoNo;
            if (no != 0) rows_[no].push_back(row);
        }
    }
    // The last row with this UndoNo, taken out of the lists; 0 for none.
    std::int32_t TakeLast(std::int32_t undoNo) {
        const auto found = rows_.find(undoNo);
        if (found == rows_.end() || found->second.empty()) return 0;
        const std::int32_t row = found->second.back();
        found->second.pop_back();
        return row;
    }
    // Every row with this UndoNo, taken out of the lists.
    std::vector<std::int32_t> TakeAll(std::int32_t undoNo) {
        const auto found = rows_.find(undoNo);
        if (found == rows_.end()) return {};
        std::vector<std::int32_t> rows = std::move(found->second);
        rows_.erase(found);
        return rows;
    }
    // A row appended at the end of the table.
    void Add(std::int32_t undoNo, std::int32_t row) {
        if (undoNo != 0) rows_[undoNo].push_back(row);
    }

private:
    std::unordered_map<std::int32_t, std::vector<std::int32_t>> rows_;
};

// The version of the row text in the records: the network file's own.
constexpr double kRecordVersion = 2.6;

// A record without its blank padding. Only blanks go: a row text begins with a tab when its
// first name is empty, and that tab holds the places of the fields.
std::string_view WithoutPadding(std::string_view record) {
    std::size_t b = 0, e = record.size();
    while (b < e && record[b] == ' ') ++b;
    while (e > b && record[e - 1] == ' ') --e;
    return record.substr(b, e - b);
}

} // namespace

UndoLog::~UndoLog() {
    Close();
    if (!path_.empty()) {
        std::error_code ec;
        std::filesystem::remove(path_, ec);
    }
}

void UndoLog::Close() {
    if (file_) std::fclose(file_);
    file_ = nullptr;
}

bool UndoLog::Open(ui::UserInterface& ui, const std::string& path) {
    Close();
    sep_ = ui.DecimalSeparator();
    path_ = path;
    if (path_.empty()) {
        std::random_device rd;
        const std::string name = "karvane-undo-" + std::to_string(rd()) + "-" + std::to_string(rd() % 100000u) + ".dat";
        const std::string folder = ui.TempPath();
        path_ = folder.empty() ? name : (std::filesystem::path(folder) / name).string();
    }
    file_ = std::fopen(path_.c_str(), "w+b");
    writing_ = false;
    CurrentStep = 1;
    NextUndoRow = 1;
    LogTruncated = true;
    if (!file_) {
        ui.Message("Error loading UNDO file", ProgramName, ui::Icon::Exclamation);
        return false;
    }
    return true;
}

void UndoLog::ResetUndo() {
    CurrentStep = 1;
    NextUndoRow = 1;
    LogTruncated = true;
    std::fill(UndoIndex.begin(), UndoIndex.end(), UndoEntry{});
    if (!path_.empty()) {
        Close();
        file_ = std::fopen(path_.c_str(), "w+b");
        writing_ = false;
    }
}

void UndoLog::LogAirway(Model& model, ui::UserInterface& ui, std::int32_t row, int action, std::int16_t step) {
    model.SimValid = Validity::NotValid;
    if (!LogTruncated) {
        for (std::int32_t k = 1; k <= UndoCapacity; ++k) {
            if (UndoIndex[static_cast<std::size_t>(k)].UndoStep == step) {
                NextUndoRow = static_cast<std::int16_t>(k);
                break;
            }
        }
        LogTruncated = true;
    }

    const bool hasRow = row >= 1 && static_cast<std::size_t>(row) < model.Airways.size();
    UndoEntry& entry = UndoIndex[static_cast<std::size_t>(NextUndoRow)];
    entry.UndoStep = step;
    entry.UndoAction = static_cast<std::int16_t>(action);
    entry.UndoRowNo = 0;
    if (action != undo::Mark && hasRow) {
        Airway& a = model.Airways[static_cast<std::size_t>(row)];
        if (action == undo::After || a.UndoNo == 0) {
            if (LastUndoNo < INT32_MAX) ++LastUndoNo;
            a.UndoNo = LastUndoNo;
        }
        entry.UndoRowNo = a.UndoNo;
        if (file_) {
            std::string record = AirwayRowText(model, row, sep_);
            record.resize(UndoRecordLength, ' ');
            const long offset = static_cast<long>(NextUndoRow - 1) * static_cast<long>(UndoRecordLength);
            // Records of one step follow each other: a seek (which empties the write buffer) only
            // when the record is not the next one in the file, or a read came between.
            if ((writing_ && std::ftell(file_) == offset) || std::fseek(file_, offset, SEEK_SET) == 0)
                writing_ = std::fwrite(record.data(), 1, record.size(), file_) == record.size();
        }
    }

    if (NextUndoRow >= UndoCapacity) {
        ui.Message("Undo buffer full - clearing buffer ...", ProgramName, ui::Icon::Information);
        NextUndoRow = 1;
    } else {
        ++NextUndoRow;
    }
}

void UndoLog::RestoreRecord(Model& model, ui::UserInterface& ui, std::int32_t k) {
    ++model.AirwayCount;
    const std::string record = RecordText(k);
    const std::string_view text = WithoutPadding(record);
    // Beyond the capacity the parse says so and holds the count at the capacity.
    if (model.AirwayCount > MaxAirways) {
        ParseAirwayRow(model, ui, text, model.AirwayCount, kRecordVersion, sep_);
        model.AirwayCount = std::min(model.AirwayCount, MaxAirways);
        return;
    }
    ClearAirwayRow(model, model.AirwayCount);
    if (!text.empty()) ParseAirwayRow(model, ui, text, model.AirwayCount, kRecordVersion, sep_);
}

bool UndoLog::UndoStepRows(Model& model, ui::UserInterface& ui) {
    RowsByUndoNo rows(model);
    bool changed = false;
    for (std::int32_t k = NextUndoRow - 1; k >= 1; --k) {
        const UndoEntry& e = UndoIndex[static_cast<std::size_t>(k)];
        if (e.UndoStep != CurrentStep) continue;
        if (e.UndoAction == undo::After) {
            const std::int32_t row = rows.TakeLast(e.UndoRowNo);
            if (row == 0) continue;
            ClearAirwayRow(model, row);
            changed = true;
        } else if (e.UndoAction == undo::Before) {
            // At the capacity the rows cleared so far make room first; the compaction at the
            // end would close the same gaps, so the rows come out in the same order.
            if (model.AirwayCount >= MaxAirways) {
                CompactAirways(model);
                rows = RowsByUndoNo(model);
            }
            RestoreRecord(model, ui, k);
            const std::int32_t row = model.AirwayCount;
            if (row >= 1 && static_cast<std::size_t>(row) < model.Airways.size())
                rows.Add(model.Airways[static_cast<std::size_t>(row)].UndoNo, row);
            changed = true;
        }
    }
    CompactAirways(model);
    return changed;
}

bool UndoLog::Undo(Model& model, ui::UserInterface& ui) {
    // Without its record file the log has no rows to put back: nothing can be undone.
    if (!file_) {
        ui.Message("No more actions to undo", ProgramName, ui::Icon::Information);
        return false;
    }
    ui.SetBusy(true);
    bool anything = false;
    for (;;) {
        --CurrentStep;
        if (CurrentStep < 1) {
            CurrentStep = 1;
            ui.Message("No more actions to undo", ProgramName, ui::Icon::Information);
            break;
        }
        if (!UndoStepRows(model, ui)) continue; // an empty step
        anything = true;
        LogTruncated = false;
        BuildNodeKeys(model, ui);
        // The reversal step of a run belongs to the step before it.
        if (model.AirwaysTurned) {
            model.AirwaysTurned = false;
            continue;
        }
        break;
    }
    ui.SetBusy(false);
    return anything;
}

bool UndoLog::Redo(Model& model, ui::UserInterface& ui) {
    if (!file_) {
        ui.Message("No more actions available to redo", ProgramName, ui::Icon::Information);
        return false;
    }
    ui.SetBusy(true);
    RowsByUndoNo rows(model);
    bool changed = false;
    for (std::int32_t k = NextUndoRow - 1; k >= 1; --k) {
        const UndoEntry& e = UndoIndex[static_cast<std::size_t>(k)];
        if (e.UndoStep != CurrentStep || e.UndoAction != undo::Before) continue;
        for (std::int32_t row : rows.TakeAll(e.UndoRowNo)) {
            ClearAirwayRow(model, row);
            changed = true;
        }
    }
    for (std::int32_t k = NextUndoRow - 1; k >= 1; --k) {
        const UndoEntry& e = UndoIndex[static_cast<std::size_t>(k)];
        if (e.UndoStep != CurrentStep || e.UndoAction != undo::After) continue;
        if (model.AirwayCount >= MaxAirways) CompactAirways(model);
        RestoreRecord(model, ui, k);
        changed = true;
    }
    CompactAirways(model);
    if (!changed) ui.Message("No more actions available to redo", ProgramName, ui::Icon::Information);
    if (CurrentStep < INT16_MAX) ++CurrentStep;
    BuildNodeKeys(model, ui);
    ui.SetBusy(false);
    return changed;
}

std::string UndoLog::RecordText(std::int32_t k) const {
    if (!file_ || k < 1 || k > UndoCapacity) return {};
    std::fflush(file_);
    writing_ = false;
    std::string record(UndoRecordLength, ' ');
    const long offset = static_cast<long>(k - 1) * static_cast<long>(UndoRecordLength);
    if (std::fseek(file_, offset, SEEK_SET) != 0) return {};
    const std::size_t got = std::fread(record.data(), 1, record.size(), file_);
    record.resize(got);
    return record;
}

} // namespace karvane::files
