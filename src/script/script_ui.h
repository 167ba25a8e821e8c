// The user interface of a script session: a question, an input box or a file dialog takes the
// next answer that the script queued (`answer` lines); with none queued it goes to the user
// interface underneath (the command line's answer policy, or a test's queues). Every message
// goes underneath as it is.
#pragma once

#include <deque>
#include <string>

#include "script/script_reader.h"
#include "ui/user_interface.h"

namespace karvane::script {

class ScriptUserInterface : public ui::UserInterface {
public:
    explicit ScriptUserInterface(ui::UserInterface& base) : base_(base) {}

    // An answer line, queued.
    void Queue(const ScriptLine& line) { answers_.push_back(line); }
    // The first answer no question took; null when all were taken.
    const ScriptLine* Unused() const { return answers_.empty() ? nullptr : &answers_.front(); }
    void ClearAnswers() { answers_.clear(); }
    // A queued answer that did not fit the question it met ("line N: reason"); empty if none.
    std::string Error;

    void Message(const std::string& text, const std::string& title, ui::Icon icon) override {
        base_.Message(text, title, icon);
    }
    ui::Answer Ask(const std::string& text, const std::string& title, ui::Buttons buttons, ui::Icon icon) override;
    std::optional<std::string> Input(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) override;
    void Notice(const std::string& text, int ms) override { base_.Notice(text, ms); }
    void ProgressOpen() override { base_.ProgressOpen(); }
    void ProgressClose() override { base_.ProgressClose(); }
    void ProgressCaption(const std::string& caption) override { base_.ProgressCaption(caption); }
    void ProgressPercent(int percent) override { base_.ProgressPercent(percent); }
    void ProgressAttempt(const std::string& text) override { base_.ProgressAttempt(text); }
    void ProgressError(const std::string& text) override { base_.ProgressError(text); }
    void ProgressBox(const std::string& box, const std::string& text) override { base_.ProgressBox(box, text); }
    void PumpEvents() override { base_.PumpEvents(); }
    void SetBusy(bool busy) override { base_.SetBusy(busy); }
    std::optional<std::string> OpenFileDialog(const ui::FileDialogRequest& request) override;
    std::optional<std::string> SaveFileDialog(const ui::FileDialogRequest& request) override;
    std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                           const std::string& defaultValue) override {
        return base_.GetSetting(app, section, key, defaultValue);
    }
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) override {
        base_.SaveSetting(app, section, key, value);
    }
    std::string TempPath() override { return base_.TempPath(); }
    std::string AppPath() override { return base_.AppPath(); }
    char DecimalSeparator() override { return base_.DecimalSeparator(); }
    ui::DateTime Now() override { return base_.Now(); }

private:
    std::optional<std::string> FileAnswer(bool open, const ui::FileDialogRequest& request);
    void Refuse(const ScriptLine& line, const std::string& reason);

    ui::UserInterface& base_;
    std::deque<ScriptLine> answers_;
};

} // namespace karvane::script
