// Whole-file text reading and writing with CR LF line ends, and the error codes and texts of
// file operations. A writer goes to a temporary file in the target's folder and renames it
// over the target only when complete, so a failed save never destroys the file that was there.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace karvane::files {

// Error codes of file operations, as the messages number them.
namespace err {
inline constexpr int None = 0;
inline constexpr int BadFileMode = 54;
inline constexpr int FileNotFound = 53;
inline constexpr int DeviceIo = 57;
inline constexpr int DiskFull = 61;
inline constexpr int PastEndOfFile = 62;
inline constexpr int DriveNotAvailable = 68;
inline constexpr int AccessError = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int TypeMismatch = 13;
} // namespace err

// The text of an error code: 53, 68 and 76 have fixed texts; any other code gives "ERROR ",
// the code and `otherTail` (for example " occurred saving file").
std::string FileErrorText(int code, std::string_view otherTail);

// Reads a whole file and hands it out line by line. A line ends at CR LF, a bare CR or a
// bare LF; the end characters are not part of the line.
class TextFileReader {
public:
    // Returns an error code: 0, 53 (no such file), 76 (no such folder), 75 (cannot be read).
    int Open(const std::string& path);
    // Opens over text already in memory (tests, fuzzing).
    void OpenText(std::string text);
    // Next line; false at the end of the file.
    bool ReadLine(std::string& line);
    bool AtEnd() const { return pos_ >= data_.size(); }
    std::size_t LineNumber() const { return lineNo_; }

    // A place in the text, to come back to when a step of a reader is tried again.
    struct Mark {
        std::size_t Pos = 0;
        std::size_t LineNo = 0;
    };
    Mark Tell() const { return {pos_, lineNo_}; }
    void Seek(const Mark& mark) {
        pos_ = std::min(mark.Pos, data_.size());
        lineNo_ = mark.LineNo;
    }

private:
    std::string data_;
    std::size_t pos_ = 0;
    std::size_t lineNo_ = 0;
};

// Writes lines ended by CR LF into a temporary file beside the target; Commit renames it over
// the target. Destroying a writer that was not committed removes the temporary file.
class TextFileWriter {
public:
    TextFileWriter() = default;
    TextFileWriter(const TextFileWriter&) = delete;
    TextFileWriter& operator=(const TextFileWriter&) = delete;
    ~TextFileWriter();

    // Returns an error code: 0, 76 (no such folder), 75 (cannot be written).
    int Open(const std::string& path);
    void WriteLine(std::string_view line);
    void Write(std::string_view text); // no line end
    // Flushes, closes and renames over the target. Returns an error code (0, 57, 61, 75).
    int Commit();
    bool IsOpen() const { return file_ != nullptr; }

private:
    std::FILE* file_ = nullptr;
    std::string target_;
    std::string temp_;
    bool failed_ = false;
    int failErrno_ = 0; // errno of the first failed write
};

// The bytes of a file, or an error code.
int ReadWholeFile(const std::string& path, std::string& out);

} // namespace karvane::files
