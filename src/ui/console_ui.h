// The user interface of the batch command line: every message goes to standard error as one
// line "title: text", questions are answered from a policy given on the command line, and the
// per-user settings live in memory only, so that a batch run leaves no trace in the user's store.
#pragma once

#include <deque>
#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "ui/answer_queue.h"
#include "ui/user_interface.h"

namespace karvane::ui {

// One thing that reached the user, kept so that a front end can report it (e.g. as JSON).
struct ConsoleEntry {
    std::string Kind; // "Message", "Ask", "Input", "Notice", "Open", "Save"
    std::string Title;
    std::string Text;
    std::string Answer; // "Yes", "No", "OK", "Cancel", the text given to an input; empty for a message
};

// How questions are answered in batch.
//   Yes/No questions:        Yes under the yes policy, No under the no policy.
//   Yes/No/Cancel questions: the same (a batch run never stops at a Cancel).
//   OK/Cancel questions:     OK under the yes policy, Cancel under the no policy: the cautious
//                            answer keeps what is in memory and on disk.
//   OK:                      OK.
//   Input boxes:             the offered default under the yes policy, Cancel under no.
//   File dialogs:            the next path of FilePaths, else Cancel.
// The same question answered Yes more than MaxRepeatYes times in a row gets the cautious answer
// instead, so that a fault that keeps asking "continue?" can never hold a batch run forever.
enum class AnswerPolicy { No, Yes };

class ConsoleUserInterface : public UserInterface, public AnswerQueue {
public:
    // `err` receives the lines (standard error in the program); `appPath` is the program's
    // folder, or empty to take the folder of the running executable.
    explicit ConsoleUserInterface(std::ostream& err, std::string appPath = {});

    AnswerPolicy Policy = AnswerPolicy::No;
    int MaxRepeatYes = 3;
    // Titles of questions that count as the same question whatever their text: a question
    // whose text carries a figure that changes each time it comes back (the convergence a
    // run has reached) would otherwise never be seen as repeated.
    std::set<std::string> SameQuestionTitles;
    // Paths handed out in turn by the file dialogs.
    std::deque<std::string> FilePaths;
    // Answers given before the policy is asked (a script's queued answers): to the next
    // question, input box and file dialog (nothing: Cancel).
    std::deque<Answer> Answers;
    std::deque<std::optional<std::string>> Inputs;
    std::deque<std::optional<std::string>> GivenPaths;
    // Whether progress captions are printed (as "Progress: caption").
    bool ShowProgress = false;
    // A fixed clock, for reproducible stamps; the machine's local time when unset.
    std::optional<DateTime> FixedClock;

    // Everything that reached the user, in order.
    std::vector<ConsoleEntry> Transcript;
    // Number of messages with the critical or exclamation icon: a front end may treat them as
    // a failure of the command.
    int Warnings = 0;

    void Message(const std::string& text, const std::string& title, Icon icon) override;
    Answer Ask(const std::string& text, const std::string& title, Buttons buttons, Icon icon) override;
    std::optional<std::string> Input(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) override;
    void Notice(const std::string& text, int ms) override;
    void ProgressCaption(const std::string& caption) override;
    std::optional<std::string> OpenFileDialog(const FileDialogRequest& request) override;
    std::optional<std::string> SaveFileDialog(const FileDialogRequest& request) override;
    std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                           const std::string& defaultValue) override;
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) override;
    std::string TempPath() override;
    std::string AppPath() override { return appPath_; }
    char DecimalSeparator() override { return '.'; }
    DateTime Now() override;

    void AnswerNextQuestion(Answer answer) override { Answers.push_front(answer); }
    void AnswerNextInput(std::optional<std::string> text) override { Inputs.push_front(std::move(text)); }
    void AnswerNextFileDialog(std::optional<std::string> path) override { GivenPaths.push_front(std::move(path)); }

    // The one-line form of a message: line breaks (CR, LF, CR LF) become one blank each, so
    // that every message is exactly one line of the error stream. An empty title reads "Karvane".
    static std::string OneLine(const std::string& title, const std::string& text);
    // Answer names as printed and recorded.
    static const char* AnswerName(Answer a);

private:
    void Print(const std::string& line);
    std::optional<std::string> NextPath(const char* kind, const FileDialogRequest& request);

    std::ostream& err_;
    std::string appPath_;
    std::map<std::string, std::string> store_;
    std::string lastYesQuestion_;
    int repeatYes_ = 0;
};

// The folder of the running executable (from /proc/self/exe), without a trailing separator;
// the current folder when it cannot be found.
std::string ExecutableFolder();

} // namespace karvane::ui
