// The number formatter and the reader of typed numbers. Formatting works on the decimal digits
// of the value, so that rounding is the decimal rounding a user expects and not that of the
// binary fraction.
#include "model/number_format.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

namespace karvane {
namespace {

// The magnitude of a value as decimal digits: value = 0.Digits x 10^Point, Digits without
// leading or trailing zeros ("0" for zero, with Point 1).
struct DecimalDigits {
    std::string Digits = "0";
    int Point = 1;
};

// Splits the scientific text "d.ddde+XX" of a non-negative value into digits and point.
DecimalDigits FromScientific(const char* text) {
    DecimalDigits out;
    std::string digits;
    const char* p = text;
    for (; *p && *p != 'e' && *p != 'E'; ++p)
        if (*p >= '0' && *p <= '9') digits += *p;
    const int exponent = *p ? std::atoi(p + 1) : 0;
    std::size_t lead = 0;
    while (lead + 1 < digits.size() && digits[lead] == '0') ++lead;
    digits.erase(0, lead);
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
    if (digits.empty() || digits == "0") return out;
    out.Digits = digits;
    out.Point = exponent + 1;
    return out;
}

// Fifteen significant digits, as a double's value is read for display.
DecimalDigits DigitsOf(double magnitude) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", magnitude);
    return FromScientific(buf);
}

// The shortest digits that read back as the same Single.
DecimalDigits DigitsOf(float magnitude) {
    char buf[64];
    auto result = std::to_chars(buf, buf + sizeof buf - 1, magnitude, std::chars_format::scientific);
    *result.ptr = '\0';
    return FromScientific(buf);
}

enum class Tok { Zero, Hash, Point, Comma, Percent, Literal };

struct Token {
    Tok Kind;
    std::string Text; // the characters of a literal
};

// Cuts a pattern into placeholders and literals; quoted text and "\x" are literals.
std::vector<Token> Tokenise(std::string_view pattern, bool timePattern) {
    std::vector<Token> out;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        if (c == '"') {
            std::size_t end = pattern.find('"', i + 1);
            if (end == std::string_view::npos) end = pattern.size();
            out.push_back({Tok::Literal, std::string(pattern.substr(i + 1, end - i - 1))});
            i = end;
        } else if (c == '\\') {
            if (i + 1 < pattern.size()) out.push_back({Tok::Literal, std::string(1, pattern[++i])});
        } else if (timePattern) {
            out.push_back({Tok::Literal, std::string(1, c)});
        } else if (c == '0') {
            out.push_back({Tok::Zero, {}});
        } else if (c == '#') {
            out.push_back({Tok::Hash, {}});
        } else if (c == '.') {
            out.push_back({Tok::Point, {}});
        } else if (c == ',') {
            out.push_back({Tok::Comma, {}});
        } else if (c == '%') {
            out.push_back({Tok::Percent, "%"});
        } else {
            out.push_back({Tok::Literal, std::string(1, c)});
        }
    }
    return out;
}

bool IsDigitTok(Tok t) { return t == Tok::Zero || t == Tok::Hash; }

