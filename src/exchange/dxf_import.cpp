// The DXF reader of the import: pairs of lines, a group code and a value, both trimmed and in
// capitals; the entities that carry centre lines become airway rows.
#include <cmath>
#include <optional>
#include <string>

#include "exchange/import_rows.h"
#include "files/number_text.h"

namespace karvane::exchange {

namespace {

struct Pair {
    int Code = -1;
    bool CodeIsNumber = true;
    std::string Value;
};

std::string Upper(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

// Reads pairs; one pair can be put back, so that the code 0 that ends an entity starts the next.
class PairReader {
public:
    explicit PairReader(files::TextFileReader& in) : in_(in) {}

    bool Next(Pair& pair) {
        if (held_) {
            pair = *held_;
            held_.reset();
            return true;
        }
        std::string code, value;
        if (!in_.ReadLine(code)) return false;
        if (!in_.ReadLine(value)) return false; // a code without its value ends the file
        code = TrimText(code);
        pair.CodeIsNumber = files::IsNumber(code);
        const double c = files::ParseNumber(code);
        pair.Code = pair.CodeIsNumber && c >= -1e6 && c <= 1e6 ? static_cast<int>(c) : -1;
        pair.Value = Upper(TrimText(value));
        return true;
    }
    void PutBack(const Pair& pair) { held_ = pair; }

private:
    files::TextFileReader& in_;
    std::optional<Pair> held_;
};

struct Point {
    double X = 0, Y = 0, Z = 0;
};

class DxfReader {
public:
    DxfReader(ImportRows& rows, files::TextFileReader& in) : rows_(rows), pairs_(in) {}

    void Read() {
        Pair p;
        if (!pairs_.Next(p)) return;
        const bool ownScreenFile = p.Value.rfind("KARVANE", 0) == 0;
        pairs_.PutBack(p);
        while (!rows_.Stopped() && Next(p)) {
            if (p.Code != 0) continue;
            if (p.Value == "EOF") break;
            if (p.Value == "LINE") {
                ReadLine(false);
            } else if (ownScreenFile) {
                continue;
            } else if (p.Value == "3DLINE") {
                ReadLine(true);
            } else if (p.Value == "POLYLINE") {
                ReadPolyline();
            } else if (p.Value == "VERTEX") {
                ReadVertices(0); // vertices without their polyline
            } else if (p.Value == "LWPOLYLINE") {
                ReadLightPolyline();
            }
        }
    }

private:
    // The next pair whose code is a number; a garbled code is a fault of the file.
    bool Next(Pair& p) {
        while (pairs_.Next(p)) {
            if (p.CodeIsNumber) return true;
            if (!rows_.Fault()) return false;
        }
        return false;
    }

    // The value of a coordinate pair; a value that is no number is a fault and counts as 0.
    std::optional<double> Number(const Pair& p) {
        if (files::IsNumber(p.Value)) return files::ParseNumber(p.Value);
        if (!rows_.Fault()) return std::nullopt;
        return 0.0;
    }

    Airway* AddRow(const Point& a, const Point& b) {
        Airway* row = rows_.NewRow();
        if (!row) return nullptr;
        row->X1 = rows_.Coordinate(a.X), row->Y1 = rows_.Coordinate(a.Y), row->Z1 = rows_.Coordinate(a.Z);
        row->X2 = rows_.Coordinate(b.X), row->Y2 = rows_.Coordinate(b.Y), row->Z2 = rows_.Coordinate(b.Z);
        return row;
    }

    // LINE: codes 10, 20, 30 and 11, 21, 31 up to the next code 0; 3DLINE ends at code 31.
    void ReadLine(bool endsAt31) {
        Point a, b;
        Pair p;
        while (Next(p)) {
            if (p.Code == 0) {
                pairs_.PutBack(p);
                break;
            }
            double* target = nullptr;
            switch (p.Code) {
            case 10: target = &a.X; break;
            case 20: target = &a.Y; break;
            case 30: target = &a.Z; break;
            case 11: target = &b.X; break;
            case 21: target = &b.Y; break;
            case 31: target = &b.Z; break;
            default: break;
            }
            if (!target) continue;
            const std::optional<double> v = Number(p);
            if (!v) return;
            *target = *v;
            if (endsAt31 && p.Code == 31) break;
        }
        if (!rows_.Stopped()) AddRow(a, b);
    }

    // POLYLINE: its own pairs up to the first VERTEX. A 2D polyline (neither 3D nor a mesh)
    // stands at the elevation of its own code 30, which its vertices leave at 0.
    void ReadPolyline() {
        double elevation = 0;
        int flags = 0;
        Pair p;
        while (Next(p)) {
            if (p.Code == 0) break;
            if (p.Code == 30 || p.Code == 70) {
                const std::optional<double> v = Number(p);
                if (!v) return;
                if (p.Code == 30) elevation = *v;
                else flags = std::isfinite(*v) && std::fabs(*v) < 1e6 ? static_cast<int>(*v) : 0;
            }
        }
        if (rows_.Stopped() || p.Code != 0) return;
        if (p.Value != "VERTEX") {
            if (p.Value != "SEQEND") pairs_.PutBack(p);
            return;
        }
        const bool flat = (flags & (8 | 16 | 64)) == 0;
        ReadVertices(flat ? elevation : 0);
    }

    // VERTEX entities up to SEQEND: each vertex after the first ends one row and starts the
    // next, so that n vertices give n - 1 rows. Called just after a VERTEX.
    void ReadVertices(double elevation) {
        std::optional<Point> previous;
        Pair p;
        for (;;) {
            Point v{0, 0, elevation};
            bool ended = true;
            while (Next(p)) {
                if (p.Code == 0) {
                    ended = false;
                    break;
                }
                if (p.Code != 10 && p.Code != 20 && p.Code != 30) continue;
                const std::optional<double> n = Number(p);
                if (!n) return;
                if (p.Code == 10) v.X = *n;
                else if (p.Code == 20) v.Y = *n;
                else v.Z = *n + elevation;
            }
            if (rows_.Stopped()) return;
            if (previous) AddRow(*previous, v);
            previous = v;
            if (ended || rows_.Stopped()) return;
            if (p.Value == "VERTEX") continue;
            if (p.Value != "SEQEND") pairs_.PutBack(p);
            return;
        }
    }

    // LWPOLYLINE: code 90 the count of vertices, code 38 the elevation of them all, then pairs of
    // codes 10 and 20. A row whose ends fall together in plan is not kept.
    void ReadLightPolyline() {
        double count = -1, elevation = 0;
        std::vector<Point> points;
        bool haveX = false;
        Point next;
        Pair p;
        while (Next(p)) {
            if (p.Code == 0) {
                pairs_.PutBack(p);
                break;
            }
            if (p.Code != 90 && p.Code != 38 && p.Code != 10 && p.Code != 20) continue;
            const std::optional<double> v = Number(p);
            if (!v) return;
            if (p.Code == 90) {
                count = *v;
            } else if (p.Code == 38) {
                elevation = *v;
            } else if (p.Code == 10) {
                next.X = *v;
                haveX = true;
            } else if (haveX) {
                next.Y = *v;
                points.push_back(next);
                haveX = false;
                if (count >= 0 && static_cast<double>(points.size()) >= count) break;
            }
        }
        if (rows_.Stopped()) return;
        for (std::size_t k = 1; k < points.size() && !rows_.Stopped(); ++k) {
            const Point a{points[k - 1].X, points[k - 1].Y, elevation};
            const Point b{points[k].X, points[k].Y, elevation};
            const Airway* row = AddRow(a, b);
            if (row && row->X1 == row->X2 && row->Y1 == row->Y2) rows_.DropLastRow();
        }
    }

    ImportRows& rows_;
    PairReader pairs_;
};

} // namespace

void ReadDxfRows(ImportRows& rows, files::TextFileReader& in) { DxfReader(rows, in).Read(); }

} // namespace karvane::exchange
