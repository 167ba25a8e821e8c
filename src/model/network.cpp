// Text helpers of the fixed-width fields of the network tables.
#include "model/network.h"

namespace karvane {

std::string FitText(std::string_view text, std::size_t width) {
    return std::string(text.substr(0, std::min(text.size(), width)));
}

std::string TrimText(std::string_view text) {
    std::size_t b = 0, e = text.size();
    while (b < e && (text[b] == ' ' || text[b] == '\t')) ++b;
    while (e > b && (text[e - 1] == ' ' || text[e - 1] == '\t')) --e;
    return std::string(text.substr(b, e - b));
}

} // namespace karvane