// Whether the pattern, outside quotes and escapes, holds any of the given characters.
bool PatternHas(std::string_view pattern, std::string_view chars) {
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        if (c == '"') {
            const std::size_t end = pattern.find('"', i + 1);
            if (end == std::string_view::npos) return false;
            i = end;
        } else if (c == '\\') {
            ++i;
        } else if (chars.find(c) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

struct NumberPattern {
    std::string Prefix, Suffix;
    int IntZeros = 0;   // digits always shown in the whole part
    bool Group = false; // thousands separators in the whole part
    bool HasPoint = false;
    int Decimals = 0;         // decimal placeholders
    int RequiredDecimals = 0; // up to the last "0" behind the point
    int Scale10 = 0;          // +2 per percent sign, -3 per scaling comma
};

NumberPattern ParseNumberPattern(std::string_view pattern) {
    const std::vector<Token> toks = Tokenise(pattern, false);
    std::size_t first = toks.size(), last = 0;
    for (std::size_t i = 0; i < toks.size(); ++i) {
        if (IsDigitTok(toks[i].Kind) || toks[i].Kind == Tok::Point) {
            if (first == toks.size()) first = i;
            last = i;
        }
    }
    NumberPattern p;
    std::string middle;
    bool seenIntDigit = false;
    for (std::size_t i = 0; i < toks.size(); ++i) {
        const Token& t = toks[i];
        const bool before = i<first, after = i> last;
        if (t.Kind == Tok::Percent) p.Scale10 += 2;
        if (before || after) {
            if (t.Kind == Tok::Comma) {
                // A run of commas right behind the digits divides by 1000 each.
                bool trailing = after;
                for (std::size_t j = last + 1; trailing && j < i; ++j) trailing = toks[j].Kind == Tok::Comma;
                if (trailing) p.Scale10 -= 3;
                else (before ? p.Prefix : p.Suffix) += ',';
                continue;
            }
            (before ? p.Prefix : p.Suffix) += t.Text;
            continue;
        }
        switch (t.Kind) {
        case Tok::Zero:
        case Tok::Hash:
            if (p.HasPoint) {
                ++p.Decimals;
                if (t.Kind == Tok::Zero) p.RequiredDecimals = p.Decimals;
            } else {
                seenIntDigit = true;
                if (t.Kind == Tok::Zero) ++p.IntZeros;
            }
            break;
        case Tok::Point:
            if (p.HasPoint) middle += '.';
            p.HasPoint = true;
            break;
        case Tok::Comma:
            if (!p.HasPoint) {
                std::size_t j = i + 1;
                while (j < toks.size() && toks[j].Kind == Tok::Comma) ++j;
                if (j < toks.size() && toks[j].Kind == Tok::Point) p.Scale10 -= 3;
                else if (seenIntDigit && j <= last && IsDigitTok(toks[j].Kind)) p.Group = true;
            }
            break;
        default: middle += t.Text; break;
        }
    }
    p.Suffix = middle + p.Suffix;
    return p;
}

std::string GroupThousands(const std::string& whole, char sep) {
    std::string out;
    const std::size_t n = whole.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) out += sep;
        out += whole[i];
    }
    return out;
}

std::string FormatDigits(bool negative, const DecimalDigits& d, std::string_view pattern, char decimalSep,
                         char thousandsSep) {
    const NumberPattern p = ParseNumberPattern(pattern);
    const int point = d.Digits == "0" ? 1 : d.Point + p.Scale10;
    const int size = static_cast<int>(d.Digits.size());
    auto digitAt = [&](int index) {
        return index >= 0 && index < size ? d.Digits[static_cast<std::size_t>(index)] : '0';
    };

    // The kept digits: the whole part and the decimals, rounded half away from zero on the
    // first digit dropped.
    int intLen = std::max(point, 0);
    std::string kept;
    kept.reserve(static_cast<std::size_t>(intLen + p.Decimals) + 1);
    for (int k = 0; k < intLen + p.Decimals; ++k) kept += digitAt(point - intLen + k);
    if (digitAt(point + p.Decimals) >= '5') {
        int k = static_cast<int>(kept.size()) - 1;
        for (; k >= 0; --k) {
            char& c = kept[static_cast<std::size_t>(k)];
            if (c == '9') {
                c = '0';
            } else {
                ++c;
                break;
            }
        }
        if (k < 0) {
            kept.insert(kept.begin(), '1');
            ++intLen;
        }
    }
    const bool zero = kept.find_first_not_of('0') == std::string::npos;

    std::string whole = kept.substr(0, static_cast<std::size_t>(intLen));
    const std::size_t lead = whole.find_first_not_of('0');
    whole.erase(0, lead == std::string::npos ? whole.size() : lead);
    if (static_cast<int>(whole.size()) < p.IntZeros)
        whole.insert(0, static_cast<std::size_t>(p.IntZeros) - whole.size(), '0');
    if (p.Group) whole = GroupThousands(whole, thousandsSep);

    std::string fraction = kept.substr(static_cast<std::size_t>(intLen));
    while (static_cast<int>(fraction.size()) > p.RequiredDecimals && fraction.back() == '0') fraction.pop_back();

    std::string out = negative && !zero ? "-" : "";
    out += p.Prefix;
    out += whole;
    if (p.HasPoint) out += decimalSep;
    out += fraction;
    out += p.Suffix;
    return out;
}

// A whole number held in a double (hours may pass any integer type), padded to `width`.
std::string WholeNumber(double v, int width) {
    char text[400];
    std::snprintf(text, sizeof text, "%0*.0f", width, v);
    return text;
}

