// The in-place box of the tables and their clipboard text.
#include "forms/grid_edit.h"

#include <algorithm>

namespace karvane::forms {
namespace {

GridCell Bounded(GridCell c, const GridLimits& limits) {
    c.Row = std::clamp(c.Row, limits.FirstRow, std::max(limits.FirstRow, limits.LastRow));
    c.Col = std::clamp(c.Col, limits.FirstCol, std::max(limits.FirstCol, limits.LastCol));
    return c;
}

} // namespace

std::string BoxText(std::string_view typed, char sep) {
    std::string out;
    for (char ch : typed) {
        if (ch == '\r') continue;
        out += ch == '.' ? sep : ch;
    }
    return out;
}

GridStep GridKeyStep(bool boxOpen, GridKey key, std::string_view typed, GridCell at, const GridLimits& limits,
                     bool editable, char sep) {
    GridStep step;
    step.Next = at;
    if (boxOpen) {
        switch (key) {
        case GridKey::Escape: step.Action = GridAction::Cancel; break;
        case GridKey::Enter:
            step.Action = GridAction::CommitMove;
            step.Next = Bounded({at.Row + 1, at.Col}, limits);
            break;
        case GridKey::Tab:
            step.Action = GridAction::CommitMove;
            step.Next = Bounded({at.Row, at.Col + 1}, limits);
            break;
        case GridKey::Up:
            step.Action = GridAction::CommitMove;
            step.Next = Bounded({at.Row - 1, at.Col}, limits);
            break;
        case GridKey::Down:
            step.Action = GridAction::CommitMove;
            step.Next = Bounded({at.Row + 1, at.Col}, limits);
            break;
        default: break; // typing inside the box is the box's own business
        }
        return step;
    }
    switch (key) {
    case GridKey::Escape: step.Action = GridAction::EscapeForm; break;
    case GridKey::Delete: step.Action = GridAction::Clear; break;
    case GridKey::DoubleClick:
        if (editable && limits.Contains(at)) step.Action = GridAction::OpenKeep;
        break;
    case GridKey::Char: {
        if (!editable || !limits.Contains(at) || typed.empty()) break;
        const unsigned char code = static_cast<unsigned char>(typed.front());
        if (code < 32 || code == 127) break; // control keys do not open the box
        if (code == 32) {
            step.Action = GridAction::OpenKeep;
            break;
        }
        step.Action = GridAction::OpenReplace;
        step.Text = BoxText(typed, sep);
        break;
    }
    default: break;
    }
    return step;
}

std::string ClipboardText(const CellTable& rows) {
    std::string out;
    for (const auto& row : rows) {
        for (std::size_t c = 0; c < row.size(); ++c) {
            if (c > 0) out += '\t';
            out += row[c];
        }
        out += "\r\n";
    }
    return out;
}

CellTable ReadClipboardTable(std::string_view text) {
    CellTable table;
    std::vector<std::string> row;
    std::string cell;
    bool pending = false; // something of the current row has been read
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char ch = text[i];
        if (ch == '\t') {
            row.push_back(std::move(cell));
            cell.clear();
            pending = true;
        } else if (ch == '\r' || (ch == '\n' && (i == 0 || text[i - 1] != '\r'))) {
            row.push_back(std::move(cell));
            cell.clear();
            table.push_back(std::move(row));
            row.clear();
            pending = false;
        } else if (ch == '\n') {
            continue;
        } else {
            cell += ch;
            pending = true;
        }
    }
    if (pending) {
        row.push_back(std::move(cell));
        table.push_back(std::move(row));
    }
    return table;
}

int ClipboardColumns(const CellTable& clip) {
    std::size_t widest = 0;
    for (const auto& row : clip) widest = std::max(widest, row.size());
    return static_cast<int>(widest);
}

std::vector<CellWrite> PasteWrites(const CellTable& clip, GridCell from, int selectionLastRow,
                                   const GridLimits& limits) {
    std::vector<CellWrite> writes;
    if (clip.empty()) return writes;
    const int height = static_cast<int>(clip.size());
    int top = from.Row;
    do {
        for (int r = 0; r < height; ++r) {
            const auto& row = clip[static_cast<std::size_t>(r)];
            for (std::size_t c = 0; c < row.size(); ++c) {
                const GridCell cell{top + r, from.Col + static_cast<int>(c)};
                if (limits.Contains(cell)) writes.push_back({cell, row[c]});
            }
        }
        top += height;
    } while (top <= selectionLastRow && top <= limits.LastRow);
    return writes;
}

} // namespace karvane::forms
