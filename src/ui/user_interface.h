// The one interface through which the core reaches the user and the platform: messages,
// questions, progress, file dialogs, the per-user settings store and machine facts.
// Implemented by the desktop program, the command line and the scripted test double.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace karvane::ui {

enum class Icon { None, Information, Exclamation, Critical, Question };
enum class Buttons { OK, OKCancel, YesNo, YesNoCancel };
enum class Answer { OK, Cancel, Yes, No };

struct FileDialogRequest {
    std::string Title;
    std::string Filter;           // e.g. "Network (*.sim);;Master (*.smm)"
    std::string DefaultExtension; // without the dot
    std::string StartFolder;
    std::string FileName; // suggested name
};

struct DateTime {
    int Year = 2000, Month = 1, Day = 1; // Month 1..12
    int Hour = 0, Minute = 0, Second = 0;
    int WeekDay = 6; // 0 Sunday .. 6 Saturday
};

class UserInterface {
public:
    virtual ~UserInterface() = default;

    // Modal message box with an OK button.
    virtual void Message(const std::string& text, const std::string& title, Icon icon = Icon::None) = 0;
    // Modal question; returns the button pressed.
    virtual Answer Ask(const std::string& text, const std::string& title, Buttons buttons,
                       Icon icon = Icon::Question) = 0;
    // Input box; nothing when cancelled.
    virtual std::optional<std::string> Input(const std::string& prompt, const std::string& title,
                                             const std::string& defaultText) = 0;
    // A notice that needs no answer and closes by itself after ms milliseconds.
    virtual void Notice(const std::string& text, int ms) = 0;

    // Progress of a long run: the progress window opens, shows its caption, bar and labels,
    // and closes at the end of the run.
    virtual void ProgressOpen() {}
    virtual void ProgressClose() {}
    virtual void ProgressCaption(const std::string& /*caption*/) {}
    virtual void ProgressPercent(int /*percent*/) {}
    virtual void ProgressAttempt(const std::string& /*text*/) {}
    virtual void ProgressError(const std::string& /*text*/) {}
    // One named box of a progress window, by its control name: the smoke simulation window
    // shows its round, new rows, spread and convergence in "TxtItt", "TxtRate", "TxtSpread"
    // and "TxtErr".
    virtual void ProgressBox(const std::string& /*box*/, const std::string& /*text*/) {}
    // One step of the event loop, where a stop button or a repaint can act.
    virtual void PumpEvents() {}
    virtual void SetBusy(bool /*busy*/) {}

    // Common file dialogs: nothing on Cancel.
    virtual std::optional<std::string> OpenFileDialog(const FileDialogRequest& request) = 0;
    virtual std::optional<std::string> SaveFileDialog(const FileDialogRequest& request) = 0;

    // Per-user settings store (application, section, key).
    virtual std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                                   const std::string& defaultValue) = 0;
    virtual void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                             const std::string& value) = 0;

    // Machine facts.
    virtual std::string TempPath() = 0; // with no trailing separator
    virtual std::string AppPath() = 0;  // the program's folder (or the per-user data folder)
    virtual char DecimalSeparator() = 0;
    virtual DateTime Now() = 0;
};

} // namespace karvane::ui
