// Number forms of the text files and the line splitter of the readers.
#include "files/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace karvane::files {
namespace {

// Shortest general text with at most `digits` significant digits.
std::string General(double value, int digits, char sep) {
    if (!std::isfinite(value) || value == 0.0) return "0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*e", digits - 1, value);
    std::string s(buf);
    bool negative = s[0] == '-';
    if (negative) s.erase(0, 1);
    std::size_t ePos = s.find('e');
    int exponent = std::atoi(s.c_str() + ePos + 1);
    std::string mantissa;
    for (std::size_t i = 0; i < ePos; ++i)
        if (s[i] != '.') mantissa += s[i];
    while (mantissa.size() > 1 && mantissa.back() == '0') mantissa.pop_back();

    std::string out = negative ? "-" : "";
    if (exponent >= digits || exponent < -5) {
        out += mantissa[0];
        if (mantissa.size() > 1) {
            out += sep;
            out += mantissa.substr(1);
        }
        char e[16];
        std::snprintf(e, sizeof e, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        return out + e;
    }
    if (exponent >= 0) {
        std::size_t intDigits = static_cast<std::size_t>(exponent) + 1;
        if (mantissa.size() <= intDigits) {
            out += mantissa + std::string(intDigits - mantissa.size(), '0');
        } else {
            out += mantissa.substr(0, intDigits);
            out += sep;
            out += mantissa.substr(intDigits);
        }
        return out;
    }
    out += '0';
    out += sep;
    out += std::string(static_cast<std::size_t>(-exponent - 1), '0');
    out += mantissa;
    return out;
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// The leading numeric part of a text, normalised to "." and without blanks; empty if none.
std::string NumericPrefix(std::string_view text) {
    std::size_t i = 0, n = text.size();
    while (i < n && IsBlank(text[i])) ++i;
    std::string out;
    if (i < n && (text[i] == '-' || text[i] == '+')) {
        if (text[i] == '-') out += '-';
        ++i;
    }
    bool digits = false;
    while (i < n && text[i] >= '0' && text[i] <= '9') out += text[i++], digits = true;
    if (i < n && (text[i] == '.' || text[i] == ',')) {
        ++i;
        std::string frac;
        while (i < n && text[i] >= '0' && text[i] <= '9') frac += text[i++];
        if (!frac.empty()) out += "." + frac, digits = true;
    }
    if (!digits) return "";
    if (i < n && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
        std::size_t j = i + 1;
        std::string e = "e";
        if (j < n && (text[j] == '-' || text[j] == '+')) e += text[j++];
        std::size_t start = j;
        while (j < n && text[j] >= '0' && text[j] <= '9' && j - start < 6) e += text[j++];
        if (j > start) out += e;
    }
    return out;
}

} // namespace

std::string PlainSingle(float value, char sep) { return General(static_cast<double>(value), 7, sep); }
std::string PlainDouble(double value, char sep) { return General(value, 15, sep); }
std::string PlainInt(std::int64_t value) { return std::to_string(value); }

std::string PlainFixed(Fixed4 value, char sep) {
    bool negative = value < 0;
    std::uint64_t mag = negative ? static_cast<std::uint64_t>(-(value + 1)) + 1u : static_cast<std::uint64_t>(value);
    std::uint64_t whole = mag / static_cast<std::uint64_t>(kFixedScale);
    std::uint64_t frac = mag % static_cast<std::uint64_t>(kFixedScale);
    std::string out = negative ? "-" : "";
    out += std::to_string(whole);
    if (frac != 0) {
        char buf[8];
        std::snprintf(buf, sizeof buf, "%04llu", static_cast<unsigned long long>(frac));
        std::string f(buf);
        while (!f.empty() && f.back() == '0') f.pop_back();
        out += sep;
        out += f;
    }
    return out;
}

std::string Padded(const std::string& plain) {
    if (!plain.empty() && plain[0] == '-') return plain + " ";
    return " " + plain + " ";
}

double ParseNumber(std::string_view text) {
    std::string s = NumericPrefix(text);
    if (s.empty()) return 0.0;
    double v = 0.0;
    auto [ptr, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
    (void)ptr;
    if (ec == std::errc::result_out_of_range) {
        bool tiny = s.find("e-") != std::string::npos;
        if (tiny) return 0.0;
        return s[0] == '-' ? -std::numeric_limits<double>::max() : std::numeric_limits<double>::max();
    }
    if (ec != std::errc()) return 0.0;
    return v;
}

bool IsNumber(std::string_view text) { return !NumericPrefix(text).empty(); }

bool ParseBool(std::string_view text) {
    std::size_t b = 0, e = text.size();
    while (b < e && IsBlank(text[b])) ++b;
    while (e > b && IsBlank(text[e - 1])) --e;
    std::string_view t = text.substr(b, e - b);
    if (t.size() == 4 && (t[0] == 'T' || t[0] == 't') && (t[1] == 'r' || t[1] == 'R') && (t[2] == 'u' || t[2] == 'U') &&
        (t[3] == 'e' || t[3] == 'E'))
        return true;
    return ParseNumber(t) != 0.0;
}

Fixed4 ParseFixed(std::string_view text) {
    std::string s = NumericPrefix(text);
    if (s.empty()) return 0;
    if (s.find('e') != std::string::npos) {
        double v = ParseNumber(s) * static_cast<double>(kFixedScale);
        if (!(v == v)) return 0;
        if (v >= 9.2e18) return std::numeric_limits<Fixed4>::max();
        if (v <= -9.2e18) return std::numeric_limits<Fixed4>::min();
        return static_cast<Fixed4>(std::llround(v));
    }
    bool negative = s[0] == '-';
    std::size_t i = negative ? 1 : 0;
    const std::uint64_t limit = static_cast<std::uint64_t>(std::numeric_limits<Fixed4>::max());
    std::uint64_t mag = 0;
    bool saturated = false;
    auto push = [&](int d) {
        if (mag > (limit - static_cast<std::uint64_t>(d)) / 10u) saturated = true;
        else mag = mag * 10u + static_cast<std::uint64_t>(d);
    };
    for (; i < s.size() && s[i] != '.'; ++i) push(s[i] - '0');
    int decimals = 0;
    if (i < s.size() && s[i] == '.') {
        for (++i; i < s.size() && decimals < 4; ++i, ++decimals) push(s[i] - '0');
    }
    for (; decimals < 4; ++decimals) push(0);
    if (saturated) return negative ? std::numeric_limits<Fixed4>::min() : std::numeric_limits<Fixed4>::max();
    return negative ? -static_cast<Fixed4>(mag) : static_cast<Fixed4>(mag);
}

std::int16_t ToInt16(double v) {
    if (!(v == v)) return 0;
    v = std::nearbyint(v);
    if (v > 32767.0) return 32767;
    if (v < -32768.0) return -32768;
    return static_cast<std::int16_t>(v);
}

std::int32_t ToInt32(double v) {
    if (!(v == v)) return 0;
    v = std::nearbyint(v);
    if (v > 2147483647.0) return 2147483647;
    if (v < -2147483648.0) return -2147483647 - 1;
    return static_cast<std::int32_t>(v);
}

std::uint8_t ToByte(double v) {
    if (!(v == v)) return 0;
    v = std::nearbyint(v);
    if (v > 255.0) return 255;
    if (v < 0.0) return 0;
    return static_cast<std::uint8_t>(v);
}

float ToSingle(double v) {
    if (!(v == v)) return 0.0f;
    const double m = static_cast<double>(std::numeric_limits<float>::max());
    if (v > m) return std::numeric_limits<float>::max();
    if (v < -m) return -std::numeric_limits<float>::max();
    return static_cast<float>(v);
}

std::size_t CommaItem(std::string_view text, std::size_t pos, std::string& item) {
    item.clear();
    const std::size_t n = text.size();
    while (pos < n && text[pos] == ' ') ++pos;
    if (pos < n && text[pos] == '"') {
        ++pos;
        while (pos < n && text[pos] != '"') item += text[pos++];
        if (pos < n) ++pos;
        while (pos < n && text[pos] != ',') ++pos;
    } else {
        while (pos < n && text[pos] != ',') item += text[pos++];
    }
    return std::min(pos, n);
}

void SplitFields(double version, std::string_view text, Fields& fields) {
    for (auto& f : fields) f.clear();
    std::size_t field = 1;
    if (version > 2.4) {
        for (char c : text) {
            if (c == '\t' && field < 100) {
                ++field;
                continue;
            }
            fields[field] += c;
        }
        return;
    }
    // Comma-separated items; an item in quotes keeps its commas and loses its quotes. The
    // 100th item takes the rest of the line as it stands.
    std::size_t i = 0;
    const std::size_t n = text.size();
    for (;;) {
        if (field == 100) {
            fields[field] = std::string(text.substr(i));
            break;
        }
        i = CommaItem(text, i, fields[field]);
        if (i >= n) break;
        ++i; // past the comma
        ++field;
    }
    if (fields[field].size() > 30) fields[field].resize(30);
}

void SplitLine(double version, std::string_view text, Fields& fields, char localSep) {
    SplitFields(version, text, fields);
    for (auto& f : fields) {
        for (char& c : f) {
            if (version > 2.4 ? (c == ',' || c == '.') : (c == '.' && localSep != '.')) c = localSep;
        }
    }
}

} // namespace karvane::files
