// Fuzz target of the line splitter and the number forms: arbitrary bytes go through the line
// reader, the splitter of every file generation and every number reading, and what is read
// must survive its own round trip through the written forms.
#include <cmath>
#include <string>

#include "files/number_text.h"
#include "files/text_file.h"
#include "fuzz_support.h"

using namespace karvane;
using namespace karvane::files;

namespace {

// Written fixed point reads back to the same value, under either separator.
void CheckFixed(Fixed4 v) {
    for (char sep : {'.', ','}) {
        std::string text = PlainFixed(v, sep);
        if (ParseFixed(text) != v) fuzz::Fail("fixed point " + text + " does not read back");
        if (ParseFixed(Padded(text)) != v) fuzz::Fail("padded fixed point " + text + " does not read back");
    }
}

// A Double written with 15 digits reads back to a number that writes the same text.
void CheckDouble(double v) {
    if (!std::isfinite(v) || (v != 0.0 && std::fabs(v) < 1e-300)) return;
    for (char sep : {'.', ','}) {
        std::string text = PlainDouble(v, sep);
        double back = ParseNumber(text);
        if (PlainDouble(back, sep) != text) fuzz::Fail("double " + text + " reads back as " + PlainDouble(back, sep));
    }
}

void ReadField(const std::string& field) {
    double v = ParseNumber(field);
    (void)IsNumber(field);
    (void)ParseBool(field);
    (void)ToInt16(v);
    (void)ToInt32(v);
    (void)ToByte(v);
    float single = ToSingle(v);
    if (std::isnan(single) || std::isinf(single)) fuzz::Fail("a stored Single is not finite: " + field);
    (void)PaddedSingle(single, ',');
    CheckDouble(v);
    CheckFixed(ParseFixed(field));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    // The first byte chooses the file generation and the machine's decimal separator.
    static constexpr double versions[] = {1.0, 2.0, 2.4, 2.5, 2.7, 3.0, 3.1};
    double version = versions[(data[0] & 0x7f) % 7];
    char localSep = (data[0] & 0x80) ? ',' : '.';

    TextFileReader reader;
    reader.OpenText(std::string(reinterpret_cast<const char*>(data + 1), size - 1));
    std::string line;
    Fields fields;
    while (reader.ReadLine(line)) {
        SplitLine(version, line, fields, localSep);
        for (std::size_t i = 1; i < fields.size(); ++i)
            if (!fields[i].empty()) ReadField(fields[i]);
    }
    return 0;
}
