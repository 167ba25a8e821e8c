// Code page conversions at the Qt edge.
#include "qt/qt_text.h"

#include <QFile>
#include <array>

namespace karvane::shell {

namespace {

// The characters of bytes 0x80 to 0x9F in Windows-1252; 0 where the code page has none (those
// bytes are kept as the control characters of the same number).
constexpr std::array<char16_t, 32> kHigh{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                         0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool ValidUtf8WithHighChars(std::string_view text) {
    bool high = false;
    for (std::size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c < 0x80) {
            ++i;
            continue;
        }
        high = true;
        std::size_t extra = 0;
        if ((c & 0xE0) == 0xC0 && c >= 0xC2) {
            extra = 1;
        } else if ((c & 0xF0) == 0xE0) {
            extra = 2;
        } else if ((c & 0xF8) == 0xF0 && c <= 0xF4) {
            extra = 3;
        } else {
            return false;
        }
        for (std::size_t k = 1; k <= extra; ++k) {
            if (i + k >= text.size()) return false;
            if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return false;
        }
        i += extra + 1;
    }
    return high;
}

} // namespace

QString FromCp1252(std::string_view bytes) {
    QString out;
    out.reserve(static_cast<qsizetype>(bytes.size()));
    for (char ch : bytes) {
        const auto c = static_cast<unsigned char>(ch);
        if (c >= 0x80 && c <= 0x9F && kHigh[c - 0x80] != 0) {
            out.append(QChar(kHigh[c - 0x80]));
        } else {
            out.append(QChar(static_cast<char16_t>(c)));
        }
    }
    return out;
}

std::string ToCp1252(const QString& text) {
    std::string out;
    out.reserve(static_cast<std::size_t>(text.size()));
    for (QChar qc : text) {
        const char16_t u = qc.unicode();
        if (u < 0x80 || (u >= 0xA0 && u <= 0xFF) || (u >= 0x80 && u <= 0x9F)) {
            out.push_back(static_cast<char>(u));
            continue;
        }
        char mapped = '?';
        for (std::size_t i = 0; i < kHigh.size(); ++i) {
            if (kHigh[i] == u) {
                mapped = static_cast<char>(0x80 + i);
                break;
            }
        }
        out.push_back(mapped);
    }
    return out;
}

QString FromPath(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

std::string ToPath(const QString& path) { return QFile::encodeName(path).toStdString(); }

QString FromMessage(std::string_view text) {
    if (ValidUtf8WithHighChars(text)) return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return FromCp1252(text);
}

} // namespace karvane::shell
