// Fuzz target of the reader of the script of the user's actions: arbitrary bytes are read as a
// script. The reader either gives lines or a reason that names a line of the text; a line it
// gives carries the points and values its form needs.
#include <string>

#include "fuzz_support.h"
#include "script/script_reader.h"

using namespace karvane;

namespace {

bool AnyMenuName(std::string_view name) { return name.size() > 3 && name.substr(0, 3) == "mnu"; }

std::size_t PointsOf(script::Op op) {
    switch (op) {
    case script::Op::Press:
    case script::Op::Move:
    case script::Op::Release:
    case script::Op::Click: return 1;
    case script::Op::Drag:
    case script::Op::Box: return 2;
    default: return 0;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const script::ReadResult read = script::ReadScript(text, AnyMenuName);
    if (!read.Error.empty()) {
        if (read.Error.rfind("line ", 0) != 0) fuzz::Fail("a reason that names no line");
        return 0;
    }
    int last = 0;
    for (const script::ScriptLine& line : read.Script.Lines) {
        if (line.Line <= last) fuzz::Fail("lines out of order");
        last = line.Line;
        const std::size_t points = PointsOf(line.Kind);
        if (points != 0 && line.Points.size() != points) fuzz::Fail("a line without its points");
        for (const script::ScriptPoint& p : line.Points)
            if (!(p.X >= -script::PointLimit && p.X <= script::PointLimit && p.Y >= -script::PointLimit &&
                  p.Y <= script::PointLimit))
                fuzz::Fail("a point beyond the limit");
    }
    return 0;
}