// Hours, minutes and seconds of a fraction of a day, to the nearest second. The seconds are
// rounded on their decimal digits, so that 59.5 / 86400 of a day is a whole minute.
std::string FormatTime(double dayFraction, std::string_view pattern) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.14e", std::fabs(dayFraction) * 86400.0);
    const double seconds = std::round(std::strtod(buf, nullptr));
    const double hours = std::floor(seconds / 3600.0);
    const double minutes = std::fmod(std::floor(seconds / 60.0), 60.0);
    const double secs = std::fmod(seconds, 60.0);

    std::string out = dayFraction < 0 && seconds != 0.0 ? "-" : "";
    const std::vector<Token> toks = Tokenise(pattern, true);
    for (std::size_t i = 0; i < toks.size(); ++i) {
        const std::string& text = toks[i].Text;
        const char c = text.size() == 1 ? static_cast<char>(text[0] | 0x20) : '\0';
        if (c != 'h' && c != 'n' && c != 'm' && c != 's') {
            out += text;
            continue;
        }
        std::size_t run = 1;
        while (i + run < toks.size() && toks[i + run].Text.size() == 1 && (toks[i + run].Text[0] | 0x20) == c) ++run;
        i += run - 1;
        out += WholeNumber(c == 'h' ? hours : c == 's' ? secs : minutes, run >= 2 ? 2 : 1);
    }
    return out;
}

// The general form: all significant digits, in exponent form when very large or small.
std::string FormatGeneral(bool negative, const DecimalDigits& d, char decimalSep) {
    std::string out = negative && d.Digits != "0" ? "-" : "";
    const int exponent = d.Point - 1;
    const std::string& digits = d.Digits;
    if (digits == "0") return "0";
    if (exponent >= 15 || exponent < -5) {
        out += digits[0];
        if (digits.size() > 1) out += decimalSep + digits.substr(1);
        char buf[16];
        std::snprintf(buf, sizeof buf, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        return out + buf;
    }
    if (d.Point <= 0) return out + "0" + decimalSep + std::string(static_cast<std::size_t>(-d.Point), '0') + digits;
    const auto intDigits = static_cast<std::size_t>(d.Point);
    if (digits.size() <= intDigits) return out + digits + std::string(intDigits - digits.size(), '0');
    return out + digits.substr(0, intDigits) + decimalSep + digits.substr(intDigits);
}

template <typename F>
std::string Format(F value, std::string_view pattern, char decimalSep, char thousandsSep) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
    if (thousandsSep == decimalSep) thousandsSep = decimalSep == ',' ? '.' : ',';
    const bool negative = std::signbit(value);

    if (PatternHas(pattern, "0#"))
        return FormatDigits(negative, DigitsOf(std::fabs(value)), pattern, decimalSep, thousandsSep);
    if (PatternHas(pattern, "hHnNsS")) return FormatTime(static_cast<double>(value), pattern);
    return FormatGeneral(negative, DigitsOf(std::fabs(value)), decimalSep);
}

} // namespace

std::string FormatNumber(double value, std::string_view pattern, char decimalSep, char thousandsSep) {
    return Format(value, pattern, decimalSep, thousandsSep);
}

std::string FormatNumber(float value, std::string_view pattern, char decimalSep, char thousandsSep) {
    return Format(value, pattern, decimalSep, thousandsSep);
}

double ParseLeadingNumber(std::string_view text) {
    std::size_t i = 0;
    const std::size_t n = text.size();
    while (i < n && (text[i] == ' ' || text[i] == '\t')) ++i;
    std::string s;
    if (i < n && (text[i] == '-' || text[i] == '+')) {
        if (text[i] == '-') s += '-';
        ++i;
    }
    bool digits = false;
    while (i < n && text[i] >= '0' && text[i] <= '9') s += text[i++], digits = true;
    if (i < n && (text[i] == '.' || text[i] == ',')) {
        ++i;
        std::string fraction;
        while (i < n && text[i] >= '0' && text[i] <= '9') fraction += text[i++];
        if (!fraction.empty()) s += "." + fraction, digits = true;
    }
    if (!digits) return 0.0;
    if (i < n && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
        std::size_t j = i + 1;
        std::string exponent = "e";
        if (j < n && (text[j] == '-' || text[j] == '+')) exponent += text[j++];
        const std::size_t start = j;
        while (j < n && text[j] >= '0' && text[j] <= '9' && j - start < 6) exponent += text[j++];
        if (j > start) s += exponent;
    }
    double v = 0.0;
    const auto [ptr, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
    (void)ptr;
    if (ec == std::errc::result_out_of_range) {
        if (s.find("e-") != std::string::npos) return 0.0;
        return s[0] == '-' ? -std::numeric_limits<double>::max() : std::numeric_limits<double>::max();
    }
    return ec == std::errc() ? v : 0.0;
}

} // namespace karvane
