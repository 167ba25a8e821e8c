// A user interface driven by a script: questions are answered from queues, and every title
// and text that reaches the user is kept in a transcript so that tests can assert it.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "ui/answer_queue.h"
#include "ui/user_interface.h"

namespace karvane::ui {

struct TranscriptEntry {
    std::string Kind; // "Message", "Ask", "Input", "Notice", "Open", "Save"
    std::string Title;
    std::string Text;
};

class ScriptedUserInterface : public UserInterface, public AnswerQueue {
public:
    // Answers given in turn to Ask; when the queue is empty, DefaultAnswer is used
    // (Yes for Yes/No questions, OK for OK/Cancel ones, unless set).
    std::deque<Answer> Answers;
    std::optional<Answer> DefaultAnswer;
    // Answers given in turn to Input; an empty queue cancels.
    std::deque<std::optional<std::string>> Inputs;
    // Paths given in turn to the file dialogs; an empty queue cancels.
    std::deque<std::optional<std::string>> FilePaths;

    std::vector<TranscriptEntry> Transcript;
    std::map<std::string, std::string> Store; // "app/section/key" -> value

    std::string Temp = "/tmp";
    std::string App = ".";
    char Separator = '.';
    DateTime Clock{2026, 11, 22, 9, 5, 7, 0};
    int PumpCount = 0;
    std::vector<int> ProgressPercents;
    std::vector<std::string> ProgressCaptions;

    void Message(const std::string& text, const std::string& title, Icon icon) override;
    Answer Ask(const std::string& text, const std::string& title, Buttons buttons, Icon icon) override;
    std::optional<std::string> Input(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) override;
    void Notice(const std::string& text, int ms) override;
    void ProgressCaption(const std::string& caption) override { ProgressCaptions.push_back(caption); }
    void ProgressPercent(int percent) override { ProgressPercents.push_back(percent); }
    void PumpEvents() override { ++PumpCount; }
    std::optional<std::string> OpenFileDialog(const FileDialogRequest& request) override;
    std::optional<std::string> SaveFileDialog(const FileDialogRequest& request) override;
    std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                           const std::string& defaultValue) override;
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) override;
    std::string TempPath() override { return Temp; }
    std::string AppPath() override { return App; }
    char DecimalSeparator() override { return Separator; }
    DateTime Now() override { return Clock; }

    void AnswerNextQuestion(Answer answer) override { Answers.push_front(answer); }
    void AnswerNextInput(std::optional<std::string> text) override { Inputs.push_front(std::move(text)); }
    void AnswerNextFileDialog(std::optional<std::string> path) override { FilePaths.push_front(std::move(path)); }

    // The texts of all entries of one kind ("Message", "Ask", ...), in order.
    std::vector<std::string> Texts(const std::string& kind = "") const;
    // Whether any entry's text equals the given text.
    bool Said(const std::string& text) const;
};

} // namespace karvane::ui
