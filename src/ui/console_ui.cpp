// The batch user interface: one line per message on the error stream, questions answered by
// policy, settings kept in memory.
#include "ui/console_ui.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <ostream>
#include <system_error>

namespace karvane::ui {

namespace fs = std::filesystem;

std::string ExecutableFolder() {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec || exe.empty()) {
        fs::path cur = fs::current_path(ec);
        return ec ? std::string(".") : cur.string();
    }
    return exe.parent_path().string();
}

ConsoleUserInterface::ConsoleUserInterface(std::ostream& err, std::string appPath)
    : err_(err),
      appPath_(appPath.empty() ? ExecutableFolder() : std::move(appPath)) {
    while (appPath_.size() > 1 && appPath_.back() == '/') appPath_.pop_back();
}

std::string ConsoleUserInterface::OneLine(const std::string& title, const std::string& text) {
    std::string line = title.empty() ? std::string("Karvane") : title;
    line += ": ";
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\r') {
            if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
            line += ' ';
        } else if (c == '\n') {
            line += ' ';
        } else {
            line += c;
        }
    }
    return line;
}

const char* ConsoleUserInterface::AnswerName(Answer a) {
    switch (a) {
    case Answer::OK: return "OK";
    case Answer::Cancel: return "Cancel";
    case Answer::Yes: return "Yes";
    case Answer::No: return "No";
    }
    return "";
}

void ConsoleUserInterface::Print(const std::string& line) { err_ << line << '\n' << std::flush; }

void ConsoleUserInterface::Message(const std::string& text, const std::string& title, Icon icon) {
    if (icon == Icon::Critical || icon == Icon::Exclamation) ++Warnings;
    Transcript.push_back({"Message", title, text, ""});
    Print(OneLine(title, text));
}

Answer ConsoleUserInterface::Ask(const std::string& text, const std::string& title, Buttons buttons, Icon) {
    if (!Answers.empty()) {
        const Answer given = Answers.front();
        Answers.pop_front();
        Transcript.push_back({"Ask", title, text, AnswerName(given)});
        Print(OneLine(title, text) + " -> " + AnswerName(given));
        return given;
    }
    bool yes = Policy == AnswerPolicy::Yes;
    if (yes && buttons != Buttons::OK) {
        std::string key = SameQuestionTitles.count(title) != 0 ? title : title + '\n' + text;
        repeatYes_ = key == lastYesQuestion_ ? repeatYes_ + 1 : 1;
        lastYesQuestion_ = key;
        if (repeatYes_ > MaxRepeatYes) yes = false;
    }
    Answer a;
    switch (buttons) {
    case Buttons::OK: a = Answer::OK; break;
    case Buttons::OKCancel: a = yes ? Answer::OK : Answer::Cancel; break;
    case Buttons::YesNo:
    case Buttons::YesNoCancel: a = yes ? Answer::Yes : Answer::No; break;
    default: a = Answer::No; break;
    }
    Transcript.push_back({"Ask", title, text, AnswerName(a)});
    Print(OneLine(title, text) + " -> " + AnswerName(a));
    return a;
}

std::optional<std::string> ConsoleUserInterface::Input(const std::string& prompt, const std::string& title,
                                                       const std::string& defaultText) {
    std::optional<std::string> result;
    if (!Inputs.empty()) {
        result = Inputs.front();
        Inputs.pop_front();
    } else if (Policy == AnswerPolicy::Yes) {
        result = defaultText;
    }
    Transcript.push_back({"Input", title, prompt, result ? *result : "Cancel"});
    Print(OneLine(title, prompt) + " -> " + (result ? "\"" + *result + "\"" : std::string("Cancel")));
    return result;
}

void ConsoleUserInterface::Notice(const std::string& text, int) {
    Transcript.push_back({"Notice", "Karvane Messenger", text, ""});
    Print(OneLine("Karvane Messenger", text));
}

void ConsoleUserInterface::ProgressCaption(const std::string& caption) {
    if (ShowProgress) Print(OneLine("Progress", caption));
}

std::optional<std::string> ConsoleUserInterface::NextPath(const char* kind, const FileDialogRequest& request) {
    std::optional<std::string> result;
    if (!GivenPaths.empty()) {
        result = GivenPaths.front();
        GivenPaths.pop_front();
    } else if (!FilePaths.empty()) {
        result = FilePaths.front();
        FilePaths.pop_front();
    }
    Transcript.push_back({kind, request.Title, request.Filter, result ? *result : "Cancel"});
    Print(OneLine(request.Title.empty() ? std::string(kind) + " file" : request.Title, request.Filter) + " -> " +
          (result ? *result : std::string("Cancel")));
    return result;
}

std::optional<std::string> ConsoleUserInterface::OpenFileDialog(const FileDialogRequest& request) {
    return NextPath("Open", request);
}

std::optional<std::string> ConsoleUserInterface::SaveFileDialog(const FileDialogRequest& request) {
    return NextPath("Save", request);
}

std::string ConsoleUserInterface::GetSetting(const std::string& app, const std::string& section, const std::string& key,
                                             const std::string& defaultValue) {
    auto it = store_.find(app + '\n' + section + '\n' + key);
    return it == store_.end() ? defaultValue : it->second;
}

void ConsoleUserInterface::SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                                       const std::string& value) {
    store_[app + '\n' + section + '\n' + key] = value;
}

std::string ConsoleUserInterface::TempPath() {
    std::error_code ec;
    std::string path = fs::temp_directory_path(ec).string();
    if (ec || path.empty()) path = "/tmp";
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

DateTime ConsoleUserInterface::Now() {
    if (FixedClock) return *FixedClock;
    std::time_t t = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm tm{};
    localtime_r(&t, &tm);
    return DateTime{tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec, tm.tm_wday};
}

} // namespace karvane::ui
