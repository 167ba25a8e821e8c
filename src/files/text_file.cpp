// Whole-file text reading and safe (temporary file, then rename) writing.
#include "files/text_file.h"

#include <cerrno>
#include <filesystem>
#include <random>

namespace karvane::files {
namespace fs = std::filesystem;

namespace {

bool FolderExists(const std::string& path) {
    std::error_code ec;
    fs::path parent = fs::path(path).parent_path();
    if (parent.empty()) return true;
    return fs::is_directory(parent, ec);
}

} // namespace

std::string FileErrorText(int code, std::string_view otherTail) {
    switch (code) {
    case err::FileNotFound: return "ERROR 53: That file doesn't exist.";
    case err::DriveNotAvailable: return "ERROR 68: Drive not available.";
    case err::PathNotFound: return "ERROR 76: That path doesn't exist.";
    default: return "ERROR " + std::to_string(code) + std::string(otherTail);
    }
}

int ReadWholeFile(const std::string& path, std::string& out) {
    out.clear();
    std::error_code ec;
    if (path.empty()) return err::FileNotFound;
    if (!FolderExists(path)) return err::PathNotFound;
    if (fs::is_directory(path, ec)) return err::AccessError;
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) return errno == ENOENT ? err::FileNotFound : err::AccessError;
    char buf[65536];
    std::size_t got;
    while ((got = std::fread(buf, 1, sizeof buf, f)) > 0) out.append(buf, got);
    bool bad = std::ferror(f) != 0;
    std::fclose(f);
    return bad ? err::DeviceIo : err::None;
}

int TextFileReader::Open(const std::string& path) {
    pos_ = 0;
    lineNo_ = 0;
    return ReadWholeFile(path, data_);
}

void TextFileReader::OpenText(std::string text) {
    data_ = std::move(text);
    pos_ = 0;
    lineNo_ = 0;
}

bool TextFileReader::ReadLine(std::string& line) {
    line.clear();
    if (pos_ >= data_.size()) return false;
    std::size_t end = pos_;
    while (end < data_.size() && data_[end] != '\r' && data_[end] != '\n') ++end;
    line.assign(data_, pos_, end - pos_);
    pos_ = end;
    if (pos_ < data_.size() && data_[pos_] == '\r') ++pos_;
    if (pos_ < data_.size() && data_[pos_] == '\n') ++pos_;
    ++lineNo_;
    return true;
}

TextFileWriter::~TextFileWriter() {
    if (file_) {
        std::fclose(file_);
        std::remove(temp_.c_str());
    }
}

int TextFileWriter::Open(const std::string& path) {
    if (file_) {
        std::fclose(file_);
        std::remove(temp_.c_str());
        file_ = nullptr;
    }
    failed_ = false;
    failErrno_ = 0;
    if (path.empty()) return err::FileNotFound;
    if (!FolderExists(path)) return err::PathNotFound;
    std::error_code ec;
    if (fs::is_directory(path, ec)) return err::AccessError;
    target_ = path;
    std::random_device rd;
    temp_ = path + ".~" + std::to_string(rd() % 1000000u) + ".tmp";
    file_ = std::fopen(temp_.c_str(), "wb");
    if (!file_) return err::AccessError;
    return err::None;
}

void TextFileWriter::Write(std::string_view text) {
    if (!file_ || failed_) return;
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) {
        failed_ = true;
        failErrno_ = errno;
    }
}

void TextFileWriter::WriteLine(std::string_view line) {
    Write(line);
    Write("\r\n");
}

int TextFileWriter::Commit() {
    if (!file_) return err::BadFileMode;
    bool bad = failed_;
    if (!bad && (std::fflush(file_) != 0 || std::ferror(file_) != 0)) {
        bad = true;
        failErrno_ = errno;
    }
    int code = bad ? (failErrno_ == ENOSPC ? err::DiskFull : err::DeviceIo) : err::None;
    if (std::fclose(file_) != 0 && code == err::None) code = errno == ENOSPC ? err::DiskFull : err::DeviceIo;
    file_ = nullptr;
    if (code != err::None) {
        std::remove(temp_.c_str());
        return code;
    }
    std::error_code ec;
    fs::rename(temp_, target_, ec);
    if (ec) {
        std::remove(temp_.c_str());
        return err::AccessError;
    }
    return err::None;
}

} // namespace karvane::files
