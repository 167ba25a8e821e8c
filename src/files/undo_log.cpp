// The records of the undo log: fixed 256-byte slots, one per index row, written in place.
#include "files/undo_log.h"

#include <algorithm>
#include <filesystem>
#include <random>

#include "files/network_file.h"

namespace karvane::files {

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
    }
}

void UndoLog::LogAirway(Model& model, ui::UserInterface& ui, std::int32_t row, int action, std::int16_t step) {
    model.SimValid = 0;
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
            if (std::fseek(file_, offset, SEEK_SET) == 0) std::fwrite(record.data(), 1, record.size(), file_);
        }
    }

    if (NextUndoRow >= UndoCapacity) {
        ui.Message("Undo buffer full - clearing buffer ...", ProgramName, ui::Icon::Information);
        NextUndoRow = 1;
    } else {
        ++NextUndoRow;
    }
}

std::string UndoLog::RecordText(std::int32_t k) const {
    if (!file_ || k < 1 || k > UndoCapacity) return {};
    std::fflush(file_);
    std::string record(UndoRecordLength, ' ');
    const long offset = static_cast<long>(k - 1) * static_cast<long>(UndoRecordLength);
    if (std::fseek(file_, offset, SEEK_SET) != 0) return {};
    const std::size_t got = std::fread(record.data(), 1, record.size(), file_);
    record.resize(got);
    return record;
}

} // namespace karvane::files
